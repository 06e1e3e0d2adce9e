#include "QsUtils/text/DoubleText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string_view>

namespace QsText {

namespace {

/// More than a sign, 309 digits, a point and an exponent need beside the decimals.
constexpr std::size_t RoomBesideDecimals = 340;

std::string Digits(double magnitude, std::chars_format format, int precision) {
    std::string text(RoomBesideDecimals + static_cast<std::size_t>(precision), '\0');
    const auto end = std::to_chars(text.data(), text.data() + text.size(), magnitude, format, precision).ptr;
    text.resize(static_cast<std::size_t>(end - text.data()));
    return text;
}

/// "%#g" chooses between the two forms as "%g" does, by the exponent after rounding, but drops no zeros.
std::string GeneralWithZeros(double magnitude, int precision) {
    const int significant = std::max(precision, 1);
    std::string scientific = Digits(magnitude, std::chars_format::scientific, significant - 1);
    const int exponent = std::atoi(scientific.c_str() + scientific.find('e') + 1);
    if (exponent < -4 || exponent >= significant)
        return scientific;
    return Digits(magnitude, std::chars_format::fixed, significant - 1 - exponent);
}

std::string Magnitude(double magnitude, const DoubleStyle& style) {
    const bool general = style.type == u'g' || style.type == u'G';
    const bool scientific = style.type == u'e' || style.type == u'E';
    if (!std::isfinite(magnitude))
        return Digits(magnitude, std::chars_format::fixed, 0);
    if (general && !style.alternate)
        return Digits(magnitude, std::chars_format::general, style.precision);
    std::string text =
        general ? GeneralWithZeros(magnitude, style.precision)
                : Digits(magnitude, scientific ? std::chars_format::scientific : std::chars_format::fixed,
                         style.precision);
    if (style.alternate && text.find('.') == text.npos)
        text.insert(std::min(text.find('e'), text.size()), 1, '.');
    return text;
}

}  // namespace

std::u16string WriteDouble(double value, const DoubleStyle& style) {
    const std::string magnitude = Magnitude(std::fabs(value), style);
    const char16_t sign = std::signbit(value) ? u'-' : style.plus;
    const bool upper = style.type < u'a';

    std::u16string text;
    if (sign != u'\0')
        text += sign;
    const std::size_t length = text.size() + magnitude.size();
    const auto width = static_cast<std::size_t>(style.zeroWidth);
    if (std::isfinite(value) && width > length)
        text.append(width - length, u'0');
    for (const char character : magnitude)
        text += static_cast<char16_t>(upper && character >= 'a' ? character - 0x20 : character);
    return text;
}

}  // namespace QsText
