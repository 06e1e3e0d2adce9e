#include "tests/ui/qt/Robot.h"

#include <QApplication>
#include <QDialog>
#include <QFileSystemModel>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <cstdio>
#include <cstdlib>

namespace Robot {

namespace {

constexpr int Pause = 10;
constexpr int MostLooks = 1000;

QTableView* Table(QWidget* picker) {
    return picker->findChild<QTableView*>(QStringLiteral("templates"));
}

}  // namespace

void When(const std::function<QWidget*()>& find, const std::function<void(QWidget*)>& act) {
    QTimer* const timer = new QTimer(qApp);
    timer->setInterval(Pause);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, find, act, looks = 0]() mutable {
        if (QWidget* const found = find()) {
            timer->stop();
            timer->deleteLater();
            const auto last = act;  // it may run a loop of its own
            last(found);
        } else if (++looks == MostLooks) {
            std::fputs("the robot has waited in vain\n", stderr);
            std::_Exit(3);
        }
    });
    timer->start();
}

QWidget* WindowWith(const char* childName) {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        // A host's window has the dialogs on it for children, and so their children too.
        if (qobject_cast<QDialog*>(window) != nullptr && window->isVisible() &&
            window->findChild<QWidget*>(QLatin1String(childName)) != nullptr)
            return window;
    }
    return nullptr;
}

QWidget* MessageBox() {
    return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

void GoToRow(QWidget* picker, int row) {
    for (int step = 0; step <= row; ++step)
        QTest::keyClick(Table(picker), Qt::Key_Down);
}

void DoubleClickRow(QWidget* picker, int row) {
    QTableView& table = *Table(picker);
    const QPoint place = table.visualRect(table.model()->index(row, 0)).center();
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, place);
}

void Press(QWidget* window, int key) {
    QWidget* const focus = window->focusWidget();
    QTest::keyClick(focus != nullptr ? focus : window, static_cast<Qt::Key>(key));
}

void Click(QWidget* window, const char* button) {
    QTest::mouseClick(window->findChild<QPushButton*>(QLatin1String(button)), Qt::LeftButton);
}

std::string Rows(QWidget* picker) {
    std::string rows;
    const QAbstractItemModel& model = *Table(picker)->model();
    for (int row = 0; row < model.rowCount(); ++row)
        rows += Utf8(model.index(row, 0).data().toString()) + '\t' +
                Utf8(model.index(row, 1).data().toString()) + '\n';
    return rows;
}

std::string StatusText(QWidget* browser) {
    return Utf8(browser->findChild<QLabel*>(QStringLiteral("status"))->text());
}

void GoToFolder(QWidget* browser, const std::string& path) {
    QTreeView& tree = *browser->findChild<QTreeView*>(QStringLiteral("folders"));
    const auto& model = static_cast<const QFileSystemModel&>(*tree.model());
    tree.setCurrentIndex(model.index(QString::fromStdString(path)));
}

std::string Utf8(const QString& text) {
    return text.toStdString();
}

}  // namespace Robot
