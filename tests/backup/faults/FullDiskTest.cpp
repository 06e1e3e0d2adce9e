// What becomes of drawings when the disk was full at one event or the other, and there is room again later.
#include <filesystem>
#include <iterator>
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

struct Ways {
    const char* name;
    /// Each event in a process of its own, which remembers nothing of the others.
    bool isApart;
    bool renamesTakeRoom;
};

/// Two projects of one name in two folders, which share a backup.
class TwoProjects {
public:
    explicit TwoProjects(const Ways& ways) : m_ways(ways) {
        for (const char* place : {"a", "b"}) {
            WriteBytes(m_folders.Folder().File(place) / (Name() + ".mdb"), place);
            Draw(place, "drawn first");
        }
    }

    fs::path Graphics(const std::string& place) const { return m_folders.Folder().File(place) / Name(); }
    fs::path Mark() const { return m_folders.BackUp() / "BackUpGraphicFile.qsutils-behind"; }
    fs::path Versions() const { return m_folders.Versions(); }
    TreeOfFiles Drawings(const std::string& place) const { return TreeAt(Graphics(place)); }
    void Draw(const std::string& place, const std::string& what) const {
        WriteBytes(Graphics(place) / "plan.dwg", what + " in " + place);
    }

    /// `point` is where the disk gets full; 0 when it has room.
    void Carry(Operation operation, const std::string& place, int point = 0,
               Fault fault = Fault::DiskFull) const {
        Plan plan{point == 0 ? Fault::None : fault, point};
        plan.renamesTakeRoom = m_ways.renamesTakeRoom;
        const CString project = m_folders.Folder().Text(place) + u"\\" +
                                FromNativePath(m_folders.Graphics().filename()) + u".gcs";
        if (m_ways.isApart) {
            ASSERT_TRUE(CarryApart(operation, project, plan));
            return;
        }
        FaultPoints::Arm(plan);
        ::Carry(operation, project);
        FaultPoints::Disarm();
        // Where a rename takes room the folder may be on its way, and comes back with the next call.
        const auto beside = fs::directory_iterator(m_folders.Folder().File(place));
        if (std::distance(beside, {}) != 2 || !fs::exists(Graphics(place)))
            ::Carry(Operation::Look, project);
    }
    void Change(const std::string& place, const std::string& what, int point = 0) const {
        Draw(place, what);
        Carry(Operation::Change, place, point);
    }

private:
    std::string Name() const { return m_folders.Graphics().filename().string(); }

    const Ways m_ways;
    const BackedUpProject m_folders;
};

class FullDisk : public ::testing::TestWithParam<Ways> {
protected:
    void ExpectPlan(const char* place, const char* what) const {
        EXPECT_EQ(m_projects.Drawings(place),
                  (TreeOfFiles{{"plan.dwg", std::string(what) + " in " + place}}));
    }
    /// The mark is gone, and what is discarded is what has been changed since the last save.
    void ExpectWorksAgain(const char* place) const {
        m_projects.Change(place, "before the last save");
        m_projects.Carry(Operation::Save, place);
        m_projects.Change(place, "dropped");
        m_projects.Carry(Operation::Discard, place);
        ExpectPlan(place, "before the last save");
        EXPECT_FALSE(fs::exists(m_projects.Mark()));
        EXPECT_TRUE(fs::exists(m_projects.Versions()));
    }

    const TwoProjects m_projects{GetParam()};
};

TEST_P(FullDisk, DrawingsThatWereSavedStayWhenTheyAreNotInTheBackUp) {
    m_projects.Carry(Operation::Open, "a");
    m_projects.Change("a", "saved");
    m_projects.Carry(Operation::Save, "a", 1);
    m_projects.Carry(Operation::Discard, "a");
    ExpectPlan("a", "saved");
    m_projects.Change("a", "changed again");
    m_projects.Carry(Operation::Discard, "a");
    ExpectPlan("a", "changed again");
    ExpectWorksAgain("a");
}

TEST_P(FullDisk, TheNextSaveRenewsWhatAnOpeningCouldNot) {
    m_projects.Carry(Operation::Open, "a");
    m_projects.Carry(Operation::Open, "b", 1);
    m_projects.Carry(Operation::Save,
                     "b");  // nothing has been changed, but the saved drawings are those of "a"
    m_projects.Change("b", "changed");
    m_projects.Carry(Operation::Discard, "b");
    ExpectPlan("b", "drawn first");
    ExpectPlan("a", "drawn first");
    ExpectWorksAgain("b");
}

TEST_P(FullDisk, DrawingsOfAnotherProjectAreNeverPutInPlace) {
    m_projects.Carry(Operation::Open, "a");
    m_projects.Carry(Operation::Open, "b", 1);
    m_projects.Change("b", "changed");
    m_projects.Carry(Operation::Discard, "b");
    ExpectPlan("b", "changed");
    ExpectWorksAgain("b");
}

TEST_P(FullDisk, DrawingsOfAHostThatDiedStayWhenTheyAreOpened) {
    m_projects.Carry(Operation::Open, "a");
    m_projects.Change("a", "changed");
    m_projects.Carry(Operation::Open, "a", 1);
    m_projects.Carry(Operation::Discard, "a");
    ExpectPlan("a", "changed");
    ExpectWorksAgain("a");
}

