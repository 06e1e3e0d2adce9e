// The folders of an installation: what the system gives, and what DirectoryConfig.xml chooses.
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/platform/NativePath.h"

#include "tests/installation/ProbedInstallation.h"

using Answers = ProbedInstallation::Answers;

namespace {

constexpr const char* File = "DirectoryConfig.xml";

CString WithBackslash(std::filesystem::path folder) {
    return FromNativePath(folder.make_preferred()).TrimRight(u'\\') + u'\\';
}

std::u16string Beside(const ProbedInstallation& installation, std::u16string_view relative = {}) {
    return std::u16string(WithBackslash(installation.Folder()).View()) + std::u16string(relative);
}

/// A file whose section holds these items.
std::string Config(std::string_view items) {
    return "<DirectoryConfig><ProjectDirectory>" + std::string(items) +
           "</ProjectDirectory></DirectoryConfig>";
}

/// What a file makes of code "A", below the executable's folder; nothing for the folder itself.
std::u16string FolderOfA(std::string_view file) {
    const ProbedInstallation installation;
    installation.Write(File, file);
    const std::u16string folder = installation.Ask({u"folder", u"A"}).at(0);
    const std::u16string beside = Beside(installation);
    EXPECT_TRUE(folder.starts_with(beside));
    return folder.substr(beside.size());
}

// --- Folders of the system

TEST(CommonFolders, TheExecutablesFolderIsThatOfTheHost) {
    const ProbedInstallation installation("造价 100%/计价软件 #1");
    EXPECT_EQ(installation.Ask({u"exe", u"exe"}), (Answers{Beside(installation), Beside(installation)}));
}

TEST(CommonFolders, TheExecutablesFolderStaysTheSameWhereverTheProcessGoes) {
    const ProbedInstallation installation;
    const std::u16string other(FromNativePath(installation.Folder()).View());
    EXPECT_EQ(installation.Ask({u"exe", u"chdir", other, u"exe"}),
              (Answers{Beside(installation), Beside(installation)}));
}

TEST(CommonFolders, AnExecutableBelowALongPathHasNoFolder) {
    const std::string part(90, 'p');
    const ProbedInstallation installation(part + "/" + part + "/" + part);
    if (!installation.Run({}).isStarted)
        GTEST_SKIP() << "this system starts no program whose path is that long";
    EXPECT_EQ(installation.Ask({u"exe", u"folder", u"A", u"GetGroupPriceRootDirectory"}),
              (Answers{u"", u"", u"Library\\组价库\\"}));
}

TEST(CommonFolders, TheTemporaryFolderIsAskedForOnce) {
    const ProbedInstallation installation;
    const std::u16string other(FromNativePath(installation.WorkFolder()).View());
    const Answers answers =
        installation.Ask({u"temp", u"set", u"TMP=" + other, u"set", u"TEMP=" + other, u"temp"});
    ASSERT_EQ(answers.size(), 2U);
    EXPECT_EQ(answers[0], answers[1]);
    EXPECT_NE(installation.Ask({u"set", u"TMP=" + other, u"temp"}).at(0), answers[0]);
}

TEST(CommonFolders, TheCurrentFolderIsAskedForEachTime) {
    const ProbedInstallation installation;
    const std::u16string program(FromNativePath(installation.Folder()).View());
    const std::u16string work(WithBackslash(installation.WorkFolder()).View());
    EXPECT_EQ(installation.Ask({u"current", u"chdir", program, u"current", u"chdir", u"..", u"current"}),
              (Answers{work, Beside(installation), work}));
}

TEST(CommonFolders, ARootHasOneBackslash) {
    const ProbedInstallation installation;
    const CString root = FromNativePath(installation.Folder().root_path());
    ASSERT_EQ(root.Right(1), u"\\");
    EXPECT_EQ(installation.Ask({u"chdir", std::u16string(root.View()), u"current"}),
              Answers{std::u16string(root.View())});
}

TEST(CommonFolders, ALongCurrentFolderIsNone) {
    const ProbedInstallation installation;
    const auto longFolder = installation.WorkFolder() / std::string(200, 'l') / std::string(100, 'm');
    std::error_code error;
    std::filesystem::create_directories(longFolder, error);
    if (error)
        GTEST_SKIP() << "this system makes no such folder";
    // One after the other: no single call takes so long a path everywhere.
    const Answers answers =
        installation.Ask({u"chdir", std::u16string(200, u'l'), u"current", u"chdir",
                          std::u16string(100, u'm'), u"current", u"chdir", u"..", u"current"});
    EXPECT_EQ(answers[1], u"");
    EXPECT_EQ(answers[0], answers[2]);
}

TEST(CommonFolders, TemporaryFolders) {
    const ProbedInstallation installation;
    const std::string one = (installation.WorkFolder() / "one").string();
    const std::string two = (installation.WorkFolder() / "two").string();
    const std::u16string work(WithBackslash(installation.WorkFolder()).View());
    // None of them exists.
    EXPECT_EQ(installation.Ask({u"temp"}, {{"TMP", one}, {"TEMP", two}}), Answers{work + u"one\\"});
    EXPECT_EQ(installation.Ask({u"temp"}, {{"TMP", one + "/"}, {"TEMP", two}}), Answers{work + u"one\\"});
    EXPECT_EQ(installation.Ask({u"temp"}, {{"TMP", ""}, {"TEMP", two}}), Answers{work + u"two\\"});
    EXPECT_EQ(installation.Ask({u"temp"}, {{"TMP", "relative"}, {"TEMP", two}}),
              Answers{work + u"relative\\"});
}

TEST(CommonFolders, ATemporaryFolderThatDoesntFitIsALoneBackslash) {
    const ProbedInstallation installation;
    const std::string root = installation.WorkFolder().root_path().string();
    const auto ask = [&](std::size_t length) {
        const std::string folder = root + std::string(length - root.size(), 't');
        return installation.Ask({u"temp"}, {{"TMP", folder}, {"TEMP", root}}).at(0);
    };
    EXPECT_EQ(ask(258).size(), 259u);
    EXPECT_EQ(ask(259), u"\\");
    EXPECT_EQ(ask(300), u"\\");
}

TEST(CommonFolders, TheDocumentsHaveOneBackslashOrAreNone) {
    const ProbedInstallation installation;
    const std::u16string folder = installation.Ask({u"documents"}).at(0);
    if (!folder.empty()) {
        EXPECT_TRUE(folder.ends_with(u'\\'));
        EXPECT_FALSE(folder.ends_with(u"\\\\"));
    }
}

// --- Folders of DirectoryConfig.xml

TEST(ProjectFolders, EachGetterAsksForItsCode) {
    const std::vector<std::u16string> codes = {u"ProjectTemplateDirectory",
                                               u"TemplateDirectory",
                                               u"ConfigDirectory",
                                               u"TempFileDirectory",
                                               u"HelpDirectory",
                                               u"ProjectFileDirectory",
                                               u"ProgramTemplateDirectory",
                                               u"ReportDirectory",
                                               u"ReportTemplateDirectory",
                                               u"BidTenderFileTemplateDirectory",
                                               u"GraphSetDirectory",
                                               u"SoftNetDirectory",
                                               u"LibVisitor",
                                               u"FyhzTemplateDirectory",
                                               u"GfsjTemplateDirectory",
                                               u"CsxmTemplateDirectory",
                                               u"DjzcTemplateDirectory",
                                               u"LibraryDirectory",
                                               u"LogDirectory"};
    const ProbedInstallation installation;
    std::string items;
    Answers expected;
    std::vector<std::u16string> commands;
    for (const std::u16string& code : codes) {
        const std::string narrow(code.begin(), code.end());
        items += "<DirectoryItem Code=\"" + narrow + "\" RelativePath=\"of " + narrow + "\"/>";
        expected.push_back(Beside(installation, u"of " + code + u"\\"));
        commands.insert(commands.end(), {u"folder", code});
    }
    installation.Write(File, Config(items));
    EXPECT_EQ(installation.Ask({u"folders"}), expected);
    EXPECT_EQ(installation.Ask(commands), expected);
}

TEST(ProjectFolders, AnUnknownCodeIsTheExecutablesFolder) {
    const ProbedInstallation installation;
    installation.Write(File, Config("<DirectoryItem Code=\"ReportDirectory\" RelativePath=\"Report\"/>"));
    EXPECT_EQ(installation.Ask({u"folder", u"ReportDirectory", u"folder", u"reportdirectory", u"folder", u"",
                                u"folder", u"ReportDirectory ", u"folder", u"Report"}),
              (Answers{Beside(installation, u"Report\\"), Beside(installation), Beside(installation),
                       Beside(installation), Beside(installation)}));
}

struct Case {
    const char* what;
    const char* items;
    const char16_t* folder;
};

TEST(ProjectFolders, PathsAreTakenAsTheyStand) {
    const Case cases[] = {
        {"plain", R"(<DirectoryItem Code="A" RelativePath="Report"/>)", u"Report\\"},
        {"one backslash", R"(<DirectoryItem Code="A" RelativePath="Report\"/>)", u"Report\\"},
        {"several", R"(<DirectoryItem Code="A" RelativePath="Report\\\"/>)", u"Report\\"},
        {"inner ones stay", R"(<DirectoryItem Code="A" RelativePath="a\\b\c\"/>)", u"a\\\\b\\c\\"},
        {"slash", R"(<DirectoryItem Code="A" RelativePath="Report/"/>)", u"Report/\\"},
        {"parent", R"(<DirectoryItem Code="A" RelativePath="..\Report"/>)", u"..\\Report\\"},
        {"rooted", R"(<DirectoryItem Code="A" RelativePath="\Report"/>)", u"\\Report\\"},
        {"drive", R"(<DirectoryItem Code="A" RelativePath="D:\Report"/>)", u"D:\\Report\\"},
        {"blanks", R"(<DirectoryItem Code="A" RelativePath=" Report "/>)", u" Report \\"},
        {"Chinese", "<DirectoryItem Code=\"A\" RelativePath=\"\xE6\x8A\xA5\xE8\xA1\xA8\"/>", u"报表\\"},
        {"empty", R"(<DirectoryItem Code="A" RelativePath=""/>)", u"\\"},
        {"absent", R"(<DirectoryItem Code="A"/>)", u"\\"},
        {"only backslashes", R"(<DirectoryItem Code="A" RelativePath="\\\"/>)", u"\\"},
        {"other case", R"(<DirectoryItem Code="A" relativepath="x"/>)", u"\\"},
    };
    for (const Case& each : cases)
        EXPECT_EQ(FolderOfA(Config(each.items)), each.folder) << each.what;
}

TEST(ProjectFolders, WhatIsAnItem) {
    const Case cases[] = {
        {"the first of a code", R"(<DirectoryItem Code="A" RelativePath="1"/>
            <DirectoryItem Code="A" RelativePath="2"/>)",
         u"1\\"},
        {"also without a path", R"(<DirectoryItem Code="A"/><DirectoryItem Code="A" RelativePath="2"/>)",
         u"\\"},
        {"not without a code",
         R"(<DirectoryItem RelativePath="1"/><DirectoryItem Code="A" RelativePath="2"/>)", u"2\\"},
        {"not under another name",
         R"(<directoryitem Code="A" RelativePath="1"/><Item Code="A" RelativePath="1"/>
            <DirectoryItems Code="A" RelativePath="1"/><DirectoryItem Code="A" RelativePath="2"/>)",
         u"2\\"},
        {"not deeper",
         R"(<DirectoryItem Code="B"><DirectoryItem Code="A" RelativePath="1"/></DirectoryItem>)", u""},
        {"texts and other attributes don't count",
         R"(text<DirectoryItem Name="x" Code="A" Extra="" RelativePath="1">Code="A"</DirectoryItem>)",
         u"1\\"},
        {"comments don't count", R"(<!--<DirectoryItem Code="A" RelativePath="1"/>-->)", u""},
    };
    for (const Case& each : cases)
        EXPECT_EQ(FolderOfA(Config(each.items)), each.folder) << each.what;
}

