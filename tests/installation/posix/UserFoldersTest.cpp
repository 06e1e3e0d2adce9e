// The user's folders as the environment and the desktop state them.
#include <string>

#include <gtest/gtest.h>

#include "QsUtils/platform/NativePath.h"

#include "tests/installation/ProbedInstallation.h"

using Answers = ProbedInstallation::Answers;

namespace {

class UserFolders : public testing::Test {
protected:
    const ProbedInstallation installation;
    const std::string work = installation.WorkFolder().string();

    std::u16string Documents(const ProbedInstallation::Environment& environment) const {
        return installation.Ask({u"documents"}, environment).at(0);
    }
    std::u16string Below(const std::string& name) const {
        return std::u16string(FromNativePath(installation.WorkFolder() / name).View()) + u"\\";
    }
};

TEST_F(UserFolders, DocumentsAreWhereTheDesktopSays) {
    installation.Write("config/user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"$HOME/我的文档//\"\n");
    const std::string config = (installation.Folder() / "config").string();
    EXPECT_EQ(Documents({{"HOME", work + "/u"}, {"XDG_CONFIG_HOME", config}}), Below("u/我的文档"));
    EXPECT_FALSE(std::filesystem::exists(installation.WorkFolder() / "u"));
}

TEST_F(UserFolders, TheUsualPlaceOfTheFileIsTheHome) {
    installation.Write(".config/user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"/data/docs\"\n");
    const std::string home = installation.Folder().string();
    EXPECT_EQ(Documents({{"HOME", home}, {"XDG_CONFIG_HOME", ""}}), u"\\data\\docs\\");
    EXPECT_EQ(Documents({{"HOME", home}, {"XDG_CONFIG_HOME", "config"}}), u"\\data\\docs\\")
        << "a relative setting doesn't count";
}

TEST_F(UserFolders, WithoutASettingDocumentsAreInTheHome) {
    EXPECT_EQ(Documents({{"HOME", work}, {"XDG_CONFIG_HOME", work}}), Below("Documents"));
    installation.Write("c/user-dirs.dirs", "XDG_DOCUMENTS_DIR=\"relative\"\n\xFF\xFE");
    EXPECT_EQ(Documents({{"HOME", work}, {"XDG_CONFIG_HOME", (installation.Folder() / "c").string()}}),
              Below("Documents"));
}

TEST_F(UserFolders, AFileThatIsNoneOrTooLargeIsPassedOver) {
    std::filesystem::create_directories(installation.Folder() / "d/user-dirs.dirs");
    EXPECT_EQ(Documents({{"HOME", work}, {"XDG_CONFIG_HOME", (installation.Folder() / "d").string()}}),
              Below("Documents"));
    installation.Write("e/user-dirs.dirs", "XDG_DOCUMENTS_DIR=/x\n" + std::string(2 << 20, '#'));
    EXPECT_EQ(Documents({{"HOME", work}, {"XDG_CONFIG_HOME", (installation.Folder() / "e").string()}}),
              Below("Documents"));
}

TEST_F(UserFolders, ARelativeHomeIsNone) {
    EXPECT_EQ(Documents({{"HOME", "home"}, {"XDG_CONFIG_HOME", ""}}), u"");
}

TEST_F(UserFolders, DocumentsThatDontFitAreNone) {
    for (const auto& [length, fits] : {std::pair{259, true}, std::pair{260, false}}) {
        const std::string folder = "/" + std::string(static_cast<std::size_t>(length) - 1, 'd');
        installation.Write("f/user-dirs.dirs", "XDG_DOCUMENTS_DIR=" + folder + "\n");
        const std::u16string answer =
            Documents({{"HOME", work}, {"XDG_CONFIG_HOME", (installation.Folder() / "f").string()}});
        EXPECT_EQ(!answer.empty(), fits);
    }
}

TEST_F(UserFolders, DocumentsAreAskedForEachTime) {
    installation.Write(".config/user-dirs.dirs", "XDG_DOCUMENTS_DIR=/one\n");
    EXPECT_EQ(installation.Ask({u"documents", u"write", u".config/user-dirs.dirs",
                                u"XDG_DOCUMENTS_DIR=/two\n", u"documents"},
                               {{"HOME", installation.Folder().string()}, {"XDG_CONFIG_HOME", ""}}),
              (Answers{u"\\one\\", u"\\two\\"}));
}

TEST_F(UserFolders, TemporaryFoldersBehindTheTwo) {
    const ProbedInstallation::Environment none = {{"TMP", ""}, {"TEMP", ""}};
    auto third = none;
    third.emplace_back("TMPDIR", work + "/t/");
    EXPECT_EQ(installation.Ask({u"temp"}, third), Answers{Below("t")});
    third.back().second = "";
    EXPECT_EQ(installation.Ask({u"temp"}, third), Answers{u"\\tmp\\"});
    EXPECT_EQ(installation.Ask({u"temp"}, {{"TMP", "/"}}), Answers{u"\\"});
    EXPECT_EQ(installation.Ask({u"temp"}, {{"TMP", "///x//y/../z///"}}), Answers{u"\\x\\z\\"});
}

TEST_F(UserFolders, ACurrentFolderThatIsGoneIsNone) {
    std::filesystem::create_directory(installation.WorkFolder() / "gone");
    // The probe removes nothing; a program that starts where nothing is any more is what this asks for.
    ProgramCall call;
    call.program = "/bin/sh";
    call.arguments = {"-c", "rmdir ../gone && exec \"$0\" current",
                      (installation.Folder() / "installation_probe").string()};
    call.folder = installation.WorkFolder() / "gone";
    const ProgramResult result = RunProgram(call);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "\n");
}

TEST_F(UserFolders, AnInstallationAtARootHasOneBackslash) {
    EXPECT_EQ(installation.Ask({u"use", u"\\", u"exe", u"folder", u"A", u"GetGroupPriceRootDirectory"}),
              (Answers{u"yes", u"\\", u"\\", u"\\Library\\组价库\\"}));
}

}  // namespace
