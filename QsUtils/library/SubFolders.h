// The folders below a folder, which are the levels of the library tree.
#pragma once

#include <initializer_list>
#include <vector>

#include "QsUtils/text/CString.h"

namespace QsLibrary {

/// The names of the folders that a pattern finds (see platform/FolderEntries.h), as they stand on disk and in
/// its order. A name of nothing but spaces is left out, and so is one that without the spaces around it
/// equals one of `exclusions`.
std::vector<CString> FoldersFound(const CString& pattern, std::initializer_list<const char16_t*> exclusions);

/// The same of all folders in a folder, with or without backslashes at its end.
std::vector<CString> SubFolders(const CString& folder, std::initializer_list<const char16_t*> exclusions);

}  // namespace QsLibrary
