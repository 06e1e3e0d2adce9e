// The way to the module's log.
#pragma once

#include <exception>
#include <string_view>

#include "QsUtils/text/CString.h"
#include "QsUtils/text/TextSearch.h"

namespace QsFrame {

/// Writes a message to the log, in the ANSI code page and up to its first NUL; an empty one isn't written.
/// Whatever fails, the caller doesn't hear of it. Any thread may call it, at any time: beyond the end of the
/// module's static objects the line is lost.
void LogMessage(const CString& message) noexcept;

/// What a format takes of an argument: it sees the end of a text in its first NUL.
template <typename Argument>
const Argument& Formatted(const Argument& argument) {
    return argument;
}
inline CString Formatted(const CString& text) {
    return CString(QsText::UpToNul(text.View()));
}

/// The same for a formatted message, in which each text ends at its first NUL.
template <typename... Arguments>
void Log(const char16_t* format, const Arguments&... arguments) noexcept {
    try {
        CString message;
        message.Format(format, Formatted(arguments)...);
        LogMessage(message);
    } catch (const std::exception&) {  // memory exhaustion: the line is lost
    }
}

}  // namespace QsFrame
