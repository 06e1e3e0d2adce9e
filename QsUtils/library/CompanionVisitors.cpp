#include "QsUtils/library/CompanionVisitors.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>

#include "QsUtils/directory/CLibraryDirectory.h"

namespace QsLibrary {

namespace {

template <typename F>
F* Export(const char* name) {
    auto* const directory =
        dynamic_cast<DirectoryManager::CLibraryDirectory*>(DirectoryManager::GetLibraryDirectoryManager());
    return directory == nullptr ? nullptr : directory->LoadVisitorLibrary().Function<F>(name);
}

}  // namespace

ILibraryGlobalConfigVisitor* SectionVisitor(const CString& family, const CString& section) {
    auto* const find =
        Export<LibraryCompanion::GetLibraryGlobalConfigVisitor>("GetLibraryGlobalConfigVisitor");
    return find == nullptr ? nullptr : find(family.ToWide().c_str(), section.ToWide().c_str());
}

IBillLibraryConfigVisitor* BillVisitor(const CString& family, const CString& section,
                                       const CString& library) {
    auto* const find = Export<LibraryCompanion::GetBillLibraryConfigVisitor>("GetBillLibraryConfigVisitor");
    return find == nullptr
               ? nullptr
               : find(family.ToWide().c_str(), section.ToWide().c_str(), library.ToWide().c_str());
}

IEnterpriseBillLibraryConfigVisitor* EnterpriseBillVisitor(const CString& family) {
    auto* const find = Export<LibraryCompanion::GetEnterpriseBillLibraryConfigVisitor>(
        "GetEnterpriseBillLibraryConfigVisitor");
    return find == nullptr ? nullptr : find(family.ToWide().c_str());
}

std::int32_t LibrarySeries() {
    auto* const series = Export<LibraryCompanion::GetLibrarySeries>("GetLibrarySeries");
    return series == nullptr ? -1 : series();
}

std::vector<const LibraryEntry*> EntriesOf(ILibraryGlobalConfigVisitor& section, LibraryKind kind) {
    std::map<std::wstring, LibraryEntry*> given;
    section.GetLibraryEntries(given, kind);
    // A map of wide texts has the order of their characters, which beyond the first 65,536 isn't that of the
    // units where a wide character has 32 bits.
    std::vector<std::pair<CString, const LibraryEntry*>> keyed;
    for (const auto& [key, entry] : given) {
        if (entry != nullptr)
            keyed.emplace_back(key, entry);
    }
    std::stable_sort(keyed.begin(), keyed.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<const LibraryEntry*> entries;
    for (const auto& [key, entry] : keyed)
        entries.push_back(entry);
    return entries;
}

bool IsOffered(const LibraryEntry& entry) {
    return std::find(entry.Tags.begin(), entry.Tags.end(), L"ZJ") != entry.Tags.end();
}

BillLibraryRule RuleOf(IBillLibraryConfigVisitor& library) {
    BillLibraryRule rule{9, 3, false, false};
    library.GetRule(rule);
    return rule;
}

}  // namespace QsLibrary
