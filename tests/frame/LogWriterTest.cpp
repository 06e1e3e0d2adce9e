// The writer of the log.
#include <cstdio>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/frame/CLogWriter.h"
#include "QsUtils/frame/TimeText.h"
#include "QsUtils/platform/Threads.h"

#include "tests/support/TemporaryFolder.h"
#include "tests/support/TextForm.h"

using QsFrame::CLogWriter;

namespace {

constexpr const char* LogName = "Log/Tallyman.log";

class LogWriter : public testing::Test {
protected:
    LogWriter() { std::filesystem::create_directory(m_folder.File("Log")); }

    CString Path() const { return m_folder.Text(LogName); }
    int Write(std::string_view message) const { return CLogWriter(Path()).Write(message); }
    std::string Read() const { return m_folder.Read(LogName); }
    /// A file of so many bytes, without taking their room on the disk.
    void Make(std::uint64_t size) const {
        std::filesystem::resize_file(m_folder.Write(LogName, "head\r\n"), size);
    }
    std::uint64_t Size() const { return std::filesystem::file_size(m_folder.File(LogName)); }

    TemporaryFolder m_folder;
};

std::string ThreadText() {
    char text[16];
    std::snprintf(text, sizeof text, "0x%x", static_cast<unsigned>(QsPlatform::CurrentThreadId()));
    return text;
}

TEST_F(LogWriter, ALineHasTheMomentTheThreadAndTheMessage) {
    EXPECT_EQ(Write("[INFO]: hello"), CLogWriter::Done);
    EXPECT_TRUE(HasForm(Read(), "####-##-## ##:##:##:### TID:" + ThreadText() + " [INFO]: hello\r\n"))
        << Read();
}

TEST_F(LogWriter, MomentsAreWrittenWithAllTheirZeros) {
    std::string text;
    QsFrame::AppendMoment(text, {26, 1, 2, 3, 4, 5, 6});
    EXPECT_EQ(text, "0026-01-02 03:04:05");
    text.clear();
    QsFrame::AppendMoment(text, {12026, 12, 31, 23, 59, 59, 999});
    EXPECT_EQ(text, "12026-12-31 23:59:59");
    text.clear();
    QsFrame::AppendDecimals(text, 0, 3);
    QsFrame::AppendDecimals(text, 7, 3);
    QsFrame::AppendDecimals(text, 1234, 3);
    EXPECT_EQ(text, "0000071234");
}

TEST_F(LogWriter, LinesAreAppended) {
    const CLogWriter writer(Path());
    CLogWriter other(Path());
    EXPECT_EQ(Write("one"), 1);
    EXPECT_EQ(other.Write("two"), 1);
    EXPECT_EQ(Write("three"), 1);
    std::string text = Read();
    std::vector<std::string> ends;
    for (std::size_t at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n")) {
        ends.push_back(text.substr(text.rfind(' ', at) + 1, at - text.rfind(' ', at) - 1));
        text.erase(0, at + 2);
    }
    EXPECT_EQ(ends, (std::vector<std::string>{"one", "two", "three"}));
    EXPECT_EQ(text, "");
}

TEST_F(LogWriter, EveryLineFeedGetsAReturn) {
    Write("a\nb\r\nc\n");
    const std::string text = Read();
    EXPECT_EQ(text.substr(text.rfind(" a") + 1), "a\r\nb\r\r\nc\r\n\r\n");
}

TEST_F(LogWriter, PercentSignsAndBytesStayAsTheyAre) {
    Write("100%s %d %% \xD7\xA9\xFF\x80");
    EXPECT_NE(Read().find(" 100%s %d %% \xD7\xA9\xFF\x80\r\n"), std::string::npos);
}

TEST_F(LogWriter, AnEmptyMessageIsNotWritten) {
    EXPECT_EQ(Write(""), CLogWriter::EmptyMessage);
    EXPECT_FALSE(m_folder.Has(LogName));
}

TEST_F(LogWriter, TenMegabytesAreAppendedTo) {
    Make(10'485'760);
    EXPECT_EQ(Write("last"), 1);
    EXPECT_GT(Size(), 10'485'760u);
}

TEST_F(LogWriter, OneByteMoreBeginsAnew) {
    Make(10'485'761);
    EXPECT_EQ(Write("first"), 1);
    EXPECT_TRUE(Read().ends_with(" first\r\n"));
    EXPECT_LT(Size(), 60u);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(m_folder.File("Log")), {}), 1)
        << "no copy of the old one";
}

TEST_F(LogWriter, OnlyTheLowWordOfTheSizeCounts) {
    Make((std::uint64_t{1} << 32) + 100);
    EXPECT_EQ(Write("more"), 1);
    EXPECT_GT(Size(), std::uint64_t{1} << 32);
    Make((std::uint64_t{1} << 32) + 10'485'761);
    EXPECT_EQ(Write("first"), 1);
    EXPECT_LT(Size(), 60u);
}

