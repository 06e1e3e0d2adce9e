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
/// Around a window, for what stands over its edge.
constexpr int Margin = 8;

void Later(const std::function<void()>& step) {
    QTimer::singleShot(Pause, step);
}

/// What the screen shows there; so what lies on a window is in the picture.
void Save(const QWidget& window, const QString& path) {
    const QRect area = window.frameGeometry().adjusted(-Margin, -Margin, Margin, Margin);
    window.screen()->grabWindow(0, area.x(), area.y(), area.width(), area.height()).save(path, "PNG");
}

QWidget* Dialog() {
    return QApplication::activeModalWidget();
}

}  // namespace

void TakeScreenshots(MainWindow& window, const QString& folder) {
    const auto file = [folder](const char* name) { return folder + QLatin1Char('/') + QLatin1String(name); };
    const auto browser = [&window, file] {
        Later([file] {
            auto& tree = *Dialog()->findChild<QTreeView*>();
            tree.setCurrentIndex(
                static_cast<QFileSystemModel*>(tree.model())->index(QStringLiteral("/usr/share/fonts")));
            Later([file] {
                Save(*Dialog(), file("browser.png"));
                Dialog()->close();
                QCoreApplication::quit();
            });
        });
        window.Entry("folder")->trigger();
    };
    const auto message = [file, browser] {
        Later([file, browser] {
            Save(*Dialog(), file("message.png"));
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
                Save(*Dialog(), file("picker.png"));
                Dialog()->findChild<QTableView*>()->clearSelection();
                message();
            });
        });
        window.Entry("fee")->trigger();
    };
    Later([&window, file, picker] {
        window.Table().ShowTip(1, 1);
        Later([&window, file, picker] {
            Save(window, file("tip.png"));
            texttip::CloseWindowNow();
            picker();
        });
    });
}

}  // namespace Desktop
