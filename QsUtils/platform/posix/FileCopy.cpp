#include "QsUtils/platform/posix/FileCopy.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <limits>
#include <utility>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "QsUtils/platform/posix/FileErrors.h"
#include "QsUtils/platform/posix/Replacing.h"

namespace QsPlatform {

namespace {

constexpr mode_t Permissions = 0777;
constexpr mode_t WriteRights = S_IWUSR | S_IWGRP | S_IWOTH;

FileDescriptor OpenSource(const FilePlace& source, const CopyOptions& options, struct stat& status) {
    // Asked before opening as well: to open a pipe would wake its writer.
    if (options.followsSource &&
        (::fstatat(source.base, source.path.c_str(), &status, 0) != 0 || !S_ISREG(status.st_mode)))
        return FileDescriptor();
    FileDescriptor file(
        ::openat(source.base, source.path.c_str(),
                 O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | (options.followsSource ? 0 : O_NOFOLLOW)));
    if (!file.IsOpen() || ::fstat(file.Number(), &status) != 0 || !S_ISREG(status.st_mode))
        return FileDescriptor();
    return file;
}

bool WriteAll(int file, const char* bytes, std::size_t count) {
    while (count > 0) {
        const ssize_t written = ::write(file, bytes, count);
        if (written < 0 && errno != EINTR)
            return false;
        if (written > 0) {
            bytes += written;
            count -= static_cast<std::size_t>(written);
        }
    }
    return true;
}

/// A failure of the source's, not of the disk that is written to.
bool SourceFails() {
    errno = ENODATA;
    return false;
}

/// Copies from where both files stand; at most `count` bytes.
bool CopyBytes(int from, int to, off_t count, char* buffer) {
    while (count > 0) {
        const std::size_t part =
            count < static_cast<off_t>(CopyBufferSize) ? static_cast<std::size_t>(count) : CopyBufferSize;
        const ssize_t got = ::read(from, buffer, part);
        if (got == 0)
            return true;  // the source has become shorter
        if (got < 0 && errno != EINTR)
            return SourceFails();
        if (got > 0 && !WriteAll(to, buffer, static_cast<std::size_t>(got)))
            return false;
        count -= got > 0 ? got : 0;
    }
    return true;
}

/// Leaves out the holes of a file, which would become zeros on the disk.
bool CopySparse(int from, int to, off_t size, char* buffer) {
    off_t data = ::lseek(from, 0, SEEK_DATA);
    while (data >= 0 && data < size) {
        const off_t hole = ::lseek(from, data, SEEK_HOLE);
        if (hole < 0 || ::lseek(from, data, SEEK_SET) < 0)
            return SourceFails();
        if (::lseek(to, data, SEEK_SET) < 0 || !CopyBytes(from, to, hole - data, buffer))
            return false;
        data = ::lseek(from, hole, SEEK_DATA);
    }
    if (data < 0 && errno != ENXIO)  // which says that nothing but a hole is left
        return SourceFails();
    return ::ftruncate(to, size) == 0;
}

bool CopyContent(int from, int to, const struct stat& status, char* buffer) {
    constexpr off_t BlockOfStat = 512;
    // One call more than it is worth for a file of a few blocks.
    if (status.st_size > static_cast<off_t>(CopyBufferSize)) {
        if (::ioctl(to, FICLONE, from) == 0)
            return true;
        if (status.st_blocks * BlockOfStat < status.st_size)
            return CopySparse(from, to, status.st_size, buffer);
        // Blocks that are there already are written in larger pieces, in half the time that copy_file_range
        // takes on a local disk; a disk that is full says so now. Not every file system can do it.
        if (::fallocate(to, 0, 0, status.st_size) != 0 && errno == ENOSPC)
            return false;
        // A source that has become shorter meanwhile gives a shorter copy.
        return CopyBytes(from, to, status.st_size, buffer) && ::ftruncate(to, ::lseek(to, 0, SEEK_CUR)) == 0;
    }
    // Files of some systems don't tell their size: up to the end then, wherever that is.
    return CopyBytes(from, to, status.st_size > 0 ? status.st_size : std::numeric_limits<off_t>::max(),
                     buffer);
}

struct NewVersion {
    FileDescriptor file;
    std::string path;
};

/// A fresh file beside the target, or under its name where nobody sees it.
NewVersion Begin(const FilePlace& target, bool isUnseen, mode_t mode) {
    NewVersion version;
    const std::filesystem::path folder =
        isUnseen ? std::filesystem::path() : std::filesystem::path(target.path).parent_path();
    for (int names = 0; names < MostNames; ++names) {
        version.path = isUnseen ? target.path : (folder / TemporaryName()).native();
        version.file.Reset(
            ::openat(target.base, version.path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
        if (version.file.IsOpen() || errno != EEXIST || isUnseen)
            break;
    }
    return version;
}

bool IsReplaceable(const FilePlace& target, const struct stat& old, const struct stat& source) {
    return S_ISREG(old.st_mode) && (old.st_mode & S_IWUSR) != 0 &&
           (old.st_dev != source.st_dev || old.st_ino != source.st_ino) &&
           ::faccessat(target.base, target.path.c_str(), W_OK, AT_EACCESS) == 0;
}

/// Gives a new version that is whole its name.
bool PutInPlace(const NewVersion& version, const FilePlace& target, bool replaces) {
    if (replaces) {
        // Flushed before it gets the name: after a loss of power the name must not stand for an empty file.
        if (::fsync(version.file.Number()) != 0 ||
            ::renameat(target.base, version.path.c_str(), target.base, target.path.c_str()) != 0)
            return false;
        FlushFolder(target.base, std::filesystem::path(target.path).parent_path());
        return true;
    }
    if (::renameat2(target.base, version.path.c_str(), target.base, target.path.c_str(), RENAME_NOREPLACE) ==
        0)
        return true;
    // Not every file system can do it.
    return (errno == EINVAL || errno == ENOSYS) &&
           ::renameat(target.base, version.path.c_str(), target.base, target.path.c_str()) == 0;
}

bool TakeMarks(int file, const struct stat& source, const struct stat* old) {
    if (old != nullptr && !TakeOver(file, *old))
        return false;
    if (old != nullptr && (source.st_mode & S_IWUSR) == 0 &&
        ::fchmod(file, old->st_mode & Permissions & ~WriteRights) != 0)
        return false;
    const timespec times[2] = {{0, UTIME_OMIT}, source.st_mtim};
    return ::futimens(file, times) == 0;
}

/// A source that can't be read is marked all the same.
void MakeSourceWritable(const FilePlace& source, int file, struct stat& status) {
    if (file < 0 && (::fstatat(source.base, source.path.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0 ||
                     S_ISLNK(status.st_mode)))
        return;
    if ((status.st_mode & S_IWUSR) != 0)
        return;
    const mode_t mode = (status.st_mode & 07777) | S_IWUSR;
    if (file >= 0 ? ::fchmod(file, mode) == 0 : ::fchmodat(source.base, source.path.c_str(), mode, 0) == 0)
        status.st_mode |= S_IWUSR;
}

}  // namespace

CopyOutcome CopyBetween(const FilePlace& source, FilePlace target, const CopyOptions& options, char* buffer) {
    struct stat from {};
    const FileDescriptor file = OpenSource(source, options, from);
    if (options.makesSourceWritable)
        MakeSourceWritable(source, file.Number(), from);
    if (!file.IsOpen())
        return CopyOutcome::LeftOut;
    struct stat old {};
    bool replaces = false;
    if (!options.isTargetUnseen) {
        std::filesystem::path end = target.path;
        if (FollowLinks(target.base, end) != FileFailure::None)
            return CopyOutcome::LeftOut;
        target.path = end.native();
        replaces = ::fstatat(target.base, target.path.c_str(), &old, 0) == 0;
        if (replaces && !IsReplaceable(target, old, from))
            return CopyOutcome::LeftOut;
    }
    const mode_t mode = (from.st_mode & Permissions) | (options.copiesMark ? 0 : S_IWUSR);
    // What replaces a private file must not be open to others even for a moment.
    const NewVersion version = Begin(target, options.isTargetUnseen, replaces ? S_IRUSR | S_IWUSR : mode);
    if (!version.file.IsOpen())
        return IsWantOfRoom(errno) ? CopyOutcome::NoRoom : CopyOutcome::LeftOut;
    if (CopyContent(file.Number(), version.file.Number(), from, buffer) &&
        TakeMarks(version.file.Number(), from, replaces ? &old : nullptr) &&
        (options.isTargetUnseen || PutInPlace(version, target, replaces)))
        return CopyOutcome::Copied;
    const CopyOutcome outcome = IsWantOfRoom(errno) ? CopyOutcome::NoRoom : CopyOutcome::LeftOut;
    ::unlinkat(target.base, version.path.c_str(), 0);
    return outcome;
}

Rewriting RewriteBy(const FilePlace& source, const FilePlace& target, char* buffer) {
    struct stat from {};
    const FileDescriptor file = OpenSource(source, {}, from);
    const FileDescriptor to(::openat(target.base, target.path.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat old {};
    if (!file.IsOpen() || !to.IsOpen() || ::fstat(to.Number(), &old) != 0 || !S_ISREG(old.st_mode) ||
        (old.st_dev == from.st_dev && old.st_ino == from.st_ino))
        return Rewriting::NotBegun;
    // Not every file system can do it.
    if (from.st_size > old.st_size && ::fallocate(to.Number(), FALLOC_FL_KEEP_SIZE, 0, from.st_size) != 0 &&
        IsWantOfRoom(errno))
        return Rewriting::NotBegun;
    return CopyContent(file.Number(), to.Number(), from, buffer) &&
                   ::ftruncate(to.Number(), from.st_size) == 0 && TakeMarks(to.Number(), from, &old) &&
                   ::fsync(to.Number()) == 0
               ? Rewriting::Done
               : Rewriting::Unfinished;
}

}  // namespace QsPlatform
