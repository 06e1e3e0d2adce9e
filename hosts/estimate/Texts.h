// All that the program says to people, in both languages.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "Language.h"

namespace Estimate {

/// The names of the texts in Messages.def and Help.def.
enum class Text {
#define ESTIMATE_TEXT(name, english, chinese) name,
#include "Help.def"
#include "Messages.def"
#undef ESTIMATE_TEXT
};

struct Wording {
    std::string_view name;
    std::string_view
        english;  ///< a format of {fmt}; its arguments are "{}", or "{0}" in an order of their own
    std::string_view chinese;

    constexpr std::string_view In(Language language) const noexcept {
        return language == Language::Chinese ? chinese : english;
    }
};

/// By `Text`.
inline constexpr std::array Wordings = {
#define ESTIMATE_TEXT(name, english, chinese) Wording{#name, english, chinese},
#include "Help.def"
#include "Messages.def"
#undef ESTIMATE_TEXT
};

constexpr const Wording& WordingOf(Text text) noexcept {
    return Wordings[static_cast<std::size_t>(text)];
}

/// How many arguments a format takes: its "{}", or one more than its highest "{0}". More than any when it
/// mixes the two, which {fmt} refuses.
constexpr std::size_t ArgumentCount(std::string_view format) noexcept {
    std::size_t inTurn = 0;
    std::size_t numbered = 0;
    for (std::size_t at = 0; at + 1 < format.size(); ++at) {
        if (format[at] != '{')
            continue;
        const char next = format[at + 1];
        if (next == '}')
            ++inTurn;
        else if (next >= '0' && next <= '9')
            numbered = numbered < std::size_t(next - '0') + 1 ? std::size_t(next - '0') + 1 : numbered;
        else if (next == '{')
            ++at;
    }
    return inTurn > 0 && numbered > 0 ? std::size_t(-1) : inTurn + numbered;
}

}  // namespace Estimate
