#include "Units.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "Decimal.h"
#include "Utf8.h"

namespace Estimate {
namespace {

using Spelling = std::pair<std::string_view, std::string_view>;
constexpr std::array Spellings = {Spelling{"㎡", "m2"}, Spelling{"㎥", "m3"}, Spelling{"²", "2"},
                                  Spelling{"³", "3"},   Spelling{"　", ""},   Spelling{" ", ""}};

using Rule = std::pair<std::string_view, int>;
// As the measurement code asks: tonnes to the kilogram, lengths, areas and volumes to the hundredth, pieces
// whole.
constexpr std::array Rules = {
    Rule{"t", 3},  Rule{"T", 3},    Rule{"吨", 3},   Rule{"kg", 2},   Rule{"KG", 2},   Rule{"公斤", 2},
    Rule{"m", 2},  Rule{"m2", 2},   Rule{"M2", 2},   Rule{"m3", 2},   Rule{"M3", 2},   Rule{"个", 0},
    Rule{"件", 0}, Rule{"根", 0},   Rule{"组", 0},   Rule{"樘", 0},   Rule{"套", 0},   Rule{"项", 0},
    Rule{"座", 0}, Rule{"台", 0},   Rule{"块", 0},   Rule{"榀", 0},   Rule{"系统", 0}, Rule{"处", 0},
    Rule{"支", 0}, Rule{"副", 0},   Rule{"台班", 2}, Rule{"工日", 2}, Rule{"台次", 0}, Rule{"孔", 0},
    Rule{"棵", 0}, Rule{"株", 0},   Rule{"面", 0},   Rule{"段", 0},   Rule{"昼夜", 0}, Rule{"间", 0},
    Rule{"把", 0}, Rule{"千块", 3}, Rule{"百块", 2}, Rule{"万块", 4}};
constexpr int OtherUnits = 2;

std::size_t MultipleLength(std::string_view unit) {
    const std::size_t length = unit.find_first_not_of("0123456789");
    return length == std::string_view::npos ? 0 : length;
}

int DecimalsWithoutMultiple(std::string_view unit) {
    const auto rule =
        std::find_if(Rules.begin(), Rules.end(), [&](const Rule& each) { return each.first == unit; });
    return rule == Rules.end() ? OtherUnits : rule->second;
}

}  // namespace

std::string NormalizeUnit(std::string_view unit) {
    std::string text(unit);
    for (const auto& [from, to] : Spellings)
        for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
            text.replace(at, from.size(), to);
    return text;
}

int UnitDecimals(std::string_view unit) {
    const std::size_t multiple = MultipleLength(unit);
    const int zeros = multiple == 0 ? 0 : static_cast<int>(multiple) - 1;
    return std::min(MaxDecimals,
                    std::min(zeros, MaxDecimals) + DecimalsWithoutMultiple(unit.substr(multiple)));
}

IndicatorUnit IndicatorUnitOf(std::string_view unit) {
    const CString whole = FromUtf8(unit);
    const CString plain = FromUtf8(unit.substr(MultipleLength(unit)));
    double multiple = 1.0;
    if (!IQsUtils1::GetIndicatorsFactor(plain, whole, multiple))
        return {std::string(unit), 1.0};
    CString canonical = plain;
    double factor = 1.0;
    if (IQsUtils1::GetIndicatorsUnit(plain, canonical))
        IQsUtils1::GetIndicatorsFactor(plain, canonical, factor);
    return {ToUtf8(canonical), factor / multiple};
}

}  // namespace Estimate
