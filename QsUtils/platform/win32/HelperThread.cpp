#include "QsUtils/platform/HelperThread.h"

#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

struct HelperThread::System {
    static DWORD WINAPI Enter(void* thread) noexcept {
        Run(*static_cast<HelperThread*>(thread));
        return 0;
    }
};

bool HasSecondProcessor() noexcept {
    DWORD_PTR processes = 0;
    DWORD_PTR systems = 0;
    return ::GetProcessAffinityMask(::GetCurrentProcess(), &processes, &systems) == 0 ||
           (processes & (processes - 1)) != 0;
}

bool HelperThread::Start(void (*work)(void*), void* argument) noexcept {
    m_work = work;
    m_argument = argument;
    const HANDLE thread = ::CreateThread(nullptr, 0, System::Enter, this, 0, nullptr);
    m_thread = reinterpret_cast<std::uintptr_t>(thread);
    if (thread == nullptr)
        m_work = nullptr;
    return thread != nullptr;
}

void HelperThread::Join() noexcept {
    if (!IsStarted())
        return;
    const HANDLE thread = reinterpret_cast<HANDLE>(m_thread);
    ::WaitForSingleObject(thread, INFINITE);
    ::CloseHandle(thread);
    m_work = nullptr;
}

}  // namespace QsPlatform
