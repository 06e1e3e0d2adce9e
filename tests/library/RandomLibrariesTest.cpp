// Random small installations: the manager over a disk and a companion beside the plain model.
#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/library/PlainLibraries.h"
#include "tests/library/TestInstallation.h"
#include "tests/support/Rounds.h"

namespace {

using Text = std::wstring;
using PlainTexts = std::vector<Text>;

// Ascending by upper-cased unit, as the disk gives them. No two differ in case alone: one system couldn't
// tell them apart.
const PlainTexts familyNames = {L"10", L"9", L"LibDownTmp", L"x y", L"安徽", L"清单库"};
const PlainTexts sectionNames = {L"B2", L"a", L"a_c", L"安装"};  // ascending by unit
const PlainTexts itemNames = {L"a", L"B", L"土建"};
const PlainTexts names = {L"", L"n1", L"n2", L"建筑"};
const PlainTexts files = {L"one.x", L"two.x", L"three.x", L"四四四.x"};
const PlainTexts tags = {L"", L"t", L"T"};
const PlainTexts providers = {L"", L"P", L"墨衡"};

class Generator {
public:
    explicit Generator(unsigned seed) : m_random(seed) {}

    bool Chance(int percent) { return Number(100) < percent; }
    int Number(int below) { return std::uniform_int_distribution<int>(0, below - 1)(m_random); }
    const Text& One(const PlainTexts& texts) {
        return texts[static_cast<std::size_t>(Number(static_cast<int>(texts.size())))];
    }
    PlainTexts Some(const PlainTexts& texts, int percent) {
        PlainTexts some;
        for (const Text& each : texts) {
            if (Chance(percent))
                some.push_back(each);
        }
        return some;
    }

    PlainLibraries Libraries() {
        PlainLibraries libraries;
        for (const Text& name : Some(familyNames, 60))
            libraries.families.push_back(Family(name));
        for (const Text& item : Some(itemNames, 80))
            libraries.tags[item] = One(tags);
        libraries.here = Some(files, 20);
        return libraries;
    }

private:
    PlainFamily Family(const Text& name) {
        PlainFamily family;
        family.name = name;
        family.isOnDisk = Chance(90);
        for (const Text& section : Some(sectionNames, 60))
            family.sections.push_back(Section(section));
        family.hasEnterprise = Chance(80);
        for (const Text& each : Some(names, 50))
            family.enterpriseFiles[each] = One(files);
        for (const Text& each : Some(names, 50))
            family.enterpriseTexts[each] = One(names);
        family.enterpriseOnDisk = Some(files, 50);
        return family;
    }

    PlainSection Section(const Text& name) {
        PlainSection section;
        section.name = name;
        section.isOnDisk = Chance(85);
        section.isKnown = Chance(85);
        section.owner = One(providers);
        section.provider = One(providers);
        section.bills = Entries();
        section.quotas = Entries();
        for (const Text& key : Some(names, 40))
            section.quotaKeys.emplace_back(key, One({L"k0", L"k1", L"k2", L"k3"}));
        for (const Text& each : Some(names, 60))
            section.rules[each] = {Number(20), Number(5), Chance(50), Chance(50)};
        section.items = Some(itemNames, 60);
        section.billFiles = Some(files, 50);
        section.quotaFiles = Some(files, 50);
        section.besideFiles = Some({L"one.drt", L"two.drt", L"two.config", L"四四四.config"}, 50);
        for (const Text& item : section.items) {
            for (const Text& file : Some(files, 40))
                section.itemFiles.emplace_back(item, file);
        }
        section.hasBillFolder = Chance(85);
        section.hasQuotaFolder = Chance(85);
        section.hasBesideFolder = Chance(85);
        section.hasItemFolder = Chance(85);
        return section;
    }

    std::vector<PlainEntry> Entries() {
        std::vector<PlainEntry> entries;
        for (const Text& key : Some({L"k0", L"k1", L"k2", L"k3"}, 60))
            entries.push_back({key, One(names), One(files), One(files), Some({L"ZJ", L"zj", L""}, 60),
                               Some(tags, 50), Chance(15)});
        return entries;
    }

    std::mt19937 m_random;
};

// --- The model's libraries on disk and in the companion

std::map<Text, std::optional<LibraryEntry>> Scripted(const std::vector<PlainEntry>& entries) {
    std::map<Text, std::optional<LibraryEntry>> scripted;
    for (const PlainEntry& each : entries)
        scripted[each.key] = each.isNull
                                 ? std::nullopt
                                 : std::optional(LibraryEntry{each.name, each.libraryFile, each.dataFile,
                                                              each.tags, each.itemTags});
    return scripted;
}

ScriptedSection Scripted(const PlainSection& section) {
    ScriptedSection scripted{
        section.owner, section.provider, Scripted(section.bills), Scripted(section.quotas), {}, {}};
    scripted.quotaKeys.insert(section.quotaKeys.begin(), section.quotaKeys.end());
    for (const auto& [name, rule] : section.rules)
        scripted.rules[name] = rule;
    return scripted;
}

class Installed {
public:
    Installed(const PlainLibraries& libraries, ScriptedLibraries& script) : m_script(script) {
        script.tags.insert(libraries.tags.begin(), libraries.tags.end());
        for (const Text& file : libraries.here)
            TestInstallation::Make((TestInstallation::Directory() + u"work\\").ToWide() + file);
        for (const PlainFamily& family : libraries.families)
            Install(family);
    }

private:
    void Make(int kind, const Text& family, const Text& section, const Text& file) {
        TestInstallation::Make(m_script.PathOf(kind, family, section, {}) + file);
    }

