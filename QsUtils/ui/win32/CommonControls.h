// The current look of the system's controls.
#pragma once

#include "QsUtils/platform/win32/Windows.h"

namespace QsUi {

/// While one stands, windows that its thread makes have the current look where the system has it, whatever
/// the host's own look is; and the controls that dialogs consist of are there. For one thread.
class CommonControls {
public:
    CommonControls() noexcept;
    CommonControls(const CommonControls&) = delete;
    CommonControls& operator=(const CommonControls&) = delete;
    ~CommonControls();

private:
    HANDLE m_context;
    ULONG_PTR m_cookie = 0;
    bool m_isActive = false;
};

}  // namespace QsUi
