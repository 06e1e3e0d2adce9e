// The key that puts a text in its place in the word order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace QsPlatform {

/// The most bytes that the key of a text with `length` units takes.
constexpr std::size_t WordKeyLimit(std::size_t length) noexcept {
    return 32 * length + 4;
}

/// Writes the key of a text without NULs to `key`, which has room for `WordKeyLimit` bytes; gives the bytes
/// written. Four levels with a separator between: letters, marks, case and width, and what breaks ties. The
/// later levels leave out what is common at their end, and levels that are empty at the end are left out.
std::size_t WriteWordKey(std::u16string_view text, std::uint8_t* key);

}  // namespace QsPlatform
