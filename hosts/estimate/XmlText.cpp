#include "XmlText.h"

#include <algorithm>
#include <cstdint>

#include "Utf8.h"

namespace Estimate {
namespace {

bool IsXmlCharacter(char32_t character) {
    if (character < 0x20)
        return character == U'\t' || character == U'\n' || character == U'\r';
    return character != 0xFFFE && character != 0xFFFF;
}

/// Whether a look at each character is due: texts rarely hold anything strange.
bool IsPlain(std::string_view text) {
    return std::ranges::all_of(text, [](char byte) { return byte >= ' ' && byte <= '~'; });
}

}  // namespace

Message WhyNoXml(std::string_view text) {
    if (IsPlain(text))
        return {};
    if (!IsUtf8(text))
        return Say<Text::TextNoUnicode>();
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = NextCharacter(text, at);
        if (IsXmlCharacter(character))
            continue;
        return Say<Text::TextNoXml>(fmt::format("U+{:04X}", static_cast<std::uint32_t>(character)));
    }
    return {};
}

}  // namespace Estimate
