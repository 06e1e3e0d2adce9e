#include "QsUtils/platform/RecursiveMutex.h"

#include <pthread.h>

namespace QsPlatform {

std::uintptr_t RecursiveMutex::ThisThread() noexcept {
    return static_cast<std::uintptr_t>(::pthread_self());
}

}  // namespace QsPlatform
