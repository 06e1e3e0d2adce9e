// A project in a folder that takes no new entry from its user, though its files may be written.
#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <linux/capability.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "tests/backup/BackedUpProject.h"
#include "tests/backup/faults/FaultPoints.h"
#include "tests/backup/faults/Operations.h"
#include "tests/support/posix/InChild.h"

namespace {

namespace fs = std::filesystem;
using FaultPoints::Fault;
using FaultPoints::Plan;

const TreeOfFiles Saved = {{"plan.dwg", "the plan"}, {"a/", ""}, {"a/1.dwg", "first floor"}, {"gone", "x"}};
const TreeOfFiles Live = {{"plan.dwg", "another plan"}, {"a/", ""}, {"a/1.dwg", std::string(9000, 'y')}};
const std::string DataBase(40'000, 'o');
const std::string Work(90'000, 'w');

enum ClosedResult : int {
    AsExpected,
    RightsKept,
    DrawingsWrong,
    DataBaseWrong,
    Left,
    NeverKilled,
    HasThrown
};

/// The test goes on without root's rights: what a folder's marks forbid to its owner is forbidden to it, too.
/// It stays the same user, for whom all folders on the way are open.
bool GiveUpRights() {
    if (::geteuid() != 0)
        return true;
    // Programs that are started from here would get them back.
    for (const int right : {CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH}) {
        if (::prctl(PR_CAPBSET_DROP, right) != 0)
            return false;
    }
    __user_cap_header_struct process{_LINUX_CAPABILITY_VERSION_3, 0};
    __user_cap_data_struct none[_LINUX_CAPABILITY_U32S_3] = {};
    return ::syscall(SYS_capset, &process, none) == 0;
}

class ClosedFolder : public ::testing::Test {
protected:
    void SetUp() override {
        WriteBytes(m_project.DataBase(), DataBase);
        WriteTree(m_project.Graphics(), Live);
        WriteTree(m_project.BackUp(), {});
        fs::permissions(m_project.Folder().Path(), fs::perms::owner_write, fs::perm_options::remove);
    }
    void TearDown() override {
        fs::permissions(m_project.Folder().Path(), fs::perms::owner_write, fs::perm_options::add);
    }

    /// A project that was opened and worked on.
    void Reset() const {
        for (const auto& entry : fs::directory_iterator(m_project.Graphics()))
            fs::remove_all(entry.path());
        WriteTree(m_project.Graphics(), Live);
        WriteBytes(m_project.DataBase(), DataBase);
        for (const auto& entry : fs::directory_iterator(m_project.BackUp()))
            fs::remove_all(entry.path());
        WriteTree(m_project.SavedGraphics(), Saved);
        WriteBytes(m_project.WorkingDataBase(), Work);
        WriteBytes(m_project.Versions(), "[GraphicFileInfo]\r\nRunVer=2\r\nBackUpVer=1\r\n");
    }
    ClosedResult Look(Operation operation, bool isKilled) const {
        const bool isSave = operation == Operation::Save;
        const std::string dataBase = BytesOf(m_project.DataBase());
        if (dataBase != (isSave ? Work : DataBase) && !(isKilled && dataBase == DataBase))
            return DataBaseWrong;
        const TreeOfFiles drawings = TreeAt(m_project.Graphics());
        if (drawings != (isSave ? Live : Saved) && !(isKilled && drawings == Live))
            return DrawingsWrong;
        for (const auto& entry : fs::directory_iterator(m_project.BackUp()))
            if (entry.path().filename().string().ends_with(".qsutils-ready") ||
                entry.path().filename().string().ends_with(".qsutils-file"))
                return Left;
        return AsExpected;
    }
    ClosedResult Try(Operation operation) const {
        if (!GiveUpRights())
            return RightsKept;
        Reset();
        Carry(operation, m_project.Path());
        if (const ClosedResult result = Look(operation, false); result != AsExpected)
            return result;
        for (int point = 1;; ++point) {
            Reset();
            if (CarryApart(operation, m_project.Path(), Plan{Fault::Killed, point}))
                return point > 10 ? AsExpected : NeverKilled;
            Carry(Operation::Look, m_project.Path());
            if (const ClosedResult result = Look(operation, true); result != AsExpected)
                return result;
        }
    }
    int TryInChild(Operation operation) const {
        return InChild([&]() -> int {
            try {
                return Try(operation);
            } catch (const std::exception& error) {
                std::fprintf(stderr, "%s\n", error.what());
                return HasThrown;
            }
        });
    }

    const BackedUpProject m_project;
};

TEST_F(ClosedFolder, ASavePutsTheDataBaseBack) {
    EXPECT_EQ(TryInChild(Operation::Save), AsExpected);
}

TEST_F(ClosedFolder, ADiscardPutsTheDrawingsBack) {
    EXPECT_EQ(TryInChild(Operation::Discard), AsExpected);
}

}  // namespace
