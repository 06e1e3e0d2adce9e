// Folders that the system keeps for the process and its user: contract.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// What a buffer for a path holds in the products' programs, with its NUL. A longer path would be theirs cut
/// short; here it is a failure of the call.
inline constexpr int PathBuffer = 260;

// Each gives an absolute path in the library's form, with or without a backslash at its end, or the empty
// text when there is none or it doesn't fit a buffer of `PathBuffer` units. Whether a folder exists isn't
// looked at, and none is made. Any thread may call them.

/// The folder for temporary files, fit for the buffer with a backslash at its end. TMP of the environment
/// counts first, then TEMP, each unless it is empty; what the system falls back to stands in
/// docs/directories.md.
CString TemporaryFolder();

/// The current folder of the process.
CString CurrentFolder();

/// The user's folder of documents.
CString DocumentsFolder();

}  // namespace QsPlatform
