#include "QsUtils/ui/win32/TipPainter.h"

#include <algorithm>

namespace QsUi {

CRect TipPainter::ClientRect() const {
    RECT rect{};
    ::GetClientRect(m_window, &rect);
    return rect;
}

void TipPainter::FillFramed(const CRect& rect, Colour fill) {
    const HBRUSH brush = ::CreateSolidBrush(fill);
    const HGDIOBJ before = ::SelectObject(m_dc, brush);
    // The pen that a context has at first draws the frame.
    ::Rectangle(m_dc, rect.left, rect.top, rect.right, rect.bottom);
    ::SelectObject(m_dc, before);
    ::DeleteObject(brush);
}

void TipPainter::PutText(int x, int y, Colour colour, std::u16string_view text) {
    ::SetBkMode(m_dc, TRANSPARENT);
    ::SetTextColor(m_dc, colour);
    const HGDIOBJ before = ::SelectObject(m_dc, m_font);
    ::TextOutW(m_dc, x, y, QsPlatform::SystemUnits(text.data()),
               static_cast<int>(std::min(text.size(), QsPlatform::MostUnits)));
    ::SelectObject(m_dc, before);
}

}  // namespace QsUi
