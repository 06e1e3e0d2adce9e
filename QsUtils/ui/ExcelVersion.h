// Which spreadsheet program is installed.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsUi {

/// `IQsUtils1` documents the operation. Any thread may call it.
CString GetExcelInstallVersion();

}  // namespace QsUi
