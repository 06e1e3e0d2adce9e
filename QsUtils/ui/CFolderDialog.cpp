#include "QsUtils/ui/CFolderDialog.h"

#include <exception>

using QsUi::FolderBrowserMessage;
using QsUi::IFolderBrowserWindow;

namespace {

// Nothing may pass through the browser, which is the system's; without memory its status stays behind.
int Callback(IFolderBrowserWindow* window, FolderBrowserMessage message, QsUi::FolderItem item,
             void* object) {
    try {
        static_cast<CFolderDialog*>(object)->OnBrowseCallback(window, message, item);
    } catch (const std::exception&) {
        return 0;
    }
    return 0;
}

}  // namespace

CFolderDialog::CFolderDialog(QsUi::IViews* views, const CString& initialPath)
    : m_strInitialPath(initialPath), m_views(views) {
    m_bi.title = QsUi::FolderBrowser::Title;
    m_bi.flags = QsUi::FolderBrowser::HasStatusText;
    m_bi.displayName = m_szDisplayName;
    m_bi.callback = Callback;
    m_bi.object = this;
}

CFolderDialog::~CFolderDialog() = default;

int CFolderDialog::DoModal() {
    m_strSelectedPath = m_strInitialPath;
    const QsUi::FolderItem chosen = m_views == nullptr ? nullptr : m_views->BrowseForFolder(m_bi);
    m_hWnd = nullptr;
    if (chosen == nullptr) {
        m_strSelectedPath = m_strInitialPath;  // what was selected before the user cancelled doesn't count
        return QsUi::IdCancel;
    }
    const bool hasPath = m_views->GetPath(chosen, m_szPath);
    if (hasPath)
        m_strSelectedPath = m_szPath;
    m_views->Free(chosen);
    return hasPath ? QsUi::IdOk : QsUi::IdCancel;
}

void CFolderDialog::OnInitialized() {
    m_hWnd->SetSelection(m_strInitialPath.View());
    m_hWnd->SetStatusText(QsUi::ShortenedForStatus(m_strInitialPath).View());
}

void CFolderDialog::OnSelChanged(QsUi::FolderItem item) {
    m_views->GetPath(item, m_szPath);  // empty for a folder without a path, and so is the status line
    m_strSelectedPath = m_szPath;
    m_hWnd->SetStatusText(QsUi::ShortenedForStatus(m_strSelectedPath).View());
}

void CFolderDialog::OnBrowseCallback(IFolderBrowserWindow* window, FolderBrowserMessage message,
                                     QsUi::FolderItem item) {
    m_hWnd = window;
    if (message == FolderBrowserMessage::Initialized)
        OnInitialized();
    else if (message == FolderBrowserMessage::SelChanged)
        OnSelChanged(item);
}

namespace QsUi {

CString ShortenedForStatus(const CString& text) {
    constexpr int most = 35;
    return text.GetLength() > most ? text.Left(most) + u"..." : text;
}

CString SelectFolder(IViews* views) {
    CFolderDialog dialog(views);
    return dialog.DoModal() == IdOk ? dialog.GetSelectedPath() : CString();
}

}  // namespace QsUi
