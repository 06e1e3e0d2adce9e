#include "QsUtils/platform/Mutex.h"

#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

namespace {

static_assert(sizeof(SRWLOCK) == sizeof(void*), "a mutex has room for the system's lock");

SRWLOCK* SystemLock(void*& lock) noexcept {
    return reinterpret_cast<SRWLOCK*>(&lock);
}

}  // namespace

void Mutex::lock() noexcept {
    ::AcquireSRWLockExclusive(SystemLock(m_lock));
}

void Mutex::unlock() noexcept {
    ::ReleaseSRWLockExclusive(SystemLock(m_lock));
}

}  // namespace QsPlatform
