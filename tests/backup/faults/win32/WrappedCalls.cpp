// The library reaches the system's functions through pointers; the linker leads it to these instead, and
// gives the pointers themselves their other names.
#include <string>

#include <windows.h>

#include "tests/backup/faults/Point.h"

namespace {

using FaultPoints::Outcome;

[[noreturn]] void Die() noexcept {
    for (;;)
        ::TerminateProcess(::GetCurrentProcess(), FaultPoints::KilledStatus);
}

/// Whether the call is made; otherwise it has failed.
bool Passes(bool takesRoom) noexcept {
    switch (FaultPoints::NextPoint(takesRoom)) {
        case Outcome::Killed:
            Die();
        case Outcome::DiskFull:
            ::SetLastError(ERROR_DISK_FULL);
            return false;
        case Outcome::Error:
            ::SetLastError(ERROR_IO_DEVICE);
            return false;
        default:
            return true;
    }
}

/// Whether a folder bears the name of a version on its way in or out.
bool IsVersionBeside(const std::wstring& path) {
    return path.find(L".qsutils-", path.rfind(L'\\') + 1) != path.npos;
}

constexpr bool TakesRoom = true;
constexpr bool TakesNone = false;

}  // namespace

extern "C" {

#define REAL(function) extern decltype(&::function) __real___imp_##function;
#define LEAD(function, here) decltype(&::function) __wrap___imp_##function = here;

REAL(CreateFileW)
REAL(WriteFile)
REAL(CopyFileW)
REAL(MoveFileExW)

namespace {

HANDLE WINAPI OpenHere(LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security,
                       DWORD disposition, DWORD flags, HANDLE pattern) {
    if (disposition != OPEN_EXISTING && !Passes(TakesRoom))
        return INVALID_HANDLE_VALUE;
    return __real___imp_CreateFileW(path, access, share, security, disposition, flags, pattern);
}

/// A process is killed, and a disk gets full, behind half of the bytes.
BOOL WINAPI WriteHere(HANDLE file, LPCVOID bytes, DWORD count, LPDWORD written, LPOVERLAPPED overlapped) {
    const Outcome outcome = FaultPoints::NextPoint(TakesRoom);
    if (outcome == Outcome::Passes)
        return __real___imp_WriteFile(file, bytes, count, written, overlapped);
    if (outcome != Outcome::Error)
        __real___imp_WriteFile(file, bytes, count / 2, written, overlapped);
    if (outcome == Outcome::Killed)
        Die();
    ::SetLastError(outcome == Outcome::DiskFull ? ERROR_DISK_FULL : ERROR_IO_DEVICE);
    return FALSE;
}

/// The system copies piece by piece; what it has written by then stays when the process is killed.
BOOL WINAPI CopyHere(LPCWSTR from, LPCWSTR to, BOOL failsIfExists) {
    const Outcome outcome = FaultPoints::NextPoint(TakesRoom);
    if (outcome == Outcome::Passes)
        return __real___imp_CopyFileW(from, to, failsIfExists);
    if (outcome == Outcome::Killed) {
        const HANDLE file = __real___imp_CreateFileW(to, GENERIC_WRITE, 0, nullptr,
                                                     failsIfExists ? CREATE_NEW : CREATE_ALWAYS, 0, nullptr);
        DWORD written = 0;
        __real___imp_WriteFile(file, "part", 4, &written, nullptr);
        Die();
    }
    ::SetLastError(outcome == Outcome::DiskFull ? ERROR_DISK_FULL : ERROR_IO_DEVICE);
    return FALSE;
}

BOOL WINAPI MoveHere(LPCWSTR from, LPCWSTR to, DWORD flags) {
    if (!FaultPoints::MayMoveFolders() && (::GetFileAttributesW(from) & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
        !IsVersionBeside(from) && IsVersionBeside(to)) {
        ::SetLastError(ERROR_CANT_ACCESS_FILE);
        return FALSE;
    }
    return Passes(FaultPoints::RenamesTakeRoom()) ? __real___imp_MoveFileExW(from, to, flags) : FALSE;
}

}  // namespace

LEAD(CreateFileW, OpenHere)
LEAD(WriteFile, WriteHere)
LEAD(CopyFileW, CopyHere)
LEAD(MoveFileExW, MoveHere)

// Those whose arguments pass through as they are.
#define POINT(room, function, parameters, ...)                              \
    REAL(function)                                                          \
    static BOOL WINAPI Here##function parameters {                          \
        return Passes(room) ? __real___imp_##function(__VA_ARGS__) : FALSE; \
    }                                                                       \
    LEAD(function, Here##function)

POINT(TakesNone, DeleteFileW, (LPCWSTR path), path)
POINT(TakesRoom, CreateDirectoryW, (LPCWSTR path, LPSECURITY_ATTRIBUTES security), path, security)
POINT(TakesNone, RemoveDirectoryW, (LPCWSTR path), path)
POINT(TakesNone, SetFileAttributesW, (LPCWSTR path, DWORD attributes), path, attributes)

/// Nothing of what is tested here survives a loss of power, so nothing needs to reach the disk.
REAL(FlushFileBuffers)
static BOOL WINAPI FlushHere(HANDLE) {
    return Passes(TakesRoom);
}
LEAD(FlushFileBuffers, FlushHere)

}  // extern "C"
