// The companion as the library loads, asks and ends it. What it is asked stands between the answers, in
// order.
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/platform/NativePath.h"

#include "tests/installation/ProbedInstallation.h"

using Answers = ProbedInstallation::Answers;
using Texts = std::vector<std::u16string>;

namespace {

/// An installation with a companion that answers paths below `lib`.
class Libraries : public ProbedInstallation {
public:
    /// `without` is the export that the companion lacks; "Nothing" for a whole one.
    explicit Libraries(const char* without = "Nothing") {
        Write("DirectoryConfig.xml",
              "<r><ProjectDirectory><DirectoryItem Code=\"LibVisitor\" "
              "RelativePath=\"Visitor\"/></ProjectDirectory></r>");
        std::filesystem::create_directory(Folder() / "Visitor");
        std::filesystem::copy_file(
            std::filesystem::path(INSTALLATION_COMPANIONS) / without / INSTALLATION_COMPANION,
            Folder() / "Visitor" / INSTALLATION_COMPANION);
        m_root = std::u16string(FromNativePath(Folder()).View()) + u"\\lib\\";
    }

    /// The folder of a path kind.
    std::u16string Kind(int kind) const {
        const std::string digits = std::to_string(kind);
        return m_root + std::u16string(digits.begin(), digits.end()) + u"\\";
    }
    std::u16string Beside(std::u16string_view name) const {
        return std::u16string(FromNativePath(Folder()).View()) + u"\\" + std::u16string(name);
    }

    Answers AskIt(const Texts& commands) const {
        return Ask(commands, {{"COMPANION_ROOT", std::string(m_root.begin(), m_root.end())}});
    }

