/// @file
/// Between the library's form of a path and the system's own.
#pragma once

#include <filesystem>

#include "QsUtils/platform/Api.h"
#include "QsUtils/text/CString.h"

/// The system's path for a path in the library's form, whose folders are separated by backslashes. On Linux
/// every backslash becomes a slash and the text is encoded in UTF-8, a lone surrogate in the three bytes that
/// UTF-8 would give it, so that the way back restores it. On Windows the text stays as it is.
QSUTILS_API std::filesystem::path ToNativePath(const CString& path);

/// The library's form of a system's path: on Linux every slash becomes a backslash. A byte that isn't UTF-8
/// becomes U+FFFD.
QSUTILS_API CString FromNativePath(const std::filesystem::path& path);
