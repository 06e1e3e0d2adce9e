// The task manager as its clients see it.
#include <atomic>
#include <stdexcept>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "tests/tasks/TestTasks.h"

namespace {

using Entries = Journal::Entries;

class ThreadManager : public testing::Test {
protected:
    /// A task that tells when it runs and then waits for the gate.
    TestTask* Blocked(CQSThreadManager& manager, const CString& name, Gate& gate, std::int32_t code = 1) {
        return new TestTask(
            manager, name,
            [this, name, &gate, code] {
                m_ran.Add(name);
                gate.Pass();
                return code;
            },
            &m_alive);
    }
    TestTask* Short(CQSThreadManager& manager, const CString& name, std::int32_t code = 1) {
        return new TestTask(
            manager, name,
            [this, name, code] {
                m_ran.Add(name);
                return code;
            },
            &m_alive);
    }

    Journal m_ran;
    Journal m_told;
    JournalObserver m_observer{m_told};
    std::atomic<int> m_alive{0};
};

TEST_F(ThreadManager, ATaskRunsAndIsTold) {
    CQSThreadManager manager(false);
    manager.AddTaskThreadMgrObserver(&m_observer);
    manager.StartTask(Short(manager, u"任务 1"));
    EXPECT_EQ(m_told.Await(1), Entries{u"+任务 1"});
    EXPECT_EQ(m_ran.Read(), Entries{u"任务 1"});
}

TEST_F(ThreadManager, ResultsBecomeNotifications) {
    CQSThreadManager manager(false);
    manager.AddTaskThreadMgrObserver(&m_observer);
    Entries expected;
    for (const auto& [code, mark] : {std::pair(0, u"-"), {5, u"+"}, {1, u"+"}, {-2, u"+"}, {-1, u""}}) {
        const CString name = CString(u"t") + CString(u'x', static_cast<int>(m_ran.Read().size()) + 1);
        manager.StartTask(Short(manager, name, code));
        manager.CancelTask(name);
        if (*mark != 0)
            expected.push_back(std::u16string((mark + name).View()));
    }
    EXPECT_EQ(m_told.Read(), expected);
    EXPECT_EQ(m_ran.Read().size(), 5u);
    EXPECT_EQ(m_alive, 0);
}

TEST_F(ThreadManager, TheLimitIsTenAtFirst) {
    Gate gate;
    Gate first;
    CallingObserver atEnd;
    std::size_t ranAtEnd = 0;
    CQSThreadManager manager(false);
    manager.AddTaskThreadMgrObserver(&m_observer);
    std::vector<CThreadTask*> tasks = {Blocked(manager, u"0", first)};
    for (const char16_t* name : {u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8", u"9", u"10"})
        tasks.push_back(Blocked(manager, name, gate));
    manager.BatchStartTask(tasks);
    m_ran.Await(10);
    atEnd.onSuccess = [&](const CString&) { ranAtEnd = ranAtEnd == 0 ? m_ran.Read().size() : ranAtEnd; };
    manager.AddTaskThreadMgrObserver(&atEnd);
    first.Open();
    EXPECT_EQ(m_ran.Await(11).back(), u"10") << "the eleventh starts when one has ended";
    EXPECT_EQ(ranAtEnd, 10u);
    gate.Open();
    EXPECT_EQ(m_told.Await(11).front(), u"+0");
}

TEST_F(ThreadManager, TheNextIsTheFirstOrTheLastThatCame) {
    for (const bool lastInFirstOut : {false, true}) {
        Gate gate;
        Journal ran;
        CQSThreadManager manager(lastInFirstOut);
        manager.SetParallelTaskCount(1);
        manager.StartTask(new TestTask(manager, u"0", [&] {
            gate.Pass();
            return 1;
        }));
        for (const char16_t* name : {u"1", u"2", u"3"})
            manager.StartTask(new TestTask(manager, name, [&ran, name] {
                ran.Add(name);
                return 1;
            }));
        gate.Open();
        EXPECT_EQ(ran.Await(3), lastInFirstOut ? (Entries{u"3", u"2", u"1"}) : (Entries{u"1", u"2", u"3"}));
    }
}

TEST_F(ThreadManager, ANameInUseIsRefused) {
    Gate gate;
    CQSThreadManager manager(false);
    manager.AddTaskThreadMgrObserver(&m_observer);
    manager.SetParallelTaskCount(1);
    manager.StartTask(Blocked(manager, u"running", gate));
    manager.StartTask(Blocked(manager, u"waiting", gate));
    EXPECT_EQ(m_alive, 2);
    manager.StartTask(Short(manager, u"running"));
    manager.StartTask(Short(manager, u"waiting"));
    EXPECT_EQ(m_alive, 2) << "the new ones are deleted";
    manager.StartTask(Short(manager, u"Running"));
    EXPECT_EQ(m_alive, 3) << "case counts";
    gate.Open();
    EXPECT_EQ(m_told.Await(3), (Entries{u"+running", u"+waiting", u"+Running"}));
    EXPECT_EQ(m_ran.Read(), (Entries{u"running", u"waiting", u"Running"}));
}

TEST_F(ThreadManager, ANameIsFreeAgainWhenItsTaskHasEnded) {
    CQSThreadManager manager(false);
    manager.AddTaskThreadMgrObserver(&m_observer);
    for (std::size_t round = 1; round <= 5; ++round) {
        manager.StartTask(Short(manager, u"again"));
        m_told.Await(round);
        EXPECT_EQ(m_alive, 1) << "an ended task stays until somebody walks the queue";
    }
    manager.CancelTask(u"again");
    EXPECT_EQ(m_alive, 0);
}

TEST_F(ThreadManager, AnEndedTaskIsDeletedByTheNextStart) {
    Gate gate;
    CQSThreadManager manager(false);
    manager.AddTaskThreadMgrObserver(&m_observer);
    manager.StartTask(Short(manager, u"one"));
    m_told.Await(1);
    manager.StartTask(Blocked(manager, u"two", gate));
    EXPECT_EQ(m_alive, 1);
    gate.Open();
}

TEST_F(ThreadManager, CancelOfAnUnknownNameDoesNothing) {
    CQSThreadManager manager(false);
    manager.CancelTask(u"");
    manager.CancelTask(u"nobody");
    manager.CancelAllTask();
}

TEST_F(ThreadManager, CancelOfARunningTaskWaitsAndItsEndIsTold) {
    Gate gate;
    CQSThreadManager manager(false);
    manager.AddTaskThreadMgrObserver(&m_observer);
    manager.SetParallelTaskCount(1);
    manager.StartTask(Blocked(manager, u"running", gate));
    manager.StartTask(Short(manager, u"next"));
    m_ran.Await(1);
    std::thread opener([&] { gate.Open(); });
    manager.CancelTask(u"running");
    EXPECT_EQ(m_told.Read().front(), u"+running");
    EXPECT_EQ(m_told.Await(2), (Entries{u"+running", u"+next"}));
    manager.CancelTask(u"next");
    EXPECT_EQ(m_alive, 0);
    opener.join();
}

TEST_F(ThreadManager, CancelOfAWaitingTaskIsToldToNobody) {
    Gate gate;
    CQSThreadManager manager(false);
    manager.AddTaskThreadMgrObserver(&m_observer);
    manager.SetParallelTaskCount(1);
    manager.StartTask(Blocked(manager, u"running", gate));
    manager.StartTask(Short(manager, u"a"));
    manager.StartTask(Short(manager, u"b"));
    manager.CancelTask(u"a");
    EXPECT_EQ(m_alive, 2);
    gate.Open();
    EXPECT_EQ(m_told.Await(2), (Entries{u"+running", u"+b"}));
    EXPECT_EQ(m_ran.Read(), (Entries{u"running", u"b"}));
}

TEST_F(ThreadManager, CancelAllDeletesTheWaitingAndWaitsForTheRunning) {
    Gate gate;
    CQSThreadManager manager(true);
    manager.AddTaskThreadMgrObserver(&m_observer);
    manager.SetParallelTaskCount(2);
    for (const char16_t* name : {u"1", u"2", u"3", u"4", u"5"})
        manager.StartTask(Blocked(manager, name, gate));
    m_ran.Await(2);
    std::thread opener([&] {
        while (m_alive > 2)
            std::this_thread::yield();
        gate.Open();
    });
    manager.CancelAllTask();
    opener.join();
    EXPECT_EQ(m_alive, 0);
    EXPECT_EQ(m_ran.Read().size(), 2u);
    EXPECT_EQ(m_told.Read().size(), 2u);
}

TEST_F(ThreadManager, TheEndWaitsForTheRunningAndDeletesTheWaiting) {
    Gate gate;
    std::thread opener;
    {
        CQSThreadManager manager(false);
        manager.AddTaskThreadMgrObserver(&m_observer);
        manager.SetParallelTaskCount(1);
        manager.StartTask(Blocked(manager, u"1", gate));
        manager.StartTask(Blocked(manager, u"2", gate));
        m_ran.Await(1);
        opener = std::thread([&] {
            while (m_alive > 1)
                std::this_thread::yield();
            gate.Open();
        });
    }
    EXPECT_EQ(m_alive, 0);
    EXPECT_EQ(m_told.Read(), Entries{u"+1"});
    opener.join();
}

TEST_F(ThreadManager, WhatIsStartedWhileTheManagerEndsIsRefused) {
    Gate gate;
    {
        CQSThreadManager manager(false);
        manager.StartTask(new TestTask(manager, u"1", [&] {
            gate.Pass();
            while (m_alive > 0)
                std::this_thread::yield();
            // The waiting task has been deleted: the manager is ending.
            manager.StartTask(Short(manager, u"2"));
            EXPECT_EQ(m_alive, 0);
            return 1;
        }));
        manager.SetParallelTaskCount(1);
        manager.StartTask(Short(manager, u"waiting"));
        gate.Open();
    }
    EXPECT_TRUE(m_ran.Read().empty());
}

TEST_F(ThreadManager, ALimitOfNoneLetsEverybodyWait) {
    CQSThreadManager manager(false);
    manager.SetParallelTaskCount(0);
    manager.StartTask(Short(manager, u"a"));
    manager.StartTask(Short(manager, u"b"));
    manager.SetParallelTaskCount(5);
    EXPECT_TRUE(m_ran.Read().empty()) << "a higher limit starts nothing";
    manager.StartTask(Short(manager, u"c"));
    EXPECT_EQ(m_ran.Await(3), (Entries{u"c", u"a", u"b"})) << "an end does";
}

TEST_F(ThreadManager, ALowerLimitStopsNothing) {
    Gate gate;
    CQSThreadManager manager(false);
    manager.StartTask(Blocked(manager, u"a", gate));
    manager.StartTask(Blocked(manager, u"b", gate));
    m_ran.Await(2);
    manager.SetParallelTaskCount(1);
    manager.StartTask(Blocked(manager, u"c", gate));
    EXPECT_EQ(m_ran.Read().size(), 2u);
    gate.Open();
    EXPECT_EQ(m_ran.Await(3).back(), u"c");
}

TEST_F(ThreadManager, AFailedInitIsToldAndBringsOnNobody) {
    Gate gate;
    CQSThreadManager manager(false);
    manager.AddTaskThreadMgrObserver(&m_observer);
    manager.SetParallelTaskCount(1);
    auto* const task = Short(manager, u"failing");
    task->onInit = [&] {
        gate.Pass();
        return 0;
    };
    manager.StartTask(task);
    manager.StartTask(Short(manager, u"next"));
    gate.Open();
    m_told.Await(1);
    while (m_alive > 1)
        std::this_thread::yield();
    EXPECT_EQ(m_told.Read(), Entries{u"-failing"});
    EXPECT_TRUE(m_ran.Read().empty());
    manager.CancelTask(u"failing");
    manager.StartTask(Short(manager, u"third"));
    EXPECT_EQ(m_told.Await(3), (Entries{u"-failing", u"+third", u"+next"}));
}

TEST_F(ThreadManager, AnUnheardTaskBringsOnNobody) {
    Gate gate;
    CQSThreadManager manager(false);
    manager.AddTaskThreadMgrObserver(&m_observer);
    manager.SetParallelTaskCount(1);
    manager.StartTask(Blocked(manager, u"quiet", gate, -1));
    manager.StartTask(Short(manager, u"next"));
    gate.Open();
    manager.CancelTask(u"quiet");
    EXPECT_TRUE(m_told.Read().empty());
    EXPECT_EQ(m_ran.Read(), Entries{u"quiet"});
    EXPECT_EQ(m_alive, 1);
}

TEST_F(ThreadManager, WhatATaskThrowsIsAFailure) {
    Gate gate;
    CQSThreadManager manager(false);
    manager.AddTaskThreadMgrObserver(&m_observer);
    manager.SetParallelTaskCount(1);
    manager.StartTask(new TestTask(manager, u"throws", [&]() -> std::int32_t {
        gate.Pass();
        throw std::runtime_error("in a task");
    }));
    manager.StartTask(Short(manager, u"next"));
    gate.Open();
    EXPECT_EQ(m_told.Await(2), (Entries{u"-throws", u"+next"}));
}

TEST_F(ThreadManager, WhatAnInitThrowsIsAFailedInit) {
    CQSThreadManager manager(false);
    manager.AddTaskThreadMgrObserver(&m_observer);
    auto* const task = Short(manager, u"throws");
    task->onInit = []() -> std::int32_t { throw 1; };
    manager.StartTask(task);
    EXPECT_EQ(m_told.Await(1), Entries{u"-throws"});
    while (m_alive > 0)
        std::this_thread::yield();
    EXPECT_TRUE(m_ran.Read().empty());
}

TEST_F(ThreadManager, WhatAnObserverThrowsStopsNobody) {
    CallingObserver throwing;
    CQSThreadManager manager(false);
    throwing.onSuccess = [](const CString&) { throw std::runtime_error("in an observer"); };
    throwing.onFailure = [](const CString&) { throw 1; };
    manager.AddTaskThreadMgrObserver(&throwing);
    manager.AddTaskThreadMgrObserver(&m_observer);
    manager.SetParallelTaskCount(1);
    manager.StartTask(Short(manager, u"a"));
    manager.StartTask(Short(manager, u"b", 0));
    EXPECT_EQ(m_told.Await(2), (Entries{u"+a", u"-b"}));
}

TEST_F(ThreadManager, ObserversAreToldInOrderAndAsOftenAsTheyWereAdded) {
    CallingObserver other;
    CQSThreadManager manager(false);
    other.onSuccess = [&](const CString&) { m_told.Add(u"other"); };
    manager.AddTaskThreadMgrObserver(&m_observer);
    manager.AddTaskThreadMgrObserver(&other);
    manager.AddTaskThreadMgrObserver(&m_observer);
    manager.StartTask(Short(manager, u"t"));
    EXPECT_EQ(m_told.Await(3), (Entries{u"+t", u"other", u"+t"}));
    manager.DelTaskThreadMgrObserver(&m_observer);
    manager.DelTaskThreadMgrObserver(nullptr);
    manager.StartTask(Short(manager, u"t"));
    EXPECT_EQ(m_told.Await(5), (Entries{u"+t", u"other", u"+t", u"other", u"+t"}));
}

TEST_F(ThreadManager, NullIsIgnored) {
    CQSThreadManager manager(false);
    manager.StartTask(nullptr);
    manager.BatchStartTask({nullptr, Short(manager, u"t"), nullptr});
    m_ran.Await(1);
}

TEST_F(ThreadManager, ATaskThatIsHandedOverTwiceIsOneTask) {
    Gate gate;
    CQSThreadManager manager(false);
    manager.SetParallelTaskCount(1);
    CThreadTask* const running = Blocked(manager, u"running", gate);
    CThreadTask* const waiting = Short(manager, u"waiting");
    manager.BatchStartTask({running, running, waiting, waiting});
    EXPECT_EQ(m_alive, 2);
    gate.Open();
    EXPECT_EQ(m_ran.Await(2), (Entries{u"running", u"waiting"}));
}

TEST_F(ThreadManager, TheManagerThatRunsATaskIsItsManager) {
    Journal others;
    JournalObserver observer(others);
    CQSThreadManager made(false);
    made.AddTaskThreadMgrObserver(&m_observer);
    CQSThreadManager runs(false);
    runs.AddTaskThreadMgrObserver(&observer);
    runs.StartTask(Short(made, u"t"));
    EXPECT_EQ(others.Await(1), Entries{u"+t"});
    EXPECT_TRUE(m_told.Read().empty());
}

TEST_F(ThreadManager, ACopyHasSettingsAndObserversButNoTasks) {
    Gate gate;
    CQSThreadManager manager(true);
    manager.SetParallelTaskCount(1);
    manager.AddTaskThreadMgrObserver(&m_observer);
    manager.StartTask(Blocked(manager, u"a", gate));
    manager.StartTask(Short(manager, u"b"));
    {
        CQSThreadManager copy(manager);
        CQSThreadManager assigned(false);
        assigned.AddTaskThreadMgrObserver(nullptr);
        assigned = manager;
        for (CQSThreadManager* one : {&copy, &assigned}) {
            const std::size_t before = m_told.Read().size();
            Gate own;
            one->StartTask(Blocked(*one, u"a", own));
            one->StartTask(Short(*one, u"1"));
            one->StartTask(Short(*one, u"2"));
            own.Open();
            m_told.Await(before + 3);
        }
    }
    EXPECT_EQ(m_told.Read(), (Entries{u"+a", u"+2", u"+1", u"+a", u"+2", u"+1"}));
    EXPECT_EQ(m_alive, 2);
    gate.Open();
    m_told.Await(8);
}

TEST_F(ThreadManager, ItsFormIsKnown) {
    static_assert(std::has_virtual_destructor_v<CQSThreadManager>);
    static_assert(std::has_virtual_destructor_v<CThreadTask>);
    static_assert(!std::has_virtual_destructor_v<ITaskResultNotify>);
    static_assert(std::is_copy_constructible_v<CQSThreadManager>);
    static_assert(std::is_copy_assignable_v<CQSThreadManager>);
}

}  // namespace
