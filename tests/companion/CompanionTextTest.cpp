// Texts of catalogues: UTF-8 both ways, names and lists.
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "companion/Text.h"
#include "tests/support/Rounds.h"

using namespace Companion;
using namespace std::string_literals;

TEST(CompanionText, WellFormedBytesAreRead) {
    EXPECT_EQ(FromUtf8("aé中😀"), L"aé中😀");
    EXPECT_EQ(FromUtf8(""), L"");
    EXPECT_EQ(FromUtf8("\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF"),
              L"\x7F\x80\x7FF\x800\xD7FF\xE000\xFFFF");
    EXPECT_EQ(FromUtf8("\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"), L"\U00010000\U0010FFFF");
}

TEST(CompanionText, MalformedBytesAreFound) {
    for (const std::string& bytes : {"\x80"s, "\xC0\x80"s, "\xC1\xBF"s, "\xC2"s, "\xC2\x20"s, "\xE0\x9F\xBF"s,
                                     "\xED\xA0\x80"s, "\xE4\xB8"s, "\xF0\x8F\xBF\xBF"s, "\xF4\x90\x80\x80"s,
                                     "\xF5\x80\x80\x80"s, "\xFF"s, "\xF0\x9F\x98"s}) {
        EXPECT_EQ(FromUtf8(bytes), std::nullopt);
        EXPECT_EQ(FindMalformed("ab" + bytes), 2u);
        EXPECT_EQ(FindMalformed("中" + bytes + "中"), 3u);
    }
    EXPECT_EQ(FindMalformed("ab中😀"), std::string::npos);
}

TEST(CompanionText, RandomTextsComeBack) {
    std::mt19937 random(20'260);
    for (int round = 0; round < Rounds(20'000); ++round) {
        std::string bytes;
        for (int i = static_cast<int>(random() % 12); i > 0; --i)
            bytes += static_cast<char>(random() % 4 == 0 ? random() % 256 : 0x80 + random() % 0x76);
        const auto text = FromUtf8(bytes);
        EXPECT_EQ(text.has_value(), FindMalformed(bytes) == std::string::npos);
        if (text) {
            EXPECT_EQ(ToUtf8(*text), bytes);
        }
    }
}

TEST(CompanionText, ALoneSurrogateIsKeptInThreeBytes) {
    EXPECT_EQ(ToUtf8(std::wstring(1, static_cast<wchar_t>(0xD800))), "\xED\xA0\x80");
    EXPECT_EQ(ToUtf8(std::wstring{static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)}), "😀");
    EXPECT_EQ(ToUtf8(std::wstring{static_cast<wchar_t>(0xDE00), static_cast<wchar_t>(0xD83D)}),
              "\xED\xB8\x80\xED\xA0\xBD");
}

TEST(CompanionText, Lists) {
    using List = std::vector<std::wstring>;
    EXPECT_EQ(SplitList(L""), List{});
    EXPECT_EQ(SplitList(L" ; ;"), List{});
    EXPECT_EQ(SplitList(L"ZJ"), List{L"ZJ"});
    EXPECT_EQ(SplitList(L" ZJ ;国 标;ZJ"), (List{L"ZJ", L"国 标", L"ZJ"}));
}

TEST(CompanionText, Controls) {
    EXPECT_FALSE(HasControls(L"a b", false));
    EXPECT_TRUE(HasControls(L"a\tb", false));
    EXPECT_FALSE(HasControls(L"a\tb\n", true));
    EXPECT_TRUE(HasControls(L"a\r", true));
    EXPECT_TRUE(HasControls(L"\x7F", true));
}
