#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "QsUtils/frame/IQsUtils.h"

#include "tests/support/Rounds.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/text/PlainTrees.h"
#include "tests/text/RandomTree.h"

namespace fs = std::filesystem;

namespace {

void SetReadOnly(const fs::path& path) {
    fs::permissions(path, fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                    fs::perm_options::remove);
}

bool IsReadOnly(const fs::path& path) {
    return (fs::status(path).permissions() & fs::perms::owner_write) == fs::perms::none;
}

CString At(const TemporaryFolder& folder, const CString& path) {
    return FromNativePath(folder.Path()) + u'\\' + path;
}

CString Found(const CString& folder, const CString& name, const CString& tail = {}) {
    CString found = u"overwritten";
    IQsUtils::FindPath(found, folder, name, tail);
    return found;
}

// --- Folders

TEST(CreateFolderAllPath, MakesWhatIsMissing) {
    const TemporaryFolder folder;
    folder.Write("a/file", "");
    EXPECT_EQ(IQsUtils::CreateFolderAllPath(At(folder, u"a\\b\\c\\")), 1);
    EXPECT_TRUE(fs::is_directory(folder.File("a/b/c")));
    EXPECT_EQ(IQsUtils::CreateFolderAllPath(At(folder, u"a\\b\\c")), 1);
    EXPECT_EQ(IQsUtils::CreateFolderAllPath(At(folder, u"x\\项目")), 1);
    EXPECT_TRUE(fs::is_directory(folder.File("x/项目")));
}

TEST(CreateFolderAllPath, AFileOnTheWayEndsIt) {
    const TemporaryFolder folder;
    folder.Write("a/file", "x");
    EXPECT_EQ(IQsUtils::CreateFolderAllPath(At(folder, u"a\\file\\b")), 0);
    EXPECT_EQ(IQsUtils::CreateFolderAllPath(At(folder, u"a\\file")), 0);
    EXPECT_EQ(IQsUtils::CreateFolderAllPath(At(folder, u"a\\file\\")), 0);
    EXPECT_EQ(IQsUtils::CreateFolderAllPath(u""), 0);
    EXPECT_EQ(folder.Read("a/file"), "x");
}

TEST(CreateFolderAllPath, ANameAloneIsOneFolderInTheCurrentOne) {
    const TemporaryFolder folder;
    const fs::path before = fs::current_path();
    fs::current_path(folder.Path());
    const int one = IQsUtils::CreateFolderAllPath(u"bare");
    const int two = IQsUtils::CreateFolderAllPath(u"rel\\b\\c");  // the first part counts as a root
    fs::current_path(before);
    EXPECT_EQ(one, 1);
    EXPECT_EQ(two, 0);
    EXPECT_TRUE(folder.Has("bare"));
    EXPECT_FALSE(folder.Has("rel"));
}

TEST(DeleteDirectory, RemovesAllOfIt) {
    const TemporaryFolder folder;
    folder.Write("a/b/c/file", "x");
    folder.Write("a/.hidden", "x");
    fs::create_directories(folder.File("a/空"));
    EXPECT_TRUE(IQsUtils::DeleteDirectory(At(folder, u"a")));
    EXPECT_EQ(folder.Entries(), 0);
    folder.Write("a/b", "x");
    EXPECT_TRUE(IQsUtils::DeleteDirectory(At(folder, u"a\\")));
    EXPECT_EQ(folder.Entries(), 0);
}

TEST(DeleteDirectory, AReadOnlyFileStaysWithItsFolders) {
    const TemporaryFolder folder;
    folder.Write("a/b/kept", "x");
    folder.Write("a/b/gone", "x");
    folder.Write("a/c/gone", "x");
    SetReadOnly(folder.File("a/b/kept"));
    EXPECT_FALSE(IQsUtils::DeleteDirectory(At(folder, u"a")));
    EXPECT_EQ(folder.Read("a/b/kept"), "x");
    EXPECT_FALSE(folder.Has("a/b/gone"));
    EXPECT_FALSE(folder.Has("a/c"));
    MakeTreeWritable(folder.Path());
    EXPECT_TRUE(IQsUtils::DeleteDirectory(At(folder, u"a")));
}

TEST(DeleteDirectory, OfWhatIsNoFolderIsFalse) {
    const TemporaryFolder folder;
    folder.Write("file", "x");
    EXPECT_FALSE(IQsUtils::DeleteDirectory(u""));
    EXPECT_FALSE(IQsUtils::DeleteDirectory(At(folder, u"none")));
    EXPECT_FALSE(IQsUtils::DeleteDirectory(At(folder, u"file")));
    EXPECT_EQ(folder.Read("file"), "x");
}

TEST(DeleteDirectory, DoesAsThePlainOneOnRandomTrees) {
    const TemporaryFolder folder;
    for (unsigned round = 0; round < static_cast<unsigned>(FileRounds(100)); ++round) {
        RandomTree(round).Fill(folder, "ours");
        RandomTree(round).Fill(folder, "plain");
        ASSERT_EQ(IQsUtils::DeleteDirectory(At(folder, u"ours")),
                  PlainTrees::DeleteDirectory(At(folder, u"plain")));
        ASSERT_EQ(RandomTree::Picture(folder.File("ours")), RandomTree::Picture(folder.File("plain")))
            << round;
        MakeTreeWritable(folder.Path());
        fs::remove_all(folder.File("ours"));
        fs::remove_all(folder.File("plain"));
    }
}

// --- Copies

TEST(CopyFolderAllFiles, KeepsOtherFilesOfTheTargetButNotOfItsSubfolders) {
    const TemporaryFolder folder;
    folder.Write("s/both", "new");
    folder.Write("s/sub/new", "new");
    folder.Write("t/both", "old");
    folder.Write("t/other", "old");
    folder.Write("t/sub/old", "old");
    folder.Write("t/else/old", "old");
    IQsUtils::CopyFolderAllFiles(At(folder, u"s"), At(folder, u"t"), false);
    EXPECT_EQ(folder.Read("t/both"), "new");
    EXPECT_EQ(folder.Read("t/other"), "old");
    EXPECT_EQ(folder.Read("t/else/old"), "old");
    EXPECT_EQ(folder.Read("t/sub/new"), "new");
    EXPECT_FALSE(folder.Has("t/sub/old"));
}

TEST(CopyFolderAllFiles, ClearsTheTargetFirst) {
    const TemporaryFolder folder;
    folder.Write("s/a", "new");
    folder.Write("t/other", "old");
    IQsUtils::CopyFolderAllFiles(At(folder, u"s"), At(folder, u"t"), true);
    EXPECT_EQ(folder.Read("t/a"), "new");
    EXPECT_FALSE(folder.Has("t/other"));
    IQsUtils::CopyFolderAllFiles(At(folder, u"s"), At(folder, u"fresh"), true);
    EXPECT_EQ(folder.Read("fresh/a"), "new");
    IQsUtils::CopyFolderAllFiles(At(folder, u"none"), At(folder, u"t"), true);
    EXPECT_TRUE(fs::is_empty(folder.File("t")));
}

TEST(CopyFolderAllFiles, WithoutClearingNoTargetIsMade) {
    const TemporaryFolder folder;
    folder.Write("s/a", "new");
    folder.Write("s/sub/kept", "x");
    SetReadOnly(folder.File("s/sub/kept"));
    IQsUtils::CopyFolderAllFiles(At(folder, u"s"), At(folder, u"none"), false);
    EXPECT_FALSE(folder.Has("none"));
    EXPECT_FALSE(IsReadOnly(folder.File("s/sub/kept")));
}

TEST(CopyFolderAllFiles, ReadOnlyGoesFromTheSourceAndHoldsInTheTarget) {
    const TemporaryFolder folder;
    folder.Write("s/a", "new");
    folder.Write("s/b", "new");
    folder.Write("s/sub/c", "new");
    folder.Write("t/a", "old");
    folder.Write("t/sub/c", "old");
    for (const char* name : {"s/a", "s/sub/c", "s/sub", "t/a", "t/sub/c"})
        SetReadOnly(folder.File(name));
    IQsUtils::CopyFolderAllFiles(At(folder, u"s"), At(folder, u"t"), false);
    EXPECT_FALSE(IsReadOnly(folder.File("s/a")));
    EXPECT_FALSE(IsReadOnly(folder.File("s/sub")));
    EXPECT_FALSE(IsReadOnly(folder.File("s/sub/c")));
    EXPECT_EQ(folder.Read("t/a"), "old");
    EXPECT_EQ(folder.Read("t/b"), "new");
    EXPECT_EQ(folder.Read("t/sub/c"), "old");
    EXPECT_FALSE(IsReadOnly(folder.File("t/b")));
    MakeTreeWritable(folder.Path());
}

TEST(CopyFolderAllFiles, IntoItselfEnds) {
    const TemporaryFolder folder;
    folder.Write("s/a", "x");
    folder.Write("s/sub/b", "x");
    IQsUtils::CopyFolderAllFiles(At(folder, u"s"), At(folder, u"s\\t"), true);
    EXPECT_EQ(folder.Read("s/t/a"), "x");
    EXPECT_EQ(folder.Read("s/t/sub/b"), "x");
    EXPECT_TRUE(fs::is_empty(folder.File("s/t/t")));
    IQsUtils::CopyFolderAllFiles(At(folder, u"s"), At(folder, u"s\\sub\\t"), true);
    EXPECT_EQ(folder.Read("s/sub/t/sub/b"), "x");
    EXPECT_TRUE(fs::is_empty(folder.File("s/sub/t/sub/t")));
}

TEST(CopyFolderAllFiles, LeavesNothingOfItsOwnBehind) {
    const TemporaryFolder folder;
    folder.Write("s/a", "new");
    fs::create_directories(folder.File("t/a"));
    IQsUtils::CopyFolderAllFiles(At(folder, u"s"), At(folder, u"t"), false);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.File("t")), {}), 1);
    EXPECT_TRUE(fs::is_directory(folder.File("t/a")));
}

