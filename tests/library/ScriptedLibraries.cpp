#include "tests/library/ScriptedLibraries.h"

namespace {

std::wstring Brackets(std::initializer_list<std::wstring> fields) {
    std::wstring text;
    for (const std::wstring& each : fields)
        text += L"[" + each + L"]";
    return text;
}

template <typename Map>
auto* Find(Map& map, const typename Map::key_type& key) {
    const auto found = map.find(key);
    return found == map.end() ? nullptr : &found->second;
}

}  // namespace

std::wstring ScriptedLibraries::PathOf(int kind, const std::wstring& family, const std::wstring& section,
                                       const std::wstring& item) const {
    const std::wstring root = m_base + L"families\\";
    const std::wstring inSection = root + family + L"\\" + section + L"\\";
    switch (kind) {
        case LibraryPath_Root:
            return root;
        case LibraryPath_Family:
            return root + family + L"\\";
        case LibraryPath_Quota:
            return inSection + L"quota\\";
        case LibraryPath_BillRoot:
            return inSection + L"bill\\";
        case LibraryPath_EnterpriseBill:
            return m_base + L"enterprise\\" + family + L"\\";
        case LibraryPath_CompanionFile:
            return inSection + L"beside\\";
        case LibraryPath_SubLibraryRoot:
            return inSection + L"items\\";
        case LibraryPath_SubLibrary:
            return inSection + L"items\\" + item + L"\\";
        default:
            return inSection + std::to_wstring(kind) + L"\\";
    }
}

void ScriptedLibraries::Initialise(const wchar_t* folder, std::int32_t product) {
    Record(L"initialise" + Brackets({folder, std::to_wstring(product)}));
}

ILibraryGlobalConfigVisitor* ScriptedLibraries::SectionVisitor(const wchar_t* family,
                                                               const wchar_t* section) {
    Record(L"section" + Brackets({family, section}));
    ScriptedFamily* const known = Find(families, family);
    m_section = known == nullptr ? nullptr : Find(known->sections, section);
    return m_section == nullptr ? nullptr : this;
}

IBillLibraryConfigVisitor* ScriptedLibraries::BillVisitor(const wchar_t* family, const wchar_t* section,
                                                          const wchar_t* library) {
    Record(L"bill" + Brackets({family, section, library}));
    ScriptedFamily* const known = Find(families, family);
    ScriptedSection* const place = known == nullptr ? nullptr : Find(known->sections, section);
    m_rule = place == nullptr ? nullptr : Find(place->rules, library);
    return m_rule == nullptr ? nullptr : this;
}

IEnterpriseBillLibraryConfigVisitor* ScriptedLibraries::EnterpriseVisitor(const wchar_t* family) {
    Record(L"enterprise" + Brackets({family}));
    m_family = Find(families, family);
    return m_family == nullptr ? nullptr : this;
}

std::int32_t ScriptedLibraries::Series() {
    Record(L"series");
    return series;
}

std::wstring ScriptedLibraries::GetLibraryPath(const LibraryPathQuery& query) {
    const std::wstring text =
        std::to_wstring(query.PathKind) + Brackets({query.Family, query.Section, query.Item});
    Record(L"path" + text + query.Reserved);
    return noFolders.contains(text) ? std::wstring()
                                    : PathOf(query.PathKind, query.Family, query.Section, query.Item);
}

std::wstring ScriptedLibraries::GetLibraryTag(const std::wstring& name) {
    Record(L"tag" + Brackets({name}));
    const std::wstring* const tag = Find(tags, name);
    return tag == nullptr ? std::wstring() : *tag;
}

std::wstring ScriptedLibraries::GetLibraryOwner() {
    Record(L"owner");
    return m_section->owner;
}

std::wstring ScriptedLibraries::GetLibraryProvider() {
    Record(L"provider");
    return m_section->provider;
}

LibraryEntry* ScriptedLibraries::FindEntryByKey(const std::wstring& key, std::int32_t kind) {
    Record(L"by key" + Brackets({key, std::to_wstring(kind)}));
    const std::wstring* const name = Find(m_section->quotaKeys, key);
    std::optional<LibraryEntry>* const entry = name == nullptr ? nullptr : Find(Of(kind), *name);
    return entry == nullptr || !*entry ? nullptr : &**entry;
}

LibraryEntry* ScriptedLibraries::FindEntryByName(const std::wstring& name, std::int32_t kind) {
    Record(L"by name" + Brackets({name, std::to_wstring(kind)}));
    for (auto& [key, entry] : Of(kind)) {
        if (entry && entry->Name == name)
            return &*entry;
    }
    return nullptr;
}

void ScriptedLibraries::GetLibraryEntries(std::map<std::wstring, LibraryEntry*>& entries, std::int32_t kind) {
    Record(L"entries" + Brackets({std::to_wstring(kind)}));
    for (auto& [key, entry] : Of(kind))
        entries[key] = entry ? &*entry : nullptr;
}

bool ScriptedLibraries::GetRule(BillLibraryRule& rule) {
    Record(L"rule" + Brackets({std::to_wstring(rule.nCount1), std::to_wstring(rule.nCount2),
                               rule.bFlag1 ? L"1" : L"0", rule.bFlag2 ? L"1" : L"0"}));
    if (*m_rule)
        rule = **m_rule;
    return false;  // nobody asks
}

EnterpriseBillFile* ScriptedLibraries::FindBillFile(const std::wstring& name) {
    Record(L"bill file" + Brackets({name}));
    return Find(m_family->enterpriseFiles, name);
}

EnterpriseBillRecord* ScriptedLibraries::FindBillRecord(const std::wstring& name) {
    Record(L"bill record" + Brackets({name}));
    return Find(m_family->enterpriseRecords, name);
}
