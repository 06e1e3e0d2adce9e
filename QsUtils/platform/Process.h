// The process that the module lives in: contract.
#pragma once

#include <cstdint>

#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// The full path of the host's executable in the library's form, with backslashes; empty when the system
/// doesn't tell. Any thread may call it.
CString ExecutablePath();

/// Milliseconds since some fixed moment before the process began, by a clock that nobody sets back; wraps to
/// 0 after 49.7 days. Two readings on one thread never go down but for that. Any thread may call it.
std::uint32_t TickCount() noexcept;

/// Shows a message and waits until it is closed. Without a screen the message goes to standard error and the
/// call returns at once. Never throws.
void ShowMessage(const CString& text) noexcept;

}  // namespace QsPlatform