TEST(CopyFolderAllFiles, DoesAsThePlainOneOnRandomTrees) {
    const TemporaryFolder folder;
    for (unsigned round = 0; round < static_cast<unsigned>(FileRounds(100)); ++round) {
        for (const char* root : {"ours", "plain"}) {
            RandomTree tree(round);
            tree.Fill(folder, std::string(root) + "/s");
            if (tree.Random()() % 4 != 0)
                tree.Fill(folder, std::string(root) + "/t");
        }
        const bool clear = round % 2 == 0;
        IQsUtils::CopyFolderAllFiles(At(folder, u"ours\\s"), At(folder, u"ours\\t"), clear);
        PlainTrees::CopyFolderAllFiles(At(folder, u"plain\\s"), At(folder, u"plain\\t"), clear);
        ASSERT_EQ(RandomTree::Picture(folder.File("ours")), RandomTree::Picture(folder.File("plain")))
            << round;
        MakeTreeWritable(folder.Path());
        fs::remove_all(folder.File("ours"));
        fs::remove_all(folder.File("plain"));
    }
}

// So many files that a second thread takes part.
TEST(CopyFolderAllFiles, OfManyFilesDoesAsThePlainOne) {
    const TemporaryFolder folder;
    for (unsigned round = 0; round < 2; ++round) {
        for (const char* root : {"ours", "plain"}) {
            RandomTree tree(round);
            for (int i = 0; i < 100; ++i) {
                tree.Fill(folder, std::string(root) + "/s/" + std::to_string(i));
                folder.Write(std::string(root) + "/s/file " + std::to_string(i), std::to_string(i));
                if (i % 3 == 0)
                    tree.Fill(folder, std::string(root) + "/t/" + std::to_string(i));
            }
        }
        IQsUtils::CopyFolderAllFiles(At(folder, u"ours\\s"), At(folder, u"ours\\t"), round == 1);
        PlainTrees::CopyFolderAllFiles(At(folder, u"plain\\s"), At(folder, u"plain\\t"), round == 1);
        ASSERT_EQ(RandomTree::Picture(folder.File("ours")), RandomTree::Picture(folder.File("plain")))
            << round;
        MakeTreeWritable(folder.Path());
        fs::remove_all(folder.File("ours"));
        fs::remove_all(folder.File("plain"));
    }
}