TEST(ProjectFolders, WhatIsTheSection) {
    constexpr const char* item = R"(<DirectoryItem Code="A" RelativePath="1"/>)";
    const auto in = [&](const std::string& before, const std::string& after) {
        return FolderOfA(before + item + after);
    };
    EXPECT_EQ(in("<Any><ProjectDirectory>", "</ProjectDirectory></Any>"), u"1\\");
    EXPECT_EQ(in("<r><Other/>text<ProjectDirectory>", "</ProjectDirectory></r>"), u"1\\");
    EXPECT_EQ(in("<r><ProjectDirectory/><ProjectDirectory>", "</ProjectDirectory></r>"), u"");
    EXPECT_EQ(in("<r><projectdirectory>", "</projectdirectory></r>"), u"");
    EXPECT_EQ(in("<r><x><ProjectDirectory>", "</ProjectDirectory></x></r>"), u"");
    EXPECT_EQ(in("<ProjectDirectory>", "</ProjectDirectory>"), u"");
    EXPECT_EQ(in("<r>", "</r>"), u"");
    EXPECT_EQ(in("<ProjectDirectory><ProjectDirectory>", "</ProjectDirectory></ProjectDirectory>"), u"1\\");
}

TEST(ProjectFolders, WithoutAGoodFileEveryCodeIsUnknown) {
    const ProbedInstallation installation;
    EXPECT_EQ(installation.Ask({u"folder", u"A", u"folders"}), Answers(20, Beside(installation)));
    for (const char* contents :
         {"", "no XML", "<r>", "<r><ProjectDirectory><DirectoryItem Code=\"A\" RelativePath=\"1\"/></r>",
          "<r><ProjectDirectory><DirectoryItem Code=\"A\" Code=\"A\" "
          "RelativePath=\"1\"/></ProjectDirectory></r>",
          "<r><ProjectDirectory><DirectoryItem Code=\"A\" RelativePath=\"1\"/></ProjectDirectory></r>x",
          "<r><ProjectDirectory><DirectoryItem Code=\"A\" RelativePath=\"\xFF\"/></ProjectDirectory></r>"})
        EXPECT_EQ(FolderOfA(contents), u"") << contents;
}

