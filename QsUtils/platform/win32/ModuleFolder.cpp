#include "QsUtils/platform/ModuleFolder.h"

#include <string>

#include "QsUtils/platform/win32/OwnModule.h"

namespace QsPlatform {

CString ModuleFolder() {
    const HMODULE own = OwnModule();
    if (own == nullptr)
        return CString();
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = ::GetModuleFileNameW(own, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return CString(path.substr(0, path.rfind(L'\\') + 1));
        }
        path.resize(2 * path.size());
    }
}

}  // namespace QsPlatform
