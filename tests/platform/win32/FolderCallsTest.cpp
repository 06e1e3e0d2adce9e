// What the system's own search answers, against the rules that hold on every system.
#include <string>
#include <vector>

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

// Not by random masks: of "*?" and "*a" some versions of the system find nothing, or what doesn't end so.
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

}  // namespace
