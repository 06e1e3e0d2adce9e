// The linker leads the library's calls of a function here, and gives the function itself its other name.
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <string_view>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/backup/faults/Point.h"

namespace {

using FaultPoints::Outcome;

[[noreturn]] void Die() noexcept {
    for (;;)
        ::kill(::getpid(), SIGKILL);
}

/// Whether the call is made; otherwise it has failed.
bool Passes(bool takesRoom) noexcept {
    switch (FaultPoints::NextPoint(takesRoom)) {
        case Outcome::Killed:
            Die();
        case Outcome::DiskFull:
            errno = ENOSPC;
            return false;
        case Outcome::Error:
            errno = EIO;
            return false;
        default:
            return true;
    }
}

/// Whether a folder bears the name of a version on its way in or out.
bool IsVersionBeside(std::string_view path) noexcept {
    return path.substr(path.rfind('/') + 1).find(".qsutils-") != path.npos;
}

constexpr bool TakesRoom = true;
constexpr bool TakesNone = false;

}  // namespace

extern "C" {

int __real_openat(int base, const char* path, int flags, ...);
int __real_open(const char* path, int flags, ...);
ssize_t __real_write(int file, const void* bytes, size_t count);
int __real_renameat2(int fromBase, const char* from, int toBase, const char* to, unsigned flags);
int __real_ioctl(int file, unsigned long request, ...);

int __wrap_openat(int base, const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return (flags & O_CREAT) == 0 || Passes(TakesRoom) ? __real_openat(base, path, flags, mode) : -1;
}

int __wrap_open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
    va_end(rest);
    return (flags & O_CREAT) == 0 || Passes(TakesRoom) ? __real_open(path, flags, mode) : -1;
}

/// A process is killed, and a disk gets full, behind half of the bytes.
ssize_t __wrap_write(int file, const void* bytes, size_t count) {
    const Outcome outcome = FaultPoints::NextPoint(TakesRoom);
    if (outcome == Outcome::Passes)
        return __real_write(file, bytes, count);
    if (outcome != Outcome::Error && count > 1)
        static_cast<void>(__real_write(file, bytes, count / 2));
    if (outcome == Outcome::Killed)
        Die();
    errno = outcome == Outcome::DiskFull ? ENOSPC : EIO;
    return -1;
}

int __wrap_renameat2(int fromBase, const char* from, int toBase, const char* to, unsigned flags) {
    if ((flags & RENAME_EXCHANGE) != 0 && !FaultPoints::MayExchange()) {
        errno = EINVAL;
        return -1;
    }
    // As what is mounted can't be moved; what stands beside it can.
    if (!FaultPoints::MayMoveFolders() &&
        ((flags & RENAME_EXCHANGE) != 0 || (!IsVersionBeside(from) && IsVersionBeside(to)))) {
        errno = EBUSY;
        return -1;
    }
    return Passes(FaultPoints::RenamesTakeRoom()) ? __real_renameat2(fromBase, from, toBase, to, flags) : -1;
}

int __wrap_ioctl(int file, unsigned long request, void* argument) {
    return request != FICLONE || Passes(TakesRoom) ? __real_ioctl(file, request, argument) : -1;
}

// Those whose arguments pass through as they are.
#define POINT(room, function, parameters, ...)                     \
    int __real_##function parameters;                              \
    int __wrap_##function parameters {                             \
        return Passes(room) ? __real_##function(__VA_ARGS__) : -1; \
    }

POINT(TakesRoom, mkdirat, (int base, const char* path, mode_t mode), base, path, mode)
POINT(TakesNone, unlinkat, (int base, const char* path, int flags), base, path, flags)
POINT(TakesNone, unlink, (const char* path), path)
POINT(FaultPoints::RenamesTakeRoom(), rename, (const char* from, const char* to), from, to)
POINT(FaultPoints::RenamesTakeRoom(), renameat, (int fromBase, const char* from, int toBase, const char* to),
      fromBase, from, toBase, to)
POINT(TakesRoom, fallocate, (int file, int mode, off_t at, off_t size), file, mode, at, size)
POINT(TakesRoom, ftruncate, (int file, off_t size), file, size)
POINT(TakesNone, fchmod, (int file, mode_t mode), file, mode)
POINT(TakesNone, fchmodat, (int base, const char* path, mode_t mode, int flags), base, path, mode, flags)
POINT(TakesNone, fchown, (int file, uid_t owner, gid_t group), file, owner, group)
POINT(TakesNone, futimens, (int file, const timespec* times), file, times)

// Nothing of what is tested here survives a loss of power, so nothing needs to reach the disk.
int __wrap_fsync(int) {
    return Passes(TakesRoom) ? 0 : -1;
}
int __wrap_syncfs(int) {
    return Passes(TakesRoom) ? 0 : -1;
}

}  // extern "C"
