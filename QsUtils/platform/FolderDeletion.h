// A folder removed where a cursor stands.
#pragma once

#include "QsUtils/platform/FolderCursor.h"

namespace QsPlatform {

/// Removes a subfolder of the folder in which the cursor stands, as `RemoveFolderTree` does; the cursor comes
/// back to there, unless it loses its way.
void RemoveSubfolder(FolderCursor& cursor, const NativeName& name);

}  // namespace QsPlatform
