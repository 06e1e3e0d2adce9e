// Files and folders as hosts name them. `IQsUtils` documents the operations of the same names.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsText {

int CreateFolderAllPath(const CString& path);
void CopyFolderAllFiles(const CString& source, const CString& target, bool clearTarget);
bool DeleteDirectory(const CString& path);
bool IsFileExist(const CString& path);
bool IsFileOpen(const CString& path);
void FindPath(CString& found, const CString& folder, const CString& fileName, const CString& tail);
CString GetInitPath();

}  // namespace QsText
