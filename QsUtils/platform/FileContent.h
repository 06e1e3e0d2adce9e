// A file read whole: contract.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "QsUtils/platform/FileFailure.h"
#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// More than any file that the library reads has; a sparse file of terabytes must not fill the memory.
inline constexpr std::size_t LargestFile = std::size_t{1} << 31;

/// All bytes of the file at `path`, a path in the library's form; symbolic links are followed. Nothing when
/// the file can't be read or has more than `limit` bytes, and then `failure`, if given, says why. Only plain
/// files are read: a folder, a pipe or a device is refused at once and never waited for. A file that grows or
/// shrinks meanwhile gives what was there as it was read. Raises memory exhaustion. Any thread may call it.
std::optional<std::string> ReadWholeFile(const CString& path, FileFailure* failure = nullptr,
                                         std::size_t limit = LargestFile);

}  // namespace QsPlatform
