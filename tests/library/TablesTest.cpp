// The manager's tables, and what it finds by a name or a key.
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/library/TestInstallation.h"

using Asked = std::vector<std::wstring>;
using Paths = std::map<CString, CString>;

namespace {

std::vector<int> Fields(const BillLibraryRule& rule) {
    return {rule.nCount1, rule.nCount2, rule.bFlag1, rule.bFlag2};
}

LibraryEntry Entry(const std::wstring& name, const std::wstring& file) {
    return {name, file + L".qdk", file + L".dek", {}, {}};
}

/// Family F with the sections A and B, whose provider is P.
class Tables : public Libraries {
protected:
    void SetUp() override {
        Libraries::SetUp();
        for (const wchar_t* section : {L"B", L"A"}) {
            Make(LibraryPath_Family, L"F", L"", section + std::wstring(L"\\"));
            script.families[L"F"].sections[section].provider = L"P";
        }
    }
    ScriptedSection& A() { return script.families[L"F"].sections[L"A"]; }
    ScriptedSection& B() { return script.families[L"F"].sections[L"B"]; }
    CString BillPath(const wchar_t* section, const wchar_t* file) const {
        return PathOf(LibraryPath_BillRoot, L"F", section, std::wstring(L"P\\") + file);
    }
};

// --- Rules

TEST_F(Tables, ARuleIsWrittenWithoutItsSecondFlag) {
    A().rules[L"b"] = BillLibraryRule{12, -4, true, true};
    BillLibraryRule rule{1, 2, false, false};
    EXPECT_TRUE(manager.GetBillLibraryRule(u"F", u"A", u"b", rule));
    EXPECT_EQ(Fields(rule), (std::vector<int>{12, -4, 1, 0}));
    A().rules[L"b"]->bFlag2 = false;
    rule.bFlag2 = true;
    EXPECT_TRUE(manager.GetBillLibraryRule(u"F", u"A", u"b", rule));
    EXPECT_EQ(Fields(rule), (std::vector<int>{12, -4, 1, 1}));
}

TEST_F(Tables, AVisitorThatLeavesTheRuleAloneGivesTheDefaults) {
    A().rules[L"b"] = std::nullopt;
    BillLibraryRule rule{1, 2, true, true};
    EXPECT_TRUE(manager.GetBillLibraryRule(u"F", u"A", u"b", rule));
    EXPECT_EQ(Fields(rule), (std::vector<int>{9, 3, 0, 1}));
    EXPECT_EQ(Calls(), (Asked{L"bill[F][A][b]", L"rule[9][3][0][0]"}));
}

TEST_F(Tables, WithoutAVisitorTheRuleStaysAsItWas) {
    A().rules[L"b"] = std::nullopt;
    A().rules[L""] = std::nullopt;
    BillLibraryRule rule{1, 2, true, true};
    EXPECT_FALSE(manager.GetBillLibraryRule(u"F", u"A", u"unknown", rule));
    EXPECT_FALSE(manager.GetBillLibraryRule(u"F", u"B", u"b", rule));
    Calls();
    EXPECT_FALSE(manager.GetBillLibraryRule(u"", u"A", u"b", rule));
    EXPECT_FALSE(manager.GetBillLibraryRule(u"F", u"", u"b", rule));
    EXPECT_FALSE(manager.GetBillLibraryRule(u"F", u"A", u"", rule));
    EXPECT_TRUE(Calls().empty());
    EXPECT_EQ(Fields(rule), (std::vector<int>{1, 2, 1, 1}));
}

// --- Tables of bill libraries

TEST_F(Tables, BillLibrariesKeepWhatTheFirstSectionSays) {
    A().bills = {{L"1", Entry(L"both", L"of A")}, {L"2", std::nullopt}};
    B().bills = {{L"1", Entry(L"both", L"of B")}, {L"2", Entry(L"only B", L"b")}};
    A().rules[L"both"] = BillLibraryRule{1, 2, true, true};
    B().rules[L"both"] = BillLibraryRule{3, 4, false, false};
    B().rules[L"only B"] = std::nullopt;
    std::map<CString, BillLibraryRule> rules;
    Paths paths;
    manager.GetBillLibraries(u"F", rules, paths);
    EXPECT_EQ(paths, (Paths{{u"both", BillPath(L"A", L"of A.qdk")}, {u"only B", BillPath(L"B", L"b.qdk")}}));
    ASSERT_EQ(rules.size(), 2u);
    EXPECT_EQ(Fields(rules[u"both"]), (std::vector<int>{1, 2, 1, 1})) << "with the second flag";
    EXPECT_EQ(Fields(rules[u"only B"]), (std::vector<int>{9, 3, 0, 0}));
    EXPECT_EQ(Calls(),
              (Asked{L"path1[F][][]", L"path3[F][A][]", L"section[F][A]", L"provider", L"section[F][A]",
                     L"entries[0]", L"bill[F][A][both]", L"rule[9][3][0][0]", L"path3[F][B][]",
                     L"section[F][B]", L"provider", L"section[F][B]", L"entries[0]", L"bill[F][B][both]",
                     L"rule[9][3][0][0]", L"bill[F][B][only B]", L"rule[9][3][0][0]"}));
}

TEST_F(Tables, BillLibrariesAreAddedToTheMaps) {
    A().bills = {{L"1", Entry(L"x", L"x")}, {L"2", Entry(L"y", L"y")}};
    A().rules[L"x"] = BillLibraryRule{1, 1, true, true};
    std::map<CString, BillLibraryRule> rules = {{u"x", {7, 7, false, false}}};
    Paths paths = {{u"y", u"kept"}, {u"z", u"kept too"}};
    manager.GetBillLibraries(u"F", rules, paths);
    EXPECT_EQ(paths, (Paths{{u"x", BillPath(L"A", L"x.qdk")}, {u"y", u"kept"}, {u"z", u"kept too"}}));
    ASSERT_EQ(rules.size(), 1u) << "y has no rule";
    EXPECT_EQ(Fields(rules[u"x"]), (std::vector<int>{7, 7, 0, 0}));
}

TEST_F(Tables, ABillLibraryWithoutANameHasAPathAndNoRule) {
    A().bills = {{L"1", Entry(L"", L"x")}};
    A().rules[L""] = BillLibraryRule{1, 1, true, true};
    std::map<CString, BillLibraryRule> rules;
    Paths paths;
    manager.GetBillLibraries(u"F", rules, paths);
    EXPECT_EQ(paths, (Paths{{u"", BillPath(L"A", L"x.qdk")}}));
    EXPECT_TRUE(rules.empty());
}

TEST_F(Tables, SectionsWithoutAFolderOrAVisitorAreLeftOut) {
    A().bills = {{L"1", Entry(L"a", L"a")}};
    A().quotas = A().bills;
    script.noFolders = {L"3[F][A][]", L"2[F][A][]"};
    script.families[L"F"].sections.erase(L"B");
    std::map<CString, BillLibraryRule> rules;
    Paths paths;
    manager.GetBillLibraries(u"F", rules, paths);
    manager.GetQuotaLibraries(u"F", paths);
    manager.GetBillLibraries(u"unknown", rules, paths);
    manager.GetQuotaLibraries(u"unknown", paths);
    EXPECT_TRUE(paths.empty());
    Calls();
    manager.GetBillLibraries(u"", rules, paths);
    manager.GetQuotaLibraries(u"", paths);
    EXPECT_TRUE(Calls().empty());
}

// --- Tables of quota libraries

TEST_F(Tables, QuotaLibrariesKeepWhatTheFirstSectionSays) {
    A().quotas = {{L"1", Entry(L"both", L"of A")}, {L"2", std::nullopt}};
    B().quotas = {
        {L"1", Entry(L"both", L"of B")}, {L"2", Entry(L"only B", L"b")}, {L"3", Entry(L"old", L"o")}};
    Paths paths = {{u"old", u"kept"}};
    manager.GetQuotaLibraries(u"F", paths);
    EXPECT_EQ(paths, (Paths{{u"both", PathOf(LibraryPath_Quota, L"F", L"A", L"of A.dek")},
                            {u"old", u"kept"},
                            {u"only B", PathOf(LibraryPath_Quota, L"F", L"B", L"b.dek")}}));
    EXPECT_EQ(Calls(), (Asked{L"path1[F][][]", L"path2[F][A][]", L"section[F][A]", L"entries[1]",
                              L"path2[F][B][]", L"section[F][B]", L"entries[1]"}));
}

TEST_F(Tables, QuotaEntriesHaveRepeatsAndTheirFirstTag) {
    A().quotas = {{L"2", Entry(L"both", L"a")}, {L"1", std::nullopt}};
    B().quotas = {{L"1", LibraryEntry{L"both", L"b", L"", {}, {L"first", L"second"}}}};
    std::vector<LibraryEntryInfo> entries = {{u"before", u"", u""}};
    EXPECT_TRUE(manager.GetQuotaLibraryEntries(u"F", u"not read", entries));
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[0].Name, u"before");
    EXPECT_EQ(entries[1].Name, u"both");
    EXPECT_EQ(entries[1].LibraryFile, u"a.qdk");
    EXPECT_EQ(entries[1].FirstItemTag, u"");
    EXPECT_EQ(entries[2].Name, u"both");
    EXPECT_EQ(entries[2].LibraryFile, u"b");
    EXPECT_EQ(entries[2].FirstItemTag, u"first");
    EXPECT_EQ(Calls(),
              (Asked{L"path1[F][][]", L"section[F][A]", L"entries[1]", L"section[F][B]", L"entries[1]"}));
}

