#include "QsUtils/platform/Files.h"

#include <cerrno>
#include <csignal>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "QsUtils/platform/posix/FileCopy.h"
#include "QsUtils/platform/posix/FileErrors.h"
#include "QsUtils/platform/posix/FolderPath.h"

namespace QsPlatform {

namespace {

/// What the path names, without following it if it is a link; false for what can't be a file's path.
bool LookAtEntry(const FolderPath& path, struct stat& status) {
    return path.IsGood() && !path.EndsAsFolder() &&
           ::fstatat(path.Base(), path.Rest(), &status, AT_SYMLINK_NOFOLLOW) == 0;
}

/// Whether somebody else holds the file open: then the kernel gives no lease on it. Where leases aren't to be
/// had, as on the file of another owner, nobody can tell.
bool IsLeaseRefused(int file) {
    // Who opens the file in between makes the kernel send a signal, and the usual one would end the process.
    ::fcntl(file, F_SETSIG, SIGURG);
    if (::fcntl(file, F_SETLEASE, F_WRLCK) != 0)
        return errno == EAGAIN || errno == EBUSY;
    ::fcntl(file, F_SETLEASE, F_UNLCK);
    return false;
}

}  // namespace

bool RemoveFile(const CString& path) {
    const FolderPath file(path);
    struct stat status {};
    if (!LookAtEntry(file, status) || S_ISDIR(status.st_mode))
        return false;
    return (S_ISLNK(status.st_mode) || (status.st_mode & S_IWUSR) != 0) &&
           ::unlinkat(file.Base(), file.Rest(), 0) == 0;
}

bool MakeWritable(const CString& path) {
    const FolderPath entry(path);
    struct stat status {};
    if (!entry.IsGood() || ::fstatat(entry.Base(), entry.Rest(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return false;
    return S_ISLNK(status.st_mode) || (status.st_mode & S_IWUSR) != 0 ||
           ::fchmodat(entry.Base(), entry.Rest(), (status.st_mode & 07777) | S_IWUSR, 0) == 0;
}

bool CopyOneFile(const CString& source, const CString& target, bool* lacksRoom) {
    const FolderPath from(source);
    const FolderPath to(target);
    CopyOutcome outcome = CopyOutcome::LeftOut;
    if (from.IsGood() && !from.EndsAsFolder() && to.IsGood() && !to.EndsAsFolder()) {
        const std::unique_ptr<char[]> buffer(new char[CopyBufferSize]);
        outcome = CopyBetween({from.Base(), from.Rest()}, {to.Base(), to.Rest()}, {}, buffer.get());
    }
    if (lacksRoom != nullptr)
        *lacksRoom = outcome == CopyOutcome::NoRoom;
    return outcome == CopyOutcome::Copied;
}

bool IsRewritable(const CString& path) {
    const FolderPath file(path);
    struct stat status {};
    return file.IsGood() && !file.EndsAsFolder() && ::fstatat(file.Base(), file.Rest(), &status, 0) == 0 &&
           S_ISREG(status.st_mode) && (status.st_mode & S_IWUSR) != 0 &&
           ::faccessat(file.Base(), file.Rest(), W_OK, AT_EACCESS) == 0;
}

Rewriting RewriteFile(const CString& source, const CString& target) {
    const FolderPath from(source);
    const FolderPath to(target);
    if (!from.IsGood() || from.EndsAsFolder() || !IsRewritable(target))
        return Rewriting::NotBegun;
    const std::unique_ptr<char[]> buffer(new char[CopyBufferSize]);
    return RewriteBy({from.Base(), from.Rest()}, {to.Base(), to.Rest()}, buffer.get());
}

bool IsHeldElsewhere(const CString& path) {
    const FolderPath place(path);
    struct stat status {};
    if (!place.IsGood() || place.EndsAsFolder() || ::fstatat(place.Base(), place.Rest(), &status, 0) != 0 ||
        !S_ISREG(status.st_mode) || (status.st_mode & S_IWUSR) == 0)
        return true;
    const FileDescriptor file(
        ::openat(place.Base(), place.Rest(), O_RDWR | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    return !file.IsOpen() || IsLeaseRefused(file.Number());
}

}  // namespace QsPlatform
