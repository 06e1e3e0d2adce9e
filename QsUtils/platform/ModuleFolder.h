// Where this module stands: contract.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// The folder of the module that this code is part of, in the library's form with one backslash at its end;
/// that of the executable when it is part of it. Where it was loaded from counts, also when the process has
/// changed its current folder since. Empty when the system doesn't tell. Any thread may call it.
CString ModuleFolder();

}  // namespace QsPlatform
