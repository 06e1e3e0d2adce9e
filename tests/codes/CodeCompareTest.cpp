// The orders of quota codes, bill codes and other item codes.
#include <random>

#include <gtest/gtest.h>

#include "QsUtils/QsUtils.h"
#include "QsUtils/codes/CodeCompare.h"

#include "tests/codes/PlainCodes.h"

namespace {

CString Repeated(int count, char16_t unit) {
    return CString(unit, count);
}

TEST(CompareDECode, NumbersCountAsNumbers) {
    EXPECT_EQ(IQsUtils::CompareDECode(u"2-9", u"2-10"), -1);
    EXPECT_EQ(IQsUtils::CompareDECode(u"2-10", u"2-9"), 1);
    EXPECT_EQ(IQsUtils::CompareDECode(u"007", u"7"), 0);
    EXPECT_EQ(IQsUtils::CompareDECode(u"A2", u"A02"), 0);
    EXPECT_EQ(IQsUtils::CompareDECode(u"A2B", u"A02C"), -1);
}

TEST(CompareDECode, NumbersStandBeforeTexts) {
    EXPECT_EQ(IQsUtils::CompareDECode(u"A1", u"1A"), 1);
    EXPECT_EQ(IQsUtils::CompareDECode(u"1A", u"A1"), -1);
}

TEST(CompareDECode, EmptyTextsStandFirst) {
    EXPECT_EQ(IQsUtils::CompareDECode(u"", u""), 0);
    EXPECT_EQ(IQsUtils::CompareDECode(u"", u"1"), -1);
    EXPECT_EQ(IQsUtils::CompareDECode(u"1", u""), 1);
}

TEST(CompareDECode, TextsDecideByUnitAndThenByLength) {
    EXPECT_EQ(IQsUtils::CompareDECode(u"AB1", u"AC0"), -1);
    EXPECT_EQ(IQsUtils::CompareDECode(u"a", u"B"), 1);
    EXPECT_EQ(IQsUtils::CompareDECode(u"A9", u"AB1"), -1);
    EXPECT_EQ(IQsUtils::CompareDECode(u"AB1", u"A9"), 1);
    EXPECT_EQ(IQsUtils::CompareDECode(u"A", u"A1"), -1);
    EXPECT_EQ(IQsUtils::CompareDECode(u"1A1", u"1A"), 1);
    EXPECT_EQ(IQsUtils::CompareDECode(u"土1", u"砖1"), u'土' < u'砖' ? -1 : 1);
    EXPECT_EQ(IQsUtils::CompareDECode(u"１", u"A"), 1);  // a full-width digit is a text
}

TEST(CompareDECode, LongCodesAreAlwaysBelow) {
    const CString longest = Repeated(499, u'1');
    const CString tooLong = Repeated(500, u'1');
    EXPECT_EQ(IQsUtils::CompareDECode(tooLong, tooLong), -1);
    EXPECT_EQ(IQsUtils::CompareDECode(tooLong, u"1"), -1);
    EXPECT_EQ(IQsUtils::CompareDECode(u"1", tooLong), -1);
    EXPECT_EQ(IQsUtils::CompareDECode(u"", tooLong), -1);
    EXPECT_EQ(IQsUtils::CompareDECode(longest, longest), 0);
    EXPECT_EQ(IQsUtils::CompareDECode(longest, u"2"), 1);
}

TEST(CompareDECode, NumbersSaturate) {
    EXPECT_EQ(IQsUtils::CompareDECode(u"2147483647", u"99999999999999"), 0);
    EXPECT_EQ(IQsUtils::CompareDECode(u"2147483646", u"2147483647"), -1);
    EXPECT_EQ(IQsUtils::CompareDECode(u"99999999999A", u"88888888888B"), -1);
}

TEST(CompareQDCode, ShorterFirstThenTheWordCompare) {
    EXPECT_EQ(IQsUtils::CompareQDCode(u"99", u"100"), -1);
    EXPECT_EQ(IQsUtils::CompareQDCode(u"100", u"99"), 1);
    EXPECT_EQ(IQsUtils::CompareQDCode(u"999", u"1000"), -1);
    EXPECT_LT(IQsUtils::CompareQDCode(u"010101001001", u"010101001002"), 0);
    EXPECT_GT(IQsUtils::CompareQDCode(u"B", u"a"), 0);
    EXPECT_LT(IQsUtils::CompareQDCode(u"a", u"A"), 0);
    EXPECT_EQ(IQsUtils::CompareQDCode(u"", u""), 0);
    EXPECT_GT(IQsUtils::CompareQDCode(u"1-1", u"101"), 0);  // the hyphen is skipped: "11" is greater
}

TEST(CompareStringW, NumbersThatTextsBeginWith) {
    EXPECT_GT(IQsUtils::CompareStringW(u"10", u"9"), 0);
    EXPECT_LT(IQsUtils::CompareStringW(u"a10", u"a9"), 0);
    EXPECT_GT(IQsUtils::CompareStringW(u"1.0", u"1"), 0);
    EXPECT_LT(IQsUtils::CompareStringW(u"1", u"1.0"), 0);
    EXPECT_EQ(IQsUtils::CompareStringW(u"1", u"1"), 0);
    EXPECT_LT(IQsUtils::CompareStringW(u"", u"1"), 0);
    EXPECT_GT(IQsUtils::CompareStringW(u"1", u""), 0);
    EXPECT_EQ(IQsUtils::CompareStringW(u"", u""), 0);
    EXPECT_GT(IQsUtils::CompareStringW(u"10", u"9a"), 0);
    EXPECT_GT(IQsUtils::CompareStringW(u"1e3", u"999"), 0);
    EXPECT_LT(IQsUtils::CompareStringW(u"-5", u"3"), 0);  // "-" is no digit: as texts
    EXPECT_LT(IQsUtils::CompareStringW(u"10", u"a"), 0);
    EXPECT_GT(IQsUtils::CompareStringW(u"1e999", u"1e998"), 0);  // both infinite: as texts
}

TEST(CompareStringW, PartsBetweenSeparators) {
    EXPECT_GT(IQsUtils::CompareStringW(u"1/10", u"1/9", L'/'), 0);
    EXPECT_GT(IQsUtils::CompareStringW(u"1-10/2", u"1-9/3", L'/'), 0);
    EXPECT_EQ(IQsUtils::CompareStringW(u"1/2", u"1/2/3", L'/'), 0);
    EXPECT_EQ(IQsUtils::CompareStringW(u"1/2", u"1/2", L'/'), 0);
    EXPECT_EQ(IQsUtils::CompareStringW(u"1/", u"1/2", L'/'), 0);  // the empty last part falls away
    EXPECT_EQ(IQsUtils::CompareStringW(u"/", u"/x", L'/'), 0);
    EXPECT_GT(IQsUtils::CompareStringW(u"12", u"3/4", L'/'), 0);
    EXPECT_LT(IQsUtils::CompareStringW(u"1-10", u"1-9", L'/'), 0);  // without "/" as numbers, then as texts
    EXPECT_GT(IQsUtils::CompareStringW(u"1-10", u"1-9", L'-'), 0);
    EXPECT_LT(IQsUtils::CompareStringW(u"1/10-2", u"1/10-3", L'/'), 0);
    EXPECT_EQ(IQsUtils::CompareStringW(u"x/1-2", u"x/1-2-3", L'/'), 0);
    EXPECT_GT(IQsUtils::CompareStringW(u"1.10/2", u"1.9/2", L'.'), 0);  // the part "10/2" is read as 10
}

TEST(SortItem, ComparesLeadingInts) {
    EXPECT_TRUE(IQsUtils::SortItem(u"2\tx", u"10\ty"));
    EXPECT_FALSE(IQsUtils::SortItem(u"2\tx", u"2\ty"));
    EXPECT_FALSE(IQsUtils::SortItem(u"2\ty", u"2\tx"));
    EXPECT_TRUE(IQsUtils::SortItem(u"x", u"1"));
    EXPECT_FALSE(IQsUtils::SortItem(u"x", u"0"));
    EXPECT_TRUE(IQsUtils::SortItem(u" -3", u""));
}

class RandomCodes {
public:
    explicit RandomCodes(std::uint32_t seed) : m_random(seed) {}
    CString Make(std::u16string_view alphabet, int most) {
        CString code;
        for (auto length = m_random() % static_cast<unsigned>(most + 1); length > 0; --length)
            code += alphabet[m_random() % alphabet.size()];
        return code;
    }
    unsigned Number() { return static_cast<unsigned>(m_random()); }

private:
    std::mt19937 m_random;
};

TEST(CodeCompare, AgreesWithThePlainRules) {
    RandomCodes random(42);
    const std::u16string_view alphabets[] = {u"01A-", u"019-/", u"1.e-/x", u"0123456789", u"aB1土/-. "};
    for (int i = 0; i < 1000000; ++i) {
        const std::u16string_view alphabet = alphabets[static_cast<unsigned>(i) % std::size(alphabets)];
        const CString a = random.Make(alphabet, 8);
        const CString b = random.Number() % 8 == 0 ? a + random.Make(alphabet, 2) : random.Make(alphabet, 8);
        ASSERT_EQ(IQsUtils::CompareDECode(a, b), PlainCodes::CompareDECode(a, b)) << a << " " << b;
        ASSERT_EQ(IQsUtils::CompareStringW(a, b), PlainCodes::CompareNumbers(a, b)) << a << " " << b;
        ASSERT_EQ(IQsUtils::CompareStringW(a, b, L'/'), PlainCodes::CompareParts(a, b, L'/'))
            << a << " " << b;
        ASSERT_EQ(IQsUtils::CompareStringW(a, b, L'-'), PlainCodes::CompareParts(a, b, L'-'))
            << a << " " << b;
    }
}

}  // namespace
