#include "QsUtils/platform/Signals.h"

#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

HANDLE NewMutex() noexcept {
    return ::CreateMutexW(nullptr, FALSE, nullptr);
}

bool ReleaseOwnedMutex(HANDLE mutex) noexcept {
    return ::ReleaseMutex(mutex) != 0;
}

HANDLE NewEvent() noexcept {
    return ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
}

bool SignalEvent(HANDLE event) noexcept {
    return ::SetEvent(event) != 0;
}

}  // namespace QsPlatform
