// A file replaced whole: contract.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>

#include "QsUtils/platform/FileFailure.h"
#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// Writes a new version of a file beside the old one and puts it in place in one step, so that at every
/// moment the name stands for the whole old file or the whole new one, also when the process is killed or the
/// disk is full. A new version that isn't committed is removed with the object; nothing is left behind but by
/// a process that is killed.
///
/// The file keeps its permissions. A symbolic link stays, and what it leads to is replaced. A file that is
/// marked as read-only (on Linux: without the owner's right to write) is refused, whoever asks. A file that
/// isn't there is created; its folder isn't.
///
/// No call throws. One object is for one thread at a time; of two objects for one file the last to commit
/// wins.
class FileReplacement {
public:
    /// Begins a new version of the file at `path`, a path in the library's form. If that fails, so do all
    /// further calls.
    explicit FileReplacement(const CString& path) noexcept;
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;
    ~FileReplacement();

    /// Appends bytes to the new version, unbuffered. False on failure; the new version is then lost.
    bool Write(const void* bytes, std::size_t count) noexcept;
    /// Flushes the new version to the disk and puts it in place. False on failure; the old file then stands
    /// as it was. Works once.
    bool Commit() noexcept;
    /// The first failure so far; `None` as long as all went well.
    FileFailure Failure() const noexcept { return m_failure; }

private:
    bool Begin(const CString& path);
    bool Fail(FileFailure failure) noexcept;
    void Discard() noexcept;

    static constexpr std::intptr_t NoFile = -1;

    // In the system's own form: bytes or wide text.
    std::filesystem::path m_target;
    std::filesystem::path m_temporary;
    std::intptr_t m_file = NoFile;
    bool m_ended = false;
    FileFailure m_failure = FileFailure::None;
};

}  // namespace QsPlatform