    void Install(const PlainFamily& family) {
        ScriptedFamily& known = m_script.families[family.name];
        for (const PlainSection& section : family.sections) {
            if (section.isKnown)
                known.sections[section.name] = Scripted(section);
            NoFolders(family.name, section);
            if (family.isOnDisk && section.isOnDisk)
                Install(family.name, section);
        }
        if (family.isOnDisk)
            Make(LibraryPath_Family, family.name, {}, {});
        for (const Text& file : family.enterpriseOnDisk)
            Make(LibraryPath_EnterpriseBill, family.name, {}, file);
        for (const auto& [name, file] : family.enterpriseFiles)
            known.enterpriseFiles[name] = {file};
        for (const auto& [name, text] : family.enterpriseTexts)
            known.enterpriseRecords[name] = {L"not this", text};
        if (!family.hasEnterprise)
            m_script.noEnterprise.insert(family.name);
    }

    void NoFolders(const Text& family, const PlainSection& section) {
        const Text place = L"[" + family + L"][" + section.name + L"][]";
        if (!section.hasBillFolder)
            m_script.noFolders.insert(L"3" + place);
        if (!section.hasQuotaFolder)
            m_script.noFolders.insert(L"2" + place);
        if (!section.hasBesideFolder)
            m_script.noFolders.insert(L"6" + place);
        if (!section.hasItemFolder)
            m_script.noFolders.insert(L"7" + place);
    }

    void Install(const Text& family, const PlainSection& section) {
        Make(LibraryPath_Family, family, {}, section.name + L"\\");
        if (!section.provider.empty()) {
            for (const Text& file : section.billFiles)
                Make(LibraryPath_BillRoot, family, section.name, section.provider + L"\\" + file);
        }
        for (const Text& file : section.quotaFiles)
            Make(LibraryPath_Quota, family, section.name, file);
        for (const Text& file : section.besideFiles)
            Make(LibraryPath_CompanionFile, family, section.name, file);
        for (const Text& item : section.items)
            Make(LibraryPath_SubLibraryRoot, family, section.name, item + L"\\");
        for (const auto& [item, file] : section.itemFiles)
            Make(LibraryPath_SubLibraryRoot, family, section.name, item + L"\\" + file);
    }

    ScriptedLibraries& m_script;
};

// --- Comparisons

std::vector<CString> ToTexts(const PlainTexts& wide) {
    return std::vector<CString>(wide.begin(), wide.end());
}

std::vector<CString> Appended(const PlainTexts& wide) {
    std::vector<CString> texts = {u"before"};
    texts.insert(texts.end(), wide.begin(), wide.end());
    return texts;
}

bool Same(const BillLibraryRule& a, const BillLibraryRule& b) {
    return a.nCount1 == b.nCount1 && a.nCount2 == b.nCount2 && a.bFlag1 == b.bFlag1 && a.bFlag2 == b.bFlag2;
}

class RandomLibraries : public Libraries {
protected:
    CString PathIn(const PlainLibraries::Found& found) const {
        if (found.isNothing)
            return CString();
        if (found.isBare)
            return found.file;
        const Text inner =
            found.inner.empty() || found.kind == LibraryPath_SubLibrary ? Text() : found.inner + L"\\";
        return CString(script.PathOf(found.kind, found.family, found.section, found.inner) + inner +
                       found.file);
    }

    void CompareListings(const Text& family, const Text& section, const Text& item) {
        std::vector<CString> out = {u"before"};
        manager.GetFamilySections(out, family);
        EXPECT_EQ(out, ToTexts(model.Sections(family)));
        out = {u"before"};
        manager.GetSectionItems(out, family, section);
        EXPECT_EQ(out, Appended(model.Items(family, section)));
        out = {u"before"};
        manager.GetBillLibraryFiles(out, family, section);
        EXPECT_EQ(out, Appended(model.BillFiles(family, section)));
        out = {u"before"};
        manager.GetQuotaLibraryNames(out, family, section, item);
        EXPECT_EQ(out, Appended(model.QuotaNames(family, section, item)));
        EXPECT_EQ(manager.GetFamilyDisplayName(family), CString(model.DisplayName(family)));
    }

