// The module as a process sees it: its exports, what they answer before and without a catalogue, what it says
// about faults and where, and that it leaves.
#include <set>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "tests/companion/LoadedCompanion.h"
#include "tests/support/ExportedSymbols.h"
#include "tests/support/RepeatedLoads.h"

namespace {

void WriteCatalogue(const TemporaryFolder& folder, const std::string& attributes = {}) {
    folder.Write("LibVisitor/Catalogue.xml", "<Catalogue Series=\"7\" " + attributes +
                                                 ">\n"
                                                 "<Item Name=\"土建\" Tag=\"TJ\"/>\n"
                                                 "<Family Name=\"北京\" EnterpriseBills=\"企业.xml\">\n"
                                                 "<Section Name=\"2012\"/></Family>\n"
                                                 "<Family Name=\"上海\"><Section Name=\"2016\"/></Family>\n"
                                                 "</Catalogue>\n");
    folder.Write("LibVisitor/北京/2012.xml",
                 "<Section Owner=\"甲\" Provider=\"乙\">\n"
                 "<Bill Name=\"规范\" File=\"a.qd\" Key=\"k0\" Tags=\"ZJ;国标\" ItemTags=\"TJ\">\n"
                 "<Rule Count1=\"6\" Flag2=\"true\"/></Bill>\n"
                 "<Bill Name=\"附录\" File=\"b.qd\"/>\n"
                 "<Quota Name=\"定额\" Title=\"预算定额\" File=\"a.de\" Key=\"k1\" Tags=\"ZJ\"/>\n"
                 "<Quota Name=\"补充\" File=\"b.de\"/>\n</Section>\n");
    folder.Write("LibVisitor/上海/2016.xml", "<Section Provider=\"丙\"/>");
    folder.Write("LibVisitor/企业.xml",
                 "<EnterpriseBills><Bill Name=\"一\" File=\"一.qy\"/><Bill Name=\"二\">正文</Bill>"
                 "<Bill Name=\"三\" File=\"三.qy\"><![CDATA[<三>]]></Bill></EnterpriseBills>");
    for (const char* file :
         {"Library/北京/2012/定额库/a.de", "Library/北京/2012/定额库/b.de", "Library/北京/2012/子库/土建/x",
          "Library/清单库/北京/2012/乙/a.qd", "Library/清单库/北京/2012/乙/b.qd",
          "Library/清单库/企业清单/北京/一.qy", "Library/清单库/企业清单/北京/三.qy", "Library/上海/2016/x"})
        folder.Write(file, {});
}

/// Runs `work` and gives what came to standard error meanwhile.
template <typename Work>
std::string StandardErrorOf(Work work) {
    testing::internal::CaptureStderr();
    work();
    return testing::internal::GetCapturedStderr();
}

void ExpectNothing(const LoadedCompanion& companion) {
    EXPECT_EQ(companion.Directories(), nullptr);
    EXPECT_EQ(companion.Section(L"北京", L"2012"), nullptr);
    EXPECT_EQ(companion.Bill(L"北京", L"2012", L"规范"), nullptr);
    EXPECT_EQ(companion.EnterpriseBills(L"北京"), nullptr);
    EXPECT_EQ(companion.Series(), -1);
}

}  // namespace

TEST(CompanionModule, OnlyTheContractIsExported) {
    std::set<std::string> names;
    for (const ExportedSymbol& symbol : ExportedSymbols(COMPANION_MODULE)) {
        names.insert(symbol.name);
        EXPECT_FALSE(symbol.isUnique) << symbol.name;
    }
    EXPECT_EQ(names, (std::set<std::string>{"InitializationSupportProduct", "GetLibraryDirectoryVisitor",
                                            "GetLibraryGlobalConfigVisitor", "GetBillLibraryConfigVisitor",
                                            "GetEnterpriseBillLibraryConfigVisitor", "GetLibrarySeries"}));
}

TEST(CompanionModule, BeforeTheInitialisationThereIsNothing) {
    const LoadedCompanion companion;
    ExpectNothing(companion);
    companion.Initialize(nullptr);
    ExpectNothing(companion);
}

TEST(CompanionModule, WithoutACatalogueThereIsNothing) {
    const TemporaryFolder folder;
    const LoadedCompanion companion;
    const std::string said = StandardErrorOf([&] { companion.Initialize(folder); });
    EXPECT_TRUE(said.find("Catalogue.xml: the file can't be read") != std::string::npos) << said;
    ExpectNothing(companion);
    // The catalogue is read once, and what is wrong is told once.
    WriteCatalogue(folder);
    EXPECT_EQ(StandardErrorOf([&] { companion.Initialize(folder); }), "");
    ExpectNothing(companion);
}

