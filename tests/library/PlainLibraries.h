// The manager over lists in memory, rule by rule, without a disk and without a companion: the model that the
// real one is compared with.
#pragma once

#include <algorithm>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "QsUtils/library/LibraryManager.h"

struct PlainEntry {
    std::wstring key, name, libraryFile, dataFile;
    std::vector<std::wstring> tags, itemTags;
    bool isNull = false;
};

struct PlainSection {
    std::wstring name;
    bool isOnDisk = true;
    bool isKnown = true;  ///< to the companion
    std::wstring owner, provider;
    std::vector<PlainEntry> bills, quotas;                         ///< ascending by key
    std::vector<std::pair<std::wstring, std::wstring>> quotaKeys;  ///< from a search key to an entry's key
    std::map<std::wstring, BillLibraryRule> rules;
    std::vector<std::wstring> items;  ///< on disk, in its order
    std::vector<std::wstring> billFiles, quotaFiles, besideFiles;
    std::vector<std::pair<std::wstring, std::wstring>> itemFiles;  ///< item, file
    bool hasBillFolder = true, hasQuotaFolder = true, hasBesideFolder = true, hasItemFolder = true;
};

struct PlainFamily {
    std::wstring name;
    bool isOnDisk = true;
    std::vector<PlainSection> sections;  ///< ascending
    bool hasEnterprise = true;
    std::map<std::wstring, std::wstring> enterpriseFiles, enterpriseTexts;
    std::vector<std::wstring> enterpriseOnDisk;
};

struct PlainLibraries {
    using Text = std::wstring;
    using Texts = std::vector<Text>;
    /// A found file: the path kind, family, section, item (or provider) and file; or a bare name.
    struct Found {
        int kind = -1;
        Text family, section, inner, file;
        bool isBare = false;
        bool isNothing = true;
    };

    std::vector<PlainFamily> families;  ///< in the order of the disk
    std::map<Text, Text> tags;
    Texts here;  ///< files in the current folder

    static bool Has(const Texts& texts, const Text& text) {
        return std::find(texts.begin(), texts.end(), text) != texts.end();
    }
    const PlainFamily* FamilyOf(const Text& name) const {
        for (const PlainFamily& family : families)
            if (family.name == name)
                return &family;
        return nullptr;
    }
    const PlainSection* SectionOf(const Text& family, const Text& name) const {
        const PlainFamily* const place = FamilyOf(family);
        if (place != nullptr)
            for (const PlainSection& section : place->sections)
                if (section.name == name)
                    return &section;
        return nullptr;
    }
    const PlainSection* Known(const Text& family, const Text& name) const {
        const PlainSection* const section = SectionOf(family, name);
        return section != nullptr && section->isKnown ? section : nullptr;
    }

    Texts Sections(const Text& family) const {
        Texts names;
        if (const PlainFamily* const place = FamilyOf(family); place != nullptr && place->isOnDisk)
            for (const PlainSection& section : place->sections)
                if (section.isOnDisk)
                    names.push_back(section.name);
        return names;
    }
    Texts SectionList(const Text& family, const Text& section) const {
        return section.empty() ? Sections(family) : Texts{section};
    }
    Texts Items(const Text& family, const Text& section) const {
        const PlainFamily* const place = FamilyOf(family);
        const PlainSection* const inside = SectionOf(family, section);
        if (section.empty() || inside == nullptr || !place->isOnDisk || !inside->isOnDisk ||
            !inside->hasItemFolder)
            return {};
        return inside->items;
    }

    Texts Families() const {
        Texts names;
        for (const PlainFamily& family : families) {
            if (!family.isOnDisk || family.name == L"清单库" || family.name == L"LibDownTmp")
                continue;
            bool offers = false;
            for (const Text& name : Sections(family.name))
                if (const PlainSection* const section = Known(family.name, name))
                    for (const PlainEntry& entry : section->quotas)
                        offers = offers || (!entry.isNull && Has(entry.tags, L"ZJ"));
            if (offers)
                names.push_back(family.name);
        }
        return names;
    }
    Text DisplayName(const Text& family) const {
        const Texts sections = Sections(family);
        const PlainSection* const first = sections.empty() ? nullptr : Known(family, sections[0]);
        if (family.empty() || first == nullptr)
            return {};
        return first->owner == L"墨衡" ? family : first->owner;
    }