TEST_F(Tables, QuotaEntriesAreTrueForAnyFamilyButTheEmptyOne) {
    std::vector<LibraryEntryInfo> entries = {{u"F", u"", u""}};
    EXPECT_TRUE(manager.GetQuotaLibraryEntries(u"unknown", u"", entries));
    script.families.clear();
    EXPECT_TRUE(manager.GetQuotaLibraryEntries(entries[0].Name, entries[0].Name, entries));
    Calls();
    EXPECT_FALSE(manager.GetQuotaLibraryEntries(u"", u"F", entries));
    EXPECT_TRUE(Calls().empty());
    EXPECT_EQ(entries.size(), 1u);
}

TEST_F(Tables, TheFamilyMayBeATextOfTheOutput) {
    A().quotas = {{L"1", Entry(L"a", L"a")}, {L"2", Entry(L"b", L"b")}};
    std::vector<LibraryEntryInfo> entries = {{u"F", u"", u""}};
    entries.shrink_to_fit();
    EXPECT_TRUE(manager.GetQuotaLibraryEntries(entries[0].Name, u"", entries));
    EXPECT_EQ(entries.size(), 3u);
}

// --- Providers

TEST_F(Tables, TheProviderOfTheFirstKnownSection) {
    A().provider = L"省站";
    B().provider = L"市站";
    EXPECT_EQ(manager.GetLibraryProviderName(u"F", u"", false), u"省站");
    EXPECT_EQ(manager.GetLibraryProviderName(u"F", u"", true), u"省站");
    EXPECT_EQ(manager.GetLibraryProviderName(u"F", u"B", true), u"市站");
    EXPECT_EQ(manager.GetLibraryProviderName(u"F", u"unknown", true), u"");
    script.families[L"F"].sections.erase(L"A");
    EXPECT_EQ(manager.GetLibraryProviderName(u"F", u"", true), u"市站");
    script.families[L"F"].sections.erase(L"B");
    EXPECT_EQ(manager.GetLibraryProviderName(u"F", u"", true), u"");
    Calls();
    EXPECT_EQ(manager.GetLibraryProviderName(u"", u"A", true), u"");
    EXPECT_TRUE(Calls().empty());
}

