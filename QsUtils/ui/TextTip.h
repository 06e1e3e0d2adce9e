/// @file
/// The text tip: a small window above a point of the screen, for a text that is longer than the place where
/// it stands.
#pragma once

#include "QsUtils/platform/Api.h"
#include "QsUtils/platform/Geometry.h"
#include "QsUtils/text/CString.h"

/// All functions act on the one tip of the process, which never takes the focus. They are for the interface
/// thread, one at a time, and raise nothing but memory exhaustion. Without a display nothing is shown and
/// nothing measured. A host sets the text, asks whether it is longer than its place, then sets the position
/// and the delay. See docs/dialogs.md.
namespace texttip {

/// The colour of the text, 0x00BBGGRR: blue in the highest byte, red in the lowest. It counts from the next
/// painting on; at first the text is blue on a pale yellow.
QSUTILS_API void SetTextColor(unsigned long color);
/// The colour behind the text, likewise.
QSUTILS_API void SetBackgroundColor(unsigned long color);

/// Measures the text and sizes the window for it, 8 pixels wider and 4 higher than the text.
QSUTILS_API void SetShowText(const CString& text);

/// Whether the text's width as last measured is at least the width of `rect` less 4 pixels. Before any text
/// has been set its width is 0.
QSUTILS_API bool IsTextLonger(CRect& rect);

/// Places the window with its left edge at the point and its lower edge 2 pixels above it.
QSUTILS_API void SetWindowPosition(POINT point);

/// Shows the window once after that many milliseconds, or at once for 0. A call replaces what is left of the
/// last one.
QSUTILS_API void ShowWindowDelay(unsigned int milliseconds);

/// Hides the window and forgets a delay that is running.
QSUTILS_API void CloseWindowNow();

}  // namespace texttip
