// A host whose user is made of code. With an application of its own it calls dialogs on the thread of its
// windows or on another one; without any it leaves Qt to the library.
#include <QApplication>
#include <QThread>
#include <QTimer>
#include <QWidget>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <exception>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <QsUtils/QsUtils.h>

#include "tests/ui/qt/Robot.h"

namespace {

std::string Utf8(const CString& text) {
    return ToNativePath(text).string();
}

/// What the user does, and what the host calls meanwhile.
struct Scene {
    std::function<void()> user;
    std::function<void()> host;
};

/// That the host's application has caught.
int failures = 0;

void Report(const char* what, const CString& answer) {
    std::printf("%s: [%s]\n", what, Utf8(answer).c_str());
}

QWidget* Picker() {
    return Robot::WindowWith("templates");
}

/// Acts on the picker of fees, and reports what the host gets.
Scene Pick(const std::function<void(QWidget*)>& act) {
    return {[act] { Robot::When(Picker, act); },
            [] { Report("picked", IQsUtils::GetFeeTemplatePath(u"上海", u"2016预算定额", false)); }};
}

Scene PickNothing() {
    return Pick([](QWidget* picker) {
        Robot::When(Robot::MessageBox, [](QWidget* box) {
            std::printf("message: %s\n", Robot::Utf8(box->windowTitle()).c_str());
            Robot::Press(box, Qt::Key_Return);
        });
        Robot::Click(picker, "confirm");
        std::printf("open: %d\n", picker->isVisible() ? 1 : 0);
        Robot::Press(picker, Qt::Key_Escape);
    });
}

/// Several threads open a picker each; the user attends to the one on top.
void PickOnTop(int count) {
    const auto top = [] {
        QWidget* const modal = QApplication::activeModalWidget();
        return modal != nullptr && modal->findChild<QWidget*>(QStringLiteral("templates")) != nullptr
                   ? modal
                   : nullptr;
    };
    if (count > 0)
        Robot::When(top, [count](QWidget* picker) {
            Robot::GoToRow(picker, 1);
            Robot::Press(picker, Qt::Key_Return);
            PickOnTop(count - 1);
        });
}

Scene PickOnThreads(int count) {
    return {[count] { PickOnTop(count); },
            [count] {
                std::vector<CString> picked(static_cast<std::size_t>(count));
                std::vector<std::thread> threads;
                for (CString& path : picked)
                    threads.emplace_back(
                        [&path] { path = IQsUtils::GetFeeTemplatePath(u"上海", u"2016预算定额", false); });
                for (std::thread& thread : threads)
                    thread.join();
                for (const CString& path : picked)
                    Report("picked", path);
            }};
}

/// The host's main function returns while a thread of its still waits for the user.
Scene LeaveOpen() {
    const auto isOpen = std::make_shared<std::atomic<bool>>(false);
    return {[isOpen] { Robot::When(Picker, [isOpen](QWidget*) { *isOpen = true; }); },
            [isOpen] {
                std::thread([] { IQsUtils::GetFeeTemplatePath(u"上海", u"2016预算定额", false); }).detach();
                while (!*isOpen)
                    std::this_thread::sleep_for(std::chrono::milliseconds(5));
                std::printf("leaving\n");
            }};
}

/// The host quits while the message is open on top of the picker.
Scene QuitAtMessage() {
    return Pick([](QWidget* picker) {
        Robot::When(Robot::MessageBox, [](QWidget*) { QCoreApplication::quit(); });
        Robot::Click(picker, "confirm");
    });
}

/// A part of the host fails while a dialog is open, and its application knows what to do about it.
Scene Fail() {
    return Pick([](QWidget* picker) {
        QTimer::singleShot(0, qApp, [] { throw std::runtime_error("a failure of the host's"); });
        Robot::When([] { return failures > 0 ? Picker() : nullptr; },
                    [](QWidget* found) {
                        Robot::GoToRow(found, 0);
                        Robot::Press(found, Qt::Key_Return);
                    });
        static_cast<void>(picker);
    });
}

Scene Browse(const std::string& folder) {
    const auto act = [folder](QWidget* browser) {
        Robot::GoToFolder(browser, folder);
        Robot::Press(browser, Qt::Key_Return);
    };
    return {[act] { Robot::When([] { return Robot::WindowWith("folders"); }, act); },
            [] { Report("folder", IQsUtils::SelectFolder()); }};
}

QWidget* ShownTip() {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->objectName() == QStringLiteral("texttip") && window->isVisible())
            return window;
    }
    return nullptr;
}

