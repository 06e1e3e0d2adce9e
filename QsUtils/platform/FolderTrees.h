// Whole trees of folders removed, copied and searched: contract. Paths are in the library's form. Depth has
// no limit but the disk's, and links never make a walk endless. Any thread may call anything; nothing raises
// but memory exhaustion.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// Removes a folder with all that is in it, except files that are marked as read-only and the folders that
/// hold them. Links are removed and never followed; a link at `path` is removed itself. True when the folder
/// is gone. The root of the file system is left alone.
bool RemoveFolderTree(const CString& path);

/// Copies what is in a folder into another one, which must exist: files over files of their names as
/// `CopyOneFile` does, subfolders in place of subfolders, which are removed with `RemoveFolderTree` first.
/// Takes the read-only mark off everything in `source`. What fails is left out. Links are followed: a link to
/// a file is copied as that file, a link to a folder as that folder.
///
/// A subfolder of `source` that is on the way already, because a link leads up or because it is the target,
/// becomes an empty folder; so does one that has been copied `MostCopiesOfFolder` times by different links.
///
/// False when something was left out because there was no room for it.
bool CopyFolderContents(const CString& source, const CString& target);

/// The same into an empty folder that nobody looks into yet: files are written straight to their names, and
/// none is marked as read-only, also where its source keeps the mark. Ends as soon as there is no room, and
/// then gives false; what has been copied by then stays.
bool CopyToUnseenFolder(const CString& source, const CString& target);

inline constexpr int MostCopiesOfFolder = 16;

/// Looks for a file or a folder of the exact name `name` below `folder`, depth first and in the order of
/// `FindEntries`. With a `tail`, only where its path holds "\tail\". Gives the path of what it finds,
/// `folder` followed by the way down; empty when it finds nothing.
///
/// A find in a folder is lost when the entry behind it is a folder, and the search goes on there. A folder
/// that links lead to more than once is searched once, and once more for each different part of `tail` that
/// the way to it ends in.
CString FindInTree(const CString& folder, const CString& name, const CString& tail);

}  // namespace QsPlatform
