// Calls into the task manager from its own observers and tasks.
#include <algorithm>
#include <atomic>
#include <functional>
#include <thread>

#include <gtest/gtest.h>

#include "tests/tasks/TestTasks.h"

namespace {

using Entries = Journal::Entries;

class ManagerCallback : public testing::Test {
protected:
    TestTask* Task(const CString& name, std::int32_t code = 1) {
        return new TestTask(
            m_manager, name,
            [this, name, code] {
                m_ran.Add(name);
                return code;
            },
            &m_alive);
    }

    Journal m_ran;
    Journal m_told;
    JournalObserver m_journal{m_told};
    CallingObserver m_observer;
    std::atomic<int> m_alive{0};
    OpenManager m_manager{false};
};

TEST_F(ManagerCallback, CancelOfTheFinishedTaskDeletesItAtOnce) {
    std::atomic<int> aliveAfter{-1};
    m_observer.onSuccess = [&](const CString& name) {
        m_manager.CancelTask(name);
        aliveAfter = m_alive.load();
    };
    m_manager.AddTaskThreadMgrObserver(&m_observer);
    m_manager.AddTaskThreadMgrObserver(&m_journal);
    m_manager.StartTask(Task(u"t"));
    EXPECT_EQ(m_told.Await(1), Entries{u"+t"}) << "the name outlives the task";
    EXPECT_EQ(aliveAfter, 0);
}

TEST_F(ManagerCallback, CancelOfATaskWhoseInitFailedDeletesItAtOnce) {
    m_observer.onFailure = [&](const CString& name) {
        m_manager.CancelTask(name);
        m_ran.Add(m_alive == 0 ? u"gone" : u"alive");
    };
    m_manager.AddTaskThreadMgrObserver(&m_observer);
    TestTask* const task = Task(u"t");
    task->onInit = [] { return 0; };
    m_manager.StartTask(task);
    EXPECT_EQ(m_ran.Await(1), Entries{u"gone"});
}

TEST_F(ManagerCallback, CancelAllFromTheLastTaskReturns) {
    m_observer.onSuccess = [&](const CString&) {
        m_manager.CancelAllTask();
        m_ran.Add(m_alive == 0 ? u"gone" : u"alive");
    };
    m_manager.AddTaskThreadMgrObserver(&m_observer);
    m_manager.StartTask(Task(u"t"));
    EXPECT_EQ(m_ran.Await(2), (Entries{u"t", u"gone"}));
}

TEST_F(ManagerCallback, ANameIsFreeInItsOwnNotification) {
    std::atomic<int> rounds{0};
    m_observer.onSuccess = [&](const CString& name) {
        if (++rounds < 100)
            m_manager.StartTask(Task(name));
    };
    m_manager.AddTaskThreadMgrObserver(&m_observer);
    m_manager.AddTaskThreadMgrObserver(&m_journal);
    m_manager.StartTask(Task(u"again"));
    EXPECT_EQ(m_told.Await(100), Entries(100, u"+again"));
}

TEST_F(ManagerCallback, TheNameOfAFailedInitIsFreeOnlyBehindItsNotification) {
    m_observer.onFailure = [&](const CString& name) { m_manager.StartTask(Task(name)); };
    m_manager.AddTaskThreadMgrObserver(&m_observer);
    m_manager.AddTaskThreadMgrObserver(&m_journal);
    TestTask* const task = Task(u"t");
    task->onInit = [] { return 0; };
    m_manager.StartTask(task);
    m_told.Await(1);
    while (m_alive > 0)
        std::this_thread::yield();
    EXPECT_TRUE(m_ran.Read().empty()) << "the second one was refused";
}

TEST_F(ManagerCallback, ACancelledNameOfAFailedInitIsFree) {
    m_observer.onFailure = [&](const CString& name) {
        m_manager.CancelTask(name);
        m_manager.StartTask(Task(name));
    };
    m_manager.AddTaskThreadMgrObserver(&m_observer);
    m_manager.AddTaskThreadMgrObserver(&m_journal);
    TestTask* const task = Task(u"t");
    task->onInit = [] { return 0; };
    m_manager.StartTask(task);
    EXPECT_EQ(m_told.Await(2), (Entries{u"-t", u"+t"})) << "and the new task isn't taken for the old one";
}

TEST_F(ManagerCallback, AStartedTaskRunsWhileTheCallbackLasts) {
    Gate began;
    m_observer.onSuccess = [&](const CString& name) {
        if (name == u"second")
            return;
        m_manager.StartTask(new TestTask(m_manager, u"second", [&] {
            began.Open();
            return 1;
        }));
        began.Pass();
    };
    m_manager.AddTaskThreadMgrObserver(&m_observer);
    m_manager.AddTaskThreadMgrObserver(&m_journal);
    m_manager.StartTask(Task(u"first"));
    EXPECT_EQ(m_told.Await(2), (Entries{u"+first", u"+second"}));
}

TEST_F(ManagerCallback, TasksStartAndCancelTasks) {
    m_manager.SetParallelTaskCount(1);
    m_manager.AddTaskThreadMgrObserver(&m_journal);
    m_manager.StartTask(new TestTask(m_manager, u"host", [&] {
        m_manager.StartTask(Task(u"a"));
        m_manager.StartTask(Task(u"b"));
        m_manager.StartTask(Task(u"host"));
        m_manager.CancelTask(u"a");
        return 1;
    }));
    EXPECT_EQ(m_told.Await(2), (Entries{u"+host", u"+b"}));
}

TEST_F(ManagerCallback, AnObserverMayRemoveItselfAndOthers) {
    CallingObserver second;
    CallingObserver third;
    const auto tell = [&](const char16_t* who) { return [&, who](const CString&) { m_told.Add(who); }; };
    second.onSuccess = tell(u"second");
    third.onSuccess = tell(u"third");
    m_observer.onSuccess = [&](const CString&) {
        m_told.Add(u"first");
        m_manager.DelTaskThreadMgrObserver(&m_observer);
        m_manager.DelTaskThreadMgrObserver(&second);
    };
    for (ITaskResultNotify* one :
         {static_cast<ITaskResultNotify*>(&m_observer), static_cast<ITaskResultNotify*>(&second),
          static_cast<ITaskResultNotify*>(&third)})
        m_manager.AddTaskThreadMgrObserver(one);
    m_manager.StartTask(Task(u"t"));
    EXPECT_EQ(m_told.Await(2), (Entries{u"first", u"third"}));
    m_manager.StartTask(Task(u"t"));
    EXPECT_EQ(m_told.Await(3), (Entries{u"first", u"third", u"third"}));
    m_manager.CancelAllTask();
}

TEST_F(ManagerCallback, AnObserverThatIsAddedIsToldToo) {
    m_observer.onSuccess = [&](const CString& name) {
        m_told.Add(u"first");
        if (name == u"t")
            m_manager.AddTaskThreadMgrObserver(&m_journal);
    };
    m_manager.AddTaskThreadMgrObserver(&m_observer);
    m_manager.StartTask(Task(u"t"));
    EXPECT_EQ(m_told.Await(2), (Entries{u"first", u"+t"}));
}

/// Two tasks, of which the second one's work is over while the first one's end is being told: the second
/// one's thread has to wait with all that belongs to its own end.
class TwoEnds : public ManagerCallback {
protected:
    /// Calls `work` in the first one's notification.
    void Run(const std::function<void()>& work) {
        m_observer.onSuccess = [this, work](const CString& name) {
            if (!(name == u"first"))
                return;
            m_secondMayEnd.Open();
            while (m_second->GetThread() != nullptr)
                std::this_thread::yield();
            work();
        };
        m_manager.AddTaskThreadMgrObserver(&m_observer);
        m_manager.AddTaskThreadMgrObserver(&m_journal);
        m_second = new TestTask(
            m_manager, u"second",
            [this] {
                m_secondMayEnd.Pass();
                return 1;
            },
            &m_alive);
        m_manager.StartTask(m_second);
        m_manager.StartTask(new TestTask(
            m_manager, u"first",
            [this] {
                m_firstMayEnd.Pass();
                return 1;
            },
            &m_alive));
    }

