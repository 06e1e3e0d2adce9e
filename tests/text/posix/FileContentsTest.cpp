// Files whose size and blocks don't tell what is in them.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "QsUtils/frame/IQsUtils.h"

#include "tests/support/TemporaryFolder.h"

namespace {

void Copy(const TemporaryFolder& folder) {
    std::filesystem::create_directory(folder.File("target"));
    IQsUtils::CopyFolderAllFiles(folder.Text("source") + u"\\", folder.Text("target") + u"\\", false);
}

// Holes at the beginning, between and at the end.
TEST(FileContents, HolesAreKept) {
    const TemporaryFolder folder;
    const std::filesystem::path source = folder.Write("source/sparse", "");
    const int file = ::open(source.c_str(), O_WRONLY);
    ASSERT_GE(file, 0);
    for (const off_t place : {off_t{1} << 20, off_t{5} << 20})
        ASSERT_EQ(::pwrite(file, "data", 4, place), 4);
    ASSERT_EQ(::ftruncate(file, off_t{8} << 20), 0);
    ::close(file);
    Copy(folder);
    EXPECT_EQ(folder.Read("target/sparse"), folder.Read("source/sparse"));
    struct stat before {};
    struct stat after {};
    ASSERT_EQ(::stat(source.c_str(), &before), 0);
    ASSERT_EQ(::stat(folder.File("target/sparse").c_str(), &after), 0);
    EXPECT_LE(after.st_blocks, before.st_blocks);
}

// The system's own files have a size of 0.
TEST(FileContents, AFileWithoutASizeIsCopiedToItsEnd) {
    const char* const endless = "/proc/kallsyms";
    std::ifstream in(endless, std::ios::binary);
    const std::string content(std::istreambuf_iterator<char>(in), {});
    if (content.size() < 300'000)
        GTEST_SKIP() << "the kernel shows no such file";
    const TemporaryFolder folder;
    folder.Write("source/other", "x");
    std::filesystem::create_symlink(endless, folder.File("source/symbols"));
    Copy(folder);
    EXPECT_TRUE(folder.Read("target/symbols") == content);
}

}  // namespace
