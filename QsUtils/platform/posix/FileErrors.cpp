#include "QsUtils/platform/posix/FileErrors.h"

#include <cerrno>

#include <unistd.h>

namespace QsPlatform {

FileFailure FailureOf(int error, FileFailure missing) noexcept {
    switch (error) {
        case ENOENT:
        case ENOTDIR:
            return missing;
        case EACCES:
        case EPERM:
        case EROFS:
            return FileFailure::NoRight;
        case ETXTBSY:
        case EBUSY:
            return FileFailure::InUse;
        case EISDIR:
        case ENXIO:
        case ENODEV:
            return FileFailure::NotAFile;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return FileFailure::DiskFull;
        default:
            return FileFailure::Other;
    }
}

bool IsWantOfRoom(int error) noexcept {
    switch (error) {
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
        case EIO:
        case ENOMEM:
        case EMFILE:
        case ENFILE:
            return true;
        default:
            return false;
    }
}

void FileDescriptor::Reset(int number) noexcept {
    if (IsOpen())
        ::close(m_number);
    m_number = number;
}

}  // namespace QsPlatform
