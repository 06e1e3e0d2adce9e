// A lock that its owner may take again.
#pragma once

#include <mutex>

#include "QsUtils/platform/Handles.h"

namespace QsPlatform {

#if defined(_WIN32)
/// Each `lock` needs its `unlock`. An `unlock` by a thread that doesn't own it does nothing.
class RecursiveMutex {
public:
    RecursiveMutex();
    RecursiveMutex(const RecursiveMutex&) = delete;
    RecursiveMutex& operator=(const RecursiveMutex&) = delete;
    ~RecursiveMutex();

    void lock();
    void unlock();

private:
    CRITICAL_SECTION m_section;
};
#else
using RecursiveMutex = std::recursive_mutex;
#endif

}  // namespace QsPlatform
