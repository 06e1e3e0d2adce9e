// The list in the picker: the rows stay where they are, and the control asks for those that are seen.
#pragma once

#include <cstddef>
#include <string>

#include "QsUtils/platform/win32/Windows.h"
#include "QsUtils/ui/Views.h"
#include "QsUtils/ui/win32/RowOrder.h"

struct tagLVITEMW;  // of <commctrl.h>

namespace QsUi {

/// For the thread of its dialog.
class TemplateList {
public:
    explicit TemplateList(const IPickerDialog& dialog) noexcept : m_dialog(dialog), m_order(dialog) {}

    /// Makes the control in the place of another one of a dialog, which is hidden. False when that fails.
    bool Create(HWND parent, HWND place);
    HWND Window() const noexcept { return m_window; }

    /// The dialog's number of the row that is marked; `NoRow` when none is.
    std::size_t CurrentRow() const noexcept;

    /// Answers what the control tells its dialog: the texts of cells, rows that begin with what has been
    /// typed, and clicks on the titles, which sort. Gives what the dialog has to return.
    LRESULT OnNotify(NMHDR& header);

private:
    void AddColumns();
    void PutText(tagLVITEMW& item);
    void SortBy(int column);
    void MakeCurrent(std::size_t place) noexcept;

    const IPickerDialog& m_dialog;
    RowOrder m_order;
    HWND m_window = nullptr;
    /// The control reads a text after the call in which it has asked for it, and asks for the next one before
    /// it is done with the last.
    std::wstring m_texts[4];
    std::size_t m_nextText = 0;
};

}  // namespace QsUi
