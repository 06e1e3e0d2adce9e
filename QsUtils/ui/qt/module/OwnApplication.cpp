#include "QsUtils/ui/qt/module/OwnApplication.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QPixmap>
#include <QSemaphore>
#include <QThread>
#include <QWidget>
#include <atomic>
#include <bit>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <thread>

#include <unistd.h>

#include "QsUtils/ui/qt/module/Display.h"

namespace QsQt {

namespace {

std::atomic<bool> isStartedByUs{false};
std::atomic<bool> isHeld{false};
std::atomic<unsigned int> uses{0};

/// The rests of the thread at which its end is still prepared for, whatever their number.
constexpr unsigned int RestsOfDialog = 256;
std::atomic<unsigned int> restsToCome{RestsOfDialog};

/// How long the end of the process waits for a thread that is at work.
constexpr int MostMillisecondsToHold = 2000;

void DropMessage(QtMsgType, const QMessageLogContext&, const QString&) {}

void HoldThread() {
    QCoreApplication* const application = QCoreApplication::instance();
    // The thread itself ends the process when its display has gone.
    if (application == nullptr || QThread::currentThread() == application->thread() || isHeld.exchange(true))
        return;
    // Never freed: the thread may come to it late.
    QSemaphore* const isThere = new QSemaphore;
    QMetaObject::invokeMethod(
        application,
        [isThere] {
            isThere->release();
            for (;;)
                ::pause();
        },
        Qt::QueuedConnection);
    isThere->tryAcquire(1, MostMillisecondsToHold);
    // Objects of that thread go on this one now, and Qt would tell the user of each.
    qInstallMessageHandler(DropMessage);
}

// Objects go at the end in the reverse order in which they came, and Qt makes some of its own at their first
// use: the thread has to be held before any of them goes. A place in that order can be taken again but not
// given back, so it is taken ever more rarely.
void TakePlaceAtEnd(unsigned int occasion) {
    if (std::has_single_bit(occasion))
        std::atexit(HoldThread);
}

/// The thread has done what there was, and may have made objects of Qt's.
void Rest() {
    static unsigned int rests = 0;
    ++rests;
    const unsigned int toCome = restsToCome.load();
    if (toCome != 0)
        restsToCome.store(toCome - 1);
    TakePlaceAtEnd(toCome != 0 ? 1 : rests);
}

/// Windows are listed under the name of the host's program.
std::string ProgramName() {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::string("QsUtils") : program.string();
}

/// Qt sets the locale of the process to the user's; a host without Qt has one of its own.
class KeptLocale {
public:
    // NOLINTBEGIN(concurrency-mt-unsafe): Qt can't be kept from setting it, and no thread of its is there
    // yet.
    KeptLocale() : m_locale(std::setlocale(LC_ALL, nullptr)) {}
    KeptLocale(const KeptLocale&) = delete;
    KeptLocale& operator=(const KeptLocale&) = delete;
    ~KeptLocale() { std::setlocale(LC_ALL, m_locale.c_str()); }
    // NOLINTEND(concurrency-mt-unsafe)

private:
    std::string m_locale;
};

void MakeApplication(const std::string& platform) {
    // They live as long as the process, and so does the application.
    static std::string program = ProgramName();
    static std::string option = "-platform";
    static std::string name = platform;
    static char* arguments[] = {program.data(), option.data(), name.data(), nullptr};
    static int count = 3;
    const KeptLocale locale;
    // Qt says that it has taken another locale than the user's. It isn't the host's matter.
    const QtMessageHandler before = qInstallMessageHandler(DropMessage);
    new QApplication(count, arguments);
    qInstallMessageHandler(before);
    QApplication::setQuitOnLastWindowClosed(false);
}

/// What becomes of a start.
struct Starting {
    QSemaphore end;
    std::u16string reason;  // of a failure
};

void RunApplication(Starting& starting) {
    {
        const Platform platform = FindPlatform();
        starting.reason = platform.reason;
        if (!platform.name.empty())
            MakeApplication(platform.name);
    }
    const bool isMade = QCoreApplication::instance() != nullptr;
    starting.end.release();
    if (!isMade)
        return;
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, Rest);
    for (;;)
        QApplication::exec();  // a host can't end it
}

}  // namespace

bool StartOwnApplication(std::u16string& reason) {
    // The host's signals are for the host's threads.
    sigset_t all;
    sigset_t before;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_BLOCK, &all, &before);
    Starting starting;
    std::thread thread([&] { RunApplication(starting); });
    starting.end.acquire();
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    if (QCoreApplication::instance() == nullptr) {
        thread.join();
        reason = starting.reason;
        return false;
    }
    thread.detach();
    isStartedByUs.store(true);
    PrepareForEnd();
    return true;
}

void PrepareForEnd() {
    if (isStartedByUs.load())
        TakePlaceAtEnd(uses.fetch_add(1) + 1);
}

void PrepareForDialog(QWidget& dialog) {
    if (!isStartedByUs.load())
        return;
    dialog.grab();  // painted unseen, with what Qt makes for that
    TakePlaceAtEnd(1);
    restsToCome.store(RestsOfDialog);
}

bool IsOwnApplicationHeld() noexcept {
    return isHeld.load();
}

}  // namespace QsQt
