// desktop: a bill in a window, with every dialog of the library in its menu.
//   desktop [--installation FOLDER] [--bill FILE] [--screenshots FOLDER]
#include <QApplication>
#include <QCommandLineParser>

#include <QsUtils/QsUtils.h>

#include "MainWindow.h"
#include "Screenshots.h"
#include "Texts.h"

int main(int count, char** arguments) {
    QApplication application(count, arguments);
    QCommandLineParser options;
    const auto add = [&](const char* name, const char* what, const char* otherwise) {
        options.addOption(
            {QLatin1String(name), QLatin1String(what), QLatin1String(name), QString::fromUtf8(otherwise)});
    };
    add("installation", "the folder of an installation", SAMPLE_INSTALLATION);
    add("bill", "a bill in CSV", SAMPLE_BILL);
    add("screenshots", "takes pictures of the dialogs, into that folder", "");
    options.addHelpOption();
    options.process(application);

    const QString installation = options.value(QStringLiteral("installation"));
    if (!DirectoryManager::UseInstallation(FromNativePath(installation.toStdString()))) {
        qCritical("desktop: %s is no folder", qPrintable(installation));
        return 1;
    }
    IQsUtils::SetSoftVersion(u"7.1");
    const QString file = options.value(QStringLiteral("bill"));
    const Desktop::Bill bill = Desktop::ReadBill(file);
    if (bill.columns.isEmpty()) {
        qCritical("desktop: %s is no bill", qPrintable(file));
        return 1;
    }
    Desktop::MainWindow window(bill);
    window.show();
    if (const QString folder = options.value(QStringLiteral("screenshots")); !folder.isEmpty())
        Desktop::TakeScreenshots(window, folder);
    return QApplication::exec();
}
