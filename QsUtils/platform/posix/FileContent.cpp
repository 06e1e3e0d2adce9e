#include "QsUtils/platform/FileContent.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "QsUtils/platform/NativePath.h"
#include "QsUtils/platform/posix/FileErrors.h"

namespace QsPlatform {

namespace {

/// At first asked of a file whose size the system doesn't tell.
constexpr std::size_t FirstPart = 4096;

/// Opens a plain file; gives its size as it is now.
FileFailure OpenPlainFile(const char* path, int& number, std::size_t& size) {
    struct stat status {};
    if (::stat(path, &status) != 0)
        return FailureOf(errno, FileFailure::MissingFile);
    // Asked before opening as well: to open a pipe would wake its writer.
    if (!S_ISREG(status.st_mode))
        return FileFailure::NotAFile;
    number = ::open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (number < 0)
        return FailureOf(errno, FileFailure::MissingFile);
    if (::fstat(number, &status) != 0)
        return FailureOf(errno, FileFailure::MissingFile);
    size = static_cast<std::size_t>(status.st_size);
    return S_ISREG(status.st_mode) ? FileFailure::None : FileFailure::NotAFile;
}

FileFailure ReadToEnd(int number, std::size_t size, std::size_t limit, std::string& bytes) {
    if (size > limit)
        return FileFailure::TooLarge;
    // One byte more than the file has, so that its end is met without growing.
    bytes.resize(std::max(size + 1, FirstPart));
    std::size_t used = 0;
    for (;;) {
        if (used == bytes.size())
            bytes.resize(used * 2);
        const ssize_t count = ::read(number, bytes.data() + used, bytes.size() - used);
        if (count < 0 && errno != EINTR)
            return FailureOf(errno, FileFailure::Other);
        if (count == 0)
            break;
        used += count < 0 ? 0 : static_cast<std::size_t>(count);
        if (used > limit)
            return FileFailure::TooLarge;
    }
    bytes.resize(used);
    return FileFailure::None;
}

FileFailure Read(const CString& path, std::size_t limit, std::string& bytes) {
    const std::string native = ToNativePath(path).native();
    if (native.find('\0') != std::string::npos)
        return FileFailure::MissingFile;  // no file has a name with a NUL
    int number = -1;
    std::size_t size = 0;
    const FileFailure failure = OpenPlainFile(native.c_str(), number, size);
    const FileDescriptor file(number);
    return failure == FileFailure::None ? ReadToEnd(number, size, limit, bytes) : failure;
}

}  // namespace

std::optional<std::string> ReadWholeFile(const CString& path, FileFailure* failure, std::size_t limit) {
    std::string bytes;
    const FileFailure outcome = Read(path, limit, bytes);
    if (failure != nullptr)
        *failure = outcome;
    if (outcome != FileFailure::None)
        return std::nullopt;
    return std::optional<std::string>(std::move(bytes));
}

}  // namespace QsPlatform
