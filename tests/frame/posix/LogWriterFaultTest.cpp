// The writer of the log when the system refuses it something.
#include <csignal>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <sys/resource.h>

#include "QsUtils/frame/CLogWriter.h"

#include "tests/support/TemporaryFolder.h"
#include "tests/support/posix/InChild.h"

using QsFrame::CLogWriter;

namespace {

/// So that a result can be told as a status.
constexpr int Shift = 100;

TEST(LogFault, ALogThatCantBeMadeAnewIsGone) {
    const TemporaryFolder folder;
    std::filesystem::resize_file(folder.Write("a.log", "head"), CLogWriter::LargestFile + 1);
    CLogWriter writer(folder.Text("a.log"));
    EXPECT_EQ(writer.Write(""), CLogWriter::EmptyMessage);
    const int status = InChild([&writer] {
        const rlimit none{0, 0};
        return ::setrlimit(RLIMIT_NOFILE, &none) == 0 ? Shift + writer.Write("lost") : 0;
    });
    EXPECT_EQ(status, Shift + CLogWriter::NotCreated);
    EXPECT_EQ(folder.Entries(), 0) << "the old one has been removed by then";
    EXPECT_EQ(writer.Write("next"), CLogWriter::Done);
    EXPECT_TRUE(folder.Read("a.log").ends_with(" next\r\n"));
}

TEST(LogFault, ALineOnAFullDiskIsLostWithoutAWord) {
    const TemporaryFolder folder;
    folder.Write("a.log", "old\r\n");
    CLogWriter writer(folder.Text("a.log"));
    const int status = InChild([&writer] {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit full{5, 5};  // a file of this process's may not grow beyond
        return ::setrlimit(RLIMIT_FSIZE, &full) == 0 ? Shift + writer.Write("lost") : 0;
    });
    EXPECT_EQ(status, Shift + CLogWriter::Done);
    EXPECT_EQ(folder.Read("a.log"), "old\r\n");
    EXPECT_EQ(writer.Write("next"), CLogWriter::Done);
    EXPECT_TRUE(folder.Read("a.log").ends_with(" next\r\n"));
}

}  // namespace
