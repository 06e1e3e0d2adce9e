#include "QsUtils/platform/win32/OwnModule.h"

namespace QsPlatform {

HMODULE OwnModule() noexcept {
    HMODULE own = nullptr;
    if (::GetModuleHandleExW(
            GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
            reinterpret_cast<const wchar_t*>(&OwnModule), &own) == 0)
        return nullptr;
    return own;
}

}  // namespace QsPlatform
