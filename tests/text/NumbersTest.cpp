// Reading of numbers.
#include <cerrno>
#include <charconv>
#include <climits>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <locale>
#include <string>

#include <gtest/gtest.h>

#include "QsUtils/text/CString.h"
#include "QsUtils/text/Numbers.h"

#include "tests/text/RandomNumbers.h"

namespace {

using QsText::ReadDouble;
using QsText::ReadInt;

constexpr double Infinity = std::numeric_limits<double>::infinity();

TEST(ReadInt, ReadsTheNumberThatATextBeginsWith) {
    EXPECT_EQ(ReadInt(u""), 0);
    EXPECT_EQ(ReadInt(u"12"), 12);
    EXPECT_EQ(ReadInt(u"+12"), 12);
    EXPECT_EQ(ReadInt(u"-12abc"), -12);
    EXPECT_EQ(ReadInt(u" \t\n\v\f\r\u00A0\u1680\u2003\u2028\u2029\u202F\u205F\u300042"), 42);
    EXPECT_EQ(ReadInt(u"007"), 7);
    EXPECT_EQ(ReadInt(u"1.9"), 1);
    EXPECT_EQ(ReadInt(u"1e5"), 1);
}

TEST(ReadInt, IsZeroWhereNoNumberBegins) {
    for (const char16_t* text : {u"abc", u"-", u"+", u"+-1", u"--1", u"- 1", u"２", u"\uFEFF1", u"\u200B1",
                                 u"\u00851", u"٣٤", u".5", u"一"})
        EXPECT_EQ(ReadInt(text), 0) << CString(text);
}

TEST(ReadInt, Saturates) {
    EXPECT_EQ(ReadInt(u"2147483647"), INT_MAX);
    EXPECT_EQ(ReadInt(u"2147483648"), INT_MAX);
    EXPECT_EQ(ReadInt(u"-2147483648"), INT_MIN);
    EXPECT_EQ(ReadInt(u"-2147483649"), INT_MIN);
    EXPECT_EQ(ReadInt(std::u16string(1'000'000, u'9')), INT_MAX);
    EXPECT_EQ(ReadInt(u"-" + std::u16string(1'000'000, u'9')), INT_MIN);
    EXPECT_EQ(ReadInt(std::u16string(1'000'000, u'0') + u"5"), 5);
}

TEST(ReadDouble, ReadsTheNumberThatATextBeginsWith) {
    EXPECT_EQ(ReadDouble(u"12.5"), 12.5);
    EXPECT_EQ(ReadDouble(u"+12.5m"), 12.5);
    EXPECT_EQ(ReadDouble(u" \t\u3000-0.1"), -0.1);
    EXPECT_EQ(ReadDouble(u"1."), 1.0);
    EXPECT_EQ(ReadDouble(u".5"), 0.5);
    EXPECT_EQ(ReadDouble(u"-.5e1"), -5.0);
    EXPECT_EQ(ReadDouble(u"1e5"), 1e5);
    EXPECT_EQ(ReadDouble(u"1.e5"), 1e5);
    EXPECT_EQ(ReadDouble(u"1E+5x"), 1e5);
    EXPECT_EQ(ReadDouble(u"1e-5"), 1e-5);
    EXPECT_EQ(ReadDouble(u"0.30000000000000004"), 0.30000000000000004);
    EXPECT_EQ(ReadDouble(u"3.5%"), 3.5);
    EXPECT_EQ(ReadDouble(u"1,5"), 1.0);
    EXPECT_EQ(ReadDouble(u"1.2.3"), 1.2);
}

TEST(ReadDouble, TakesAnExponentOnlyWithDigits) {
    for (const char16_t* text :
         {u"2e", u"2e+", u"2E-", u"2ex", u"2e x", u"2e.5", u"2d5", u"2D5", u"2p5", u"2e+-5"})
        EXPECT_EQ(ReadDouble(text), 2.0) << CString(text);
}

TEST(ReadDouble, IsZeroWhereNoNumberBegins) {
    for (const char16_t* text :
         {u"", u".", u"-", u"-.", u"+", u"e5", u".e5", u"-.e5", u"inf", u"nan", u"-inf", u"INFINITY", u"abc",
          u"１２", u"- 1", u"--1", u"\uFEFF1", u"\u00851", u"免税"}) {
        EXPECT_EQ(ReadDouble(text), 0.0) << CString(text);
        EXPECT_FALSE(std::signbit(ReadDouble(text))) << CString(text);
    }
    EXPECT_EQ(ReadDouble(u"0x10"), 0.0);
    EXPECT_EQ(ReadDouble(u"5x"), 5.0);
}

TEST(ReadDouble, KeepsTheSignOfZero) {
    EXPECT_TRUE(std::signbit(ReadDouble(u"-0")));
    EXPECT_TRUE(std::signbit(ReadDouble(u"-0.00")));
    EXPECT_TRUE(std::signbit(ReadDouble(u"-.0")));
    EXPECT_TRUE(std::signbit(ReadDouble(u"-1e-400")));
    EXPECT_FALSE(std::signbit(ReadDouble(u"0")));
}

TEST(ReadDouble, OverflowsToInfinityAndUnderflowsToZero) {
    EXPECT_EQ(ReadDouble(u"1e400"), Infinity);
    EXPECT_EQ(ReadDouble(u"-1e400"), -Infinity);
    EXPECT_EQ(ReadDouble(u"1e309"), Infinity);
    EXPECT_EQ(ReadDouble(u"1.7976931348623157e308"), std::numeric_limits<double>::max());
    EXPECT_EQ(ReadDouble(u"1.7976931348623158e308"), std::numeric_limits<double>::max());
    EXPECT_EQ(ReadDouble(u"1.7976931348623159e308"), Infinity);
    EXPECT_EQ(ReadDouble(u"1e-400"), 0.0);
    EXPECT_EQ(ReadDouble(u"5e-324"), 5e-324);
    EXPECT_EQ(ReadDouble(u"2.4703282292062328e-324"), 5e-324);
    EXPECT_EQ(ReadDouble(u"2.4703282292062327e-324"), 0.0);
    EXPECT_EQ(ReadDouble(u"2.2250738585072011e-308"), 2.2250738585072011e-308);
    EXPECT_EQ(ReadDouble(u"1e99999999999999999999999999"), Infinity);
    EXPECT_EQ(ReadDouble(u"1e-99999999999999999999999999"), 0.0);
    EXPECT_EQ(ReadDouble(u"0e99999999999999999999999999"), 0.0);
}

TEST(ReadDouble, ReadsAMillionDigits) {
    const std::u16string zeros(1'000'000, u'0');
    EXPECT_EQ(ReadDouble(u"1" + zeros), Infinity);
    EXPECT_EQ(ReadDouble(u"1" + zeros + u"e-1000000"), 1.0);
    EXPECT_EQ(ReadDouble(u"0." + zeros + u"1e1000001"), 1.0);
    EXPECT_EQ(ReadDouble(zeros + u"12.5"), 12.5);
    EXPECT_EQ(ReadDouble(u"12.5" + zeros), 12.5);
    EXPECT_EQ(ReadDouble(u"0." + zeros + u"1"), 0.0);
    EXPECT_EQ(ReadDouble(u"1e" + zeros + u"5"), 1e5);
    // Halfway between two doubles, and a digit far behind that decides.
    EXPECT_EQ(ReadDouble(u"9007199254740993." + zeros), 9007199254740992.0);
    EXPECT_EQ(ReadDouble(u"9007199254740993." + zeros + u"1"), 9007199254740994.0);
    EXPECT_EQ(ReadDouble(u"0." + std::u16string(1'000'000, u'9')), 1.0);
}

/// What stands of a number at the beginning of a text, character by character.
std::string NumberPart(std::u16string_view text) {
    std::size_t i = 0;
    while (i < text.size() && QsText::IsSpace(text[i]))
        ++i;
    std::string part;
    const auto take = [&] { part += static_cast<char>(text[i++]); };
    const auto digits = [&] {
        const std::size_t before = i;
        while (i < text.size() && text[i] >= u'0' && text[i] <= u'9')
            take();
        return i - before;
    };
    if (i < text.size() && (text[i] == u'+' || text[i] == u'-'))
        take();
    std::size_t count = digits();
    if (i < text.size() && text[i] == u'.') {
        take();
        count += digits();
    }
    if (count == 0)
        return "";
    if (i < text.size() && (text[i] == u'e' || text[i] == u'E')) {
        take();
        if (i < text.size() && (text[i] == u'+' || text[i] == u'-'))
            take();
        digits();
    }
    return part;
}

TEST(ReadDouble, AgreesWithTheRuntimeOnRandomTexts) {
    RandomNumbers random(1990);
    for (int round = 0; round < 2'000'000; ++round) {
        const std::u16string text = random.Text();
        const double expected = std::strtod(NumberPart(text).c_str(), nullptr);
        const double value = ReadDouble(text);
        ASSERT_EQ(std::bit_cast<std::uint64_t>(value), std::bit_cast<std::uint64_t>(expected))
            << CString(text);
    }
}

TEST(ReadDouble, ReadsBackEveryDoubleThatIsWritten) {
    RandomNumbers random(17);
    for (int round = 0; round < 1'000'000; ++round) {
        const double value = random.Double();
        if (!std::isfinite(value))
            continue;
        char narrow[1200];
        const bool exact = round % 8 == 0;
        const auto end =
            exact ? std::to_chars(narrow, narrow + sizeof narrow, value, std::chars_format::scientific, 800)
                  : std::to_chars(narrow, narrow + sizeof narrow, value);
        const std::u16string text(narrow, end.ptr);
        ASSERT_EQ(std::bit_cast<std::uint64_t>(ReadDouble(text)), std::bit_cast<std::uint64_t>(value))
            << narrow;
    }
}

TEST(ReadInt, AgreesWithTheRuntimeOnRandomTexts) {
    RandomNumbers random(32);
    for (int round = 0; round < 2'000'000; ++round) {
        const std::u16string text = random.Text();
        std::string part = NumberPart(text);
        part = part.substr(0, part.find_first_of(".eE"));
        const long long wide = std::strtoll(part.c_str(), nullptr, 10);
        const long long expected = wide > INT_MAX ? INT_MAX : wide < INT_MIN ? INT_MIN : wide;
        ASSERT_EQ(ReadInt(text), expected) << CString(text);
    }
}

struct CommaPoint : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};
struct WideCommaPoint : std::numpunct<wchar_t> {
    wchar_t do_decimal_point() const override { return L','; }
    wchar_t do_thousands_sep() const override { return L'.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(Numbers, DoNotDependOnTheLocale) {
    const std::locale before = std::locale::global(
        std::locale(std::locale(std::locale::classic(), new CommaPoint), new WideCommaPoint));
    const char* const name = std::setlocale(LC_ALL, "de_DE.UTF-8");
    CString text;
    text.Format(u"%.2f %d %g %s", 1234567.5, 1234567, 1234.5, CString(u"x"));
    const double value = ReadDouble(u"1.5");
    const double comma = ReadDouble(u"1,5");
    const int whole = ReadInt(u"1.234");
    const double longer = ReadDouble(u"1.00000000000000000000000001e1");
    std::setlocale(LC_ALL, "C");
    std::locale::global(before);
    EXPECT_EQ(text, u"1234567.50 1234567 1234.5 x") << (name == nullptr ? "(no such locale)" : name);
    EXPECT_EQ(value, 1.5);
    EXPECT_EQ(comma, 1.0);
    EXPECT_EQ(whole, 1);
    EXPECT_EQ(longer, 10.0);
}

}  // namespace
