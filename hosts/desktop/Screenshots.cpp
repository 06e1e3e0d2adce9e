#include "Screenshots.h"

#include <QAction>
#include <QApplication>
#include <QFileSystemModel>
#include <QPushButton>
#include <QScreen>
#include <QTableView>
#include <QTimer>
#include <QTreeView>
#include <functional>

#include <QsUtils/QsUtils.h>

namespace Desktop {

namespace {

/// For windows to appear and to be painted.
constexpr int Pause = 700;
/// What of the bill's window is in the picture of its tip.
constexpr QRect AroundTip(0, 0, 700, 200);

void Later(const std::function<void()>& step) {
    QTimer::singleShot(Pause, step);
}

/// What the screen shows there; so what lies on a window is in the picture.
void Save(const QWidget& window, const QRect& part, const QString& path) {
    const QRect area = part.translated(window.frameGeometry().topLeft());
    window.screen()->grabWindow(0, area.x(), area.y(), area.width(), area.height()).save(path, "PNG");
}

QWidget* Dialog() {
    return QApplication::activeModalWidget();
}

void SaveDialog(const QString& path) {
    const QSize size = Dialog()->frameGeometry().size();
    Save(*Dialog(), QRect(QPoint(), size), path);
}

}  // namespace

void TakeScreenshots(MainWindow& window, const QString& folder) {
    const auto file = [folder](const char* name) { return folder + QLatin1Char('/') + QLatin1String(name); };
    const auto browser = [&window, file] {
        Later([file] {
            auto& tree = *Dialog()->findChild<QTreeView*>();
            const auto& folders = *static_cast<QFileSystemModel*>(tree.model());
            tree.setCurrentIndex(folders.index(QStringLiteral("/usr/share/fonts")));
            Later([file, &tree] {
                tree.scrollTo(tree.currentIndex(), QAbstractItemView::PositionAtCenter);
                Later([file] {
                    SaveDialog(file("browser.png"));
                    Dialog()->close();
                    QCoreApplication::quit();
                });
            });
        });
        window.Entry("folder")->trigger();
    };
    const auto message = [file, browser] {
        Later([file, browser] {
            SaveDialog(file("message.png"));
            Dialog()->close();
            Later([browser] {
                Dialog()->close();
                Later(browser);
            });
        });
        Dialog()->findChild<QPushButton*>(QStringLiteral("confirm"))->click();
    };
    const auto picker = [&window, file, message] {
        Later([file, message] {
            Dialog()->findChild<QTableView*>()->selectRow(0);
            Later([file, message] {
                SaveDialog(file("picker.png"));
                Dialog()->findChild<QTableView*>()->clearSelection();
                message();
            });
        });
        window.Entry("fee")->trigger();
    };
    Later([&window, file, picker] {
        window.Table().ShowTip(1, 1);
        Later([&window, file, picker] {
            Save(window, AroundTip, file("tip.png"));
            texttip::CloseWindowNow();
            picker();
        });
    });
}

}  // namespace Desktop
