// A host that loads a module of a product, lets it open its dialogs and unloads it, again and again, while Qt
// stays.
#include <QApplication>
#include <QThread>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <thread>

#include <dlfcn.h>

#include "tests/ui/qt/Robot.h"

namespace {

QWidget* Dialog() {
    QWidget* const picker = Robot::WindowWith("templates");
    return picker != nullptr ? picker : Robot::WindowWith("folders");
}

/// Cancels so many dialogs.
void CancelDialogs(int count) {
    if (count > 0)
        Robot::When(Dialog, [count](QWidget* dialog) {
            Robot::Press(dialog, Qt::Key_Escape);
            CancelDialogs(count - 1);
        });
}

/// Whether the module and the library have left afterwards.
bool Visit(const char* plugin, const char* library) {
    void* const module = ::dlopen(plugin, RTLD_NOW | RTLD_LOCAL);
    if (module == nullptr)
        return false;
    const auto open = reinterpret_cast<bool (*)()>(::dlsym(module, "PluginOpenDialogs"));
    if (open())
        std::printf("chosen\n");
    ::dlclose(module);
    return ::dlopen(library, RTLD_LAZY | RTLD_NOLOAD) == nullptr;
}

}  // namespace

/// own|none PLUGIN LIBRARY LOADS
int main(int count, char** arguments) {
    if (count < 5)
        return 2;
    const int loads = std::atoi(arguments[4]);
    std::optional<QApplication> application;
    if (std::string(arguments[1]) == "own")
        application.emplace(count, arguments);
    std::thread user;
    if (application) {
        CancelDialogs(2 * loads);
    } else {
        user = std::thread([loads] {
            while (QCoreApplication::instance() == nullptr || QCoreApplication::startingUp())
                QThread::msleep(5);
            QMetaObject::invokeMethod(QCoreApplication::instance(), [loads] { CancelDialogs(2 * loads); });
        });
    }
    int gone = 0;
    for (int load = 0; load < loads; ++load)
        gone += Visit(arguments[2], arguments[3]) ? 1 : 0;
    if (user.joinable())
        user.join();
    std::printf("gone %d times\n", gone);
    return 0;
}