    /// The provider below whose folder the bill libraries lie; empty when there is no such folder.
    Text BillProvider(const Text& family, const Text& section) const {
        const PlainSection* const known = Known(family, section);
        return known != nullptr && known->hasBillFolder ? known->provider : Text();
    }
    bool IsThere(const Text& family, const Text& section, const Texts PlainSection::*files,
                 const Text& file) const {
        const PlainFamily* const place = FamilyOf(family);
        const PlainSection* const inside = SectionOf(family, section);
        return inside != nullptr && place->isOnDisk && inside->isOnDisk && Has(inside->*files, file);
    }

    Texts BillFiles(const Text& family, const Text& section) const {
        Texts files;
        if (family.empty() || section.empty() || BillProvider(family, section).empty())
            return files;
        for (const PlainEntry& entry : Known(family, section)->bills)
            if (!entry.isNull && Has(entry.tags, L"ZJ") &&
                IsThere(family, section, &PlainSection::billFiles, entry.libraryFile))
                files.push_back(entry.libraryFile);
        return files;
    }
    Texts QuotaNames(const Text& family, const Text& section, const Text& item) const {
        Texts names;
        if (family.empty() || section.empty())
            return names;
        const PlainSection* const known = Known(family, section);
        const Text tag = tags.contains(item) ? tags.at(item) : Text();
        if (item.empty()) {
            for (const Text& each : Items(family, section))
                for (const Text& name : QuotaNames(family, section, each))
                    names.push_back(name);
        } else if (known != nullptr && known->hasQuotaFolder) {
            for (const PlainEntry& entry : known->quotas)
                if (!entry.isNull && Has(entry.itemTags, tag) && Has(entry.tags, L"ZJ") &&
                    IsThere(family, section, &PlainSection::quotaFiles, entry.dataFile))
                    names.push_back(entry.libraryFile);
        }
        return names;
    }

    /// A file in a folder, or in the current one when there is no folder.
    Found Look(bool hasFolder, bool isThere, Found place) const {
        place.isBare = !hasFolder;
        place.isNothing = hasFolder ? !isThere : !Has(here, place.file);
        return place;
    }
    template <typename Candidate>
    Found InSections(const Text& family, const Text& section, const Text& name, Candidate candidate) const {
        if (!family.empty() && !name.empty())
            for (const Text& each : SectionList(family, section))
                if (const Found found = candidate(each); !found.isNothing)
                    return found;
        return {};
    }

    Found FindBill(const Text& family, const Text& section, const Text& name) const {
        return InSections(family, section, name, [&](const Text& each) {
            const Text provider = BillProvider(family, each);
            return Look(!provider.empty(), IsThere(family, each, &PlainSection::billFiles, name),
                        {3, family, each, provider, name});
        });
    }
    /// For names of five units and more, so that the cut stays in the name.
    Found FindBeside(const Text& family, const Text& section, const Text& name, const Text& ending) const {
        const Text file = name.substr(0, name.size() - 4) + ending;
        return InSections(family, section, name, [&](const Text& each) {
            const PlainSection* const inside = SectionOf(family, each);
            return Look(inside == nullptr || inside->hasBesideFolder,
                        IsThere(family, each, &PlainSection::besideFiles, file), {6, family, each, {}, file});
        });
    }
    Found FindQuota(const Text& family, const Text& section, const Text& name) const {
        return InSections(family, section, name, [&](const Text& each) {
            const PlainSection* const known = Known(family, each);
            if (known != nullptr)
                for (const PlainEntry& entry : known->quotas)
                    if (!entry.isNull && entry.name == name)
                        return Look(known->hasQuotaFolder,
                                    IsThere(family, each, &PlainSection::quotaFiles, entry.dataFile),
                                    {2, family, each, {}, entry.dataFile});
            return Found{};
        });
    }
    Found FindSub(const Text& family, const Text& section, const Text& item, const Text& name) const {
        return InSections(family, section, name, [&](const Text& each) {
            const PlainFamily* const place = FamilyOf(family);
            const PlainSection* const inside = SectionOf(family, each);
            for (const Text& one : item.empty() ? Items(family, each) : Texts{item}) {
                const bool isThere = inside != nullptr && place->isOnDisk && inside->isOnDisk &&
                                     std::find(inside->itemFiles.begin(), inside->itemFiles.end(),
                                               std::pair(one, name)) != inside->itemFiles.end();
                if (isThere)
                    return Look(true, true, {13, family, each, one, name});
            }
            return Found{};
        });
    }
    Found EnterpriseFile(const Text& family, const Text& name) const {
        const PlainFamily* const place = FamilyOf(family);
        if (family.empty() || name.empty() || place == nullptr || !place->hasEnterprise ||
            !place->enterpriseFiles.contains(name))
            return {};
        const Text file = place->enterpriseFiles.at(name);
        return Look(true, Has(place->enterpriseOnDisk, file), {5, family, {}, {}, file});
    }
    Text EnterpriseText(const Text& family, const Text& name) const {
        const PlainFamily* const place = FamilyOf(family);
        const bool has = place != nullptr && place->hasEnterprise && place->enterpriseTexts.contains(name);
        return has ? place->enterpriseTexts.at(name) : Text();
    }

