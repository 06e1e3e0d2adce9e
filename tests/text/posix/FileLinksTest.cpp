// Links and trees that only this system has.
#include <filesystem>
#include <string>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "QsUtils/frame/IQsUtils.h"
#include "QsUtils/platform/Files.h"

#include "tests/support/SmallStack.h"
#include "tests/support/TemporaryFolder.h"

namespace fs = std::filesystem;

namespace {

CString PathIn(const TemporaryFolder& folder, const CString& path) {
    return FromNativePath(folder.Path()) + u'\\' + path;
}

CString FoundBelow(const CString& folder, const CString& name, const CString& tail = {}) {
    CString found;
    IQsUtils::FindPath(found, folder, name, tail);
    return found;
}

/// A folder with so many below one another, made without long paths, and a file in the last one.
void MakeDeep(const fs::path& top, int levels) {
    fs::create_directory(top);
    int folder = ::open(top.c_str(), O_PATH | O_DIRECTORY);
    for (int level = 0; level < levels; ++level) {
        ASSERT_EQ(::mkdirat(folder, "d", 0777), 0);
        const int below = ::openat(folder, "d", O_PATH | O_DIRECTORY);
        ::close(folder);
        folder = below;
    }
    ::close(::openat(folder, "last", O_CREAT | O_WRONLY, 0666));
    ::close(folder);
}

TEST(FileLinks, ADeletionNeverFollowsOne) {
    const TemporaryFolder folder;
    folder.Write("outside/kept", "x");
    folder.Write("a/b/gone", "x");
    fs::create_symlink("../../outside", folder.File("a/b/link"));
    fs::create_symlink("../outside/kept", folder.File("a/file"));
    fs::create_symlink("nowhere", folder.File("a/lost"));
    fs::create_symlink(".", folder.File("a/loop"));
    EXPECT_TRUE(IQsUtils::DeleteDirectory(PathIn(folder, u"a")));
    EXPECT_EQ(folder.Read("outside/kept"), "x");
    EXPECT_EQ(folder.Entries(), 1);
}

TEST(FileLinks, DeletingALinkRemovesTheLink) {
    const TemporaryFolder folder;
    folder.Write("a/kept", "x");
    for (const char16_t* name : {u"link", u"link\\"}) {
        fs::create_symlink("a", folder.File("link"));
        EXPECT_TRUE(IQsUtils::DeleteDirectory(PathIn(folder, name)));
        EXPECT_EQ(folder.Entries(), 1);
    }
    EXPECT_EQ(folder.Read("a/kept"), "x");
}

TEST(FileLinks, NamesThatAreNoTextAreDeletedAndCopied) {
    const TemporaryFolder folder;
    fs::create_directory(folder.File("s"));
    for (const char* name : {"x\xFFy", "a\\b"}) {
        const fs::path path = folder.File("s") / name;
        ASSERT_EQ(::mkdir(path.c_str(), 0777), 0);
        ::close(::open((path / name).c_str(), O_CREAT | O_WRONLY, 0666));
    }
    IQsUtils::CopyFolderAllFiles(PathIn(folder, u"s"), PathIn(folder, u"t"), true);
    EXPECT_TRUE(fs::exists(folder.File("t") / "x\xFFy" / "x\xFFy"));
    EXPECT_TRUE(fs::exists(folder.File("t") / "a\\b" / "a\\b"));
    EXPECT_TRUE(IQsUtils::DeleteDirectory(PathIn(folder, u"s")));
    EXPECT_TRUE(IQsUtils::DeleteDirectory(PathIn(folder, u"t")));
    EXPECT_EQ(folder.Entries(), 0);
}

TEST(FileLinks, ASearchFollowsThemAndEnds) {
    const TemporaryFolder folder;
    folder.Write("a/deep/x", "");
    folder.Write("real/y", "");
    fs::create_symlink("..", folder.File("a/up"));
    fs::create_symlink("../../real", folder.File("a/deep/z"));
    EXPECT_EQ(FoundBelow(PathIn(folder, u"a\\"), u"y"), PathIn(folder, u"a\\deep\\z\\y"));
    EXPECT_EQ(FoundBelow(PathIn(folder, u"a\\"), u"none"), u"");
    EXPECT_EQ(FoundBelow(PathIn(folder, u"a\\"), u"y", u"up"), PathIn(folder, u"a\\up\\a\\deep\\z\\y"));
    EXPECT_EQ(FoundBelow(PathIn(folder, u"a\\"), u"none", u"up\\a\\up"), u"");
}

TEST(FileLinks, ASearchIsBoundedByTheFolders) {
    const TemporaryFolder folder;
    for (int i = 0; i < 24; ++i)
        fs::create_directory(folder.File("d" + std::to_string(i)));
    for (int i = 0; i < 23; ++i) {
        for (const char* name : {"a", "b", "c"})
            fs::create_symlink("../d" + std::to_string(i + 1),
                               folder.File("d" + std::to_string(i) + "/" + name));
    }
    EXPECT_EQ(FoundBelow(PathIn(folder, u"d0\\"), u"none"), u"");
    folder.Write("d23/x", "");
    EXPECT_EQ(FoundBelow(PathIn(folder, u"d0\\"), u"x").GetLength(),
              PathIn(folder, u"d0\\x").GetLength() + 23 * 2);
    IQsUtils::CopyFolderAllFiles(PathIn(folder, u"d0"), PathIn(folder, u"copy"), true);
    EXPECT_TRUE(folder.Has("copy/a/a/a/b/c"));
}

TEST(FileLinks, ACopyHoldsWhatTheyLeadTo) {
    const TemporaryFolder folder;
    folder.Write("s/a", "x");
    folder.Write("outside/sub/b", "y");
    folder.Write("marked", "z");
    fs::permissions(folder.File("marked"), fs::perms::owner_read);
    fs::create_symlink("../outside", folder.File("s/link"));
    fs::create_symlink("../outside", folder.File("s/link2"));
    fs::create_symlink("../marked", folder.File("s/file"));
    fs::create_symlink("nowhere", folder.File("s/lost"));
    fs::create_symlink(".", folder.File("s/loop"));
    IQsUtils::CopyFolderAllFiles(PathIn(folder, u"s"), PathIn(folder, u"t"), true);
    EXPECT_EQ(folder.Read("t/a"), "x");
    EXPECT_EQ(folder.Read("t/link/sub/b"), "y");
    EXPECT_EQ(folder.Read("t/link2/sub/b"), "y");
    EXPECT_EQ(folder.Read("t/file"), "z");
    EXPECT_FALSE(fs::is_symlink(folder.File("t/file")));
    EXPECT_FALSE(folder.Has("t/lost"));
    EXPECT_TRUE(fs::is_empty(folder.File("t/loop")));
    EXPECT_FALSE(fs::is_symlink(folder.File("t/loop")));
    // What a link leads to isn't part of the source.
    EXPECT_EQ(fs::status(folder.File("marked")).permissions(), fs::perms::owner_read);
}

TEST(FileLinks, ACopyGoesToWhereALinkInTheTargetLeads) {
    const TemporaryFolder folder;
    folder.Write("s/a", "new");
    folder.Write("s/sub/b", "new");
    folder.Write("outside/a", "old");
    folder.Write("outside/sub/kept", "old");
    fs::create_directory(folder.File("t"));
    fs::create_symlink("../outside/a", folder.File("t/a"));
    fs::create_symlink("../outside/sub", folder.File("t/sub"));
    IQsUtils::CopyFolderAllFiles(PathIn(folder, u"s"), PathIn(folder, u"t"), false);
    EXPECT_TRUE(fs::is_symlink(folder.File("t/a")));
    EXPECT_EQ(folder.Read("outside/a"), "new");
    EXPECT_FALSE(fs::is_symlink(folder.File("t/sub")));
    EXPECT_EQ(folder.Read("outside/sub/kept"), "old");
    EXPECT_EQ(folder.Read("t/sub/b"), "new");
}

TEST(FileLinks, ThreeWaysToCopyAFolderIntoItselfEnd) {
    const TemporaryFolder folder;
    folder.Write("s/a/x", "x");
    fs::create_directory(folder.File("t"));
    fs::create_symlink("../../t/a", folder.File("s/a/l"));
    fs::create_symlink("../..", folder.File("s/a/up"));
    IQsUtils::CopyFolderAllFiles(PathIn(folder, u"s"), PathIn(folder, u"t"), false);
    EXPECT_EQ(folder.Read("t/a/x"), "x");
    EXPECT_TRUE(IQsUtils::DeleteDirectory(PathIn(folder, u"t")));
}

TEST(FileLinks, PipesAndTheirLikeAreLeftOut) {
    const TemporaryFolder folder;
    folder.Write("s/a", "x");
    ASSERT_EQ(::mkfifo(folder.File("s/pipe").c_str(), 0666), 0);
    fs::create_symlink("pipe", folder.File("s/link"));
    IQsUtils::CopyFolderAllFiles(PathIn(folder, u"s"), PathIn(folder, u"t"), true);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.File("t")), {}), 1);
    EXPECT_TRUE(IQsUtils::IsFileOpen(PathIn(folder, u"s\\pipe")));
    EXPECT_TRUE(IQsUtils::DeleteDirectory(PathIn(folder, u"s")));
}

