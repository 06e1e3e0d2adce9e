#include "QsUtils/platform/Threads.h"

#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

namespace {

// On this system's 64-bit machines there is one convention for calls, and both results have 32 bits. So the
// system calls the routine itself, and a thread has no step in this module but the routine's own.
LPTHREAD_START_ROUTINE SystemRoutine(QsThreadRoutine routine) {
    static_assert(sizeof(DWORD) == sizeof(std::uint32_t) && sizeof(void*) == 8);
    return reinterpret_cast<LPTHREAD_START_ROUTINE>(reinterpret_cast<void*>(routine));
}

HANDLE NewThread(QsThreadRoutine routine, void* parameter, DWORD flags, DWORD* id) {
    return routine == nullptr ? nullptr
                              : ::CreateThread(nullptr, 0, SystemRoutine(routine), parameter, flags, id);
}

}  // namespace

std::uint32_t CurrentThreadId() noexcept {
    return ::GetCurrentThreadId();
}

std::uint32_t LastSystemError() noexcept {
    return ::GetLastError();
}

HANDLE StartRunningThread(QsThreadRoutine routine, void* parameter, std::uint32_t& id) noexcept {
    DWORD number = 0;
    const HANDLE thread = NewThread(routine, parameter, 0, &number);
    id = thread == nullptr ? 0 : number;
    return thread;
}

HANDLE MakeStoppedThread(QsThreadRoutine routine, void* parameter) noexcept {
    return NewThread(routine, parameter, CREATE_SUSPENDED, nullptr);
}

bool RunStoppedThread(HANDLE thread) noexcept {
    return ::ResumeThread(thread) != static_cast<DWORD>(-1);
}

void EndHandles() noexcept {}

}  // namespace QsPlatform