/// The host does nothing but wait, as one without an event loop.
Scene Tip() {
    const auto tell = [](QWidget* tip) { std::printf("tip at %d\n", tip->x()); };
    return {[tell] { Robot::When(ShownTip, tell); },
            [] {
                texttip::SetShowText(u"综合脚手架 多层");
                texttip::SetWindowPosition({40, 100});
                texttip::ShowWindowDelay(50);
                if (QCoreApplication::instance()->thread() != QThread::currentThread()) {
                    QThread::msleep(600);
                } else {
                    for (int turn = 0; turn < 60; ++turn) {
                        QCoreApplication::processEvents();
                        QThread::msleep(10);
                    }
                }
                texttip::CloseWindowNow();
                std::printf("closed\n");
            }};
}

Scene SceneOf(const std::string& action, const std::string& argument) {
    const auto pickRow = [&](int key) {
        const int row = std::atoi(argument.c_str());
        return Pick([row, key](QWidget* picker) {
            std::printf("%s", Robot::Rows(picker).c_str());
            Robot::GoToRow(picker, row);
            Robot::Press(picker, key);
        });
    };
    if (action == "pick")
        return pickRow(Qt::Key_Return);
    if (action == "cancel")
        return pickRow(Qt::Key_Escape);
    if (action == "nothing")
        return PickNothing();
    if (action == "quit")
        return Pick([](QWidget*) { QCoreApplication::quit(); });
    if (action == "quit-at-message")
        return QuitAtMessage();
    if (action == "threads")
        return PickOnThreads(std::atoi(argument.c_str()));
    if (action == "leave")
        return LeaveOpen();
    if (action == "fail")
        return Fail();
    if (action == "folder")
        return Browse(argument);
    return Tip();
}

/// Events aren't let out of the loop that has brought them.
class CatchingApplication : public QApplication {
public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::exception& error) {
            std::printf("caught: %s\n", error.what());
            ++failures;
            return true;
        }
    }
};

void RunWithApplication(int& count, char** arguments, const Scene& scene, bool onWorker) {
    const CatchingApplication application(count, arguments);
    QWidget window;
    window.show();
    std::thread worker;
    QTimer::singleShot(0, [&] {
        scene.user();
        if (onWorker) {
            worker = std::thread([&] {
                scene.host();
                QMetaObject::invokeMethod(qApp, [] { QCoreApplication::quit(); });
            });
        } else {
            scene.host();
            QCoreApplication::quit();
        }
    });
    QApplication::exec();
    if (worker.joinable())
        worker.join();
}

/// The user sits down at the application that the library makes.
void RunWithout(const Scene& scene) {
    std::thread user([&] {
        while (QCoreApplication::instance() == nullptr || QCoreApplication::startingUp())
            QThread::msleep(5);
        QMetaObject::invokeMethod(QCoreApplication::instance(), [&] { scene.user(); });
    });
    scene.host();
    user.join();
}

}  // namespace

/// own|worker|none INSTALLATION ACTION [ARGUMENT]
int main(int count, char** arguments) {
    if (count < 4)
        return 2;
    const std::string mode = arguments[1];
    if (!DirectoryManager::UseInstallation(FromNativePath(arguments[2])))
        return 2;
    IQsUtils::SetSoftVersion(u"7.1");
    const Scene scene = SceneOf(arguments[3], count > 4 ? arguments[4] : "");
    if (mode == "none")
        RunWithout(scene);
    else
        RunWithApplication(count, arguments, scene, mode == "worker");
    return 0;
}
