// Mutexes and events behind handles.
#include <algorithm>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/platform/Signals.h"

using QsPlatform::NewEvent;
using QsPlatform::NewMutex;
using QsPlatform::ReleaseOwnedMutex;
using QsPlatform::SignalEvent;

namespace {

/// What another thread gets.
template <typename Ask>
auto Elsewhere(Ask ask) {
    decltype(ask()) answer{};
    std::thread([&] { answer = ask(); }).join();
    return answer;
}

TEST(Signals, AnEventStaysSet) {
    const HANDLE event = NewEvent();
    EXPECT_EQ(WaitForSingleObject(event, 0), WAIT_TIMEOUT);
    EXPECT_EQ(WaitForSingleObject(event, 10), WAIT_TIMEOUT);
    EXPECT_TRUE(SignalEvent(event));
    EXPECT_EQ(WaitForSingleObject(event, 0), WAIT_OBJECT_0);
    EXPECT_EQ(WaitForSingleObject(event, INFINITE), WAIT_OBJECT_0);
    EXPECT_NE(CloseHandle(event), 0);
    EXPECT_FALSE(SignalEvent(event));
}

TEST(Signals, AMutexIsItsOwnersAlone) {
    const HANDLE mutex = NewMutex();
    const auto ask = [&] { return WaitForSingleObject(mutex, 10); };
    EXPECT_EQ(WaitForSingleObject(mutex, INFINITE), WAIT_OBJECT_0);
    EXPECT_EQ(WaitForSingleObject(mutex, 0), WAIT_OBJECT_0) << "its owner may take it again";
    EXPECT_EQ(Elsewhere(ask), WAIT_TIMEOUT);
    EXPECT_FALSE(Elsewhere([&] { return ReleaseOwnedMutex(mutex); }));
    EXPECT_TRUE(ReleaseOwnedMutex(mutex));
    EXPECT_EQ(Elsewhere(ask), WAIT_TIMEOUT) << "each wait needs its release";
    EXPECT_TRUE(ReleaseOwnedMutex(mutex));
    EXPECT_FALSE(ReleaseOwnedMutex(mutex));
    EXPECT_EQ(Elsewhere([&] {
                  const DWORD answer = WaitForSingleObject(mutex, 0);
                  ReleaseOwnedMutex(mutex);
                  return answer;
              }),
              WAIT_OBJECT_0);
    CloseHandle(mutex);
}

TEST(Signals, AMutexKeepsThreadsApart) {
    const HANDLE mutex = NewMutex();
    int inside = 0;
    int most = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i)
        threads.emplace_back([&] {
            for (int round = 0; round < 500; ++round) {
                EXPECT_EQ(WaitForSingleObject(mutex, INFINITE), WAIT_OBJECT_0);
                most = std::max(most, ++inside);
                --inside;
                EXPECT_TRUE(ReleaseOwnedMutex(mutex));
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(most, 1);
    CloseHandle(mutex);
}

TEST(Signals, OneKindIsNotTheOther) {
    const HANDLE event = NewEvent();
    const HANDLE mutex = NewMutex();
    EXPECT_FALSE(SignalEvent(mutex));
    EXPECT_FALSE(ReleaseOwnedMutex(event));
    EXPECT_FALSE(SignalEvent(nullptr));
    EXPECT_FALSE(ReleaseOwnedMutex(nullptr));
    CloseHandle(event);
    CloseHandle(mutex);
}

}  // namespace
