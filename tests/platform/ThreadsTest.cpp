// Threads and the handles by which they are waited for.
#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/platform/Signals.h"
#include "QsUtils/platform/Threads.h"

#include "tests/support/Rounds.h"

using QsPlatform::CurrentThreadId;
using QsPlatform::MakeStoppedThread;
using QsPlatform::NewEvent;
using QsPlatform::RunStoppedThread;
using QsPlatform::SignalEvent;
using QsPlatform::StartRunningThread;

namespace {

std::uint32_t Increment(void* counter) {
    return static_cast<std::atomic<std::uint32_t>*>(counter)->fetch_add(1);
}

std::uint32_t StoreId(void* id) {
    *static_cast<std::uint32_t*>(id) = CurrentThreadId();
    return 0;
}

std::uint32_t AwaitEvent(void* event) {
    return WaitForSingleObject(*static_cast<HANDLE*>(event), INFINITE);
}

TEST(Threads, TheNamesHaveTheSystemsValues) {
    EXPECT_EQ(INFINITE, 0xFFFFFFFFu);
    EXPECT_EQ(WAIT_OBJECT_0, 0u);
    EXPECT_EQ(WAIT_TIMEOUT, 258u);
    EXPECT_EQ(WAIT_FAILED, 0xFFFFFFFFu);
    EXPECT_EQ(reinterpret_cast<std::intptr_t>(INVALID_HANDLE_VALUE), -1);
}

TEST(Threads, AThreadRunsAndIsWaitedFor) {
    std::atomic<std::uint32_t> count{0};
    std::uint32_t id = 0;
    const HANDLE thread = StartRunningThread(Increment, &count, id);
    ASSERT_NE(thread, nullptr);
    EXPECT_NE(id, 0u);
    EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
    EXPECT_EQ(count, 1u);
    EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0) << "an ended thread stays ended";
    EXPECT_EQ(WaitForSingleObject(thread, 0), WAIT_OBJECT_0);
    EXPECT_NE(CloseHandle(thread), 0);
}

TEST(Threads, TheIdIsTheOneThatTheThreadHas) {
    std::uint32_t own = 0;
    std::uint32_t told = 1;
    const HANDLE thread = StartRunningThread(StoreId, &own, told);
    WaitForSingleObject(thread, INFINITE);
    EXPECT_EQ(own, told);
    EXPECT_NE(own, CurrentThreadId());
    CloseHandle(thread);
}

