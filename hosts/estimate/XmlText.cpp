#include "XmlText.h"

#include <algorithm>
#include <array>
#include <cstdio>

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

std::string WhyNoXml(std::string_view text) {
    if (IsPlain(text))
        return {};
    if (!IsUtf8(text))
        return "the text isn't Unicode";
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = NextCharacter(text, at);
        if (IsXmlCharacter(character))
            continue;
        std::array<char, 16> name{};
        std::snprintf(name.data(), name.size(), "U+%04X", static_cast<unsigned>(character));
        return "XML can't hold the character " + std::string(name.data());
    }
    return {};
}

}  // namespace Estimate
