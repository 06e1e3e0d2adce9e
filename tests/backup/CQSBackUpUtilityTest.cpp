#include <filesystem>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "QsUtils/backup/CQSBackUpUtility.h"
#include "QsUtils/frame/IQsUtils.h"

#include "tests/backup/BackedUpProject.h"

namespace {

namespace fs = std::filesystem;

static_assert(std::has_virtual_destructor_v<CQSBackUpUtility>);
static_assert(sizeof(CQSBackUpUtility) == sizeof(void*) + 3 * sizeof(CString));

const TreeOfFiles Drawings = {{"plan.dwg", "the plan"},
                              {"floors/", ""},
                              {"floors/1.dwg", "first floor"},
                              {"floors/details/", ""},
                              {"floors/details/stairs.dwg", "stairs"},
                              {"empty/", ""},
                              {"楼梯.dwg", std::string(100'000, 'x')}};
const TreeOfFiles Changed = {{"plan.dwg", "another plan"}, {"roof/", ""}, {"roof/r.dwg", "roof"}};

std::string VersionFileOf(const char* run, const char* backUp) {
    return std::string("[GraphicFileInfo]\r\nRunVer=") + run + "\r\nBackUpVer=" + backUp + "\r\n";
}

class BackUp : public ::testing::Test {
protected:
    void SetUp() override {
        WriteBytes(m_project.DataBase(), "database");
        WriteTree(m_project.Graphics(), Drawings);
    }
    void Open() { IQsUtils::InitBackUpInfo(m_project.Path()); }
    void Save() { IQsUtils::OnBackUpSaveFile(m_project.Path()); }
    void Change() { IQsUtils::UpdateGraphicFileVer(m_project.Path()); }
    void Discard() { IQsUtils::OnNotSaveGraphicFile(m_project.Path()); }
    void ChangeDrawings(const TreeOfFiles& drawings) {
        fs::remove_all(m_project.Graphics());
        WriteTree(m_project.Graphics(), drawings);
        Change();
    }
    /// The whole of the backup, and nothing else beside the project.
    void ExpectBackUp(const std::string& dataBase, TreeOfFiles saved, const std::string& versions) const {
        TreeOfFiles expected = {
            {"BackUpDataBase.mdb", dataBase}, {"BackUpGraphicFile/", ""}, {"FileVer.ini", versions}};
        for (const auto& [name, bytes] : saved)
            expected["BackUpGraphicFile/" + name] = bytes;
        EXPECT_EQ(TreeAt(m_project.BackUp()), expected);
        EXPECT_EQ(m_project.Folder().Entries(), 2);
    }

    BackedUpProject m_project;
};

TEST_F(BackUp, ThePathIsMadeAndTold) {
    CString path = u"overwritten";
    IQsUtils::GetCurBackUpPath(path, m_project.Path());
    EXPECT_EQ(path, m_project.BackUpText());
    EXPECT_EQ(TreeAt(m_project.BackUp()), TreeOfFiles());
}

TEST_F(BackUp, TheWorkingDataBaseIsNamedButNotMade) {
    CString path = m_project.Path();
    IQsUtils::GetCurBackUpDataBasePath(path, path);  // the argument may be the result
    EXPECT_EQ(path, m_project.BackUpText() + u"\\BackUpDataBase.mdb");
    EXPECT_EQ(TreeAt(m_project.BackUp()), TreeOfFiles());
}

TEST_F(BackUp, OpeningCopiesAll) {
    Open();
    ExpectBackUp("database", Drawings, VersionFileOf("1", "1"));
    EXPECT_EQ(TreeAt(m_project.Graphics()), Drawings);
    EXPECT_EQ(BytesOf(m_project.DataBase()), "database");
}

TEST_F(BackUp, OpeningReplacesWhatAFormerRunLeft) {
    WriteBytes(m_project.WorkingDataBase(), "old work");
    WriteTree(m_project.SavedGraphics(), {{"old/", ""}, {"old/x", "x"}, {"plan.dwg", "old plan"}});
    WriteBytes(m_project.Versions(), "; kept\r\n[GraphicFileInfo]\r\nRunVer = 9\r\nBackUpVer=7\r\n");
    Open();
    ExpectBackUp("database", Drawings, "; kept\r\n[GraphicFileInfo]\r\nRunVer = 1\r\nBackUpVer=1\r\n");
}

TEST_F(BackUp, OpeningWithoutADataBaseLeavesTheFormerCopy) {
    WriteBytes(m_project.WorkingDataBase(), "old work");
    fs::remove(m_project.DataBase());
    Open();
    EXPECT_EQ(BytesOf(m_project.WorkingDataBase()), "old work");
    EXPECT_FALSE(fs::exists(m_project.DataBase()));
    EXPECT_EQ(BytesOf(m_project.Versions()), VersionFileOf("1", "1"));
}

TEST_F(BackUp, OpeningWithoutDrawingsSavesAnEmptyFolder) {
    WriteTree(m_project.SavedGraphics(), Changed);
    fs::remove_all(m_project.Graphics());
    Open();
    EXPECT_EQ(TreeAt(m_project.SavedGraphics()), TreeOfFiles());
    EXPECT_FALSE(fs::exists(m_project.Graphics()));
}

TEST_F(BackUp, SavingACleanProjectWritesTheDataBaseBack) {
    Open();
    WriteBytes(m_project.WorkingDataBase(), "work");
    WriteBytes(m_project.Graphics() / "plan.dwg", "changed, but not told");
    Save();
    EXPECT_EQ(BytesOf(m_project.DataBase()), "work");
    ExpectBackUp("work", Drawings, VersionFileOf("1", "1"));
}

TEST_F(BackUp, SavingADirtyProjectRenewsTheSavedDrawings) {
    Open();
    WriteBytes(m_project.WorkingDataBase(), "work");
    ChangeDrawings(Changed);
    Save();
    EXPECT_EQ(BytesOf(m_project.DataBase()), "work");
    EXPECT_EQ(TreeAt(m_project.Graphics()), Changed);
    ExpectBackUp("work", Changed, VersionFileOf("2", "2"));
}

TEST_F(BackUp, SavingWithoutAWorkingDataBaseLeavesTheProjects) {
    Open();
    fs::remove(m_project.WorkingDataBase());
    ChangeDrawings(Changed);
    Save();
    EXPECT_EQ(BytesOf(m_project.DataBase()), "database");
    EXPECT_EQ(TreeAt(m_project.SavedGraphics()), Changed);
    EXPECT_EQ(BytesOf(m_project.Versions()), VersionFileOf("2", "2"));
}

TEST_F(BackUp, SavingMakesADataBaseThatIsntThere) {
    Open();
    fs::remove(m_project.DataBase());
    Save();
    EXPECT_EQ(BytesOf(m_project.DataBase()), "database");
}

TEST_F(BackUp, AChangeCountsUpTheRunningVersionAlone) {
    Open();
    Change();
    ExpectBackUp("database", Drawings, VersionFileOf("2", "1"));
    Change();
    ExpectBackUp("database", Drawings, VersionFileOf("3", "1"));
}

TEST_F(BackUp, TwoChangesAndASave) {
    Open();
    Change();
    ChangeDrawings(Changed);
    Save();
    ExpectBackUp("database", Changed, VersionFileOf("3", "3"));
    WriteBytes(m_project.Graphics() / "new.dwg", "new");
    Discard();
    EXPECT_TRUE(fs::exists(m_project.Graphics() / "new.dwg"));
    EXPECT_EQ(BytesOf(m_project.Versions()), VersionFileOf("3", "3"));
}

TEST_F(BackUp, DiscardingRestoresTheDrawingsOfTheLastSave) {
    Open();
    WriteBytes(m_project.WorkingDataBase(), "work");
    ChangeDrawings(Changed);
    Discard();
    EXPECT_EQ(TreeAt(m_project.Graphics()), Drawings);
    EXPECT_EQ(BytesOf(m_project.DataBase()), "database");
    ExpectBackUp("work", Drawings, VersionFileOf("1", "1"));
}

TEST_F(BackUp, DiscardingMakesALostFolderAnew) {
    Open();
    fs::remove_all(m_project.Graphics());
    Change();
    Discard();
    EXPECT_EQ(TreeAt(m_project.Graphics()), Drawings);
}

TEST_F(BackUp, DiscardingWithoutSavedDrawingsEmptiesTheFolder) {
    Open();
    fs::remove_all(m_project.SavedGraphics());
    Change();
    Discard();
    EXPECT_EQ(TreeAt(m_project.Graphics()), TreeOfFiles());
    EXPECT_EQ(BytesOf(m_project.Versions()), VersionFileOf("1", "1"));
}

TEST_F(BackUp, WithoutAVersionFileAProjectIsClean) {
    WriteTree(m_project.SavedGraphics(), Changed);
    WriteBytes(m_project.WorkingDataBase(), "work");
    Discard();
    EXPECT_EQ(TreeAt(m_project.Graphics()), Drawings);
    Save();
    EXPECT_EQ(TreeAt(m_project.SavedGraphics()), Changed);
    EXPECT_EQ(BytesOf(m_project.DataBase()), "work");
    EXPECT_FALSE(fs::exists(m_project.Versions()));
    Change();
    EXPECT_EQ(BytesOf(m_project.Versions()), "[GraphicFileInfo]\r\nRunVer=2\r\n");
}

TEST_F(BackUp, AVersionThatIsNoNumberCountsAsZero) {
    Open();
    for (const char* text : {"x", "", "-", "+ 5"}) {
        WriteBytes(m_project.Versions(), VersionFileOf(text, "1"));
        Change();
        EXPECT_EQ(BytesOf(m_project.Versions()), VersionFileOf("1", "1")) << text;
    }
    WriteBytes(m_project.Versions(), VersionFileOf(" 12abc", "1"));
    Change();
    EXPECT_EQ(BytesOf(m_project.Versions()), VersionFileOf(" 13", "1"));
}

TEST_F(BackUp, BehindTheLargestVersionComesTheSmallest) {
    Open();
    for (const auto& [before, after] :
         {std::pair("2147483646", "2147483647"), std::pair("2147483647", "-2147483648"),
          std::pair("99999999999", "-2147483648"), std::pair("-1", "0")}) {
        WriteBytes(m_project.Versions(), VersionFileOf(before, "1"));
        Change();
        EXPECT_EQ(BytesOf(m_project.Versions()), VersionFileOf(after, "1"));
    }
}

TEST_F(BackUp, VersionsAreComparedAsTexts) {
    Open();
    for (const auto& [run, backUp] :
         {std::pair("01", "1"), std::pair("1", "01"), std::pair("a", "A"), std::pair("", "1")}) {
        WriteTree(m_project.SavedGraphics(), {{"from here", "1"}});
        WriteBytes(m_project.Graphics() / "drawn since", "x");
        WriteBytes(m_project.Versions(), VersionFileOf(run, backUp));
        Discard();
        EXPECT_TRUE(fs::exists(m_project.Graphics() / "from here")) << run;
        EXPECT_EQ(BytesOf(m_project.Versions()), VersionFileOf(backUp, backUp));
        fs::remove(m_project.Graphics() / "from here");
    }
}

TEST_F(BackUp, LongVersionsAreCut) {
    Open();
    // What differs lies behind the buffer.
    const std::string version(127, '7');
    WriteBytes(m_project.Versions(), VersionFileOf((version + "1").c_str(), (version + "2").c_str()));
    WriteBytes(m_project.Graphics() / "new.dwg", "new");
    Discard();
    EXPECT_TRUE(fs::exists(m_project.Graphics() / "new.dwg"));
    WriteBytes(m_project.Versions(), VersionFileOf(("8" + version).c_str(), version.c_str()));
    Save();
    EXPECT_EQ(BytesOf(m_project.Versions()),
              VersionFileOf(("8" + version).c_str(), ("8" + version).substr(0, 127).c_str()));
}

TEST_F(BackUp, ProjectsOfOneNameShareTheirBackup) {
    const TemporaryFolder elsewhere;
    const std::string name = m_project.Graphics().filename().string();
    elsewhere.Write(name + ".mdb", "the other");
    elsewhere.Write(name + "/other.dwg", "drawing");
    Open();
    IQsUtils::InitBackUpInfo(elsewhere.Text(name + ".xyz"));
    EXPECT_EQ(BytesOf(m_project.WorkingDataBase()), "the other");
    EXPECT_EQ(TreeAt(m_project.SavedGraphics()), (TreeOfFiles{{"other.dwg", "drawing"}}));
    Save();
    EXPECT_EQ(BytesOf(m_project.DataBase()), "the other");
}

TEST(BackUpNames, TheStemEndsAtTheLastPointOfTheWholePath) {
    const TemporaryFolder folder;
    const std::string name = folder.Path().filename().string();
    // No extension, and a point in the folder's name.
    folder.Write("work" + name + ".d/" + name, "project");
    folder.Write("work" + name + ".mdb", "database");
    folder.Write("work" + name + "/a.dwg", "drawing");
    const BackedUpProject places(name);
    IQsUtils::InitBackUpInfo(FromNativePath(folder.File("work" + name + ".d") / name));
    EXPECT_EQ(BytesOf(places.WorkingDataBase()), "database");
    EXPECT_EQ(TreeAt(places.SavedGraphics()), (TreeOfFiles{{"a.dwg", "drawing"}}));
}

TEST(BackUpNames, OnlyTheLastExtensionIsCut) {
    const TemporaryFolder folder;
    const std::string name = folder.Path().filename().string();
    const BackedUpProject places(name + ".v2");
    folder.Write(name + ".v2.mdb", "database");
    IQsUtils::InitBackUpInfo(folder.Text(name + ".v2.gcs"));
    EXPECT_EQ(BytesOf(places.WorkingDataBase()), "database");
}

TEST(BackUpNames, WithoutABackslashTheNameIsEmpty) {
    CString path;
    IQsUtils::GetCurBackUpPath(path, u"house.gcs");
    const CString shared = QsPlatform::ExecutableFolder() + u"\\tempfile\\" + BackUpFolderName + u"\\";
    EXPECT_EQ(path, shared);
    EXPECT_TRUE(fs::is_directory(ToNativePath(path)));
    IQsUtils::GetCurBackUpPath(path, u"");
    EXPECT_EQ(path, shared);
    IQsUtils::GetCurBackUpDataBasePath(path, u"another");
    EXPECT_EQ(path, shared + u"\\BackUpDataBase.mdb");
}

TEST(BackUpNames, ANameThatIsGivenIsTaken) {
    CString path;
    CQSBackUpUtility utility(u"given name.v1");
    utility.GetCurBackUpPath(path, u"C:\\other.gcs");
    const CString expected =
        QsPlatform::ExecutableFolder() + u"\\tempfile\\" + BackUpFolderName + u"\\given name";
    EXPECT_EQ(path, expected);
    fs::remove_all(ToNativePath(path));
}

}  // namespace
