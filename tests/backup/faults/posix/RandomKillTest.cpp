// Operations of the backup that are killed at a moment of their own.
#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <random>
#include <string>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/backup/BackedUpProject.h"
#include "tests/backup/faults/Operations.h"
#include "tests/support/Rounds.h"

namespace {

namespace fs = std::filesystem;

TreeOfFiles ManyDrawings(char version) {
    TreeOfFiles tree;
    for (int i = 0; i < 150; ++i)
        tree["floor " + std::to_string(i % 7) + "/" + std::to_string(i)] =
            std::string(200, version) + std::to_string(i);
    for (int i = 0; i < 7; ++i)
        tree["floor " + std::to_string(i) + "/"];
    return tree;
}

/// Whether it came to its end before.
bool RunUntilKilled(Operation operation, const CString& project, int microseconds) {
    const pid_t child = ::fork();
    if (child == 0) {
        Carry(operation, project);
        ::_exit(0);
    }
    ::usleep(static_cast<useconds_t>(microseconds));
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status);
}

int MicrosecondsOf(Operation operation, const CString& project) {
    const auto begin = std::chrono::steady_clock::now();
    Carry(operation, project);
    const auto length = std::chrono::steady_clock::now() - begin;
    return static_cast<int>(std::chrono::duration_cast<std::chrono::microseconds>(length).count());
}

class RandomKill : public ::testing::TestWithParam<Operation> {};

TEST_P(RandomKill, LeavesWholeVersions) {
    const Operation operation = GetParam();
    const TreeOfFiles one = ManyDrawings('a');
    const TreeOfFiles other = ManyDrawings('b');
    const std::string dataBases[] = {std::string(2'000'000, 'o'), std::string(2'000'000, 'w')};
    const BackedUpProject project;
    std::mt19937 random(7);
    int killed = 0;
    int length = 0;
    const auto isWhole = [&](const TreeOfFiles& tree) { return tree == one || tree == other; };
    for (int round = 0; round < Rounds(80) || (killed == 0 && round < 400); ++round) {
        if (round % 10 == 0) {
            fs::remove_all(project.Graphics());
            WriteTree(project.Graphics(), one);
            WriteTree(project.SavedGraphics(), other);
            WriteBytes(project.DataBase(), dataBases[0]);
        }
        WriteBytes(project.WorkingDataBase(), dataBases[1]);
        WriteBytes(project.Versions(), "[GraphicFileInfo]\r\nRunVer=2\r\nBackUpVer=1\r\n");
        if (round == 0)
            length = MicrosecondsOf(operation, project.Path());
        else
            killed += RunUntilKilled(operation, project.Path(),
                                     static_cast<int>(random() % static_cast<unsigned>(length + 1)))
                          ? 0
                          : 1;
        for (const fs::path& dataBase : {project.DataBase(), project.WorkingDataBase()}) {
            const std::string bytes = BytesOf(dataBase);
            ASSERT_TRUE(bytes == dataBases[0] || bytes == dataBases[1]) << round;
        }
        Carry(Operation::Look, project.Path());
        ASSERT_TRUE(isWhole(TreeAt(project.Graphics()))) << round;
        ASSERT_TRUE(isWhole(TreeAt(project.SavedGraphics()))) << round;
        ASSERT_EQ(project.Folder().Entries(), 2) << round;
        // A killed copy leaves its mark, up to the next one.
        const bool isMarked = fs::remove(project.BackUp() / "BackUpGraphicFile.qsutils-behind");
        ASSERT_EQ(std::distance(fs::directory_iterator(project.BackUp()), {}), 3) << round;
        ASSERT_TRUE(!isMarked || operation != Operation::Discard) << round;
    }
    EXPECT_GT(killed, 0);
}

INSTANTIATE_TEST_SUITE_P(Operations, RandomKill,
                         ::testing::Values(Operation::Open, Operation::Save, Operation::Discard));

}  // namespace
