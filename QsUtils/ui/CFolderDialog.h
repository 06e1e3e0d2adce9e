// The folder browser: the system's dialog, with a status line that shows the current choice.
#pragma once

#include <cstdint>

#include "QsUtils/text/CString.h"
#include "QsUtils/ui/DialogTexts.h"
#include "QsUtils/ui/Views.h"

/// For one run at a time. Its virtual operations are called by the browser's view while `DoModal` waits.
class CFolderDialog {
public:
    /// The browser starts at `initialPath`, which may be empty. Without views it answers as if cancelled.
    explicit CFolderDialog(QsUi::IViews* views, const CString& initialPath = CString());
    CFolderDialog(const CFolderDialog&) = delete;
    CFolderDialog& operator=(const CFolderDialog&) = delete;

    virtual ~CFolderDialog();
    /// `IdOk` with the chosen folder as the selected path. `IdCancel` when the user has cancelled, and then
    /// the selected path is the initial one; also when the choice has no path or one that doesn't fit its
    /// buffer.
    virtual int DoModal();
    virtual void OnInitialized();
    virtual void OnSelChanged(QsUi::FolderItem item);
    virtual void OnBrowseCallback(QsUi::IFolderBrowserWindow* window, QsUi::FolderBrowserMessage message,
                                  QsUi::FolderItem item);

    CString GetSelectedPath() const { return m_strSelectedPath; }

    QsUi::FolderBrowseInfo m_bi;
    CString m_strInitialPath;
    CString m_strSelectedPath;
    char16_t m_szDisplayName[QsUi::FolderBrowser::PathBuffer] = {};
    char16_t m_szPath[QsUi::FolderBrowser::PathBuffer] = {};
    QsUi::IFolderBrowserWindow* m_hWnd = nullptr;

private:
    QsUi::IViews* m_views;
};

namespace QsUi {

/// A text for the status line: at most 35 units, and "..." behind one that was longer.
CString ShortenedForStatus(const CString& text);

/// `IQsUtils` documents the operation.
CString SelectFolder(IViews* views);

}  // namespace QsUi
