#include "QsUtils/text/ChineseNumerals.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

#include "QsUtils/text/Numbers.h"

namespace QsText {

namespace {

// Indexed by a place counted from the right; place 0 has no unit.
constexpr char16_t CapitalDigits[] = u"零壹贰叁肆伍陆柒捌玖";
constexpr char16_t CapitalUnits[] = u"\0拾佰仟万拾佰仟亿拾佰仟万拾佰仟亿拾佰仟万拾佰仟";
constexpr char16_t PlainDigits[] = u"零一二三四五六七八九";
constexpr char16_t PlainUnits[] = u"\0十百千";
constexpr char16_t GroupUnits[] = u"\0万亿";

constexpr std::size_t MostPlaces = 24;
constexpr std::u16string_view TooLarge = u"数值过大!";
constexpr std::u16string_view NoDigit = u"输入含非数字字符!";

/// A numeral under construction, without allocation.
class Numeral {
public:
    void Add(char16_t unit) noexcept {
        if (unit != u'\0')
            m_units[m_length++] = unit;
    }
    void Add(std::u16string_view text) noexcept {
        for (const char16_t unit : text)
            Add(unit);
    }
    std::size_t Length() const noexcept { return m_length; }
    void CutTo(std::size_t length) noexcept { m_length = length; }
    std::u16string_view View() const noexcept { return {m_units.data(), m_length}; }

    /// Makes every "一十" a "十".
    void ShortenTens() noexcept {
        std::size_t kept = 0;
        for (std::size_t i = 0; i < m_length; ++i)
            if (m_units[i] != u'一' || i + 1 == m_length || m_units[i + 1] != u'十')
                m_units[kept++] = m_units[i];
        m_length = kept;
    }

private:
    // The sign, at most three units a place, the currency and the fraction.
    std::array<char16_t, 1 + 3 * MostPlaces + 5> m_units;
    std::size_t m_length = 0;
};

void AddCapitalNumber(Numeral& numeral, std::u16string_view digits) noexcept {
    if (digits.size() > MostPlaces)
        return numeral.Add(TooLarge);
    const std::size_t begin = numeral.Length();
    bool zeroPending = false;
    bool groupHasDigit = false;
    for (std::size_t place = digits.size(); const char16_t unit : digits) {
        --place;
        if (unit == u' ')
            continue;
        if (!IsDigit(unit)) {
            numeral.CutTo(begin);
            return numeral.Add(NoDigit);
        }
        const bool zero = unit == u'0';
        if (!zero) {
            if (zeroPending)
                numeral.Add(CapitalDigits[0]);
            numeral.Add(CapitalDigits[unit - u'0']);
            numeral.Add(CapitalUnits[place]);
            groupHasDigit = true;
        } else if (place % 8 == 0 || (place % 8 == 4 && groupHasDigit)) {
            numeral.Add(CapitalUnits[place]);
        }
        if (place % 8 == 0)
            groupHasDigit = false;
        zeroPending = zero && place % 4 != 0;
    }
    if (numeral.Length() == begin)
        numeral.Add(CapitalDigits[0]);
}

/// As the processor truncates: what the type can't hold becomes its smallest value.
template <typename Int>
Int Truncate(double value) noexcept {
    constexpr double Smallest = static_cast<double>(std::numeric_limits<Int>::min());
    return value > Smallest && value < -Smallest ? static_cast<Int>(value) : std::numeric_limits<Int>::min();
}

/// The digit and its unit. The fraction's binary arithmetic can give a fen of -1 or 10 (1.895 gives -1);
/// there is no such digit, and nothing is written for it.
void AddFractionDigit(Numeral& numeral, std::int64_t digit, char16_t unit) noexcept {
    if (digit < 0 || digit > 9)
        return;
    numeral.Add(CapitalDigits[digit]);
    numeral.Add(unit);
}

void AddFraction(Numeral& numeral, double fraction, bool wholeIsZero) noexcept {
    const std::int64_t jiao = Truncate<std::int32_t>(fraction * 10);
    const std::int64_t fen = Truncate<std::int32_t>(fraction * 100) - 10 * jiao;
    if (jiao == 0 && fen == 0)
        return numeral.Add(u'整');
    if (jiao != 0)
        AddFractionDigit(numeral, jiao, u'角');
    else if (!wholeIsZero)
        numeral.Add(CapitalDigits[0]);
    if (fen != 0)
        AddFractionDigit(numeral, fen, u'分');
}

}  // namespace

CString CapitalNumber(std::u16string_view digits) {
    Numeral numeral;
    AddCapitalNumber(numeral, digits);
    return CString(numeral.View());
}

CString NumToRMBStr(double value) {
    Numeral numeral;
    if (value < 0)
        numeral.Add(u'负');
    double whole = 0;
    const double fraction = std::modf((value < 0 ? -value : value) + 0.005, &whole);

    std::array<char, 24> narrow;
    const char* const end =
        std::to_chars(narrow.data(), narrow.data() + narrow.size(), Truncate<std::int64_t>(whole)).ptr;
    std::array<char16_t, 24> digits;
    std::size_t count = 0;
    for (const char* it = narrow.data(); it != end; ++it)
        digits[count++] = static_cast<char16_t>(*it);
    AddCapitalNumber(numeral, {digits.data(), count});
    numeral.Add(u'元');
    AddFraction(numeral, fraction, whole == 0);
    return CString(numeral.View());
}

CString TransIntToUpper(int value) {
    if (value < 0)
        return CString(u"负数");
    std::array<int, 10> digits;
    std::size_t places = 0;
    for (int rest = value; rest != 0; rest /= 10)
        digits[places++] = rest % 10;

    Numeral numeral;
    bool zeroPending = false;
    for (std::size_t place = places; place-- > 0;) {
        if (digits[place] == 0) {
            zeroPending = true;
        } else {
            if (zeroPending)
                numeral.Add(PlainDigits[0]);
            zeroPending = false;
            numeral.Add(PlainDigits[digits[place]]);
            numeral.Add(PlainUnits[place % 4]);
        }
        // Also behind a group of zeros: hosts know 100000000 as "一亿万".
        if (place % 4 == 0) {
            numeral.Add(GroupUnits[place / 4]);
            zeroPending = false;
        }
    }
    if (numeral.Length() == 0)
        numeral.Add(PlainDigits[0]);
    // A text that begins with "一十" loses every "一" before a "十", not only the first.
    if (numeral.View().starts_with(u"一十"))
        numeral.ShortenTens();
    return CString(numeral.View());
}

}  // namespace QsText
