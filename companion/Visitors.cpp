#include "companion/Visitors.h"

#include <exception>

#include "companion/Catalogue.h"

namespace Companion {

namespace {

template <typename Value>
void Take(const std::optional<Value>& known, Value& target) noexcept {
    if (known)
        target = *known;
}

/// A text by value; empty when there is no memory for it, since no exception may leave the module.
template <typename Make>
std::wstring TextOrNothing(Make make) noexcept {
    try {
        return make();
    } catch (const std::exception&) {
        return {};
    }
}

}  // namespace

std::wstring DirectoryVisitor::GetLibraryPath(const LibraryPathQuery& query) noexcept {
    return TextOrNothing([&] { return m_catalogue.folders.Path(query); });
}

std::wstring DirectoryVisitor::GetLibraryTag(const std::wstring& name) noexcept {
    const auto found = m_catalogue.itemTags.find(name);
    return TextOrNothing(
        [&] { return found == m_catalogue.itemTags.end() ? std::wstring() : found->second; });
}

std::wstring SectionVisitor::GetLibraryOwner() noexcept {
    return TextOrNothing([&] { return m_section.owner; });
}

std::wstring SectionVisitor::GetLibraryProvider() noexcept {
    return TextOrNothing([&] { return m_section.provider; });
}

LibraryEntry* SectionVisitor::FindEntryByKey(const std::wstring& key, std::int32_t kind) noexcept {
    LibraryTable* const table = m_section.Kind(kind);
    if (table == nullptr)
        return nullptr;
    const auto found = table->byKey.find(key);
    return found == table->byKey.end() ? nullptr : &found->second->entry;
}

LibraryEntry* SectionVisitor::FindEntryByName(const std::wstring& name, std::int32_t kind) noexcept {
    LibraryTable* const table = m_section.Kind(kind);
    if (table == nullptr)
        return nullptr;
    const auto found = table->byName.find(name);
    return found == table->byName.end() ? nullptr : &found->second.entry;
}

void SectionVisitor::GetLibraryEntries(std::map<std::wstring, LibraryEntry*>& entries,
                                       std::int32_t kind) noexcept {
    LibraryTable* const table = m_section.Kind(kind);
    if (table == nullptr)
        return;
    try {
        for (auto& [name, library] : table->byName)
            entries.insert_or_assign(entries.end(), name, &library.entry);
    } catch (const std::exception&) {
        // The caller has as many as there was memory for.
    }
}

bool BillVisitor::GetRule(BillLibraryRule& rule) noexcept {
    if (!m_library.rule)
        return false;
    Take(m_library.rule->count1, rule.nCount1);
    Take(m_library.rule->count2, rule.nCount2);
    Take(m_library.rule->flag1, rule.bFlag1);
    Take(m_library.rule->flag2, rule.bFlag2);
    return true;
}

EnterpriseBillFile* FamilyVisitor::FindBillFile(const std::wstring& name) noexcept {
    const auto found = m_family.bills.find(name);
    return found == m_family.bills.end() || found->second.file.FileName.empty() ? nullptr
                                                                                : &found->second.file;
}

EnterpriseBillRecord* FamilyVisitor::FindBillRecord(const std::wstring& name) noexcept {
    const auto found = m_family.bills.find(name);
    return found == m_family.bills.end() ? nullptr : &found->second.record;
}

}  // namespace Companion
