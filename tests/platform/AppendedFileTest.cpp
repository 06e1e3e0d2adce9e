// A file that grows at its end.
#include <filesystem>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "QsUtils/platform/AppendedFile.h"

#include "tests/support/TemporaryFolder.h"

using QsPlatform::AppendedFile;
using State = AppendedFile::State;
using Renewal = AppendedFile::Renewal;

namespace {

void MarkReadOnly(const std::filesystem::path& path, bool isReadOnly = true) {
    std::filesystem::permissions(
        path, std::filesystem::perms::owner_write | std::filesystem::perms::group_write,
        isReadOnly ? std::filesystem::perm_options::remove : std::filesystem::perm_options::add);
}

void Append(const std::filesystem::path& path, std::string_view text) {
    AppendedFile file(path);
    ASSERT_EQ(file.Opened(), State::Open);
    EXPECT_TRUE(file.Write(text.data(), text.size()));
}

TEST(AppendedFile, IsCreatedAndGrows) {
    const TemporaryFolder folder;
    const std::filesystem::path path = folder.File("a.log");
    Append(path, "one\n");
    Append(path, "two\r\n");
    EXPECT_EQ(folder.Read("a.log"), "one\ntwo\r\n");
    EXPECT_EQ(AppendedFile(path).Size(), 9u);
    EXPECT_EQ(folder.Entries(), 1);
}

TEST(AppendedFile, SomebodyElseMayAppendMeanwhile) {
    const TemporaryFolder folder;
    const std::filesystem::path path = folder.File("a.log");
    AppendedFile first(path);
    AppendedFile second(path);
    EXPECT_TRUE(first.Write("1", 1));
    EXPECT_TRUE(second.Write("2", 1));
    EXPECT_TRUE(first.Write("3", 1));
    EXPECT_EQ(folder.Read("a.log"), "123");
}

TEST(AppendedFile, AMissingFolderStaysMissing) {
    const TemporaryFolder folder;
    const std::filesystem::path path = folder.File("Log/a.log");
    EXPECT_EQ(AppendedFile(path).Opened(), State::NotCreated);
    EXPECT_EQ(folder.Entries(), 0);
    folder.Write("file", "");
    const std::filesystem::path below = folder.File("file/a.log");
    EXPECT_EQ(AppendedFile(below).Opened(), State::NotCreated);
    const std::filesystem::path empty;
    EXPECT_EQ(AppendedFile(empty).Opened(), State::NotCreated);
}

TEST(AppendedFile, AReadOnlyFileIsRefused) {
    const TemporaryFolder folder;
    const std::filesystem::path path = folder.Write("a.log", "old");
    MarkReadOnly(path);
    AppendedFile file(path);
    EXPECT_EQ(file.Opened(), State::NotOpened);
    EXPECT_EQ(file.Size(), 3u);
    EXPECT_EQ(file.Renew(), Renewal::NotRemoved);
    EXPECT_EQ(folder.Read("a.log"), "old");
    MarkReadOnly(path, false);
}

TEST(AppendedFile, AFolderIsNone) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.File("a.log"));
    const std::filesystem::path path = folder.File("a.log");
    AppendedFile file(path);
    EXPECT_EQ(file.Opened(), State::NotOpened);
    EXPECT_EQ(file.Renew(), Renewal::NotRemoved);
}

TEST(AppendedFile, ARenewedFileIsEmpty) {
    const TemporaryFolder folder;
    const std::filesystem::path path = folder.Write("a.log", "old and long");
    AppendedFile file(path);
    EXPECT_EQ(file.Size(), 12u);
    EXPECT_EQ(file.Renew(), Renewal::Done);
    EXPECT_EQ(file.Size(), 0u);
    EXPECT_TRUE(file.Write("new", 3));
    EXPECT_EQ(folder.Read("a.log"), "new");
}

TEST(AppendedFile, AFileThatIsGoneCantBeRenewed) {
    const TemporaryFolder folder;
    const std::filesystem::path path = folder.File("Log/a.log");
    AppendedFile file(path);
    EXPECT_EQ(file.Renew(), Renewal::NotRemoved);
}

TEST(AppendedFile, WritingWithoutAFileFails) {
    const TemporaryFolder folder;
    const std::filesystem::path path = folder.File("Log/a.log");
    AppendedFile file(path);
    EXPECT_FALSE(file.Write("x", 1));
    EXPECT_TRUE(file.Write("", 0));
}

}  // namespace
