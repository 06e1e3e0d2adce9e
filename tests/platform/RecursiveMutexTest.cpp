#include <mutex>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/platform/RecursiveMutex.h"

#include "tests/support/Rounds.h"

using QsPlatform::RecursiveMutex;

namespace {

TEST(RecursiveMutex, ItsOwnerTakesItAgain) {
    RecursiveMutex mutex;
    for (int depth = 0; depth < 100; ++depth)
        mutex.lock();
    for (int depth = 0; depth < 100; ++depth)
        mutex.unlock();
    std::thread([&] { const std::lock_guard lock(mutex); }).join();
}

TEST(RecursiveMutex, OthersWaitUntilItIsLeftAsOftenAsItWasTaken) {
    RecursiveMutex mutex;
    int value = 0;
    mutex.lock();
    mutex.lock();
    std::thread other([&] {
        const std::lock_guard lock(mutex);
        value *= 2;
    });
    value = 1;
    mutex.unlock();
    std::this_thread::yield();
    value = 21;
    mutex.unlock();
    other.join();
    EXPECT_EQ(value, 42);
}

TEST(RecursiveMutex, NoTwoThreadsAreInside) {
    RecursiveMutex mutex;
    int inside = 0;
    long entered = 0;
    bool alone = true;
    const int rounds = Rounds(100'000);
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int round = 0; round < rounds; ++round) {
                const std::lock_guard outer(mutex);
                const std::lock_guard inner(mutex);
                alone = alone && inside == 0;
                ++inside;
                ++entered;
                --inside;
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_TRUE(alone);
    EXPECT_EQ(entered, 4L * rounds);
}

}  // namespace