    /// Name, and the found place of its file; the first one of a name.
    std::vector<std::pair<Text, Found>> Table(const Text& family, bool ofBills) const {
        std::vector<std::pair<Text, Found>> table;
        const auto isNew = [&](const Text& name) {
            return std::none_of(table.begin(), table.end(),
                                [&](const auto& row) { return row.first == name; });
        };
        for (const Text& each : Sections(family)) {
            const PlainSection* const known = Known(family, each);
            const Text provider = BillProvider(family, each);
            if (known == nullptr || (ofBills ? provider.empty() : !known->hasQuotaFolder))
                continue;
            for (const PlainEntry& entry : ofBills ? known->bills : known->quotas)
                if (!entry.isNull && isNew(entry.name))
                    table.push_back({entry.name,
                                     {ofBills ? 3 : 2, family, each, ofBills ? provider : Text(),
                                      ofBills ? entry.libraryFile : entry.dataFile, false, false}});
        }
        return table;
    }
    std::map<Text, BillLibraryRule> Rules(const Text& family) const {
        std::map<Text, BillLibraryRule> rules;
        for (const Text& each : Sections(family)) {
            if (BillProvider(family, each).empty())
                continue;
            const PlainSection& known = *Known(family, each);
            for (const PlainEntry& entry : known.bills)
                if (!entry.isNull && !entry.name.empty() && known.rules.contains(entry.name) &&
                    !rules.contains(entry.name))
                    rules[entry.name] = known.rules.at(entry.name);
        }
        return rules;
    }
    std::vector<std::tuple<Text, Text, Text>> Entries(const Text& family) const {
        std::vector<std::tuple<Text, Text, Text>> rows;
        for (const Text& each : Sections(family))
            if (const PlainSection* const known = Known(family, each))
                for (const PlainEntry& entry : known->quotas)
                    if (!entry.isNull)
                        rows.emplace_back(entry.name, entry.libraryFile,
                                          entry.itemTags.empty() ? Text() : entry.itemTags[0]);
        return rows;
    }
    Text Provider(const Text& family, const Text& section, bool keep) const {
        if (!family.empty())
            for (const Text& each : SectionList(family, section))
                if (const PlainSection* const known = Known(family, each))
                    return !keep && known->provider == L"墨衡" ? family : known->provider;
        return {};
    }
    const PlainEntry* ByKey(const Text& family, const Text& section, const Text& key) const {
        if (const PlainSection* const known = Known(family, section))
            for (const auto& [search, entryKey] : known->quotaKeys)
                if (search == key)
                    for (const PlainEntry& entry : known->quotas)
                        if (entry.key == entryKey && !entry.isNull)
                            return &entry;
        return nullptr;
    }
    Text SectionOfKey(const Text& family, const Text& key) const {
        if (!family.empty() && !key.empty())
            for (const Text& each : Sections(family))
                if (ByKey(family, each, key) != nullptr)
                    return each;
        return {};
    }
};
