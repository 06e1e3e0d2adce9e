// Locks and the scoped signaller.
#include <algorithm>
#include <thread>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/tasks/CAutoSetSignal.h"
#include "QsUtils/tasks/CSLock.h"

using QsTasks::CAutoSetSignal;

namespace {

/// A thread that takes a lock and tells when it has it.
class Contender {
public:
    explicit Contender(CSLock& lock)
        : m_done(QsPlatform::NewEvent()), m_thread([this, &lock] {
              lock.Lock();
              QsPlatform::SignalEvent(m_done);
              lock.UnLock();
          }) {}
    ~Contender() {
        m_thread.join();
        CloseHandle(m_done);
    }
    bool HasIt(DWORD milliseconds) const {
        return WaitForSingleObject(m_done, milliseconds) == WAIT_OBJECT_0;
    }

private:
    HANDLE m_done;
    std::thread m_thread;
};

bool IsFree(CSLock& lock) {
    return Contender(lock).HasIt(INFINITE);
}

TEST(Lock, ItsOwnerMayTakeItAgain) {
    CSLock lock;
    lock.Lock();
    lock.Lock();
    {
        const Contender other(lock);
        EXPECT_FALSE(other.HasIt(20));
        lock.UnLock();
        EXPECT_FALSE(other.HasIt(20)) << "taken twice";
        lock.UnLock();
        EXPECT_TRUE(other.HasIt(INFINITE));
    }
    EXPECT_TRUE(IsFree(lock));
}

TEST(Lock, AnUnLockTooManyDoesNothing) {
    CSLock lock;
    lock.UnLock();
    EXPECT_TRUE(IsFree(lock));
    lock.Lock();
    std::thread([&] { lock.UnLock(); }).join();
    {
        const Contender other(lock);
        EXPECT_FALSE(other.HasIt(20)) << "only the owner unlocks";
        lock.UnLock();
        EXPECT_TRUE(other.HasIt(INFINITE));
    }
    lock.UnLock();
    lock.Lock();
    lock.UnLock();
    EXPECT_TRUE(IsFree(lock));
}

TEST(Lock, ACopyIsALockOfItsOwn) {
    CSLock lock;
    lock.Lock();
    CSLock copy(lock);
    EXPECT_TRUE(IsFree(copy));
    CSLock assigned;
    assigned = lock;
    EXPECT_TRUE(IsFree(assigned));
    lock.UnLock();
    EXPECT_TRUE(IsFree(lock));
}

TEST(Lock, ThreadsTakeTurns) {
    CSLock lock;
    int inside = 0;
    int most = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int round = 0; round < 2000; ++round) {
                const CSAutoLock hold(lock);
                const CSAutoLock again(lock);
                most = std::max(most, ++inside);
                --inside;
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(most, 1);
}

TEST(Lock, ItsFormIsKnown) {
    static_assert(std::has_virtual_destructor_v<CSLock> && std::has_virtual_destructor_v<CSAutoLock>);
    static_assert(std::is_copy_constructible_v<CSLock> && std::is_copy_assignable_v<CSLock>);
    static_assert(std::is_copy_constructible_v<CSAutoLock>);
    static_assert(sizeof(CSAutoLock) == 2 * sizeof(void*), "a scoped lock holds a pointer");
}

TEST(AutoLock, LeavesAtItsEnd) {
    CSLock lock;
    {
        const CSAutoLock hold(lock);
        const Contender* other = new Contender(lock);
        EXPECT_FALSE(other->HasIt(20));
        lock.UnLock();
        EXPECT_TRUE(other->HasIt(INFINITE));
        delete other;
        lock.Lock();
    }
    EXPECT_TRUE(IsFree(lock));
}

TEST(AutoLock, LeavesWhenAnExceptionPasses) {
    CSLock lock;
    EXPECT_THROW(
        {
            const CSAutoLock hold(lock);
            throw 1;
        },
        int);
    EXPECT_TRUE(IsFree(lock));
}

TEST(AutoLock, ACopyLeavesOnceMoreThanWasEntered) {
    CSLock lock;
    lock.Lock();
    lock.Lock();
    {
        const CSAutoLock hold(lock);
        const CSAutoLock copy(hold);
    }
    const Contender other(lock);
    EXPECT_FALSE(other.HasIt(20)) << "entered three times, left twice";
    lock.UnLock();
    EXPECT_TRUE(other.HasIt(INFINITE));
}

TEST(AutoSetSignal, SetsAnEvent) {
    const HANDLE event = QsPlatform::NewEvent();
    {
        const CAutoSetSignal set(event, CAutoSetSignal::Event);
        EXPECT_EQ(WaitForSingleObject(event, 0), WAIT_TIMEOUT);
    }
    EXPECT_EQ(WaitForSingleObject(event, 0), WAIT_OBJECT_0);
    EXPECT_NE(CloseHandle(event), 0) << "it is open still";
}

TEST(AutoSetSignal, ReleasesAMutexOnEveryWayOut) {
    const HANDLE mutex = QsPlatform::NewMutex();
    EXPECT_THROW(
        {
            const CAutoSetSignal release(mutex, CAutoSetSignal::Mutex);
            WaitForSingleObject(mutex, INFINITE);
            throw 1;
        },
        int);
    EXPECT_FALSE(QsPlatform::ReleaseOwnedMutex(mutex)) << "released already";
    EXPECT_NE(CloseHandle(mutex), 0);
}

TEST(AutoSetSignal, AnotherKindDoesNothing) {
    const HANDLE event = QsPlatform::NewEvent();
    const HANDLE mutex = QsPlatform::NewMutex();
    WaitForSingleObject(mutex, INFINITE);
    {
        const CAutoSetSignal one(event, 2);
        const CAutoSetSignal two(mutex, 2);
    }
    EXPECT_EQ(WaitForSingleObject(event, 0), WAIT_TIMEOUT);
    EXPECT_TRUE(QsPlatform::ReleaseOwnedMutex(mutex)) << "owned still";
    CloseHandle(event);
    CloseHandle(mutex);
}

}  // namespace