TEST(ProjectFolders, AFileThatIsAFolderIsNone) {
    const ProbedInstallation installation;
    std::filesystem::create_directory(installation.Folder() / File);
    EXPECT_EQ(installation.Ask({u"folder", u"A"}), Answers{Beside(installation)});
}

TEST(ProjectFolders, FilesInTheCodePage) {
    EXPECT_EQ(FolderOfA("<?xml version=\"1.0\" encoding=\"GBK\"?>" +
                        Config("<DirectoryItem Code=\"A\" RelativePath=\"\xB1\xA8\xB1\xED\"/>")),
              u"报表\\");
}

TEST(ProjectFolders, ManyItems) {
    std::string items;
    for (int i = 0; i < 20'000; ++i)
        items +=
            "<DirectoryItem Code=\"A" + std::to_string(i) + "\" RelativePath=\"" + std::to_string(i) + "\"/>";
    const ProbedInstallation installation;
    installation.Write(File, Config(items));
    EXPECT_EQ(installation.Ask({u"folder", u"A19999", u"folder", u"A0"}),
              (Answers{Beside(installation, u"19999\\"), Beside(installation, u"0\\")}));
}

TEST(ProjectFolders, TheFileIsReadOnceAtTheFirstLookup) {
    const ProbedInstallation installation;
    const auto config = [](const char* path) {
        const std::string text =
            Config("<DirectoryItem Code=\"A\" RelativePath=\"" + std::string(path) + "\"/>");
        return std::u16string(text.begin(), text.end());
    };
    EXPECT_EQ(
        installation.Ask({u"exe", u"write", u"DirectoryConfig.xml", config("old"), u"folder", u"A", u"write",
                          u"DirectoryConfig.xml", config("new"), u"folder", u"A"}),
        (Answers{Beside(installation), Beside(installation, u"old\\"), Beside(installation, u"old\\")}));
    EXPECT_EQ(installation.Ask({u"folder", u"A"}), Answers{Beside(installation, u"new\\")});
}

TEST(ProjectFolders, AFileThatComesAfterTheFirstLookupIsNotRead) {
    const ProbedInstallation installation;
    EXPECT_EQ(installation.Ask({u"folder", u"A", u"write", u"DirectoryConfig.xml",
                                u"<r><ProjectDirectory><DirectoryItem Code=\"A\" RelativePath=\"1\"/>"
                                u"</ProjectDirectory></r>",
                                u"folder", u"A"}),
              (Answers{Beside(installation), Beside(installation)}));
}

// --- A named installation

TEST(NamedInstallation, ItTakesThePlaceOfTheExecutablesFolder) {
    const ProbedInstallation installation;
    installation.Write("other/DirectoryConfig.xml", Config("<DirectoryItem Code=\"A\" RelativePath=\"1\"/>"));
    installation.Write("other/MajorCode.ini", "[MajorToCode]\r\nX=of the other\r\n");
    installation.Write("other/GB50500-2008.xml", "<r><u unit=\"m\" decimal=\"7\"/></r>");
    installation.Write("MajorCode.ini", "[MajorToCode]\r\nX=beside\r\n");
    const std::u16string other = Beside(installation, u"other");
    const Answers expected = {u"yes",          other + u"\\", other + u"\\1\\",
                              u"of the other", u"7",          other + u"\\Library\\组价库\\"};
    for (const std::u16string& spelling :
         {other, other + u"\\", other + u"\\\\", other + u"\\x\\..", u".\\bin\\other" + std::u16string()})
        EXPECT_EQ(installation.Ask({u"use", spelling, u"exe", u"folder", u"A", u"code", u"X", u"decimals",
                                    u"m", u"GetGroupPriceRootDirectory"}),
                  expected);
}

TEST(NamedInstallation, ARelativeOneStaysWhereItWas) {
    const ProbedInstallation installation;
    installation.Write("other/x", "");
    EXPECT_EQ(installation.Ask({u"use", u"bin\\other", u"chdir", u"bin", u"exe"}),
              (Answers{u"yes", Beside(installation, u"other\\")}));
}

TEST(NamedInstallation, WhatIsNoFolderChangesNothing) {
    const ProbedInstallation installation;
    installation.Write("file", "");
    const std::u16string beside = Beside(installation);
    EXPECT_EQ(installation.Ask({u"use", u"", u"use", beside + u"missing", u"use", beside + u"file", u"use",
                                beside + u"other\u0000", u"use", std::u16string(400, u'x'), u"exe"}),
              (Answers{u"no", u"no", u"no", u"no", u"no", beside}));
}

TEST(NamedInstallation, TheLastOneBeforeTheFirstUseCounts) {
    const ProbedInstallation installation;
    installation.Write("one/x", "");
    installation.Write("two/x", "");
    EXPECT_EQ(installation.Ask({u"use", u"bin\\one", u"use", u"bin\\two", u"use", u"bin\\missing", u"exe",
                                u"use", u"bin\\one", u"exe"}),
              (Answers{u"yes", u"yes", u"no", Beside(installation, u"two\\"), u"yes",
                       Beside(installation, u"two\\")}));
}

TEST(NamedInstallation, AFolderThatDoesntFitIsRefused) {
    const ProbedInstallation installation;
    const std::size_t used = Beside(installation).size();
    for (const auto& [length, answer] : {std::pair{259, u"yes"}, std::pair{260, u"no"}}) {
        // The text with its backslash has that length.
        const std::string name(static_cast<std::size_t>(length) - used - 1, 'n');
        const std::filesystem::path folder = installation.Folder() / name;
        std::error_code error;
        std::filesystem::create_directory(folder, error);
        if (error)
            GTEST_SKIP() << "this system makes no such folder";
        EXPECT_EQ(installation.Ask({u"use", Beside(installation, std::u16string(name.begin(), name.end()))}),
                  Answers{answer});
    }
}

}  // namespace
