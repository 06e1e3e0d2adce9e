#include "QsUtils/platform/posix/Replacing.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <ctime>

#include <fcntl.h>
#include <linux/limits.h>
#include <unistd.h>

#include "QsUtils/platform/AbandonedVersions.h"
#include "QsUtils/platform/posix/FileErrors.h"

namespace QsPlatform {

namespace {

/// As many as the kernel itself follows.
constexpr int MostLinks = 40;

}  // namespace

FileFailure FollowLinks(int base, std::filesystem::path& path) {
    char next[PATH_MAX];
    for (int links = 0; links < MostLinks; ++links) {
        const ssize_t length = ::readlinkat(base, path.c_str(), next, sizeof next);
        if (length < 0)
            return FileFailure::None;
        path = path.parent_path() / std::string(next, static_cast<std::size_t>(length));
    }
    return FileFailure::Other;
}

bool TakeOver(int file, const struct stat& status) {
    // The owner first, because a change of owner takes special permissions away; those aren't passed on to
    // another owner.
    const bool owned = ::fchown(file, status.st_uid, status.st_gid) == 0;
    if (!owned && ::fchown(file, static_cast<uid_t>(-1), status.st_gid) != 0)
        return ::fchmod(file, status.st_mode & 0707) == 0;  // another group has no claim either
    return ::fchmod(file, status.st_mode & (owned ? 07777 : 0777)) == 0;
}

std::string TemporaryName() {
    // Constant-initialised and never destroyed.
    static constinit std::atomic<unsigned> count{0};
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    char name[80];
    std::snprintf(name, sizeof(name), ".qsutils-%x-%x-%lx-%x.tmp", ThisMachine(), ThisProcess(),
                  static_cast<unsigned long>(now.tv_nsec), count.fetch_add(1, std::memory_order_relaxed));
    return name;
}

void FlushFolder(int base, const std::filesystem::path& folder) noexcept {
    const FileDescriptor entry(
        ::openat(base, folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (entry.IsOpen())
        static_cast<void>(::fsync(entry.Number()));
}

}  // namespace QsPlatform
