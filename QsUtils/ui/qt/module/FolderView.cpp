#include "QsUtils/ui/qt/module/FolderView.h"

#include <QDir>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTreeView>
#include <QVBoxLayout>

#include "QsUtils/ui/DialogTexts.h"
#include "QsUtils/ui/qt/module/Buttons.h"
#include "QsUtils/ui/qt/module/Text.h"

namespace QsQt {

namespace {

constexpr int Width = 400;
constexpr int Height = 440;

QString WithSlashes(std::u16string_view path) {
    return ToQString(path).replace(QLatin1Char('\\'), QLatin1Char('/'));
}

}  // namespace

FolderView::FolderView(const QsUi::FolderBrowseInfo& info, QWidget* parent)
    : QDialog(parent), m_info(info), m_tree(new QTreeView(this)), m_status(new QLabel(this)) {
    setWindowTitle(QStringLiteral("浏览文件夹"));
    setSizeGripEnabled(true);
    MakeTree();
    QLabel* const title = new QLabel(ToQString(info.title), this);
    title->setTextFormat(Qt::PlainText);
    m_status->setObjectName(QStringLiteral("status"));
    m_status->setAccessibleName(ToQString(info.title));
    m_status->setTextFormat(Qt::PlainText);
    m_status->setVisible((info.flags & QsUi::FolderBrowser::HasStatusText) != 0);
    m_tree->setAccessibleName(windowTitle());
    title->setBuddy(m_tree);
    QHBoxLayout* const choice = new QHBoxLayout;
    choice->addWidget(title);
    choice->addWidget(m_status, 1);
    const DialogButtons buttons = MakeButtons(this);
    m_confirm = buttons.confirm;
    m_confirm->setEnabled(false);
    QVBoxLayout* const layout = new QVBoxLayout(this);
    layout->addLayout(choice);
    layout->addWidget(m_tree);
    layout->addLayout(buttons.layout);
    connect(buttons.confirm, &QPushButton::clicked, this, &QDialog::accept);
    connect(buttons.cancel, &QPushButton::clicked, this, &QDialog::reject);
    resize(Width, Height);
    m_tree->setFocus();
    Initialize();
}

void FolderView::MakeTree() {
    m_folders.setIconProvider(&m_icons);
    m_folders.setFilter(QDir::Dirs | QDir::Drives | QDir::NoDotAndDotDot);
    m_folders.setRootPath(QDir::rootPath());
    m_tree->setModel(&m_folders);
    m_tree->setObjectName(QStringLiteral("folders"));
    m_tree->setHeaderHidden(true);
    m_tree->setUniformRowHeights(true);
    for (int column = 1; column < m_folders.columnCount(); ++column)
        m_tree->hideColumn(column);
    m_tree->sortByColumn(0, Qt::AscendingOrder);
    m_tree->expand(m_folders.index(QDir::rootPath()));
    connect(m_tree->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this] { TellSelection(); });
    // Folders are read behind the scenes; what comes in moves the current one out of sight.
    connect(&m_folders, &QFileSystemModel::directoryLoaded, this, [this] {
        if (!m_isScrolledByUser)
            m_tree->scrollTo(m_tree->currentIndex(), QAbstractItemView::PositionAtCenter);
    });
    connect(m_tree->verticalScrollBar(), &QScrollBar::actionTriggered, this,
            [this] { m_isScrolledByUser = true; });
    connect(m_tree, &QTreeView::pressed, this, [this] { m_isScrolledByUser = true; });
    connect(m_tree, &QTreeView::expanded, this, [this] { m_isScrolledByUser = isVisible(); });
}

void FolderView::Initialize() {
    m_info.callback(this, QsUi::FolderBrowserMessage::Initialized, nullptr, m_info.object);
    if (!m_tree->currentIndex().isValid())
        m_tree->setCurrentIndex(m_folders.index(QDir::homePath()));
}

/// Of a name with a backslash a path in the library's form would lead elsewhere; such a folder has none.
FolderChoice FolderView::Choice() const {
    const QString path = m_folders.filePath(m_tree->currentIndex());
    if (path.contains(QLatin1Char('\\')))
        return {};
    return {QString(path).replace(QLatin1Char('/'), QLatin1Char('\\')).toStdU16String()};
}

void FolderView::TellSelection() {
    const FolderChoice choice = Choice();
    if (m_confirm != nullptr)
        m_confirm->setEnabled(m_tree->currentIndex().isValid());
    m_info.callback(this, QsUi::FolderBrowserMessage::SelChanged, &choice, m_info.object);
}

void FolderView::SetSelection(std::u16string_view path) {
    const QString native = WithSlashes(path);
    if (native.isEmpty() || !QDir(native).exists())
        return;
    const QModelIndex folder = m_folders.index(native);
    m_tree->setCurrentIndex(folder);
    m_tree->expand(folder.parent());
    m_tree->scrollTo(folder, QAbstractItemView::PositionAtCenter);
}

void FolderView::SetStatusText(std::u16string_view text) {
    m_status->setText(ToQString(text));
}

}  // namespace QsQt
