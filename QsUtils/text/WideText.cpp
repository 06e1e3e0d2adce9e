#include "QsUtils/text/WideText.h"

namespace QsText {

namespace {

constexpr bool WideIsUtf16 = sizeof(wchar_t) == sizeof(char16_t);

constexpr bool IsHighSurrogate(char32_t unit) {
    return (unit & 0xFFFFFC00) == 0xD800;
}
constexpr bool IsLowSurrogate(char32_t unit) {
    return (unit & 0xFFFFFC00) == 0xDC00;
}

}  // namespace

std::u16string WideToUtf16(std::wstring_view wide) {
    // Most texts have one unit a character: that way is tried first, and left at the first that needs two.
    std::u16string text(wide.size(), u'\0');
    for (std::size_t i = 0; i < wide.size(); ++i) {
        const char32_t character = static_cast<char32_t>(wide[i]);
        if (!WideIsUtf16 && character > 0xFFFF) {
            text.resize(i);
            for (const wchar_t rest : wide.substr(i))
                AppendCharacter(text, static_cast<char32_t>(rest));
            return text;
        }
        text[i] = static_cast<char16_t>(character);
    }
    return text;
}

std::wstring Utf16ToWide(std::u16string_view text) {
    std::wstring wide(text.size(), L'\0');
    std::size_t length = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t character = text[i];
        if (!WideIsUtf16 && IsHighSurrogate(character) && i + 1 < text.size() && IsLowSurrogate(text[i + 1]))
            character = 0x10000 + ((character - 0xD800) << 10) + (static_cast<char32_t>(text[++i]) - 0xDC00);
        wide[length++] = static_cast<wchar_t>(character);
    }
    wide.resize(length);
    return wide;
}

}  // namespace QsText
