// Texts that are numbers, through the facades.
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string>

#include <gtest/gtest.h>

#include "QsUtils/text/FixedDecimal.h"
#include "QsUtils/text/NumberText.h"
#include "QsUtils/text/Numbers.h"

#include "tests/text/RandomNumbers.h"

namespace {

using namespace QsText;

constexpr int UntouchedNumber = 4711;

/// The number read, or `UntouchedNumber` when the text is refused.
int IntegerOf(const CString& text) {
    int value = UntouchedNumber;
    const bool taken = ParseToInteger(text, value);
    EXPECT_EQ(taken, value != UntouchedNumber) << text;
    return value;
}

double DoubleOf(const CString& text) {
    double value = UntouchedNumber;
    const bool taken = ParseToDouble(text, value);
    EXPECT_EQ(taken, value != UntouchedNumber) << text;
    return value;
}

TEST(ParseToInteger, TakesWholeNumbers) {
    EXPECT_EQ(IntegerOf(u" 12 "), 12);
    EXPECT_EQ(IntegerOf(u"-0"), 0);
    EXPECT_EQ(IntegerOf(u"+7"), 7);
    EXPECT_EQ(IntegerOf(u"\u3000-7\t\n"), -7);
    EXPECT_EQ(IntegerOf(u"007"), 7);
    EXPECT_EQ(IntegerOf(u"2147483648"), 2147483647);
    EXPECT_EQ(IntegerOf(u"-2147483649"), std::numeric_limits<int>::min());
}

TEST(ParseToInteger, RefusesAllElse) {
    for (const char16_t* text : {u"", u" ", u"+", u"-", u" - ", u"12.0", u"1 2", u"+-1", u"1+", u"a1", u"1a",
                                 u"１２", u".", u"1e5", u"- 1",
                                 u"\u0085"
                                 u"1"})
        EXPECT_EQ(IntegerOf(text), UntouchedNumber) << CString(text);
    EXPECT_EQ(IntegerOf(CString(u"12\0", 3)), UntouchedNumber);
}

TEST(ParseToDouble, TakesDecimalNumbers) {
    EXPECT_EQ(DoubleOf(u"-1.5"), -1.5);
    EXPECT_EQ(DoubleOf(u"+7"), 7.0);
    EXPECT_EQ(DoubleOf(u"+7.25"), 7.25);
    EXPECT_EQ(DoubleOf(u" \u00A0"
                       u"0.10\r"),
              0.1);
    EXPECT_EQ(DoubleOf(u"123456789012345678901234567890"), 123456789012345678901234567890.0);
    EXPECT_TRUE(std::signbit(DoubleOf(u"-0")));
    EXPECT_EQ(DoubleOf(CString(u'9', 400)), std::numeric_limits<double>::infinity());
}

TEST(ParseToDouble, RefusesAllElse) {
    for (const char16_t* text :
         {u"",    u"  ",  u"+",   u"-",   u".",   u"1.",  u".1", u"1..2", u"1.2.3", u"--1", u"1-2", u"+.5",
          u"-.5", u"+5.", u"1e5", u"1E5", u"0x1", u"1 2", u"１", u"inf",  u"nan",   u"1,5", u"5%"})
        EXPECT_EQ(DoubleOf(text), UntouchedNumber) << CString(text);
}

TEST(bIsNum, LooksOnlyAtTheCharacters) {
    for (const char16_t* text : {u"-12.5", u"0", u"1.2.3", u"-", u".", u"-.", u"...", u"12"})
        EXPECT_TRUE(bIsNum(text)) << CString(text);
    for (const char16_t* text : {u"", u"1-2", u"+1", u" 1", u"1 ", u"--1", u"1e5", u"１", u"a"})
        EXPECT_FALSE(bIsNum(text)) << CString(text);
}

/// The steps of both parsers one by one, on a copy.
struct PlainParser {
    static bool IsAscii(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

    static bool Integer(std::u16string text, int& value) {
        if (text.empty())
            return false;
        text = Trim(text);
        if (text.empty() || (!IsAscii(text[0]) && text[0] != u'+' && text[0] != u'-'))
            return false;
        if (text == u"+" || text == u"-")
            return false;
        for (std::size_t i = 1; i < text.size(); ++i)
            if (!IsAscii(text[i]))
                return false;
        value = ReadInt(text);
        return true;
    }

    static bool Double(std::u16string text, double& value) {
        if (text.empty())
            return false;
        text = Trim(text);
        if (text.empty() || (!IsAscii(text[0]) && text[0] != u'+' && text[0] != u'-'))
            return false;
        if (text == u"+" || text == u"-")
            return false;
        std::size_t points = 0;
        for (const char16_t unit : text)
            points += unit == u'.' ? 1 : 0;
        if (points > 1)
            return false;
        if (points == 1) {
            const std::size_t at = text.find(u'.');
            if (at == 0 || at == text.size() - 1 || !IsAscii(text[at - 1]) || !IsAscii(text[at + 1]))
                return false;
        }
        for (std::size_t i = 1; i < text.size(); ++i)
            if (!IsAscii(text[i]) && text[i] != u'.')
                return false;
        value = ReadDouble(text);
        return true;
    }

private:
    static std::u16string Trim(std::u16string text) {
        while (!text.empty() && IsSpace(text.back()))
            text.pop_back();
        while (!text.empty() && IsSpace(text.front()))
            text.erase(text.begin());
        return text;
    }
};

TEST(NumberParsers, AgreeWithTheirStepsOnRandomTexts) {
    RandomNumbers random(22);
    int taken = 0;
    for (int round = 0; round < 2'000'000; ++round) {
        const std::u16string text = random.Text();
        int whole = UntouchedNumber;
        int expectedWhole = UntouchedNumber;
        ASSERT_EQ(ParseToInteger(text, whole), PlainParser::Integer(text, expectedWhole)) << CString(text);
        ASSERT_EQ(whole, expectedWhole);
        double real = UntouchedNumber;
        double expectedReal = UntouchedNumber;
        ASSERT_EQ(ParseToDouble(text, real), PlainParser::Double(text, expectedReal)) << CString(text);
        ASSERT_EQ(real, expectedReal);
        taken += real != UntouchedNumber ? 1 : 0;
    }
    EXPECT_GT(taken, 500'000);
}

TEST(DoubleToCString, WritesTheDecimals) {
    EXPECT_EQ(DoubleToCString(2.5, 2, true), u"2.5");
    EXPECT_EQ(DoubleToCString(2.5, 2, false), u"2.50");
    EXPECT_EQ(DoubleToCString(2.5, 0, false), u"2");
    EXPECT_EQ(DoubleToCString(100, 0, true), u"100");
    EXPECT_EQ(DoubleToCString(0.0, 3, true), u"0");
    EXPECT_EQ(DoubleToCString(0.0, 3, false), u"0.000");
    EXPECT_EQ(DoubleToCString(12.5, 3, true), u"12.5");
    EXPECT_EQ(DoubleToCString(12, 3, true), u"12");
    EXPECT_EQ(DoubleToCString(1200, 2, true), u"1200");
    EXPECT_EQ(DoubleToCString(-1.05, 6, true), u"-1.05");
    EXPECT_EQ(DoubleToCString(0.000001, 6, true), u"0.000001");
}

TEST(DoubleToCString, HasSixDecimalsOutsideOfZeroToSix) {
    EXPECT_EQ(DoubleToCString(2.5, 7, true), u"2.500000");
    EXPECT_EQ(DoubleToCString(2.5, -1, true), u"2.500000");
    EXPECT_EQ(DoubleToCString(2.5, std::numeric_limits<int>::min(), false), u"2.500000");
    EXPECT_EQ(DoubleToCString(2.5, std::numeric_limits<int>::max(), true), u"2.500000");
}

TEST(DoubleToCString, RoundsTiesToEven) {
    EXPECT_EQ(DoubleToCString(0.5, 0, false), u"0");
    EXPECT_EQ(DoubleToCString(1.5, 0, false), u"2");
    EXPECT_EQ(DoubleToCString(2.5, 0, false), u"2");
    EXPECT_EQ(DoubleToCString(0.125, 2, false), u"0.12");
    EXPECT_EQ(DoubleToCString(0.375, 2, false), u"0.38");
    EXPECT_EQ(DoubleToCString(2.675, 2, false), u"2.67");
    EXPECT_EQ(DoubleToCString(1e22 + 0.5, 1, false), u"10000000000000000000000.0");
}

TEST(DoubleToCString, KeepsTheSignOfZero) {
    EXPECT_EQ(DoubleToCString(-0.0, 2, false), u"-0.00");
    EXPECT_EQ(DoubleToCString(-0.0, 2, true), u"-0");
    EXPECT_EQ(DoubleToCString(-0.001, 2, true), u"-0");
    EXPECT_EQ(DoubleToCString(-0.0, 0, true), u"-0");
}

TEST(DoubleToCString, WritesWhatIsNoNumber) {
    constexpr double Infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(DoubleToCString(Infinity, 2, true), u"inf");
    EXPECT_EQ(DoubleToCString(-Infinity, 2, false), u"-inf");
    EXPECT_EQ(DoubleToCString(Infinity, 9, true), u"inf");
    EXPECT_EQ(DoubleToCString(std::numeric_limits<double>::quiet_NaN(), 2, true), u"nan");
    EXPECT_EQ(DoubleToCString(std::numeric_limits<double>::max(), 6, true).GetLength(), 309);
    EXPECT_EQ(DoubleToCString(std::numeric_limits<double>::lowest(), 6, false).GetLength(), 317);
    EXPECT_EQ(DoubleToCString(std::numeric_limits<double>::denorm_min(), 6, true), u"0");
}

std::u16string PlainTrimmed(std::u16string text) {
    if (text.find(u'.') == text.npos)
        return text;
    while (text.back() == u'0')
        text.pop_back();
    if (text.back() == u'.')
        text.pop_back();
    return text;
}

TEST(DoubleToCString, AgreesWithBothRuntimesOnRandomValues) {
    RandomNumbers random(128);
    for (int round = 0; round < 3'000'000; ++round) {
        const double value = random.Double();
        if (std::isnan(value))
            continue;
        const int decimals = static_cast<int>(random.Below(7));
        char narrow[400];
        const auto end =
            std::to_chars(narrow, narrow + sizeof narrow, value, std::chars_format::fixed, decimals);
        const std::u16string expected(narrow, end.ptr);
        char printed[400];
        std::snprintf(printed, sizeof printed, "%.*f", decimals, value);
        ASSERT_EQ(std::string(narrow, end.ptr), printed);
        ASSERT_EQ(DoubleToCString(value, decimals, false).View(), expected) << printed;
        ASSERT_EQ(DoubleToCString(value, decimals, true).View(), PlainTrimmed(expected)) << printed;
    }
}

TEST(RateOfTransPrice, IsValidUnlessItIsNegative) {
    for (const char16_t* text : {u"免税", u"abc", u"", u"0", u"3.5%", u"-0", u"-", u"  ", u"-abc", u"1e999"})
        EXPECT_TRUE(IsValidRateOfTransPrice(text)) << CString(text);
    for (const char16_t* text : {u"-0.5", u" -1%", u"-1e-300", u"-1e999"})
        EXPECT_FALSE(IsValidRateOfTransPrice(text)) << CString(text);
}

TEST(RateOfTransPrice, IsTheNumberThatTheTextBeginsWith) {
    EXPECT_EQ(GetFormatedRateOfTransPrice(u"3.5%"), 3.5);
    EXPECT_EQ(GetFormatedRateOfTransPrice(u"免税"), 0.0);
    EXPECT_EQ(GetFormatedRateOfTransPrice(u"免税 9"), 0.0);
    EXPECT_EQ(GetFormatedRateOfTransPrice(u"abc"), 0.0);
    EXPECT_EQ(GetFormatedRateOfTransPrice(u""), 0.0);
    EXPECT_EQ(GetFormatedRateOfTransPrice(u" -2.25 "), -2.25);
}

}  // namespace
