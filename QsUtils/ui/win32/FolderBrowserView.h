// The system's folder browser.
#pragma once

#include "QsUtils/ui/Views.h"

namespace QsUi {

// `IViews` documents the operations; a folder is an identifier list of the shell.

FolderItem BrowseForFolder(const FolderBrowseInfo& info);
bool GetFolderPath(FolderItem item, char16_t* buffer);
void FreeFolder(FolderItem item);

}  // namespace QsUi