    /// The first lines of every process that calls the companion.
    Texts Loaded() const {
        return {u"> InitializationSupportProduct 1 [" + Beside(u"Visitor\\") + u"]",
                u"> GetLibraryDirectoryVisitor"};
    }
    Texts LoadedThen(const Texts& lines) const {
        Texts all = Loaded();
        all.insert(all.end(), lines.begin(), lines.end());
        return all;
    }

private:
    std::u16string m_root;
};

const std::u16string End = u"> the companion ends";

Texts operator+(Texts a, const Texts& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

TEST(Companion, ItIsLoadedPreparedAskedAndEnded) {
    const Libraries libraries;
    EXPECT_EQ(libraries.AskIt({u"GetFamilyDirectory", u"F", u"", u""}),
              libraries.LoadedThen({u"> GetLibraryPath 1 [F][][][]", libraries.Kind(1), End}));
}

TEST(Companion, NothingIsLoadedBeforeItIsNeeded) {
    const Libraries libraries;
    EXPECT_EQ(libraries.AskIt({u"exe", u"GetGroupPriceRootDirectory", u"GetGroupPriceDirectory", u"建筑",
                               u"GetGroupPriceDirectory", u"", u"folder", u"LibVisitor"}),
              (Answers{libraries.Beside(u""), libraries.Beside(u"Library\\组价库\\"),
                       libraries.Beside(u"Library\\组价库\\建筑\\"), libraries.Beside(u"Library\\组价库\\\\"),
                       libraries.Beside(u"Visitor\\")}));
}

TEST(Companion, EachFolderIsAskedForByItsKind) {
    const std::vector<std::pair<std::u16string, std::pair<int, std::u16string>>> operations = {
        {u"GetFamilyDirectory", {1, u"[F][S][][]"}},
        {u"GetQuotaLibraryDirectory", {2, u"[F][S][][]"}},
        {u"GetBillLibraryRootDirectory", {3, u"[F][S][][]"}},
        {u"GetDrtFileDirectory", {6, u"[F][S][][]"}},
        {u"GetConfigFileDirectory", {6, u"[F][S][][]"}},
        {u"GetSubLibraryRootDirectory", {7, u"[F][S][][]"}},
        {u"GetPathKind10Directory", {10, u"[F][S][][]"}},
        {u"GetFeeTemplateLibraryDirectory", {11, u"[F][S][][]"}},
        {u"GetReportTemplateLibraryDirectory", {12, u"[F][S][][]"}},
        {u"GetSubLibraryDirectory", {13, u"[F][S][I][]"}},
    };
    const Libraries libraries;
    Texts commands;
    Texts expected = libraries.Loaded();
    for (const auto& [operation, asked] : operations) {
        commands = commands + Texts{operation, u"F", u"S", u"I"};
        const std::string kind = std::to_string(asked.first);
        expected = expected + Texts{u"> GetLibraryPath " + std::u16string(kind.begin(), kind.end()) + u" " +
                                        asked.second,
                                    libraries.Kind(asked.first)};
    }
    commands = commands + Texts{u"GetEnterpriseBillDirectory", u"F"};
    expected = expected + Texts{u"> GetLibraryPath 5 [F][][][]", libraries.Kind(5), End};
    EXPECT_EQ(libraries.AskIt(commands), expected);
}

TEST(Companion, FieldsCrossAsTheyAre) {
    const Libraries libraries;
    EXPECT_EQ(
        libraries.AskIt({u"GetSubLibraryDirectory", u"安徽 2018", u"", u"土建 a\\b"}),
        libraries.LoadedThen({u"> GetLibraryPath 13 [安徽 2018][][土建 a\\b][]", libraries.Kind(13), End}));
}

TEST(Companion, TheRootIsKeptOnceItIsThere) {
    const Libraries libraries;
    EXPECT_EQ(
        libraries.AskIt({u"GetLibraryRootDirectory", u"GetLibraryRootDirectory"}),
        libraries.LoadedThen({u"> GetLibraryPath 0 [][][][]", libraries.Kind(0), libraries.Kind(0), End}));
}

TEST(Companion, AnEmptyRootIsAskedForAgain) {
    const Libraries libraries;
    EXPECT_EQ(libraries.Ask({u"GetLibraryRootDirectory", u"GetLibraryRootDirectory"}),
              libraries.LoadedThen(
                  {u"> GetLibraryPath 0 [][][][]", u"", u"> GetLibraryPath 0 [][][][]", u"", End}));
}

TEST(Companion, BillLibrariesLieInTheFolderOfTheirProvider) {
    const Libraries libraries;
    const Texts asked = {u"> GetLibraryPath 3 [F][S][][]", u"> GetLibraryGlobalConfigVisitor [F][S]",
                         u"> GetLibraryProvider"};
    EXPECT_EQ(libraries.AskIt({u"GetBillLibraryDirectory", u"F", u"S", u"I"}),
              libraries.LoadedThen({asked[0], asked[1], asked[2], libraries.Kind(3) + u"Provider\\", End}));
    EXPECT_EQ(libraries.Ask({u"GetBillLibraryDirectory", u"F", u"S", u"I"}),
              libraries.LoadedThen({asked[0], u"", End}))
        << "without a root nobody is asked for the provider";
}

TEST(Companion, TagsAreAskedOfTheVisitor) {
    const Libraries libraries;
    EXPECT_EQ(libraries.AskIt({u"GetLibraryTag", u"土建", u"GetLibraryTag", u""}),
              libraries.LoadedThen(
                  {u"> GetLibraryTag [土建]", u"tag of 土建", u"> GetLibraryTag []", u"tag of ", End}));
}

TEST(Companion, TheVisitorIsFetchedOnce) {
    const Libraries libraries;
    EXPECT_EQ(libraries.AskIt({u"GetLibraryDirectoryVisitor", u"GetLibraryDirectoryVisitor"}),
              libraries.LoadedThen({u"yes", u"yes", End}));
}

TEST(Companion, ANullVisitorIsAskedForAgain) {
    const Libraries libraries;
    const std::u16string fetch = u"> GetLibraryDirectoryVisitor";
    EXPECT_EQ(libraries.Ask({u"GetLibraryDirectoryVisitor", u"GetLibraryRootDirectory", u"GetLibraryTag",
                             u"x", u"GetFamilyDirectory", u"F", u"S", u"I"},
                            {{"COMPANION_NULL", "1"}, {"COMPANION_ROOT", "x"}}),
              libraries.LoadedThen({u"no", fetch, u"", fetch, u"", fetch, u"", End}));
}

TEST(Companion, OneThatComesLaterIsLoadedThen) {
    const Libraries libraries;
    const std::u16string name(FromNativePath(INSTALLATION_COMPANION).View());
    const std::u16string ready = u"Visitor\\" + name;
    std::filesystem::rename(libraries.Folder() / "Visitor" / INSTALLATION_COMPANION,
                            libraries.Folder() / "waiting");
    const Answers answers = libraries.AskIt(
        {u"GetLibraryRootDirectory", u"GetLibraryDirectoryVisitor", u"GetLibrarySeries", u"copy", u"waiting",
         ready, u"GetLibrarySeries", u"GetLibraryRootDirectory", u"GetLibraryDirectoryVisitor"});
    EXPECT_EQ(answers, (Texts{u"", u"no", u"-1", libraries.Loaded()[0], u"> GetLibrarySeries", u"1203",
                              u"> GetLibraryDirectoryVisitor", u"> GetLibraryPath 0 [][][][]",
                              libraries.Kind(0), u"yes", End}));
}

TEST(Companion, AFileThatIsNoModuleIsNone) {
    const Libraries libraries;
    const std::u16string name(FromNativePath(INSTALLATION_COMPANION).View());
    std::filesystem::remove(libraries.Folder() / "Visitor" / INSTALLATION_COMPANION);
    EXPECT_EQ(libraries.AskIt({u"write", u"Visitor\\" + name, u"no module", u"GetLibraryRootDirectory",
                               u"GetLibraryFamilies", u"GetLibrarySeries"}),
              (Answers{u"", u"", u"-1"}));
}

TEST(Companion, WithoutDirectoryConfigItIsLookedForBesideTheExecutable) {
    const Libraries libraries;
    std::filesystem::remove(libraries.Folder() / "DirectoryConfig.xml");
    std::filesystem::rename(libraries.Folder() / "Visitor" / INSTALLATION_COMPANION,
                            libraries.Folder() / INSTALLATION_COMPANION);
    EXPECT_EQ(libraries.AskIt({u"GetLibrarySeries"}),
              (Answers{u"> InitializationSupportProduct 1 [" + libraries.Beside(u"") + u"]",
                       u"> GetLibrarySeries", u"1203", End}));
}

// --- Every operation, with all exports and with each of them missing

/// Commands that need the companion, their calls but for those that load it, and the answer.
struct Operation {
    Texts command;
    Texts calls;
    std::u16string answer;
    std::u16string nothing;  // without what it needs
};

const std::u16string Path = u"> GetLibraryPath ";
const std::u16string Section = u"> GetLibraryGlobalConfigVisitor [F][S]";
const std::u16string Enterprise = u"> GetEnterpriseBillLibraryConfigVisitor [F]";
const std::u16string Bill = u"> GetBillLibraryConfigVisitor [F][S][Bill]";

/// Of an installation with family F, its section S, item "item" and all files.
std::vector<Operation> Operations(const Libraries& all) {
    const std::u16string root = Path + u"0 [][][][]";
    const std::u16string sections = Path + u"1 [F][][][]";
    const std::u16string billFolder = all.Kind(3) + u"Provider\\";
    const Texts billCalls = {Path + u"3 [F][S][][]", Section, u"> GetLibraryProvider"};
    return {
        {{u"GetLibrarySeries"}, {u"> GetLibrarySeries"}, u"1203", u"-1"},
        {{u"GetLibraryFamilies"}, {root, sections, Section, u"> GetLibraryEntries 1"}, u"F", u""},
        {{u"GetFamilyDisplayName", u"F"}, {sections, Section, u"> GetLibraryOwner"}, u"Owner", u""},
        {{u"GetFamilySections", u"F"}, {sections}, u"S", u""},
        {{u"GetSectionItems", u"F", u"S"}, {Path + u"7 [F][S][][]"}, u"before|item", u"before"},
        {{u"GetBillLibraryFiles", u"F", u"S"},
         billCalls + Texts{Section, u"> GetLibraryEntries 0"},
         u"before|bill.qdk",
         u"before"},
        {{u"GetQuotaLibraryNames", u"F", u"S", u""},
         {Path + u"7 [F][S][][]", Path + u"2 [F][S][][]", Section, u"> GetLibraryEntries 1",
          u"> GetLibraryTag [item]"},
         u"before|quota for users",
         u"before"},
        {{u"GetEnterpriseBillLibraryFile", u"F", u"E"},
         {Enterprise, u"> FindBillFile [E]", Path + u"5 [F][][][]"},
         all.Kind(5) + u"enterprise.qyk",
         u""},
        {{u"FindBillLibraryFile", u"F", u"S", u"bill.qdk"}, billCalls, billFolder + u"bill.qdk", u""},
        {{u"FindDrtFile", u"F", u"", u"bill.qdk"},
         {sections, Path + u"6 [F][S][][]"},
         all.Kind(6) + u"bill.drt",
         u""},
        {{u"FindConfigFile", u"F", u"S", u"bill.qdk"},
         {Path + u"6 [F][S][][]"},
         all.Kind(6) + u"bill.config",
         u""},
        {{u"FindQuotaLibraryFile", u"F", u"S", u"Quota"},
         {Section, u"> FindEntryByName 1 [Quota]", Path + u"2 [F][S][][]"},
         all.Kind(2) + u"quota.dek",
         u""},
        {{u"FindSubLibraryFile", u"F", u"S", u"", u"sub.dat"},
         {Path + u"7 [F][S][][]", Path + u"13 [F][S][item][]"},
         all.Kind(13) + u"sub.dat",
         u""},
        {{u"GetBillLibraryRule", u"F", u"S", u"Bill"}, {Bill, u"> GetRule"}, u"yes 9,3,1,1", u"no -1,-2,1,1"},
        {{u"GetBillLibraries", u"F"},
         Texts{sections} + billCalls + Texts{Section, u"> GetLibraryEntries 0", Bill, u"> GetRule"},
         u"Bill=" + billFolder + u"bill.qdk|before=kept|Bill:9,3,1,0",
         u"before=kept"},
        {{u"GetQuotaLibraries", u"F"},
         {sections, Path + u"2 [F][S][][]", Section, u"> GetLibraryEntries 1"},
         u"Quota=" + all.Kind(2) + u"quota.dek|before=kept",
         u"before=kept"},
        {{u"GetLibraryProviderName", u"F", u"", u"keep"},
         {sections, Section, u"> GetLibraryProvider"},
         u"Provider",
         u""},
        {{u"GetQuotaLibraryName", u"F", u"S", u"key"}, {Section, u"> FindEntryByKey 1 [key]"}, u"Quota", u""},
        {{u"GetEnterpriseBillLibraryText", u"F", u""},
         {Enterprise, u"> FindBillRecord []"},
         u"its text",
         u""},
        {{u"FindLibrarySection", u"F", u"key"}, {sections, Section, u"> FindEntryByKey 1 [key]"}, u"S", u""},
        {{u"GetQuotaLibraryEntries", u"F"},
         {sections, Section, u"> GetLibraryEntries 1"},
         u"yes|before,,|Quota,quota for users,tag of item",
         u"yes|before,,"},
        {{u"GetLibraryRootDirectory"}, {}, all.Kind(0), u""},
        {{u"GetBillLibraryDirectory", u"F", u"S", u""}, billCalls, billFolder, u""},
        {{u"GetLibraryTag", u"x"}, {u"> GetLibraryTag [x]"}, u"tag of x", u""},
    };
}

void WriteLibraries(const Libraries& all) {
    for (const char* file :
         {"lib/0/F/x", "lib/1/S/x", "lib/7/item/x", "lib/3/Provider/bill.qdk", "lib/6/bill.drt",
          "lib/6/bill.config", "lib/2/quota.dek", "lib/5/enterprise.qyk", "lib/13/sub.dat"})
        all.Write(file, "");
}

Texts CommandsOf(const std::vector<Operation>& operations) {
    Texts commands = {u"GetLibraryDirectoryVisitor"};
    for (const Operation& each : operations)
        commands = commands + each.command;
    return commands;
}

TEST(Companion, EveryOperationAsksWhatItNeedsAndNothingElse) {
    const Libraries all;
    WriteLibraries(all);
    const std::vector<Operation> operations = Operations(all);
    Texts expected = all.Loaded() + Texts{u"yes"};
    for (const Operation& each : operations)
        expected = expected + each.calls + Texts{each.answer};
    EXPECT_EQ(all.AskIt(CommandsOf(operations)), expected + Texts{End});
}

Texts OnlyAnswers(const Texts& lines) {
    Texts answers;
    for (const std::u16string& line : lines) {
        if (!line.starts_with(u"> "))
            answers.push_back(line);
    }
    return answers;
}

/// Whether an operation needs an export: whether any of its calls comes by it.
bool Needs(const Operation& operation, const std::u16string& without) {
    const auto has = [&](const std::u16string& part) {
        for (const std::u16string& call : operation.calls) {
            if (call.find(part) != std::u16string::npos)
                return true;
        }
        return false;
    };
    if (without == u"GetLibraryDirectoryVisitor")
        return has(u"GetLibraryPath") || has(u"GetLibraryTag") || operation.calls.empty();
    return has(u"> " + without);
}

TEST(Companion, EachExportMayBeMissing) {
    for (const char* name :
         {"InitializationSupportProduct", "GetLibraryDirectoryVisitor", "GetLibraryGlobalConfigVisitor",
          "GetBillLibraryConfigVisitor", "GetEnterpriseBillLibraryConfigVisitor", "GetLibrarySeries"}) {
        const std::u16string without(name, name + std::char_traits<char>::length(name));
        const Libraries libraries(name);
        WriteLibraries(libraries);
        const std::vector<Operation> operations = Operations(libraries);
        Texts expected = {without == u"GetLibraryDirectoryVisitor" ? u"no" : u"yes"};
        for (const Operation& each : operations) {
            if (!Needs(each, without))
                expected.push_back(each.answer);
            else if (each.command[0] == u"GetBillLibraries" && without == u"GetBillLibraryConfigVisitor")
                expected.push_back(each.answer.substr(0, each.answer.find(u"|Bill:")));
            else
                expected.push_back(each.nothing);
        }
        const Texts lines = libraries.AskIt(CommandsOf(operations));
        EXPECT_EQ(OnlyAnswers(lines), expected) << name;
        EXPECT_EQ(std::count(lines.begin(), lines.end(), libraries.Loaded()[0]),
                  without == u"InitializationSupportProduct" ? 0 : 1);
        for (const std::u16string& line : lines)
            EXPECT_FALSE(line.starts_with(u"> Reserved"));
    }
}

TEST(Companion, WithoutOneThereIsNoData) {
    const Libraries libraries;
    WriteLibraries(libraries);
    std::filesystem::remove_all(libraries.Folder() / "Visitor");
    const std::vector<Operation> operations = Operations(libraries);
    Texts expected = {u"no"};
    for (const Operation& each : operations)
        expected.push_back(each.nothing);
    EXPECT_EQ(libraries.AskIt(CommandsOf(operations)), expected);
}

}  // namespace
