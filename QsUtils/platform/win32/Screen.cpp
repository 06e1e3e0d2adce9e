#include "QsUtils/platform/win32/Screen.h"

#include "QsUtils/platform/win32/OwnModule.h"

namespace QsPlatform {

namespace {

bool HasVisibleStation() noexcept {
    USEROBJECTFLAGS flags{};
    return ::GetUserObjectInformationW(::GetProcessWindowStation(), UOI_FLAGS, &flags, sizeof flags,
                                       nullptr) != 0 &&
           (flags.dwFlags & WSF_VISIBLE) != 0;
}

}  // namespace

bool HasScreen() noexcept {
    if (!HasVisibleStation())
        return false;
    // Only the attempt tells whether there is a display behind the desktop.
    const HWND window =
        ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, OwnModule(), nullptr);
    return window != nullptr && ::DestroyWindow(window) != 0;
}

}  // namespace QsPlatform
