#include "QsUtils/ui/CSelectTemplateDlg.h"

#include <utility>

#include "QsUtils/platform/Folders.h"
#include "QsUtils/text/Files.h"
#include "QsUtils/ui/DialogTexts.h"
#include "QsUtils/ui/TemplateFiles.h"
#include "QsUtils/ui/TemplateKinds.h"
#include "QsUtils/ui/TemplateSource.h"

CSelectTemplateDlg::CSelectTemplateDlg(int kind, const CString& family, const CString& section)
    : m_strFamily(family), m_strSection(section), m_nTemplateKind(kind) {}

int CSelectTemplateDlg::DoModal(QsUi::IViews* views) {
    if (views == nullptr)
        return QsUi::IdCancel;
    OnInitDialog();
    return views->RunPicker(*this) ? QsUi::IdOk : QsUi::IdCancel;
}

bool CSelectTemplateDlg::OnInitDialog() {
    const QsUi::TemplatePlaces places =
        QsUi::PlacesOfTemplates(m_nTemplateKind, m_bZeroVariant, m_nReportType, m_strFamily, m_strSection);
    if (places.extension.IsEmpty())
        return true;
    if (places.isOwnMade && !QsPlatform::IsFolder(places.ownFolder))
        QsText::CreateFolderAllPath(places.ownFolder);
    const auto scan = [&](bool own) {
        ScanTemplateFolder(own ? places.ownFolder : places.libraryFolder, places.extension, own);
    };
    scan(places.isOwnFirst);
    scan(!places.isOwnFirst);
    return true;
}

void CSelectTemplateDlg::ScanTemplateFolder(const CString& folder, const CString& extension, bool own) {
    const QsUi::TemplateSources sources;
    for (QsUi::TemplateFile& file : QsUi::FindTemplateFiles(folder, extension)) {
        CString source = own ? sources.OwnSource(file.path) : sources.LibrarySource(file.path);
        m_wndGrid.rows.push_back({std::move(file.title), std::move(source)});
    }
}

std::u16string_view CSelectTemplateDlg::Cell(std::size_t row, int column) const noexcept {
    const TemplateGrid::Row& cells = m_wndGrid.rows[row];
    return column == 0 ? cells.title.View() : cells.source.View();
}

std::optional<QsUi::InformationMessage> CSelectTemplateDlg::Confirm(std::size_t row) noexcept {
    m_wndGrid.currentRow = row;
    if (row >= m_wndGrid.rows.size())
        return QsUi::InformationMessage{u"请选择一个模板！", u"墨衡造价"};
    // Asked for again: the version may have changed since the list was filled, and then no path fits.
    const CString path = QsUi::TemplateSources().PathBehind(m_wndGrid.rows[row].source);
    if (!path.IsEmpty())
        m_strSelectedPath = path;
    return std::nullopt;
}
