// Links, and names that only this system has.
#include <filesystem>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "QsUtils/platform/FolderEntries.h"
#include "QsUtils/platform/Folders.h"

#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;
using namespace QsPlatform;

namespace {

TEST(FolderLinks, ALinkToAFolderIsAFolder) {
    const TemporaryFolder folder;
    folder.Write("sub/in", "");
    fs::create_symlink("sub", folder.File("link"));
    fs::create_symlink("nowhere", folder.File("lost"));
    fs::create_symlink("sub/in", folder.File("plain"));
    fs::create_symlink("loop", folder.File("loop"));
    EXPECT_TRUE(IsFolder(folder.Text("link")));
    EXPECT_FALSE(IsFolder(folder.Text("lost")));
    const auto entries = FindEntries(folder.Text("*"));
    ASSERT_EQ(entries.size(), 7u);
    EXPECT_TRUE(entries[2].name == u"link" && entries[2].isFolder);
    EXPECT_TRUE(entries[3].name == u"loop" && !entries[3].isFolder);
    EXPECT_TRUE(entries[4].name == u"lost" && !entries[4].isFolder);
    EXPECT_TRUE(entries[5].name == u"plain" && !entries[5].isFolder);
    EXPECT_TRUE(IsEntryFound(folder.Text("lost")));
    EXPECT_TRUE(FindEntries(folder.Text("link")).at(0).isFolder);
    EXPECT_TRUE(IsEntryFound(folder.Text("link/in")));
}

TEST(FolderLinks, OnlyTheLinkIsRemoved) {
    const TemporaryFolder folder;
    folder.Write("sub/in", "x");
    for (const char* name : {"link", "link/"}) {
        fs::create_symlink("sub", folder.File("link"));
        EXPECT_TRUE(RemoveFolder(folder.Text(name)));
        EXPECT_FALSE(fs::is_symlink(folder.File("link")));
    }
    EXPECT_EQ(folder.Read("sub/in"), "x");
}

TEST(FolderLinks, ALinkToNoFolderIsNotRemoved) {
    const TemporaryFolder folder;
    folder.Write("in", "x");
    fs::create_symlink("in", folder.File("plain"));
    fs::create_symlink("nowhere", folder.File("lost"));
    EXPECT_FALSE(RemoveFolder(folder.Text("plain")));
    EXPECT_FALSE(RemoveFolder(folder.Text("lost")));
    EXPECT_FALSE(CreateFolder(folder.Text("lost")));
    EXPECT_EQ(folder.Entries(), 3);
}

TEST(FolderNames, HaveCase) {
    const TemporaryFolder folder;
    folder.Write("Sub/in", "");
    EXPECT_FALSE(IsFolder(folder.Text("sub")));
    EXPECT_FALSE(IsEntryFound(folder.Text("sub")));
    EXPECT_FALSE(IsEntryFound(folder.Text("sub/*")));
    EXPECT_TRUE(IsEntryFound(folder.Text("sub*")));
    EXPECT_TRUE(CreateFolder(folder.Text("sub")));
}

// Blanks, points and wildcards are part of a name here.
TEST(FolderNames, MayHoldAnything) {
    const TemporaryFolder folder;
    for (const char* name : {"a. ", "b?c", "tab\t"}) {
        ASSERT_TRUE(CreateFolder(folder.Text(name)));
        EXPECT_TRUE(IsFolder(folder.Text(name)));
    }
    folder.Write("b?c/in", "");
    EXPECT_FALSE(IsFolder(folder.Text("a")));
    EXPECT_TRUE(IsEntryFound(folder.Text("b?c/in")));
    EXPECT_TRUE(IsEntryFound(folder.Text("b?c/i*")));
    EXPECT_FALSE(IsEntryFound(folder.Text("b*c/in")));
    EXPECT_TRUE(RemoveFolder(folder.Text("a. ")));
}

TEST(FolderNames, BytesThatAreNoTextAreListed) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkdir((folder.Path() / "x\xFFy").c_str(), 0700), 0);
    const auto entries = FindEntries(folder.Text("x*"));
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_TRUE(entries[0].name == u"x\xFFFDy" && entries[0].isFolder);
}

// Longer than the 4096 bytes that a call takes.
TEST(FolderNames, MayStandBehindAnyPath) {
    constexpr int levels = 60;
    const TemporaryFolder folder;
    CString path = folder.Text("deep");
    ASSERT_TRUE(CreateFolder(path));
    for (int i = 0; i < levels; ++i) {
        path += u"\\" + CString(u'n', 200);
        ASSERT_TRUE(CreateFolder(path)) << i;
        ASSERT_TRUE(IsFolder(path + u'\\')) << i;
    }
    EXPECT_EQ(FindEntries(path + u"\\*").size(), 2u);
    EXPECT_TRUE(IsEntryFound(path));
    EXPECT_FALSE(CreateFolder(path));
    EXPECT_FALSE(IsFolder(path + u"\\" + CString(u'n', 5000)));
    for (int i = 0; i < levels; ++i) {
        ASSERT_TRUE(RemoveFolder(path)) << i;
        ASSERT_FALSE(RemoveFolder(path)) << i;
        path.Truncate(path.GetLength() - 201);
    }
}

}  // namespace