// --- Files

TEST(IsFileExist, FindsFilesFoldersAndPatterns) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "");
    folder.Write("sub/in", "");
    for (const char16_t* path : {u"a.txt", u"*.txt", u"sub", u"sub\\i?", u"*"})
        EXPECT_TRUE(IQsUtils::IsFileExist(At(folder, path)));
    for (const char16_t* path : {u"b.txt", u"*.doc", u"sub\\", u"none\\a", u"a.txt\\"})
        EXPECT_FALSE(IQsUtils::IsFileExist(At(folder, path)));
    EXPECT_FALSE(IQsUtils::IsFileExist(u""));
}

TEST(IsFileOpen, OnlyWhileSomebodyHoldsIt) {
    const TemporaryFolder folder;
    folder.Write("a", "x");
    EXPECT_FALSE(IQsUtils::IsFileOpen(At(folder, u"a")));
    {
        const std::ifstream reader(folder.File("a"));
        EXPECT_TRUE(IQsUtils::IsFileOpen(At(folder, u"a")));
    }
    EXPECT_FALSE(IQsUtils::IsFileOpen(At(folder, u"a")));
    EXPECT_EQ(folder.Read("a"), "x");
}

TEST(IsFileOpen, AnyRefusalCountsAsOpen) {
    const TemporaryFolder folder;
    folder.Write("a", "x");
    fs::create_directory(folder.File("sub"));
    SetReadOnly(folder.File("a"));
    EXPECT_TRUE(IQsUtils::IsFileOpen(At(folder, u"a")));
    EXPECT_TRUE(IQsUtils::IsFileOpen(At(folder, u"sub")));
    EXPECT_TRUE(IQsUtils::IsFileOpen(At(folder, u"*")));
    EXPECT_FALSE(IQsUtils::IsFileOpen(At(folder, u"none")));
    EXPECT_FALSE(IQsUtils::IsFileOpen(u""));
    MakeTreeWritable(folder.Path());
}

