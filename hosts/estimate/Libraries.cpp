#include "Libraries.h"

#include <filesystem>
#include <map>
#include <set>
#include <system_error>

#include "Files.h"
#include "Utf8.h"

namespace Estimate {
namespace {

namespace fs = std::filesystem;

using DirectoryManager::GetLibraryDirectoryManager;
using DirectoryManager::GetProjectDirectoryManager;
using LibraryManager::GetLibraryManager;
using Names = std::vector<CString>;

bool IsIn(const CString& path, const CString& folder) {
    return !folder.IsEmpty() && path.Left(folder.GetLength()) == folder;
}

/// What the manager tells of a family at once, to be dealt out to its sections: a name that several sections
/// have stands in the tables with the path of the first of them.
class FamilyTables {
public:
    explicit FamilyTables(const CString& family) : m_family(family) {
        GetLibraryManager()->GetBillLibraries(family, m_rules, m_bills);
        GetLibraryManager()->GetQuotaLibraries(family, m_quotas);
        GetLibraryManager()->GetQuotaLibraryEntries(family, CString(), m_entries);
        for (const LibraryEntryInfo& entry : m_entries)
            ++m_uses[entry.Name];
    }

    void ReadSection(const CString& name, LibrarySection& section) const {
        const LibraryKey key{m_family, name, CString()};
        ReadItems(name, section);
        ReadBills(key, section);
        ReadQuotas(key, section);
    }

private:
    void ReadItems(const CString& name, LibrarySection& section) const {
        Names items;
        GetLibraryManager()->GetSectionItems(items, m_family, name);
        for (const CString& item : items)
            section.items.push_back(
                {ToUtf8(item), ToUtf8(GetLibraryDirectoryManager()->GetLibraryTag(item))});
    }

    void ReadBills(const LibraryKey& key, LibrarySection& section) const {
        const CString folder = GetLibraryDirectoryManager()->GetBillLibraryDirectory(key);
        Names offeredNames;
        GetLibraryManager()->GetBillLibraryFiles(offeredNames, m_family, key.Section);
        std::set<CString> offered(offeredNames.begin(), offeredNames.end());
        for (const auto& [name, path] : m_bills) {
            if (!IsIn(path, folder))
                continue;
            const CString file = path.Mid(folder.GetLength());
            LibraryFile bill{ToUtf8(name), {}, {}, ShownPath(path), false, offered.erase(file) > 0, {}};
            bill.exists = bill.isOffered || IsThere(path);
            BillLibraryRule rule;
            if (GetLibraryManager()->GetBillLibraryRule(m_family, key.Section, name, rule))
                bill.rule = m_rules.count(name) > 0 ? m_rules.at(name) : rule;
            section.bills.push_back(std::move(bill));
        }
        // Those whose names an earlier section has as well are known by their files alone.
        for (const CString& file : offered)
            section.bills.push_back({ToUtf8(file), {}, {}, ShownPath(folder + file), true, true, {}});
    }

    void ReadQuotas(const LibraryKey& key, LibrarySection& section) const {
        const CString folder = GetLibraryDirectoryManager()->GetQuotaLibraryDirectory(key);
        Names offeredNames;
        GetLibraryManager()->GetQuotaLibraryNames(offeredNames, m_family, key.Section, CString());
        const std::set<CString> offered(offeredNames.begin(), offeredNames.end());
        std::set<CString> done;
        for (const LibraryEntryInfo& entry : m_entries) {
            const CString path = QuotaPath(key, folder, entry.Name);
            if (path.IsEmpty() || !done.insert(entry.Name).second)
                continue;
            section.quotas.push_back({ToUtf8(entry.Name),
                                      ToUtf8(entry.LibraryFile),
                                      ToUtf8(entry.FirstItemTag),
                                      ShownPath(path),
                                      IsThere(path),
                                      offered.count(entry.LibraryFile) > 0,
                                      {}});
        }
    }

    /// Empty when the section has no library of that name.
    CString QuotaPath(const LibraryKey& key, const CString& folder, const CString& name) const {
        const auto found = m_quotas.find(name);
        if (found != m_quotas.end() && IsIn(found->second, folder))
            return found->second;
        return m_uses.at(name) > 1 ? GetLibraryManager()->FindQuotaLibraryFile(m_family, key.Section, name)
                                   : CString();
    }

    static bool IsThere(const CString& path) {
        std::error_code error;
        return fs::is_regular_file(ToNativePath(path), error);
    }

    const CString m_family;
    std::map<CString, BillLibraryRule> m_rules;
    std::map<CString, CString> m_bills;
    std::map<CString, CString> m_quotas;
    std::vector<LibraryEntryInfo> m_entries;
    std::map<CString, int> m_uses;  // how many sections have a quota library of the name
};

LibraryFamily ReadFamily(const CString& name) {
    LibraryFamily family{ToUtf8(name), ToUtf8(GetLibraryManager()->GetFamilyDisplayName(name)), {}};
    const FamilyTables tables(name);
    Names sections;
    GetLibraryManager()->GetFamilySections(sections, name);
    for (const CString& each : sections) {
        LibrarySection& section = family.sections.emplace_back();
        section.name = ToUtf8(each);
        section.provider = ToUtf8(GetLibraryManager()->GetLibraryProviderName(name, each, true));
        tables.ReadSection(each, section);
    }
    return family;
}

bool Exists(const fs::path& path) {
    std::error_code error;
    return fs::exists(path, error);
}

}  // namespace

Message WhatLibrariesLack() {
    const CString folder = DirectoryManager::GetCommonDirectoryManager()->GetExeDirectory();
    const CString config = folder + u"DirectoryConfig.xml";
    const CString visitor = GetProjectDirectoryManager()->GetLibVisitorDirectory();
    if (GetLibraryDirectoryManager()->GetLibraryDirectoryVisitor() == nullptr) {
        if (!Exists(ToNativePath(config)))
            return Say<Text::NoInstallation>(ShownPath(config));
        if (!Exists(ToNativePath(visitor + u"LibraryConfigVisitor.dll")) &&
            !Exists(ToNativePath(visitor + u"LibraryConfigVisitor.so")))
            return Say<Text::NoCompanion>(ShownPath(visitor));
        return Say<Text::CompanionSilent>(ShownPath(visitor));
    }
    const CString root = GetLibraryDirectoryManager()->GetLibraryRootDirectory();
    if (root.IsEmpty())
        return Say<Text::CompanionNoFolder>(ShownPath(visitor));
    if (!Exists(ToNativePath(root)))
        return Say<Text::LibraryFolderMissing>(ShownPath(root));
    return {};
}

LibraryTree ReadLibraries() {
    LibraryTree tree;
    tree.series = GetLibraryManager()->GetLibrarySeries();
    tree.root = ShownPath(GetLibraryDirectoryManager()->GetLibraryRootDirectory());
    Names families;
    GetLibraryManager()->GetLibraryFamilies(families);
    for (const CString& family : families)
        tree.families.push_back(ReadFamily(family));
    return tree;
}

}  // namespace Estimate
