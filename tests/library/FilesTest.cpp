// Where the manager finds files.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "QsUtils/platform/NativePath.h"

#include "tests/library/TestInstallation.h"

using Asked = std::vector<std::wstring>;

namespace {

/// Family F with the sections A, B and C, whose provider is P.
class Files : public Libraries {
protected:
    void SetUp() override {
        Libraries::SetUp();
        for (const wchar_t* section : {L"C", L"A", L"B"}) {
            Make(LibraryPath_Family, L"F", L"", section + std::wstring(L"\\"));
            script.families[L"F"].sections[section].provider = L"P";
        }
    }

    /// Puts a file into the current folder.
    static void MakeHere(const std::wstring& name) {
        TestInstallation::Make((TestInstallation::Directory() + u"work\\").ToWide() + name);
    }
    void NoFolder(const std::wstring& query) { script.noFolders.insert(query); }
};

// --- The sections that are searched

TEST_F(Files, ABillLibraryIsSearchedInAllSectionsInOrder) {
    for (const wchar_t* section : {L"C", L"B"})
        Make(LibraryPath_BillRoot, L"F", section, L"P\\x.qdk");
    EXPECT_EQ(manager.FindBillLibraryFile(u"F", u"", u"x.qdk"),
              PathOf(LibraryPath_BillRoot, L"F", L"B", L"P\\x.qdk"));
    EXPECT_EQ(Calls(), (Asked{L"path1[F][][]", L"path3[F][A][]", L"section[F][A]", L"provider",
                              L"path3[F][B][]", L"section[F][B]", L"provider"}))
        << "the first hit ends the search";
}

TEST_F(Files, ANamedSectionIsTheOnlyOne) {
    Make(LibraryPath_BillRoot, L"F", L"B", L"P\\x.qdk");
    EXPECT_EQ(manager.FindBillLibraryFile(u"F", u"B", u"x.qdk"),
              PathOf(LibraryPath_BillRoot, L"F", L"B", L"P\\x.qdk"));
    Calls();
    EXPECT_EQ(manager.FindBillLibraryFile(u"F", u"A", u"x.qdk"), u"");
    EXPECT_EQ(Calls(), (Asked{L"path3[F][A][]", L"section[F][A]", L"provider"}));
    EXPECT_EQ(manager.FindBillLibraryFile(u"F", u"no such", u"x.qdk"), u"");
}

TEST_F(Files, WithoutAFamilyOrANameNobodyIsAsked) {
    EXPECT_EQ(manager.FindBillLibraryFile(u"", u"B", u"x"), u"");
    EXPECT_EQ(manager.FindBillLibraryFile(u"F", u"B", u""), u"");
    EXPECT_EQ(manager.FindDrtFile(u"", u"B", u"x"), u"");
    EXPECT_EQ(manager.FindDrtFile(u"F", u"", u""), u"");
    EXPECT_EQ(manager.FindConfigFile(u"", u"B", u"x"), u"");
    EXPECT_EQ(manager.FindConfigFile(u"F", u"", u""), u"");
    EXPECT_EQ(manager.FindQuotaLibraryFile(u"", u"B", u"x"), u"");
    EXPECT_EQ(manager.FindQuotaLibraryFile(u"F", u"", u""), u"");
    EXPECT_EQ(manager.FindSubLibraryFile(u"", u"B", u"I", u"x"), u"");
    EXPECT_EQ(manager.FindSubLibraryFile(u"F", u"", u"", u""), u"");
    EXPECT_EQ(manager.GetEnterpriseBillLibraryFile(u"", u"x"), u"");
    EXPECT_EQ(manager.GetEnterpriseBillLibraryFile(u"F", u""), u"");
    EXPECT_TRUE(Calls().empty());
}

// --- What counts as found

TEST_F(Files, AFolderCountsAndATrailingBackslashDoesnt) {
    Make(LibraryPath_BillRoot, L"F", L"A", L"P\\folder\\x");
    EXPECT_EQ(manager.FindBillLibraryFile(u"F", u"A", u"folder"),
              PathOf(LibraryPath_BillRoot, L"F", L"A", L"P\\folder"));
    EXPECT_EQ(manager.FindBillLibraryFile(u"F", u"A", u"folder\\"), u"");
    EXPECT_EQ(manager.FindBillLibraryFile(u"F", u"A", u"folder\\x"),
              PathOf(LibraryPath_BillRoot, L"F", L"A", L"P\\folder\\x"));
}

TEST_F(Files, WildcardsComeBackAsTheyWent) {
    Make(LibraryPath_BillRoot, L"F", L"B", L"P\\library.qdk");
    EXPECT_EQ(manager.FindBillLibraryFile(u"F", u"", u"*.qdk"),
              PathOf(LibraryPath_BillRoot, L"F", L"B", L"P\\*.qdk"));
    EXPECT_EQ(manager.FindBillLibraryFile(u"F", u"", u"l?brary.*"),
              PathOf(LibraryPath_BillRoot, L"F", L"B", L"P\\l?brary.*"));
    EXPECT_EQ(manager.FindBillLibraryFile(u"F", u"", u"*.dek"), u"");
}

TEST_F(Files, ABareNameIsLookedForInTheCurrentFolder) {
    MakeHere(L"here.qdk");
    EXPECT_EQ(manager.FindBillLibraryFile(u"F", u"", u"here.qdk"), u"");
    NoFolder(L"3[F][B][]");
    EXPECT_EQ(manager.FindBillLibraryFile(u"F", u"A", u"here.qdk"), u"");
    EXPECT_EQ(manager.FindBillLibraryFile(u"F", u"B", u"here.qdk"), u"here.qdk");
    EXPECT_EQ(manager.FindBillLibraryFile(u"F", u"", u"here.qdk"), u"here.qdk");
    EXPECT_EQ(manager.FindBillLibraryFile(u"F", u"", u"here.*"), u"here.*");
    EXPECT_EQ(manager.FindBillLibraryFile(u"F", u"", u"gone.qdk"), u"");
}

// --- Files that go with a library file

TEST_F(Files, TheEndingIsCutBlindly) {
    for (const wchar_t* name : {L"ab.drt", L"ab.c.drt", L".drt", L"abcd.drt"})
        Make(LibraryPath_CompanionFile, L"F", L"A", name);
    const auto path = [&](const wchar_t* name) {
        return PathOf(LibraryPath_CompanionFile, L"F", L"A", name);
    };
    EXPECT_EQ(manager.FindDrtFile(u"F", u"A", u"ab.qdk"), path(L"ab.drt"));
    EXPECT_EQ(manager.FindDrtFile(u"F", u"A", u"ab.cdefg"), path(L"ab.c.drt"));
    EXPECT_EQ(manager.FindDrtFile(u"F", u"A", u"abcdqdek"), path(L"abcd.drt"));
    EXPECT_EQ(manager.FindDrtFile(u"F", u"A", u".qdk"), path(L".drt"));
    EXPECT_EQ(manager.FindDrtFile(u"F", u"A", u"ab.qd"), u"");
    EXPECT_EQ(manager.FindDrtFile(u"F", u"A", u"a"), u"") << "the cut goes into the folder";
    EXPECT_EQ(Calls(), Asked(6, L"path6[F][A][]"));
}

TEST_F(Files, TheCutMayGoIntoTheFolder) {
    // "beside\b" loses four units.
    TestInstallation::Make(script.PathOf(LibraryPath_Family, L"F", L"", L"") + L"A\\besi.drt");
    EXPECT_EQ(manager.FindDrtFile(u"F", u"A", u"b"), PathOf(LibraryPath_Family, L"F", L"", L"A\\besi.drt"));
}

TEST_F(Files, ConfigFiles) {
    Make(LibraryPath_CompanionFile, L"F", L"B", L"ab.config");
    EXPECT_EQ(manager.FindConfigFile(u"F", u"", u"ab.qdk"),
              PathOf(LibraryPath_CompanionFile, L"F", L"B", L"ab.config"));
    EXPECT_EQ(Calls(), (Asked{L"path1[F][][]", L"path6[F][A][]", L"path6[F][B][]"}));
    EXPECT_EQ(manager.FindConfigFile(u"F", u"A", u"ab.qdk"), u"");
    EXPECT_EQ(manager.FindDrtFile(u"F", u"", u"ab.qdk"), u"");
}

TEST_F(Files, AShortBareNameIsTheEndingAlone) {
    NoFolder(L"6[F][A][]");
    MakeHere(L".drt");
    MakeHere(L"ab.config");
    EXPECT_EQ(manager.FindDrtFile(u"F", u"A", u"abc"), u".drt");
    EXPECT_EQ(manager.FindDrtFile(u"F", u"A", u"abcd"), u".drt");
    EXPECT_EQ(manager.FindDrtFile(u"F", u"A", u"abcde"), u"");
    EXPECT_EQ(manager.FindConfigFile(u"F", u"A", u"ab.qdk"), u"ab.config");
}

// --- Quota libraries

TEST_F(Files, AQuotaLibraryIsFoundByItsName) {
    for (const wchar_t* section : {L"B", L"C"}) {
        script.families[L"F"].sections[section].quotas[L"q"] =
            LibraryEntry{L"建筑", L"shown", std::wstring(section) + L".dek", {}, {}};
        Make(LibraryPath_Quota, L"F", section, std::wstring(section) + L".dek");
    }
    EXPECT_EQ(manager.FindQuotaLibraryFile(u"F", u"", u"建筑"),
              PathOf(LibraryPath_Quota, L"F", L"B", L"B.dek"));
    EXPECT_EQ(Calls(), (Asked{L"path1[F][][]", L"section[F][A]", L"by name[建筑][1]", L"section[F][B]",
                              L"by name[建筑][1]", L"path2[F][B][]"}));
    EXPECT_EQ(manager.FindQuotaLibraryFile(u"F", u"C", u"建筑"),
              PathOf(LibraryPath_Quota, L"F", L"C", L"C.dek"));
    EXPECT_EQ(manager.FindQuotaLibraryFile(u"F", u"", u"shown"), u"");
    EXPECT_EQ(manager.FindQuotaLibraryFile(u"F", u"", u"B.dek"), u"");
}

TEST_F(Files, AQuotaLibraryWhoseFileIsMissingIsSearchedOn) {
    for (const wchar_t* section : {L"A", L"B"})
        script.families[L"F"].sections[section].quotas[L"q"] = LibraryEntry{L"q", L"", L"q.dek", {}, {}};
    Make(LibraryPath_Quota, L"F", L"B", L"q.dek");
    EXPECT_EQ(manager.FindQuotaLibraryFile(u"F", u"", u"q"), PathOf(LibraryPath_Quota, L"F", L"B", L"q.dek"));
    script.families[L"F"].sections.erase(L"A");
    EXPECT_EQ(manager.FindQuotaLibraryFile(u"F", u"", u"q"), PathOf(LibraryPath_Quota, L"F", L"B", L"q.dek"));
    NoFolder(L"2[F][B][]");
    EXPECT_EQ(manager.FindQuotaLibraryFile(u"F", u"", u"q"), u"");
    MakeHere(L"q.dek");
    EXPECT_EQ(manager.FindQuotaLibraryFile(u"F", u"", u"q"), u"q.dek");
}

TEST_F(Files, ABillLibraryIsNoQuotaLibrary) {
    script.families[L"F"].sections[L"A"].bills[L"b"] = LibraryEntry{L"b", L"x", L"x", {}, {}};
    Make(LibraryPath_Quota, L"F", L"A", L"x");
    EXPECT_EQ(manager.FindQuotaLibraryFile(u"F", u"", u"b"), u"");
}

// --- Files of items

TEST_F(Files, AFileOfAnItem) {
    for (const wchar_t* file : {L"I2\\x", L"I3\\x"})
        Make(LibraryPath_SubLibraryRoot, L"F", L"B", file);
    Make(LibraryPath_SubLibraryRoot, L"F", L"C", L"I2\\y");
    const auto path = [&](const wchar_t* section, const wchar_t* file) {
        return PathOf(LibraryPath_SubLibraryRoot, L"F", section, file);
    };
    EXPECT_EQ(manager.FindSubLibraryFile(u"F", u"B", u"I3", u"x"), path(L"B", L"I3\\x"));
    EXPECT_EQ(Calls(), Asked{L"path13[F][B][I3]"});
    EXPECT_EQ(manager.FindSubLibraryFile(u"F", u"B", u"", u"x"), path(L"B", L"I2\\x"));
    EXPECT_EQ(Calls(), (Asked{L"path7[F][B][]", L"path13[F][B][I2]"}));
    EXPECT_EQ(manager.FindSubLibraryFile(u"F", u"", u"I2", u"y"), path(L"C", L"I2\\y"));
    EXPECT_EQ(Calls(),
              (Asked{L"path1[F][][]", L"path13[F][A][I2]", L"path13[F][B][I2]", L"path13[F][C][I2]"}));
    EXPECT_EQ(manager.FindSubLibraryFile(u"F", u"", u"", u"y"), path(L"C", L"I2\\y"));
    EXPECT_EQ(Calls(), (Asked{L"path1[F][][]", L"path7[F][A][]", L"path7[F][B][]", L"path13[F][B][I2]",
                              L"path13[F][B][I3]", L"path7[F][C][]", L"path13[F][C][I2]"}));
    EXPECT_EQ(manager.FindSubLibraryFile(u"F", u"", u"I3", u"y"), u"");
    EXPECT_EQ(manager.FindSubLibraryFile(u"F", u"A", u"", u"x"), u"");
}

TEST_F(Files, AnItemWithoutAFolderIsTheCurrentFolder) {
    NoFolder(L"13[F][A][I]");
    MakeHere(L"x");
    EXPECT_EQ(manager.FindSubLibraryFile(u"F", u"A", u"I", u"x"), u"x");
    EXPECT_EQ(manager.FindSubLibraryFile(u"F", u"A", u"J", u"x"), u"");
}

// --- Enterprise bills

TEST_F(Files, EnterpriseBillFiles) {
    script.families[L"F"].enterpriseFiles[L"企业"] = {L"x.qyk"};
    script.families[L"F"].enterpriseFiles[L"missing"] = {L"y.qyk"};
    script.families[L"F"].enterpriseFiles[L"none"] = {L""};
    Make(LibraryPath_EnterpriseBill, L"F", L"", L"x.qyk");
    EXPECT_EQ(manager.GetEnterpriseBillLibraryFile(u"F", u"企业"),
              PathOf(LibraryPath_EnterpriseBill, L"F", L"", L"x.qyk"));
    EXPECT_EQ(Calls(), (Asked{L"enterprise[F]", L"bill file[企业]", L"path5[F][][]"}));
    EXPECT_EQ(manager.GetEnterpriseBillLibraryFile(u"F", u"missing"), u"");
    EXPECT_EQ(manager.GetEnterpriseBillLibraryFile(u"F", u"none"), u"");
    EXPECT_EQ(manager.GetEnterpriseBillLibraryFile(u"F", u"unknown"), u"");
    EXPECT_EQ(manager.GetEnterpriseBillLibraryFile(u"G", u"企业"), u"");
    NoFolder(L"5[F][][]");
    MakeHere(L"y.qyk");
    EXPECT_EQ(manager.GetEnterpriseBillLibraryFile(u"F", u"missing"), u"y.qyk");
}

}  // namespace
