// Folders made, removed and recognised: contract. Any thread may call anything; nothing raises but memory
// exhaustion.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// Whether the path names a folder that exists; backslashes at its end are allowed, and links are followed.
bool IsFolder(const CString& path);

/// Whether the path names the root of a file system on Windows, or the one root on Linux.
bool IsRootFolder(const CString& path);

/// Whether the path names a link, wherever it leads; backslashes at its end are allowed.
bool IsLink(const CString& path);

/// Makes one folder, whose parent must exist; backslashes at the end are allowed. False when it can't, also
/// when anything of that name exists; `lacksRoom`, if given, then says whether it was for want of room, as
/// `CopyOneFile` means it.
bool CreateFolder(const CString& path, bool* lacksRoom = nullptr);

/// Removes an empty folder; backslashes at the end are allowed. A link to a folder is removed itself, and
/// what it leads to stays.
bool RemoveFolder(const CString& path);

/// The path itself when it is absolute, otherwise the one from the current folder that means the same; a
/// backslash at the end stays. On Windows every path that isn't absolute is put in full.
CString AbsolutePath(const CString& path);

}  // namespace QsPlatform
