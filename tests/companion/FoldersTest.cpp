// The folders of every kind, and what a query can't make of them.
#include <gtest/gtest.h>

#include "companion/Folders.h"
#include "companion/Paths.h"
#include "tests/companion/MemoryDisk.h"

namespace {

using Companion::Folders;
using Companion::Resolve;

const std::wstring LibraryRoot = MemoryDisk::Path(L"Library");

std::wstring Below(const std::wstring& folder) {
    return LibraryRoot + L"\\" + folder;
}

}  // namespace

TEST(CompanionFolders, EveryKindHasADefault) {
    const Folders folders(LibraryRoot);
    const std::wstring expected[] = {L"",
                                     L"北京\\",
                                     L"北京\\2012\\定额库\\",
                                     L"清单库\\北京\\2012\\",
                                     L"北京\\2012\\",
                                     L"清单库\\企业清单\\北京\\",
                                     L"北京\\2012\\配套文件\\",
                                     L"北京\\2012\\子库\\",
                                     L"北京\\2012\\说明\\",
                                     L"北京\\2012\\信息价\\",
                                     L"北京\\2012\\工料机库\\",
                                     L"北京\\2012\\取费模板\\",
                                     L"北京\\2012\\报表模板\\",
                                     L"北京\\2012\\子库\\土建\\"};
    for (std::int32_t kind = 0; kind < Folders::KindCount; ++kind)
        EXPECT_EQ(folders.Path(kind, L"北京", L"2012", L"土建"), Below(expected[kind])) << kind;
    for (const std::int32_t kind : {-1, 14, 1000, std::numeric_limits<std::int32_t>::min()})
        EXPECT_EQ(folders.Path(kind, L"北京", L"2012", L"土建"), L"") << kind;
}

TEST(CompanionFolders, OnlyTheNamesOfThePatternAreAskedFor) {
    const Folders folders(LibraryRoot);
    EXPECT_EQ(folders.Path(LibraryPath_Root, L"..", L"a\\b", L""), Below(L""));
    EXPECT_EQ(folders.Path(LibraryPath_Family, L"北京", L"..", L"/"), Below(L"北京\\"));
    EXPECT_EQ(folders.Path(LibraryPath_Quota, L"北京", L"2012", L".."), Below(L"北京\\2012\\定额库\\"));
    EXPECT_EQ(folders.Path(LibraryPath_SubLibrary, L"北京", L"2012"), L"");
    EXPECT_EQ(folders.Path(LibraryPath_Quota, L"", L"2012"), L"");
    EXPECT_EQ(folders.Path(LibraryPath_EnterpriseBill), L"");
}

TEST(CompanionFolders, NamesDontLeadElsewhere) {
    const Folders folders(LibraryRoot);
    for (const std::wstring& name :
         {std::wstring(L".."), std::wstring(L"."), std::wstring(L"..."), std::wstring(L".. "),
          std::wstring(L" "), std::wstring(L"a\\b"), std::wstring(L"a/b"), std::wstring(L"..\\.."),
          std::wstring(L"a\0b", 3), std::wstring(L"a\n"), std::wstring(L"\x7F")}) {
        EXPECT_EQ(folders.Path(LibraryPath_SubLibrary, L"北京", L"2012", name), L"");
        EXPECT_EQ(folders.Path(LibraryPath_Family, name), L"");
    }
    for (const wchar_t* name : {L"a b ", L"..a", L"a..", L" a", L"{Family}", L"*"})
        EXPECT_EQ(folders.Path(LibraryPath_Family, name), Below(std::wstring(name) + L"\\"));
}

