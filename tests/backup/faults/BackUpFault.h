// An operation of the backup that is killed, or finds the disk full or failing, at each of the calls by which
// it changes files, and what the next call makes of it.
#pragma once

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "tests/backup/BackedUpProject.h"
#include "tests/backup/faults/FaultPoints.h"
#include "tests/backup/faults/Operations.h"
#include "tests/support/Rounds.h"

inline const TreeOfFiles SavedDrawings = {{"plan.dwg", "the plan"},
                                          {"a/", ""},
                                          {"a/1.dwg", "first floor"},
                                          {"a/b/", ""},
                                          {"a/b/2.dwg", "second floor"},
                                          {"only saved", "x"},
                                          {"empty/", ""}};
inline const TreeOfFiles LiveDrawings = {{"plan.dwg", "another plan"},
                                         {"a/", ""},
                                         {"a/1.dwg", std::string(3000, 'y')},
                                         {"roof/", ""},
                                         {"roof/r.dwg", "r"},
                                         {"楼梯.dwg", "stairs"}};

/// A project that was opened, then worked on in both its database and its drawings.
class WorkedOnProject : public BackedUpProject {
public:
    WorkedOnProject(TreeOfFiles saved, TreeOfFiles live)
        : m_saved(std::move(saved)), m_live(std::move(live)) {
        Reset();
    }
    ~WorkedOnProject() { TakeMarksOff(); }

    /// What is done to the files of a project that has just been laid out.
    std::function<void()> decorate;

    void Reset() const {
        TakeMarksOff();
        std::filesystem::remove_all(BackUp());
        for (const auto& entry : std::filesystem::directory_iterator(Folder().Path()))
            std::filesystem::remove_all(entry.path());
        WriteBytes(DataBase(), OldDataBase);
        WriteTree(Graphics(), m_live);
        WriteTree(SavedGraphics(), m_saved);
        WriteBytes(WorkingDataBase(), Work);
        WriteBytes(Versions(), "[GraphicFileInfo]\r\nRunVer=2\r\nBackUpVer=1\r\n");
        if (decorate)
            decorate();
    }

    /// Takes what the folders hold for whole versions of them.
    void AddWholeVersions() {
        AddWholeVersion(TreeAt(Graphics()));
        AddWholeVersion(TreeAt(SavedGraphics()));
    }
    void AddWholeVersion(const TreeOfFiles& tree) { m_whole.push_back(tree); }

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
        for (const auto& entry : std::filesystem::directory_iterator(BackUp()))
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
    bool IsOneOf(const TreeOfFiles& tree) const {
        return tree == m_saved || tree == m_live ||
               std::find(m_whole.begin(), m_whole.end(), tree) != m_whole.end();
    }
    void TakeMarksOff() const {
        for (const std::filesystem::path& folder : {Graphics(), SavedGraphics()}) {
            std::error_code none;
            for (const auto& entry : std::filesystem::recursive_directory_iterator(folder, none))
                if (entry.is_regular_file() && !entry.is_symlink())
                    std::filesystem::permissions(entry, std::filesystem::perms::owner_write,
                                                 std::filesystem::perm_options::add);
        }
    }

    static inline const std::string OldDataBase = "old database" + std::string(5000, 'o');
    static inline const std::string Work = "work" + std::string(5000, 'w');

    TreeOfFiles m_saved;
    TreeOfFiles m_live;
    std::vector<TreeOfFiles> m_whole;
};

struct FaultWays {
    bool exchanges;
    bool movesFolders;
};

class BackUpFault : public ::testing::TestWithParam<FaultWays> {
protected:
    FaultPoints::Plan PlanOf(FaultPoints::Fault fault, int point = 0) const {
        FaultPoints::Plan plan{fault, point};
        plan.exchanges = GetParam().exchanges;
        plan.movesFolders = GetParam().movesFolders;
        return plan;
    }
    int CountPoints(Operation operation) const {
        m_project.Reset();
        FaultPoints::Arm(PlanOf(FaultPoints::Fault::None));
        Carry(operation, m_project.Path());
        return FaultPoints::Disarm();
    }
    /// Kills the operation at every point, and looks at what the next call finds. Where processes are dear,
    /// each of the three ways has a third of the points.
    void KillEverywhere(Operation operation, Operation next, int least = 30) const {
        int point = ProcessStep == 1 ? 1 : 1 + GetParam().exchanges + GetParam().movesFolders;
        for (;; point += ProcessStep) {
            m_project.Reset();
            SCOPED_TRACE(point);
            if (CarryApart(operation, m_project.Path(), PlanOf(FaultPoints::Fault::Killed, point)))
                break;
            m_project.ExpectDataBasesWhole();
            ASSERT_TRUE(CarryApart(next, m_project.Path(), PlanOf(FaultPoints::Fault::None)));
            m_project.ExpectAllWhole();
            if (HasFailure())
                return;
        }
        const int points = CountPoints(operation);
        EXPECT_GT(point, points);
        EXPECT_LE(point, points + ProcessStep);
        EXPECT_GT(points, least);
    }
    void FailEverywhere(Operation operation, FaultPoints::Fault fault) const {
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

    /// What the operation makes of a project when nothing happens is whole, too.
    void AllowOutcomesOf(Operation operation) {
        m_project.Reset();
        m_project.AddWholeVersions();
        FaultPoints::Arm(PlanOf(FaultPoints::Fault::None));
        Carry(operation, m_project.Path());
        FaultPoints::Disarm();
        m_project.AddWholeVersions();
    }

    WorkedOnProject m_project{SavedDrawings, LiveDrawings};
};

inline std::string NameOfWays(const ::testing::TestParamInfo<FaultWays>& ways) {
    return !ways.param.movesFolders ? "Rewriting" : ways.param.exchanges ? "Exchanging" : "Moving";
}

/// The three ways in which a folder is put in place.
inline auto AllWays() {
    return ::testing::Values(FaultWays{true, true}, FaultWays{false, true}, FaultWays{false, false});
}
