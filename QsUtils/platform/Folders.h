// Folders made, removed and recognised: contract. Any thread may call anything; nothing raises but memory
// exhaustion.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// Whether the path names a folder that exists; backslashes at its end are allowed, and links are followed.
bool IsFolder(const CString& path);

/// Makes one folder, whose parent must exist; backslashes at the end are allowed. False when it can't, also
/// when anything of that name exists.
bool CreateFolder(const CString& path);

/// Removes an empty folder; backslashes at the end are allowed. A link to a folder is removed itself, and
/// what it leads to stays.
bool RemoveFolder(const CString& path);

}  // namespace QsPlatform
