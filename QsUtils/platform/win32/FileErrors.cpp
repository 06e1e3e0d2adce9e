#include "QsUtils/platform/win32/FileErrors.h"

namespace QsPlatform {

FileFailure FailureOf(DWORD error, FileFailure missing) noexcept {
    switch (error) {
        case ERROR_FILE_NOT_FOUND:
            return missing;
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_DRIVE:
        case ERROR_BAD_NETPATH:
            return missing == FileFailure::MissingFile ? missing : FileFailure::MissingFolder;
        case ERROR_ACCESS_DENIED:
        case ERROR_WRITE_PROTECT:
        case ERROR_PRIVILEGE_NOT_HELD:
            return FileFailure::NoRight;
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_USER_MAPPED_FILE:
            return FileFailure::InUse;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
        case ERROR_FILE_TOO_LARGE:
            return FileFailure::DiskFull;
        default:
            return FileFailure::Other;
    }
}

bool IsWantOfRoom(DWORD error) noexcept {
    constexpr DWORD QuotaExceeded = 1295;  // which not every version of the headers names
    switch (error) {
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
        case QuotaExceeded:
        case ERROR_FILE_TOO_LARGE:
        case ERROR_WRITE_FAULT:
        case ERROR_IO_DEVICE:
        case ERROR_NOT_ENOUGH_MEMORY:
        case ERROR_OUTOFMEMORY:
        case ERROR_NO_SYSTEM_RESOURCES:
        case ERROR_TOO_MANY_OPEN_FILES:
            return true;
        default:
            return false;
    }
}

}  // namespace QsPlatform
