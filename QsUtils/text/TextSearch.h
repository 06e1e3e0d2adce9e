// The search for a text in a text.
#pragma once

#include <cstddef>
#include <string_view>

namespace QsText {

/// The first position at or behind `start` where `part` stands in `text`, or `npos`. An empty part stands
/// everywhere up to the very end. Linear in the length of `text`, whatever both hold.
std::size_t FindText(std::u16string_view text, std::u16string_view part, std::size_t start = 0) noexcept;

/// What a function that takes a terminated text sees of `text`.
constexpr std::u16string_view UpToNul(std::u16string_view text) noexcept {
    return text.substr(0, text.find(u'\0'));
}

}  // namespace QsText
