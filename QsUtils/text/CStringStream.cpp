// A text on a narrow stream.
#include <ostream>

#include "QsUtils/text/CString.h"

namespace {

void AppendUtf8(std::string& bytes, char32_t character) {
    const auto append = [&bytes](char32_t byte) { bytes += static_cast<char>(byte); };
    if (character < 0x80)
        return append(character);
    if (character < 0x800) {
        append(0xC0 | (character >> 6));
    } else if (character < 0x10000) {
        append(0xE0 | (character >> 12));
        append(0x80 | ((character >> 6) & 0x3F));
    } else {
        append(0xF0 | (character >> 18));
        append(0x80 | ((character >> 12) & 0x3F));
        append(0x80 | ((character >> 6) & 0x3F));
    }
    append(0x80 | (character & 0x3F));
}

}  // namespace

std::ostream& operator<<(std::ostream& stream, const CString& text) {
    std::string bytes;
    const std::u16string_view units = text.View();
    for (std::size_t i = 0; i < units.size(); ++i) {
        char32_t character = units[i];
        const bool high = (character & 0xFC00) == 0xD800;
        if (high && i + 1 < units.size() && (units[i + 1] & 0xFC00) == 0xDC00)
            character = 0x10000 + ((character - 0xD800) << 10) + (static_cast<char32_t>(units[++i]) - 0xDC00);
        else if ((character & 0xF800) == 0xD800)
            character = 0xFFFD;
        AppendUtf8(bytes, character);
    }
    return stream << bytes;
}
