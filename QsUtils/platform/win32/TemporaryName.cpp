#include "QsUtils/platform/win32/TemporaryName.h"

#include <atomic>
#include <cwchar>

#include "QsUtils/platform/AbandonedVersions.h"
#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

std::wstring TemporaryName() {
    // Constant-initialised and never destroyed.
    static constinit std::atomic<unsigned> count{0};
    wchar_t name[80];
    std::swprintf(name, 80, L".qsutils-%x-%x-%lx-%x.tmp", ThisMachine(), ThisProcess(), ::GetTickCount(),
                  count.fetch_add(1, std::memory_order_relaxed));
    return name;
}

}  // namespace QsPlatform
