#include "QsUtils/platform/win32/TemporaryName.h"

#include <atomic>

#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

std::wstring TemporaryName() {
    // Constant-initialised and never destroyed.
    static constinit std::atomic<unsigned> count{0};
    return L".qsutils-" + std::to_wstring(::GetCurrentProcessId()) + L'-' +
           std::to_wstring(::GetTickCount()) + L'-' +
           std::to_wstring(count.fetch_add(1, std::memory_order_relaxed)) + L".tmp";
}

}  // namespace QsPlatform
