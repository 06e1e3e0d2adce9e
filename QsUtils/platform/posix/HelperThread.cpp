#include "QsUtils/platform/HelperThread.h"

#include <csignal>

#include <pthread.h>
#include <sched.h>

namespace QsPlatform {

struct HelperThread::System {
    static void* Enter(void* thread) noexcept {
        Run(*static_cast<HelperThread*>(thread));
        return nullptr;
    }
};

bool HasSecondProcessor() noexcept {
    cpu_set_t processors;
    return ::sched_getaffinity(0, sizeof processors, &processors) != 0 || CPU_COUNT(&processors) > 1;
}

bool HelperThread::Start(void (*work)(void*), void* argument) noexcept {
    m_work = work;
    m_argument = argument;
    // A new thread has the mask of the one that makes it.
    sigset_t all;
    sigset_t before;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before);
    pthread_t thread{};
    const bool isStarted = ::pthread_create(&thread, nullptr, System::Enter, this) == 0;
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    m_thread = static_cast<std::uintptr_t>(thread);
    if (!isStarted)
        m_work = nullptr;
    return isStarted;
}

void HelperThread::Join() noexcept {
    if (!IsStarted())
        return;
    ::pthread_join(static_cast<pthread_t>(m_thread), nullptr);
    m_work = nullptr;
}

}  // namespace QsPlatform
