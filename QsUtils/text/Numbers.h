// Reading and printing of numbers, the same on every system and under every locale.
#pragma once

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

/// The double that a text begins with, behind white space and a sign: digits with a point and an exponent
/// behind "e" or "E". Correctly rounded; 0 when no number begins, infinity when it is out of range.
double ReadDouble(std::u16string_view text) noexcept;

}  // namespace QsText
