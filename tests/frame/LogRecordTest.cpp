// Lines that hosts append to files of their own.
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "QsUtils/frame/IQsUtils1.h"

#include "tests/support/TemporaryFolder.h"
#include "tests/support/TextForm.h"

namespace {

TEST(RecordLogInfo, ARecordHasTheTimeAndTheText) {
    const TemporaryFolder folder;
    IQsUtils1::RecordLogInfo(u"砖墙 100%s\t€é½", folder.Text("记录.txt"));
    EXPECT_TRUE(
        HasForm(folder.Read("记录.txt"), "####-##-## ##:##:##\t\xD7\xA9\xC7\xBD 100%s\t\x80\xA8\xA6?\r\r\n"));
}

TEST(RecordLogInfo, RecordsAreAppended) {
    const TemporaryFolder folder;
    folder.Write("a.txt", "old");
    IQsUtils1::RecordLogInfo(u"one", folder.Text("a.txt"));
    IQsUtils1::RecordLogInfo(u"two", folder.Text("a.txt"));
    const std::string text = folder.Read("a.txt");
    EXPECT_EQ(text.substr(0, 3), "old");
    EXPECT_NE(text.find("\tone\r\r\n"), std::string::npos);
    EXPECT_TRUE(text.ends_with("\ttwo\r\r\n"));
    EXPECT_EQ(text.size(), 3 + 2 * (19 + 1 + 3 + 3));
}

TEST(RecordLogInfo, LineFeedsInTheTextGetReturns) {
    const TemporaryFolder folder;
    IQsUtils1::RecordLogInfo(u"a\nb\r\nc", folder.Text("a.txt"));
    EXPECT_TRUE(folder.Read("a.txt").ends_with("\ta\r\nb\r\r\nc\r\r\n"));
}

TEST(RecordLogInfo, ATextEndsAtItsFirstNul) {
    const TemporaryFolder folder;
    IQsUtils1::RecordLogInfo(CString(u"ab\0cd", 5), folder.Text("a.txt") + CString(u"\0.txt", 5));
    EXPECT_TRUE(folder.Read("a.txt").ends_with("\tab\r\r\n"));
}

TEST(RecordLogInfo, WithoutATextOrAPathThereIsNoFile) {
    const TemporaryFolder folder;
    IQsUtils1::RecordLogInfo(u"", folder.Text("a.txt"));
    IQsUtils1::RecordLogInfo(u"text", u"");
    EXPECT_EQ(folder.Entries(), 0);
}

TEST(RecordLogInfo, FailuresAreSilent) {
    const TemporaryFolder folder;
    IQsUtils1::RecordLogInfo(u"text", folder.Text("none/a.txt"));
    std::filesystem::create_directory(folder.File("b.txt"));
    IQsUtils1::RecordLogInfo(u"text", folder.Text("b.txt"));
    const std::filesystem::path path = folder.Write("c.txt", "old");
    std::filesystem::permissions(path, std::filesystem::perms::owner_write,
                                 std::filesystem::perm_options::remove);
    IQsUtils1::RecordLogInfo(u"text", folder.Text("c.txt"));
    EXPECT_EQ(folder.Read("c.txt"), "old");
    EXPECT_EQ(folder.Entries(), 2);
    std::filesystem::permissions(path, std::filesystem::perms::owner_write,
                                 std::filesystem::perm_options::add);
}

TEST(RecordLogInfo, ThereIsNoLimit) {
    const TemporaryFolder folder;
    std::filesystem::resize_file(folder.Write("a.txt", ""), 10'485'761);
    IQsUtils1::RecordLogInfo(u"x", folder.Text("a.txt"));
    EXPECT_EQ(std::filesystem::file_size(folder.File("a.txt")), 10'485'761u + 19 + 1 + 1 + 3);
}

}  // namespace
