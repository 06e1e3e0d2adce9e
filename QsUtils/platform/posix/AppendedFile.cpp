#include "QsUtils/platform/AppendedFile.h"

#include <cerrno>
#include <string>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace QsPlatform {

namespace {

constexpr mode_t NewFileMode = 0666;  // as far as the user's mask lets it

bool IsWritable(const struct stat& status) {
    return S_ISREG(status.st_mode) && (status.st_mode & S_IWUSR) != 0;
}

int OpenFile(const std::filesystem::path& path, int flags) {
    // A pipe is not waited for, and a terminal isn't taken over.
    return ::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, NewFileMode);
}

}  // namespace

AppendedFile::AppendedFile(const std::filesystem::path& path) noexcept : m_path(path), m_state(Open()) {}

AppendedFile::~AppendedFile() {
    Close();
}

void AppendedFile::Close() noexcept {
    if (m_file != NoFile)
        ::close(static_cast<int>(std::exchange(m_file, NoFile)));
}

AppendedFile::State AppendedFile::Open() noexcept {
    if (m_path.native().find('\0') != std::string::npos)
        return State::NotCreated;  // no file has a name with a NUL
    m_file = OpenFile(m_path, O_RDWR | O_APPEND | O_CREAT);
    if (m_file == NoFile)
        return Refused();
    struct stat status {};
    if (::fstat(static_cast<int>(m_file), &status) != 0)
        return State::NotOpened;
    m_size = static_cast<std::uint64_t>(status.st_size);
    if (IsWritable(status))
        return State::Open;
    Close();
    return State::NotOpened;
}

AppendedFile::State AppendedFile::Refused() noexcept {
    struct stat status {};
    if (errno == ENOENT || errno == ENOTDIR || ::stat(m_path.c_str(), &status) != 0)
        return State::NotCreated;
    m_size = S_ISREG(status.st_mode) ? static_cast<std::uint64_t>(status.st_size) : 0;
    return State::NotOpened;
}

AppendedFile::Renewal AppendedFile::Renew() noexcept {
    Close();
    struct stat status {};
    if (::stat(m_path.c_str(), &status) != 0 || !IsWritable(status) || ::unlink(m_path.c_str()) != 0)
        return Renewal::NotRemoved;
    m_file = OpenFile(m_path, O_WRONLY | O_APPEND | O_CREAT | O_TRUNC);
    m_size = 0;
    return m_file == NoFile ? Renewal::NotCreated : Renewal::Done;
}

bool AppendedFile::Write(const void* bytes, std::size_t count) noexcept {
    const char* next = static_cast<const char*>(bytes);
    while (count > 0) {
        const ssize_t written = ::write(static_cast<int>(m_file), next, count);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        next += written;
        count -= static_cast<std::size_t>(written);
    }
    return true;
}

}  // namespace QsPlatform