TEST(CompanionModule, AnInitialisationWithoutAFolderIsNone) {
    const TemporaryFolder folder;
    WriteCatalogue(folder);
    const LoadedCompanion companion;
    companion.Initialize(nullptr);
    EXPECT_EQ(StandardErrorOf([&] { companion.Initialize(folder); }), "");
    EXPECT_EQ(companion.Series(), 7);
}

TEST(CompanionModule, Directories) {
    const TemporaryFolder folder;
    WriteCatalogue(folder);
    const LoadedCompanion companion;
    EXPECT_EQ(StandardErrorOf([&] { companion.Initialize(folder); }), "");
    ILibraryDirectoryVisitor* const directories = companion.Directories();
    ASSERT_NE(directories, nullptr);
    EXPECT_EQ(companion.Directories(), directories);
    const std::wstring library = Companion::LibraryForm(folder.Path()) + L"\\Library\\";
    EXPECT_EQ(directories->GetLibraryPath({L"", L"", L"", L"", 0}), library);
    EXPECT_EQ(directories->GetLibraryPath({L"北京", L"2012", L"土建", L"", 13}),
              library + L"北京\\2012\\子库\\土建\\");
    EXPECT_EQ(directories->GetLibraryPath({L"北京", L"2012", L"..", L"", 13}), L"");
    EXPECT_EQ(directories->GetLibraryPath({L"北京", L"2012", L"", L"", 14}), L"");
    EXPECT_EQ(directories->GetLibraryTag(L"土建"), L"TJ");
    EXPECT_EQ(directories->GetLibraryTag(L"TJ"), L"");
    EXPECT_EQ(directories->GetLibraryTag(L""), L"");
}

TEST(CompanionModule, Sections) {
    const TemporaryFolder folder;
    WriteCatalogue(folder);
    const LoadedCompanion companion;
    companion.Initialize(folder);
    ILibraryGlobalConfigVisitor* const section = companion.Section(L"北京", L"2012");
    ASSERT_NE(section, nullptr);
    EXPECT_EQ(section->GetLibraryOwner(), L"甲");
    EXPECT_EQ(section->GetLibraryProvider(), L"乙");
    EXPECT_EQ(companion.Section(L"上海", L"2016")->GetLibraryOwner(), L"丙") << "the provider's, by default";
    LibraryEntry* const bill = section->FindEntryByName(L"规范", LibraryKind_Bill);
    ASSERT_NE(bill, nullptr);
    EXPECT_EQ(bill->LibraryFile, L"a.qd");
    EXPECT_EQ(bill->DataFile, L"");
    EXPECT_EQ(bill->Tags, (std::vector<std::wstring>{L"ZJ", L"国标"}));
    EXPECT_EQ(bill->ItemTags, std::vector<std::wstring>{L"TJ"});
    EXPECT_EQ(section->FindEntryByKey(L"k0", LibraryKind_Bill), bill);
    EXPECT_EQ(section->FindEntryByKey(L"k0", LibraryKind_Quota), nullptr);
    EXPECT_EQ(section->FindEntryByKey(L"", LibraryKind_Bill), nullptr);
    EXPECT_EQ(section->FindEntryByName(L"规范", LibraryKind_Quota), nullptr);
    LibraryEntry* const quota = section->FindEntryByKey(L"k1", LibraryKind_Quota);
    ASSERT_NE(quota, nullptr);
    EXPECT_EQ(quota->Name, L"定额");
    EXPECT_EQ(quota->LibraryFile, L"预算定额");
    EXPECT_EQ(quota->DataFile, L"a.de");
    EXPECT_EQ(section->FindEntryByName(L"补充", LibraryKind_Quota)->LibraryFile, L"补充");
    for (const std::int32_t kind : {-1, 2}) {
        EXPECT_EQ(section->FindEntryByName(L"规范", kind), nullptr);
        EXPECT_EQ(section->FindEntryByKey(L"k0", kind), nullptr);
    }
}

