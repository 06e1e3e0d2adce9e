// What the system's own search answers, against the rules that hold on every system.
#include <random>
#include <set>
#include <string>

#include <windows.h>
#include <gtest/gtest.h>

#include "QsUtils/platform/FolderEntries.h"
#include "QsUtils/platform/UpperCase.h"

#include "tests/support/TemporaryFolder.h"

namespace {

TEST(FolderCalls, TheSystemsTableOfUpperCase) {
    using UpcaseUnit = WCHAR(WINAPI*)(WCHAR);
    const auto upcase = reinterpret_cast<UpcaseUnit>(
        reinterpret_cast<void*>(::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "RtlUpcaseUnicodeChar")));
    ASSERT_NE(upcase, nullptr);
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit)
        ASSERT_EQ(QsPlatform::UpperCase(static_cast<char16_t>(unit)), upcase(static_cast<WCHAR>(unit)))
            << unit;
}

std::vector<CString> SystemsAnswer(const CString& pattern) {
    std::vector<CString> names;
    WIN32_FIND_DATAW found{};
    const HANDLE search = ::FindFirstFileW(pattern.ToWide().c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return names;
    do {
        names.emplace_back(found.cFileName);
    } while (::FindNextFileW(search, &found));
    ::FindClose(search);
    return names;
}

std::vector<CString> OurAnswer(const CString& pattern) {
    std::vector<CString> names;
    for (const QsPlatform::FolderEntry& entry : QsPlatform::FindEntries(pattern))
        names.push_back(entry.name);
    return names;
}

TEST(FolderCalls, TheSystemFindsTheSameInTheSameOrder) {
    const TemporaryFolder folder;
    for (const char* name : {"a", "a.b", "ab", "Abc", "a.b.c", ".x", "b.ab", "x.ecx", "x.ec", "[x]", "é.txt",
                             "b_c", "Bd", "项目.ec", "Ω", "z z", "sub/in"})
        folder.Write(name, "");
    const CString at = FromNativePath(folder.Path()) + u'\\';
    for (const char16_t* pattern :
         {u"*",       u"*.*",     u"*.",       u"a.*",    u"a.?",   u"a?",    u"a??",   u"?",      u"??",
          u"?.?",     u"?.*",     u"a*.",      u"a*..",   u"a* ",   u"*.b",   u"*b.*",  u"?.",     u".*",
          u"*..*",    u"a.*.*",   u"*.?",      u"*.??",   u"a.b?",  u"a.b.*", u"a.b.?", u"*.ec",   u"[?]",
          u"sub.\\*", u"sub \\*", u"sub\\\\*", u"su?\\*", u"sub\\", u"a*b*c", u"a**c",  u"***",    u"?*.*",
          u"É*",      u"ω*",      u"*z",       u"A*",     u"a.b",   u"A.B",   u"none",  u"sub\\.", u"sub\\..",
          u"sub/*",   u"sub\\in", u"a:b",      u"a|b*"})
        EXPECT_EQ(OurAnswer(at + pattern), SystemsAnswer(at + pattern)) << CString(pattern);
}

TEST(FolderCalls, TheSystemFindsTheSameByRandomMasks) {
    const TemporaryFolder folder;
    std::mt19937 random(3);
    const auto text = [&random](std::u16string_view alphabet) {
        CString units;
        for (auto count = random() % 6 + 1; count > 0; --count)
            units += alphabet[random() % alphabet.size()];
        return units;
    };
    for (int i = 0; i < 60; ++i)
        folder.Write(std::filesystem::path((text(u"ab.") + u'c').View()).string(), "");
    const CString at = FromNativePath(folder.Path()) + u'\\';
    for (int round = 0; round < 3000; ++round) {
        const CString mask = text(u"abc.*?");
        // What the system makes of these shapes is nobody's rule.
        if (mask.FindOneOf(u"*?") < 0 || mask.Right(1) == u".")
            continue;
        EXPECT_EQ(OurAnswer(at + mask), SystemsAnswer(at + mask)) << mask;
    }
}

}  // namespace
