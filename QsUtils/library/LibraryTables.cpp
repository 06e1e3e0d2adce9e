// Whole tables of a family's libraries, and what stands under a name or a key.
#include <iterator>
#include <mutex>

#include "QsUtils/directory/CompanionLock.h"
#include "QsUtils/directory/DirectoryManager.h"
#include "QsUtils/library/CLibraryManager.h"
#include "QsUtils/library/CompanionVisitors.h"

using DirectoryManager::GetLibraryDirectoryManager;
using QsDirectory::CompanionLock;

namespace {

/// Calls `use` with every entry of a kind in a section; with none when the companion doesn't know the
/// section.
template <typename Use>
void ForEachEntry(const LibraryKey& key, LibraryKind kind, Use use) {
    const std::lock_guard lock(CompanionLock());
    ILibraryGlobalConfigVisitor* const visitor = QsLibrary::SectionVisitor(key.Family, key.Section);
    if (visitor == nullptr)
        return;
    for (const LibraryEntry* entry : QsLibrary::EntriesOf(*visitor, kind))
        use(*entry);
}

/// Adds the rule of a bill library, if the companion knows the library.
void AddRule(const LibraryKey& key, const CString& name, std::map<CString, BillLibraryRule>& rules) {
    IBillLibraryConfigVisitor* const visitor =
        name.IsEmpty() ? nullptr : QsLibrary::BillVisitor(key.Family, key.Section, name);
    if (visitor != nullptr)
        rules.emplace(name, QsLibrary::RuleOf(*visitor));
}

}  // namespace

/// The keys of the family's sections.
std::vector<LibraryKey> CLibraryManager::SectionKeys(const CString& family) {
    std::vector<CString> sections;
    GetFamilySections(sections, family);
    std::vector<LibraryKey> keys;
    for (const CString& section : sections) {
        if (!section.IsEmpty())
            keys.push_back({family, section, {}});
    }
    return keys;
}

bool CLibraryManager::GetBillLibraryRule(const CString& family, const CString& section,
                                         const CString& libraryName, BillLibraryRule& rule) {
    if (family.IsEmpty() || section.IsEmpty() || libraryName.IsEmpty())
        return false;
    const std::lock_guard lock(CompanionLock());
    IBillLibraryConfigVisitor* const visitor = QsLibrary::BillVisitor(family, section, libraryName);
    if (visitor == nullptr)
        return false;
    const BillLibraryRule found = QsLibrary::RuleOf(*visitor);
    rule.nCount1 = found.nCount1;
    rule.nCount2 = found.nCount2;
    rule.bFlag1 = found.bFlag1;
    // Not the second flag: hosts keep one of their own there, and read this one from the table.
    return true;
}

void CLibraryManager::GetBillLibraries(const CString& family, std::map<CString, BillLibraryRule>& rules,
                                       std::map<CString, CString>& paths) {
    if (family.IsEmpty())
        return;
    for (const LibraryKey& key : SectionKeys(family)) {
        const CString folder = GetLibraryDirectoryManager()->GetBillLibraryDirectory(key);
        if (folder.IsEmpty())
            continue;
        ForEachEntry(key, LibraryKind_Bill, [&](const LibraryEntry& entry) {
            const CString name(entry.Name);
            paths.emplace(name, folder + entry.LibraryFile);
            AddRule(key, name, rules);
        });
    }
}

void CLibraryManager::GetQuotaLibraries(const CString& family, std::map<CString, CString>& paths) {
    if (family.IsEmpty())
        return;
    for (const LibraryKey& key : SectionKeys(family)) {
        const CString folder = GetLibraryDirectoryManager()->GetQuotaLibraryDirectory(key);
        if (folder.IsEmpty())
            continue;
        ForEachEntry(key, LibraryKind_Quota,
                     [&](const LibraryEntry& entry) { paths.emplace(entry.Name, folder + entry.DataFile); });
    }
}

bool CLibraryManager::GetQuotaLibraryEntries(const CString& family, const CString& /*unused*/,
                                             std::vector<LibraryEntryInfo>& entries) {
    if (family.IsEmpty())
        return false;
    // Appended when all are there: the family may be a text of the output.
    std::vector<LibraryEntryInfo> found;
    for (const LibraryKey& key : SectionKeys(family)) {
        ForEachEntry(key, LibraryKind_Quota, [&](const LibraryEntry& entry) {
            found.push_back({entry.Name, entry.LibraryFile,
                             entry.ItemTags.empty() ? CString() : CString(entry.ItemTags.front())});
        });
    }
    entries.insert(entries.end(), std::make_move_iterator(found.begin()),
                   std::make_move_iterator(found.end()));
    return true;
}

CString CLibraryManager::GetQuotaLibraryName(const CString& family, const CString& section,
                                             const CString& key) {
    const std::lock_guard lock(CompanionLock());
    ILibraryGlobalConfigVisitor* const visitor = QsLibrary::SectionVisitor(family, section);
    const LibraryEntry* const entry =
        visitor == nullptr ? nullptr : visitor->FindEntryByKey(key.ToWide(), LibraryKind_Quota);
    return entry == nullptr ? CString() : CString(entry->Name);
}

CString CLibraryManager::GetEnterpriseBillLibraryText(const CString& family, const CString& name) {
    if (family.IsEmpty())
        return CString();
    const std::lock_guard lock(CompanionLock());
    IEnterpriseBillLibraryConfigVisitor* const visitor = QsLibrary::EnterpriseBillVisitor(family);
    const EnterpriseBillRecord* const record =
        visitor == nullptr ? nullptr : visitor->FindBillRecord(name.ToWide());
    return record == nullptr ? CString() : CString(record->Text);
}

CString CLibraryManager::FindLibrarySection(const CString& family, const CString& key) {
    if (family.IsEmpty() || key.IsEmpty())
        return CString();
    for (const LibraryKey& place : SectionKeys(family)) {
        const std::lock_guard lock(CompanionLock());
        ILibraryGlobalConfigVisitor* const visitor = QsLibrary::SectionVisitor(family, place.Section);
        if (visitor != nullptr && visitor->FindEntryByKey(key.ToWide(), LibraryKind_Quota) != nullptr)
            return place.Section;
    }
    return CString();
}
