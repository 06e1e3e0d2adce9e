// A path from the root on: contract.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// The absolute form of a path, in the library's form; a relative path begins in the current folder. "." and
/// ".." are resolved in the text, without a look at the disk. Empty for an empty path, and when the current
/// folder is needed and can't be had. Any thread may call it.
CString FullPath(const CString& path);

}  // namespace QsPlatform
