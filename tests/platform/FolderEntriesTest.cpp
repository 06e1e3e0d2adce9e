#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/platform/FolderEntries.h"

#include "tests/support/TemporaryFolder.h"

using QsPlatform::FindEntries;
using QsPlatform::FolderEntry;
using QsPlatform::IsEntryFound;

namespace {

using Names = std::vector<CString>;

/// The names that a pattern finds; one of a folder ends in a backslash.
Names Found(const CString& pattern) {
    Names names;
    for (const FolderEntry& entry : FindEntries(pattern)) {
        EXPECT_EQ(entry.isDots, entry.name == u"." || entry.name == u"..");
        names.push_back(entry.isFolder ? entry.name + u'\\' : entry.name);
    }
    EXPECT_EQ(IsEntryFound(pattern), !names.empty());
    return names;
}

/// Some files and a folder "sub" that holds a file.
class FolderEntriesTest : public testing::Test {
protected:
    FolderEntriesTest() {
        for (const char* name : {"b_c", "Bd", "a", "a.b", "x.ec", "x.ecx", "[x]", "项目.ec", "sub/in"})
            folder.Write(name, "");
    }
    CString At(const char16_t* pattern) const { return FromNativePath(folder.Path()) + u'\\' + pattern; }

    const TemporaryFolder folder;
};

TEST_F(FolderEntriesTest, StandInOrderBehindTheDots) {
    const Names all = {u".\\",   u"..\\", u"a",     u"a.b", u"Bd",     u"b_c",
                       u"sub\\", u"x.ec", u"x.ecx", u"[x]", u"项目.ec"};
    EXPECT_EQ(Found(At(u"*")), all);
    EXPECT_EQ(Found(At(u"*.*")), all);
    EXPECT_EQ(Found(At(u"*.")), all);
    EXPECT_EQ(Found(At(u"\\*")), all);
}

TEST_F(FolderEntriesTest, WildcardsLookAtTheLastPart) {
    EXPECT_EQ(Found(At(u"*.ec")), (Names{u"x.ec", u"项目.ec"}));
    EXPECT_EQ(Found(At(u"B*")), (Names{u"Bd", u"b_c"}));
    EXPECT_EQ(Found(At(u"?")), (Names{u".\\", u"a"}));
    EXPECT_EQ(Found(At(u"S*")), Names{u"sub\\"});
    EXPECT_EQ(Found(At(u"[?]")), Names{u"[x]"});
    EXPECT_EQ(Found(At(u"z*")), Names{});
    EXPECT_EQ(Found(At(u"sub\\*")), (Names{u".\\", u"..\\", u"in"}));
    EXPECT_EQ(Found(At(u"sub\\.\\i*")), Names{u"in"});
    EXPECT_EQ(Found(At(u"sub/i*")), Names{u"in"});
}

TEST_F(FolderEntriesTest, ANameFindsItsEntry) {
    EXPECT_EQ(Found(At(u"a.b")), Names{u"a.b"});
    EXPECT_EQ(Found(At(u"[x]")), Names{u"[x]"});
    EXPECT_EQ(Found(At(u"sub")), Names{u"sub\\"});
    EXPECT_EQ(Found(At(u"sub\\in")), Names{u"in"});
    EXPECT_EQ(Found(At(u"none")), Names{});
}

TEST_F(FolderEntriesTest, NothingIsFoundWhereNothingCanBe) {
    for (const char16_t* pattern :
         {u"", u"sub\\", u"none\\*", u"a\\*", u"a\\in", u"su?\\*", u"*\\in", u"s*\\", u"sub\\in\\"})
        EXPECT_EQ(Found(At(pattern)), Names{}) << At(pattern);
    EXPECT_EQ(Found(u""), Names{});
    EXPECT_EQ(Found(At(u"a") + CString(u"\0*", 2)), Names{});
    EXPECT_EQ(Found(At(u"a") + CString(u"\0b", 2)), Names{});
}

TEST_F(FolderEntriesTest, APatternWithoutAFolderLooksIntoTheCurrentOne) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path());
    const Names bare = Found(u"*.ec");
    const Names below = Found(u"sub\\*n");
    const Names named = Found(u"a.b");
    std::filesystem::current_path(before);
    EXPECT_EQ(bare, (Names{u"x.ec", u"项目.ec"}));
    EXPECT_EQ(below, Names{u"in"});
    EXPECT_EQ(named, Names{u"a.b"});
}

TEST_F(FolderEntriesTest, TheRootHasNoDots) {
    const CString root = FromNativePath(folder.Path().root_path());
    const std::vector<FolderEntry> entries = FindEntries(root + u'*');
    ASSERT_FALSE(entries.empty());
    for (const FolderEntry& entry : entries)
        EXPECT_FALSE(entry.isDots);
    EXPECT_FALSE(IsEntryFound(root));
}

TEST(FolderEntries, ManyStandInOrder) {
    const TemporaryFolder folder;
    Names expected = {u".\\", u"..\\"};
    for (int i = 0; i < 3000; ++i) {
        CString name;
        name.Format(u"%04d%s", i, u"文件名很长的一个文件用来填满缓冲区");
        expected.push_back(name);
    }
    for (std::size_t i = expected.size() - 1; i >= 2; --i)
        folder.Write(std::filesystem::path(expected[i].View()).string(), "");
    EXPECT_EQ(Found(FromNativePath(folder.Path()) + u"\\*"), expected);
}

TEST(FolderEntries, OfAFolderFarBelow) {
    const TemporaryFolder folder;
    CString path = FromNativePath(folder.Path());
    for (int i = 0; i < 20; ++i) {
        path += u"\\" + CString(u'n', 40);
        std::filesystem::create_directory(std::filesystem::path(ToNativePath(path)));
    }
    EXPECT_EQ(Found(path + u"\\*"), (Names{u".\\", u"..\\"}));
}

}  // namespace
