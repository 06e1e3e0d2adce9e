#include "companion/Text.h"

#include <algorithm>
#include <cstdint>

namespace Companion {

namespace {

struct Character {
    char32_t code = 0;
    std::size_t length = 0;  ///< in bytes; 0 for a malformed one
};

/// The second byte's range tells overlong forms, surrogates and codes above U+10FFFF (RFC 3629, section 4).
Character CharacterAt(std::string_view bytes, std::size_t at) noexcept {
    const auto first = static_cast<std::uint8_t>(bytes[at]);
    if (first < 0x80)
        return {first, 1};
    if (first < 0xC2 || first > 0xF4)
        return {};
    const std::size_t length = first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (bytes.size() - at < length)
        return {};
    std::uint8_t low = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
    std::uint8_t high = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
    char32_t code = first & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i, low = 0x80, high = 0xBF) {
        const auto next = static_cast<std::uint8_t>(bytes[at + i]);
        if (next < low || next > high)
            return {};
        code = code << 6 | (next & 0x3Fu);
    }
    return {code, length};
}

void Append(std::wstring& text, char32_t code) {
    if (sizeof(wchar_t) > 2 || code < 0x10000) {
        text += static_cast<wchar_t>(code);
        return;
    }
    text += static_cast<wchar_t>(0xD800 + ((code - 0x10000) >> 10));
    text += static_cast<wchar_t>(0xDC00 + (code & 0x3FF));
}

void Append(std::string& bytes, char32_t code) {
    if (code < 0x80) {
        bytes += static_cast<char>(code);
        return;
    }
    const int following = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    bytes += static_cast<char>(0xFFu << (7 - following) | code >> (6 * following));
    for (int i = following - 1; i >= 0; --i)
        bytes += static_cast<char>(0x80 | (code >> (6 * i) & 0x3F));
}

bool IsHigh(char32_t unit) noexcept {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsLow(char32_t unit) noexcept {
    return unit >= 0xDC00 && unit < 0xE000;
}

}  // namespace

std::size_t FindMalformed(std::string_view bytes) noexcept {
    for (std::size_t at = 0; at < bytes.size();) {
        const Character next = CharacterAt(bytes, at);
        if (next.length == 0)
            return at;
        at += next.length;
    }
    return std::string_view::npos;
}

std::optional<std::wstring> FromUtf8(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        const Character next = CharacterAt(bytes, at);
        if (next.length == 0)
            return std::nullopt;
        Append(text, next.code);
        at += next.length;
    }
    return text;
}

std::string ToUtf8(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto code = static_cast<char32_t>(text[i]);
        if (IsHigh(code) && i + 1 < text.size() && IsLow(static_cast<char32_t>(text[i + 1])))
            code = 0x10000 + ((code & 0x3FF) << 10 | (static_cast<char32_t>(text[++i]) & 0x3FF));
        Append(bytes, code);
    }
    return bytes;
}

bool HasControls(std::wstring_view text, bool lines) noexcept {
    return std::any_of(text.begin(), text.end(), [lines](wchar_t unit) {
        return (unit < L' ' && !(lines && (unit == L'\t' || unit == L'\n'))) || unit == 0x7F;
    });
}

bool IsEntryName(std::wstring_view name) noexcept {
    return name.find_first_not_of(L". ") != std::wstring_view::npos &&
           name.find_first_of(L"\\/") == std::wstring_view::npos && !HasControls(name, false);
}

std::wstring_view Trimmed(std::wstring_view text) noexcept {
    const std::size_t first = text.find_first_not_of(L" \t\n");
    if (first == std::wstring_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(L" \t\n") - first + 1);
}

std::vector<std::wstring> SplitList(std::wstring_view text) {
    std::vector<std::wstring> parts;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(L';', begin), text.size());
        const std::wstring_view part = Trimmed(text.substr(begin, end - begin));
        if (!part.empty())
            parts.emplace_back(part);
        begin = end + 1;
    }
    return parts;
}

}  // namespace Companion
