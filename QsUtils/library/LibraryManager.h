/// @file
/// What cost libraries an installation has, and where their files are.
#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "QsUtils/directory/LibraryVisitor.h"
#include "QsUtils/platform/Api.h"
#include "QsUtils/text/CString.h"

/// A quota library as `GetQuotaLibraryEntries` reports it.
struct LibraryEntryInfo {
    CString Name;          ///< its name, which looks it up
    CString LibraryFile;   ///< the name under which it is offered to users
    CString FirstItemTag;  ///< empty when the library belongs to no item
};

/// The catalogue of an installation's cost libraries. See docs/libraries.md.
namespace LibraryManager {

/// Answers from the folders on disk and from the companion module, anew at each call: nothing is kept, so
/// callers keep what they need often. Without the companion, for an empty argument where nothing else is
/// said, and for whatever is missing, a text is empty, a bool false, and an output gets nothing added.
///
/// For the searches for files and for a provider, a section that is empty stands for all sections of the
/// family, in ascending order by code unit, and the first hit counts. Only libraries with the mark "ZJ" count
/// as offered. Outputs may hold the arguments. Any thread may call anything.
class QSUTILS_API ILibraryManager {
public:
    virtual ~ILibraryManager();
    /// The companion's series; -1 when there is none.
    virtual std::int32_t GetLibrarySeries() = 0;

    /// @name Listings
    /// @{

    /// Replaces `families` by the families that offer a quota library, in the order of the folders on disk.
    /// The folders "清单库" and "LibDownTmp" are no families.
    virtual void GetLibraryFamilies(std::vector<CString>& families) = 0;
    /// The owner of the family's first section, or the family itself when that is the product. Empty for a
    /// family without sections.
    virtual CString GetFamilyDisplayName(const CString& family) = 0;
    /// Replaces `sections` by the family's sections, ascending by code unit.
    virtual void GetFamilySections(std::vector<CString>& sections, const CString& family) = 0;
    /// Appends the section's items in the order of the folders on disk.
    virtual void GetSectionItems(std::vector<CString>& items, const CString& family,
                                 const CString& section) = 0;
    /// Appends the file names of the offered bill libraries whose files exist.
    virtual void GetBillLibraryFiles(std::vector<CString>& files, const CString& family,
                                     const CString& section) = 0;
    /// Appends the offered names of an item's quota libraries whose files exist. An empty item stands for all
    /// items of the section, one behind the other, so that a library in two items comes twice.
    virtual void GetQuotaLibraryNames(std::vector<CString>& names, const CString& family,
                                      const CString& section, const CString& item) = 0;
    /// @}

    /// @name Files
    /// Each gives the path of a file that exists. File names may hold wildcards and then come back with them.
    /// Where a folder isn't available, the bare name is looked for in the current folder.
    /// @{

    /// The file of an enterprise bill library.
    virtual CString GetEnterpriseBillLibraryFile(const CString& family, const CString& name) = 0;
    /// The file of a bill library, in the folder of the section's bill libraries.
    virtual CString FindBillLibraryFile(const CString& family, const CString& section,
                                        const CString& fileName) = 0;
    /// The ".drt" file that goes with a library file: the last four units of `fileName` are cut,
    /// whatever they are, and the ending is put in their place.
    virtual CString FindDrtFile(const CString& family, const CString& section, const CString& fileName) = 0;
    /// The ".config" file likewise.
    virtual CString FindConfigFile(const CString& family, const CString& section,
                                   const CString& fileName) = 0;
    /// The data file of the quota library of that name.
    virtual CString FindQuotaLibraryFile(const CString& family, const CString& section,
                                         const CString& libraryName) = 0;
    /// A file in the folder of an item; an empty item stands for all items.
    virtual CString FindSubLibraryFile(const CString& family, const CString& section, const CString& item,
                                       const CString& fileName) = 0;
    /// @}

    /// @name Tables
    /// @{

    /// Writes the two counts and the first flag of a bill library's rule, each by its default where the
    /// companion says nothing; the second flag stays as it was. False, with `rule` untouched, when there is
    /// no such library.
    virtual bool GetBillLibraryRule(const CString& family, const CString& section, const CString& libraryName,
                                    BillLibraryRule& rule) = 0;
    /// Adds the rule and the path of each bill library of the family under its name. A name that a map holds
    /// already keeps what it has. Files aren't looked for.
    virtual void GetBillLibraries(const CString& family, std::map<CString, BillLibraryRule>& rules,
                                  std::map<CString, CString>& paths) = 0;
    /// Adds the path of each quota library of the family likewise.
    virtual void GetQuotaLibraries(const CString& family, std::map<CString, CString>& paths) = 0;
    /// The provider of the first section that the companion knows. The product's own is presented under the
    /// family's name unless `keepProvider`.
    virtual CString GetLibraryProviderName(const CString& family, const CString& section,
                                           bool keepProvider) = 0;
    /// The name of the quota library with this key.
    virtual CString GetQuotaLibraryName(const CString& family, const CString& section,
                                        const CString& key) = 0;
    /// The text of an enterprise bill library; the name may be empty.
    virtual CString GetEnterpriseBillLibraryText(const CString& family, const CString& name) = 0;
    /// The first section with a quota library of this key.
    virtual CString FindLibrarySection(const CString& family, const CString& key) = 0;
    /// Appends all quota libraries of the family, repeats too. `unused` isn't read. False for an empty family
    /// alone.
    virtual bool GetQuotaLibraryEntries(const CString& family, const CString& unused,
                                        std::vector<LibraryEntryInfo>& entries) = 0;
    /// @}
};

/// The manager of the process, always the same, made at the first call; never deleted by a caller.
QSUTILS_API ILibraryManager* GetLibraryManager();

}  // namespace LibraryManager
