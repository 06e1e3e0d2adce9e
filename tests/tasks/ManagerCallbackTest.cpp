// Calls into the task manager from its own observers and tasks.
#include <algorithm>
#include <atomic>
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
