// Draws the tip.
#pragma once

#include "QsUtils/platform/win32/Windows.h"
#include "QsUtils/ui/Views.h"

namespace QsUi {

/// Draws the client area of a window into a device context, which is the caller's as the font is. The context
/// is left as it was but for the mode and the colour of texts.
class TipPainter final : public ITipPainter {
public:
    TipPainter(HWND window, HDC dc, HFONT font) noexcept : m_window(window), m_dc(dc), m_font(font) {}

    CRect ClientRect() const override;
    void FillFramed(const CRect& rect, Colour fill) override;
    void PutText(int x, int y, Colour colour, std::u16string_view text) override;

private:
    HWND m_window;
    HDC m_dc;
    HFONT m_font;
};

}  // namespace QsUi
