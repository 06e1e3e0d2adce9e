#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/platform/EntryNames.h"
#include "QsUtils/platform/UpperCase.h"

#include "tests/platform/PlainNameMask.h"
#include "tests/support/Rounds.h"

using QsPlatform::NameMask;
using QsPlatform::StandsBefore;
using QsPlatform::UpperCase;

namespace {

bool Finds(std::u16string_view mask, std::u16string_view name) {
    return NameMask(mask).Matches(name);
}

TEST(UpperCase, OfLettersOfManyScripts) {
    EXPECT_EQ(UpperCase(u'a'), u'A');
    EXPECT_EQ(UpperCase(u'z'), u'Z');
    EXPECT_EQ(UpperCase(u'é'), u'É');
    EXPECT_EQ(UpperCase(u'ω'), u'Ω');
    EXPECT_EQ(UpperCase(u'я'), u'Я');
    EXPECT_EQ(UpperCase(u'ａ'), u'Ａ');
    EXPECT_EQ(UpperCase(u'ÿ'), u'Ÿ');
    EXPECT_EQ(UpperCase(u'ⅳ'), u'Ⅳ');
}

TEST(UpperCase, NothingElseChanges) {
    for (const char16_t unit : std::u16string_view(u"A{`@19_砖ÉΩ×÷ßıſςǅ\xD800\xDFFF\xFFFF"))
        EXPECT_EQ(UpperCase(unit), unit);
    EXPECT_EQ(UpperCase(0), 0);
}

// As many as the system's own table has, and each of them once more in one number, so that no row is lost.
TEST(UpperCase, TheWholeTable) {
    int changed = 0;
    std::uint64_t sum = 0;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const char16_t upper = UpperCase(static_cast<char16_t>(unit));
        EXPECT_EQ(UpperCase(upper), upper) << unit;
        changed += upper != unit;
        sum = sum * 31 + upper;
    }
    EXPECT_EQ(changed, 1163);
    EXPECT_EQ(sum, 0x2eab2ca4e0b93395U);
}

TEST(StandsBefore, ByUpperCasedCodeUnit) {
    // "_" stands behind the capitals and before the small letters, which is what tells the two orders apart.
    std::vector<std::u16string> names = {u"b_c", u"Bd",  u"砖", u"a", u"É",  u"z",
                                         u"é1",  u"A.b", u"_",  u"1", u"ab", u"A"};
    std::sort(names.begin(), names.end(), StandsBefore);
    EXPECT_EQ(names, (std::vector<std::u16string>{u"1", u"A", u"a", u"A.b", u"ab", u"Bd", u"b_c", u"z", u"_",
                                                  u"É", u"é1", u"砖"}));
}

TEST(StandsBefore, NamesThatDifferInCaseAloneStandByCodeUnit) {
    EXPECT_TRUE(StandsBefore(u"AB", u"Ab"));
    EXPECT_TRUE(StandsBefore(u"Ab", u"aB"));
    EXPECT_FALSE(StandsBefore(u"aB", u"Ab"));
    EXPECT_FALSE(StandsBefore(u"aB", u"aB"));
    EXPECT_TRUE(StandsBefore(u"a", u"Ab"));
    EXPECT_TRUE(StandsBefore(u"", u"a"));
}

