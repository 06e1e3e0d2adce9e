// The writer of the module's log, one file beside the host's executable.
#pragma once

#include <filesystem>
#include <string_view>

#include "QsUtils/platform/Handles.h"
#include "QsUtils/text/CString.h"

namespace QsFrame {

/// Writes lines to one file that restarts itself past ten megabytes. Lines of one process don't interleave,
/// whichever threads write them; those of two processes may. The file is opened and closed for each line.
class CLogWriter {
public:
    /// What an operation gives. Nobody in the library asks.
    enum Result : int { Done = 1, EmptyMessage = 0, NotCreated = -2, NotOpened = -3 };

    /// The largest file that is still appended to, in bytes.
    static constexpr std::uint32_t LargestFile = 10 * 1024 * 1024;

    /// The log of an executable, both in the library's form: in the folder "Log" beside it; in that of "c:\"
    /// when the path has no backslash behind its first character or takes 256 bytes or more.
    static CString PathBeside(const CString& executable);

    /// For the log of this process's executable.
    CLogWriter();
    explicit CLogWriter(const CString& path);
    CLogWriter(const CLogWriter&) = delete;
    CLogWriter& operator=(const CLogWriter&) = delete;
    ~CLogWriter();

    /// Writes one line with the date, the time and the calling thread's id in front: `message` is in the ANSI
    /// code page, and each of its line feeds becomes CR LF. A file past the limit is removed first; if that
    /// fails the line is lost, and the result is `Done` all the same.
    int Write(std::string_view message);

private:
    std::filesystem::path m_path;  // in the system's form
    HANDLE m_hMutex;
};

}  // namespace QsFrame
