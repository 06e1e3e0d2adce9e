// A lock that its owner may take again.
#pragma once

#include <atomic>
#include <cstddef>
#include <mutex>
#include <thread>

#include "QsUtils/platform/Handles.h"

namespace QsPlatform {

/// Each `lock` needs its `unlock`. An `unlock` by a thread that doesn't own it does nothing, which the lock
/// of neither system's runtime promises.
class RecursiveMutex {
public:
    RecursiveMutex();
    RecursiveMutex(const RecursiveMutex&) = delete;
    RecursiveMutex& operator=(const RecursiveMutex&) = delete;
    ~RecursiveMutex();

    void lock();
    void unlock();

private:
#if defined(_WIN32)
    CRITICAL_SECTION m_section;
#else
    std::mutex m_mutex;
    std::atomic<std::thread::id> m_owner;
    std::size_t m_depth = 0;  // the owner's
#endif
};

}  // namespace QsPlatform
