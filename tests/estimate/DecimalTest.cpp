#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "Decimal.h"
#include "Utf8.h"

using namespace Estimate;

namespace {

/// Rounds the six-decimal text digit by digit, as one does by hand.
std::int64_t PlainRound(double value, int decimals) {
    char text[64];
    std::snprintf(text, sizeof text, "%.6f", std::fabs(value));
    std::string digits;
    for (const char* at = text; *at != '\0'; ++at)
        if (*at != '.')
            digits += *at;
    const auto cut = digits.size() - static_cast<std::size_t>(6 - decimals);
    const bool up = decimals < 6 && digits[cut] >= '5';
    const auto units = std::stoll(cut == 0 ? "0" : digits.substr(0, cut)) + (up ? 1 : 0);
    return value < 0 ? -units : units;
}

std::string Number(const char* text) {
    const auto value = ParseNumber(FromUtf8(text));
    return value ? std::to_string(*value) : "none";
}

}  // namespace

TEST(Decimal, RoundsHalfAwayFromZero) {
    EXPECT_EQ(RoundToDecimals(2.675, 2), 268);
    EXPECT_EQ(RoundToDecimals(1.005, 2), 101);
    EXPECT_EQ(RoundToDecimals(0.125, 2), 13);
    EXPECT_EQ(RoundToDecimals(-0.125, 2), -13);
    EXPECT_EQ(RoundToDecimals(2.5, 0), 3);
    EXPECT_EQ(RoundToDecimals(-2.5, 0), -3);
    EXPECT_EQ(RoundToDecimals(2.4999999, 0), 3);  // 2.500000 as written
    EXPECT_EQ(RoundToDecimals(2.499999, 0), 2);
    EXPECT_EQ(RoundToDecimals(-0.001, 2), 0);
    EXPECT_EQ(RoundToDecimals(999'999'999.999999, 6), 999'999'999'999'999);
}

TEST(Decimal, RefusesWhatIsTooLarge) {
    EXPECT_EQ(RoundToDecimals(1e9, 2), std::nullopt);
    EXPECT_EQ(RoundToDecimals(-1e9, 2), std::nullopt);
    EXPECT_EQ(RoundToDecimals(std::numeric_limits<double>::quiet_NaN(), 2), std::nullopt);
    EXPECT_EQ(RoundToDecimals(std::numeric_limits<double>::infinity(), 2), std::nullopt);
}

TEST(Decimal, AgreesWithRoundingByHand) {
    std::mt19937_64 random(3);
    for (int i = 0; i < 1'000'000; ++i) {
        const int decimals = static_cast<int>(random() % 7);
        const double scale = std::pow(10.0, static_cast<double>(random() % 9));
        double value = scale * static_cast<double>(random() % 1'000'000) / 999'999.0;
        if (random() % 2 == 0)
            value = std::round(value * 1000) / 1000 + 0.0005;  // near and on the halves
        if (random() % 2 == 0)
            value = -value;
        if (std::fabs(value) >= 1e9)
            continue;
        ASSERT_EQ(RoundToDecimals(value, decimals), PlainRound(value, decimals)) << value << ' ' << decimals;
    }
}

