#include "tests/support/SmallStack.h"

#include <windows.h>

void RunOnSmallStack(std::size_t bytes, std::function<void()> work) {
    const auto run = [](void* argument) -> DWORD {
        (*static_cast<std::function<void()>*>(argument))();
        return 0;
    };
    const HANDLE thread =
        ::CreateThread(nullptr, bytes, run, &work, STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
    if (thread == nullptr)
        return;
    ::WaitForSingleObject(thread, INFINITE);
    ::CloseHandle(thread);
}
