// Texts whose digits aren't known beforehand.
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string_view>

/// How much of the text's beginning has the form, in which '#' stands for a decimal digit, '~' for one or
/// more lower-case hexadecimal ones, and anything else for itself.
inline std::optional<std::size_t> FormLength(std::string_view text, std::string_view form) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::size_t at = 0;
    for (const char sign : form) {
        if (sign == '~') {
            const std::size_t end = std::min(text.find_first_not_of(digits, at), text.size());
            if (end == at)
                return std::nullopt;
            at = end;
        } else if (at < text.size() &&
                   (sign == '#' ? digits.substr(0, 10).find(text[at]) != std::string_view::npos
                                : text[at] == sign)) {
            ++at;
        } else {
            return std::nullopt;
        }
    }
    return at;
}

inline bool HasForm(std::string_view text, std::string_view form) {
    return FormLength(text, form) == text.size();
}

/// What stands in front of each message of the log.
inline constexpr std::string_view LogHead = "####-##-## ##:##:##:### TID:0x~ ";
