// Reading and printing of numbers, the same on every system and under every locale.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "QsUtils/text/CString.h"

namespace QsText {

/// White space of the wide C runtime.
constexpr bool IsSpace(char16_t unit) noexcept {
    if (unit < 0x80)
        return unit == 0x20 || (unit >= 0x09 && unit <= 0x0D);
    return unit == 0x00A0 || unit == 0x1680 || (unit >= 0x2000 && unit <= 0x200A) || unit == 0x2028 ||
           unit == 0x2029 || unit == 0x202F || unit == 0x205F || unit == 0x3000;
}

constexpr bool IsDigit(char16_t unit) noexcept {
    return unit >= u'0' && unit <= u'9';
}

/// The int that a text begins with, behind white space and a sign; 0 when no number begins, saturated when it
/// is out of range.
int ReadInt(std::u16string_view text) noexcept;

/// Reads digits with at most one point among them at `it`, which moves behind them. True when `value` has
/// been written; false, with `it` anywhere, when there is no digit or when one exact operation doesn't give
/// the value (W. Clinger, "How to read floating point numbers accurately", 1990).
inline bool ReadShortDecimal(const char16_t*& it, const char16_t* end, double& value) noexcept {
    // The powers of ten up to the 22nd are exact, and so are the integers up to 2^53; 19 digits fit into 64
    // bits.
    static constexpr double Powers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,
                                        1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19};
    std::uint64_t number = 0;
    const auto readDigits = [&] {
        const char16_t* const first = it;
        for (; it != end; ++it) {
            const unsigned digit = static_cast<unsigned>(*it) - u'0';
            if (digit > 9)
                break;
            number = number * 10 + digit;
        }
        return it - first;
    };
    std::ptrdiff_t count = readDigits();
    std::ptrdiff_t decimals = 0;
    if (it != end && *it == u'.') {
        ++it;
        decimals = readDigits();
        count += decimals;
    }
    if (count == 0 || count > 19 || number > (std::uint64_t{1} << 53))
        return false;
    value = static_cast<double>(static_cast<std::int64_t>(number));
    if (decimals != 0)
        value /= Powers[decimals];
    return true;
}

/// `ReadDouble` for any text at all.
double ReadAnyDouble(std::u16string_view text) noexcept;

/// The double that a text begins with, behind white space and a sign: digits with a point and an exponent
/// behind "e" or "E". Correctly rounded; 0 when no number begins, infinity when it is out of range.
inline double ReadDouble(std::u16string_view text) noexcept {
    const char16_t* it = text.data();
    const char16_t* const end = it + text.size();
    double value = 0;
    // Most texts are short numbers with neither white space nor exponent.
    const bool negative = it != end && *it == u'-';
    it += negative ? 1 : 0;
    if (ReadShortDecimal(it, end, value) && (it == end || (*it != u'e' && *it != u'E')))
        return negative ? -value : value;
    return ReadAnyDouble(text);
}

}  // namespace QsText
