// Where the files of the libraries are.
#include <mutex>
#include <optional>

#include "QsUtils/directory/CompanionLock.h"
#include "QsUtils/directory/DirectoryManager.h"
#include "QsUtils/library/CLibraryManager.h"
#include "QsUtils/library/CompanionVisitors.h"
#include "QsUtils/platform/FolderEntries.h"

using DirectoryManager::GetLibraryDirectoryManager;
using QsDirectory::CompanionLock;

namespace {

CString IfFound(const CString& path) {
    return QsPlatform::IsEntryFound(path) ? path : CString();
}

/// The file that goes with a library file. The ending is cut blindly: library files have three letters there.
CString WithEnding(const CString& path, const char16_t* ending) {
    return path.Left(path.GetLength() - 4) + ending;
}

/// The data file of a section's quota library; nothing when the section has no such library.
std::optional<CString> DataFileOf(const LibraryKey& key, const CString& libraryName) {
    const std::lock_guard lock(CompanionLock());
    ILibraryGlobalConfigVisitor* const visitor = QsLibrary::SectionVisitor(key.Family, key.Section);
    const LibraryEntry* const entry =
        visitor == nullptr ? nullptr : visitor->FindEntryByName(libraryName.ToWide(), LibraryKind_Quota);
    return entry == nullptr ? std::nullopt : std::optional(CString(entry->DataFile));
}

/// The file of an enterprise bill library; nothing when the family has no such library.
std::optional<CString> EnterpriseFileOf(const CString& family, const CString& name) {
    const std::lock_guard lock(CompanionLock());
    IEnterpriseBillLibraryConfigVisitor* const visitor = QsLibrary::EnterpriseBillVisitor(family);
    const EnterpriseBillFile* const file =
        visitor == nullptr ? nullptr : visitor->FindBillFile(name.ToWide());
    return file == nullptr ? std::nullopt : std::optional(CString(file->FileName));
}

}  // namespace

/// The given section, or all of the family when none is given.
std::vector<CString> CLibraryManager::SectionsFor(const CString& family, const CString& section) {
    std::vector<CString> sections;
    if (section.IsEmpty())
        GetFamilySections(sections, family);
    else
        sections.push_back(section);
    return sections;
}

/// The first path that `find` gives for a section.
template <typename Find>
CString CLibraryManager::FindInSections(const CString& family, const CString& section, const CString& name,
                                        Find find) {
    if (family.IsEmpty() || name.IsEmpty())
        return CString();
    for (const CString& each : SectionsFor(family, section)) {
        CString path = each.IsEmpty() ? CString() : find(LibraryKey{family, each, {}});
        if (!path.IsEmpty())
            return path;
    }
    return CString();
}

CString CLibraryManager::FindBillLibraryFile(const CString& family, const CString& section,
                                             const CString& fileName) {
    return FindInSections(family, section, fileName, [&](const LibraryKey& key) {
        return IfFound(GetLibraryDirectoryManager()->GetBillLibraryDirectory(key) + fileName);
    });
}

CString CLibraryManager::FindDrtFile(const CString& family, const CString& section, const CString& fileName) {
    return FindInSections(family, section, fileName, [&](const LibraryKey& key) {
        return IfFound(
            WithEnding(GetLibraryDirectoryManager()->GetDrtFileDirectory(key) + fileName, u".drt"));
    });
}

CString CLibraryManager::FindConfigFile(const CString& family, const CString& section,
                                        const CString& fileName) {
    return FindInSections(family, section, fileName, [&](const LibraryKey& key) {
        return IfFound(
            WithEnding(GetLibraryDirectoryManager()->GetConfigFileDirectory(key) + fileName, u".config"));
    });
}

CString CLibraryManager::FindQuotaLibraryFile(const CString& family, const CString& section,
                                              const CString& libraryName) {
    return FindInSections(family, section, libraryName, [&](const LibraryKey& key) {
        const std::optional<CString> file = DataFileOf(key, libraryName);
        return file ? IfFound(GetLibraryDirectoryManager()->GetQuotaLibraryDirectory(key) + *file)
                    : CString();
    });
}

CString CLibraryManager::FindSubLibraryFile(const CString& family, const CString& section,
                                            const CString& item, const CString& fileName) {
    return FindInSections(family, section, fileName, [&](const LibraryKey& key) {
        std::vector<CString> items;
        if (item.IsEmpty())
            GetSectionItems(items, key.Family, key.Section);
        else
            items.push_back(item);
        for (const CString& each : items) {
            const LibraryKey place{key.Family, key.Section, each};
            CString path =
                each.IsEmpty()
                    ? CString()
                    : IfFound(GetLibraryDirectoryManager()->GetSubLibraryDirectory(place) + fileName);
            if (!path.IsEmpty())
                return path;
        }
        return CString();
    });
}

CString CLibraryManager::GetEnterpriseBillLibraryFile(const CString& family, const CString& name) {
    if (family.IsEmpty() || name.IsEmpty())
        return CString();
    const std::optional<CString> file = EnterpriseFileOf(family, name);
    return file ? IfFound(GetLibraryDirectoryManager()->GetEnterpriseBillDirectory(family) + *file)
                : CString();
}

CString CLibraryManager::GetLibraryProviderName(const CString& family, const CString& section,
                                                bool keepProvider) {
    if (family.IsEmpty())
        return CString();
    for (const CString& each : SectionsFor(family, section)) {
        const std::lock_guard lock(CompanionLock());
        ILibraryGlobalConfigVisitor* const visitor =
            each.IsEmpty() ? nullptr : QsLibrary::SectionVisitor(family, each);
        if (visitor == nullptr)
            continue;
        const CString provider(visitor->GetLibraryProvider());
        return !keepProvider && provider == QsLibrary::OwnProvider ? family : provider;
    }
    return CString();
}
