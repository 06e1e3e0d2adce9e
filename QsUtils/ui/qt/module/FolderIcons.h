// The icon of the folders in the browser's tree.
#pragma once

#include <QAbstractFileIconProvider>
#include <QIcon>

namespace QsQt {

/// One for all of them, from the style: nothing about a folder has to be read, and it is there on a desktop
/// without a theme of icons.
class FolderIcons : public QAbstractFileIconProvider {
public:
    FolderIcons();

    QIcon icon(IconType type) const override;
    QIcon icon(const QFileInfo& folder) const override;

private:
    QIcon m_icon;
};

}  // namespace QsQt
