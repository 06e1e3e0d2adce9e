#include <string>

#include <gtest/gtest.h>

#include "QsUtils/platform/FileContent.h"

#include "tests/support/TemporaryFolder.h"

using QsPlatform::FileFailure;
using QsPlatform::ReadWholeFile;

namespace {

TEST(FileContent, ReadsEveryByte) {
    const TemporaryFolder folder;
    for (const std::size_t size : {0U, 1U, 4095U, 4096U, 4097U, 1'000'003U}) {
        std::string bytes(size, '\0');
        for (std::size_t i = 0; i < size; ++i)
            bytes[i] = static_cast<char>(i * 7 + (i >> 8));
        folder.Write("项目 a%20.ini", bytes);
        FileFailure failure = FileFailure::Other;
        EXPECT_EQ(ReadWholeFile(folder.Text("项目 a%20.ini"), &failure), bytes);
        EXPECT_EQ(failure, FileFailure::None);
    }
}

TEST(FileContent, TellsAMissingFile) {
    const TemporaryFolder folder;
    folder.Write("a", "x");
    for (const char* name : {"none", "none/none", "a/none"}) {
        FileFailure failure = FileFailure::None;
        EXPECT_FALSE(ReadWholeFile(folder.Text(name), &failure)) << name;
        EXPECT_EQ(failure, FileFailure::MissingFile) << name;
    }
    EXPECT_FALSE(ReadWholeFile(folder.Text("none")));
    EXPECT_FALSE(ReadWholeFile(CString()));
    EXPECT_FALSE(ReadWholeFile(folder.Text("a") + CString(u"\0b", 2)));
}

TEST(FileContent, AFolderIsNoFile) {
    const TemporaryFolder folder;
    FileFailure failure = FileFailure::None;
    EXPECT_FALSE(ReadWholeFile(FromNativePath(folder.Path()), &failure));
    EXPECT_EQ(failure, FileFailure::NotAFile);
}

TEST(FileContent, AFileOfTheLimitIsReadAndALargerOneRefused) {
    const TemporaryFolder folder;
    folder.Write("a", std::string(10'000, 'x'));
    FileFailure failure = FileFailure::None;
    EXPECT_TRUE(ReadWholeFile(folder.Text("a"), &failure, 10'000));
    EXPECT_FALSE(ReadWholeFile(folder.Text("a"), &failure, 9'999));
    EXPECT_EQ(failure, FileFailure::TooLarge);
}

TEST(FileContent, AnEmptyFileOfTerabytesIsRefusedAtOnce) {
    const TemporaryFolder folder;
    folder.Write("a", "x");
    std::error_code error;
    std::filesystem::resize_file(folder.File("a"), std::uintmax_t{1} << 40, error);
    if (error)
        GTEST_SKIP() << "the file system has no sparse files";
    FileFailure failure = FileFailure::None;
    EXPECT_FALSE(ReadWholeFile(folder.Text("a"), &failure));
    EXPECT_EQ(failure, FileFailure::TooLarge);
}

}  // namespace
