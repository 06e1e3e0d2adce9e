#include <random>
#include <string>

#include <gtest/gtest.h>

#include "QsUtils/text/TextSearch.h"

namespace {

constexpr std::size_t npos = std::u16string_view::npos;

TEST(TextSearch, KnowsTheEdges) {
    EXPECT_EQ(QsText::FindText(u"abc", u""), 0u);
    EXPECT_EQ(QsText::FindText(u"abc", u"", 3), 3u);
    EXPECT_EQ(QsText::FindText(u"abc", u"", 4), npos);
    EXPECT_EQ(QsText::FindText(u"abc", u"abcd"), npos);
    EXPECT_EQ(QsText::FindText(u"abc", u"c", 3), npos);
    EXPECT_EQ(QsText::FindText(u"", u"a"), npos);
    EXPECT_EQ(QsText::FindText(u"abc", u"c", npos), npos);
}

/// Random texts of few letters, with long parts that repeat themselves and nearly occur.
TEST(TextSearch, AgreesWithTheStandardSearch) {
    std::mt19937 random(1991);
    const auto number = [&random](std::size_t most) {
        return std::uniform_int_distribution<std::size_t>(0, most)(random);
    };
    const auto letters = [&](std::size_t length, std::size_t kinds) {
        std::u16string text;
        for (std::size_t i = 0; i < length; ++i)
            text += static_cast<char16_t>(u'a' + number(kinds));
        return text;
    };
    for (int round = 0; round < 1'000'000; ++round) {
        const std::u16string period = letters(1 + number(8), number(2));
        std::u16string part;
        while (part.size() < 1 + number(40))
            part += period;
        if (number(2) == 0)
            part[number(part.size() - 1)] = u'b';
        std::u16string text;
        for (std::size_t i = number(4); i > 0; --i) {
            text += part.substr(number(part.size()));
            text += letters(number(4), 2);
            if (number(1) == 0)
                text += part;
        }
        const std::size_t start = number(text.size());
        ASSERT_EQ(QsText::FindText(text, part, start), std::u16string_view(text).find(part, start))
            << std::string(text.begin(), text.end()) << " / " << std::string(part.begin(), part.end());
    }
}

/// A part of half a million units that nearly occurs everywhere: compared at every position it would take
/// hours.
TEST(TextSearch, StaysLinearOnTextsThatHurt) {
    constexpr std::size_t Length = 1'000'000;
    const std::u16string text(Length, u'a');
    const std::u16string half(Length / 2, u'a');
    EXPECT_EQ(QsText::FindText(text, half + u"b"), npos);
    EXPECT_EQ(QsText::FindText(text, u"b" + half), npos);
    EXPECT_EQ(QsText::FindText(text, half + u"b" + half.substr(1)), npos);
    EXPECT_EQ(QsText::FindText(text + u"b", half + u"b"), Length / 2);
}

}  // namespace
