#include "QsUtils/platform/FileReplacement.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <exception>
#include <string>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "QsUtils/platform/NativePath.h"
#include "QsUtils/platform/posix/FileErrors.h"

namespace QsPlatform {

namespace {

namespace fs = std::filesystem;

/// As many as the kernel itself follows.
constexpr int MostLinks = 40;
/// Names tried for the new version before giving up.
constexpr int MostNames = 1000;

/// Where a chain of symbolic links ends, whether or not anything is there: what would be written to.
FileFailure FollowLinks(fs::path& path) {
    for (int links = 0; links < MostLinks; ++links) {
        std::error_code error;
        const fs::path next = fs::read_symlink(path, error);
        if (error)
            return FileFailure::None;
        path = path.parent_path() / next;
    }
    return FileFailure::Other;
}

/// Whether the file at `path` may be replaced, and what its successor takes over from it. `exists` tells
/// whether there is one.
FileFailure LookAtTarget(const fs::path& path, struct stat& status, bool& exists) {
    exists = ::stat(path.c_str(), &status) == 0;
    if (!exists)
        return errno == ENOENT ? FileFailure::None : FailureOf(errno, FileFailure::MissingFolder);
    if (!S_ISREG(status.st_mode))
        return FileFailure::NotAFile;
    if ((status.st_mode & S_IWUSR) == 0)
        return FileFailure::ReadOnlyTarget;
    // A folder's right to rename is no right to change a file in it that belongs to somebody else.
    if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0)
        return FailureOf(errno, FileFailure::MissingFolder);
    return FileFailure::None;
}

/// Gives the new version the owner and the permissions of the old one, as far as this user may.
bool TakeOver(int file, const struct stat& status) {
    // The owner first, because a change of owner takes special permissions away; those aren't passed on to
    // another owner.
    const bool owned = ::fchown(file, status.st_uid, status.st_gid) == 0;
    if (!owned && ::fchown(file, static_cast<uid_t>(-1), status.st_gid) != 0)
        return ::fchmod(file, status.st_mode & 0707) == 0;  // another group has no claim either
    return ::fchmod(file, status.st_mode & (owned ? 07777 : 0777)) == 0;
}

/// A name that doesn't come from the file's own, which may be as long as a name can be.
std::string TemporaryName() {
    // Constant-initialised and never destroyed.
    static constinit std::atomic<unsigned> count{0};
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME, &now);
    char name[80];
    std::snprintf(name, sizeof(name), ".qsutils-%lx-%lx-%x.tmp", static_cast<unsigned long>(::getpid()),
                  static_cast<unsigned long>(now.tv_nsec), count.fetch_add(1, std::memory_order_relaxed));
    return name;
}

/// Makes an entry of a folder last; what can't be flushed is in place all the same.
void FlushFolder(const fs::path& folder) noexcept {
    const FileDescriptor entry(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (entry.IsOpen())
        static_cast<void>(::fsync(entry.Number()));
}

}  // namespace

bool FileReplacement::Begin(const CString& path) {
    m_target = ToNativePath(path);
    if (!m_target.has_filename() || m_target.native().find('\0') != std::string::npos)
        return Fail(FileFailure::Other);
    if (const FileFailure failure = FollowLinks(m_target); failure != FileFailure::None)
        return Fail(failure);
    struct stat status {};
    bool exists = false;
    if (const FileFailure failure = LookAtTarget(m_target, status, exists); failure != FileFailure::None)
        return Fail(failure);
    // The mode of a new file is the user's choice by umask; a private one must not be open even for a moment.
    const mode_t mode = exists ? S_IRUSR | S_IWUSR : 0666;
    for (int names = 0; m_file == NoFile && names < MostNames; ++names) {
        fs::path beside = m_target.parent_path() / TemporaryName();
        m_file = ::open(beside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (m_file != NoFile)
            m_temporary = std::move(beside);
        else if (errno != EEXIST)
            break;
    }
    if (m_file == NoFile)
        return Fail(FailureOf(errno, FileFailure::MissingFolder));
    if (exists && !TakeOver(static_cast<int>(m_file), status))
        return Fail(FailureOf(errno, FileFailure::Other));
    return true;
}

bool FileReplacement::Write(const void* bytes, std::size_t count) noexcept {
    if (m_ended)
        return false;
    const char* from = static_cast<const char*>(bytes);
    while (count > 0) {
        const ssize_t written = ::write(static_cast<int>(m_file), from, count);
        if (written < 0 && errno != EINTR)
            return Fail(FailureOf(errno, FileFailure::Other));
        if (written > 0) {
            from += written;
            count -= static_cast<std::size_t>(written);
        }
    }
    return true;
}

bool FileReplacement::Commit() noexcept {
    if (m_ended)
        return false;
    // Flushed before it gets the name: after a loss of power the name must not stand for an empty file.
    if (::fsync(static_cast<int>(m_file)) != 0)
        return Fail(FailureOf(errno, FileFailure::Other));
    if (::close(static_cast<int>(std::exchange(m_file, NoFile))) != 0)
        return Fail(FailureOf(errno, FileFailure::Other));
    if (::rename(m_temporary.c_str(), m_target.c_str()) != 0)
        return Fail(FailureOf(errno, FileFailure::MissingFolder));
    m_ended = true;
    m_temporary.clear();
    try {
        const fs::path folder = m_target.parent_path();
        FlushFolder(folder.empty() ? fs::path(".") : folder);
    } catch (const std::exception&) {
        return true;  // out of memory: in place, if not flushed
    }
    return true;
}

void FileReplacement::Discard() noexcept {
    m_ended = true;
    if (m_file != NoFile)
        ::close(static_cast<int>(std::exchange(m_file, NoFile)));
    if (!m_temporary.empty()) {
        ::unlink(m_temporary.c_str());
        m_temporary.clear();
    }
}

}  // namespace QsPlatform
