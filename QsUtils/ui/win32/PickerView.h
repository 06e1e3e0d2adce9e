// The picker as a dialog of the system.
#pragma once

#include "QsUtils/platform/win32/Windows.h"
#include "QsUtils/ui/Views.h"
#include "QsUtils/ui/win32/TemplateList.h"

namespace QsUi {

/// For one run, on the thread that makes it.
class PickerView {
public:
    explicit PickerView(IPickerDialog& dialog) noexcept : m_dialog(dialog), m_list(dialog) {}
    PickerView(const PickerView&) = delete;
    PickerView& operator=(const PickerView&) = delete;

    /// Shows the dialog above the thread's active window until the user ends it; whether it was confirmed.
    /// False as well when it can't be shown, and when the thread is told to quit meanwhile, which it still
    /// is.
    bool Run();

private:
    static INT_PTR CALLBACK OnMessage(HWND window, UINT message, WPARAM wide, LPARAM narrow) noexcept;

    bool OnInitDialog(HWND window);
    bool OnCommand(unsigned int control);
    void OnNotify(NMHDR& header);
    void Confirm();

    IPickerDialog& m_dialog;
    TemplateList m_list;
    HWND m_window = nullptr;
    bool m_isConfirmed = false;
};

}  // namespace QsUi
