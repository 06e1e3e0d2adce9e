// Threads that take their time to end what a host keeps for each of them. Where a module is told of every
// thread's end, under a lock, that would hold up all others.
#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/platform/Threads.h"

using QsPlatform::StartRunningThread;

namespace {

/// What a host may keep for each thread: it takes its time to end.
struct SlowEnd {
    struct Course {
        std::atomic<bool> hasBegun{false};
        std::atomic<bool> mayEnd{false};
    };
    Course* course = nullptr;
    ~SlowEnd() {
        if (course == nullptr)
            return;
        course->hasBegun = true;
        const auto latest = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!course->mayEnd && std::chrono::steady_clock::now() < latest)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
};
thread_local SlowEnd theSlowEnd;

std::uint32_t EndSlowly(void* course) {
    theSlowEnd.course = static_cast<SlowEnd::Course*>(course);
    return 0;
}

TEST(LeavingThreads, AWaitEndsWithItsTimeAlsoWhileTheThreadLeaves) {
    SlowEnd::Course course;
    std::uint32_t id = 0;
    const HANDLE thread = StartRunningThread(EndSlowly, &course, id);
    while (!course.hasBegun)
        std::this_thread::yield();
    EXPECT_EQ(WaitForSingleObject(thread, 0), WAIT_TIMEOUT);
    EXPECT_EQ(WaitForSingleObject(thread, 20), WAIT_TIMEOUT);
    std::thread patient([thread] { EXPECT_EQ(WaitForSingleObject(thread, INFINITE), WAIT_OBJECT_0); });
    EXPECT_EQ(WaitForSingleObject(thread, 20), WAIT_TIMEOUT) << "beside one who waits without a limit";
    course.mayEnd = true;
    EXPECT_EQ(WaitForSingleObject(thread, 60'000), WAIT_OBJECT_0);
    patient.join();
    CloseHandle(thread);
}

TEST(LeavingThreads, WhoWaitsForAThreadThatLeavesSeesItGone) {
    SlowEnd::Course course;
    std::uint32_t id = 0;
    const HANDLE thread = StartRunningThread(EndSlowly, &course, id);
    while (!course.hasBegun)
        std::this_thread::yield();
    std::vector<std::thread> waiting;
    for (int i = 0; i < 4; ++i)
        waiting.emplace_back([thread] { EXPECT_EQ(WaitForSingleObject(thread, 60'000), WAIT_OBJECT_0); });
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    course.mayEnd = true;
    for (std::thread& one : waiting)
        one.join();
    CloseHandle(thread);
}

}  // namespace
