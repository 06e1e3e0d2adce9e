// What is on the disk after an operation of the backup was killed, or found the disk full or failing, at each
// of the calls by which it changes files.
#include <filesystem>

#include <gtest/gtest.h>

#include "tests/backup/faults/BackUpFault.h"

namespace {

namespace fs = std::filesystem;
using FaultPoints::Fault;

TEST_P(BackUpFault, AKilledSave) {
    KillEverywhere(Operation::Save, Operation::Look);
}

TEST_P(BackUpFault, AKilledSaveThatIsDoneAgain) {
    KillEverywhere(Operation::Save, Operation::Save);
    m_project.ExpectSaved();
}

TEST_P(BackUpFault, AKilledDiscard) {
    KillEverywhere(Operation::Discard, Operation::Look);
}

TEST_P(BackUpFault, AKilledDiscardThatIsDoneAgain) {
    KillEverywhere(Operation::Discard, Operation::Discard);
    m_project.ExpectDiscarded();
}

TEST_P(BackUpFault, AKilledOpening) {
    KillEverywhere(Operation::Open, Operation::Look);
}

TEST_P(BackUpFault, AKilledDiscardBeforeTheProjectIsOpened) {
    KillEverywhere(Operation::Discard, Operation::Open);
}

TEST_P(BackUpFault, ADiskThatGetsFullInASave) {
    FailEverywhere(Operation::Save, Fault::DiskFull);
}

TEST_P(BackUpFault, ADiskThatGetsFullInADiscard) {
    FailEverywhere(Operation::Discard, Fault::DiskFull);
}

TEST_P(BackUpFault, ADiskThatGetsFullInAnOpening) {
    FailEverywhere(Operation::Open, Fault::DiskFull);
}

TEST_P(BackUpFault, AKilledChange) {
    KillEverywhere(Operation::Change, Operation::Look, 3);
}

TEST_P(BackUpFault, ADiskThatGetsFullInAChange) {
    FailEverywhere(Operation::Change, Fault::DiskFull);
}

class OneFailure : public BackUpFault {};

TEST_P(OneFailure, LeavesWholeVersions) {
    for (const Operation operation :
         {Operation::Open, Operation::Save, Operation::Change, Operation::Discard})
        FailEverywhere(operation, Fault::Error);
}

class MarkedFiles : public BackUpFault {
protected:
    void SetUp() override {
        m_project.decorate = [this] {
            for (const fs::path& file :
                 {m_project.Graphics() / "plan.dwg", m_project.Graphics() / "roof/r.dwg",
                  m_project.SavedGraphics() / "plan.dwg", m_project.SavedGraphics() / "a/b/2.dwg"})
                fs::permissions(file, fs::perms::owner_write, fs::perm_options::remove);
        };
    }
};

TEST_P(MarkedFiles, AKilledSave) {
    AllowOutcomesOf(Operation::Save);
    KillEverywhere(Operation::Save, Operation::Look);
}

TEST_P(MarkedFiles, AKilledDiscard) {
    AllowOutcomesOf(Operation::Discard);
    KillEverywhere(Operation::Discard, Operation::Look);
}

/// A process was killed between two renames, and a host has made the folder anew.
class FolderMadeAnew : public BackUpFault {
protected:
    void SetUp() override {
        m_project.decorate = [this] {
            const auto beside = [this](const char* ending) {
                fs::path path = m_project.Graphics();
                return path += ending;
            };
            fs::rename(m_project.Graphics(), beside(".qsutils-old"));
            WriteTree(beside(".qsutils-ready"), Ready);
            WriteTree(m_project.Graphics(), {{"mine", "mine"}, {"plan.dwg", "newer"}, {"a/mine", "mine"}});
        };
        TreeOfFiles joined = Ready;
        joined["mine"] = joined["a/mine"] = "mine";
        m_project.AddWholeVersion(joined);
    }

    /// Whole only together with what the host has put there.
    const TreeOfFiles Ready = {{"plan.dwg", "the ready plan"}, {"a/", ""}, {"a/1.dwg", "first floor"}};
};

TEST_P(FolderMadeAnew, AKilledRecovery) {
    KillEverywhere(Operation::Look, Operation::Look, 3);
}

class FolderMadeAnewOnAFailingDisk : public FolderMadeAnew {};

TEST_P(FolderMadeAnewOnAFailingDisk, ARecoveryWhereOneCallFails) {
    FailEverywhere(Operation::Look, Fault::Error);
}

INSTANTIATE_TEST_SUITE_P(Ways, BackUpFault, AllWays(), NameOfWays);
INSTANTIATE_TEST_SUITE_P(Ways, MarkedFiles, AllWays(), NameOfWays);
INSTANTIATE_TEST_SUITE_P(Ways, FolderMadeAnew, AllWays(), NameOfWays);

// Where a folder is emptied and filled again, a disk that fails may cost what it fails at.
constexpr FaultWays Exchanging{true, true};
constexpr FaultWays Moving{false, true};
INSTANTIATE_TEST_SUITE_P(Ways, OneFailure, ::testing::Values(Exchanging, Moving), NameOfWays);
INSTANTIATE_TEST_SUITE_P(Ways, FolderMadeAnewOnAFailingDisk, ::testing::Values(Exchanging, Moving),
                         NameOfWays);

}  // namespace
