// Texts as printable ASCII, so that no system's encoding of arguments and outputs comes into play.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

/// Every unit but the printable ASCII ones, and the backslash, as \uXXXX.
inline std::string Escaped(std::u16string_view text) {
    std::string escaped;
    for (const char16_t unit : text) {
        if (unit > u' ' && unit < 0x7F && unit != u'\\') {
            escaped += static_cast<char>(unit);
            continue;
        }
        char code[8];
        std::snprintf(code, sizeof(code), "\\u%04X", static_cast<unsigned>(unit));
        escaped += code;
    }
    return escaped;
}

inline std::u16string Unescaped(std::string_view escaped) {
    std::u16string text;
    while (!escaped.empty()) {
        const bool code = escaped.front() == '\\';
        text += code ? static_cast<char16_t>(std::stoul(std::string(escaped.substr(2, 4)), nullptr, 16))
                     : static_cast<char16_t>(escaped.front());
        escaped.remove_prefix(code ? 6 : 1);
    }
    return text;
}