TEST_F(Tables, TheProductsOwnLibrariesAreShownUnderTheFamily) {
    A().provider = L"墨衡";
    EXPECT_EQ(manager.GetLibraryProviderName(u"F", u"", false), u"F");
    EXPECT_EQ(manager.GetLibraryProviderName(u"F", u"", true), u"墨衡");
    A().provider = L"墨衡科技";
    EXPECT_EQ(manager.GetLibraryProviderName(u"F", u"", false), u"墨衡科技");
}

TEST_F(Tables, AnEmptyProviderIsAnAnswer) {
    A().provider = L"";
    B().provider = L"市站";
    EXPECT_EQ(manager.GetLibraryProviderName(u"F", u"", true), u"");
}

// --- Keys

TEST_F(Tables, ANameByItsKey) {
    A().quotas = {{L"1", Entry(L"the name", L"f")}};
    A().quotaKeys = {{L"K", L"1"}, {L"", L"1"}};
    EXPECT_EQ(manager.GetQuotaLibraryName(u"F", u"A", u"K"), u"the name");
    EXPECT_EQ(manager.GetQuotaLibraryName(u"F", u"A", u""), u"the name") << "no text is tested";
    EXPECT_EQ(manager.GetQuotaLibraryName(u"F", u"A", u"k"), u"");
    EXPECT_EQ(manager.GetQuotaLibraryName(u"F", u"B", u"K"), u"");
    Calls();
    EXPECT_EQ(manager.GetQuotaLibraryName(u"", u"", u""), u"");
    EXPECT_EQ(manager.GetQuotaLibraryName(u"F", u"A", u"x"), u"");
    EXPECT_EQ(Calls(), (Asked{L"section[][]", L"section[F][A]", L"by key[x][1]"}));
}

