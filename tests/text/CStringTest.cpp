// What a text is made from, what it holds, how it compares, and its parts.
#include <algorithm>
#include <climits>
#include <functional>
#include <map>
#include <ranges>
#include <set>
#include <sstream>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/text/CString.h"

namespace {

using namespace std::string_literals;

static_assert(sizeof(CString) == sizeof(std::u16string));
static_assert(std::is_nothrow_move_constructible_v<CString>);
static_assert(std::is_nothrow_move_assignable_v<CString>);
static_assert(std::is_nothrow_default_constructible_v<CString>);
static_assert(!std::is_convertible_v<const char*, CString>);
static_assert(std::is_convertible_v<const char16_t*, CString>);
static_assert(std::is_convertible_v<const wchar_t*, CString>);

int LengthOf(const CString& text) {
    return text.GetLength();
}

constexpr std::int32_t InvalidArgument = CAtlException::InvalidArgument;

template <typename Call>
std::int32_t Reason(Call call) {
    try {
        call();
    } catch (const CAtlException& error) {
        EXPECT_NE(error.what(), nullptr);
        return error.m_hr;
    }
    return 0;
}

TEST(CString, IsEmptyAtFirst) {
    const CString text;
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(text.GetLength(), 0);
    EXPECT_EQ(text.GetString()[0], u'\0');
    EXPECT_EQ(text.GetAt(0), u'\0');
    EXPECT_EQ(CString(nullptr), u"");
    EXPECT_EQ(CString(static_cast<const char16_t*>(nullptr)), u"");
    EXPECT_EQ(CString(static_cast<const wchar_t*>(nullptr)), u"");
    EXPECT_EQ(CString(static_cast<const char*>(nullptr)), u"");
}

TEST(CString, IsMadeFromTextsOfAllKinds) {
    EXPECT_EQ(CString(u"砖墙"), u"砖墙");
    EXPECT_EQ(CString(L"砖墙"), u"砖墙");
    EXPECT_EQ(CString(L"砖墙"s), u"砖墙");
    EXPECT_EQ(CString(u"砖墙"s), u"砖墙");
    EXPECT_EQ(CString(std::u16string_view(u"砖墙")), u"砖墙");
    EXPECT_EQ(CString("\xD7\xA9\xC7\xBD"), u"砖墙");
    EXPECT_EQ(CString("\xD7\xA9\xC7\xBD", 2), u"砖");
    EXPECT_EQ(LengthOf(u"literal"), 7);
    EXPECT_EQ(LengthOf(L"literal"), 7);
    EXPECT_EQ(LengthOf({}), 0);
}

TEST(CString, TakesALengthWithNulsInside) {
    EXPECT_EQ(CString(u"a\0b", 3).GetLength(), 3);
    EXPECT_EQ(CString(L"a\0b", 3).GetLength(), 3);
    EXPECT_EQ(CString("a\0b", 3).GetLength(), 3);
    EXPECT_EQ(CString(u"a\0b", 3).GetAt(2), u'b');
    EXPECT_EQ(CString(u"abc", 2), u"ab");
    EXPECT_EQ(CString(L"a\0b"s).GetLength(), 3);
    EXPECT_EQ(CString(u"a\0b"s).GetLength(), 3);
    EXPECT_EQ(CString(static_cast<const char16_t*>(nullptr), 0), u"");
}

TEST(CString, RefusesLengthsThatCannotBe) {
    EXPECT_EQ(Reason([] { CString(u"abc", -1); }), InvalidArgument);
    EXPECT_EQ(Reason([] { CString(L"abc", -1); }), InvalidArgument);
    EXPECT_EQ(Reason([] { CString("abc", INT_MIN); }), InvalidArgument);
    EXPECT_EQ(Reason([] { CString(static_cast<const char16_t*>(nullptr), 1); }), InvalidArgument);
    EXPECT_EQ(Reason([] { CString(static_cast<const wchar_t*>(nullptr), 1); }), InvalidArgument);
    EXPECT_EQ(Reason([] { CString(static_cast<const char*>(nullptr), 1); }), InvalidArgument);
}

TEST(CString, RepeatsACharacter) {
    EXPECT_EQ(CString(u'x', 3), u"xxx");
    EXPECT_EQ(CString(L'墙', 2), u"墙墙");
    EXPECT_EQ(CString('x'), u"x");
    EXPECT_EQ(CString(u'x', 0), u"");
    EXPECT_EQ(CString(u'x', -5), u"");
    EXPECT_EQ(CString(u'\0', 2).GetLength(), 2);
}

// A single narrow character is a byte of the ANSI code page; 0x80 is the euro sign, a lead byte alone is
// none.
TEST(CString, TakesNarrowCharactersOfTheCodePage) {
    EXPECT_EQ(CString('\x80'), u"€");
    EXPECT_EQ(CString('\x80', 2), u"€€");
    EXPECT_EQ(CString('\xD7'), u"?");
    EXPECT_EQ(CString(u"a€b€").Find('\x80'), 1);
    EXPECT_EQ(CString(u"a€b€").ReverseFind('\x80'), 3);
    EXPECT_EQ(CString(u"a€b€").Remove('\x80'), 2);
    CString text;
    text.Format(u"%c", '\x80');
    EXPECT_EQ(text, u"€");
}

TEST(CString, TakesWideCharactersBothWays) {
    const std::wstring wide = L"a\U0001F3E0b\U0010FFFF";
    const CString text(wide);
    EXPECT_EQ(text, u"a\U0001F3E0b\U0010FFFF");
    EXPECT_EQ(text.ToWide(), wide);
    EXPECT_EQ(CString(static_cast<wchar_t>(0xD800)).GetAt(0), 0xD800);
    EXPECT_EQ(CString(L"a\0b"s).ToWide(), L"a\0b"s);
}

TEST(CString, LoneSurrogatesPassUnchanged) {
    for (const std::u16string& units :
         {u"\xD800"s, u"\xDC00"s, u"\xDC00\xD800"s, u"\xD800x"s, u"x\xDFFF"s, u"\xD800\xD800\xDC00\xDC00"s}) {
        const CString text(units);
        EXPECT_EQ(CString(text.ToWide()), text);
    }
}

TEST(CString, WideCharactersBeyondUnicodeAreReplaced) {
    if constexpr (sizeof(wchar_t) == 4) {
        const wchar_t beyond = static_cast<wchar_t>(0x110000);
        const wchar_t negative = static_cast<wchar_t>(0x80000041u);
        EXPECT_EQ(CString(beyond), u"\uFFFD");
        EXPECT_EQ(CString(negative, 2), u"\uFFFD\uFFFD");
        EXPECT_EQ(CString(std::wstring{beyond, L'a', negative}), u"\uFFFDa\uFFFD");
        EXPECT_EQ(CString(static_cast<wchar_t>(0x1F3E0), 2), u"\U0001F3E0\U0001F3E0");
    }
}

TEST(CString, IsAssignedFromTextsOfAllKinds) {
    CString text = u"a";
    EXPECT_EQ(text = L"bc", u"bc");
    EXPECT_EQ(text = "cd", u"cd");
    EXPECT_EQ(text = u'e', u"e");
    EXPECT_EQ(text = L'f', u"f");
    EXPECT_EQ(text = 'g', u"g");
    EXPECT_EQ(text = u"hi"s, u"hi");
    EXPECT_EQ(text = L"jk"s, u"jk");
    text = {};
    EXPECT_EQ(text, u"");
    text = static_cast<const char16_t*>(nullptr);
    EXPECT_EQ(text, u"");
    text.SetString(u"lm");
    EXPECT_EQ(text, u"lm");
    text.SetString(CString(u"nop"), 2);
    EXPECT_EQ(text, u"no");
}

TEST(CString, MovingEmptiesTheSource) {
    CString source = u"a text longer than seven units";
    CString target(std::move(source));
    EXPECT_EQ(source, u"");
    EXPECT_EQ(target, u"a text longer than seven units");
    source = std::move(target);
    EXPECT_EQ(target, u"");
    CString brief = u"ab";
    source = std::move(brief);
    EXPECT_EQ(brief, u"");
    EXPECT_EQ(source, u"ab");
}

TEST(CString, AssignsFromItself) {
    CString text = u"0123456789";
    CString& same = text;
    text = same;
    EXPECT_EQ(text, u"0123456789");
    text = std::move(same);
    EXPECT_EQ(text, u"0123456789");
    text = text.GetString() + 1;
    EXPECT_EQ(text, u"123456789");
    text = text.GetString() + 7;
    EXPECT_EQ(text, u"89");
    text = text.GetString() + 1;
    EXPECT_EQ(text, u"9");
    text.SetString(text.GetString(), 1);
    EXPECT_EQ(text, u"9");
}

TEST(CString, Swaps) {
    CString a = u"a";
    CString b = u"a text longer than seven units";
    swap(a, b);
    EXPECT_EQ(b, u"a");
    EXPECT_EQ(a, u"a text longer than seven units");
}

TEST(CString, GivesItsUnits) {
    CString text = u"abc";
    EXPECT_EQ(text.GetAt(0), u'a');
    EXPECT_EQ(text[2], u'c');
    EXPECT_EQ(text[std::size_t{1}], u'b');
    EXPECT_EQ(text[1L], u'b');
    EXPECT_EQ(text.GetAt(3), u'\0');
    EXPECT_EQ(text[3], u'\0');
    EXPECT_EQ(Reason([&] { (void)text.GetAt(4); }), InvalidArgument);
    EXPECT_EQ(Reason([&] { (void)text.GetAt(-1); }), InvalidArgument);
    EXPECT_EQ(Reason([&] { (void)text[INT_MIN]; }), InvalidArgument);
    EXPECT_EQ(Reason([&] { (void)text[SIZE_MAX]; }), InvalidArgument);
    text.SetAt(1, u'X');
    EXPECT_EQ(text, u"aXc");
    EXPECT_EQ(Reason([&] { text.SetAt(3, u'X'); }), InvalidArgument);
    EXPECT_EQ(Reason([&] { text.SetAt(-1, u'X'); }), InvalidArgument);
    EXPECT_EQ(text, u"aXc");
}

TEST(CString, EmptiesAndTruncates) {
    CString text = u"a text longer than seven units";
    text.Truncate(100);
    EXPECT_EQ(text.GetLength(), 30);
    text.Truncate(6);
    EXPECT_EQ(text, u"a text");
    EXPECT_EQ(Reason([&] { text.Truncate(-1); }), InvalidArgument);
    text.FreeExtra();
    EXPECT_EQ(text, u"a text");
    text.Preallocate(1000);
    EXPECT_EQ(text, u"a text");
    EXPECT_EQ(Reason([&] { text.Preallocate(-1); }), InvalidArgument);
    text.Empty();
    EXPECT_TRUE(text.IsEmpty());
}

TEST(CString, GivesABufferForWriting) {
    CString text = u"ab";
    CString::PXSTR buffer = text.GetBuffer(20);
    EXPECT_EQ(buffer[0], u'a');
    std::fill_n(buffer, 12, CString::XCHAR(u'x'));
    buffer[12] = u'\0';
    text.ReleaseBuffer();
    EXPECT_EQ(text, u"xxxxxxxxxxxx");
    text.GetBuffer()[0] = u'y';
    text.ReleaseBuffer();
    EXPECT_EQ(text, u"yxxxxxxxxxxx");
    text.GetBuffer(3);
    text.ReleaseBuffer(5);
    EXPECT_EQ(text, u"yxxxx");
    EXPECT_EQ(Reason([&] { text.GetBuffer(-1); }), InvalidArgument);
    EXPECT_EQ(Reason([&] { text.ReleaseBuffer(6); }), InvalidArgument);
    EXPECT_EQ(Reason([&] { text.ReleaseBuffer(-2); }), InvalidArgument);
}

TEST(CString, ComparesByUnit) {
    const CString text = u"b";
    EXPECT_EQ(text.Compare(u"b"), 0);
    EXPECT_EQ(text.Compare(u"a"), 1);
    EXPECT_EQ(text.Compare(u"c"), -1);
    EXPECT_EQ(text.Compare(u"B"), 1);
    EXPECT_EQ(text.Compare(u"ba"), -1);
    EXPECT_EQ(text.Compare(u""), 1);
    EXPECT_EQ(CString(u"\xFFFF").Compare(u"\xD800"), 1);
    EXPECT_EQ(CString(u"a\0b", 3).Compare(u"a"), 1);
}

TEST(CString, ComparesWithoutCaseInLowerCase) {
    EXPECT_EQ(CString(u"AbC").CompareNoCase(u"aBc"), 0);
    EXPECT_EQ(CString(u"_").CompareNoCase(u"A"), -1);
    EXPECT_EQ(CString(u"[").CompareNoCase(u"Z"), -1);
    EXPECT_EQ(CString(u"{").CompareNoCase(u"Z"), 1);
    EXPECT_EQ(CString(u"É").CompareNoCase(u"é"), -1);
    EXPECT_EQ(CString(u"ab").CompareNoCase(u"A"), 1);
    EXPECT_EQ(CString(u"A").CompareNoCase(u"ab"), -1);
    EXPECT_EQ(CString().CompareNoCase(u""), 0);
}

TEST(CString, HasTheOperatorsOfComparison) {
    const CString text = u"m";
    EXPECT_TRUE(text == u"m" && u"m" == text && text == L"m" && L"m" == text && text == CString(u"m"));
    EXPECT_TRUE(text != u"n" && u"n" != text && text != L"n" && L"n" != text && text != CString(u"n"));
    EXPECT_TRUE(text < u"n" && u"l" < text && text < L"n" && L"l" < text && text < CString(u"n"));
    EXPECT_TRUE(text > u"l" && text > L"l" && text > CString(u"l"));
    EXPECT_TRUE(text <= u"m" && text >= u"m" && text <= CString(u"m") && text >= CString(u"m"));
    EXPECT_FALSE(text < CString(u"m") || text > CString(u"m") || text <= CString(u"l") ||
                 text >= CString(u"n"));
    EXPECT_TRUE((text <=> CString(u"n")) < 0 && (text <=> u"l") > 0 && (text <=> L"m") == 0);
    EXPECT_TRUE(CString() == static_cast<const char16_t*>(nullptr));
    EXPECT_TRUE(CString() == static_cast<const wchar_t*>(nullptr));
    EXPECT_FALSE(text < static_cast<const char16_t*>(nullptr));
    EXPECT_FALSE(CString(u"a\0", 2) == u"a");
}

TEST(CString, StandardOrdersCompareTextsAndNotAddresses) {
    const CString texts[] = {u"b", u"a"};
    EXPECT_TRUE(std::less<>()(texts[1], texts[0]));
    EXPECT_FALSE(std::less<>()(texts[0], texts[1]));
    EXPECT_TRUE(std::greater<>()(texts[0], texts[1]));
    EXPECT_TRUE(std::ranges::less()(texts[1], texts[0]));
    EXPECT_FALSE(std::ranges::less()(texts[0], texts[1]));
    EXPECT_TRUE(std::less<CString>()(texts[1], texts[0]));
    EXPECT_TRUE(std::equal_to<>()(texts[0], CString(u"b")));
    EXPECT_TRUE(std::ranges::equal_to()(texts[0], CString(u"b")));

    std::vector<CString> sorted = {u"10", u"b", u"9", u"a"};
    std::ranges::sort(sorted);
    EXPECT_EQ(sorted, (std::vector<CString>{u"10", u"9", u"a", u"b"}));
    std::map<CString, int> byText{{u"b", 2}, {L"a", 1}};
    EXPECT_EQ(byText.begin()->first, u"a");
    EXPECT_EQ(byText[u"b"], 2);
    std::set<CString, std::less<>> transparent{u"b", u"a"};
    EXPECT_TRUE(transparent.contains(u"a"));
}

TEST(CString, CutsParts) {
    const CString text = u"abcde";
    EXPECT_EQ(text.Left(2), u"ab");
    EXPECT_EQ(text.Left(0), u"");
    EXPECT_EQ(text.Left(-1), u"");
    EXPECT_EQ(text.Left(9), u"abcde");
    EXPECT_EQ(text.Right(2), u"de");
    EXPECT_EQ(text.Right(0), u"");
    EXPECT_EQ(text.Right(INT_MIN), u"");
    EXPECT_EQ(text.Right(9), u"abcde");
    EXPECT_EQ(text.Mid(2), u"cde");
    EXPECT_EQ(text.Mid(5), u"");
    EXPECT_EQ(text.Mid(INT_MAX), u"");
    EXPECT_EQ(text.Mid(-1), u"abcde");
    EXPECT_EQ(text.Mid(1, 2), u"bc");
    EXPECT_EQ(text.Mid(1, -2), u"");
    EXPECT_EQ(text.Mid(-3, 2), u"ab");
    EXPECT_EQ(text.Mid(3, 9), u"de");
    EXPECT_EQ(text.Mid(9, 1), u"");
    EXPECT_EQ(text.Mid(0, INT_MAX), u"abcde");
    EXPECT_EQ(text.Mid(-1, INT_MAX), u"abcde");
    EXPECT_EQ(Reason([&] { text.Mid(1, INT_MAX); }), InvalidArgument);
    EXPECT_EQ(Reason([&] { text.Mid(INT_MAX, INT_MAX); }), InvalidArgument);
}

TEST(CString, CutsSpans) {
    const CString text = u"aabcab";
    EXPECT_EQ(text.SpanIncluding(u"ab"), u"aab");
    EXPECT_EQ(text.SpanIncluding(u"abc"), u"aabcab");
    EXPECT_EQ(text.SpanIncluding(u""), u"");
    EXPECT_EQ(text.SpanExcluding(u"cb"), u"aa");
    EXPECT_EQ(text.SpanExcluding(u"x"), u"aabcab");
    EXPECT_EQ(text.SpanExcluding(u""), u"aabcab");
}

TEST(CString, Tokenizes) {
    const CString text = u"%First Second#Third";
    int at = 0;
    EXPECT_EQ(text.Tokenize(u"% #", at), u"First");
    EXPECT_EQ(at, 7);
    EXPECT_EQ(text.Tokenize(u"% #", at), u"Second");
    EXPECT_EQ(text.Tokenize(u"% #", at), u"Third");
    EXPECT_EQ(at, 20);
    EXPECT_EQ(text.Tokenize(u"% #", at), u"");
    EXPECT_EQ(at, -1);
    EXPECT_EQ(Reason([&] { text.Tokenize(u"% #", at); }), InvalidArgument);
    at = 7;
    EXPECT_EQ(text.Tokenize(u"", at), u"Second#Third");
    EXPECT_EQ(at, 7);
    at = 19;
    EXPECT_EQ(text.Tokenize(u"", at), u"");
    EXPECT_EQ(at, -1);
    at = INT_MAX;
    EXPECT_EQ(text.Tokenize(u"#", at), u"");
    EXPECT_EQ(at, -1);
    at = 0;
    EXPECT_EQ(CString(u"###").Tokenize(u"#", at), u"");
    EXPECT_EQ(at, -1);
}

TEST(CString, FindsTexts) {
    const CString text = u"abcabc";
    EXPECT_EQ(text.Find(u"bc"), 1);
    EXPECT_EQ(text.Find(L"bc", 2), 4);
    EXPECT_EQ(text.Find(CString(u"bc"), 5), -1);
    EXPECT_EQ(text.Find(u"x"), -1);
    EXPECT_EQ(text.Find(u"bc", -1), -1);
    EXPECT_EQ(text.Find(u"bc", 7), -1);
    EXPECT_EQ(text.Find(u"bc", INT_MAX), -1);
    EXPECT_EQ(text.Find(u""), 0);
    EXPECT_EQ(text.Find(u"", 6), 6);
    EXPECT_EQ(text.Find(u"", 7), -1);
    EXPECT_EQ(CString().Find(u""), 0);
    EXPECT_EQ(CString(u"a\0b", 3).Find(CString(u"\0b", 2)), 1);
}

TEST(CString, FindsCharacters) {
    const CString text = u"a.b.c";
    EXPECT_EQ(text.Find('.'), 1);
    EXPECT_EQ(text.Find(u'.', 2), 3);
    EXPECT_EQ(text.Find(L'.', 4), -1);
    EXPECT_EQ(text.Find(u'.', -1), -1);
    EXPECT_EQ(text.Find(u'c', 4), 4);
    EXPECT_EQ(text.Find(u'.', 5), -1);
    EXPECT_EQ(text.Find(u'\0'), -1);
    EXPECT_EQ(CString().Find(u'a'), -1);
    EXPECT_EQ(text.ReverseFind('.'), 3);
    EXPECT_EQ(text.ReverseFind(L'x'), -1);
    EXPECT_EQ(text.ReverseFind(u'a'), 0);
    EXPECT_EQ(text.FindOneOf(u"cb"), 2);
    EXPECT_EQ(text.FindOneOf(u"xyz"), -1);
    EXPECT_EQ(text.FindOneOf(u""), -1);
    if constexpr (sizeof(wchar_t) == 4) {
        const CString house = u"x\U0001F3E0y\U0001F3E0";
        EXPECT_EQ(house.Find(static_cast<wchar_t>(0x1F3E0)), 1);
        EXPECT_EQ(house.ReverseFind(static_cast<wchar_t>(0x1F3E0)), 4);
    }
}

TEST(CString, WritesUtf8OnAStream) {
    std::ostringstream stream;
    stream << CString(u"a墙é\U0001F3E0\xD800z\xDC00");
    EXPECT_EQ(stream.str(), "a\xE5\xA2\x99\xC3\xA9\xF0\x9F\x8F\xA0\xEF\xBF\xBDz\xEF\xBF\xBD");
    EXPECT_EQ(testing::PrintToString(CString(u"砖")), "\xE7\xA0\x96");
}

}  // namespace