TEST(FileLinks, DepthHasNoLimit) {
    const TemporaryFolder folder;
    RunOnSmallStack(std::size_t{256} << 10, [&] {
        MakeDeep(folder.File("deep"), 100'000);
        const CString found = FoundBelow(PathIn(folder, u"deep\\"), u"last");
        EXPECT_EQ(found.GetLength(), PathIn(folder, u"deep\\last").GetLength() + 2 * 100'000);
        EXPECT_TRUE(IQsUtils::DeleteDirectory(PathIn(folder, u"deep")));
    });
    EXPECT_EQ(folder.Entries(), 0);
}

TEST(FileLinks, ACopyHasNoLimitOfDepth) {
    const TemporaryFolder folder;
    MakeDeep(folder.File("s"), 20'000);
    IQsUtils::CopyFolderAllFiles(PathIn(folder, u"s"), PathIn(folder, u"t"), true);
    EXPECT_EQ(FoundBelow(PathIn(folder, u"t\\"), u"last").GetLength(),
              PathIn(folder, u"t\\last").GetLength() + 2 * 20'000);
    EXPECT_TRUE(IQsUtils::DeleteDirectory(PathIn(folder, u"s")));
    EXPECT_TRUE(IQsUtils::DeleteDirectory(PathIn(folder, u"t")));
}

// The way back from behind a link isn't "..", and the folders above are closed that far down.
TEST(FileLinks, TheWayBackFromLinksFarBelow) {
    const TemporaryFolder folder;
    MakeDeep(folder.File("a"), 60);
    MakeDeep(folder.File("b"), 60);
    fs::path end = folder.File("a");
    for (int i = 0; i < 60; ++i)
        end /= "d";
    fs::create_symlink(folder.File("b"), end / "link");
    EXPECT_EQ(FoundBelow(PathIn(folder, u"a\\"), u"none"), u"");
    IQsUtils::CopyFolderAllFiles(PathIn(folder, u"a"), PathIn(folder, u"c"), true);
    fs::path copy = folder.File("c");
    for (int i = 0; i < 60; ++i)
        copy /= "d";
    copy /= "link";
    for (int i = 0; i < 60; ++i)
        copy /= "d";
    EXPECT_TRUE(fs::exists(copy / "last"));
}

}  // namespace
