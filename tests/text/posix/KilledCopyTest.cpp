// Copies that are killed at any moment.
#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <random>
#include <string>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "QsUtils/frame/IQsUtils.h"
#include "QsUtils/platform/FolderTrees.h"

#include "tests/support/Rounds.h"
#include "tests/support/TemporaryFolder.h"

namespace {

namespace fs = std::filesystem;

constexpr int FolderCount = 8;

/// Fewer where each is replaced, and flushed to the disk.
int FilesIn(int folder) {
    return folder == 0 ? 2 : 30;
}

std::string NameOf(int folder, int file) {
    return (folder == 0 ? "" : "floor " + std::to_string(folder) + "/") + std::to_string(file);
}

std::string ContentOf(char version, int folder, int file) {
    return std::string(300 + static_cast<std::size_t>(folder), version) + std::to_string(file);
}

void WriteFiles(const TemporaryFolder& folder, const std::string& name, char version) {
    for (int i = 0; i < FolderCount; ++i)
        for (int file = 0; file < FilesIn(i); ++file)
            folder.Write(name + "/" + NameOf(i, file), ContentOf(version, i, file));
}

void CopyOnce(const TemporaryFolder& folder) {
    IQsUtils::CopyFolderAllFiles(folder.Text("source") + u"\\", folder.Text("target") + u"\\", false);
}

bool IsWholeWhereItIs(const TemporaryFolder& folder) {
    for (int i = 0; i < FolderCount; ++i)
        for (int file = 0; file < FilesIn(i); ++file) {
            const std::string name = "target/" + NameOf(i, file);
            if (!folder.Has(name)) {
                if (i == 0)
                    return false;  // what has a name there doesn't lose it
                continue;
            }
            const std::string bytes = folder.Read(name);
            if (bytes != ContentOf('o', i, file) && bytes != ContentOf('n', i, file))
                return false;
        }
    return true;
}

bool IsKilled(const TemporaryFolder& folder, int microseconds) {
    const pid_t child = ::fork();
    if (child == 0) {
        CopyOnce(folder);
        ::_exit(0);
    }
    ::usleep(static_cast<useconds_t>(microseconds));
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    return !WIFEXITED(status);
}

TEST(KilledCopy, FilesAreWholeAndTheNextCopyClearsUp) {
    const TemporaryFolder folder;
    WriteFiles(folder, "source", 'n');
    WriteFiles(folder, "target", 'o');
    const auto begin = std::chrono::steady_clock::now();
    CopyOnce(folder);
    const auto length =
        std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - begin);
    std::mt19937 random(11);
    int killed = 0;
    int unfinished = 0;
    // Until one has been killed in the middle, however slow the machine is.
    for (int round = 0; round < Rounds(16) || (unfinished == 0 && round < 400); ++round) {
        WriteFiles(folder, "target", 'o');
        killed += IsKilled(folder, static_cast<int>(random() % static_cast<unsigned>(length.count() + 1)));
        ASSERT_TRUE(IsWholeWhereItIs(folder)) << round;
        const auto isVersion = [](const fs::directory_entry& entry) {
            return entry.path().filename().native().starts_with(".qsutils-");
        };
        const fs::path target = folder.File("target");
        unfinished += std::any_of(fs::directory_iterator(target), {}, isVersion);
        const CString found = QsPlatform::FindInTree(folder.Text("target") + u"\\", u"1", CString());
        EXPECT_EQ(found.View().find(u".qsutils-"), std::u16string_view::npos);
        CopyOnce(folder);
        for (int i = 0; i < FolderCount; ++i)
            for (int file = 0; file < FilesIn(i); ++file)
                ASSERT_EQ(folder.Read("target/" + NameOf(i, file)), ContentOf('n', i, file)) << round;
        ASSERT_TRUE(std::none_of(fs::directory_iterator(target), {}, isVersion)) << round;
    }
    EXPECT_GT(killed, 0);
    EXPECT_GT(unfinished, 0);
}

}  // namespace
