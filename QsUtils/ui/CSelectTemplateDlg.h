// The picker, a modal dialog in which a user chooses one template of the user's own or of a cost library.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "QsUtils/text/CString.h"
#include "QsUtils/ui/Views.h"

/// The list: two columns of text, and the row that a user has made the current one.
struct TemplateGrid {
    struct Row {
        CString title;
        CString source;
    };
    std::vector<Row> rows;
    std::size_t currentRow = QsUi::NoRow;
};

/// For one modal run; a caller fills in the last two of the given fields after construction. See
/// docs/dialogs.md.
class CSelectTemplateDlg : public QsUi::IPickerDialog {
public:
    CSelectTemplateDlg(int kind, const CString& family, const CString& section);
    virtual ~CSelectTemplateDlg() = default;

    /// Runs the dialog with these views until the user ends it: `IdOk` or `IdCancel`, the latter also without
    /// views. The selected path is to be read after `IdOk` alone.
    int DoModal(QsUi::IViews* views);

    /// Fills the list; always true.
    bool OnInitDialog();

    std::size_t RowCount() const noexcept override { return m_wndGrid.rows.size(); }
    std::u16string_view Cell(std::size_t row, int column) const noexcept override;
    std::optional<QsUi::InformationMessage> Confirm(std::size_t row) noexcept override;

    CString m_strSelectedPath;
    CString m_strFamily;
    CString m_strSection;
    std::int32_t m_nTemplateKind;
    bool m_bZeroVariant = false;
    std::int32_t m_nReportType = 0;
    TemplateGrid m_wndGrid;

private:
    void ScanTemplateFolder(const CString& folder, const CString& extension, bool own);
};
