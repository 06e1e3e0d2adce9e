#include "QsUtils/platform/posix/IcuWordWeights.h"

#include <algorithm>
#include <memory>
#include <span>
#include <string_view>

#include <unicode/uchar.h>
#include <unicode/ucol.h>
#include <unicode/unorm2.h>

#include "QsUtils/platform/posix/IcuPin.h"
#include "QsUtils/platform/posix/WordOrder.h"
#include "QsUtils/platform/posix/WordPrimaries.h"

namespace QsPlatform {

namespace {

constexpr std::uint8_t KeySeparator = 1;
constexpr std::uint8_t KeyCommon = 5;  // ICU's byte for a letter without marks, and for one in lower case
constexpr std::uint8_t FirstUnlisted = 0xF0;
constexpr std::uint8_t FirstUnlistedMark = 0x40;
constexpr std::uint8_t MostLetters = UnitWeight::PrimarySize / 2;  // none of them has more than two bytes

struct CollatorCloser {
    void operator()(UCollator* collator) const noexcept { ucol_close(collator); }
};
using Collator = std::unique_ptr<UCollator, CollatorCloser>;

/// The collation by pinyin with the scripts in their common order, hanzi last.
Collator OpenCollator() {
    UErrorCode error = U_ZERO_ERROR;
    Collator collator(ucol_open("zh@collation=pinyin", &error));
    const std::int32_t unordered = UCOL_REORDER_CODE_NONE;
    ucol_setReorderCodes(collator.get(), &unordered, 1, &error);
    ucol_setAttribute(collator.get(), UCOL_STRENGTH, UCOL_TERTIARY, &error);
    return U_SUCCESS(error) ? std::move(collator) : nullptr;
}

bool Contains(std::u16string_view set, char16_t unit) {
    return set.find(unit) != set.npos;
}

std::uint8_t MarkWeight(char16_t mark) {
    const std::size_t place = WordOrder::Marks.find(mark);
    return static_cast<std::uint8_t>(place == std::u16string_view::npos ? FirstUnlistedMark + (mark & 0x3F)
                                                                        : 1 + place);
}

/// Marks of one letter count together; what passes the byte is cut.
void AddMarks(UnitWeight& weight, unsigned marks) {
    weight.marks = static_cast<std::uint8_t>(std::min(weight.marks + marks, 0xFFU));
}

/// Appends the primary weight of an ASCII unit or a listed symbol; false for any other unit.
bool AddListed(UnitWeight& weight, char16_t unit) {
    if (unit < 0x80) {
        const std::uint8_t primary = AsciiPrimary(unit);
        if (primary != 0)
            AddPrimary(weight, primary);
        return primary != 0;
    }
    for (const WordOrder::Gap& gap : WordOrder::Gaps) {
        const std::size_t place = gap.symbols.find(unit);
        if (place == gap.symbols.npos)
            continue;
        AddPrimary(weight, GapLead(gap.behind));
        AddPrimary(weight, static_cast<std::uint8_t>(2 + place));
        return true;
    }
    return false;
}

/// What the form of a unit weighs against the plain unit that it is made from.
std::uint8_t FormWeight(char16_t unit) {
    switch (u_getIntPropertyValue(unit, UCHAR_DECOMPOSITION_TYPE)) {
        case U_DT_NONE:
        case U_DT_CANONICAL:
        case U_DT_SQUARE:
            return UnitWeight::Common;
        case U_DT_WIDE:
            return CaseWeight::FullWidth;
        case U_DT_SUB:
            return CaseWeight::Lowered;
        case U_DT_CIRCLE:
            return CaseWeight::Circled;
        case U_DT_SUPER:
            return CaseWeight::Raised;
        default:
            return CaseWeight::Variant;
    }
}

/// Weighs a unit that is made from ASCII or listed units, with or without marks, as those; false for others.
/// Of "(1)" and "°C" only letters and digits count, as long as there are any.
bool WeighMade(char16_t unit, UnitWeight& weight) {
    UErrorCode error = U_ZERO_ERROR;
    const UNormalizer2* compatibility = unorm2_getNFKDInstance(&error);
    std::array<UChar, 32> buffer{};
    const std::int32_t length = unorm2_getDecomposition(compatibility, unit, buffer.data(),
                                                        static_cast<std::int32_t>(buffer.size()), &error);
    if (U_FAILURE(error) || length <= 0)
        return false;
    const std::u16string_view parts(buffer.data(), static_cast<std::size_t>(length));
    const bool anyLetter =
        std::any_of(parts.begin(), parts.end(), [](char16_t part) { return u_isalnum(part); });
    weight = LetterWeight();
    weight.letters = 0;
    unsigned marks = 0;
    bool upper = false;
    for (const char16_t part : parts) {
        const bool mark = u_charType(part) == U_NON_SPACING_MARK;
        if (mark || (anyLetter && !u_isalnum(part))) {
            marks += MarkWeight(part);
            continue;
        }
        if (weight.letters == MostLetters || !AddListed(weight, part))
            return false;
        ++weight.letters;
        upper = upper || u_isupper(part);
    }
    weight.letterCase = static_cast<std::uint8_t>(FormWeight(unit) + (upper ? CaseWeight::Upper : 0));
    AddMarks(weight, marks);
    return weight.letters > 0;
}

/// One level of a key, which moves on behind it.
std::span<const std::uint8_t> TakeLevel(std::span<const std::uint8_t>& key) {
    const auto end =
        std::find_if(key.begin(), key.end(), [](std::uint8_t byte) { return byte <= KeySeparator; });
    const auto size = static_cast<std::size_t>(end - key.begin());
    const auto level = key.first(size);
    key = key.subspan(std::min(size + 1, key.size()));
    return level;
}

/// Puts the byte that the order begins with in front of ICU's own bytes.
void AddLead(UnitWeight& weight, char16_t unit, std::uint8_t first, std::uint8_t firstDigit) {
    if (first < firstDigit) {
        AddPrimary(weight, GapLead(u'>'));
        AddPrimary(weight, FirstUnlisted);
    } else if (!u_hasBinaryProperty(unit, UCHAR_IDEOGRAPHIC) || first < Lead::FirstHanzi ||
               first > Lead::LastHanzi) {
        AddPrimary(weight, Lead::OtherScripts);
    }
}

void WeighByKey(const UCollator* collator, char16_t unit, std::uint8_t firstDigit, UnitWeight& weight) {
    std::array<std::uint8_t, 128> buffer{};
    const std::int32_t size =
        ucol_getSortKey(collator, &unit, 1, buffer.data(), static_cast<std::int32_t>(buffer.size()));
    std::span<const std::uint8_t> key(buffer.data(), std::min(static_cast<std::size_t>(size), buffer.size()));
    const auto primary = TakeLevel(key);
    const auto secondary = TakeLevel(key);
    const auto tertiary = TakeLevel(key);
    const bool marked = !secondary.empty() && secondary.front() != KeyCommon;
    if (primary.empty()) {
        weight = UnitWeight{};
        if (marked)
            weight.marks = MarkWeight(unit);
        return;
    }
    weight = LetterWeight();
    AddLead(weight, unit, primary.front(), firstDigit);
    for (const std::uint8_t byte : primary)
        AddPrimary(weight, byte);
    AddMarks(weight, marked ? 1U : 0U);
    weight.letterCase = FormWeight(unit);
    if (u_isupper(unit))
        weight.letterCase += CaseWeight::Upper;
    else if (!tertiary.empty() && tertiary.front() != KeyCommon)
        weight.letterCase = std::max(weight.letterCase, CaseWeight::Variant);
}

void WeighByNumber(char16_t unit, std::uint8_t lead, UnitWeight& weight) {
    weight = LetterWeight();
    AddPrimary(weight, lead);
    AddPrimary(weight, static_cast<std::uint8_t>(unit >> 8));
    AddPrimary(weight, static_cast<std::uint8_t>(unit & 0xFF));
}

/// Where a hanzi stands that ICU reads otherwise: behind the one that is returned, as the `nth` that does.
char16_t MovedBehind(char16_t unit, std::uint8_t& nth) {
    nth = 0;
    char16_t last = 0;
    for (std::size_t i = 0; i < WordOrder::MovedHanzi.size(); i += 2) {
        const char16_t behind = WordOrder::MovedHanzi[i + 1];
        nth = behind == last ? static_cast<std::uint8_t>(nth + 1) : std::uint8_t{0};
        last = behind;
        if (WordOrder::MovedHanzi[i] == unit)
            return behind;
    }
    return 0;
}

void WeighByCollation(const UCollator* collator, char16_t unit, std::uint8_t firstDigit, UnitWeight& weight) {
    std::uint8_t nth = 0;
    const char16_t behind = MovedBehind(unit, nth);
    WeighByKey(collator, behind == 0 ? unit : behind, firstDigit, weight);
    if (behind == 0)
        return;
    AddPrimary(weight, Lead::Behind);
    AddPrimary(weight, static_cast<std::uint8_t>(2 + nth));
}

std::uint8_t FirstDigitByte(const UCollator* collator) {
    const UChar digit = u'0';
    std::array<std::uint8_t, 16> key{};
    ucol_getSortKey(collator, &digit, 1, key.data(), static_cast<std::int32_t>(key.size()));
    return key.front();
}

/// Weighs what the order itself names; false for a unit that ICU is to weigh.
bool WeighNamed(char16_t unit, UnitWeight& weight) {
    weight = UnitWeight{};
    weight.tieBreaker = TieBreakerOf(unit);
    if (weight.tieBreaker != 0 || Contains(WordOrder::Ignored, unit))
        return true;
    if (unit == WordOrder::FirstHanzi) {
        weight = LetterWeight();
        AddPrimary(weight, Lead::AheadOfHanzi);
        return true;
    }
    if (u_charType(unit) == U_PRIVATE_USE_CHAR) {
        WeighByNumber(unit, Lead::PrivateUse, weight);
        return true;
    }
    weight = LetterWeight();
    if (AddListed(weight, unit)) {
        weight.letterCase = u_isupper(unit) ? UnitWeight::Common + CaseWeight::Upper : UnitWeight::Common;
        return true;
    }
    return WeighMade(unit, weight);
}

}  // namespace

void FillWordWeights(char16_t first, std::array<UnitWeight, 0x100>& weights) {
    PinIcu();
    const Collator collator = OpenCollator();
    const std::uint8_t firstDigit = collator == nullptr ? std::uint8_t{0} : FirstDigitByte(collator.get());
    char16_t unit = first;
    for (UnitWeight& weight : weights) {
        if (!WeighNamed(unit, weight)) {
            if (collator == nullptr)
                WeighByNumber(unit, Lead::OtherScripts, weight);
            else
                WeighByCollation(collator.get(), unit, firstDigit, weight);
        }
        ++unit;
    }
}

}  // namespace QsPlatform
