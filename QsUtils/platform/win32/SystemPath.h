// Paths of any length, handed to calls that take one of 260 units.
#pragma once

#include <string>

#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// The path for the system's calls: as it stands when it is short, otherwise in full and with the prefix that
/// lifts the limit. Empty when it holds a NUL, which no path has.
std::wstring SystemPath(const CString& path);

/// The same in full and with the prefix, also when it is short, so that more can be put behind it. Empty for
/// an empty path as well.
std::wstring UnlimitedPath(const CString& path);

}  // namespace QsPlatform
