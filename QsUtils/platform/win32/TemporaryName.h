// Names of new versions of files.
#pragma once

#include <string>

namespace QsPlatform {

/// A name for a new version that doesn't come from the file's own, which may be as long as a name can be.
std::wstring TemporaryName();

/// Names tried for a new version before giving up.
inline constexpr int MostNames = 1000;

}  // namespace QsPlatform
