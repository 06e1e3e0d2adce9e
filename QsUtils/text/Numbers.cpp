#include "QsUtils/text/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace QsText {

namespace {

/// A text behind its white space and sign.
struct SignedRest {
    std::u16string_view digits;
    bool negative;
};

SignedRest SkipSpaceAndSign(std::u16string_view text) noexcept {
    const char16_t* it = text.data();
    const char16_t* const end = it + text.size();
    while (it != end && IsSpace(*it))
        ++it;
    const bool negative = it != end && *it == u'-';
    if (it != end && (*it == u'-' || *it == u'+'))
        ++it;
    return {{it, static_cast<std::size_t>(end - it)}, negative};
}

/// Beyond any exponent that a text of addressable length could balance with its digits.
constexpr std::int64_t ExponentLimit = std::int64_t{1} << 60;

/// The value of "e" or "E", a sign and digits at the beginning of `text`; 0 when no digit follows.
std::int64_t ReadExponent(std::u16string_view text) noexcept {
    if (text.empty() || (text[0] != u'e' && text[0] != u'E'))
        return 0;
    std::size_t i = 1;
    const bool negative = i < text.size() && text[i] == u'-';
    if (i < text.size() && (text[i] == u'-' || text[i] == u'+'))
        ++i;
    std::int64_t exponent = 0;
    for (; i < text.size() && IsDigit(text[i]); ++i)
        exponent = std::min(exponent * 10 + (text[i] - u'0'), ExponentLimit / 16);
    return negative ? -exponent : exponent;
}

/// The digits of a number without leading zeros, as many as can matter for its rounding. A double's halfway
/// point has at most 767 significant digits, so that all behind them only say whether there is any.
class SignificantDigits {
public:
    SignificantDigits() noexcept { m_digits[Kept] = '0'; }

    void Add(char16_t digit) noexcept {
        if (m_length == 0 && digit == u'0')
            return;
        if (m_length < Kept)
            m_digits[static_cast<std::size_t>(m_length)] = static_cast<char>(digit);
        else if (digit != u'0')
            m_digits[Kept] = '1';
        ++m_length;
    }
    /// How many there were, also those that were not kept.
    std::int64_t Length() const noexcept { return m_length; }

    /// The value of 0.d1d2d3... times 10 to the power `scale`.
    double Value(std::int64_t scale) noexcept {
        // The first digit has the weight 10^(scale-1); double's range is 4.9e-324 to 1.8e308.
        if (m_length == 0 || scale < -330)
            return 0.0;
        if (scale > 310)
            return std::numeric_limits<double>::infinity();
        const std::int64_t count = std::min<std::int64_t>(m_length, Kept + 1);
        char* end = m_digits.data() + count;
        *end++ = 'e';
        end = std::to_chars(end, m_digits.data() + m_digits.size(), static_cast<int>(scale - count)).ptr;
        double value = 0.0;
        if (std::from_chars(m_digits.data(), end, value).ec == std::errc::result_out_of_range)
            value = scale > 0 ? std::numeric_limits<double>::infinity() : 0.0;
        return value;
    }

private:
    static constexpr std::int64_t Kept = 800;
    std::array<char, Kept + 16> m_digits;
    std::int64_t m_length = 0;
};

/// Any number of digits, points and exponents, exactly.
double ReadLongDouble(std::u16string_view text) noexcept {
    SignificantDigits digits;
    std::size_t i = 0;
    for (; i < text.size() && IsDigit(text[i]); ++i)
        digits.Add(text[i]);
    std::int64_t scale = digits.Length();
    if (i < text.size() && text[i] == u'.') {
        for (++i; i < text.size() && IsDigit(text[i]); ++i) {
            digits.Add(text[i]);
            if (digits.Length() == 0)
                --scale;
        }
    }
    return digits.Value(scale + ReadExponent(text.substr(i)));
}

bool BeginsNumber(std::u16string_view text) noexcept {
    if (!text.empty() && text[0] == u'.')
        text.remove_prefix(1);
    return !text.empty() && IsDigit(text[0]);
}

}  // namespace

int ReadInt(std::u16string_view text) noexcept {
    const auto [digits, negative] = SkipSpaceAndSign(text);
    const std::int64_t limit = std::int64_t{std::numeric_limits<int>::max()} + (negative ? 1 : 0);
    std::int64_t number = 0;
    for (const char16_t unit : digits) {
        if (!IsDigit(unit))
            break;
        number = number * 10 + (unit - u'0');
        if (number > limit) {
            number = limit;
            break;
        }
    }
    return static_cast<int>(negative ? -number : number);
}

double ReadAnyDouble(std::u16string_view text) noexcept {
    const auto [digits, negative] = SkipSpaceAndSign(text);
    // A sign without a number is no negative zero.
    if (!BeginsNumber(digits))
        return 0.0;
    const double value = ReadLongDouble(digits);
    return negative ? -value : value;
}

}  // namespace QsText
