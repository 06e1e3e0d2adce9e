// Folders made, removed and recognised: contract. Any thread may call anything; nothing raises but memory
// exhaustion.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// Whether the path names a folder that exists; a backslash at its end is allowed, and links are followed.
bool IsFolder(const CString& path);

/// Makes one folder, whose parent must exist. False when it can't, also when anything of that name exists.
bool CreateFolder(const CString& path);

/// Removes an empty folder. A link to a folder is removed itself, and what it leads to stays.
bool RemoveFolder(const CString& path);

}  // namespace QsPlatform
