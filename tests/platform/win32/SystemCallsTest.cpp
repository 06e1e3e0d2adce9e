// What the calls of this system answer themselves, against what the library answers on every system. Only
// here can the calls be asked; elsewhere the same answers are expected by SameAnswersTest.cpp and by the
// files under data/.
#include <cwchar>
#include <cwctype>
#include <random>
#include <string>

#include <windows.h>
#include <gtest/gtest.h>

#include "QsUtils/platform/WordCompare.h"
#include "QsUtils/text/CString.h"
#include "QsUtils/text/Numbers.h"

namespace {

int SignOf(int value) {
    return value < 0 ? -1 : value > 0 ? 1 : 0;
}

std::wstring RandomText(std::mt19937& random, const std::wstring& alphabet, std::size_t longest) {
    std::wstring text(random() % (longest + 1), L'\0');
    for (wchar_t& unit : text)
        unit = alphabet[random() % alphabet.size()];
    return text;
}

std::u16string Units(const std::wstring& text) {
    return std::u16string(text.begin(), text.end());
}

}  // namespace

// The prefix and the locale in which these tests run: all that is said of the ANSI code page rests on it.
TEST(SystemCalls, TheLocaleIsChineseWithCodePage936) {
    EXPECT_EQ(::GetACP(), 936U);
    EXPECT_EQ(::GetUserDefaultLCID(), 0x0804U);
}

TEST(SystemCalls, TheRuntimeFoldsTheSameLetters) {
    for (unsigned unit = 1; unit <= 0xFFFF; ++unit) {
        wchar_t upper[] = {static_cast<wchar_t>(unit), L'\0'};
        wchar_t lower[] = {static_cast<wchar_t>(unit), L'\0'};
        const CString text(upper);
        _wcsupr(upper);
        _wcslwr(lower);
        ASSERT_TRUE(CString(text).MakeUpper() == upper) << unit;
        ASSERT_TRUE(CString(text).MakeLower() == lower) << unit;
    }
}

TEST(SystemCalls, TheRuntimeComparesWithoutCaseAlike) {
    std::mt19937 random(1);
    for (int round = 0; round < 300'000; ++round) {
        const std::wstring a = RandomText(random, L"aAbBzZ_[`{09éÉ砖", 4);
        const std::wstring b = RandomText(random, L"aAbBzZ_[`{09éÉ砖", 4);
        ASSERT_EQ(CString(a).CompareNoCase(CString(b)), SignOf(_wcsicmp(a.c_str(), b.c_str())));
    }
}

TEST(SystemCalls, TheRuntimeSkipsTheSameWhiteSpace) {
    for (unsigned unit = 1; unit <= 0xFFFF; ++unit) {
        const wchar_t text[] = {static_cast<wchar_t>(unit), L'7', L'\0'};
        // Its digits of other scripts are not read by the library, which knows those of ASCII alone.
        if (std::iswdigit(text[0]) == 0) {
            ASSERT_EQ(QsText::ReadInt(CString(text).View()), _wtoi(text)) << unit;
        }
        ASSERT_EQ(QsText::ReadDouble(CString(text).View()), _wtof(text)) << unit;
    }
}

TEST(SystemCalls, TheRuntimeReadsTheSameNumbers) {
    std::mt19937 random(2);
    for (int round = 0; round < 500'000; ++round) {
        const std::wstring text = RandomText(random, L"0011223456789..+-eE \t\u3000\u00A0x", 14);
        ASSERT_EQ(QsText::ReadInt(Units(text)), _wtoi(text.c_str()));
        ASSERT_EQ(QsText::ReadDouble(Units(text)), _wtof(text.c_str()));
    }
}

TEST(SystemCalls, LstrcmpOrdersCodesAndNamesAlike) {
    std::mt19937 random(3);
    const std::wstring codes = L"0123456789ABCDabcd-.·/ 补换（）()#*+'";
    const std::wstring names = L"砖墙混凝土钢筋门窗C30-1①φ㎡abAB（）、 é";
    for (int round = 0; round < 500'000; ++round) {
        const std::wstring& alphabet = round % 2 == 0 ? codes : names;
        const std::wstring a = RandomText(random, alphabet, 8);
        const std::wstring b =
            round % 3 == 0 ? a + RandomText(random, alphabet, 1) : RandomText(random, alphabet, 8);
        ASSERT_EQ(QsPlatform::CompareWords(Units(a), Units(b)), SignOf(::lstrcmpW(a.c_str(), b.c_str())));
    }
}
