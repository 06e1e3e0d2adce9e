#include "QsUtils/platform/ModuleFolder.h"

#include <string>

#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

CString ModuleFolder() {
    HMODULE own = nullptr;
    if (::GetModuleHandleExW(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
            reinterpret_cast<const wchar_t*>(&ModuleFolder), &own) == 0)
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
