// The manager of the cost libraries.
#pragma once

#include "QsUtils/directory/LibraryKey.h"
#include "QsUtils/library/LibraryManager.h"

/// Has no data: every answer comes anew from the folders on disk and from the companion.
class CLibraryManager : public LibraryManager::ILibraryManager {
public:
    std::int32_t GetLibrarySeries() override;
    void GetLibraryFamilies(std::vector<CString>& families) override;
    CString GetFamilyDisplayName(const CString& family) override;
    void GetFamilySections(std::vector<CString>& sections, const CString& family) override;
    void GetSectionItems(std::vector<CString>& items, const CString& family, const CString& section) override;
    void GetBillLibraryFiles(std::vector<CString>& files, const CString& family,
                             const CString& section) override;
    void GetQuotaLibraryNames(std::vector<CString>& names, const CString& family, const CString& section,
                              const CString& item) override;
    CString GetEnterpriseBillLibraryFile(const CString& family, const CString& name) override;
    CString FindBillLibraryFile(const CString& family, const CString& section,
                                const CString& fileName) override;
    CString FindDrtFile(const CString& family, const CString& section, const CString& fileName) override;
    CString FindConfigFile(const CString& family, const CString& section, const CString& fileName) override;
    CString FindQuotaLibraryFile(const CString& family, const CString& section,
                                 const CString& libraryName) override;
    CString FindSubLibraryFile(const CString& family, const CString& section, const CString& item,
                               const CString& fileName) override;
    bool GetBillLibraryRule(const CString& family, const CString& section, const CString& libraryName,
                            BillLibraryRule& rule) override;
    void GetBillLibraries(const CString& family, std::map<CString, BillLibraryRule>& rules,
                          std::map<CString, CString>& paths) override;
    void GetQuotaLibraries(const CString& family, std::map<CString, CString>& paths) override;
    CString GetLibraryProviderName(const CString& family, const CString& section, bool keepProvider) override;
    CString GetQuotaLibraryName(const CString& family, const CString& section, const CString& key) override;
    CString GetEnterpriseBillLibraryText(const CString& family, const CString& name) override;
    CString FindLibrarySection(const CString& family, const CString& key) override;
    bool GetQuotaLibraryEntries(const CString& family, const CString& unused,
                                std::vector<LibraryEntryInfo>& entries) override;

private:
    bool OffersQuotaLibrary(const CString& family);
    std::vector<LibraryKey> SectionKeys(const CString& family);
    std::vector<CString> SectionsFor(const CString& family, const CString& section);
    template <typename Find>
    CString FindInSections(const CString& family, const CString& section, const CString& name, Find find);
};
