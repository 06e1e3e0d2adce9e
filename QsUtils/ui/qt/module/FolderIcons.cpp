#include "QsUtils/ui/qt/module/FolderIcons.h"

#include <QApplication>
#include <QStyle>

namespace QsQt {

FolderIcons::FolderIcons() : m_icon(QApplication::style()->standardIcon(QStyle::SP_DirIcon)) {}

QIcon FolderIcons::icon(IconType) const {
    return m_icon;
}

QIcon FolderIcons::icon(const QFileInfo&) const {
    return m_icon;
}

}  // namespace QsQt
