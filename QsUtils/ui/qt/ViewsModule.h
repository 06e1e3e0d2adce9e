// What the library and the module of its Qt views know of one another.
#pragma once

#include <string_view>

#include "QsUtils/ui/Views.h"

namespace QsUi::ViewsModule {

/// Below the folder of the library. No program is ever linked with it, so it doesn't lie among those that
/// are; and another major version of the library may have its own.
inline constexpr std::u16string_view FileName = u"qsutils-1\\QsUtilsQt.so";

/// Grows with every change of the contract in Views.h.
inline constexpr int Version = 2;
inline constexpr int ReasonBuffer = 256;

/// The function that the module exports, as `EntryName`. Gives its views, which are good until the module is
/// released; null, with a NUL-terminated reason written to a buffer of `ReasonBuffer` units, for another
/// version and when no window can be shown.
using Entry = IViews*(int version, char16_t* reason);
inline constexpr const char* EntryName = "QsUtilsQtViews";

}  // namespace QsUi::ViewsModule