TEST_P(FullDisk, AChangeThatIsNotCountedIsSaved) {
    m_projects.Carry(Operation::Open, "a");
    m_projects.Change("a", "saved", 1);
    m_projects.Carry(Operation::Save, "a");
    m_projects.Change("a", "dropped");
    m_projects.Carry(Operation::Discard, "a");
    ExpectPlan("a", "saved");
    ExpectWorksAgain("a");
}

TEST_P(FullDisk, ChangesThatCouldNotBeDiscardedAreSaved) {
    m_projects.Carry(Operation::Open, "a");
    m_projects.Change("a", "changed");
    m_projects.Carry(Operation::Discard, "a", 1);
    ExpectPlan("a", "changed");
    m_projects.Carry(Operation::Save, "a");
    m_projects.Change("a", "dropped");
    m_projects.Carry(Operation::Discard, "a");
    ExpectPlan("a", "changed");
    ExpectWorksAgain("a");
}

class FirstOpening : public FullDisk {};

// With nothing on the disk only the process can remember.
TEST_P(FirstOpening, OnAFullDiskLosesNothing) {
    m_projects.Carry(Operation::Open, "a", 1);
    m_projects.Change("a", "changed");
    m_projects.Carry(Operation::Discard, "a");
    ExpectPlan("a", "changed");
    EXPECT_TRUE(fs::exists(m_projects.Mark())) << "there was room meanwhile";
    ExpectWorksAgain("a");
}

TEST_P(FullDisk, ChangesThatAreCalledDiscardedButStayedAreSaved) {
    m_projects.Carry(Operation::Open, "a");
    m_projects.Change("a", "changed");
    // The drawings can't be copied, while the version file can be written.
    m_projects.Carry(Operation::Discard, "a", 1, Fault::Error);
    ExpectPlan("a", "changed");
    m_projects.Carry(Operation::Save, "a");
    m_projects.Change("a", "dropped");
    m_projects.Carry(Operation::Discard, "a");
    ExpectPlan("a", "changed");
    ExpectWorksAgain("a");
}

TEST_P(FullDisk, AnOpeningEndsAllDoubt) {
    m_projects.Carry(Operation::Open, "a");
    m_projects.Carry(Operation::Open, "b", 1);
    m_projects.Carry(Operation::Open, "a");
    EXPECT_FALSE(fs::exists(m_projects.Mark()));
    m_projects.Change("a", "dropped");
    m_projects.Carry(Operation::Discard, "a");
    ExpectPlan("a", "drawn first");
}

/// A day of events on a disk that gets full now and then. What a discard leaves is what was there at the last
/// save or opening, or else the changes stay.
void SpendADay(const Ways& ways, unsigned seed, int steps) {
    std::mt19937 random(seed);
    const TwoProjects projects(ways);
    std::string place = "a";
    projects.Carry(Operation::Open, place);
    TreeOfFiles saved = projects.Drawings(place);
    for (int step = 0; step < steps; ++step) {
        const int point = random() % 2 == 0 ? 0 : random() % 2 == 0 ? 1 : 1 + static_cast<int>(random() % 40);
        const TreeOfFiles before = projects.Drawings(place);
        SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(step));
        switch (random() % 5) {
            case 0:
                place = random() % 2 == 0 ? "a" : "b";
                saved = projects.Drawings(place);
                projects.Carry(Operation::Open, place, point);
                ASSERT_EQ(projects.Drawings(place), saved);
                break;
            case 1:
                projects.Carry(Operation::Save, place, point);
                ASSERT_EQ(projects.Drawings(place), before);
                saved = before;
                break;
            case 2: {
                projects.Carry(Operation::Discard, place, point);
                const TreeOfFiles after = projects.Drawings(place);
                ASSERT_TRUE(after == before || after == saved);
                break;
            }
            default:
                projects.Change(place, "step " + std::to_string(step), point);
        }
    }
    projects.Carry(Operation::Save, place);
    saved = projects.Drawings(place);
    projects.Change(place, "dropped");
    projects.Carry(Operation::Discard, place);
    ASSERT_EQ(projects.Drawings(place), saved);
    ASSERT_FALSE(fs::exists(projects.Mark()));
}

TEST_P(FullDisk, DaysOnADiskThatGetsFullLoseNothing) {
    // A process is dear on one of the systems.
    const int days = GetParam().isApart ? ThreadRounds(Rounds(40)) : FileRounds(100);
    for (unsigned seed = 0; seed < static_cast<unsigned>(days) && !HasFailure(); ++seed)
        SpendADay(GetParam(), seed, 30);
}

std::string NameOf(const ::testing::TestParamInfo<Ways>& ways) {
    return ways.param.name;
}

constexpr Ways Renaming{"Renaming", true, false};
constexpr Ways Remembering{"Remembering", false, true};

INSTANTIATE_TEST_SUITE_P(Ways, FullDisk, ::testing::Values(Renaming, Remembering), NameOf);
INSTANTIATE_TEST_SUITE_P(Ways, FirstOpening, ::testing::Values(Remembering), NameOf);

}  // namespace
