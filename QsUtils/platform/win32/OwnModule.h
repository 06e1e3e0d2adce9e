// The module that this code is part of.
#pragma once

#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

/// The library's own, or the executable when the library is part of it; null when the system doesn't tell.
/// Nothing is to be released. Any thread may call it.
HMODULE OwnModule() noexcept;

}  // namespace QsPlatform
