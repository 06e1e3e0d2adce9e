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

enum Outcome : int { AsPromised, NoLimit, Ran, Told, Alive, HandleIsThere, NotStarted };

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

}  // namespace
