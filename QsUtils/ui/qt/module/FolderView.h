// The folder browser: a line of title, the choice, and the tree of folders.
#pragma once

#include <QDialog>
#include <QFileSystemModel>
#include <string>

#include "QsUtils/ui/Views.h"
#include "QsUtils/ui/qt/module/FolderIcons.h"

class QLabel;
class QPushButton;
class QTreeView;

namespace QsQt {

/// What an item stands for: a folder by its path in the library's form.
struct FolderChoice {
    std::u16string path;
};

class FolderView : public QDialog, public QsUi::IFolderBrowserWindow {
public:
    /// What `info` points to outlives the view.
    FolderView(const QsUi::FolderBrowseInfo& info, QWidget* parent);

    /// The current folder.
    FolderChoice Choice() const;

    void SetSelection(std::u16string_view path) override;
    void SetStatusText(std::u16string_view text) override;

private:
    void MakeTree();
    void TellSelection();
    void Initialize();

    const QsUi::FolderBrowseInfo& m_info;
    FolderIcons m_icons;
    QFileSystemModel m_folders;
    QTreeView* m_tree;
    QLabel* m_status;
    QPushButton* m_confirm = nullptr;
    bool m_isScrolledByUser = false;
};

}  // namespace QsQt