TEST(Decimal, AmountsAreExact) {
    EXPECT_EQ(AmountInFen({125, 1}, 10'040'000), 12'550);  // 12.5 * 10.04 = 125.50
    EXPECT_EQ(AmountInFen({1, 2}, 500'000), 1);            // 0.01 * 0.50 = 0.005
    EXPECT_EQ(AmountInFen({-1, 2}, 500'000), -1);
    EXPECT_EQ(AmountInFen({1, 2}, 499'999), 0);
    EXPECT_EQ(AmountInFen({1'000'000'000, 0}, 10'000'000), std::nullopt);  // ten thousand million yuan
    EXPECT_EQ(AmountInFen({999'999'999, 0}, 10'000'000), 999'999'999'000);
}

TEST(Decimal, AmountsAgreeWithWholeNumbers) {
    std::mt19937_64 random(5);
    constexpr std::int64_t scales[] = {1, 10, 100, 1000, 10'000, 100'000, 1'000'000};
    for (int i = 0; i < 1'000'000; ++i) {
        const Decimal quantity{static_cast<std::int64_t>(random() % 2'000'000) - 1'000'000,
                               static_cast<int>(random() % 7)};
        const auto price = static_cast<std::int64_t>(random() % 1'000'000'000);
        const std::int64_t product = quantity.units * price;
        const std::int64_t step = scales[quantity.decimals] * 10'000;
        const std::int64_t plain =
            (std::abs(product) / step + (std::abs(product) % step * 2 >= step ? 1 : 0));
        ASSERT_EQ(AmountInFen(quantity, price), product < 0 ? -plain : plain);
    }
}

TEST(Decimal, ComposedPrices) {
    EXPECT_EQ(PriceOf(10'000, {3, 0}), 33'330'000);  // 100.00 / 3 = 33.33
    EXPECT_EQ(PriceOf(20'000, {3, 0}), 66'670'000);
    EXPECT_EQ(PriceOf(-10'000, {3, 0}), -33'330'000);
    EXPECT_EQ(PriceOf(10'000, {-3, 0}), -33'330'000);
    EXPECT_EQ(PriceOf(10'000, {0, 2}), std::nullopt);
    EXPECT_EQ(PriceOf(900'000'000'000, {1, 6}), std::nullopt);
}

TEST(Decimal, SumsStopAtTheLargestNumber) {
    std::int64_t sum = std::numeric_limits<std::int64_t>::max() - 1;
    AddTo(sum, 1);
    AddTo(sum, 1);
    EXPECT_EQ(sum, std::numeric_limits<std::int64_t>::max());
    sum = std::numeric_limits<std::int64_t>::min() + 1;
    AddTo(sum, -5);
    EXPECT_EQ(sum, std::numeric_limits<std::int64_t>::min());
}

TEST(Decimal, Texts) {
    EXPECT_EQ(DecimalText({1250, 2}), "12.50");
    EXPECT_EQ(DecimalText({-5, 2}), "-0.05");
    EXPECT_EQ(DecimalText({7, 0}), "7");
    EXPECT_EQ(DecimalText({std::numeric_limits<std::int64_t>::min(), 0}), "-9223372036854775808");
    EXPECT_EQ(GroupedText({123456789, 2}), "1,234,567.89");
    EXPECT_EQ(GroupedText({-100000, 2}), "-1,000.00");
    EXPECT_EQ(GroupedText({99999, 2}), "999.99");
    EXPECT_EQ(GroupedText({1234, 0}), "1,234");
    EXPECT_EQ(PriceText(1'250'000, false), "1.25");
    EXPECT_EQ(PriceText(1'254'300, false), "1.2543");
    EXPECT_EQ(PriceText(1'000'000'000, true), "1,000.00");
    EXPECT_DOUBLE_EQ(ToDouble({1234, 2}), 12.34);
}

TEST(Decimal, ReadsNumbersOfTables) {
    EXPECT_EQ(Number("12.5"), "12.500000");
    EXPECT_EQ(Number(" -3 "), "-3.000000");
    EXPECT_EQ(Number("1,234.50"), "1234.500000");
    EXPECT_EQ(Number("-12,345,678"), "-12345678.000000");
    for (const char* text : {"", "abc", "1e5", "1.2.3", "12,34", "1234,567", ",123", "1,234,5", "1.234,567",
                             "1,,234", "1,23a", "1,234,", "-", "5.", ".5", "1 2"})
        EXPECT_EQ(Number(text), "none") << text;
}

TEST(Decimal, AShareIsRoundedToFen) {
    EXPECT_EQ(ShareInFen(10'010, 1'505'000), 151);
    EXPECT_EQ(ShareInFen(100, 500'000), 1) << "half a fen";
    EXPECT_EQ(ShareInFen(-100, 500'000), -1);
    EXPECT_EQ(ShareInFen(99, 500'000), 0);
    EXPECT_EQ(ShareInFen(12'345, 100'000'000), 12'345);
    EXPECT_EQ(ShareInFen(0, 1), 0);
    using Limits = std::numeric_limits<std::int64_t>;
    EXPECT_EQ(ShareInFen(Limits::max(), 100'000'000), Limits::max());
    EXPECT_EQ(ShareInFen(Limits::max(), 1'000'000'000), Limits::max());
    EXPECT_EQ(ShareInFen(Limits::min(), 1'000'000'000), Limits::min());
}
