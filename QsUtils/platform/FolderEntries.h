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
/// wildcards; a pattern without a backslash looks into the current folder. "*" stands for any number of
/// units, "?" for one, or for none at the end of a name or before a point; "*.*" finds every name. Names
/// match as the system's file names do, wildcards without regard to case. "." and ".." come first where the
/// pattern finds them, then the names ascending by upper-cased code unit. Nothing for a folder that can't be
/// read, for a pattern that ends in a backslash, and for wildcards before the last part. Any thread may call
/// it.
std::vector<FolderEntry> FindEntries(const CString& pattern);

/// Whether `FindEntries` finds anything, at the price of one look where the last part has no wildcard.
bool IsEntryFound(const CString& pattern);

}  // namespace QsPlatform
