#include "QsUtils/platform/DeepStack.h"

#include <exception>
#include <new>

#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

namespace {

struct Task {
    void (*work)(void*);
    void* argument;
    std::exception_ptr raised;
};

DWORD WINAPI RunTask(void* argument) {
    Task& task = *static_cast<Task*>(argument);
    try {
        task.work(task.argument);
    } catch (...) {
        task.raised = std::current_exception();
    }
    return 0;
}

}  // namespace

void RunOnDeepStack(std::size_t bytes, void (*work)(void*), void* argument) {
    Task task{work, argument, nullptr};
    const HANDLE thread =
        CreateThread(nullptr, bytes, RunTask, &task, STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
    if (thread == nullptr)
        throw std::bad_alloc();
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
    if (task.raised)
        std::rethrow_exception(task.raised);
}

}  // namespace QsPlatform
