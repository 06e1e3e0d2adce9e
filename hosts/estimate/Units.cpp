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

std::size_t MultipleLength(std::string_view unit) {
    const std::size_t length = unit.find_first_not_of("0123456789");
    return length == std::string_view::npos ? 0 : length;
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
    const int zeros = multiple == 0 ? 0 : static_cast<int>(std::min<std::size_t>(multiple - 1, MaxDecimals));
    // The table may hold any number.
    const int decimals =
        std::clamp(IQsUtils1::GetUnitMantissa(FromUtf8(unit.substr(multiple))), 0, MaxDecimals);
    return std::min(zeros + decimals, MaxDecimals);
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