    void CompareSearches(const Text& family, const Text& section, const Text& item, const Text& file,
                         const Text& name) {
        EXPECT_EQ(manager.FindBillLibraryFile(family, section, file),
                  PathIn(model.FindBill(family, section, file)));
        EXPECT_EQ(manager.FindDrtFile(family, section, file + L"yz"),
                  PathIn(model.FindBeside(family, section, file + L"yz", L".drt")));
        EXPECT_EQ(manager.FindConfigFile(family, section, file + L"yz"),
                  PathIn(model.FindBeside(family, section, file + L"yz", L".config")));
        EXPECT_EQ(manager.FindQuotaLibraryFile(family, section, name),
                  PathIn(model.FindQuota(family, section, name)));
        EXPECT_EQ(manager.FindSubLibraryFile(family, section, item, file),
                  PathIn(model.FindSub(family, section, item, file)));
        EXPECT_EQ(manager.GetEnterpriseBillLibraryFile(family, name),
                  PathIn(model.EnterpriseFile(family, name)));
        EXPECT_EQ(manager.GetEnterpriseBillLibraryText(family, name),
                  CString(model.EnterpriseText(family, name)));
    }

    void CompareKeys(const Text& family, const Text& section, const Text& name) {
        for (const bool keep : {false, true})
            EXPECT_EQ(manager.GetLibraryProviderName(family, section, keep),
                      CString(model.Provider(family, section, keep)));
        const PlainEntry* const entry = model.ByKey(family, section, name);
        EXPECT_EQ(manager.GetQuotaLibraryName(family, section, name),
                  entry == nullptr ? CString() : CString(entry->name));
        EXPECT_EQ(manager.FindLibrarySection(family, name), CString(model.SectionOfKey(family, name)));
        BillLibraryRule rule{-1, -1, false, true};
        BillLibraryRule expected = rule;
        const PlainSection* const known = model.Known(family, section);
        const bool has = known != nullptr && !name.empty() && known->rules.contains(name);
        if (has) {
            expected = known->rules.at(name);
            expected.bFlag2 = true;
        }
        EXPECT_EQ(manager.GetBillLibraryRule(family, section, name, rule), has);
        EXPECT_TRUE(Same(rule, expected));
    }

    void CompareTables(const Text& family) {
        std::map<CString, CString> bills;
        std::map<CString, CString> quotas;
        std::map<CString, BillLibraryRule> rules;
        manager.GetBillLibraries(family, rules, bills);
        manager.GetQuotaLibraries(family, quotas);
        EXPECT_EQ(bills, Expected(model.Table(family, true)));
        EXPECT_EQ(quotas, Expected(model.Table(family, false)));
        const std::map<Text, BillLibraryRule> expected = model.Rules(family);
        EXPECT_TRUE(std::equal(rules.begin(), rules.end(), expected.begin(), expected.end(),
                               [](const auto& a, const auto& b) {
                                   return a.first == CString(b.first) && Same(a.second, b.second);
                               }));
        std::vector<LibraryEntryInfo> entries;
        EXPECT_EQ(manager.GetQuotaLibraryEntries(family, u"", entries), !family.empty());
        std::vector<std::tuple<Text, Text, Text>> rows;
        for (const LibraryEntryInfo& each : entries)
            rows.emplace_back(each.Name.ToWide(), each.LibraryFile.ToWide(), each.FirstItemTag.ToWide());
        EXPECT_EQ(rows, model.Entries(family));
    }

    std::map<CString, CString> Expected(
        const std::vector<std::pair<Text, PlainLibraries::Found>>& table) const {
        std::map<CString, CString> expected;
        for (const auto& [name, found] : table)
            expected.emplace(name, PathIn(found));
        return expected;
    }

    PlainLibraries model;
};

TEST_F(RandomLibraries, TheManagerAnswersAsThePlainModelDoes) {
    const auto withEmpty = [](PlainTexts texts, const Text& unknown) {
        texts.insert(texts.end(), {L"", unknown});
        return texts;
    };
    const int rounds = FileRounds(300);
    for (int round = 0; round < rounds && !HasFailure(); ++round) {
        SCOPED_TRACE(round);
        Generator generator(static_cast<unsigned>(round));
        TestInstallation::ClearLibraries();
        script.Forget();
        model = generator.Libraries();
        const Installed installed(model, script);
        std::vector<CString> families = {u"before"};
        manager.GetLibraryFamilies(families);
        EXPECT_EQ(families, ToTexts(model.Families()));
        for (int question = 0; question < 10; ++question) {
            const Text family = generator.One(withEmpty(familyNames, L"no family"));
            const Text section = generator.One(withEmpty(sectionNames, L"no section"));
            const Text item = generator.One(withEmpty(itemNames, L"no item"));
            const Text name = generator.One(names);
            CompareListings(family, section, item);
            CompareSearches(family, section, item, generator.One(files), name);
            CompareKeys(family, section, name);
            CompareTables(family);
        }
    }
}

}  // namespace
