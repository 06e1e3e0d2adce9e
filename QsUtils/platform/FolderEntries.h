// What stands in a folder: contract.
#pragma once

#include <vector>

#include "QsUtils/text/CString.h"

namespace QsPlatform {

struct FolderEntry {
    CString name;           ///< as it stands on disk
    bool isFolder = false;  ///< also for a link that leads to a folder
    bool isDots = false;    ///< "." or ".."
};

/// The entries that a pattern finds: the path of a folder, a backslash, and a last part that may hold
/// wildcards; a pattern without a backslash looks into the current folder. `NameMask` tells what a last part
/// with wildcards matches; without any it is the name of one entry, with or without regard to case as the
/// system's file names are, and a link that leads nowhere is found as well. Wildcards have no meaning before
/// the last part: no folder of such a name is found, unless the system allows one.
///
/// "." and ".." come first where the mask matches them, then the names ascending by upper-cased code unit, on
/// every system and file system alike. The root of a file system has no "." and "..". Nothing for a folder
/// that can't be read, and for a pattern that is empty or ends in a backslash. Raises memory exhaustion. Any
/// thread may call it.
std::vector<FolderEntry> FindEntries(const CString& pattern);

/// Whether `FindEntries` finds anything, at the price of one look where the last part has no wildcard.
bool IsEntryFound(const CString& pattern);

}  // namespace QsPlatform
