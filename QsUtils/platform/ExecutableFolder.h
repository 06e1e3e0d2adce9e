// The folder of the host's executable, beside which the files of an installation stand.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// The folder without a backslash at its end; empty when the system doesn't tell it, or when the executable's
/// path has 260 units or more, as the products that lay out an installation count. Any thread may call it.
CString ExecutableFolder();

}  // namespace QsPlatform
