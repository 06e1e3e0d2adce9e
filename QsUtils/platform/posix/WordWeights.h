// What a unit weighs in the word order.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace QsPlatform {

/// The share of one unit in the key of a text.
struct UnitWeight {
    static constexpr std::uint8_t Common = 2;  // of marks and of case; no weight is below
    static constexpr std::size_t PrimarySize = 10;

    std::uint8_t size;     // bytes of `primary`
    std::uint8_t letters;  // how many letters the primary bytes stand for; 0 for a unit that is none
    std::uint8_t marks;    // what its marks weigh, for a mark its own weight, which joins the letter before
    std::uint8_t letterCase;  // upper case, full width, raised and so on
    std::uint8_t tieBreaker;  // above 0 for a unit that only breaks ties
    std::uint8_t reserved;
    std::array<std::uint8_t, PrimarySize> primary;
};

/// The primary byte of an ASCII unit; 0 for one that only breaks ties.
extern const std::array<std::uint8_t, 0x80> AsciiPrimaries;

/// The weight of a unit; surrogates, whose pairs count together, are asked for elsewhere. Beyond ASCII it
/// comes from ICU, for 256 units at a time when one of them is first asked for. Any thread may call it.
const UnitWeight& WeightOf(char16_t unit);

/// The weight of a character that has two units, or of half of one: behind all others, by number.
UnitWeight SupplementaryWeight(char32_t character);

}  // namespace QsPlatform