TEST(CompanionModule, EntriesFillTheCallersMap) {
    const TemporaryFolder folder;
    WriteCatalogue(folder);
    const LoadedCompanion companion;
    companion.Initialize(folder);
    ILibraryGlobalConfigVisitor* const section = companion.Section(L"北京", L"2012");
    std::map<std::wstring, LibraryEntry*> entries{{L"规范", nullptr}, {L"other", nullptr}};
    section->GetLibraryEntries(entries, 7);
    EXPECT_EQ(entries.size(), 2u);
    section->GetLibraryEntries(entries, LibraryKind_Bill);
    EXPECT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[L"规范"], section->FindEntryByName(L"规范", LibraryKind_Bill));
    EXPECT_EQ(entries[L"附录"], section->FindEntryByName(L"附录", LibraryKind_Bill));
    EXPECT_EQ(entries[L"other"], nullptr);
    section->GetLibraryEntries(entries, LibraryKind_Quota);
    EXPECT_EQ(entries.size(), 5u);
}

TEST(CompanionModule, RulesAreWrittenOverDefaults) {
    const TemporaryFolder folder;
    WriteCatalogue(folder);
    const LoadedCompanion companion;
    companion.Initialize(folder);
    BillLibraryRule rule;
    EXPECT_TRUE(companion.Bill(L"北京", L"2012", L"规范")->GetRule(rule));
    EXPECT_EQ(rule.nCount1, 6);
    EXPECT_EQ(rule.nCount2, 3);
    EXPECT_FALSE(rule.bFlag1);
    EXPECT_TRUE(rule.bFlag2);
    BillLibraryRule kept{1, 2, true, true};
    EXPECT_FALSE(companion.Bill(L"北京", L"2012", L"附录")->GetRule(kept));
    EXPECT_EQ(kept.nCount1, 1);
    EXPECT_TRUE(kept.bFlag1);
    EXPECT_EQ(companion.Bill(L"北京", L"2012", L"定额"), nullptr) << "a quota library";
    EXPECT_EQ(companion.Bill(L"北京", L"2012", L"a.qd"), nullptr) << "asked for by its name alone";
}

TEST(CompanionModule, EnterpriseBills) {
    const TemporaryFolder folder;
    WriteCatalogue(folder);
    const LoadedCompanion companion;
    companion.Initialize(folder);
    IEnterpriseBillLibraryConfigVisitor* const bills = companion.EnterpriseBills(L"北京");
    ASSERT_NE(bills, nullptr);
    EXPECT_EQ(bills->FindBillFile(L"一")->FileName, L"一.qy");
    EXPECT_EQ(bills->FindBillRecord(L"一")->Text, L"");
    EXPECT_EQ(bills->FindBillFile(L"二"), nullptr);
    EXPECT_EQ(bills->FindBillRecord(L"二")->Name, L"二");
    EXPECT_EQ(bills->FindBillRecord(L"二")->Text, L"正文");
    EXPECT_EQ(bills->FindBillFile(L"三")->FileName, L"三.qy");
    EXPECT_EQ(bills->FindBillRecord(L"三")->Text, L"<三>");
    EXPECT_EQ(bills->FindBillFile(L""), nullptr);
    EXPECT_EQ(bills->FindBillRecord(L""), nullptr);
    EXPECT_EQ(companion.EnterpriseBills(L"上海"), nullptr);
}

TEST(CompanionModule, UnknownNamesAndNone) {
    const TemporaryFolder folder;
    WriteCatalogue(folder);
    const LoadedCompanion companion;
    companion.Initialize(folder);
    EXPECT_EQ(companion.Section(L"北京", L"2016"), nullptr);
    EXPECT_EQ(companion.Section(L"天津", L"2012"), nullptr);
    EXPECT_EQ(companion.Section(L"北京", L""), nullptr);
    EXPECT_EQ(companion.Section(nullptr, L"2012"), nullptr);
    EXPECT_EQ(companion.Section(L"北京", nullptr), nullptr);
    EXPECT_EQ(companion.Bill(nullptr, L"2012", L"规范"), nullptr);
    EXPECT_EQ(companion.Bill(L"北京", nullptr, L"规范"), nullptr);
    EXPECT_EQ(companion.Bill(L"北京", L"2012", nullptr), nullptr);
    EXPECT_EQ(companion.Bill(L"北京", L"2012", L"规"), nullptr);
    EXPECT_EQ(companion.EnterpriseBills(nullptr), nullptr);
    EXPECT_EQ(companion.EnterpriseBills(L"天津"), nullptr);
}