// --- Search

TEST(FindPath, DepthFirstInTheOrderOfNames) {
    const TemporaryFolder folder;
    folder.Write("b/x", "");
    folder.Write("C/x", "");
    folder.Write("z", "");
    EXPECT_EQ(Found(At(folder, u""), u"x"), At(folder, u"b\\x"));
    EXPECT_EQ(Found(At(folder, u""), u"z"), At(folder, u"z"));
    EXPECT_EQ(Found(At(folder, u""), u"C"), At(folder, u"C"));
    EXPECT_EQ(Found(At(folder, u""), u"X"), u"");
    EXPECT_EQ(Found(At(folder, u""), u"*"), u"");
    EXPECT_EQ(Found(At(folder, u""), u"."), u"");
    EXPECT_EQ(Found(At(folder, u""), u""), u"");
    EXPECT_EQ(Found(At(folder, u"none\\"), u"x"), u"");
    EXPECT_EQ(Found(At(folder, u"z\\"), u"x"), u"");
}

TEST(FindPath, AFindBeforeAFolderIsLost) {
    const TemporaryFolder folder;
    folder.Write("m", "");
    EXPECT_EQ(Found(At(folder, u""), u"m"), At(folder, u"m"));
    folder.Write("n/other", "");
    EXPECT_EQ(Found(At(folder, u""), u"m"), u"");
    folder.Write("o/m", "");
    EXPECT_EQ(Found(At(folder, u""), u"m"), At(folder, u"o\\m"));
    folder.Write("mm", "");
    EXPECT_EQ(Found(At(folder, u""), u"m"), At(folder, u"m"));
    folder.Write("a/m", "");
    EXPECT_EQ(Found(At(folder, u""), u"m"), At(folder, u"a\\m"));
}

TEST(FindPath, ATailNamesAFolderOnTheWay) {
    const TemporaryFolder folder;
    folder.Write("a/x.ec", "");
    folder.Write("b/定额2/x.ec", "");
    folder.Write("c/定额/y/x.ec", "");
    EXPECT_EQ(Found(At(folder, u""), u"x.ec"), At(folder, u"a\\x.ec"));
    EXPECT_EQ(Found(At(folder, u""), u"x.ec", u"定额"), At(folder, u"c\\定额\\y\\x.ec"));
    EXPECT_EQ(Found(At(folder, u""), u"x.ec", u"c\\定额"), At(folder, u"c\\定额\\y\\x.ec"));
    EXPECT_EQ(Found(At(folder, u""), u"x.ec", u"定额\\y"), At(folder, u"c\\定额\\y\\x.ec"));
    EXPECT_EQ(Found(At(folder, u""), u"x.ec", u"额"), u"");
    EXPECT_EQ(Found(At(folder, u"c\\定额\\"), u"x.ec", u"定额"), At(folder, u"c\\定额\\y\\x.ec"));
    EXPECT_EQ(Found(At(folder, u""), u"定额", u"定额"), u"");
}

