// The configuration files beside an executable and beside its libraries, in processes of their own.
#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/platform/CodePage.h"
#include "QsUtils/platform/NativePath.h"
#include "QsUtils/platform/Utf8.h"

#include "tests/installation/ProbedInstallation.h"

using Answers = ProbedInstallation::Answers;
using Texts = std::vector<std::u16string>;

namespace {

constexpr const char* CostFile =
    "<r><Overheight><Value Name=\"20m\"/><Value Name=\"30m\"/></Overheight><ExtraCostType>"
    "<Type Name=\"gao\" Coefficient=\"子目系数\"/><Type Name=\"xiu\" Coefficient=\"工程系数\"/>"
    "<Type Name=\"ye\" Coefficient=\"综合系数\"/><Type Name=\"number\" Coefficient=\"1.05\"/>"
    "<Type Name=\"none\"/></ExtraCostType></r>";

/// A companion and a family F with the section S and the item I, whose folder is `lib/13`.
class CostLibraries : public ProbedInstallation {
public:
    explicit CostLibraries(const char* companion = "Nothing") {
        Write("DirectoryConfig.xml",
              "<r><ProjectDirectory><DirectoryItem Code=\"LibVisitor\" RelativePath=\"Visitor\"/>"
              "</ProjectDirectory></r>");
        std::filesystem::create_directories(Folder() / "Visitor");
        std::filesystem::copy_file(
            std::filesystem::path(INSTALLATION_COMPANIONS) / companion / INSTALLATION_COMPANION,
            Folder() / "Visitor" / INSTALLATION_COMPANION);
        std::filesystem::create_directories(Folder() / "lib/1/S");
        std::filesystem::create_directories(Folder() / "lib/7/I");
    }

