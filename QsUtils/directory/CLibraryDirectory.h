// The folders of the cost libraries, which the companion module knows.
#pragma once

#include <cstdint>

#include "QsUtils/directory/DirectoryManager.h"
#include "QsUtils/platform/DynamicModule.h"

namespace DirectoryManager {

/// Loads the companion at its first need, and lets it go at its own end. Calls of the companion, and what is
/// kept here, stand under `QsDirectory::CompanionLock`.
class CLibraryDirectory : public ILibraryDirectory {
public:
    CString GetLibraryRootDirectory() override;
    CString GetFamilyDirectory(const LibraryKey& key) override;
    CString GetQuotaLibraryDirectory(const LibraryKey& key) override;
    CString GetGroupPriceRootDirectory() override;
    CString GetGroupPriceDirectory(const CString& name) override;
    CString GetBillLibraryRootDirectory(const LibraryKey& key) override;
    CString GetEnterpriseBillDirectory(const CString& family) override;
    CString GetBillLibraryDirectory(const LibraryKey& key) override;
    CString GetDrtFileDirectory(const LibraryKey& key) override;
    CString GetConfigFileDirectory(const LibraryKey& key) override;
    CString GetSubLibraryRootDirectory(const LibraryKey& key) override;
    CString GetSubLibraryDirectory(const LibraryKey& key) override;
    CString GetFeeTemplateLibraryDirectory(const LibraryKey& key) override;
    CString GetReportTemplateLibraryDirectory(const LibraryKey& key) override;
    CString GetPathKind10Directory(const LibraryKey& key) override;
    CString GetLibraryTag(const CString& name) override;
    ILibraryDirectoryVisitor* GetLibraryDirectoryVisitor() override;

    /// The companion, loaded and prepared unless it is already; a module that isn't loaded when that fails,
    /// and then the next call tries again. Call it, and use what it exports, under the companion's lock.
    const QsPlatform::DynamicModule& LoadVisitorLibrary();

private:
    CString Ask(std::int32_t pathKind, const CString& family, const CString& section,
                const CString& item = CString());
    CString CompanionFileDirectory(const LibraryKey& key);

    CString m_strLibraryRoot;  // empty until the companion gives one
    QsPlatform::DynamicModule m_hVisitorModule;
    ILibraryDirectoryVisitor* m_pDirectoryVisitor = nullptr;  // the companion's
};

}  // namespace DirectoryManager
