#include "QsUtils/ui/win32/TipFont.h"

#include <algorithm>

namespace QsUi {

HFONT NewFont(const TipFont& font) noexcept {
    constexpr int perInch = 720;  // tenths of a point
    const HDC screen = ::GetDC(nullptr);
    LOGFONTW wanted{};
    // Negative for the height of the characters, without what stands above them. What is left over falls
    // away.
    wanted.lfHeight = -(::GetDeviceCaps(screen, LOGPIXELSY) * font.size / perInch);
    wanted.lfCharSet = DEFAULT_CHARSET;
    const std::size_t length = std::min<std::size_t>(font.face.size(), LF_FACESIZE - 1);
    std::copy_n(QsPlatform::SystemUnits(font.face.data()), length, wanted.lfFaceName);
    ::ReleaseDC(nullptr, screen);
    return ::CreateFontIndirectW(&wanted);
}

}  // namespace QsUi
