// Threads that begin together.
#pragma once

#include <atomic>
#include <thread>

/// Holds each thread until so many are there; for one start. The standard barrier may sleep through its end
/// where the system has no futex (GCC 12's waits on an address lose a wake-up there).
class StartLine {
public:
    explicit StartLine(int threads) : m_missing(threads) {}

    void Cross() {
        for (--m_missing; m_missing > 0;)
            std::this_thread::yield();
    }

private:
    std::atomic<int> m_missing;
};
