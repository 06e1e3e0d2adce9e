// What is on the disk after an operation of the backup was killed, or found the disk full, at each of the
// calls by which it changes files.
#include <filesystem>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "tests/backup/BackedUpProject.h"
#include "tests/backup/faults/FaultPoints.h"
#include "tests/backup/faults/Operations.h"
#include "tests/support/Rounds.h"

namespace {

namespace fs = std::filesystem;
using FaultPoints::Fault;
using FaultPoints::Plan;

const TreeOfFiles Saved = {{"plan.dwg", "the plan"},
                           {"a/", ""},
                           {"a/1.dwg", "first floor"},
                           {"a/b/", ""},
                           {"a/b/2.dwg", "second floor"},
                           {"only saved", "x"},
                           {"empty/", ""}};
const TreeOfFiles Live = {{"plan.dwg", "another plan"},
                          {"a/", ""},
                          {"a/1.dwg", std::string(3000, 'y')},
                          {"roof/", ""},
                          {"roof/r.dwg", "r"},
                          {"楼梯.dwg", "stairs"}};

/// A project that was opened, then worked on in both its database and its drawings.
class WorkedOnProject : public BackedUpProject {
public:
    WorkedOnProject(const TreeOfFiles& saved, const TreeOfFiles& live) : m_saved(saved), m_live(live) {
        Reset();
    }

    void Reset() const {
        fs::remove_all(BackUp());
        for (const auto& entry : fs::directory_iterator(Folder().Path()))
            fs::remove_all(entry.path());
        WriteBytes(DataBase(), OldDataBase);
        WriteTree(Graphics(), m_live);
        WriteTree(SavedGraphics(), m_saved);
        WriteBytes(WorkingDataBase(), Work);
        WriteBytes(Versions(), "[GraphicFileInfo]\r\nRunVer=2\r\nBackUpVer=1\r\n");
    }

    /// At any moment.
    void ExpectDataBasesWhole() const {
        EXPECT_PRED1(IsWhole, BytesOf(DataBase()));
        EXPECT_PRED1(IsWhole, BytesOf(WorkingDataBase()));
        const std::string versions = BytesOf(Versions());
        EXPECT_TRUE(versions.starts_with("[GraphicFileInfo]\r\nRunVer=")) << versions;
        EXPECT_TRUE(versions.ends_with("\r\n")) << versions;
    }
    /// When a call that wasn't killed has ended.
    void ExpectAllWhole() const {
        ExpectDataBasesWhole();
        EXPECT_TRUE(IsOneOf(TreeAt(Graphics())));
        EXPECT_TRUE(IsOneOf(TreeAt(SavedGraphics())));
        EXPECT_EQ(Folder().Entries(), 2) << "something is left beside the project";
        EXPECT_LE(std::distance(fs::directory_iterator(BackUp()), {}), 4)
            << "something is left in the backup";
        for (const auto& entry : fs::directory_iterator(BackUp()))
            EXPECT_TRUE(IsOfBackUp(entry.path().filename().string())) << entry.path();
    }
    void ExpectSaved() const {
        EXPECT_EQ(BytesOf(DataBase()), Work);
        EXPECT_EQ(TreeAt(SavedGraphics()), m_live);
        EXPECT_EQ(TreeAt(Graphics()), m_live);
    }
    void ExpectDiscarded() const {
        EXPECT_EQ(BytesOf(DataBase()), OldDataBase);
        EXPECT_EQ(TreeAt(Graphics()), m_saved);
        EXPECT_EQ(TreeAt(SavedGraphics()), m_saved);
    }

private:
    static bool IsWhole(const std::string& dataBase) { return dataBase == OldDataBase || dataBase == Work; }
    static bool IsOfBackUp(const std::string& name) {
        return name == "BackUpDataBase.mdb" || name == "BackUpGraphicFile" || name == "FileVer.ini" ||
               name == "BackUpGraphicFile.qsutils-behind";
    }
    bool IsOneOf(const TreeOfFiles& tree) const { return tree == m_saved || tree == m_live; }

    static inline const std::string OldDataBase = "old database" + std::string(5000, 'o');
    static inline const std::string Work = "work" + std::string(5000, 'w');

    TreeOfFiles m_saved;
    TreeOfFiles m_live;
};

struct Ways {
    bool exchanges;
    bool movesFolders;
};

class BackUpFault : public ::testing::TestWithParam<Ways> {
protected:
    Plan PlanOf(Fault fault, int point = 0) const {
        Plan plan{fault, point};
        plan.exchanges = GetParam().exchanges;
        plan.movesFolders = GetParam().movesFolders;
        return plan;
    }
    int CountPoints(Operation operation) const {
        m_project.Reset();
        FaultPoints::Arm(PlanOf(Fault::None));
        Carry(operation, m_project.Path());
        return FaultPoints::Disarm();
    }
    /// Kills the operation at every point, and looks at what the next call finds.
    void KillEverywhere(Operation operation, Operation next) const {
        int killed = 0;
        for (int point = 1;; ++point) {
            m_project.Reset();
            SCOPED_TRACE(point);
            if (CarryApart(operation, m_project.Path(), PlanOf(Fault::Killed, point)))
                break;
            ++killed;
            m_project.ExpectDataBasesWhole();
            ASSERT_TRUE(CarryApart(next, m_project.Path(), PlanOf(Fault::None)));
            m_project.ExpectAllWhole();
            if (HasFailure())
                return;
        }
        EXPECT_EQ(killed, CountPoints(operation));
        EXPECT_GT(killed, 30);
    }
    void FailEverywhere(Operation operation, Fault fault) const {
        const int points = CountPoints(operation);
        for (int point = 1; point <= points; ++point) {
            m_project.Reset();
            SCOPED_TRACE(point);
            FaultPoints::Arm(PlanOf(fault, point));
            Carry(operation, m_project.Path());
            FaultPoints::Disarm();
            m_project.ExpectDataBasesWhole();
            Carry(Operation::Look, m_project.Path());
            m_project.ExpectAllWhole();
            if (HasFailure())
                return;
        }
    }

    const WorkedOnProject m_project{Saved, Live};
};

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

INSTANTIATE_TEST_SUITE_P(Ways, BackUpFault,
                         ::testing::Values(Ways{true, true}, Ways{false, true}, Ways{false, false}),
                         [](const ::testing::TestParamInfo<Ways>& ways) {
                             return !ways.param.movesFolders ? "Rewriting"
                                    : ways.param.exchanges   ? "Exchanging"
                                                             : "Moving";
                         });

}  // namespace
