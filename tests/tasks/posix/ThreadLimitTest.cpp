// When the system has no more threads to give.
#include <atomic>
#include <cstdint>

#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/resource.h>
#include <unistd.h>

#include "QsUtils/frame/IQsUtils.h"

#include "tests/support/posix/InChild.h"
#include "tests/tasks/TestTasks.h"

namespace {

constexpr uid_t Nobody = 65534;

/// From here on no thread can be made, by anybody. Root is above the limit on threads and so gives itself up.
bool AllowNoThreads() {
    if (::geteuid() == 0 && ::setresuid(Nobody, Nobody, Nobody) != 0)
        return false;
    const rlimit none{0, 0};
    return ::setrlimit(RLIMIT_NPROC, &none) == 0;
}

bool CanMakeThreads() {
    pthread_t thread;
    if (::pthread_create(
            &thread, nullptr, [](void* argument) { return argument; }, nullptr) != 0)
        return false;
    ::pthread_join(thread, nullptr);
    return true;
}

enum LimitOutcome : int { AsPromised, NoLimit, Ran, Told, Alive, HandleIsThere, NotStarted };

struct Counts {
    std::atomic<int> ran{0};
    std::atomic<int> alive{0};
    std::atomic<int> told{0};
};

TestTask* NewTask(CQSThreadManager& manager, const CString& name, Counts& counts) {
    return new TestTask(
        manager, name, [&counts] { return ++counts.ran; }, &counts.alive);
}

int StartWithoutThreads() {
    if (!AllowNoThreads() || CanMakeThreads())
        return NoLimit;
    Counts counts;
    CallingObserver observer;
    observer.onSuccess = [&](const CString&) { ++counts.told; };
    observer.onFailure = observer.onSuccess;
    OpenManager manager(false);
    manager.AddTaskThreadMgrObserver(&observer);
    manager.StartTask(NewTask(manager, u"a", counts));
    manager.StartTask(NewTask(manager, u"a", counts));
    manager.BatchStartTask({NewTask(manager, u"b", counts), NewTask(manager, u"c", counts)});
    manager.SetParallelTaskCount(0);
    manager.StartTask(NewTask(manager, u"waiting", counts));
    manager.SetParallelTaskCount(1);
    if (counts.alive != 1)
        return Alive;
    manager.StartThreadFromWaitInfo();
    manager.CancelTask(u"a");
    manager.CancelAllTask();
    return counts.ran != 0 ? Ran : counts.told != 0 ? Told : counts.alive != 0 ? Alive : AsPromised;
}

int StartThreadWithoutThreads() {
    if (!AllowNoThreads() || CanMakeThreads())
        return NoLimit;
    std::uint32_t id = 7;
    const auto routine = [](void*) -> std::uint32_t { return 0; };
    for (int i = 0; i < 1000; ++i)
        if (IQsUtils::StartThread(routine, nullptr, u"none", &id) != nullptr || id != 0)
            return HandleIsThere;
    return AsPromised;
}

/// The limit is lifted again, and the next task is as good as any.
int StartAfterwards() {
    if (::geteuid() == 0 && ::setresuid(Nobody, Nobody, Nobody) != 0)
        return NoLimit;
    rlimit before{};
    ::getrlimit(RLIMIT_NPROC, &before);
    const rlimit none{0, before.rlim_max};
    ::setrlimit(RLIMIT_NPROC, &none);
    Counts counts;
    OpenManager manager(false);
    manager.StartTask(NewTask(manager, u"a", counts));
    ::setrlimit(RLIMIT_NPROC, &before);
    if (counts.ran != 0)
        return Ran;
    manager.StartTask(NewTask(manager, u"a", counts));
    manager.CancelTask(u"a");
    return counts.ran == 1 ? AsPromised : NotStarted;
}

/// Lets no thread be made, or as many as before.
class ThreadSwitch {
public:
    ThreadSwitch() {
        m_isGood = (::geteuid() != 0 || ::setresuid(Nobody, Nobody, Nobody) == 0) &&
                   ::getrlimit(RLIMIT_NPROC, &m_before) == 0;
    }
    bool Allow(bool isAllowed) {
        const rlimit none{0, m_before.rlim_max};
        return m_isGood && ::setrlimit(RLIMIT_NPROC, isAllowed ? &m_before : &none) == 0 &&
               CanMakeThreads() == isAllowed;
    }

private:
    rlimit m_before{};
    bool m_isGood = false;
};

/// One task runs and others wait, and when it ends there are no threads for `lost` of them.
int EndWithoutThreads(int waiting, int lost) {
    ThreadSwitch threads;
    if (!threads.Allow(false) || !threads.Allow(true))
        return NoLimit;
    Counts counts;
    CallingObserver observer;
    Gate gate;
    Gate isOver;
    observer.onSuccess = [&](const CString& name) {
        ++counts.told;
        if (name == u"first")
            threads.Allow(false);
        if (counts.told == 1 + waiting - lost)
            isOver.Open();
    };
    OpenManager manager(false);
    manager.SetParallelTaskCount(1);
    manager.AddTaskThreadMgrObserver(&observer);
    manager.StartTask(new TestTask(manager, u"first", [&] {
        gate.Pass();
        return 1;
    }));
    for (int i = 1; i <= waiting; ++i) {
        CString name;
        name.Format(u"%d", i);
        TestTask* const task = NewTask(manager, name, counts);
        if (i == lost)
            task->onEnd = [&] { threads.Allow(true); };
        manager.StartTask(task);
    }
    gate.Open();
    isOver.Pass();
    manager.CancelTask(u"first");  // its end is over when this returns
    CThreadTask* left = nullptr;
    if (manager.GetCurFirstWaitTaskInfo(left) != 0)
        return NotStarted;
    manager.CancelAllTask();
    return counts.ran != waiting - lost ? Ran : counts.alive != 0 ? Alive : AsPromised;
}

#define EXPECT_PROMISE(outcome)                                               \
    const int result = (outcome);                                             \
    if (result == NoLimit)                                                    \
        GTEST_SKIP() << "this process can't keep itself from having threads"; \
    EXPECT_EQ(result, AsPromised)

TEST(ThreadLimit, ATaskWithoutAThreadIsDeletedAndNobodyHearsOfIt) {
    EXPECT_PROMISE(InChild(StartWithoutThreads));
}

TEST(ThreadLimit, AThreadThatCantBeMadeIsNull) {
    EXPECT_PROMISE(InChild(StartThreadWithoutThreads));
}

TEST(ThreadLimit, WhenThereAreThreadsAgainTasksRun) {
    EXPECT_PROMISE(InChild(StartAfterwards));
}

TEST(ThreadLimit, TheTaskBehindOneWithoutAThreadIsStarted) {
    EXPECT_PROMISE(InChild([] { return EndWithoutThreads(3, 1); }));
}

TEST(ThreadLimit, AsManyAsHaveNoThreadArePassedOver) {
    EXPECT_PROMISE(InChild([] { return EndWithoutThreads(20, 15); }));
}

TEST(ThreadLimit, WithoutAThreadForAnyNoneIsLeftToWait) {
    EXPECT_PROMISE(InChild([] { return EndWithoutThreads(5, 5); }));
}

}  // namespace
