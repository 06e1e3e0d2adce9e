#include <cstdint>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "QsUtils/codes/CCodeParser.h"

namespace {

struct Parsed {
    bool valid;
    CString prefix;
    int index;

    friend bool operator==(const Parsed&, const Parsed&) = default;
};

constexpr int Untouched = -777;

Parsed Parse(const CString& code) {
    Parsed parsed{false, u"untouched", Untouched};
    parsed.valid = CCodeParser::ParseCode(code, parsed.prefix, parsed.index);
    return parsed;
}

/// The int that a text begins with, by the rules of the C runtime and one digit after the other.
int PlainInt(const std::u16string& text) {
    std::size_t at = 0;
    while (at < text.size() &&
           (text[at] == u' ' || (text[at] >= 9 && text[at] <= 13) || text[at] == u'\x3000'))
        ++at;
    bool negative = false;
    if (at < text.size() && (text[at] == u'-' || text[at] == u'+'))
        negative = text[at++] == u'-';
    std::int64_t value = 0;
    for (; at < text.size() && text[at] >= u'0' && text[at] <= u'9'; ++at)
        value = std::min<std::int64_t>(value * 10 + (text[at] - u'0'), std::int64_t{1} << 40);
    value = negative ? -value : value;
    if (value > std::numeric_limits<int>::max())
        return std::numeric_limits<int>::max();
    if (value < std::numeric_limits<int>::min())
        return std::numeric_limits<int>::min();
    return static_cast<int>(value);
}

}  // namespace

TEST(CCodeParser, SeparatorIsAPoint) {
    EXPECT_EQ(CCodeParser::GetSeparator(), u".");
}

TEST(CCodeParser, PrefixAndIndex) {
    EXPECT_EQ(Parse(u"FB.12"), (Parsed{true, u"FB", 12}));
    EXPECT_EQ(CCodeParser::GetIdx(u"FB.12"), 12);
    EXPECT_EQ(CCodeParser::GetPrefix(u"FB.12"), u"FB");
}

TEST(CCodeParser, TheLastSeparatorCounts) {
    EXPECT_EQ(Parse(u"A.B.3"), (Parsed{true, u"A.B", 3}));
    EXPECT_EQ(CCodeParser::GetPrefix(u"A.B.3"), u"A.B");
    EXPECT_EQ(CCodeParser::GetIdx(u"A.B.3"), 3);
    EXPECT_EQ(Parse(u"A..3"), (Parsed{true, u"A.", 3}));
}

TEST(CCodeParser, WithoutSeparatorNothingIsWritten) {
    for (const char16_t* code : {u"FB", u"", u"12", u"FB．12"}) {
        EXPECT_EQ(Parse(code), (Parsed{false, u"untouched", Untouched}));
        EXPECT_EQ(CCodeParser::GetIdx(code), 0);
        EXPECT_EQ(CCodeParser::GetPrefix(code), u"");
    }
}

TEST(CCodeParser, AFailedParseHasWrittenBoth) {
    EXPECT_EQ(Parse(u".5"), (Parsed{false, u"", 5}));
    EXPECT_EQ(Parse(u"FB."), (Parsed{false, u"FB", 0}));
    EXPECT_EQ(Parse(u"FB.0"), (Parsed{false, u"FB", 0}));
    EXPECT_EQ(Parse(u"FB.-1"), (Parsed{false, u"FB", -1}));
    EXPECT_EQ(Parse(u"."), (Parsed{false, u"", 0}));
}

TEST(CCodeParser, TheIndexIsReadAsTheRuntimeReadsAnInt) {
    EXPECT_EQ(Parse(u"FB.12x"), (Parsed{true, u"FB", 12}));
    EXPECT_EQ(Parse(u"FB. \t+7 8"), (Parsed{true, u"FB", 7}));
    EXPECT_EQ(CCodeParser::GetIdx(u"A.-3"), -3);
    EXPECT_EQ(CCodeParser::GetIdx(u"A.x"), 0);
    EXPECT_EQ(CCodeParser::GetIdx(u"A.99999999999"), 2147483647);
    EXPECT_EQ(CCodeParser::GetIdx(u"A.-99999999999"), std::numeric_limits<int>::min());
    EXPECT_EQ(CCodeParser::GetIdx(u"A.1e3"), 1);
}

TEST(CCodeParser, ACodeMayBeItsOwnPrefix) {
    CString code = u"FB.12";
    int index = 0;
    EXPECT_TRUE(CCodeParser::ParseCode(code, code, index));
    EXPECT_EQ(code, u"FB");
    EXPECT_EQ(index, 12);
}

TEST(CCodeParser, MakeCodeJoinsWithoutACheck) {
    EXPECT_EQ(CCodeParser::MakeCode(u"A.B", 7), u"A.B.7");
    EXPECT_EQ(Parse(u"A.B.7"), (Parsed{true, u"A.B", 7}));
    EXPECT_EQ(CCodeParser::MakeCode(u"", 0), u".0");
    EXPECT_EQ(CCodeParser::MakeCode(u"FB", -12), u"FB.-12");
    EXPECT_EQ(CCodeParser::MakeCode(u"FB", std::numeric_limits<int>::min()), u"FB.-2147483648");
    EXPECT_FALSE(Parse(CCodeParser::MakeCode(u"FB", -12)).valid);
    EXPECT_FALSE(Parse(CCodeParser::MakeCode(u"", 3)).valid);
}

TEST(CCodeParser, AnIndexAboveZeroIsValid) {
    EXPECT_TRUE(CCodeParser::IsIdxValid(1));
    EXPECT_TRUE(CCodeParser::IsIdxValid(std::numeric_limits<int>::max()));
    EXPECT_FALSE(CCodeParser::IsIdxValid(0));
    EXPECT_FALSE(CCodeParser::IsIdxValid(-1));
}

TEST(CCodeParser, ObjectsHaveNothingToDo) {
    const CCodeParser parser;
    EXPECT_EQ(parser.GetSeparator(), u".");
}

TEST(CCodeParser, RandomCodesAgreeWithThePlainReading) {
    std::mt19937 random(31);
    const std::u16string units = u"0123456789...+-- \tAx\x3000项";
    for (int round = 0; round < 1'000'000; ++round) {
        std::u16string code(random() % 14, u'\0');
        for (char16_t& unit : code)
            unit = units[random() % units.size()];
        const std::size_t point = code.rfind(u'.');
        if (point == code.npos) {
            ASSERT_EQ(Parse(code), (Parsed{false, u"untouched", Untouched}));
            continue;
        }
        const std::u16string prefix = code.substr(0, point);
        const int index = PlainInt(code.substr(point + 1));
        ASSERT_EQ(Parse(code), (Parsed{!prefix.empty() && index > 0, prefix, index})) << round;
        ASSERT_EQ(CCodeParser::GetIdx(code), index);
        ASSERT_EQ(CCodeParser::GetPrefix(code), CString(prefix));
    }
}

TEST(CCodeParser, MadeCodesParseBack) {
    std::mt19937 random(32);
    for (int round = 0; round < 100'000; ++round) {
        const CString prefix(std::u16string(1 + random() % 5, u"AB.7"[random() % 4]));
        const int index = static_cast<int>(random());
        ASSERT_EQ(Parse(CCodeParser::MakeCode(prefix, index)), (Parsed{index > 0, prefix, index}));
    }
}