TEST(CompanionFolders, PatternsReplaceTheDefaults) {
    Folders folders(LibraryRoot);
    EXPECT_EQ(folders.SetPattern(2, L"{Section}/x/./{Family}{Section}//y\\"), "");
    EXPECT_EQ(folders.Path(2, L"f", L"s"), Below(L"s\\x\\fs\\y\\"));
    EXPECT_EQ(folders.SetPattern(3, L"..\\Bills\\{Family}\\..\\{Section}"), "");
    EXPECT_EQ(folders.Path(3, L"f", L"s"), MemoryDisk::Path(L"Bills\\s\\"));
    EXPECT_EQ(folders.SetPattern(5, MemoryDisk::Root() + L"else\\{Family}"), "");
    EXPECT_EQ(folders.Path(5, L"f"), MemoryDisk::Root() + L"else\\f\\");
    EXPECT_EQ(folders.SetPattern(0, L"sub"), "");
    EXPECT_EQ(folders.Path(0), Below(L"sub\\"));
    EXPECT_EQ(folders.Path(1, L"f"), Below(L"f\\"));
    EXPECT_EQ(folders.SetPattern(8, L"{Item}\\}"), "");
    EXPECT_EQ(folders.Path(8, L"", L"", L"i"), Below(L"i\\}\\"));
    // A name isn't looked through for placeholders.
    EXPECT_EQ(folders.Path(2, L"{Section}", L"{Family}"), Below(L"{Family}\\x\\{Section}{Family}\\y\\"));
}

TEST(CompanionFolders, ItemsLieBelowTheirParentUnlessTheyHaveAPattern) {
    Folders folders(LibraryRoot);
    EXPECT_EQ(folders.SetPattern(7, L"items\\{Family}\\{Section}"), "");
    EXPECT_EQ(folders.Path(13, L"f", L"s", L"i"), Below(L"items\\f\\s\\i\\"));
    EXPECT_EQ(folders.SetPattern(13, L"{Item}"), "");
    EXPECT_EQ(folders.SetPattern(7, L"other"), "");
    EXPECT_EQ(folders.Path(13, L"", L"", L"i"), Below(L"i\\"));
    EXPECT_EQ(folders.Path(7), Below(L"other\\"));
}

TEST(CompanionFolders, ABadPatternChangesNothing) {
    Folders folders(LibraryRoot);
    EXPECT_NE(folders.SetPattern(0, L"{Family}"), "");
    EXPECT_NE(folders.SetPattern(1, L"{Family}\\{Section}"), "");
    EXPECT_NE(folders.SetPattern(7, L"{Item}"), "");
    EXPECT_NE(folders.SetPattern(13, L"{item}"), "");
    EXPECT_NE(folders.SetPattern(13, L"{"), "");
    EXPECT_EQ(folders.Path(0), Below(L""));
    EXPECT_EQ(folders.Path(13, L"f", L"s", L"i"), Below(L"f\\s\\子库\\i\\"));
}

TEST(CompanionFolders, ABraceInTheRootIsNoPlaceholder) {
    const Folders folders(MemoryDisk::Path(L"{Family}"));
    EXPECT_EQ(folders.Path(1, L"f"), MemoryDisk::Path(L"{Family}\\f\\"));
}

TEST(CompanionPaths, Resolving) {
    const std::wstring root = MemoryDisk::Root();
    EXPECT_EQ(Resolve(root + L"a\\b\\", L""), root + L"a\\b");
    EXPECT_EQ(Resolve(root + L"a\\b", L"c"), root + L"a\\b\\c");
    EXPECT_EQ(Resolve(root + L"a\\b\\", L"../c/./d//"), root + L"a\\c\\d");
    EXPECT_EQ(Resolve(root + L"a\\x\\..\\b\\", L"..\\.."), root);
    EXPECT_EQ(Resolve(root + L"a\\", L"..\\..\\..\\c"), root + L"c");
    EXPECT_EQ(Resolve(root, L"c"), root + L"c");
    EXPECT_EQ(Resolve(root + L"a", root + L"b\\..\\c"), root + L"c");
    EXPECT_EQ(Resolve(root + L"a", L"...\\ b"), root + L"a\\...\\ b");
    EXPECT_EQ(Companion::AsFolder(root), root);
    EXPECT_EQ(Companion::AsFolder(root + L"a"), root + L"a\\");
}
