// The narrow text of hosts: the ANSI code page is 936.
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "QsUtils/text/Segments.h"

namespace {

using namespace std::string_literals;
using namespace QsText;

TEST(AnsiText, DecodesUpToTheFirstNul) {
    EXPECT_EQ(AnsiToUnicode("C30 \xBB\xEC\xC4\xFD\xCD\xC1"), L"C30 混凝土");
    EXPECT_EQ(AnsiToUnicode(""), L"");
    EXPECT_EQ(AnsiToUnicode("a\0b"s), L"a");
    EXPECT_EQ(AnsiToUnicode("\0b"s), L"");
    EXPECT_EQ(AnsiToUnicode("\xA9\x4F"), L"㎡");
}

TEST(AnsiText, EncodesUpToTheFirstNul) {
    EXPECT_EQ(UnicodeToAnsi(L"C30 混凝土"), "C30 \xBB\xEC\xC4\xFD\xCD\xC1");
    EXPECT_EQ(UnicodeToAnsi(L""), "");
    EXPECT_EQ(UnicodeToAnsi(L"a\0b"s), "a");
    EXPECT_EQ(UnicodeToAnsi(L"\0b"s), "");
}

TEST(AnsiText, MarksWhatThePageLacks) {
    EXPECT_EQ(UnicodeToAnsi(L"½"), "?");
    EXPECT_EQ(UnicodeToAnsi(L"m² m³"), "m2 m3");
    EXPECT_EQ(UnicodeToAnsi(L"a\U0001F3E0b"), "a??b");
    if constexpr (sizeof(wchar_t) == 4) {
        EXPECT_EQ(UnicodeToAnsi(std::wstring(1, static_cast<wchar_t>(0x110000))), "?");
        EXPECT_EQ(UnicodeToAnsi(std::wstring(1, static_cast<wchar_t>(0xD800))), "?");
    }
}

TEST(AnsiText, CountsTheCharactersOfTheRoundTrip) {
    EXPECT_EQ(GetCharCount(u""), 0);
    EXPECT_EQ(GetCharCount(u"abc"), 3);
    EXPECT_EQ(GetCharCount(u"混凝土C30"), 6);
    EXPECT_EQ(GetCharCount(u"½m²"), 3);
    EXPECT_EQ(GetCharCount(u"\U0001F3E0"), 2);
    EXPECT_EQ(GetCharCount(CString(u"ab\0c", 4)), 2);
}

TEST(AnsiText, LongTextsGoBothWays) {
    std::mt19937 random(936);
    for (int round = 0; round < 20'000; ++round) {
        std::wstring wide;
        for (auto i = random() % 700; i > 0; --i)
            wide += random() % 2 == 0 ? static_cast<wchar_t>(L'!' + random() % 90)
                                      : L"砖墙混凝土钢筋门窗㎡　，"[random() % 12];
        const std::string narrow = UnicodeToAnsi(wide);
        ASSERT_EQ(AnsiToUnicode(narrow), wide);
        ASSERT_EQ(GetCharCount(wide), static_cast<int>(wide.size()));
    }
}

}  // namespace
