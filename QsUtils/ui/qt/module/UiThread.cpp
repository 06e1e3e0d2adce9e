#include "QsUtils/ui/qt/module/UiThread.h"

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QSemaphore>
#include <QThread>
#include <memory>
#include <mutex>
#include <utility>

#include "QsUtils/ui/qt/module/OwnApplication.h"

namespace QsQt::UiThread {

namespace {

constinit std::mutex starting;

/// Lets a waiting thread go on when it is destroyed, be it because all is done or because nobody will do it.
class Awaited {
public:
    explicit Awaited(QSemaphore& end) : m_end(end) {}
    Awaited(const Awaited&) = delete;
    Awaited& operator=(const Awaited&) = delete;
    ~Awaited() { m_end.release(); }

private:
    QSemaphore& m_end;
};

/// Holds a token as long as its parent lives.
class TokenHolder : public QObject {
public:
    TokenHolder(std::shared_ptr<Awaited> token, QObject* parent)
        : QObject(parent), m_token(std::move(token)) {}

    const std::shared_ptr<Awaited>& Token() const { return m_token; }

private:
    std::shared_ptr<Awaited> m_token;
};

bool IsCurrent() {
    return QThread::currentThread() == QCoreApplication::instance()->thread();
}

/// Has work done on the thread of the windows, and waits until everything that holds the token has let it go.
/// Work that hasn't begun when the application quits is dropped: nothing runs its events any more, while it
/// may wait for the caller itself.
void RunElsewhere(const std::function<void(const std::shared_ptr<Awaited>&)>& work) {
    QSemaphore end;
    QMetaObject::Connection quitting;
    {
        // Touched by the thread of the windows alone from now on; without its token the work is dropped.
        const auto request = std::make_shared<std::shared_ptr<Awaited>>(std::make_shared<Awaited>(end));
        QCoreApplication* const application = QCoreApplication::instance();
        quitting = QObject::connect(
            application, &QCoreApplication::aboutToQuit, application, [request] { request->reset(); },
            Qt::DirectConnection);
        QMetaObject::invokeMethod(
            application,
            [&work, request] {
                if (const std::shared_ptr<Awaited> token = std::exchange(*request, nullptr))
                    work(token);
            },
            Qt::QueuedConnection);
    }
    end.acquire();
    QObject::disconnect(quitting);
}

constexpr const char* IsOurs = "QsUtilsDialog";

/// The window of the host's on top. Dialogs of several threads may be open at a time, and none may go with
/// another one, which may just be about to.
QWidget* Parent() {
    QWidget* const modal = QApplication::activeModalWidget();
    QWidget* parent = modal != nullptr ? modal : QApplication::activeWindow();
    for (QWidget* each = parent; each != nullptr; each = each->parentWidget()) {
        if (each->property(IsOurs).isValid())
            parent = each->parentWidget();
    }
    return parent;
}

QDialog* Make(const std::function<QDialog*(QWidget*)>& make) {
    QDialog* const dialog = make(Parent());
    dialog->setProperty(IsOurs, true);
    dialog->setModal(true);
    dialog->setAttribute(Qt::WA_QuitOnClose, false);  // it isn't the last window of a host that shows none
    return dialog;
}

/// A dialog that goes with its owner, unless its parent has been destroyed while it was open, which has taken
/// it along.
class OwnedDialog {
public:
    explicit OwnedDialog(QDialog* dialog) : m_dialog(dialog) {}
    OwnedDialog(const OwnedDialog&) = delete;
    OwnedDialog& operator=(const OwnedDialog&) = delete;
    ~OwnedDialog() { delete m_dialog.data(); }

    QDialog* Get() const { return m_dialog.data(); }

private:
    QPointer<QDialog> m_dialog;
};

}  // namespace

bool Start(std::u16string& reason) {
    const std::lock_guard lock(starting);
    if (QCoreApplication::instance() == nullptr && !StartOwnApplication(reason))
        return false;
    if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr) {
        reason = u"the host's application has no windows.";
        return false;
    }
    return IsAlive();
}

bool IsAlive() {
    return QCoreApplication::instance() != nullptr && !IsOwnApplicationHeld();
}

void Run(const std::function<void()>& work) {
    if (!IsAlive())
        return;
    if (IsCurrent()) {
        work();
        return;
    }
    RunElsewhere([&](const std::shared_ptr<Awaited>&) { work(); });
    PrepareForEnd();
}

bool RunDialog(const std::function<QDialog*(QWidget* parent)>& make,
               const std::function<void(const QDialog&)>& read) {
    bool isAccepted = false;
    if (IsCurrent()) {
        const OwnedDialog dialog(Make(make));
        isAccepted = dialog.Get()->exec() == QDialog::Accepted && dialog.Get() != nullptr;
        if (isAccepted)
            read(*dialog.Get());
        return isAccepted;
    }
    RunElsewhere([&](const std::shared_ptr<Awaited>& token) {
        QDialog* const dialog = Make(make);
        PrepareForDialog(*dialog);
        TokenHolder* const holder = new TokenHolder(token, dialog);
        QObject::connect(dialog, &QDialog::accepted, dialog, [&, dialog] {
            isAccepted = true;
            read(*dialog);
        });
        // The caller goes on when the dialog is wholly gone, and may end the process at once. Until then the
        // dialog alone holds the token, since it may go with the application instead.
        QObject::connect(dialog, &QDialog::finished, dialog, [closed = QPointer<QDialog>(dialog), holder] {
            QMetaObject::invokeMethod(
                QCoreApplication::instance(),
                [closed, holder] {
                    if (closed.isNull())
                        return;
                    const std::shared_ptr<Awaited> last = holder->Token();
                    delete closed.data();
                },
                Qt::QueuedConnection);
        });
        // When the application ends nothing runs its events any more, and the caller would wait for ever.
        QObject::connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, dialog,
                         [dialog] { delete dialog; });
        dialog->show();
        dialog->raise();
        dialog->activateWindow();
    });
    PrepareForEnd();
    return isAccepted;
}

}  // namespace QsQt::UiThread
