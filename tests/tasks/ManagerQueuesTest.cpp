// The operations of the task manager for derived classes, and its private ones.
#include <atomic>
#include <chrono>
#include <map>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "tests/tasks/ManagerMembers.h"
#include "tests/tasks/TestTasks.h"

namespace {

using Entries = Journal::Entries;
using ManagerMembers::Call;

/// A task that tells its name and does nothing.
class NamedTask : public TestTask {
public:
    NamedTask(CQSThreadManager& manager, const CString& name, std::atomic<int>* alive = nullptr)
        : TestTask(
              manager, name, [] { return 1; }, alive) {}
    CString Name() const { return m_strTaskName; }
};

class ManagerQueues : public testing::TestWithParam<bool> {
protected:
    TestTask* Task(const CString& name) {
        return new TestTask(
            m_manager, name,
            [this, name] {
                m_ran.Add(name);
                m_gate.Pass();
                return 1;
            },
            &m_alive);
    }
    /// A task whose thread is gone and which is still in the active queue.
    CThreadTask* Finished(const CString& name) {
        CThreadTask* const task = new TestTask(
            m_manager, name, [] { return -1; }, &m_alive);
        EXPECT_EQ(m_manager.StartTaskThread(task), 1);
        while (task->GetThread() != nullptr)
            std::this_thread::yield();
        return task;
    }
    Entries Waiting() {
        Entries names;
        std::vector<CThreadTask*> taken;
        for (CThreadTask* task = nullptr; m_manager.GetCurFirstWaitTaskInfo(task) == 1;)
            taken.push_back(task);
        for (CThreadTask* const task : taken) {
            names.emplace_back(static_cast<NamedTask*>(task)->Name().View());
            delete task;
        }
        return names;
    }

    void TearDown() override { m_gate.Open(); }

