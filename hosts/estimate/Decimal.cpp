#include "Decimal.h"

#include <cmath>
#include <cstddef>
#include <limits>
#include <string_view>

namespace Estimate {
namespace {

// 64 bits hold every result but not every product on the way to it.
__extension__ using Wide = __int128;

constexpr std::int64_t PowersOfTen[] = {1,       10,        100,        1'000,      10'000,
                                        100'000, 1'000'000, 10'000'000, 100'000'000};
constexpr double QuantityLimit = 1e9;
constexpr std::int64_t FenLimit = 1'000'000'000'000;
constexpr std::int64_t PriceLimit = 1'000'000'000'000'000;
constexpr std::int64_t PriceStepsInFen = 10'000;

Wide RoundedQuotient(Wide number, Wide divisor) {
    if (divisor < 0) {
        number = -number;
        divisor = -divisor;
    }
    const Wide half = divisor / 2;
    const Wide whole = (number < 0 ? -number : number) + half;
    return number < 0 ? -(whole / divisor) : whole / divisor;
}

std::optional<std::int64_t> Within(Wide number, std::int64_t limit) {
    if (number <= -limit || number >= limit)
        return std::nullopt;
    return static_cast<std::int64_t>(number);
}

/// The sign and the point of a number around its digits.
std::string Dressed(Decimal number, std::string digits) {
    if (number.decimals > 0)
        digits.insert(digits.size() - static_cast<std::size_t>(number.decimals), 1, '.');
    if (number.units < 0)
        digits.insert(0, 1, '-');
    return digits;
}

/// The digits of the magnitude, at least one in front of the decimals.
std::string Digits(Decimal number) {
    const auto magnitude = number.units < 0 ? 0 - static_cast<std::uint64_t>(number.units)
                                            : static_cast<std::uint64_t>(number.units);
    std::string digits = std::to_string(magnitude);
    const auto least = static_cast<std::size_t>(number.decimals) + 1;
    if (digits.size() < least)
        digits.insert(0, least - digits.size(), '0');
    return digits;
}

}  // namespace

std::optional<std::int64_t> RoundToDecimals(double value, int decimals) {
    if (!std::isfinite(value) || std::fabs(value) >= QuantityLimit)
        return std::nullopt;
    const CString text = IQsUtils::DoubleToCString(value, MaxDecimals, false);
    std::int64_t millionths = 0;
    for (const char16_t unit : text.View())
        if (unit >= u'0' && unit <= u'9')
            millionths = millionths * 10 + (unit - u'0');
    if (value < 0)
        millionths = -millionths;
    return static_cast<std::int64_t>(RoundedQuotient(millionths, PowersOfTen[MaxDecimals - decimals]));
}

std::optional<std::int64_t> AmountInFen(Decimal quantity, std::int64_t price) {
    const Wide product = static_cast<Wide>(quantity.units) * price;
    return Within(
        RoundedQuotient(product, static_cast<Wide>(PowersOfTen[quantity.decimals]) * PriceStepsInFen),
        FenLimit);
}

std::optional<std::int64_t> PriceOf(std::int64_t fen, Decimal quantity) {
    if (quantity.units == 0)
        return std::nullopt;
    const Wide price =
        RoundedQuotient(static_cast<Wide>(fen) * PowersOfTen[quantity.decimals], quantity.units);
    return Within(price * PriceStepsInFen, PriceLimit);
}

std::int64_t ShareInFen(std::int64_t fen, std::int64_t rate) {
    using Limits = std::numeric_limits<std::int64_t>;
    const Wide share =
        RoundedQuotient(static_cast<Wide>(fen) * rate, static_cast<Wide>(100) * PowersOfTen[PriceDecimals]);
    if (share > Limits::max())
        return Limits::max();
    return share < Limits::min() ? Limits::min() : static_cast<std::int64_t>(share);
}

void AddTo(std::int64_t& sum, std::int64_t value) noexcept {
    using Limits = std::numeric_limits<std::int64_t>;
    if (__builtin_add_overflow(sum, value, &sum))
        sum = value > 0 ? Limits::max() : Limits::min();
}

std::string DecimalText(Decimal number) {
    return Dressed(number, Digits(number));
}

std::string GroupedText(Decimal number) {
    std::string digits = Digits(number);
    for (auto at = static_cast<std::ptrdiff_t>(digits.size()) - number.decimals - 3; at > 0; at -= 3)
        digits.insert(static_cast<std::size_t>(at), 1, ',');
    return Dressed(number, std::move(digits));
}

std::string PriceText(std::int64_t price, bool grouped) {
    Decimal shortest{price, PriceDecimals};
    for (; shortest.decimals > 2 && shortest.units % 10 == 0; --shortest.decimals)
        shortest.units /= 10;
    return grouped ? GroupedText(shortest) : DecimalText(shortest);
}

double ToDouble(Decimal number) {
    // One division of two exact numbers gives the double nearest to the decimal number.
    return static_cast<double>(number.units) / static_cast<double>(PowersOfTen[number.decimals]);
}

std::optional<double> ParseNumber(const CString& text) {
    CString plain = text;
    plain.Trim();
    const int first = plain.Find(u',');
    if (first >= 0) {
        const int point = plain.Find(u'.');
        const int end = point < 0 ? plain.GetLength() : point;
        const int digits = first - (plain.SpanIncluding(CString(u"+-")).GetLength());
        if (digits < 1 || digits > 3)
            return std::nullopt;
        // Groups of exactly three digits stand behind the first comma, and no comma among the decimals.
        for (int at = first; at < plain.GetLength(); ++at) {
            const bool placed = at < end && (at - first) % 4 == 0;
            if ((plain.GetAt(at) == u',') != placed)
                return std::nullopt;
        }
        if ((end - first) % 4 != 0)
            return std::nullopt;
        plain.Remove(u',');
    }
    double value = 0;
    if (!IQsUtils::ParseToDouble(plain, value))
        return std::nullopt;
    return value;
}

}  // namespace Estimate
