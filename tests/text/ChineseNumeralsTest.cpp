// Amounts and ints in Chinese numerals.
#include <climits>
#include <cmath>
#include <limits>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "QsUtils/text/ChineseNumerals.h"

#include "tests/text/PlainChineseNumerals.h"
#include "tests/text/RandomNumbers.h"

namespace {

using QsText::CapitalNumber;
using QsText::NumToRMBStr;
using QsText::TransIntToUpper;

TEST(NumToRMBStr, WritesTheFraction) {
    EXPECT_EQ(NumToRMBStr(0), u"零元整");
    EXPECT_EQ(NumToRMBStr(0.05), u"零元伍分");
    EXPECT_EQ(NumToRMBStr(0.1), u"零元壹角");
    EXPECT_EQ(NumToRMBStr(0.004), u"零元整");
    EXPECT_EQ(NumToRMBStr(0.005), u"零元壹分");
    EXPECT_EQ(NumToRMBStr(1.5), u"壹元伍角");
    EXPECT_EQ(NumToRMBStr(12.30), u"壹拾贰元叁角");
    EXPECT_EQ(NumToRMBStr(12.05), u"壹拾贰元零伍分");
    EXPECT_EQ(NumToRMBStr(12.34), u"壹拾贰元叁角肆分");
    EXPECT_EQ(NumToRMBStr(10.05), u"壹拾元零伍分");
    EXPECT_EQ(NumToRMBStr(1.999), u"贰元整");
}

TEST(NumToRMBStr, WritesTheSign) {
    EXPECT_EQ(NumToRMBStr(-1.5), u"负壹元伍角");
    EXPECT_EQ(NumToRMBStr(-0.001), u"负零元整");
    EXPECT_EQ(NumToRMBStr(-0.0), u"零元整");
}

TEST(NumToRMBStr, WritesTheWholePart) {
    EXPECT_EQ(NumToRMBStr(10), u"壹拾元整");
    EXPECT_EQ(NumToRMBStr(101), u"壹佰零壹元整");
    EXPECT_EQ(NumToRMBStr(1001), u"壹仟零壹元整");
    EXPECT_EQ(NumToRMBStr(10000), u"壹万元整");
    EXPECT_EQ(NumToRMBStr(100000), u"壹拾万元整");
    EXPECT_EQ(NumToRMBStr(100100), u"壹拾万零壹佰元整");
    EXPECT_EQ(NumToRMBStr(10001000), u"壹仟万壹仟元整");
    EXPECT_EQ(NumToRMBStr(100000000), u"壹亿元整");
    EXPECT_EQ(NumToRMBStr(100000001), u"壹亿零壹元整");
    EXPECT_EQ(NumToRMBStr(1000000000000), u"壹万亿元整");
    EXPECT_EQ(NumToRMBStr(10000000000000000), u"壹亿亿元整");
}

// 1.895 + 0.005 is a little below 1.9: ten times the fraction rounds up to 9, and a hundred times gives 89.
TEST(NumToRMBStr, WritesNothingForADigitThatThereIsNot) {
    EXPECT_EQ(NumToRMBStr(1.895), u"壹元玖角");
    EXPECT_EQ(NumToRMBStr(-1.895), u"负壹元玖角");
}

TEST(NumToRMBStr, TellsOfAmountsBeyondTheIntegers) {
    EXPECT_EQ(NumToRMBStr(1e19), u"输入含非数字字符!元整");
    EXPECT_EQ(NumToRMBStr(9223372036854775808.0), u"输入含非数字字符!元整");
    EXPECT_EQ(NumToRMBStr(-1e300), u"负输入含非数字字符!元整");
    EXPECT_EQ(NumToRMBStr(std::numeric_limits<double>::infinity()), u"输入含非数字字符!元整");
    EXPECT_EQ(NumToRMBStr(-std::numeric_limits<double>::infinity()), u"负输入含非数字字符!元整");
    EXPECT_EQ(NumToRMBStr(std::numeric_limits<double>::quiet_NaN()), u"输入含非数字字符!元");
    EXPECT_EQ(NumToRMBStr(9223372036854774784.0),
              u"玖佰贰拾贰亿叁仟叁佰柒拾贰万零叁佰陆拾捌亿伍仟肆佰柒拾柒万肆仟柒佰捌拾肆元整");
}

TEST(CapitalNumber, HasItsLimits) {
    EXPECT_EQ(CapitalNumber(u""), u"零");
    EXPECT_EQ(CapitalNumber(u"0"), u"零");
    EXPECT_EQ(CapitalNumber(std::u16string(24, u'1')).GetLength(), 47);
    EXPECT_EQ(CapitalNumber(std::u16string(24, u'1')).Left(3), u"壹仟壹");
    EXPECT_EQ(CapitalNumber(std::u16string(25, u'1')), u"数值过大!");
    EXPECT_EQ(CapitalNumber(std::u16string(25, u'x')), u"数值过大!");
    EXPECT_EQ(CapitalNumber(u"12a"), u"输入含非数字字符!");
    EXPECT_EQ(CapitalNumber(u"-1"), u"输入含非数字字符!");
    EXPECT_EQ(CapitalNumber(u"１"), u"输入含非数字字符!");
    EXPECT_EQ(CapitalNumber(u"1 2"), u"壹佰贰");
    EXPECT_EQ(CapitalNumber(u"1 "), u"壹拾");
    EXPECT_EQ(CapitalNumber(u"   "), u"零");
    EXPECT_EQ(CapitalNumber(u"0000000000"), u"亿");
    EXPECT_EQ(CapitalNumber(u"100000000000000000000000"), u"壹仟万亿亿");
}

TEST(TransIntToUpper, WritesOrdinaryNumerals) {
    EXPECT_EQ(TransIntToUpper(0), u"零");
    EXPECT_EQ(TransIntToUpper(-5), u"负数");
    EXPECT_EQ(TransIntToUpper(INT_MIN), u"负数");
    EXPECT_EQ(TransIntToUpper(20), u"二十");
    EXPECT_EQ(TransIntToUpper(105), u"一百零五");
    EXPECT_EQ(TransIntToUpper(110), u"一百一十");
    EXPECT_EQ(TransIntToUpper(999), u"九百九十九");
    EXPECT_EQ(TransIntToUpper(1000), u"一千");
    EXPECT_EQ(TransIntToUpper(10001), u"一万零一");
    EXPECT_EQ(TransIntToUpper(2147483647), u"二十一亿四千七百四十八万三千六百四十七");
}

TEST(TransIntToUpper, ShortensTensOnlyOfTextsThatBeginWithTen) {
    EXPECT_EQ(TransIntToUpper(10), u"十");
    EXPECT_EQ(TransIntToUpper(12), u"十二");
    EXPECT_EQ(TransIntToUpper(100000), u"十万");
    EXPECT_EQ(TransIntToUpper(100001), u"十万零一");
    EXPECT_EQ(TransIntToUpper(101010), u"十万一千零十");
    EXPECT_EQ(TransIntToUpper(1110), u"一千一百一十");
}

TEST(TransIntToUpper, WritesTheUnitOfAnEmptyGroup) {
    EXPECT_EQ(TransIntToUpper(100000000), u"一亿万");
    EXPECT_EQ(TransIntToUpper(1000000000), u"十亿万");
    EXPECT_EQ(TransIntToUpper(100000001), u"一亿万零一");
}

TEST(CapitalNumber, AgreesWithItsRulesOnRandomTexts) {
    RandomNumbers random(24);
    for (int round = 0; round < 1'000'000; ++round) {
        std::u16string text;
        const std::size_t zeros = 1 + random.Below(6);
        for (std::size_t i = random.Below(27); i > 0; --i)
            text += random.OneIn(200)     ? u'x'
                    : random.OneIn(30)    ? u' '
                    : random.OneIn(zeros) ? u"0123456789"[random.Below(10)]
                                          : u'0';
        ASSERT_EQ(CapitalNumber(text).View(), PlainCapitalNumber(text)) << CString(text);
    }
}

TEST(NumToRMBStr, AgreesWithItsStepsOnRandomAmounts) {
    RandomNumbers random(23);
    for (int round = 0; round < 2'000'000; ++round) {
        double value = random.Double();
        if (round % 4 == 0)  // all the fractions that amounts have, and their ties
            value = static_cast<double>(random.Below(100'000'000)) / 1000.0;
        ASSERT_EQ(NumToRMBStr(value).View(), PlainAmount(value)) << value;
    }
}

TEST(NumToRMBStr, AgreesWithItsStepsOnEveryAmountOfThreeDecimalsToAThousand) {
    for (int thousandths = 0; thousandths < 1'000'000; ++thousandths)
        ASSERT_EQ(NumToRMBStr(thousandths / 1000.0).View(), PlainAmount(thousandths / 1000.0)) << thousandths;
}

TEST(TransIntToUpper, AgreesWithItsRules) {
    const auto check = [](int value) {
        ASSERT_EQ(TransIntToUpper(value).View(), PlainNumeral(value)) << value;
    };
    for (int value = -100; value <= 1'000'000; ++value)
        check(value);
    for (long long power = 10; power <= INT_MAX; power *= 10)
        for (int offset = -1; offset <= 1; ++offset)
            check(static_cast<int>(power) + offset);
    RandomNumbers random(31);
    for (int round = 0; round < 1'000'000; ++round) {
        int value = static_cast<int>(random.Bits() >> (33 + random.Below(30)));
        for (int step = 1; step < 1'000'000'000 && random.OneIn(2); step *= 10)
            value -= value / step % 10 * step;
        check(value);
    }
}

}  // namespace
