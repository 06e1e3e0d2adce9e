// A file read piece by piece: contract.
#pragma once

#include <cstddef>
#include <cstdint>

#include "QsUtils/platform/FileFailure.h"
#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// Reads a file from its beginning to its end. Only plain files are read: a folder, a pipe or a device is
/// refused at once and never waited for. Others may write, rename or remove the file meanwhile. No call
/// throws but for memory exhaustion in the constructor. One object is for one thread at a time.
class FileStream {
public:
    /// Opens the file at `path`, a path in the library's form; symbolic links are followed.
    explicit FileStream(const CString& path);
    FileStream(const FileStream&) = delete;
    FileStream& operator=(const FileStream&) = delete;
    ~FileStream();

    /// The bytes that the file had when it was opened; 0 when it wasn't.
    std::uint64_t Size() const noexcept { return m_size; }
    /// The next bytes, `count` of them at most, written to `bytes`. Returns how many; 0 at the end of the
    /// file and after a failure.
    std::size_t Read(void* bytes, std::size_t count) noexcept;
    /// The first failure; `None` as long as all went well.
    FileFailure Failure() const noexcept { return m_failure; }

private:
    FileFailure Open(const CString& path);

    static constexpr std::intptr_t NoFile = -1;

    std::intptr_t m_file = NoFile;
    std::uint64_t m_size = 0;
    FileFailure m_failure = FileFailure::None;
};

}  // namespace QsPlatform
