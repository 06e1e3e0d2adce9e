// What putting a new version in the place of a file takes.
#pragma once

#include <filesystem>
#include <string>

#include <sys/stat.h>

#include "QsUtils/platform/FileFailure.h"

namespace QsPlatform {

/// Names tried for a new version before giving up.
inline constexpr int MostNames = 1000;

/// Where a chain of symbolic links ends, whether or not anything is there: what would be written to. `base`
/// is the descriptor from which a relative path starts.
FileFailure FollowLinks(int base, std::filesystem::path& path);

/// Gives the new version the owner and the permissions of the old one, as far as this user may.
bool TakeOver(int file, const struct stat& status);

/// A name for the new version that doesn't come from the file's own, which may be as long as a name can be.
std::string TemporaryName();

/// Makes the entries of a folder last; what can't be flushed is in place all the same.
void FlushFolder(int base, const std::filesystem::path& folder) noexcept;

}  // namespace QsPlatform
