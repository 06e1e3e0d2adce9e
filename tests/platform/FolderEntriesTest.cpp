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

using EntryNames = std::vector<CString>;

/// The names that a pattern finds; one of a folder ends in a backslash.
EntryNames NamesOf(const CString& pattern) {
    EntryNames names;
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
    const EntryNames all = {u".\\",   u"..\\", u"a",     u"a.b", u"Bd",     u"b_c",
                            u"sub\\", u"x.ec", u"x.ecx", u"[x]", u"项目.ec"};
    EXPECT_EQ(NamesOf(At(u"*")), all);
    EXPECT_EQ(NamesOf(At(u"*.*")), all);
    EXPECT_EQ(NamesOf(At(u"*.")), all);
    EXPECT_EQ(NamesOf(At(u"\\*")), all);
}

TEST_F(FolderEntriesTest, WildcardsLookAtTheLastPart) {
    EXPECT_EQ(NamesOf(At(u"*.ec")), (EntryNames{u"x.ec", u"项目.ec"}));
    EXPECT_EQ(NamesOf(At(u"B*")), (EntryNames{u"Bd", u"b_c"}));
    EXPECT_EQ(NamesOf(At(u"?")), (EntryNames{u".\\", u"a"}));
    EXPECT_EQ(NamesOf(At(u"S*")), EntryNames{u"sub\\"});
    EXPECT_EQ(NamesOf(At(u"[?]")), EntryNames{u"[x]"});
    EXPECT_EQ(NamesOf(At(u"z*")), EntryNames{});
    EXPECT_EQ(NamesOf(At(u"sub\\*")), (EntryNames{u".\\", u"..\\", u"in"}));
    EXPECT_EQ(NamesOf(At(u"sub\\.\\i*")), EntryNames{u"in"});
    EXPECT_EQ(NamesOf(At(u"sub/i*")), EntryNames{u"in"});
}

TEST_F(FolderEntriesTest, ANameFindsItsEntry) {
    EXPECT_EQ(NamesOf(At(u"a.b")), EntryNames{u"a.b"});
    EXPECT_EQ(NamesOf(At(u"[x]")), EntryNames{u"[x]"});
    EXPECT_EQ(NamesOf(At(u"sub")), EntryNames{u"sub\\"});
    EXPECT_EQ(NamesOf(At(u"sub\\in")), EntryNames{u"in"});
    EXPECT_EQ(NamesOf(At(u"none")), EntryNames{});
}

TEST_F(FolderEntriesTest, NothingIsFoundWhereNothingCanBe) {
    for (const char16_t* pattern :
         {u"", u"sub\\", u"none\\*", u"a\\*", u"a\\in", u"su?\\*", u"*\\in", u"s*\\", u"sub\\in\\"})
        EXPECT_EQ(NamesOf(At(pattern)), EntryNames{}) << At(pattern);
    EXPECT_EQ(NamesOf(u""), EntryNames{});
    EXPECT_EQ(NamesOf(At(u"a") + CString(u"\0*", 2)), EntryNames{});
    EXPECT_EQ(NamesOf(At(u"a") + CString(u"\0b", 2)), EntryNames{});
}

TEST_F(FolderEntriesTest, APatternWithoutAFolderLooksIntoTheCurrentOne) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path());
    const EntryNames bare = NamesOf(u"*.ec");
    const EntryNames below = NamesOf(u"sub\\*n");
    const EntryNames named = NamesOf(u"a.b");
    std::filesystem::current_path(before);
    EXPECT_EQ(bare, (EntryNames{u"x.ec", u"项目.ec"}));
    EXPECT_EQ(below, EntryNames{u"in"});
    EXPECT_EQ(named, EntryNames{u"a.b"});
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
    EntryNames expected = {u".\\", u"..\\"};
    for (int i = 0; i < 3000; ++i) {
        CString name;
        name.Format(u"%04d%s", i, u"文件名很长的一个文件用来填满缓冲区");
        expected.push_back(name);
    }
    for (std::size_t i = expected.size() - 1; i >= 2; --i)
        folder.Write(std::filesystem::path(expected[i].View()).string(), "");
    EXPECT_EQ(NamesOf(FromNativePath(folder.Path()) + u"\\*"), expected);
}

TEST(FolderEntries, OfAFolderFarBelow) {
    const TemporaryFolder folder;
    CString path = FromNativePath(folder.Path());
    for (int i = 0; i < 20; ++i) {
        path += u"\\" + CString(u'n', 40);
        std::filesystem::create_directory(std::filesystem::path(ToNativePath(path)));
    }
    EXPECT_EQ(NamesOf(path + u"\\*"), (EntryNames{u".\\", u"..\\"}));
}

}  // namespace