TEST_F(LogWriter, WithoutTheFolderNothingIsWritten) {
    std::filesystem::remove(m_folder.File("Log"));
    EXPECT_EQ(Write("lost"), CLogWriter::NotCreated);
    EXPECT_EQ(m_folder.Entries(), 0);
}

TEST_F(LogWriter, AFolderOfThatNameIsNoLog) {
    std::filesystem::create_directory(m_folder.File(LogName));
    EXPECT_EQ(Write("lost"), CLogWriter::NotOpened);
}

TEST_F(LogWriter, AReadOnlyLogStaysAsItIs) {
    const std::filesystem::path path = m_folder.Write(LogName, "old");
    std::filesystem::permissions(path, std::filesystem::perms::owner_write,
                                 std::filesystem::perm_options::remove);
    EXPECT_EQ(Write("lost"), CLogWriter::NotOpened);
    EXPECT_EQ(Read(), "old");
    std::filesystem::permissions(path, std::filesystem::perms::owner_write,
                                 std::filesystem::perm_options::add);
}

TEST_F(LogWriter, ALargeLogThatCantBeRemovedIsFrozen) {
    Make(10'485'761);
    const std::filesystem::path path = m_folder.File(LogName);
    std::filesystem::permissions(path, std::filesystem::perms::owner_write,
                                 std::filesystem::perm_options::remove);
    EXPECT_EQ(Write("lost"), CLogWriter::Done);
    EXPECT_EQ(Write("lost"), CLogWriter::Done);
    EXPECT_EQ(Size(), 10'485'761u);
    std::filesystem::permissions(path, std::filesystem::perms::owner_write,
                                 std::filesystem::perm_options::add);
    EXPECT_EQ(Write("first"), CLogWriter::Done);
    EXPECT_LT(Size(), 60u);
}

TEST_F(LogWriter, LinesOfThreadsDontInterleave) {
    CLogWriter writer(Path());
    std::vector<std::thread> threads;
    for (char letter = 'a'; letter < 'h'; ++letter)
        threads.emplace_back([&writer, letter] {
            for (int i = 0; i < 200; ++i)
                EXPECT_EQ(writer.Write(std::string(100, letter)), 1);
        });
    for (std::thread& thread : threads)
        thread.join();
    const std::string text = Read();
    std::size_t count = 0;
    for (std::size_t begin = 0; begin < text.size(); ++count) {
        const std::size_t end = text.find("\r\n", begin);
        ASSERT_NE(end, std::string::npos);
        const std::string_view message = std::string_view(text).substr(end - 100, 100);
        EXPECT_EQ(message.find_first_not_of(message.front()), std::string::npos);
        begin = end + 2;
    }
    EXPECT_EQ(count, 1400u);
}

TEST(LogPath, StandsBesideTheExecutable) {
    EXPECT_EQ(CLogWriter::PathBeside(u"\\opt\\app\\host"), u"\\opt\\app\\Log\\Tallyman.log");
    EXPECT_EQ(CLogWriter::PathBeside(u"C:\\造价\\host.exe"), u"C:\\造价\\Log\\Tallyman.log");
    EXPECT_EQ(CLogWriter::PathBeside(u"a\\b"), u"a\\Log\\Tallyman.log");
}

TEST(LogPath, WithoutABackslashBehindTheFirstCharacterItIsThatOfC) {
    EXPECT_EQ(CLogWriter::PathBeside(u"\\host"), u"c:\\Log\\Tallyman.log");
    EXPECT_EQ(CLogWriter::PathBeside(u"host"), u"c:\\Log\\Tallyman.log");
    EXPECT_EQ(CLogWriter::PathBeside(u""), u"c:\\Log\\Tallyman.log");
}

TEST(LogPath, ALongExecutableHasNone) {
    const CString folder = u"\\" + CString(u'f', 100) + u"\\";
    const CString other = u"c:\\Log\\Tallyman.log";
    EXPECT_EQ(CLogWriter::PathBeside(folder + CString(u'x', 255 - 102)), folder + u"Log\\Tallyman.log");
    EXPECT_EQ(CLogWriter::PathBeside(folder + CString(u'x', 256 - 102)), other);
    EXPECT_EQ(CLogWriter::PathBeside(folder + CString(u'x', 153 - 2) + u"砖"), folder + u"Log\\Tallyman.log");
    EXPECT_EQ(CLogWriter::PathBeside(folder + CString(u'x', 154 - 2) + u"砖"), other) << "bytes count";
}

}  // namespace
