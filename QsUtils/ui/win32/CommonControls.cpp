#include "QsUtils/ui/win32/CommonControls.h"

#include <commctrl.h>

#include "QsUtils/platform/win32/OwnModule.h"

namespace QsUi {

namespace {

/// Of the manifest among the library's resources; a host may have one of its own, or none.
HANDLE NewContext() noexcept {
    ACTCTXW context{};
    context.cbSize = sizeof context;
    context.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    context.hModule = QsPlatform::OwnModule();
    // A number in the guise of a narrow text here, as the system's header has it.
    context.lpResourceName = reinterpret_cast<const wchar_t*>(ISOLATIONAWARE_MANIFEST_RESOURCE_ID);
    return ::CreateActCtxW(&context);
}

}  // namespace

CommonControls::CommonControls() noexcept : m_context(NewContext()) {
    m_isActive = m_context != INVALID_HANDLE_VALUE && ::ActivateActCtx(m_context, &m_cookie) != 0;
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_LISTVIEW_CLASSES};
    ::InitCommonControlsEx(&classes);
}

CommonControls::~CommonControls() {
    if (m_isActive)
        ::DeactivateActCtx(0, m_cookie);
    if (m_context != INVALID_HANDLE_VALUE)
        ::ReleaseActCtx(m_context);
}

}  // namespace QsUi
