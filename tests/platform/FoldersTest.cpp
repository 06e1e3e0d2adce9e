#include <filesystem>

#include <gtest/gtest.h>

#include "QsUtils/platform/Folders.h"

#include "tests/support/TemporaryFolder.h"

using QsPlatform::CreateFolder;
using QsPlatform::IsFolder;
using QsPlatform::RemoveFolder;

namespace {

class FoldersTest : public testing::Test {
protected:
    FoldersTest() { folder.Write("file", "x"); }
    CString At(const CString& name) const { return FromNativePath(folder.Path()) + u'\\' + name; }

    const TemporaryFolder folder;
};

TEST_F(FoldersTest, AreRecognised) {
    EXPECT_TRUE(IsFolder(At(u"")));
    EXPECT_TRUE(IsFolder(At(u"\\\\")));
    EXPECT_TRUE(IsFolder(FromNativePath(folder.Path())));
    EXPECT_TRUE(IsFolder(FromNativePath(folder.Path().root_path())));
    EXPECT_TRUE(IsFolder(u"."));
    for (const char16_t* name : {u"file", u"file\\", u"none", u"none\\", u"file\\none", u"*"})
        EXPECT_FALSE(IsFolder(At(name))) << At(name);
    EXPECT_FALSE(IsFolder(u""));
    EXPECT_FALSE(IsFolder(FromNativePath(folder.Path()) + CString(u"\0", 1)));
}

TEST_F(FoldersTest, AreMadeOneAtATime) {
    EXPECT_TRUE(CreateFolder(At(u"项目")));
    EXPECT_TRUE(IsFolder(At(u"项目")));
    EXPECT_TRUE(CreateFolder(At(u"b\\")));
    EXPECT_TRUE(IsFolder(At(u"b")));
    EXPECT_FALSE(CreateFolder(At(u"c\\d")));
    EXPECT_FALSE(IsFolder(At(u"c")));
}

TEST_F(FoldersTest, AreNotMadeWhereSomethingStands) {
    EXPECT_FALSE(CreateFolder(At(u"")));
    EXPECT_FALSE(CreateFolder(At(u"file")));
    EXPECT_FALSE(CreateFolder(At(u"file\\in")));
    EXPECT_FALSE(CreateFolder(u""));
    EXPECT_FALSE(CreateFolder(At(u"a") + CString(u"\0b", 2)));
    EXPECT_EQ(folder.Read("file"), "x");
    EXPECT_EQ(folder.Entries(), 1);
}

TEST_F(FoldersTest, AreRemovedWhenEmpty) {
    folder.Write("full/in", "");
    ASSERT_TRUE(CreateFolder(At(u"a")));
    ASSERT_TRUE(CreateFolder(At(u"b")));
    EXPECT_TRUE(RemoveFolder(At(u"a")));
    EXPECT_TRUE(RemoveFolder(At(u"b\\")));
    EXPECT_FALSE(RemoveFolder(At(u"full")));
    EXPECT_FALSE(RemoveFolder(At(u"file")));
    EXPECT_FALSE(RemoveFolder(At(u"none")));
    EXPECT_FALSE(RemoveFolder(u""));
    EXPECT_FALSE(RemoveFolder(At(u"file") + CString(u"\0", 1)));
    EXPECT_EQ(folder.Entries(), 2);
}

// Longer than the 260 units that a path has on one of the systems.
TEST_F(FoldersTest, FarBelow) {
    constexpr int levels = 15;
    CString path = At(u"deep");
    ASSERT_TRUE(CreateFolder(path));
    for (int i = 0; i < levels; ++i) {
        path += u"\\" + CString(u'n', 200);
        ASSERT_TRUE(CreateFolder(path)) << i;
        ASSERT_TRUE(IsFolder(path)) << i;
    }
    EXPECT_FALSE(CreateFolder(path));
    for (int i = 0; i < levels; ++i) {
        ASSERT_TRUE(RemoveFolder(path)) << i;
        ASSERT_FALSE(RemoveFolder(path)) << i;
        path.Truncate(path.GetLength() - 201);
    }
    EXPECT_TRUE(RemoveFolder(path));
}

}  // namespace
