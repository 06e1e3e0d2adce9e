// Texts of paths and versions; no disk is looked at. `IQsUtils` documents the operations of the same names.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsText {

int VersionBig(const CString& a, const CString& b, bool withThirdPart);
CString PickFileNameFromPath(const CString& path);
CString RemoveRelativeDirectoryFromPath(const CString& path);
CString RemoveRelativeDirectory(const CString& path);

}  // namespace QsText
