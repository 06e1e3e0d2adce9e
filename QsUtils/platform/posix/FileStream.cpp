#include "QsUtils/platform/FileStream.h"

#include <cerrno>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "QsUtils/platform/NativePath.h"
#include "QsUtils/platform/posix/FileErrors.h"

namespace QsPlatform {

FileStream::FileStream(const CString& path) : m_failure(Open(path)) {}

FileStream::~FileStream() {
    if (m_file != NoFile)
        ::close(static_cast<int>(m_file));
}

FileFailure FileStream::Open(const CString& path) {
    const std::string native = ToNativePath(path).native();
    if (native.find('\0') != std::string::npos)
        return FileFailure::MissingFile;  // no file has a name with a NUL
    struct stat status {};
    // Asked before opening as well: to open a pipe would wake its writer.
    if (::stat(native.c_str(), &status) != 0)
        return FailureOf(errno, FileFailure::MissingFile);
    if (!S_ISREG(status.st_mode))
        return FileFailure::NotAFile;
    m_file = ::open(native.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (m_file == NoFile || ::fstat(static_cast<int>(m_file), &status) != 0)
        return FailureOf(errno, FileFailure::MissingFile);
    if (!S_ISREG(status.st_mode))
        return FileFailure::NotAFile;
    m_size = static_cast<std::uint64_t>(status.st_size);
    return FileFailure::None;
}

std::size_t FileStream::Read(void* bytes, std::size_t count) noexcept {
    while (m_failure == FileFailure::None) {
        const ssize_t got = ::read(static_cast<int>(m_file), bytes, count);
        if (got >= 0)
            return static_cast<std::size_t>(got);
        if (errno != EINTR)
            m_failure = FailureOf(errno, FileFailure::Other);
    }
    return 0;
}

}  // namespace QsPlatform