TEST(Threads, AWaitEndsWithItsTime) {
    HANDLE event = NewEvent();
    std::uint32_t id = 0;
    const HANDLE thread = StartRunningThread(AwaitEvent, &event, id);
    EXPECT_EQ(WaitForSingleObject(thread, 0), WAIT_TIMEOUT);
    EXPECT_EQ(WaitForSingleObject(thread, 20), WAIT_TIMEOUT);
    EXPECT_TRUE(SignalEvent(event));
    EXPECT_EQ(WaitForSingleObject(thread, 60'000), WAIT_OBJECT_0);
    CloseHandle(thread);
    CloseHandle(event);
}

TEST(Threads, ManyMayWaitForOne) {
    HANDLE event = NewEvent();
    std::uint32_t id = 0;
    const HANDLE thread = StartRunningThread(AwaitEvent, &event, id);
    std::atomic<int> ended{0};
    std::vector<std::thread> waiting;
    for (int i = 0; i < 8; ++i)
        waiting.emplace_back([&, i] {
            ended += WaitForSingleObject(thread, i % 2 == 0 ? INFINITE : 60'000) == WAIT_OBJECT_0;
        });
    SignalEvent(event);
    for (std::thread& one : waiting)
        one.join();
    EXPECT_EQ(ended, 8);
    CloseHandle(thread);
    CloseHandle(event);
}

TEST(Threads, AClosedHandleLeavesTheThreadRunning) {
    HANDLE event = NewEvent();
    const HANDLE done = NewEvent();
    struct Work {
        HANDLE begin;
        HANDLE done;
    } work{event, done};
    const auto run = [](void* argument) -> std::uint32_t {
        const Work own = *static_cast<Work*>(argument);
        WaitForSingleObject(own.begin, INFINITE);
        SignalEvent(own.done);
        return 0;
    };
    std::uint32_t id = 0;
    EXPECT_NE(CloseHandle(StartRunningThread(run, &work, id)), 0);
    SignalEvent(event);
    EXPECT_EQ(WaitForSingleObject(done, INFINITE), WAIT_OBJECT_0);
    CloseHandle(event);
    CloseHandle(done);
}

TEST(Threads, AHandleMayBeClosedWhileItIsWaitedFor) {
    HANDLE event = NewEvent();
    std::uint32_t id = 0;
    const HANDLE thread = StartRunningThread(AwaitEvent, &event, id);
    std::atomic<bool> isWaiting{false};
    std::thread waiting([&] {
        isWaiting = true;
        EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
    });
    while (!isWaiting)
        std::this_thread::yield();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_NE(CloseHandle(thread), 0);
    SignalEvent(event);
    waiting.join();
    CloseHandle(event);
}

TEST(Threads, BadHandlesFailPlainly) {
    std::atomic<std::uint32_t> count{0};
    std::uint32_t id = 0;
    const HANDLE thread = StartRunningThread(Increment, &count, id);
    WaitForSingleObject(thread, INFINITE);
    EXPECT_NE(CloseHandle(thread), 0);
    EXPECT_EQ(CloseHandle(thread), 0) << "closed twice";
    EXPECT_EQ(WaitForSingleObject(thread, 0), WAIT_FAILED);
    EXPECT_EQ(CloseHandle(nullptr), 0);
    EXPECT_EQ(WaitForSingleObject(nullptr, INFINITE), WAIT_FAILED);
    EXPECT_EQ(WaitForSingleObject(reinterpret_cast<HANDLE>(std::uintptr_t{0x7FFF0}), INFINITE), WAIT_FAILED);
    EXPECT_EQ(CloseHandle(reinterpret_cast<HANDLE>(std::uintptr_t{0x7FFF0})), 0);
}

TEST(Threads, ANullRoutineIsNoThread) {
    std::uint32_t id = 7;
    EXPECT_EQ(StartRunningThread(nullptr, nullptr, id), nullptr);
    EXPECT_EQ(id, 0u);
    EXPECT_EQ(MakeStoppedThread(nullptr, nullptr), nullptr);
}

TEST(Threads, AStoppedThreadRunsWhenItIsTold) {
    std::atomic<std::uint32_t> count{0};
    const HANDLE thread = MakeStoppedThread(Increment, &count);
    ASSERT_NE(thread, nullptr);
    EXPECT_EQ(WaitForSingleObject(thread, 20), WAIT_TIMEOUT);
    EXPECT_EQ(count, 0u);
    EXPECT_TRUE(RunStoppedThread(thread));
    EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
    EXPECT_EQ(count, 1u);
    CloseHandle(thread);
}

TEST(Threads, OnlyAThreadCanBeRun) {
    const HANDLE event = NewEvent();
    EXPECT_FALSE(RunStoppedThread(event));
    EXPECT_FALSE(RunStoppedThread(nullptr));
    CloseHandle(event);
}

// More than a process may have at once: those that ended must be gone, whether anybody waited for them or
// not.
TEST(Threads, EndedThreadsAreGone) {
    std::atomic<std::uint32_t> count{0};
    const auto all = static_cast<std::uint32_t>(Rounds(ThreadRounds(70'000)));
    for (std::uint32_t i = 0; i < all; ++i) {
        std::uint32_t id = 0;
        const HANDLE thread = StartRunningThread(Increment, &count, id);
        ASSERT_NE(thread, nullptr) << i;
        if (i % 2 == 0)
            WaitForSingleObject(thread, INFINITE);
        CloseHandle(thread);
    }
    while (count < all)
        std::this_thread::yield();
}

TEST(Threads, AHandleThatStaysOpenKeepsNoThread) {
    std::atomic<std::uint32_t> count{0};
    std::vector<HANDLE> handles;
    for (int i = 0; i < Rounds(ThreadRounds(40'000)); ++i) {
        std::uint32_t id = 0;
        handles.push_back(StartRunningThread(Increment, &count, id));
        ASSERT_NE(handles.back(), nullptr) << i;
    }
    for (const HANDLE handle : handles) {
        EXPECT_EQ(WaitForSingleObject(handle, INFINITE), WAIT_OBJECT_0);
        EXPECT_NE(CloseHandle(handle), 0);
    }
}

TEST(Threads, ThreadsMayStartAndEndThreads) {
    std::atomic<std::uint32_t> count{0};
    std::vector<std::thread> hosts;
    for (int host = 0; host < 8; ++host)
        hosts.emplace_back([&count, host] {
            for (int i = 0; i < Rounds(ThreadRounds(500)); ++i) {
                std::uint32_t id = 0;
                const HANDLE thread = StartRunningThread(Increment, &count, id);
                if ((i + host) % 3 != 0) {
                    EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0);
                }
                EXPECT_NE(CloseHandle(thread), 0);
            }
        });
    for (std::thread& host : hosts)
        host.join();
    while (count < 8 * static_cast<std::uint32_t>(Rounds(ThreadRounds(500))))
        std::this_thread::yield();
}

}  // namespace