TEST(CompanionModule, ReservedSlotsDoNothing) {
    const TemporaryFolder folder;
    WriteCatalogue(folder);
    const LoadedCompanion companion;
    companion.Initialize(folder);
    companion.Directories()->Reserved0();
    companion.Directories()->Reserved1();
    companion.Directories()->Reserved3();
    ILibraryGlobalConfigVisitor* const section = companion.Section(L"北京", L"2012");
    section->Reserved0();
    section->Reserved1();
    section->Reserved2();
    section->Reserved5();
    section->Reserved6();
    section->Reserved7();
    section->Reserved8();
    section->Reserved9();
    section->Reserved10();
    IBillLibraryConfigVisitor* const bill = companion.Bill(L"北京", L"2012", L"规范");
    bill->Reserved0();
    bill->Reserved1();
    IEnterpriseBillLibraryConfigVisitor* const bills = companion.EnterpriseBills(L"北京");
    bills->Reserved0();
    bills->Reserved1();
    bills->Reserved2();
    bills->Reserved3();
    bills->Reserved4();
    EXPECT_EQ(section->GetLibraryOwner(), L"甲");
    EXPECT_EQ(bills->FindBillFile(L"一")->FileName, L"一.qy");
}

TEST(CompanionModule, FaultsGoToStandardError) {
    const TemporaryFolder folder;
    WriteCatalogue(folder, "Sorte=\"x\"");
    const LoadedCompanion companion;
    const std::string said = StandardErrorOf([&] { companion.Initialize(folder); });
    const std::string file =
        Companion::ShownPath(Companion::LibraryForm(folder.Path()) + L"\\LibVisitor\\Catalogue.xml");
    EXPECT_TRUE(said.starts_with(file + ":1: unknown attribute \"Sorte\" at <Catalogue>")) << said;
    EXPECT_EQ(companion.Series(), 7);
}

TEST(CompanionModule, FaultsGoToTheReport) {
    const TemporaryFolder folder;
    WriteCatalogue(folder, "Sorte=\"x\" Report=\"报告.txt\"");
    folder.Write("LibVisitor/报告.txt", std::string(10'000, 'x'));
    {
        const LoadedCompanion companion;
        EXPECT_EQ(StandardErrorOf([&] { companion.Initialize(folder); }), "");
    }
    EXPECT_TRUE(folder.Read("LibVisitor/报告.txt")
                    .ends_with("Catalogue.xml:1: unknown attribute \"Sorte\" at <Catalogue>\n"));
    // Those of the last start are gone once they are mended.
    WriteCatalogue(folder, "Report=\"报告.txt\"");
    const LoadedCompanion companion;
    EXPECT_EQ(StandardErrorOf([&] { companion.Initialize(folder); }), "");
    EXPECT_EQ(folder.Read("LibVisitor/报告.txt"), "");
}

TEST(CompanionModule, AReportThatCannotBeWrittenGoesToStandardError) {
    const TemporaryFolder folder;
    WriteCatalogue(folder, "Sorte=\"x\" Report=\"none/report.txt\"");
    {
        const LoadedCompanion companion;
        const std::string said = StandardErrorOf([&] { companion.Initialize(folder); });
        EXPECT_NE(said.find(":1: unknown attribute \"Sorte\""), std::string::npos);
        EXPECT_NE(said.find("report.txt: the report can't be written here"), std::string::npos);
    }
    WriteCatalogue(folder, "Report=\"none/report.txt\"");
    const LoadedCompanion companion;
    EXPECT_EQ(StandardErrorOf([&] { companion.Initialize(folder); }), "") << "there is nothing to tell";
}

TEST(CompanionModule, ManyThreadsInitialiseAndAsk) {
    const TemporaryFolder folder;
    WriteCatalogue(folder);
    const LoadedCompanion companion;
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([&] {
            companion.Initialize(folder);
            for (int round = 0; round < 200; ++round) {
                ILibraryGlobalConfigVisitor* const section = companion.Section(L"北京", L"2012");
                std::map<std::wstring, LibraryEntry*> entries;
                section->GetLibraryEntries(entries, LibraryKind_Quota);
                EXPECT_EQ(entries.size(), 2u);
                EXPECT_EQ(companion.Directories()->GetLibraryTag(L"土建"), L"TJ");
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

TEST(CompanionModule, AHundredLoadsLeaveNothingBehind) {
    const TemporaryFolder folder;
    WriteCatalogue(folder);
    const auto loadUseAndUnload = [&] {
        {
            const LoadedCompanion companion;
            companion.Initialize(folder);
            ASSERT_EQ(companion.Series(), 7);
            ASSERT_NE(companion.Section(L"北京", L"2012"), nullptr);
        }
        ASSERT_FALSE(IsInProcess(COMPANION_MODULE)) << "the module has not left the process";
    };
    EXPECT_TRUE(LeavesNothingBehind(loadUseAndUnload));
}
