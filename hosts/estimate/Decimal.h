// Exact decimal numbers: quantities in their unit's decimals, prices in millionths of a yuan, amounts in fen.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include <QsUtils/QsUtils.h>

namespace Estimate {

/// The most decimals that a number keeps.
inline constexpr int MaxDecimals = 6;
/// The decimals of a unit price as it is kept and multiplied.
inline constexpr int PriceDecimals = 6;

/// A number of `units` in steps of ten to the power -`decimals`.
struct Decimal {
    std::int64_t units = 0;
    int decimals = 0;
};

/// `value` rounded to `decimals` (0 to 6), half away from zero as on paper. The six-decimal text of the value
/// is what is rounded, so that 2.675, which binary numbers can only come near, becomes 2.68. None when the
/// value is not finite or its magnitude is a thousand million or more.
std::optional<std::int64_t> RoundToDecimals(double value, int decimals);

/// The amount in fen of a quantity at a price, rounded half away from zero. None at ten thousand million yuan
/// or more.
std::optional<std::int64_t> AmountInFen(Decimal quantity, std::int64_t price);

/// The price to whole fen at which `quantity` amounts to `fen`. None when the quantity is 0 or the price is a
/// thousand million yuan or more.
std::optional<std::int64_t> PriceOf(std::int64_t fen, Decimal quantity);

/// A percentage of an amount, rounded half away from zero to fen. `rate` is in percent, in steps of
/// PriceDecimals. Stops at the largest numbers, as sums do.
std::int64_t ShareInFen(std::int64_t fen, std::int64_t rate);

/// Adds without overflow: a sum stops at the largest number.
void AddTo(std::int64_t& sum, std::int64_t value) noexcept;

/// Plain digits, with all decimals: "-12.50".
std::string DecimalText(Decimal number);
/// The same with a comma in front of every three digits: "1,234,567.80".
std::string GroupedText(Decimal number);
/// A price with two decimals, and with more only where it has them.
std::string PriceText(std::int64_t price, bool grouped);
inline std::string FenText(std::int64_t fen) {
    return DecimalText({fen, 2});
}

double ToDouble(Decimal number);

/// Reads a number as tables write it: blanks around it, a sign, digits that may be grouped by commas in
/// threes, and decimals.
std::optional<double> ParseNumber(const CString& text);

}  // namespace Estimate
