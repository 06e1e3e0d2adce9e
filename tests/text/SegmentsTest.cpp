// Segments and searches.
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "QsUtils/text/Segments.h"

namespace {

using namespace QsText;

using SegmentFunction = bool (*)(CString&, const CString&);

/// The result and the text that is left.
std::pair<bool, CString> Apply(SegmentFunction function, CString text, const CString& sep) {
    const bool result = function(text, sep);
    return {result, text};
}
std::pair<bool, CString> Gives(bool result, const CString& text) {
    return {result, text};
}

TEST(Segments, TakeOneEndOfThree) {
    EXPECT_EQ(Apply(CutFirstSegment, u"a/b/c", u"/"), Gives(true, u"b/c"));
    EXPECT_EQ(Apply(CutLastSegment, u"a/b/c", u"/"), Gives(true, u"a/b"));
    EXPECT_EQ(Apply(GetFirstSegment, u"a/b/c", u"/"), Gives(true, u"a"));
    EXPECT_EQ(Apply(GetLastSegment, u"a/b/c", u"/"), Gives(true, u"c"));
}

TEST(Segments, DifferInTheirEdges) {
    EXPECT_EQ(Apply(CutFirstSegment, u"a", u""), Gives(true, u"a"));
    EXPECT_EQ(Apply(CutLastSegment, u"a", u""), Gives(true, u"a"));
    EXPECT_EQ(Apply(GetFirstSegment, u"a", u""), Gives(true, u"a"));
    EXPECT_EQ(Apply(GetLastSegment, u"a", u""), Gives(true, u"a"));
    EXPECT_EQ(Apply(CutFirstSegment, u"", u""), Gives(true, u""));
    EXPECT_EQ(Apply(CutLastSegment, u"", u""), Gives(true, u""));
    EXPECT_EQ(Apply(GetFirstSegment, u"", u""), Gives(true, u""));
    EXPECT_EQ(Apply(GetLastSegment, u"", u""), Gives(true, u""));
    EXPECT_EQ(Apply(CutFirstSegment, u"", u"/"), Gives(false, u""));
    EXPECT_EQ(Apply(CutLastSegment, u"", u"/"), Gives(true, u""));
    EXPECT_EQ(Apply(GetFirstSegment, u"", u"/"), Gives(true, u""));
    EXPECT_EQ(Apply(GetLastSegment, u"", u"/"), Gives(false, u""));
    for (const SegmentFunction function :
         {CutFirstSegment, CutLastSegment, GetFirstSegment, GetLastSegment}) {
        EXPECT_EQ(Apply(function, u"abc", u"/"), Gives(false, u"abc"));
        EXPECT_EQ(Apply(function, u"a/b", u"/ "), Gives(false, u"a/b"));
        EXPECT_EQ(Apply(function, u"aXb", u"x"), Gives(false, u"aXb"));
    }
}

TEST(Segments, MayBeEmpty) {
    EXPECT_EQ(Apply(GetLastSegment, u"a/b/", u"/"), Gives(true, u""));
    EXPECT_EQ(Apply(CutFirstSegment, u"/a", u"/"), Gives(true, u"a"));
    EXPECT_EQ(Apply(GetFirstSegment, u"/a", u"/"), Gives(true, u""));
    EXPECT_EQ(Apply(CutLastSegment, u"a/b/", u"/"), Gives(true, u"a/b"));
    EXPECT_EQ(Apply(CutLastSegment, u"/", u"/"), Gives(true, u""));
}

TEST(Segments, TakeSeparatorsOfAnyLength) {
    EXPECT_EQ(Apply(CutFirstSegment, u"a--b", u"--"), Gives(true, u"b"));
    EXPECT_EQ(Apply(CutFirstSegment, u"a---b", u"--"), Gives(true, u"-b"));
    EXPECT_EQ(Apply(GetLastSegment, u"a---b", u"--"), Gives(true, u"-b"));
    EXPECT_EQ(Apply(CutLastSegment, u"a---b", u"--"), Gives(true, u"a"));
    EXPECT_EQ(Apply(CutLastSegment, u"aaa", u"aa"), Gives(true, u""));
    EXPECT_EQ(Apply(GetLastSegment, u"aaaaa", u"aa"), Gives(true, u"a"));
}

TEST(Segments, TakeTheTextItselfAsSeparator) {
    for (const SegmentFunction function :
         {CutFirstSegment, CutLastSegment, GetFirstSegment, GetLastSegment}) {
        CString text = u"a separator of many units";
        EXPECT_TRUE(function(text, text));
        EXPECT_EQ(text, u"");
    }
}

std::vector<unsigned int> Positions(const CUIntArray& array) {
    return {array.begin(), array.end()};
}

TEST(FindSpecStringCount, FindsWithoutOverlap) {
    CUIntArray positions;
    positions.Add(77);
    EXPECT_EQ(FindSpecStringCount(u"", u"a", positions), 0);
    EXPECT_EQ(FindSpecStringCount(u"a", u"", positions), 0);
    EXPECT_EQ(FindSpecStringCount(u"abc", u"x", positions), 0);
    EXPECT_EQ(Positions(positions), std::vector<unsigned int>{77});
    EXPECT_EQ(FindSpecStringCount(u"aaa", u"aa", positions), 1);
    EXPECT_EQ(Positions(positions), std::vector<unsigned int>{0});
    EXPECT_EQ(FindSpecStringCount(u"abcabcab", u"ab", positions), 3);
    EXPECT_EQ(Positions(positions), (std::vector<unsigned int>{0, 3, 6}));
}

TEST(FindInCStringArray, ComparesExactly) {
    CStringArray array;
    EXPECT_EQ(FindInCStringArray(u"a", array), -1);
    array.Add(u"A");
    array.Add(u"");
    array.Add(u"a");
    array.Add(u"a");
    EXPECT_EQ(FindInCStringArray(u"a", array), 2);
    EXPECT_EQ(FindInCStringArray(u"A", array), 0);
    EXPECT_EQ(FindInCStringArray(u"", array), -1);
    EXPECT_EQ(FindInCStringArray(u"b", array), -1);
}

TEST(StringArrayContains, ComparesWithoutCase) {
    CStringArray array;
    EXPECT_FALSE(StringArrayContains(array, L"a"));
    EXPECT_FALSE(StringArrayContains(array, L""));
    EXPECT_FALSE(StringArrayContains(array, nullptr));
    array.Add(u"Abc墙");
    EXPECT_TRUE(StringArrayContains(array, L"aBC墙"));
    EXPECT_FALSE(StringArrayContains(array, L"abc"));
    EXPECT_FALSE(StringArrayContains(array, L""));
    array.Add(u"");
    EXPECT_TRUE(StringArrayContains(array, L""));
    EXPECT_TRUE(StringArrayContains(array, nullptr));
}

std::vector<CString> SplitPieces(const CString& text, wchar_t sep) {
    CStringArray out;
    out.Add(u"old");
    Split(text, out, sep);
    EXPECT_EQ(out[0], u"old");
    return {out.begin() + 1, out.end()};
}

std::vector<CString> Pieces(const CString& text, const CString& sep) {
    std::vector<CString> out = {u"old"};
    TransStrToAry(text, sep, out);
    return out;
}

using CStrings = std::vector<CString>;

TEST(Split, AppendsThePieces) {
    EXPECT_EQ(SplitPieces(u"a,,b", L','), (CStrings{u"a", u"", u"b"}));
    EXPECT_EQ(SplitPieces(u",a", L','), (CStrings{u"", u"a"}));
    EXPECT_EQ(SplitPieces(u"a,", L','), (CStrings{u"a"}));
    EXPECT_EQ(SplitPieces(u"", L','), CStrings{});
    EXPECT_EQ(SplitPieces(u",", L','), (CStrings{u""}));
    EXPECT_EQ(SplitPieces(u"abc", L','), (CStrings{u"abc"}));
    EXPECT_EQ(SplitPieces(u"砖，墙", L'，'), (CStrings{u"砖", u"墙"}));
    EXPECT_EQ(SplitPieces(CString(u"a\0b", 3), L'\0'), (CStrings{u"a", u"b"}));
    if constexpr (sizeof(wchar_t) == 4) {
        EXPECT_EQ(SplitPieces(u"a\U0001F3E0b", static_cast<wchar_t>(0x1F3E0)), (CStrings{u"a", u"b"}));
    }
}

TEST(TransStrToAry, ReplacesTheElements) {
    EXPECT_EQ(Pieces(u"a,b", u""), CStrings{u"old"});
    EXPECT_EQ(Pieces(u"a,b", u","), (CStrings{u"a", u"b"}));
    EXPECT_EQ(Pieces(u"a, b, ", u", "), (CStrings{u"a", u"b"}));
    EXPECT_EQ(Pieces(u", a", u", "), (CStrings{u"", u"a"}));
    EXPECT_EQ(Pieces(u"aaa", u"aa"), (CStrings{u"", u"a"}));
    EXPECT_EQ(Pieces(u"", u","), CStrings{});
    EXPECT_EQ(Pieces(u",", u","), CStrings{u""});
}

TEST(TransStrToAry, TakesElementsOfItsOutput) {
    CStrings out = {u"some;longer;text", u";"};
    TransStrToAry(out[0], out[1], out);
    EXPECT_EQ(out, (CStrings{u"some", u"longer", u"text"}));
}

TEST(TransAryToStr, JoinsTheElements) {
    CString out = u"old";
    TransAryToStr({}, out, u",");
    EXPECT_EQ(out, u"");
    TransAryToStr({u"a"}, out, u",");
    EXPECT_EQ(out, u"a");
    TransAryToStr({u"a", u"", u"b"}, out, u"--");
    EXPECT_EQ(out, u"a----b");
    TransAryToStr({u"", u""}, out, u",");
    EXPECT_EQ(out, u",");
    TransAryToStr({u"a", u"b"}, out, u"");
    EXPECT_EQ(out, u"ab");
    out = u";";
    TransAryToStr({u"a", u"b"}, out, out);
    EXPECT_EQ(out, u"a;b");
}

TEST(Segments, StayLinearForAMillionPieces) {
    constexpr int Count = 1'000'000;
    CStrings elements;
    for (int i = 0; i < Count; ++i)
        elements.emplace_back(u'x', i % 3);
    elements.back() = u"end";
    CString text;
    TransAryToStr(elements, text, u"--");
    CStrings pieces;
    TransStrToAry(text, u"--", pieces);
    EXPECT_EQ(pieces, elements);
    CStringArray split;
    Split(text, split, L'x');
    EXPECT_EQ(split.GetSize(), text.CString::Remove(u'x') + 1);
    CUIntArray positions;
    EXPECT_EQ(FindSpecStringCount(text, u"--", positions), Count - 1);
    EXPECT_EQ(positions[Count - 2], static_cast<unsigned>(2 * (Count - 2)));
}

TEST(ChangeSBCtoDBC, LeavesEveryTextAsItIs) {
    std::u16string all;
    for (unsigned unit = 0; unit < 0x10000; ++unit)
        all += static_cast<char16_t>(unit);
    for (const CString& original :
         {CString(all), CString(u"１２３ＡＢＣ，．"), CString(u"\xA3\xB1\xA3\xC1"), CString()}) {
        CString text = original;
        ChangeSBCtoDBC(text);
        EXPECT_EQ(text, original);
    }
}

/// The part that is taken out, and the text that is left.
std::pair<CString, CString> TakenOut(CString text) {
    CString part = TakeOutJxxzString(text);
    return {part, text};
}
std::pair<CString, CString> Both(const CString& part, const CString& text) {
    return {part, text};
}

TEST(TakeOutJxxzString, CutsTheMarkedPart) {
    EXPECT_EQ(TakenOut(u"abc&x10 def"), Both(u"10", u"abc def"));
    EXPECT_EQ(TakenOut(u"abc&!10@def"), Both(u"!10", u"abc@def"));
    EXPECT_EQ(TakenOut(u"abc&x"), Both(u"", u"abc"));
    EXPECT_EQ(TakenOut(u"abc&"), Both(u"", u"abc"));
    EXPECT_EQ(TakenOut(u"abc&x10"), Both(u"10", u"abc"));
    EXPECT_EQ(TakenOut(u"abc&!10"), Both(u"!10", u"abc"));
    EXPECT_EQ(TakenOut(u"abc"), Both(u"", u"abc"));
    EXPECT_EQ(TakenOut(u""), Both(u"", u""));
    EXPECT_EQ(TakenOut(u"&"), Both(u"", u""));
}

TEST(TakeOutJxxzString, KnowsSixStops) {
    for (const char16_t stop : std::u16string(u"@#?$| ")) {
        EXPECT_EQ(TakenOut(u"a" + CString(stop) + u"b&xcd" + CString(stop) + u"e"),
                  Both(u"cd", u"a" + CString(stop) + u"b" + CString(stop) + u"e"));
        EXPECT_EQ(TakenOut(u"a&" + CString(stop)), Both(u"", u"a" + CString(stop)));
        EXPECT_EQ(TakenOut(u"a&x" + CString(stop)), Both(u"", u"a" + CString(stop)));
    }
    EXPECT_EQ(TakenOut(u"a&xb!c&d"), Both(u"b!c&d", u"a"));
}

// The pair anywhere in the text, also behind the part, keeps the first character of the part.
TEST(TakeOutJxxzString, LooksForThePairInTheWholeText) {
    EXPECT_EQ(TakenOut(u"a&x1 b&!2"), Both(u"x1", u"a b&!2"));
    EXPECT_EQ(TakenOut(u"a&& b&!"), Both(u"&", u"a b&!"));
}

TEST(CStringToWstring, StopsAtTheFirstNul) {
    EXPECT_EQ(CStringToWstring(u"砖墙"), L"砖墙");
    EXPECT_EQ(CStringToWstring(CString(u"a\0b", 3)), L"a");
    EXPECT_EQ(CStringToWstring(u""), L"");
    EXPECT_EQ(CStringToWstring(u"\U0001F3E0"), L"\U0001F3E0");
}

/// Moves the rest to the front after each piece, as one would say it.
CStrings PlainPieces(std::u16string text, const std::u16string& sep) {
    CStrings pieces;
    while (!text.empty()) {
        const std::size_t at = text.find(sep);
        if (at == text.npos) {
            pieces.emplace_back(text);
            break;
        }
        pieces.emplace_back(text.substr(0, at));
        text = text.substr(at + sep.size());
    }
    return pieces;
}

TEST(Segments, AgreeWithThePlainRulesOnRandomTexts) {
    std::mt19937 random(21);
    const auto below = [&random](unsigned count) { return static_cast<unsigned>(random() % count); };
    const auto letters = [&](unsigned most) {
        std::u16string text;
        for (unsigned i = below(most + 1); i > 0; --i)
            text += u"ab/"[below(3)];
        return text;
    };
    for (int round = 0; round < 1'000'000; ++round) {
        const std::u16string text = letters(14);
        const std::u16string sep = u"/" + letters(2);
        CStrings pieces;
        TransStrToAry(text, sep, pieces);
        ASSERT_EQ(pieces, PlainPieces(text, sep));
        ASSERT_EQ(SplitPieces(text, L'a'), PlainPieces(text, u"a"));

        std::vector<unsigned int> matches;
        for (std::size_t at = text.find(sep); at != text.npos; at = text.find(sep, at + sep.size()))
            matches.push_back(static_cast<unsigned int>(at));
        CUIntArray positions;
        ASSERT_EQ(FindSpecStringCount(text, sep, positions), static_cast<int>(matches.size()));
        ASSERT_EQ(Positions(positions), matches);
        if (matches.empty())
            continue;
        ASSERT_EQ(Apply(CutFirstSegment, text, sep), Gives(true, text.substr(matches.front() + sep.size())));
        ASSERT_EQ(Apply(CutLastSegment, text, sep), Gives(true, text.substr(0, matches.back())));
        ASSERT_EQ(Apply(GetFirstSegment, text, sep), Gives(true, text.substr(0, matches.front())));
        ASSERT_EQ(Apply(GetLastSegment, text, sep), Gives(true, text.substr(matches.back() + sep.size())));
    }
}

}  // namespace