    Gate m_gate;
    Journal m_ran;
    std::atomic<int> m_alive{0};
    OpenManager m_manager{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(FirstAndLast, ManagerQueues, testing::Bool());

TEST_P(ManagerQueues, StartTellsWhetherTheTaskRunsOrWaits) {
    m_manager.SetParallelTaskCount(1);
    EXPECT_EQ(m_manager.StartTaskThread(Task(u"a")), 1);
    EXPECT_EQ(m_manager.StartTaskThread(Task(u"b")), 1);
    EXPECT_EQ(m_manager.StartTaskThread(Task(u"a")), 0);
    EXPECT_EQ(m_manager.StartTaskThread(Task(u"b")), 0);
    EXPECT_EQ(m_manager.StartTaskThread(nullptr), 0);
    EXPECT_EQ(m_alive, 2);
    EXPECT_EQ(Call<ManagerMembers::GetActiveTaskCount>(m_manager), 1u);
    EXPECT_EQ(Call<ManagerMembers::BeInActivQueue>(m_manager, CString(u"a")), 1);
    EXPECT_EQ(Call<ManagerMembers::BeInActivQueue>(m_manager, CString(u"b")), 0);
    EXPECT_EQ(Call<ManagerMembers::BeInWaitQueue>(m_manager, CString(u"b")), 1);
    EXPECT_EQ(Call<ManagerMembers::BeInWaitQueue>(m_manager, CString(u"a")), 0);
}

TEST_P(ManagerQueues, WaitingTasksAreTakenInTheirOrder) {
    CThreadTask* task = nullptr;
    EXPECT_EQ(m_manager.GetCurFirstWaitTaskInfo(task), 0);
    EXPECT_EQ(task, nullptr);
    for (const char16_t* name : {u"a", u"b", u"c"})
        EXPECT_EQ(m_manager.EnterWaitQueue(new NamedTask(m_manager, name)), 1);
    EXPECT_EQ(Waiting(), GetParam() ? (Entries{u"c", u"b", u"a"}) : (Entries{u"a", u"b", u"c"}));
}

TEST_P(ManagerQueues, AWaitingNameMovesToTheEnd) {
    for (const char16_t* name : {u"a", u"b", u"c"})
        m_manager.EnterWaitQueue(new NamedTask(m_manager, name, &m_alive));
    EXPECT_EQ(m_manager.EnterWaitQueue(new NamedTask(m_manager, u"a", &m_alive)), 0);
    EXPECT_EQ(m_alive, 3) << "the new one is deleted";
    EXPECT_EQ(Waiting(), GetParam() ? (Entries{u"a", u"c", u"b"}) : (Entries{u"b", u"c", u"a"}));
    EXPECT_EQ(m_alive, 0);
}

TEST_P(ManagerQueues, AWaitingTaskThatComesAgainIsNotDeleted) {
    auto* const task = new NamedTask(m_manager, u"a", &m_alive);
    EXPECT_EQ(m_manager.EnterWaitQueue(task), 1);
    EXPECT_EQ(m_manager.EnterWaitQueue(task), 0);
    EXPECT_EQ(m_alive, 1);
}

TEST_P(ManagerQueues, ExplicitStartsTakeTheNext) {
    m_manager.SetParallelTaskCount(0);
    for (const char16_t* name : {u"a", u"b"})
        m_manager.StartTask(Task(name));
    m_manager.SetParallelTaskCount(3);
    m_manager.StartThreadFromWaitInfo();
    EXPECT_EQ(m_ran.Await(1), Entries{GetParam() ? u"b" : u"a"});
    m_manager.StartThreadFromWaitInfo();
    m_manager.StartThreadFromWaitInfo();
    EXPECT_EQ(m_ran.Await(2).size(), 2u);
}

TEST_P(ManagerQueues, WithoutRoomTheTakenTaskGoesToTheEnd) {
    m_manager.SetParallelTaskCount(0);
    for (const char16_t* name : {u"a", u"b", u"c"})
        m_manager.StartTask(new NamedTask(m_manager, name));
    m_manager.StartThreadFromWaitInfo();
    EXPECT_EQ(Waiting(), GetParam() ? (Entries{u"c", u"b", u"a"}) : (Entries{u"b", u"c", u"a"}));
}

TEST_P(ManagerQueues, TheActiveQueueTakesNewNamesBelowTheLimit) {
    m_manager.SetParallelTaskCount(1);
    TestTask* const running = Task(u"running");
    m_manager.StartTask(running);
    m_ran.Await(1);
    NamedTask same(m_manager, u"running");
    NamedTask other(m_manager, u"other");
    EXPECT_EQ(m_manager.EnterActiveQueue(&same), 0) << "the name is running";
    EXPECT_EQ(m_manager.EnterActiveQueue(&other), 0) << "no room";
    m_manager.SetParallelTaskCount(2);
    EXPECT_EQ(m_manager.EnterActiveQueue(&same), 0);
    EXPECT_EQ(m_manager.EnterActiveQueue(&other), 1);
    EXPECT_EQ(Call<ManagerMembers::GetActiveTaskCount>(m_manager), 1u) << "without a thread it doesn't count";
    CThreadTask* found = nullptr;
    EXPECT_EQ(m_manager.GetActivedTaskReference(u"other", found), 1);
    EXPECT_EQ(found, &other);
    EXPECT_EQ(Call<ManagerMembers::ExitFromActiveQueue>(m_manager, CString(u"other"), 0), 1);
    EXPECT_EQ(m_manager.GetActivedTaskReference(u"other", found), 0);
}

TEST_P(ManagerQueues, EnteringReapsOnlyTheSameName) {
    Finished(u"a");
    // The start of the second one reaps the first, so both are made before either has ended.
    Gate gate;
    auto* const b = new TestTask(
        m_manager, u"b",
        [&] {
            gate.Pass();
            return -1;
        },
        &m_alive);
    auto* const c = new TestTask(
        m_manager, u"c",
        [&] {
            gate.Pass();
            return -1;
        },
        &m_alive);
    m_manager.BatchStartTask({b, c});
    gate.Open();
    while (Call<ManagerMembers::GetActiveTaskCount>(m_manager) > 0)
        std::this_thread::yield();
    EXPECT_EQ(m_alive, 2);
    NamedTask next(m_manager, u"c");
    EXPECT_EQ(m_manager.EnterActiveQueue(&next), 1);
    EXPECT_EQ(m_alive, 1);
    CThreadTask* found = nullptr;
    EXPECT_EQ(m_manager.GetActivedTaskReference(u"b", found), 1);
    EXPECT_EQ(Call<ManagerMembers::ExitFromActiveQueue>(m_manager, CString(u"c"), 0), 1);
}

TEST_P(ManagerQueues, AReapedTaskMayTakeTheNameThatEnters) {
    auto* const first = static_cast<TestTask*>(Finished(u"a"));
    first->onEnd = [this] { m_manager.StartTask(Task(u"a")); };
    NamedTask second(m_manager, u"a");
    EXPECT_EQ(m_manager.EnterActiveQueue(&second), 0);
    EXPECT_EQ(m_ran.Await(1), Entries{u"a"});
}

TEST_P(ManagerQueues, FindingAnActiveNameReapsOnTheWay) {
    Finished(u"a");
    EXPECT_EQ(m_alive, 1);
    EXPECT_EQ(Call<ManagerMembers::BeInActivQueue>(m_manager, CString(u"a")), 0) << "a finished task is none";
    EXPECT_EQ(m_alive, 0);
    EXPECT_EQ(Call<ManagerMembers::BeInActivQueue>(m_manager, CString(u"a")), 0);
}

TEST_P(ManagerQueues, TheReapingEndsWithTheName) {
    m_manager.StartTask(Task(u"running"));
    Finished(u"finished");
    EXPECT_EQ(Call<ManagerMembers::BeInActivQueue>(m_manager, CString(u"running")), 1);
    EXPECT_EQ(m_alive, 2) << "the walk ended in front of it";
    EXPECT_EQ(Call<ManagerMembers::BeInActivQueue>(m_manager, CString(u"other")), 0);
    EXPECT_EQ(m_alive, 1);
}

TEST_P(ManagerQueues, AWaitingNameIsFoundBeforeAnythingIsReaped) {
    m_manager.SetParallelTaskCount(1);
    Finished(u"finished");
    m_manager.EnterWaitQueue(Task(u"waiting"));
    EXPECT_EQ(m_manager.StartTaskThread(Task(u"waiting")), 0);
    EXPECT_EQ(m_alive, 2);
}

TEST_P(ManagerQueues, ExitsByNameAndByTask) {
    m_manager.SetParallelTaskCount(0);
    m_manager.StartTask(Task(u"waiting"));
    EXPECT_EQ(Call<ManagerMembers::ExitFromWaitQueue>(m_manager, CString(u"nobody"), 1), 0);
    EXPECT_EQ(Call<ManagerMembers::ExitFromWaitQueue>(m_manager, CString(u"waiting"), 1), 1);
    EXPECT_EQ(m_alive, 0);
    NamedTask kept(m_manager, u"kept", &m_alive);
    m_manager.EnterWaitQueue(&kept);
    EXPECT_EQ(Call<ManagerMembers::ExitFromWaitQueue>(m_manager, CString(u"kept"), 0), 1);
    EXPECT_EQ(m_alive, 1);
    m_manager.SetParallelTaskCount(1);
    CThreadTask* const finished = Finished(u"finished");
    EXPECT_EQ(Call<ManagerMembers::ExitFromActiveQueue>(m_manager, CString(u"nobody"), 1), 0);
    CThreadTask* nobody = &kept;
    const ManagerMembers::TaskPlace none =
        Call<ManagerMembers::ExitFromActiveQueueByTask>(m_manager, nobody, 1);
    EXPECT_EQ(m_alive, 2) << "it isn't in the queue";
    CThreadTask* const second = new NamedTask(m_manager, u"second", &m_alive);
    EXPECT_EQ(m_manager.EnterActiveQueue(second), 1);
    const ManagerMembers::TaskPlace next =
        Call<ManagerMembers::ExitFromActiveQueueByTask>(m_manager, finished, 1);
    ASSERT_NE(next, none);
    EXPECT_EQ(*next, second);
    EXPECT_EQ(m_alive, 2);
    EXPECT_EQ(Call<ManagerMembers::ExitFromActiveQueueByTask>(m_manager, second, 1), none);
    EXPECT_EQ(m_alive, 1);
}

TEST_P(ManagerQueues, AThreadIsWaitedForAndItsHandleClosed) {
    // A task has no handle any more once it has ended, so the call must come before that.
    bool isClosed = false;
    for (int pause = 10; !isClosed && pause < 5000; pause *= 2) {
        TestTask* const task = new TestTask(
            m_manager, u"t",
            [pause] {
                std::this_thread::sleep_for(std::chrono::milliseconds(pause));
                return 1;
            },
            &m_alive);
        m_manager.StartTask(task);
        const HANDLE thread = task->GetThread();
        m_manager.CloseTaskThread(*task);
        EXPECT_EQ(task->GetThread(), nullptr);
        isClosed = WaitForSingleObject(thread, 0) == WAIT_FAILED;
        m_manager.CloseTaskThread(*task);
        EXPECT_EQ(m_alive, 1) << "the task stays";
        m_manager.CancelTask(u"t");
        EXPECT_EQ(m_alive, 0);
    }
    EXPECT_TRUE(isClosed);
}

TEST_P(ManagerQueues, ACompletionTellsTheObservers) {
    Journal told;
    JournalObserver observer(told);
    m_manager.AddTaskThreadMgrObserver(&observer);
    EXPECT_EQ(Call<ManagerMembers::OnTaskComplete>(m_manager, CString(u"x"), 7), 1);
    EXPECT_EQ(Call<ManagerMembers::OnTaskComplete>(m_manager, CString(u"y"), 0), 1);
    EXPECT_EQ(told.Read(), (Entries{u"+x", u"-y"}));
}

TEST_P(ManagerQueues, ResultsAreKeptByNameUntilTheNextStart) {
    using Results = std::map<CString, int>;
    for (const auto& [name, code] :
         {std::pair(u"five", 5), {u"none", 0}, {u"minus two", -2}, {u"quiet", -1}}) {
        m_manager.StartTask(new TestTask(m_manager, name, [code = code] { return code; }));
        m_manager.CancelTask(name);
    }
    const Results all = {{u"five", 1}, {u"none", 0}, {u"minus two", 1}};
    EXPECT_EQ(ManagerMembers::ResultsOf(m_manager), all);
    m_manager.SetParallelTaskCount(0);
    EXPECT_EQ(m_manager.StartTaskThread(Task(u"five")), 1);
    EXPECT_EQ(ManagerMembers::ResultsOf(m_manager), (Results{{u"none", 0}, {u"minus two", 1}}));
    Call<ManagerMembers::OnTaskComplete>(m_manager, CString(u"five"), 0);
    EXPECT_EQ(ManagerMembers::ResultsOf(m_manager), (Results{{u"five", 0}, {u"none", 0}, {u"minus two", 1}}));
    EXPECT_EQ(m_manager.StartTaskThread(Task(u"five")), 0);
    EXPECT_EQ(ManagerMembers::ResultsOf(m_manager), (Results{{u"none", 0}, {u"minus two", 1}}))
        << "also by a task that is refused";
    m_manager.CancelTask(u"none");
    EXPECT_EQ(ManagerMembers::ResultsOf(m_manager).size(), 2u) << "but not by a cancel";
}

TEST_P(ManagerQueues, AFailedInitHasAResultToo) {
    auto* const task = Task(u"t");
    task->onInit = [] { return 0; };
    m_manager.StartTask(task);
    while (m_alive > 0)
        std::this_thread::yield();
    m_manager.CancelAllTask();
    EXPECT_EQ(ManagerMembers::ResultsOf(m_manager), (std::map<CString, int>{{u"t", 0}}));
}

TEST_P(ManagerQueues, TwentyThousandMayWait) {
    m_manager.SetParallelTaskCount(0);
    std::vector<CThreadTask*> tasks;
    for (int i = 0; i < 20'000; ++i) {
        CString name;
        name.Format(u"task number %d", i);
        tasks.push_back(new NamedTask(m_manager, name, &m_alive));
    }
    m_manager.BatchStartTask(tasks);
    EXPECT_EQ(m_alive, 20'000);
    EXPECT_EQ(Call<ManagerMembers::BeInWaitQueue>(m_manager, CString(u"task number 19999")), 1);
    m_manager.CancelAllTask();
    EXPECT_EQ(m_alive, 0);
    EXPECT_EQ(Call<ManagerMembers::BeInWaitQueue>(m_manager, CString(u"task number 19999")), 0);
}

/// A derived class that overrides what may be overridden.
class WatchingManager : public CQSThreadManager {
public:
    explicit WatchingManager(Journal& journal) : CQSThreadManager(false), m_journal(journal) {}
    ~WatchingManager() override { CancelAllTask(); }

    void CancelTask(const CString& name) override {
        m_journal.Add(u"cancel " + name);
        CQSThreadManager::CancelTask(name);
    }

private:
    int OnTaskComplete(const CString& name, int result) override {
        m_journal.Add((result != 0 ? u"good " : u"bad ") + name);
        return 1;
    }
    Journal& m_journal;
};

TEST(DerivedManager, ItsOverridersAreCalled) {
    Journal journal;
    Gate gate;
    {
        WatchingManager manager(journal);
        manager.SetParallelTaskCount(1);
        manager.StartTask(new TestTask(manager, u"a", [&] {
            gate.Pass();
            return 0;
        }));
        manager.StartTask(new TestTask(manager, u"b", [] { return 1; }));
        gate.Open();
        journal.Await(2);
    }
    EXPECT_EQ(journal.Read(), (Entries{u"bad a", u"good b", u"cancel b"}));
}

}  // namespace