    Gate m_firstMayEnd;
    Gate m_secondMayEnd;
    CThreadTask* m_second = nullptr;
};

TEST_F(TwoEnds, CancelOfAnotherFinishedTaskDeletesItAtOnce) {
    std::atomic<int> aliveAfter{-1};
    Run([&] {
        m_manager.CancelTask(u"second");
        aliveAfter = m_alive.load();
    });
    m_firstMayEnd.Open();
    EXPECT_EQ(m_told.Await(2), (Entries{u"+first", u"+second"})) << "its end is told all the same";
    EXPECT_EQ(aliveAfter, 1);
}

TEST_F(TwoEnds, ACancelledTaskThatHadFinishedStillBringsOnTheNext) {
    m_manager.SetParallelTaskCount(2);
    Run([&] { m_manager.CancelTask(u"second"); });
    for (const char16_t* name : {u"a", u"b"})
        m_manager.StartTask(new TestTask(m_manager, name, [] { return -1; }));
    m_manager.StartTask(Task(u"c"));
    m_firstMayEnd.Open();
    // Neither of the two that are brought on brings on the third.
    EXPECT_EQ(m_told.Await(2), (Entries{u"+first", u"+second"}));
    m_manager.CancelTask(u"a");
    m_manager.CancelTask(u"b");
    CThreadTask* task = nullptr;
    EXPECT_EQ(m_manager.GetCurFirstWaitTaskInfo(task), 1);
    delete task;
    EXPECT_EQ(m_manager.GetCurFirstWaitTaskInfo(task), 0);
}

TEST_F(TwoEnds, CancelAllFromACallbackReturnsWhenNoneIsRunning) {
    std::atomic<int> aliveAfter{-1};
    Run([&] {
        m_manager.CancelAllTask();
        aliveAfter = m_alive.load();
    });
    m_firstMayEnd.Open();
    EXPECT_EQ(m_told.Await(2), (Entries{u"+first", u"+second"}));
    EXPECT_EQ(aliveAfter, 0);
}

TEST_F(TwoEnds, TheNameOfAnotherFinishedTaskIsFree) {
    Run([&] { m_manager.StartTask(Task(u"second")); });
    m_firstMayEnd.Open();
    EXPECT_EQ(m_told.Await(3), (Entries{u"+first", u"+second", u"+second"}));
    EXPECT_EQ(m_ran.Read(), Entries{u"second"});
}

TEST_F(TwoEnds, NobodyElseFindsItFinishedBeforeItsEndIsTold) {
    HANDLE elsewhere = nullptr;
    HANDLE before = nullptr;
    std::atomic<bool> isOver{false};
    Run([&] {
        std::thread([&] { elsewhere = m_second->GetThread(); }).join();
        isOver = true;
    });
    before = m_second->GetThread();
    m_firstMayEnd.Open();
    while (m_second->GetThread() != nullptr)
        std::this_thread::yield();
    EXPECT_TRUE(isOver);
    EXPECT_NE(before, nullptr);
    EXPECT_EQ(elsewhere, before) << "the handle is as good as before";
    m_manager.CancelTask(u"second");
    EXPECT_EQ(m_told.Read(), (Entries{u"+first", u"+second"}));
}

TEST_F(TwoEnds, ACancelFromElsewhereWaitsUntilTheEndIsTold) {
    std::atomic<bool> isBegun{false};
    std::thread canceller;
    Run([&] {
        canceller = std::thread([&] {
            isBegun = true;
            m_manager.CancelTask(u"second");
            EXPECT_EQ(m_told.Read(), (Entries{u"+first", u"+second"}));
        });
        while (!isBegun)
            std::this_thread::yield();
    });
    m_firstMayEnd.Open();
    m_told.Await(2);
    canceller.join();
}

TEST_F(TwoEnds, ADestructorMayCancelAFinishedTaskToo) {
    Run([] {});
    TestTask* const quiet = Task(u"quiet", -1);
    quiet->onEnd = [&] {  // with the manager's lock, on the thread that starts the next task
        m_secondMayEnd.Open();
        while (m_second->GetThread() != nullptr)
            std::this_thread::yield();
        m_manager.CancelTask(u"second");
        EXPECT_EQ(m_alive, 3) << "the first one, the quiet one and the next";
    };
    m_manager.StartTask(quiet);
    while (quiet->GetThread() != nullptr)
        std::this_thread::yield();
    m_manager.StartTask(Task(u"next", -1));
    EXPECT_EQ(m_told.Await(1), Entries{u"+second"});
    m_observer.onSuccess = [](const CString&) {};
    m_firstMayEnd.Open();
    m_told.Await(2);
}

TEST_F(ManagerCallback, ANullObserverIsPassedOver) {
    m_manager.AddTaskThreadMgrObserver(nullptr);
    m_manager.AddTaskThreadMgrObserver(&m_journal);
    m_manager.AddTaskThreadMgrObserver(nullptr);
    m_manager.StartTask(Task(u"good"));
    m_told.Await(1);
    m_manager.StartTask(Task(u"bad", 0));
    EXPECT_EQ(m_told.Await(2), (Entries{u"+good", u"-bad"}));
    m_manager.CancelAllTask();
    m_manager.DelTaskThreadMgrObserver(nullptr);
    m_manager.StartTask(Task(u"again"));
    EXPECT_EQ(m_told.Await(3).back(), u"+again");
}

TEST_F(ManagerCallback, TheLastObserverMayReplaceItself) {
    m_observer.onSuccess = [&](const CString&) {
        m_told.Add(u"first");
        m_manager.DelTaskThreadMgrObserver(&m_observer);
        m_manager.AddTaskThreadMgrObserver(&m_journal);
    };
    m_manager.AddTaskThreadMgrObserver(&m_observer);
    m_manager.StartTask(Task(u"t"));
    m_manager.CancelTask(u"t");
    EXPECT_EQ(m_told.Read(), Entries{u"first"}) << "the new one hears of the next task on";
    m_manager.StartTask(Task(u"t"));
    EXPECT_EQ(m_told.Await(2), (Entries{u"first", u"+t"}));
}

TEST_F(ManagerCallback, ADestructorMayTakeTheNameThatIsBeingStarted) {
    Gate gate;
    TestTask* const first = Task(u"first", -1);
    first->onEnd = [&] {
        m_manager.StartTask(new TestTask(m_manager, u"second", [&] {
            gate.Pass();
            m_ran.Add(u"of the destructor");
            return 1;
        }));
    };
    m_manager.StartTask(first);
    while (first->GetThread() != nullptr)
        std::this_thread::yield();
    EXPECT_EQ(m_manager.StartTaskThread(Task(u"second")), 0);
    EXPECT_EQ(m_alive, 0) << "the one that came second is deleted";
    gate.Open();
    m_manager.CancelTask(u"second");
    EXPECT_EQ(m_ran.Read(), (Entries{u"first", u"of the destructor"}));
}

TEST_F(ManagerCallback, ADestructorMayLetTheNameThatIsBeingStartedWait) {
    Gate gate;
    TestTask* const first = Task(u"first", -1);
    first->onEnd = [&] { m_manager.StartTask(Task(u"second")); };
    m_manager.StartTask(first);
    while (first->GetThread() != nullptr)
        std::this_thread::yield();
    m_manager.SetParallelTaskCount(0);
    EXPECT_EQ(m_manager.StartTaskThread(Task(u"second")), 0);
    EXPECT_EQ(m_alive, 1);
    m_manager.CancelTask(u"second");
    EXPECT_EQ(m_alive, 0);
}

TEST_F(ManagerCallback, ADestructorMayCallTheManager) {
    m_manager.AddTaskThreadMgrObserver(&m_journal);
    TestTask* const task = Task(u"first");
    task->onEnd = [&] {
        m_manager.CancelTask(u"second");
        m_manager.StartTask(Task(u"from the end"));
    };
    m_manager.StartTask(task);
    m_told.Await(1);
    m_manager.StartTask(Task(u"second"));
    const Entries told = m_told.Await(3);
    EXPECT_EQ(std::count(told.begin(), told.end(), u"+from the end"), 1);
    EXPECT_EQ(std::count(told.begin(), told.end(), u"+second"), 1);
}

TEST_F(ManagerCallback, TheHandleIsThereBeforeTheTaskRuns) {
    for (int round = 0; round < 200; ++round) {
        std::atomic<CThreadTask*> self{nullptr};
        std::atomic<HANDLE> seen{nullptr};
        auto* const task = new TestTask(m_manager, u"t", [&] {
            seen = self.load()->GetThread();
            return 1;
        });
        self = task;
        EXPECT_EQ(task->GetThread(), nullptr);
        m_manager.StartTask(task);
        m_manager.CancelTask(u"t");
        EXPECT_NE(seen, nullptr);
    }
}

TEST_F(ManagerCallback, AClientMayWaitForTheHandle) {
    Gate gate;
    auto* const task = new TestTask(m_manager, u"t", [&] {
        gate.Pass();
        return 1;
    });
    m_manager.StartTask(task);
    const HANDLE thread = task->GetThread();
    EXPECT_EQ(WaitForSingleObject(thread, 10), WAIT_TIMEOUT);
    gate.Open();
    EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
    EXPECT_EQ(task->GetThread(), nullptr) << "finished, and not yet deleted";
    EXPECT_EQ(WaitForSingleObject(thread, 0), WAIT_OBJECT_0);
    m_manager.CancelTask(u"t");
    EXPECT_EQ(WaitForSingleObject(thread, 0), WAIT_FAILED) << "it goes with the task";
}

}  // namespace
