#include "QsUtils/directory/CLibraryDirectory.h"

#include <mutex>
#include <utility>

#include "QsUtils/directory/CompanionLock.h"

namespace DirectoryManager {

namespace {

using QsDirectory::CompanionLock;

LibraryPathQuery Query(std::int32_t pathKind, const CString& family, const CString& section,
                       const CString& item) {
    LibraryPathQuery query;
    query.Family = family.ToWide();
    query.Section = section.ToWide();
    query.Item = item.ToWide();
    query.PathKind = pathKind;
    return query;
}

}  // namespace

// --- The companion

const QsPlatform::DynamicModule& CLibraryDirectory::LoadVisitorLibrary() {
    const std::lock_guard lock(CompanionLock());
    if (m_hVisitorModule.IsLoaded())
        return m_hVisitorModule;
    const CString folder = GetProjectDirectoryManager()->GetLibVisitorDirectory();
    QsPlatform::DynamicModule module(folder + u"LibraryConfigVisitor.dll");
    // A companion whose static objects call back as they are made has been through here already.
    if (m_hVisitorModule.IsLoaded())
        return m_hVisitorModule;
    m_hVisitorModule = std::move(module);
    // The module is in its place before: the companion may call back.
    if (auto* const initialise = m_hVisitorModule.Function<LibraryCompanion::InitializationSupportProduct>(
            "InitializationSupportProduct"))
        initialise(folder.ToWide().c_str(), 1);
    return m_hVisitorModule;
}

ILibraryDirectoryVisitor* CLibraryDirectory::GetLibraryDirectoryVisitor() {
    const std::lock_guard lock(CompanionLock());
    if (m_pDirectoryVisitor != nullptr)
        return m_pDirectoryVisitor;
    auto* const visitor = LoadVisitorLibrary().Function<LibraryCompanion::GetLibraryDirectoryVisitor>(
        "GetLibraryDirectoryVisitor");
    if (visitor != nullptr)
        m_pDirectoryVisitor = visitor();
    return m_pDirectoryVisitor;
}

CString CLibraryDirectory::Ask(std::int32_t pathKind, const CString& family, const CString& section,
                               const CString& item) {
    const std::lock_guard lock(CompanionLock());
    ILibraryDirectoryVisitor* const visitor = GetLibraryDirectoryVisitor();
    return visitor == nullptr ? CString()
                              : CString(visitor->GetLibraryPath(Query(pathKind, family, section, item)));
}

CString CLibraryDirectory::GetLibraryTag(const CString& name) {
    const std::lock_guard lock(CompanionLock());
    ILibraryDirectoryVisitor* const visitor = GetLibraryDirectoryVisitor();
    return visitor == nullptr ? CString() : CString(visitor->GetLibraryTag(name.ToWide()));
}

// --- Folders

CString CLibraryDirectory::GetLibraryRootDirectory() {
    const std::lock_guard lock(CompanionLock());
    if (m_strLibraryRoot.IsEmpty())
        m_strLibraryRoot = Ask(LibraryPath_Root, CString(), CString());
    return m_strLibraryRoot;
}

CString CLibraryDirectory::GetFamilyDirectory(const LibraryKey& key) {
    return Ask(LibraryPath_Family, key.Family, key.Section);
}

CString CLibraryDirectory::GetQuotaLibraryDirectory(const LibraryKey& key) {
    return Ask(LibraryPath_Quota, key.Family, key.Section);
}

CString CLibraryDirectory::GetGroupPriceRootDirectory() {
    return GetCommonDirectoryManager()->GetExeDirectory() + u"Library\\组价库\\";
}

CString CLibraryDirectory::GetGroupPriceDirectory(const CString& name) {
    return GetCommonDirectoryManager()->GetExeDirectory() + u"Library\\组价库\\" + name + u"\\";
}

CString CLibraryDirectory::GetBillLibraryRootDirectory(const LibraryKey& key) {
    return Ask(LibraryPath_BillRoot, key.Family, key.Section);
}

CString CLibraryDirectory::GetEnterpriseBillDirectory(const CString& family) {
    return Ask(LibraryPath_EnterpriseBill, family, CString());
}

CString CLibraryDirectory::GetBillLibraryDirectory(const LibraryKey& key) {
    const CString root = GetBillLibraryRootDirectory(key);
    if (root.IsEmpty())
        return CString();
    const std::lock_guard lock(CompanionLock());
    auto* const find = LoadVisitorLibrary().Function<LibraryCompanion::GetLibraryGlobalConfigVisitor>(
        "GetLibraryGlobalConfigVisitor");
    ILibraryGlobalConfigVisitor* const section =
        find == nullptr ? nullptr : find(key.Family.ToWide().c_str(), key.Section.ToWide().c_str());
    const CString provider = section == nullptr ? CString() : CString(section->GetLibraryProvider());
    return provider.IsEmpty() ? CString() : root + provider + u"\\";
}

// ".drt" and ".config" files lie together. The two stay two operations for hosts that override one.

CString CLibraryDirectory::CompanionFileDirectory(const LibraryKey& key) {
    return Ask(LibraryPath_CompanionFile, key.Family, key.Section);
}

CString CLibraryDirectory::GetDrtFileDirectory(const LibraryKey& key) {
    return CompanionFileDirectory(key);
}

CString CLibraryDirectory::GetConfigFileDirectory(const LibraryKey& key) {
    return CompanionFileDirectory(key);
}

CString CLibraryDirectory::GetSubLibraryRootDirectory(const LibraryKey& key) {
    return Ask(LibraryPath_SubLibraryRoot, key.Family, key.Section);
}

CString CLibraryDirectory::GetSubLibraryDirectory(const LibraryKey& key) {
    return Ask(LibraryPath_SubLibrary, key.Family, key.Section, key.Item);
}

CString CLibraryDirectory::GetFeeTemplateLibraryDirectory(const LibraryKey& key) {
    return Ask(LibraryPath_FeeTemplate, key.Family, key.Section);
}

CString CLibraryDirectory::GetReportTemplateLibraryDirectory(const LibraryKey& key) {
    return Ask(LibraryPath_ReportTemplate, key.Family, key.Section);
}

CString CLibraryDirectory::GetPathKind10Directory(const LibraryKey& key) {
    return Ask(LibraryPath_Kind10, key.Family, key.Section);
}

}  // namespace DirectoryManager
