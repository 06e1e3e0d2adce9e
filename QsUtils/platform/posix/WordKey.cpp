#include "QsUtils/platform/posix/WordKey.h"

#include <algorithm>

#include "QsUtils/platform/posix/WordWeights.h"

namespace QsPlatform {

namespace {

constexpr std::uint8_t Separator = 1;

constexpr bool IsSurrogate(char16_t unit) {
    return (unit & 0xF800) == 0xD800;
}

/// The number of the character at the head of `text`, whose first unit is a surrogate.
char32_t TakeSupplementary(std::u16string_view& text) {
    const char32_t high = text[0];
    const bool paired = high < 0xDC00 && text.size() > 1 && (text[1] & 0xFC00) == 0xDC00;
    const char32_t character = paired ? 0x10000 + ((high - 0xD800) << 10) + (text[1] - 0xDC00U) : high;
    text.remove_prefix(paired ? 2 : 1);
    return character;
}

/// Calls `visit` with the weight of each unit, or of each surrogate pair.
template <typename Visit>
void VisitWeights(std::u16string_view text, Visit visit) {
    while (!text.empty()) {
        if (IsSurrogate(text.front())) {
            visit(SupplementaryWeight(TakeSupplementary(text)));
        } else {
            visit(WeightOf(text.front()));
            text.remove_prefix(1);
        }
    }
}

struct Levels {
    bool marks = false;
    bool letterCase = false;
    bool tieBreakers = false;
};

std::uint8_t* WriteLetters(std::u16string_view text, std::uint8_t* to, Levels& levels) {
    VisitWeights(text, [&](const UnitWeight& weight) {
        to = std::copy_n(weight.primary.begin(), weight.size, to);
        levels.tieBreakers |= weight.tieBreaker != 0;
        if (weight.letters == 0) {
            levels.marks |= weight.marks != 0;
        } else {
            levels.marks |= weight.marks != UnitWeight::Common;
            levels.letterCase |= weight.letterCase != UnitWeight::Common;
        }
    });
    return to;
}

/// Takes back what is common at the end of a level.
std::uint8_t* TrimCommon(const std::uint8_t* begin, std::uint8_t* end) {
    while (end != begin && end[-1] == UnitWeight::Common)
        --end;
    return end;
}

std::uint8_t* WriteMarks(std::u16string_view text, std::uint8_t* to) {
    const std::uint8_t* const begin = to;
    VisitWeights(text, [&](const UnitWeight& weight) {
        if (weight.letters > 0) {
            to = std::fill_n(to, weight.letters, weight.marks);
        } else if (weight.marks > 0) {
            // A mark of its own joins the letter before it, and stands for itself where there is none.
            if (to == begin)
                *to++ = UnitWeight::Common;
            to[-1] = static_cast<std::uint8_t>(std::min(to[-1] + weight.marks, 0xFF));
        }
    });
    return TrimCommon(begin, to);
}

std::uint8_t* WriteCase(std::u16string_view text, std::uint8_t* to) {
    const std::uint8_t* const begin = to;
    VisitWeights(text,
                 [&](const UnitWeight& weight) { to = std::fill_n(to, weight.letters, weight.letterCase); });
    return TrimCommon(begin, to);
}

/// Each with its place, the later the lighter, and which of them it is.
std::uint8_t* WriteTieBreakers(std::u16string_view text, std::uint8_t* to) {
    std::size_t letters = 0;
    VisitWeights(text, [&](const UnitWeight& weight) {
        letters += weight.letters;
        if (weight.tieBreaker == 0)
            return;
        const std::size_t place = 0xFFFFFF - std::min<std::size_t>(letters, 0xFFFFFF);
        *to++ = static_cast<std::uint8_t>(place >> 16);
        *to++ = static_cast<std::uint8_t>(place >> 8 & 0xFF);
        *to++ = static_cast<std::uint8_t>(place & 0xFF);
        *to++ = weight.tieBreaker;
    });
    return to;
}

}  // namespace

std::size_t WriteWordKey(std::u16string_view text, std::uint8_t* key) {
    Levels levels;
    std::uint8_t* to = WriteLetters(text, key, levels);
    std::uint8_t* end = to;
    // `end` stays behind the last level that has anything, so that empty ones at the end fall away.
    const auto addLevel = [&](bool wanted, auto write) {
        *to++ = Separator;
        if (!wanted)
            return;
        std::uint8_t* const begin = to;
        to = write(text, to);
        if (to != begin)
            end = to;
    };
    addLevel(levels.marks, WriteMarks);
    addLevel(levels.letterCase, WriteCase);
    addLevel(levels.tieBreakers, WriteTieBreakers);
    return static_cast<std::size_t>(end - key);
}

}  // namespace QsPlatform
