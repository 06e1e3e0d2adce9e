#include "QsUtils/platform/FileReplacement.h"

#include <cerrno>
#include <exception>
#include <string>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "QsUtils/platform/NativePath.h"
#include "QsUtils/platform/posix/FileErrors.h"
#include "QsUtils/platform/posix/Replacing.h"

namespace QsPlatform {

namespace {

namespace fs = std::filesystem;

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

}  // namespace

bool FileReplacement::Begin(const CString& path) {
    m_target = ToNativePath(path);
    if (!m_target.has_filename() || m_target.native().find('\0') != std::string::npos)
        return Fail(FileFailure::Other);
    if (const FileFailure failure = FollowLinks(AT_FDCWD, m_target); failure != FileFailure::None)
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
        FlushFolder(AT_FDCWD, folder);
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
