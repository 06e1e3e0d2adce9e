#include "QsUtils/platform/SharedText.h"

#include <algorithm>
#include <cerrno>
#include <string>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "QsUtils/platform/Utf8.h"
#include "QsUtils/platform/posix/FileErrors.h"
#include "QsUtils/platform/posix/TextOfBytes.h"

namespace QsPlatform {

namespace {

/// Whether it is memory that a program of this user shares. Everybody may leave anything under these names: a
/// pipe, a link, or an object by which somebody else would tell this user what is open.
bool IsOwnMemory(const FileDescriptor& object, std::size_t& size) {
    struct stat status {};
    if (!object.IsOpen() || ::fstat(object.Number(), &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_uid != ::geteuid())
        return false;
    size = static_cast<std::size_t>(status.st_size);
    return true;
}

/// Read and not mapped: the owner may cut a mapping short under its reader, who would end with a signal.
std::string ReadBytes(const FileDescriptor& object, std::size_t count) {
    std::string bytes(count, '\0');
    std::size_t used = 0;
    while (used < count) {
        const ssize_t got =
            ::pread(object.Number(), bytes.data() + used, count - used, static_cast<off_t>(used));
        if (got == 0 || (got < 0 && errno != EINTR))
            break;
        used += got < 0 ? 0 : static_cast<std::size_t>(got);
    }
    bytes.resize(used);
    return bytes;
}

}  // namespace

std::optional<CString> ReadSharedText(const CString& name) {
    const std::string native = "/" + EncodeUtf8(name.View());
    // Links aren't followed by this call, and without waiting a pipe is opened as well.
    const FileDescriptor object(::shm_open(native.c_str(), O_RDONLY | O_NONBLOCK, 0));
    std::size_t size = 0;
    if (!IsOwnMemory(object, size))
        return std::nullopt;
    return TextOfBytes(ReadBytes(object, std::min(size, LargestSharedText)));
}

}  // namespace QsPlatform
