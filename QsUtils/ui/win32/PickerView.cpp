#include "QsUtils/ui/win32/PickerView.h"

#include <exception>
#include <optional>
#include <string>

#include <commctrl.h>

#include "QsUtils/platform/win32/OwnModule.h"
#include "QsUtils/ui/DialogTexts.h"
#include "QsUtils/ui/win32/CommonControls.h"
#include "QsUtils/ui/win32/DialogIds.h"
#include "QsUtils/ui/win32/SystemText.h"

namespace QsUi {

// The system's own result may be that of the first button when the host quits meanwhile.
bool PickerView::Run() {
    const CommonControls controls;
    ::DialogBoxParamW(QsPlatform::OwnModule(), MAKEINTRESOURCEW(IDD_SELECT_TEMPLATE), ::GetActiveWindow(),
                      OnMessage, reinterpret_cast<LPARAM>(this));
    return m_isConfirmed;
}

// Memory exhaustion must not pass through the system's code; what was to be done then isn't done.
INT_PTR CALLBACK PickerView::OnMessage(HWND window, UINT message, WPARAM wide, LPARAM narrow) noexcept try {
    if (message == WM_INITDIALOG) {
        ::SetWindowLongPtrW(window, DWLP_USER, narrow);
        return reinterpret_cast<PickerView*>(narrow)->OnInitDialog(window) ? TRUE : FALSE;
    }
    auto* const self = reinterpret_cast<PickerView*>(::GetWindowLongPtrW(window, DWLP_USER));
    if (self == nullptr)
        return FALSE;
    if (message == WM_COMMAND)
        return self->OnCommand(LOWORD(wide)) ? TRUE : FALSE;
    if (message == WM_NOTIFY && wide == IDC_TEMPLATE_LIST) {
        self->OnNotify(*reinterpret_cast<NMHDR*>(narrow));
        return TRUE;
    }
    return FALSE;
} catch (const std::exception&) {
    return FALSE;
}

/// False, since it says itself where the focus goes: to the list, for the arrows and the letters.
bool PickerView::OnInitDialog(HWND window) {
    m_window = window;
    if (m_list.Create(window, ::GetDlgItem(window, IDC_TEMPLATE_PLACE)))
        ::SetFocus(m_list.Window());
    else
        ::EndDialog(window, IdCancel);
    return false;
}

bool PickerView::OnCommand(unsigned int control) {
    if (control == IDOK)
        Confirm();
    else if (control == IDCANCEL)
        ::EndDialog(m_window, IdCancel);
    return control == IDOK || control == IDCANCEL;
}

void PickerView::OnNotify(NMHDR& header) {
    if (header.code == NM_DBLCLK) {
        if (reinterpret_cast<const NMITEMACTIVATE&>(header).iItem >= 0)
            Confirm();
        return;
    }
    ::SetWindowLongPtrW(m_window, DWLP_MSGRESULT, m_list.OnNotify(header));
}

void PickerView::Confirm() {
    const std::optional<InformationMessage> message = m_dialog.Confirm(m_list.CurrentRow());
    if (message) {
        ::MessageBoxW(m_window, SystemText(message->text).c_str(), SystemText(message->caption).c_str(),
                      MB_OK | MB_ICONINFORMATION);
        return;
    }
    m_isConfirmed = true;
    ::EndDialog(m_window, IdOk);
}

}  // namespace QsUi
