#include "QsUtils/platform/RecursiveMutex.h"

#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

std::uintptr_t RecursiveMutex::ThisThread() noexcept {
    return ::GetCurrentThreadId();
}

}  // namespace QsPlatform
