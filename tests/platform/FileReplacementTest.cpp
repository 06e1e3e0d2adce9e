#include <memory>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/platform/FileContent.h"
#include "QsUtils/platform/FileReplacement.h"

#include "tests/support/TemporaryFolder.h"

using QsPlatform::FileFailure;
using QsPlatform::FileReplacement;

namespace {

bool ReplaceText(const CString& path, std::string_view bytes) {
    FileReplacement file(path);
    return file.Write(bytes.data(), bytes.size()) && file.Commit();
}

TEST(FileReplacement, CreatesAFile) {
    const TemporaryFolder folder;
    EXPECT_TRUE(ReplaceText(folder.Text("a.xml"), "new"));
    EXPECT_EQ(folder.Read("a.xml"), "new");
    EXPECT_EQ(folder.Entries(), 1);
}

TEST(FileReplacement, ReplacesAFileByALongerAShorterAndAnEmptyOne) {
    const TemporaryFolder folder;
    folder.Write("a.xml", "old");
    for (const std::string& bytes : {std::string(1'000'000, 'x'), std::string("y"), std::string()}) {
        EXPECT_TRUE(ReplaceText(folder.Text("a.xml"), bytes));
        EXPECT_EQ(folder.Read("a.xml"), bytes);
    }
    EXPECT_EQ(folder.Entries(), 1);
}

TEST(FileReplacement, WritesPartsOneBehindTheOther) {
    const TemporaryFolder folder;
    std::string whole;
    FileReplacement file(folder.Text("a"));
    std::mt19937 random(1);
    for (int i = 0; i < 1000; ++i) {
        const std::string part(random() % 3000, static_cast<char>(random()));
        ASSERT_TRUE(file.Write(part.data(), part.size()));
        whole += part;
    }
    EXPECT_TRUE(file.Commit());
    EXPECT_EQ(file.Failure(), FileFailure::None);
    EXPECT_EQ(folder.Read("a"), whole);
}

TEST(FileReplacement, LeavesTheOldFileUntilItIsCommitted) {
    const TemporaryFolder folder;
    folder.Write("a", "old");
    FileReplacement file(folder.Text("a"));
    EXPECT_TRUE(file.Write("new", 3));
    EXPECT_EQ(folder.Read("a"), "old");
    EXPECT_TRUE(file.Commit());
    EXPECT_EQ(folder.Read("a"), "new");
}

TEST(FileReplacement, WithoutCommitNothingHappens) {
    const TemporaryFolder folder;
    folder.Write("a", "old");
    {
        FileReplacement replaced(folder.Text("a"));
        FileReplacement created(folder.Text("b"));
        EXPECT_TRUE(replaced.Write("new", 3));
        EXPECT_TRUE(created.Write("new", 3));
    }
    EXPECT_EQ(folder.Read("a"), "old");
    EXPECT_EQ(folder.Entries(), 1);
}

TEST(FileReplacement, CommitsOnce) {
    const TemporaryFolder folder;
    FileReplacement file(folder.Text("a"));
    EXPECT_TRUE(file.Commit());
    EXPECT_FALSE(file.Commit());
    EXPECT_FALSE(file.Write("x", 1));
    EXPECT_EQ(folder.Read("a"), "");
}

TEST(FileReplacement, AMissingFolderIsNotMade) {
    const TemporaryFolder folder;
    FileReplacement file(folder.Text("none/a"));
    EXPECT_EQ(file.Failure(), FileFailure::MissingFolder);
    EXPECT_FALSE(file.Write("x", 1));
    EXPECT_FALSE(file.Commit());
    EXPECT_EQ(folder.Entries(), 0);
}

TEST(FileReplacement, AFileIsNoFolder) {
    const TemporaryFolder folder;
    folder.Write("a", "old");
    EXPECT_EQ(FileReplacement(folder.Text("a/b")).Failure(), FileFailure::MissingFolder);
    EXPECT_EQ(folder.Read("a"), "old");
}

TEST(FileReplacement, AFolderIsNotReplaced) {
    const TemporaryFolder folder;
    folder.Write("sub/a", "old");
    EXPECT_EQ(FileReplacement(folder.Text("sub")).Failure(), FileFailure::NotAFile);
    EXPECT_NE(FileReplacement(folder.Text("sub/")).Failure(), FileFailure::None);
    EXPECT_EQ(folder.Entries(), 1);
    EXPECT_EQ(folder.Read("sub/a"), "old");
}

TEST(FileReplacement, NamesThatAreNone) {
    const TemporaryFolder folder;
    EXPECT_NE(FileReplacement(CString()).Failure(), FileFailure::None);
    EXPECT_NE(FileReplacement(folder.Text("a") + CString(u"\0b", 2)).Failure(), FileFailure::None);
    EXPECT_EQ(folder.Entries(), 0);
}

TEST(FileReplacement, AReadOnlyFileIsRefused) {
    namespace fs = std::filesystem;
    const TemporaryFolder folder;
    folder.Write("a", "old");
    const auto write = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    fs::permissions(folder.File("a"), write, fs::perm_options::remove);
    FileReplacement file(folder.Text("a"));
    EXPECT_EQ(file.Failure(), FileFailure::ReadOnlyTarget);
    EXPECT_FALSE(file.Commit());
    EXPECT_EQ(folder.Read("a"), "old");
    EXPECT_EQ(folder.Entries(), 1);
    fs::permissions(folder.File("a"), write, fs::perm_options::add);
}

TEST(FileReplacement, TakesChineseAndVeryLongNames) {
    const TemporaryFolder folder;
    for (const std::string& name : {std::string("项目 100%#1.xml"), std::string(255, 'n')}) {
        EXPECT_TRUE(ReplaceText(folder.Text(name), "new")) << name;
        EXPECT_EQ(folder.Read(name), "new");
    }
    EXPECT_EQ(folder.Entries(), 2);
}

TEST(FileReplacement, TheLastToCommitWins) {
    const TemporaryFolder folder;
    FileReplacement first(folder.Text("a"));
    FileReplacement second(folder.Text("a"));
    EXPECT_TRUE(second.Write("second", 6));
    EXPECT_TRUE(first.Write("first", 5));
    EXPECT_TRUE(second.Commit());
    EXPECT_EQ(folder.Read("a"), "second");
    EXPECT_TRUE(first.Commit());
    EXPECT_EQ(folder.Read("a"), "first");
    EXPECT_EQ(folder.Entries(), 1);
}

TEST(FileReplacement, ReadersSeeOneWholeFileAtEveryMoment) {
    const TemporaryFolder folder;
    const CString path = folder.Text("a");
    folder.Write("a", std::string(50'000, 'a'));
    std::atomic<bool> done{false};
    std::atomic<int> torn{0};
    std::thread reader([&] {
        while (!done) {
            const auto bytes = QsPlatform::ReadWholeFile(path);
            // On a busy system the moment of the exchange may refuse a reader, but never show it a part.
            if (bytes && (bytes->size() != 50'000 || bytes->find_first_not_of(bytes->front()) != bytes->npos))
                ++torn;
        }
    });
    for (int i = 0; i < 300; ++i)
        while (!ReplaceText(path, std::string(50'000, static_cast<char>('a' + i % 26))))
            std::this_thread::yield();
    done = true;
    reader.join();
    EXPECT_EQ(torn, 0);
    EXPECT_EQ(folder.Entries(), 1);
}

}  // namespace