    /// The answers without what the companion was asked.
    Answers AskIt(const Texts& commands) const {
        Answers answers = AskAll(commands);
        std::erase_if(answers, [](const std::u16string& line) { return line.starts_with(u"> "); });
        return answers;
    }
    Answers AskAll(const Texts& commands) const {
        const CString root = FromNativePath(Folder()) + u"\\lib\\";
        return Ask(commands, {{"COMPANION_ROOT", std::string(root.View().begin(), root.View().end())}});
    }
};

TEST(ExtraCosts, TheRoadOfARequest) {
    const CostLibraries libraries;
    libraries.Write("lib/13/k.mdb", "");
    libraries.Write("lib/13/k.ec", CostFile);
    EXPECT_EQ(libraries.AskIt({u"kind",   u"k.mdb",   u"gao",     u"F",       u"kind",  u"k.mdb", u"xiu",
                               u"F",      u"kind",    u"k.mdb",   u"ye",      u"F",     u"kind",  u"k.mdb",
                               u"number", u"F",       u"kind",    u"k.mdb",   u"none",  u"F",     u"kind",
                               u"k.mdb",  u"unknown", u"F",       u"options", u"k.mdb", u"F",     u"types",
                               u"k.mdb",  u"",        u"take-up", u"k.mdb",   u"F"}),
              (Answers{u"1", u"2", u"3", u"0", u"0", u"0", u"20m|30m",
                       u"gao=子目系数|none=|number=1.05|xiu=工程系数|ye=综合系数", u"yes"}));
}

TEST(ExtraCosts, ALaterQuestionAsksNobody) {
    const CostLibraries libraries;
    libraries.Write("lib/13/k.mdb", "");
    libraries.Write("lib/13/k.ec", CostFile);
    const Answers once = libraries.AskAll({u"kind", u"k.mdb", u"gao", u"F"});
    Answers twice = libraries.AskAll({u"kind", u"k.mdb", u"gao", u"F", u"write", u"lib/13/k.ec", u"<r/>",
                                      u"kind", u"k.mdb", u"xiu", u"F", u"options", u"k.mdb", u"other"});
    ASSERT_GT(twice.size(), 3u);
    EXPECT_EQ(std::count(twice.begin(), twice.end(), u"2"), 1);
    EXPECT_EQ(std::count(twice.begin(), twice.end(), u"20m|30m"), 1);
    std::erase(twice, u"2");
    std::erase(twice, u"20m|30m");
    EXPECT_EQ(twice, once);
}

TEST(ExtraCosts, ACompanionMayAskTheReaderWhileItIsAsked) {
    const CostLibraries libraries("AsksBack");
    libraries.Write("lib/13/k.mdb", "");
    libraries.Write("lib/13/k.ec", CostFile);
    for (const Texts& question :
         {Texts{u"options", u"k.mdb", u"F"}, Texts{u"types", u"k.mdb", u"F"},
          Texts{u"take-up", u"k.mdb", u"F"}, Texts{u"kind", u"k.mdb", u"xiu", u"F"}}) {
        const Answers answers = libraries.AskAll(question);
        EXPECT_NE(std::find(answers.begin(), answers.end(), u"> asked back: written [] 2"), answers.end());
    }
    EXPECT_EQ(libraries.AskIt(
                  {u"options", u"k.mdb", u"F", u"kind", u"k.mdb", u"xiu", u"F", u"history", u"companion"}),
              (Answers{u"20m|30m", u"2", u"written"}));
}

TEST(ExtraCosts, WhatIsMissingGivesNothing) {
    const CostLibraries libraries;
    libraries.Write("lib/13/alone.mdb", "");
    libraries.Write("lib/13/nopoint", "");
    libraries.Write("lib/13/x.ec", CostFile);
    for (const char16_t* library : {u"", u"alone.mdb", u"nopoint", u"missing.mdb", u"x.mdb"})
        EXPECT_EQ(libraries.AskIt({u"take-up", library, u"F", u"options", library, u"F", u"types", library,
                                   u"F", u"kind", library, u"gao", u"F"}),
                  (Answers{u"no", u"null", u"null", u"0"}))
            << CString(library);
    EXPECT_EQ(libraries.AskIt({u"take-up", u"x.ec", u"", u"take-up", u"x.ec", u"F"}),
              (Answers{u"no", u"yes"}));
}

TEST(ExtraCosts, AFileThatComesLaterIsFound) {
    const CostLibraries libraries;
    libraries.Write("lib/13/k.mdb", "");
    EXPECT_EQ(
        libraries.AskIt({u"options", u"k.mdb", u"F", u"write", u"lib/13/k.ec",
                         u"<r><Overheight><Value Name='x'/></Overheight></r>", u"options", u"k.mdb", u"F"}),
        (Answers{u"null", u"x"}));
}

TEST(ExtraCosts, ASecondLibraryOfOneFileHasNoEntries) {
    const CostLibraries libraries;
    libraries.Write("lib/13/k.mdb", "");
    libraries.Write("lib/13/k.lib", "");
    libraries.Write("lib/13/k.ec", CostFile);
    EXPECT_EQ(
        libraries.AskIt({u"take-up", u"k.mdb", u"F",     u"take-up", u"k.lib", u"F",     u"options", u"k.lib",
                         u"F",       u"types", u"k.lib", u"F",       u"kind",  u"k.lib", u"gao",     u"F",
                         u"take-up", u"k.lib", u"F",     u"options", u"k.mdb", u""}),
        (Answers{u"yes", u"yes", u"null", u"null", u"0", u"yes", u"20m|30m"}));
}

TEST(ExtraCosts, AnUnparsableFileGivesNoEntries) {
    const CostLibraries libraries;
    libraries.Write("lib/13/k.mdb", "");
    libraries.Write("lib/13/k.ec", "<r>");
    EXPECT_EQ(libraries.AskIt({u"take-up", u"k.mdb", u"F", u"options", u"k.mdb", u"F", u"types", u"k.mdb",
                               u"F", u"kind", u"k.mdb", u"gao", u"F"}),
              (Answers{u"yes", u"null", u"null", u"0"}));
    // It has been taken up: what becomes of it later isn't seen.
    EXPECT_EQ(libraries.AskIt({u"take-up", u"k.mdb", u"F", u"write", u"lib/13/k.ec", u"<r/>", u"options",
                               u"k.mdb", u"F"}),
              (Answers{u"yes", u"null"}));
}

TEST(ExtraCosts, AnEmptyFileGivesEmptyEntries) {
    const CostLibraries libraries;
    libraries.Write("lib/13/k.mdb", "");
    libraries.Write("lib/13/k.ec", "<r/>");
    EXPECT_EQ(
        libraries.AskIt({u"take-up", u"k.mdb", u"F", u"options", u"k.mdb", u"F", u"types", u"k.mdb", u"F"}),
        (Answers{u"yes", u"", u""}));
}

TEST(ExtraCosts, ALibraryThatWasFoundByPathNeedsNoManager) {
    const ProbedInstallation installation;
    installation.Write("a/k.mdb", "");
    installation.Write("a/k.ec", CostFile);
    EXPECT_EQ(installation.Ask({u"take-up", u"k.mdb", u"F", u"find-kept", u"a\\", u"k.mdb", u"", u"options",
                                u"k.mdb", u""}),
              (Answers{u"no", u"a\\k.mdb", u"20m|30m"}));
}

TEST(ExtraCosts, ASecondLibraryOfOneFileThatWasFoundByPathHasNoneEither) {
    const ProbedInstallation installation;
    installation.Write("a/k.mdb", "");
    installation.Write("a/k.lib", "");
    installation.Write("a/k.ec", CostFile);
    EXPECT_EQ(
        installation.Ask({u"find-kept", u"a\\",     u"k.mdb", u"",        u"find-kept", u"a\\",   u"k.lib",
                          u"",          u"take-up", u"k.mdb", u"F",       u"take-up",   u"k.lib", u"",
                          u"options",   u"k.lib",   u"F",     u"types",   u"k.lib",     u"",      u"kind",
                          u"k.lib",     u"gao",     u"F",     u"options", u"k.mdb",     u""}),
        (Answers{u"a\\k.mdb", u"a\\k.lib", u"yes", u"yes", u"null", u"null", u"0", u"20m|30m"}));
}

TEST(ExtraCosts, TheLaterFindOfANameCounts) {
    const ProbedInstallation installation;
    for (const std::string& folder : {std::string("a"), std::string("b")}) {
        installation.Write(folder + "/k.mdb", "");
        installation.Write(folder + "/k.ec",
                           "<r><Overheight><Value Name='" + folder + "'/></Overheight></r>");
    }
    EXPECT_EQ(installation.Ask({u"find-kept", u"a\\",     u"k.mdb", u"", u"find-kept", u"b\\",   u"k.mdb",
                                u"",          u"options", u"k.mdb", u"", u"find-kept", u"a\\",   u"k.mdb",
                                u"",          u"take-up", u"k.mdb", u"", u"options",   u"k.mdb", u""}),
              (Answers{u"a\\k.mdb", u"b\\k.mdb", u"b", u"a\\k.mdb", u"yes", u"b"}))
        << "a find out of the memory changes nothing";
    EXPECT_EQ(installation.Ask({u"find-kept", u"a\\",   u"k.mdb", u"",        u"options", u"k.mdb", u"",
                                u"find-kept", u"b\\",   u"k.mdb", u"",        u"options", u"k.mdb", u"",
                                u"take-up",   u"k.mdb", u"",      u"options", u"k.mdb",   u""}),
              (Answers{u"a\\k.mdb", u"a", u"b\\k.mdb", u"a", u"yes", u"b"}))
        << "another place fills the entries anew";
}

// --- The overview

TEST(Overview, FieldsComeFromTheFileBesideTheProgram) {
    const ProbedInstallation installation;
    EXPECT_EQ(installation.Ask({u"fields"}), (Answers{u""}));
    installation.Write("FieldChoose.cos",
                       "<r><f Code='a' BelongType='工程信息'/><f Code='b' BelongType='其他信息'/>"
                       "<f Code='c' BelongType='工程概况'/></r>");
    EXPECT_EQ(installation.Ask({u"fields", u"write", u"FieldChoose.cos", u"<r/>", u"fields"}),
              (Answers{u"a1|c3", u"a1|c3"}));
}

TEST(Overview, AFieldIsAddedToAProject) {
    const ProbedInstallation installation;
    installation.Write("p.xml", "<p/>");
    EXPECT_EQ(installation.Ask({u"fields-of", u"p.xml", u"add-fields", u"p.xml", u"a", u"add-fields",
                                u"p.xml", u"b", u"fields-of", u"p.xml", u"fields-of", u"none.xml"}),
              (Answers{u"", u"yes", u"yes", u"a1", u""}));
}

TEST(Overview, WhyAProjectCantBeOpenedIsShown) {
    const ProbedInstallation installation;
    installation.Write("p.xml", "<p>");
    const ProgramResult result = installation.Run({"add-fields", "p.xml", "a"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out.substr(0, 2), "no");
    EXPECT_NE(result.err.find("解析Xml文档失败:"), std::string::npos) << result.err;
    EXPECT_EQ(installation.Read("p.xml"), "<p>");
}

TEST(Overview, WhatIsShownIsWhatTheToolTells) {
    const ProbedInstallation installation;
    installation.Write("p.xml", "<p>");
    installation.Write("q.xml", "<p a='1' a='2'/>");
    for (const char16_t* file : {u"p.xml", u"q.xml", u"none.xml"}) {
        const Answers told = installation.Ask({u"error-of", file});
        ASSERT_EQ(told.size(), 1u);
        ASSERT_NE(told[0], u"");
        ProgramResult result = installation.Run({"add-fields", Escaped(file), "a"});
        std::erase(result.err, '\r');
        std::string shown = QsPlatform::EncodeUtf8(told[0]);
        std::erase(shown, '\r');
        EXPECT_NE(("\n" + result.err).find("\n" + shown + "\n"), std::string::npos)
            << result.err << "instead of " << shown;
    }
}

// --- The history

TEST(History, ANewProcessSeesNineOfTen) {
    const ProbedInstallation installation;
    Texts commands;
    for (char16_t value = u'a'; value <= u'k'; ++value)
        commands.insert(commands.end(), {u"remember", u"名称", std::u16string(1, value)});
    commands.insert(commands.end(), {u"history", u"名称"});
    EXPECT_EQ(installation.Ask(commands), (Answers{u"k|j|i|h|g|f|e|d|c|b"}));
    EXPECT_EQ(installation.Ask({u"history", u"名称", u"history", u"其他"}),
              (Answers{u"k|j|i|h|g|f|e|d|c", u""}));
    EXPECT_TRUE(installation.Read("HistoryInput.ini")
                    .starts_with(QsPlatform::EncodeAnsi(std::u16string_view(u"[名称]\r\n1=k\r\n2=j\r\n"))));
}

// --- Marks

constexpr const char* Marks =
    "<r><QdMode><MesureItem><m Code='1' Name='%'/><m Code='1' Name='b'/></MesureItem><FeeTax><m Code='2' "
    "Name='t'/></FeeTax><FeeSummary><m Name='s'/></FeeSummary><OtherItemSummary><m Name='o'/>"
    "</OtherItemSummary><OtherItemPJTemPrice><m Name='p'/></OtherItemPJTemPrice></QdMode></r>";

std::string MarksWith(char name) {
    std::string marks = Marks;
    marks[marks.find('%')] = name;
    return marks;
}

TEST(Marks, TheFolderOfTheTemplatesGoesBeforeTheConfigFolder) {
    const ProbedInstallation installation;
    installation.Write("DirectoryConfig.xml",
                       "<r><ProjectDirectory><DirectoryItem Code=\"BidTenderFileTemplateDirectory\" "
                       "RelativePath=\"Tender\"/></ProjectDirectory></r>");
    const Texts question = {u"marks", u"上海", u"bill", u"MesureItem"};
    EXPECT_EQ(installation.Ask(question), (Answers{u""}));
    installation.Write("Config/MarkConfig.xml", MarksWith('c'));
    EXPECT_EQ(installation.Ask(question), (Answers{u"c|b"}));
    installation.Write("Tender/上海/MarkConfig.xml", MarksWith('t'));
    EXPECT_EQ(installation.Ask(question), (Answers{u"t|b"}));
    EXPECT_EQ(installation.Ask(
                  {u"marks", u"北京", u"bill", u"MesureItem", u"marks", u"上海", u"bill", u"MesureItem"}),
              (Answers{u"c|b", u"c|b"}));
    installation.Write("Tender/上海/MarkConfig.xml", "no XML");
    EXPECT_EQ(installation.Ask(question), (Answers{u""})) << "it hides the other one all the same";
}

TEST(Marks, TheMapKeepsTheFirstOfACode) {
    const ProbedInstallation installation;
    installation.Write("Config/MarkConfig.xml", MarksWith('a'));
    EXPECT_EQ(installation.Ask({u"mark-map", u"", u"bill", u"MesureItem", u"mark-map", u"", u"quota",
                                u"FeeTax", u"mark-map", u"", u"bill", u"feetax"}),
              (Answers{u"1=a", u"2=t", u""}));
}

}  // namespace