TEST(FindPath, OfARelativeFolderGivesAFullPath) {
    const TemporaryFolder folder;
    folder.Write("sub/x", "");
    const fs::path before = fs::current_path();
    fs::current_path(folder.Path());
    const CString current = FromNativePath(fs::current_path());
    const CString found = Found(u"sub\\", u"x");
    const CString tail = Found(u"sub\\", u"x", u"sub");
    const CString bare = Found(u"", u"x");
    fs::current_path(before);
    EXPECT_EQ(found, current + u"\\sub\\x");
    EXPECT_EQ(tail, current + u"\\sub\\x");
    EXPECT_EQ(bare, current + u"\\sub\\x");
}

TEST(FindPath, WithoutABackslashItIsTheHeadOfNames) {
    const TemporaryFolder folder;
    folder.Write("ab", "");
    folder.Write("b/x", "");
    EXPECT_EQ(Found(At(folder, u"a"), u"ab"), At(folder, u"ab"));
    EXPECT_EQ(Found(At(folder, u"b"), u"x"), u"");
    EXPECT_EQ(Found(At(folder, u"a"), u"b"), u"");
}

TEST(FindPath, ArgumentsMayBeOneText) {
    const TemporaryFolder folder;
    folder.Write("x", "");
    CString path = At(folder, u"");
    IQsUtils::FindPath(path, path, u"x", u"");
    EXPECT_EQ(path, At(folder, u"x"));
    path = u"x";
    IQsUtils::FindPath(path, At(folder, u""), path, u"");
    EXPECT_EQ(path, At(folder, u"x"));
}

TEST(FindPath, FindsAsThePlainOneOnRandomTrees) {
    int finds = 0;
    for (unsigned round = 0; round < static_cast<unsigned>(FileRounds(100)); ++round) {
        const TemporaryFolder folder;
        RandomTree tree(1000 + round);
        tree.Fill(folder, "a", 5);
        for (int question = 0; question < 40; ++question) {
            const std::string name = tree.Name();
            const std::string tail = tree.Random()() % 2 == 0 ? tree.Name() : "";
            const CString fileName =
                FromNativePath(std::filesystem::path(std::u8string(name.begin(), name.end())));
            const CString tailText =
                FromNativePath(std::filesystem::path(std::u8string(tail.begin(), tail.end())));
            CString plain;
            PlainTrees::FindPath(plain, At(folder, u"a\\"), fileName, tailText);
            ASSERT_EQ(Found(At(folder, u"a\\"), fileName, tailText), plain)
                << round << ": " << name << ", " << tail;
            finds += !plain.IsEmpty();
        }
        MakeTreeWritable(folder.Path());
    }
    EXPECT_GT(finds, 0);
}

// So many folders that a second thread takes part.
TEST(FindPath, InManyFoldersFindsAsThePlainOne) {
    for (unsigned round = 0; round < 4; ++round) {
        const TemporaryFolder folder;
        RandomTree tree(round);
        for (int i = 0; i < 120; ++i) {
            tree.Fill(folder, "a/" + std::to_string(i), 3);
            folder.Write("a/" + std::to_string(i) + "/only " + std::to_string(i), "");
        }
        folder.Write("a/found", "");
        folder.Write(round % 2 == 0 ? "a/found behind" : "a/found behind/folder", "");
        for (int question = 0; question < FileRounds(100); ++question) {
            const std::string name = question % 5 == 0   ? "found"
                                     : question % 2 == 0 ? tree.Name()
                                                         : "only " + std::to_string(tree.Random()() % 121);
            const CString fileName = FromNativePath(fs::path(std::u8string(name.begin(), name.end())));
            const CString tail = question % 3 == 0 ? CString(u"定额") : CString();
            CString plain;
            PlainTrees::FindPath(plain, At(folder, u"a\\"), fileName, tail);
            ASSERT_EQ(Found(At(folder, u"a\\"), fileName, tail), plain) << round << ": " << name;
        }
        MakeTreeWritable(folder.Path());
    }
}

}  // namespace
