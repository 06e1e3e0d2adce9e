#include "tests/ui/win32/views/Pixels.h"

Picture::Picture(int width, int height)
    : m_width(width), m_height(height), m_dc(::CreateCompatibleDC(nullptr)) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;  // from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    m_bitmap = ::CreateDIBSection(m_dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    m_bits = static_cast<const std::uint32_t*>(bits);
    m_before = ::SelectObject(m_dc, m_bitmap);
}

Picture::~Picture() {
    ::SelectObject(m_dc, m_before);
    ::DeleteObject(m_bitmap);
    ::DeleteDC(m_dc);
}

std::vector<std::uint32_t> Picture::Pixels() const {
    ::GdiFlush();
    std::vector<std::uint32_t> pixels(m_bits, m_bits + static_cast<std::ptrdiff_t>(m_width) * m_height);
    for (std::uint32_t& pixel : pixels)
        pixel &= 0xFFFFFF;
    return pixels;
}
