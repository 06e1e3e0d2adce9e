// What tells processes apart in the names of new versions of files.
#include "QsUtils/platform/AbandonedVersions.h"
#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

std::uint32_t ThisMachine() noexcept {
    wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = {};
    DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
    ::GetComputerNameW(name, &size);
    // FNV-1a, http://www.isthe.com/chongo/tech/comp/fnv/
    std::uint32_t hash = 2166136261U;
    for (const wchar_t* unit = name; *unit != L'\0'; ++unit)
        hash = (hash ^ *unit) * 16777619U;
    return hash;
}

std::uint32_t ThisProcess() noexcept {
    return ::GetCurrentProcessId();
}

bool IsProcessGone(std::uint32_t process) noexcept {
    const HANDLE opened = ::OpenProcess(SYNCHRONIZE, FALSE, process);
    if (opened == nullptr)
        return ::GetLastError() == ERROR_INVALID_PARAMETER;
    // Somebody may hold a process that has ended.
    const bool hasEnded = ::WaitForSingleObject(opened, 0) == WAIT_OBJECT_0;
    ::CloseHandle(opened);
    return hasEnded;
}

}  // namespace QsPlatform
