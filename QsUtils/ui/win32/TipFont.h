// The tip's font.
#pragma once

#include "QsUtils/platform/win32/Windows.h"
#include "QsUtils/ui/Views.h"

namespace QsUi {

/// The font, scaled to the screen; null when the system has no memory for it. The caller gives it back with
/// `DeleteObject`.
HFONT NewFont(const TipFont& font) noexcept;

}  // namespace QsUi
