// Between UTF-16 and the system's wide characters.
#pragma once

#include <string>
#include <string_view>

namespace QsText {

/// Appends one character in UTF-16. A surrogate passes as it is; a value above 0x10FFFF becomes U+FFFD.
inline void AppendCharacter(std::u16string& text, char32_t character) {
    if (character < 0x10000) {
        text += static_cast<char16_t>(character);
    } else if (character > 0x10FFFF) {
        text += u'\xFFFD';
    } else {
        text += static_cast<char16_t>(0xD7C0 + (character >> 10));
        text += static_cast<char16_t>(0xDC00 + (character & 0x3FF));
    }
}

/// All characters of a wide text, NULs among them, in UTF-16. Lone surrogates pass as they are.
std::u16string WideToUtf16(std::wstring_view wide);

/// All units of a text, NULs among them, as a wide text. Lone surrogates pass as they are.
std::wstring Utf16ToWide(std::u16string_view text);

}  // namespace QsText
