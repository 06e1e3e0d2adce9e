// What the systems give of a folder, before it is put in order.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "QsUtils/platform/EntryNames.h"
#include "QsUtils/platform/FolderEntries.h"
#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// The entries of a folder whose names the mask matches, `most` of them, in no order; none when the folder
/// can't be read. The root of a file system has no "." and "..", every other folder has both.
std::vector<FolderEntry> ListFolder(const CString& folder, const NameMask& mask, std::size_t most);

/// The entry that a path names; none when there is none, or the path ends in a backslash. A link is an entry
/// also when it leads nowhere.
std::optional<FolderEntry> FindEntry(const CString& path);

}  // namespace QsPlatform
