#include "Utf8.h"

namespace Estimate {
namespace {

constexpr char32_t Replacement = 0xFFFD;

void Append(char32_t character, std::string& out) {
    const auto put = [&out](char32_t byte) { out.push_back(static_cast<char>(byte)); };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xC0 | (character >> 6));
        put(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        put(0xE0 | (character >> 12));
        put(0x80 | ((character >> 6) & 0x3F));
        put(0x80 | (character & 0x3F));
    } else {
        put(0xF0 | (character >> 18));
        put(0x80 | ((character >> 12) & 0x3F));
        put(0x80 | ((character >> 6) & 0x3F));
        put(0x80 | (character & 0x3F));
    }
}

}  // namespace

void Utf8Check::Feed(std::string_view bytes) noexcept {
    for (const char byte : bytes)
        Feed(static_cast<std::uint8_t>(byte));
}

void Utf8Check::Feed(std::uint8_t byte) noexcept {
    if (m_missing > 0) {
        m_valid = m_valid && byte >= m_low && byte <= m_high;
        --m_missing;
        m_low = 0x80;
        m_high = 0xBF;
        return;
    }
    if (byte < 0x80)
        return;
    if (byte >= 0xC2 && byte <= 0xDF) {
        m_missing = 1;
    } else if (byte >= 0xE0 && byte <= 0xEF) {
        m_missing = 2;
        m_low = byte == 0xE0 ? 0xA0 : 0x80;
        m_high = byte == 0xED ? 0x9F : 0xBF;
    } else if (byte >= 0xF0 && byte <= 0xF4) {
        m_missing = 3;
        m_low = byte == 0xF0 ? 0x90 : 0x80;
        m_high = byte == 0xF4 ? 0x8F : 0xBF;
    } else {
        m_valid = false;
    }
}

bool IsUtf8(std::string_view bytes) noexcept {
    Utf8Check check;
    check.Feed(bytes);
    return check.IsValid();
}

char32_t NextCharacter(std::string_view text, std::size_t& at) noexcept {
    const auto lead = static_cast<std::uint8_t>(text[at]);
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    const std::string_view bytes = text.substr(at, length);
    if (bytes.size() < length || !IsUtf8(bytes)) {
        ++at;
        return Replacement;
    }
    at += length;
    constexpr std::uint8_t payload[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    char32_t character = static_cast<char32_t>(lead & payload[length]);
    for (std::size_t i = 1; i < length; ++i)
        character = (character << 6) | (static_cast<std::uint8_t>(bytes[i]) & 0x3Fu);
    return character;
}

CString FromUtf8(std::string_view text) {
    std::u16string units;
    units.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const char byte = text[at];
        if (static_cast<std::uint8_t>(byte) < 0x80) {
            units.push_back(static_cast<char16_t>(byte));
            ++at;
            continue;
        }
        const char32_t character = NextCharacter(text, at);
        if (character < 0x10000) {
            units.push_back(static_cast<char16_t>(character));
        } else {
            units.push_back(static_cast<char16_t>(0xD7C0 + (character >> 10)));
            units.push_back(static_cast<char16_t>(0xDC00 | (character & 0x3FF)));
        }
    }
    return CString(std::move(units));
}

std::string ToUtf8(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t character = text[i];
        if (character >= 0xD800 && character <= 0xDFFF) {
            const bool paired =
                character <= 0xDBFF && i + 1 < text.size() && (text[i + 1] & 0xFC00) == 0xDC00;
            character = paired ? (character << 10) + text[i + 1] - 0x35FDC00 : Replacement;
            i += paired ? 1 : 0;
        }
        Append(character, out);
    }
    return out;
}

}  // namespace Estimate
