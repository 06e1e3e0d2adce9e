// A file that grows at its end: contract.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>

namespace QsPlatform {

/// A plain file open for reading and for writing at its end; a file that isn't there is created, its folder
/// isn't. A file marked as read-only (on Linux: without the owner's right to write) is refused, whoever asks,
/// and so is a folder, a pipe or a device, which is never waited for. Others may read and append meanwhile.
/// No call throws. One object is for one thread at a time.
class AppendedFile {
public:
    enum class State {
        Open,
        NotCreated,  ///< there is no file, and none can be made
        NotOpened,   ///< there is a file, which this program may not read and write
    };
    enum class Renewal { Done, NotRemoved, NotCreated };

    /// `path` is in the system's form.
    explicit AppendedFile(const std::filesystem::path& path) noexcept;
    AppendedFile(const AppendedFile&) = delete;
    AppendedFile& operator=(const AppendedFile&) = delete;
    ~AppendedFile();

    State Opened() const noexcept { return m_state; }
    /// The bytes that the file had when it was opened, also when it could not be; 0 when there was none.
    std::uint64_t Size() const noexcept { return m_size; }

    /// Removes the file, open or not, and opens a new one in its place.
    Renewal Renew() noexcept;
    /// Appends all bytes in one step where the system can. False when it didn't.
    bool Write(const void* bytes, std::size_t count) noexcept;

private:
    State Open() noexcept;
    State Refused() noexcept;
    void Close() noexcept;

    static constexpr std::intptr_t NoFile = -1;

    const std::filesystem::path& m_path;
    std::intptr_t m_file = NoFile;
    std::uint64_t m_size = 0;
    State m_state = State::NotOpened;
};

}  // namespace QsPlatform
