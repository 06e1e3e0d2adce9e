// What the manager lists.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/library/CLibraryManager.h"
#include "QsUtils/platform/NativePath.h"

#include "tests/library/TestInstallation.h"

using Texts = std::vector<CString>;
using Asked = std::vector<std::wstring>;

namespace {

LibraryEntry Offered(const std::wstring& file) {
    return {L"name of " + file, file, L"", {L"x", L"ZJ"}, {}};
}

class Listings : public Libraries {
protected:
    Texts Families() {
        Texts families = {u"before"};
        manager.GetLibraryFamilies(families);
        return families;
    }
    Texts Sections(const CString& family) {
        Texts sections = {u"before"};
        manager.GetFamilySections(sections, family);
        return sections;
    }
    Texts Items(const CString& family, const CString& section) {
        Texts items = {u"before"};
        manager.GetSectionItems(items, family, section);
        return items;
    }
    Texts BillFiles(const CString& family, const CString& section) {
        Texts files = {u"before"};
        manager.GetBillLibraryFiles(files, family, section);
        return files;
    }
    Texts QuotaNames(const CString& family, const CString& section, const CString& item) {
        Texts names = {u"before"};
        manager.GetQuotaLibraryNames(names, family, section, item);
        return names;
    }
    /// A family with one section and one quota library.
    void AddFamily(const std::wstring& family, const std::vector<std::wstring>& tags) {
        Make(LibraryPath_Family, family, L"", L"S\\");
        script.families[family].sections[L"S"].quotas[L"q"] = LibraryEntry{L"q", L"", L"", tags, {}};
    }
};

// --- Series

TEST_F(Listings, TheSeriesIsTheCompanions) {
    for (const std::int32_t series : {0, -1, 7, 2147483647}) {
        script.series = series;
        EXPECT_EQ(manager.GetLibrarySeries(), series);
    }
    EXPECT_EQ(Calls(), Asked(4, L"series"));
}

// --- Families

TEST_F(Listings, FamiliesOfferAMarkedQuotaLibrary) {
    AddFamily(L"marked", {L"ZJ"});
    AddFamily(L"among others", {L"a", L"ZJ", L"b"});
    AddFamily(L"lower case", {L"zj"});
    AddFamily(L"longer", {L"ZJX", L" ZJ"});
    AddFamily(L"none", {});
    EXPECT_EQ(Families(), (Texts{u"among others", u"marked"}));
}

TEST_F(Listings, FamiliesComeInTheOrderOfTheDisk) {
    for (const wchar_t* name : {L"b_c", L"Bd", L"安徽", L"a", L"10", L"9"})
        AddFamily(name, {L"ZJ"});
    EXPECT_EQ(Families(), (Texts{u"10", u"9", u"a", u"Bd", u"b_c", u"安徽"}));
}

TEST_F(Listings, OneMarkedLibraryInAnySectionIsEnough) {
    AddFamily(L"F", {});
    Make(LibraryPath_Family, L"F", L"", L"Z\\");
    script.families[L"F"].sections[L"Z"].quotas = {{L"1", std::nullopt},
                                                   {L"2", LibraryEntry{L"2", L"", L"", {}, {}}},
                                                   {L"3", LibraryEntry{L"3", L"", L"", {L"ZJ"}, {}}}};
    EXPECT_EQ(Families(), Texts{u"F"});
}

TEST_F(Listings, AMarkedBillLibraryIsNotEnough) {
    AddFamily(L"F", {});
    script.families[L"F"].sections[L"S"].bills[L"b"] = Offered(L"b");
    EXPECT_EQ(Families(), Texts{});
}

TEST_F(Listings, AFamilyWithoutFoldersOfSectionsIsNone) {
    AddFamily(L"F", {L"ZJ"});
    std::filesystem::remove(ToNativePath(script.PathOf(LibraryPath_Family, L"F", L"", L"") + L"S"));
    EXPECT_EQ(Families(), Texts{});
}

TEST_F(Listings, TwoNamesAreNoFamilies) {
    for (const wchar_t* name : {L"清单库", L"LibDownTmp", L"libdowntmp2", L"清单库2"})
        AddFamily(name, {L"ZJ"});
    EXPECT_EQ(Families(), (Texts{u"libdowntmp2", u"清单库2"}));
    for (const std::wstring& call : Calls())
        EXPECT_EQ(call.find(L"[清单库]"), std::wstring::npos) << "nobody is asked about it";
}

TEST_F(Listings, TheExcludedNamesHaveTheirCase) {
    AddFamily(L"libdowntmp", {L"ZJ"});
    EXPECT_EQ(Families(), Texts{u"libdowntmp"});
}

TEST_F(Listings, FilesAreNoFamilies) {
    AddFamily(L"F", {L"ZJ"});
    TestInstallation::Make(script.PathOf(LibraryPath_Root, L"", L"", L"") + L"file");
    EXPECT_EQ(Families(), Texts{u"F"});
}

TEST_F(Listings, SectionsAreAskedUntilTheFamilyIsAccepted) {
    AddFamily(L"F", {L"ZJ"});
    Make(LibraryPath_Family, L"F", L"", L"A\\");
    Make(LibraryPath_Family, L"F", L"", L"T\\");
    EXPECT_EQ(Families(), Texts{u"F"});
    // The root is kept; section A isn't known, and T isn't asked.
    EXPECT_EQ(Calls(), (Asked{L"path1[F][][]", L"section[F][A]", L"section[F][S]", L"entries[1]"}));
}

TEST_F(Listings, WithoutFamiliesTheOutputIsEmptied) {
    EXPECT_EQ(Families(), Texts{});
    std::filesystem::remove_all(ToNativePath(TestInstallation::Base()));
    EXPECT_EQ(Families(), Texts{});
}

// --- Display names

TEST_F(Listings, AFamilyIsNamedAfterTheOwnerOfItsFirstSection) {
    AddFamily(L"F", {});
    Make(LibraryPath_Family, L"F", L"", L"T\\");
    script.families[L"F"].sections[L"S"].owner = L"省站";
    script.families[L"F"].sections[L"T"].owner = L"墨衡";
    EXPECT_EQ(manager.GetFamilyDisplayName(u"F"), u"省站");
    script.families[L"F"].sections[L"S"].owner = L"墨衡";
    EXPECT_EQ(manager.GetFamilyDisplayName(u"F"), u"F");
    script.families[L"F"].sections[L"S"].owner = L"墨衡 ";
    EXPECT_EQ(manager.GetFamilyDisplayName(u"F"), u"墨衡 ");
    script.families[L"F"].sections[L"S"].owner = L"";
    EXPECT_EQ(manager.GetFamilyDisplayName(u"F"), u"");
}

TEST_F(Listings, AFamilyWhoseFirstSectionIsUnknownHasNoDisplayName) {
    AddFamily(L"F", {});
    Make(LibraryPath_Family, L"F", L"", L"A\\");
    script.families[L"F"].sections[L"S"].owner = L"省站";
    EXPECT_EQ(manager.GetFamilyDisplayName(u"F"), u"");
    EXPECT_EQ(manager.GetFamilyDisplayName(u"no sections"), u"");
    Calls();
    EXPECT_EQ(manager.GetFamilyDisplayName(u""), u"");
    EXPECT_TRUE(Calls().empty());
}

// --- Sections

TEST_F(Listings, SectionsAscendByCodeUnit) {
    for (const wchar_t* name : {L"b_c\\", L"Bd\\", L"安装\\", L"a\\", L"土建\\", L"file"})
        Make(LibraryPath_Family, L"F", L"", name);
    EXPECT_EQ(Sections(u"F"), (Texts{u"Bd", u"a", u"b_c", u"土建", u"安装"}));
    EXPECT_EQ(Calls(), Asked{L"path1[F][][]"});
}

TEST_F(Listings, SectionsHaveNoExcludedNames) {
    for (const wchar_t* name : {L"清单库\\", L"LibDownTmp\\"})
        Make(LibraryPath_Family, L"F", L"", name);
    EXPECT_EQ(Sections(u"F"), (Texts{u"LibDownTmp", u"清单库"}));
}

TEST_F(Listings, SectionsReplaceTheOutput) {
    EXPECT_EQ(Sections(u"F"), Texts{});
    EXPECT_EQ(Sections(u""), Texts{});
    script.noFolders.insert(L"1[F][][]");
    Make(LibraryPath_Family, L"F", L"", L"S\\");
    EXPECT_EQ(Sections(u"F"), Texts{});
}

TEST_F(Listings, TheFamilyMayBeAnElementOfTheOutput) {
    Make(LibraryPath_Family, L"F", L"", L"S\\");
    Make(LibraryPath_SubLibraryRoot, L"F", L"S", L"I\\");
    Texts texts = {u"F"};
    manager.GetFamilySections(texts, texts[0]);
    EXPECT_EQ(texts, Texts{u"S"});
    texts = {u"F", u"S"};
    texts.shrink_to_fit();
    manager.GetSectionItems(texts, texts[0], texts[1]);
    EXPECT_EQ(texts, (Texts{u"F", u"S", u"I"}));
}

// --- Items

TEST_F(Listings, ItemsAreAppendedInTheOrderOfTheDisk) {
    for (const wchar_t* name : {L"b\\", L"B_\\", L"清单库\\", L"LibDownTmp\\", L"file"})
        Make(LibraryPath_SubLibraryRoot, L"F", L"S", name);
    EXPECT_EQ(Items(u"F", u"S"), (Texts{u"before", u"b", u"B_", u"LibDownTmp", u"清单库"}));
    EXPECT_EQ(Calls(), Asked{L"path7[F][S][]"});
}

TEST_F(Listings, WithoutAFamilyOrASectionThereAreNoItems) {
    EXPECT_EQ(Items(u"", u"S"), Texts{u"before"});
    EXPECT_EQ(Items(u"F", u""), Texts{u"before"});
    EXPECT_TRUE(Calls().empty());
    EXPECT_EQ(Items(u"F", u"S"), Texts{u"before"});
    script.noFolders.insert(L"7[F][S][]");
    EXPECT_EQ(Items(u"F", u"S"), Texts{u"before"});
}

// --- Bill libraries

TEST_F(Listings, BillLibrariesAreThoseOnDiskThatAreMarked) {
    ScriptedSection& section = script.families[L"F"].sections[L"S"];
    section.provider = L"P";
    section.bills = {{L"4", Offered(L"d.qdk")},
                     {L"1", Offered(L"c.qdk")},
                     {L"2", Offered(L"missing.qdk")},
                     {L"3", LibraryEntry{L"", L"a.qdk", L"", {L"zj"}, {}}},
                     {L"5", std::nullopt},
                     {L"6", Offered(L"")},
                     {L"7", Offered(L"folder")},
                     {L"8", Offered(L"folder\\")},
                     {L"9", Offered(L"*.qdk")}};
    for (const wchar_t* name : {L"P\\a.qdk", L"P\\c.qdk", L"P\\d.qdk", L"missing.qdk", L"P\\folder\\"})
        Make(LibraryPath_BillRoot, L"F", L"S", name);
    // By the keys of the map, and with the rules of a search: a folder counts, and wildcards do.
    EXPECT_EQ(BillFiles(u"F", u"S"), (Texts{u"before", u"c.qdk", u"d.qdk", u"folder", u"*.qdk"}));
    EXPECT_EQ(Calls(),
              (Asked{L"path3[F][S][]", L"section[F][S]", L"provider", L"section[F][S]", L"entries[0]"}));
}

TEST_F(Listings, BillLibrariesNeedASectionThatIsKnown) {
    EXPECT_EQ(BillFiles(u"", u"S"), Texts{u"before"});
    EXPECT_EQ(BillFiles(u"F", u""), Texts{u"before"});
    EXPECT_TRUE(Calls().empty());
    EXPECT_EQ(BillFiles(u"F", u"S"), Texts{u"before"});
    script.families[L"F"].sections[L"S"].bills[L"b"] = Offered(L"b");
    EXPECT_EQ(BillFiles(u"F", u"S"), Texts{u"before"}) << "no provider, no folder";
}

// --- Quota libraries

class QuotaNamesTest : public Listings {
protected:
    void SetUp() override {
        Listings::SetUp();
        ScriptedSection& section = script.families[L"F"].sections[L"S"];
        const std::vector<std::wstring> marked = {L"ZJ"};
        section.quotas = {{L"1", LibraryEntry{L"", L"both", L"one.dek", marked, {L"t2", L"t1"}}},
                          {L"2", LibraryEntry{L"", L"second", L"two.dek", marked, {L"t2"}}},
                          {L"3", LibraryEntry{L"", L"not marked", L"one.dek", {}, {L"t1"}}},
                          {L"4", LibraryEntry{L"", L"not there", L"none.dek", marked, {L"t1"}}},
                          {L"5", LibraryEntry{L"", L"no item", L"one.dek", marked, {}}},
                          {L"6", LibraryEntry{L"", L"no tag", L"one.dek", marked, {L""}}},
                          {L"7", std::nullopt},
                          {L"8", LibraryEntry{L"", L"", L"one.dek", marked, {L"T1"}}}};
        script.tags = {{L"I1", L"t1"}, {L"I2", L"t2"}};
        Make(LibraryPath_Quota, L"F", L"S", L"one.dek");
        Make(LibraryPath_Quota, L"F", L"S", L"two.dek");
    }
};

TEST_F(QuotaNamesTest, ThoseOfAnItem) {
    EXPECT_EQ(QuotaNames(u"F", u"S", u"I1"), (Texts{u"before", u"both"}));
    EXPECT_EQ(QuotaNames(u"F", u"S", u"I2"), (Texts{u"before", u"both", u"second"}));
    EXPECT_EQ(QuotaNames(u"F", u"S", u"without a tag"), (Texts{u"before", u"no tag"}));
}

TEST_F(QuotaNamesTest, TheTagIsAskedForEachEntry) {
    QuotaNames(u"F", u"S", u"I1");
    Asked expected = {L"path2[F][S][]", L"section[F][S]", L"entries[1]"};
    expected.insert(expected.end(), 7, L"tag[I1]");
    EXPECT_EQ(Calls(), expected);
}

TEST_F(QuotaNamesTest, AnEmptyItemIsAllOfThemWithRepeats) {
    for (const wchar_t* item : {L"I2\\", L"I1\\", L"none\\"})
        Make(LibraryPath_SubLibraryRoot, L"F", L"S", item);
    EXPECT_EQ(QuotaNames(u"F", u"S", u""), (Texts{u"before", u"both", u"both", u"second", u"no tag"}));
}

TEST_F(QuotaNamesTest, AnEmptyItemGoesThroughTheVirtualTable) {
    struct Own : CLibraryManager {
        void GetSectionItems(std::vector<CString>& items, const CString&, const CString&) override {
            items = {u"a", u"", u"b"};
        }
        void GetQuotaLibraryNames(std::vector<CString>& names, const CString& family, const CString& section,
                                  const CString& item) override {
            asked.push_back(item);
            CLibraryManager::GetQuotaLibraryNames(names, family, section, item);
            names.push_back(u"own " + item);
        }
        Texts asked;
    } own;
    Texts names = {u"before"};
    own.GetQuotaLibraryNames(names, u"F", u"S", u"");
    EXPECT_EQ(own.asked, (Texts{u"", u"a", u"b"}));
    EXPECT_EQ(names, (Texts{u"before", u"no tag", u"own a", u"no tag", u"own b", u"own "}));
}

TEST_F(QuotaNamesTest, WithoutWhatIsNeededNothingIsAdded) {
    Calls();
    EXPECT_EQ(QuotaNames(u"", u"S", u"I1"), Texts{u"before"});
    EXPECT_EQ(QuotaNames(u"F", u"", u"I1"), Texts{u"before"});
    EXPECT_TRUE(Calls().empty());
    EXPECT_EQ(QuotaNames(u"F", u"unknown", u"I1"), Texts{u"before"});
    EXPECT_EQ(QuotaNames(u"F", u"S", u""), Texts{u"before"}) << "no items";
    script.noFolders.insert(L"2[F][S][]");
    EXPECT_EQ(QuotaNames(u"F", u"S", u"I1"), Texts{u"before"});
}

// --- Keys of the companion's map

TEST_F(Listings, EntriesAscendByCodeUnitOnEverySystem) {
    ScriptedSection& section = script.families[L"F"].sections[L"S"];
    section.provider = L"P";
    const CString rare(u"\xD840\xDC00");  // a character beyond the first 65,536
    section.bills = {{rare.ToWide(), Offered(L"rare")}, {L"\xFF21", Offered(L"full width")}};
    Make(LibraryPath_BillRoot, L"F", L"S", L"P\\rare");
    Make(LibraryPath_BillRoot, L"F", L"S", L"P\\full width");
    EXPECT_EQ(BillFiles(u"F", u"S"), (Texts{u"before", u"rare", u"full width"}));
}

}  // namespace
