// The way to the module's log.
#pragma once

#include <exception>

#include "QsUtils/text/CString.h"

namespace QsFrame {

/// Writes a message to the log, in the ANSI code page and up to its first NUL; an empty one isn't written.
/// Whatever fails, the caller doesn't hear of it. Any thread may call it, at any time: beyond the end of the
/// module's static objects the line is lost.
void LogMessage(const CString& message) noexcept;

/// The same for a formatted message.
template <typename... Arguments>
void Log(const char16_t* format, const Arguments&... arguments) noexcept {
    try {
        CString message;
        message.Format(format, arguments...);
        LogMessage(message);
    } catch (const std::exception&) {  // memory exhaustion: the line is lost
    }
}

}  // namespace QsFrame