TEST(StandsBefore, IsAStrictOrder) {
    std::mt19937 random(1);
    const std::u16string alphabet = u"aAbB_é\u00C9";
    const auto name = [&] {
        std::u16string text(random() % 4, u' ');
        for (char16_t& unit : text)
            unit = alphabet[random() % alphabet.size()];
        return text;
    };
    for (int round = 0; round < Rounds(300'000); ++round) {
        const std::u16string a = name();
        const std::u16string b = name();
        const std::u16string c = name();
        ASSERT_EQ(StandsBefore(a, b) + StandsBefore(b, a) + (a == b), 1);
        if (StandsBefore(a, b) && StandsBefore(b, c)) {
            ASSERT_TRUE(StandsBefore(a, c));
        }
    }
}

TEST(NameMask, EveryName) {
    for (const char16_t* mask : {u"*", u"*.*", u"*.", u"**", u"*.*.*", u"*. .", u"*..*"}) {
        for (const char16_t* name : {u"a", u"a.b", u".", u"..", u".x", u"a.b.c", u"项目", u"a."})
            EXPECT_TRUE(Finds(mask, name));
    }
}

TEST(NameMask, ExtensionsAreWholeAndNamesLiteral) {
    EXPECT_TRUE(Finds(u"*.ec", u"x.ec"));
    EXPECT_TRUE(Finds(u"*.ec", u"x.y.EC"));
    EXPECT_FALSE(Finds(u"*.ec", u"x.ecx"));
    EXPECT_FALSE(Finds(u"*.ec", u"xec"));
    EXPECT_TRUE(Finds(u"[x]*", u"[x]"));
    EXPECT_FALSE(Finds(u"[x]*", u"x"));
    EXPECT_FALSE(Finds(u"a b*", u"a.b"));
}

TEST(NameMask, APointBeforeAStarMayBeMissingAtTheEnd) {
    EXPECT_TRUE(Finds(u"a.*", u"a"));
    EXPECT_TRUE(Finds(u"a.*", u"a.b"));
    EXPECT_TRUE(Finds(u"a.*.*", u"a"));
    EXPECT_TRUE(Finds(u"?.*", u"."));
    EXPECT_TRUE(Finds(u"a.b*", u"a.b"));
    EXPECT_FALSE(Finds(u"a.b*", u"a"));
    EXPECT_FALSE(Finds(u"a.*", u"ab"));
}

TEST(NameMask, AQuestionMarkIsOneUnit) {
    EXPECT_TRUE(Finds(u"?", u"a"));
    EXPECT_TRUE(Finds(u"?", u"."));
    EXPECT_FALSE(Finds(u"?", u".."));
    EXPECT_FALSE(Finds(u"a??", u"a"));
    EXPECT_TRUE(Finds(u"a??", u"a.b"));
    EXPECT_FALSE(Finds(u"a.?", u"a"));
    EXPECT_TRUE(Finds(u"??", u"\xD840\xDC00"));
}

TEST(NameMask, CaseDoesNotCountInAnyScript) {
    EXPECT_TRUE(Finds(u"É*", u"é.txt"));
    EXPECT_TRUE(Finds(u"ω*", u"Ω"));
    EXPECT_TRUE(Finds(u"*.EC", u"项目.ec"));
}

TEST(NameMask, MatchesAsThePlainOne) {
    std::mt19937 random(2);
    const auto text = [&](std::u16string_view alphabet, std::size_t longest) {
        std::u16string units(random() % (longest + 1), u' ');
        for (char16_t& unit : units)
            unit = alphabet[random() % alphabet.size()];
        return units;
    };
    for (int round = 0; round < Rounds(1'000'000); ++round) {
        const std::u16string mask = text(u"aaAb.**? ", 8);
        const std::u16string name = text(u"aaBb.. ", 8);
        ASSERT_EQ(Finds(mask, name), PlainNameMask(mask).Matches(name))
            << std::string(mask.begin(), mask.end()) << " on " << std::string(name.begin(), name.end());
    }
}

// By trying everything it would take longer than the universe has been there.
TEST(NameMask, ManyStarsTakeNoLongerThanTheirLength) {
    std::u16string mask;
    for (int i = 0; i < 2000; ++i)
        mask += u"*a";
    EXPECT_FALSE(Finds(mask + u"*b", std::u16string(20'000, u'a')));
    EXPECT_TRUE(Finds(mask + u"*", std::u16string(20'000, u'a')));
    EXPECT_FALSE(Finds(std::u16string(50'000, u'?'), std::u16string(49'999, u'a')));
}

}  // namespace