TEST_F(Tables, TheFirstSectionWithAKey) {
    B().quotas = {{L"1", Entry(L"", L"")}};
    B().quotaKeys = {{L"K", L"1"}};
    EXPECT_EQ(manager.FindLibrarySection(u"F", u"K"), u"B");
    EXPECT_EQ(Calls(),
              (Asked{L"path1[F][][]", L"section[F][A]", L"by key[K][1]", L"section[F][B]", L"by key[K][1]"}));
    A().quotas = B().quotas;
    A().quotaKeys = B().quotaKeys;
    EXPECT_EQ(manager.FindLibrarySection(u"F", u"K"), u"A");
    EXPECT_EQ(manager.FindLibrarySection(u"F", u"x"), u"");
    script.families[L"F"].sections.erase(L"A");
    EXPECT_EQ(manager.FindLibrarySection(u"F", u"K"), u"B");
    Calls();
    EXPECT_EQ(manager.FindLibrarySection(u"", u"K"), u"");
    EXPECT_EQ(manager.FindLibrarySection(u"F", u""), u"");
    EXPECT_TRUE(Calls().empty());
}

TEST_F(Tables, TextsOfEnterpriseBills) {
    script.families[L"F"].enterpriseRecords = {{L"x", {L"its name", L"its text"}},
                                               {L"", {L"", L"of no name"}}};
    EXPECT_EQ(manager.GetEnterpriseBillLibraryText(u"F", u"x"), u"its text");
    EXPECT_EQ(manager.GetEnterpriseBillLibraryText(u"F", u""), u"of no name");
    EXPECT_EQ(manager.GetEnterpriseBillLibraryText(u"F", u"unknown"), u"");
    EXPECT_EQ(manager.GetEnterpriseBillLibraryText(u"G", u"x"), u"");
    EXPECT_EQ(Calls(), (Asked{L"enterprise[F]", L"bill record[x]", L"enterprise[F]", L"bill record[]",
                              L"enterprise[F]", L"bill record[unknown]", L"enterprise[G]"}));
    EXPECT_EQ(manager.GetEnterpriseBillLibraryText(u"", u"x"), u"");
    EXPECT_TRUE(Calls().empty());
}

TEST_F(Tables, NothingIsKeptBetweenCalls) {
    A().provider = L"one";
    EXPECT_EQ(manager.GetLibraryProviderName(u"F", u"A", true), u"one");
    A().provider = L"two";
    EXPECT_EQ(manager.GetLibraryProviderName(u"F", u"A", true), u"two");
    EXPECT_EQ(Calls(), (Asked{L"section[F][A]", L"provider", L"section[F][A]", L"provider"}));
}

}  // namespace
