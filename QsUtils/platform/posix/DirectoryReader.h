// The entries of an open folder, as the kernel gives them.
#pragma once

#include <cstddef>

#include <dirent.h>

namespace QsPlatform {

/// Reads a folder to its end, through memory of the caller's, so that a walk needs no more of it than one
/// folder. Asks the kernel directly: the stream of the C library allocates for each folder, and reads in
/// small parts.
class DirectoryReader {
public:
    /// Room for some thousand entries a call.
    static constexpr std::size_t BufferSize = std::size_t{1} << 16;

    /// `folder` is a descriptor that stays the caller's, read from where it stands; `buffer` has `BufferSize`
    /// bytes and an alignment of 8, and both must outlive the reader.
    DirectoryReader(int folder, char* buffer) noexcept : m_folder(folder), m_buffer(buffer) {}

    /// The next entry, "." and ".." among them, valid until the call after it; null at the end and after a
    /// failure.
    const dirent64* Next() noexcept {
        if (m_at == m_end && !Fill())
            return nullptr;
        const auto* entry = reinterpret_cast<const dirent64*>(m_buffer + m_at);
        m_at += entry->d_reclen;
        return entry;
    }

private:
    bool Fill() noexcept;

    int m_folder;
    char* m_buffer;
    std::size_t m_at = 0;
    std::size_t m_end = 0;
};

/// Whether a name is "." or "..".
inline bool IsDots(const char* name) noexcept {
    return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

/// Whether an entry of an open folder is a folder itself, or a link that leads to one.
bool LeadsToFolder(int folder, const dirent64& entry) noexcept;

}  // namespace QsPlatform
