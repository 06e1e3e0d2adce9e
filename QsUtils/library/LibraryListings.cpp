// What the manager lists: families, sections, items, and the libraries in them.
#include <algorithm>
#include <iterator>
#include <mutex>
#include <set>
#include <string>
#include <utility>

#include "QsUtils/directory/CompanionLock.h"
#include "QsUtils/directory/DirectoryManager.h"
#include "QsUtils/library/CLibraryManager.h"
#include "QsUtils/library/CompanionVisitors.h"
#include "QsUtils/library/SubFolders.h"
#include "QsUtils/platform/FolderEntries.h"

using DirectoryManager::GetLibraryDirectoryManager;
using QsDirectory::CompanionLock;

// Out of line, so that the type information of the interface has one home and a host's casts meet it.
LibraryManager::ILibraryManager::~ILibraryManager() = default;

namespace {

// Beside the families there are the bill libraries and the downloads in progress.
constexpr auto NoFamilies = {u"清单库", u"LibDownTmp"};

/// Results are appended when all are there: the arguments may be elements of the output.
void AppendTo(std::vector<CString>& output, std::vector<CString> names) {
    output.insert(output.end(), std::make_move_iterator(names.begin()), std::make_move_iterator(names.end()));
}

bool Contains(const std::vector<std::wstring>& texts, const std::wstring& text) {
    return std::find(texts.begin(), texts.end(), text) != texts.end();
}

}  // namespace

std::int32_t CLibraryManager::GetLibrarySeries() {
    const std::lock_guard lock(CompanionLock());
    return QsLibrary::LibrarySeries();
}

void CLibraryManager::GetLibraryFamilies(std::vector<CString>& families) {
    families.clear();
    const CString root = GetLibraryDirectoryManager()->GetLibraryRootDirectory();
    if (root.IsEmpty())
        return;
    for (CString& family : QsLibrary::SubFolders(root, NoFamilies)) {
        if (OffersQuotaLibrary(family))
            families.push_back(std::move(family));
    }
}

bool CLibraryManager::OffersQuotaLibrary(const CString& family) {
    std::vector<CString> sections;
    GetFamilySections(sections, family);
    return std::any_of(sections.begin(), sections.end(), [&](const CString& section) {
        if (section.IsEmpty())
            return false;
        const std::lock_guard lock(CompanionLock());
        ILibraryGlobalConfigVisitor* const visitor = QsLibrary::SectionVisitor(family, section);
        if (visitor == nullptr)
            return false;
        const auto entries = QsLibrary::EntriesOf(*visitor, LibraryKind_Quota);
        return std::any_of(entries.begin(), entries.end(),
                           [](const LibraryEntry* entry) { return QsLibrary::IsOffered(*entry); });
    });
}

CString CLibraryManager::GetFamilyDisplayName(const CString& family) {
    if (family.IsEmpty())
        return CString();
    std::vector<CString> sections;
    GetFamilySections(sections, family);
    if (sections.empty())
        return CString();
    const std::lock_guard lock(CompanionLock());
    ILibraryGlobalConfigVisitor* const visitor = QsLibrary::SectionVisitor(family, sections.front());
    if (visitor == nullptr)
        return CString();
    const CString owner(visitor->GetLibraryOwner());
    return owner == QsLibrary::OwnProvider ? family : owner;
}

void CLibraryManager::GetFamilySections(std::vector<CString>& sections, const CString& family) {
    std::set<CString> sorted;
    if (!family.IsEmpty()) {
        const CString folder = GetLibraryDirectoryManager()->GetFamilyDirectory({family, {}, {}});
        if (!folder.IsEmpty()) {
            for (CString& name : QsLibrary::FoldersFound(folder + u"*", {}))
                sorted.insert(std::move(name));
        }
    }
    sections.assign(sorted.begin(), sorted.end());
}

void CLibraryManager::GetSectionItems(std::vector<CString>& items, const CString& family,
                                      const CString& section) {
    if (family.IsEmpty() || section.IsEmpty())
        return;
    const CString folder = GetLibraryDirectoryManager()->GetSubLibraryRootDirectory({family, section, {}});
    if (!folder.IsEmpty())
        AppendTo(items, QsLibrary::SubFolders(folder, {}));
}

void CLibraryManager::GetBillLibraryFiles(std::vector<CString>& files, const CString& family,
                                          const CString& section) {
    if (family.IsEmpty() || section.IsEmpty())
        return;
    const CString folder = GetLibraryDirectoryManager()->GetBillLibraryDirectory({family, section, {}});
    if (folder.IsEmpty())
        return;
    const std::lock_guard lock(CompanionLock());
    ILibraryGlobalConfigVisitor* const visitor = QsLibrary::SectionVisitor(family, section);
    if (visitor == nullptr)
        return;
    std::vector<CString> found;
    for (const LibraryEntry* entry : QsLibrary::EntriesOf(*visitor, LibraryKind_Bill)) {
        CString file(entry->LibraryFile);
        if (QsLibrary::IsOffered(*entry) && QsPlatform::IsEntryFound(folder + file))
            found.push_back(std::move(file));
    }
    AppendTo(files, std::move(found));
}

void CLibraryManager::GetQuotaLibraryNames(std::vector<CString>& names, const CString& family,
                                           const CString& section, const CString& item) {
    if (family.IsEmpty() || section.IsEmpty())
        return;
    std::vector<CString> found;
    if (item.IsEmpty()) {
        std::vector<CString> items;
        GetSectionItems(items, family, section);
        for (const CString& each : items) {
            if (!each.IsEmpty())
                GetQuotaLibraryNames(found, family, section, each);
        }
        AppendTo(names, std::move(found));
        return;
    }
    DirectoryManager::ILibraryDirectory& directories = *GetLibraryDirectoryManager();
    const CString folder = directories.GetQuotaLibraryDirectory({family, section, {}});
    if (folder.IsEmpty())
        return;
    const std::lock_guard lock(CompanionLock());
    ILibraryGlobalConfigVisitor* const visitor = QsLibrary::SectionVisitor(family, section);
    if (visitor == nullptr)
        return;
    for (const LibraryEntry* entry : QsLibrary::EntriesOf(*visitor, LibraryKind_Quota)) {
        const std::wstring tag = directories.GetLibraryTag(item).ToWide();
        if (Contains(entry->ItemTags, tag) && QsLibrary::IsOffered(*entry) &&
            QsPlatform::IsEntryFound(folder + entry->DataFile))
            found.emplace_back(entry->LibraryFile);
    }
    AppendTo(names, std::move(found));
}
