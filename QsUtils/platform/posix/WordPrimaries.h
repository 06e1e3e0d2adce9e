// How the first bytes of primary weights are shared out. No weight is the head of another.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "QsUtils/platform/posix/WordOrder.h"
#include "QsUtils/platform/posix/WordWeights.h"

namespace QsPlatform {

namespace Lead {

// ASCII up to "9" has every second byte, so that symbols find room between; 0x01 separates the levels of a
// key.
constexpr std::uint8_t FirstAscii = 0x03;
constexpr std::uint8_t FirstLetter = FirstAscii + 2 * WordOrder::Ascii.size();
constexpr std::uint8_t OtherScripts = FirstLetter + 26;
constexpr std::uint8_t PrivateUse = OtherScripts + 1;
// From here on ICU's own bytes for hanzi, whose common ones need two.
constexpr std::uint8_t FirstHanzi = 0x80;
constexpr std::uint8_t LastHanzi = 0xFC;
constexpr std::uint8_t Supplementary = 0xFD;
// Follows the bytes of a hanzi to make the place behind it, and behind all texts that begin with it.
constexpr std::uint8_t Behind = 0xFF;
constexpr std::uint8_t AheadOfHanzi = FirstHanzi - 1;

static_assert(PrivateUse < AheadOfHanzi);

}  // namespace Lead

constexpr std::uint8_t TieBreakerOf(char16_t unit) {
    const std::size_t place = WordOrder::TieBreakers.find(unit);
    return place == std::u16string_view::npos ? std::uint8_t{0} : static_cast<std::uint8_t>(place + 1);
}

constexpr bool IsAsciiLetter(char16_t unit) {
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

constexpr std::uint8_t AsciiPrimary(char16_t unit) {
    if (IsAsciiLetter(unit))
        return static_cast<std::uint8_t>(Lead::FirstLetter + ((unit | 0x20) - u'a'));
    const std::size_t place = WordOrder::Ascii.find(unit);
    return place == std::u16string_view::npos ? std::uint8_t{0}
                                              : static_cast<std::uint8_t>(Lead::FirstAscii + 2 * place);
}

/// The byte that opens the symbols behind an ASCII unit.
constexpr std::uint8_t GapLead(char16_t behind) {
    return static_cast<std::uint8_t>(AsciiPrimary(behind) + 1);
}

namespace CaseWeight {
constexpr std::uint8_t FullWidth = 3;
constexpr std::uint8_t Lowered = 4;
constexpr std::uint8_t Variant = 5;
constexpr std::uint8_t Circled = 6;
constexpr std::uint8_t Raised = 0x0E;
constexpr std::uint8_t Upper = 0x10;  // on top of the others
}  // namespace CaseWeight

constexpr UnitWeight LetterWeight() {
    UnitWeight weight{};
    weight.letters = 1;
    weight.marks = weight.letterCase = UnitWeight::Common;
    return weight;
}

constexpr void AddPrimary(UnitWeight& weight, std::uint8_t byte) {
    if (weight.size < UnitWeight::PrimarySize)
        weight.primary[weight.size++] = byte;
}

constexpr UnitWeight AsciiWeight(char16_t unit) {
    UnitWeight weight{};
    weight.tieBreaker = TieBreakerOf(unit);
    if (AsciiPrimary(unit) == 0)
        return weight;
    weight = LetterWeight();
    AddPrimary(weight, AsciiPrimary(unit));
    if (unit >= u'A' && unit <= u'Z')
        weight.letterCase += CaseWeight::Upper;
    return weight;
}

}  // namespace QsPlatform
