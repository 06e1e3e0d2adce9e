#include "QsUtils/text/NumberText.h"

#include <algorithm>
#include <string_view>

#include "QsUtils/text/FixedDecimal.h"
#include "QsUtils/text/Numbers.h"

namespace QsText {

namespace {

std::u16string_view Trimmed(std::u16string_view text) {
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

std::u16string_view WithoutSign(std::u16string_view text) {
    if (!text.empty() && (text.front() == u'+' || text.front() == u'-'))
        text.remove_prefix(1);
    return text;
}

/// How many digits a text begins with.
std::size_t CountDigits(std::u16string_view text) {
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), IsDigit) - text.begin());
}

bool AreAllDigits(std::u16string_view text) {
    return !text.empty() && CountDigits(text) == text.size();
}

bool ParseAnyInteger(std::u16string_view text, int& value) {
    const std::u16string_view number = Trimmed(text);
    if (!AreAllDigits(WithoutSign(number)))
        return false;
    value = ReadInt(number);
    return true;
}

bool ParseAnyDouble(std::u16string_view text, double& value) {
    const std::u16string_view number = Trimmed(text);
    const std::u16string_view digits = WithoutSign(number);
    const std::size_t whole = CountDigits(digits);
    if (whole == 0)
        return false;
    if (whole < digits.size() && (digits[whole] != u'.' || !AreAllDigits(digits.substr(whole + 1))))
        return false;
    value = ReadDouble(number);
    return true;
}

}  // namespace

bool ParseToInteger(const CString& text, int& value) {
    // Nearly every text is a short number without anything around it.
    const std::u16string_view units = text.View();
    const char16_t* it = units.data();
    const char16_t* const end = it + units.size();
    const bool negative = it != end && *it == u'-';
    it += negative ? 1 : 0;
    constexpr std::ptrdiff_t SafeDigits = 9;
    if (it == end || end - it > SafeDigits)
        return ParseAnyInteger(units, value);
    int number = 0;
    int signs = 0;  // negative as soon as a unit was below "0" or above "9": no branch in the loop
    for (; it != end; ++it) {
        const int digit = *it - u'0';
        signs |= digit | (9 - digit);
        number = static_cast<int>(static_cast<unsigned>(number) * 10 + static_cast<unsigned>(digit));
    }
    if (signs < 0)
        return ParseAnyInteger(units, value);
    value = negative ? -number : number;
    return true;
}

bool ParseToDouble(const CString& text, double& value) {
    const std::u16string_view units = text.View();
    const char16_t* it = units.data();
    const char16_t* const end = it + units.size();
    const bool negative = it != end && *it == u'-';
    it += negative ? 1 : 0;
    double number = 0;
    if (it == end || !IsDigit(*it) || !ReadShortDecimal(it, end, number) || it != end || !IsDigit(end[-1]))
        return ParseAnyDouble(units, value);
    value = negative ? -number : number;
    return true;
}

bool bIsNum(const CString& text) {
    std::u16string_view units = text.View();
    if (units.empty())
        return false;
    if (units.front() == u'-')
        units.remove_prefix(1);
    return std::all_of(units.begin(), units.end(),
                       [](char16_t unit) { return IsDigit(unit) || unit == u'.'; });
}

CString DoubleToCString(double value, int decimals, bool trimZeros) {
    constexpr int Most = 6;
    if (decimals < 0 || decimals > Most)
        return CString(FixedDecimal(value, Most).View());
    return CString(FixedDecimal(value, decimals, trimZeros).View());
}

bool IsValidRateOfTransPrice(const CString& text) {
    return ReadDouble(text.View()) >= 0;
}

double GetFormatedRateOfTransPrice(const CString& text) {
    return text == u"免税" ? 0.0 : ReadDouble(text.View());
}

}  // namespace QsText
