/// @file
/// What a companion module answers: the contract between this library and `LibraryConfigVisitor`, which knows
/// the layout and the contents of the cost libraries of an installation. The author of a companion needs this
/// header and the standard library, nothing else.
///
/// The companion is loaded at run time from the folder that `DirectoryConfig.xml` gives under "LibVisitor".
/// It is built with the same family of compiler as this library, since texts cross the boundary as
/// `std::wstring`. Every pointer that it hands out stays its own and is good until it is unloaded. It is
/// called from whatever thread a host calls from, one call at a time, so that one object may answer for all
/// sections. It may call the library back. No exception may leave it.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

/// A question for a folder.
struct LibraryPathQuery {
    std::wstring Family;    ///< as in `LibraryKey`
    std::wstring Section;   ///< as in `LibraryKey`
    std::wstring Item;      ///< as in `LibraryKey`
    std::wstring Reserved;  ///< always empty
    std::int32_t PathKind =
        0;  ///< which folder: a `LibraryPathKind`, or one that this library doesn't ask for
};

/// The folders that this library asks for, with the fields of the query that are filled. The numbers are
/// those of all companions; 4, 8 and 9 have a meaning for other callers alone.
enum LibraryPathKind : std::int32_t {
    LibraryPath_Root = 0,             ///< no field: the folder of the families
    LibraryPath_Family = 1,           ///< `Family`: the folder of the family's sections
    LibraryPath_Quota = 2,            ///< `Family`, `Section`: quota library files
    LibraryPath_BillRoot = 3,         ///< `Family`, `Section`: above the folders of bill library files
    LibraryPath_EnterpriseBill = 5,   ///< `Family`: enterprise bill library files
    LibraryPath_CompanionFile = 6,    ///< `Family`, `Section`: ".drt" and ".config" files
    LibraryPath_SubLibraryRoot = 7,   ///< `Family`, `Section`: the folder of the section's items
    LibraryPath_Kind10 = 10,          ///< `Family`, `Section`: asked for by hosts alone
    LibraryPath_FeeTemplate = 11,     ///< `Family`, `Section`: fee templates
    LibraryPath_ReportTemplate = 12,  ///< `Family`, `Section`: report templates
    LibraryPath_SubLibrary = 13,      ///< `Family`, `Section`, `Item`: the folder of one item
};

/// The two kinds of libraries in a section.
enum LibraryKind : std::int32_t {
    LibraryKind_Bill = 0,
    LibraryKind_Quota = 1,
};

/// A library of a section; the companion's.
struct LibraryEntry {
    /// The name by which it is looked up.
    std::wstring Name;
    /// A bill library: its file name. A quota library: the name under which it is offered to users.
    std::wstring LibraryFile;
    /// A quota library: its file name.
    std::wstring DataFile;
    /// Marks. Only a library with the mark "ZJ" is offered to users.
    std::vector<std::wstring> Tags;
    /// The tags of the items that the library belongs to, as `ILibraryDirectoryVisitor::GetLibraryTag` gives
    /// them.
    std::vector<std::wstring> ItemTags;
};

/// How a bill library counts the characters of its codes.
struct BillLibraryRule {
    std::int32_t nCount1 = 9;  ///< characters of the national code
    std::int32_t nCount2 = 3;  ///< characters of the sequence behind it
    bool bFlag1 = false;       ///< for hosts
    bool bFlag2 = false;       ///< for hosts; never taken from a companion by `GetBillLibraryRule`
};

/// The file of an enterprise bill library.
struct EnterpriseBillFile {
    std::wstring FileName;  ///< without its folder
};

/// The text of an enterprise bill library.
struct EnterpriseBillRecord {
    std::wstring Name;  ///< the library's name
    std::wstring Text;  ///< what hosts show of it
};

// The interfaces. The order of their functions is the contract: the reserved ones keep the places of
// functions that this library never calls.

/// Where the folders of the libraries lie.
class ILibraryDirectoryVisitor {
public:
    virtual void Reserved0() = 0;  ///< keeps its place
    virtual void Reserved1() = 0;  ///< keeps its place
    /// The absolute path of the folder, in this library's form and with a backslash at its end; empty when
    /// there is none. Whether the folder exists doesn't matter.
    virtual std::wstring GetLibraryPath(const LibraryPathQuery& query) = 0;
    virtual void Reserved3() = 0;  ///< keeps its place
    /// The tag that stands for an item's name in `LibraryEntry::ItemTags`.
    virtual std::wstring GetLibraryTag(const std::wstring& name) = 0;

protected:
    ~ILibraryDirectoryVisitor() = default;
};

/// The libraries of one section.
class ILibraryGlobalConfigVisitor {
public:
    virtual void Reserved0() = 0;  ///< keeps its place
    virtual void Reserved1() = 0;  ///< keeps its place
    virtual void Reserved2() = 0;  ///< keeps its place
    /// Who stands behind the section's libraries; "墨衡" for the product's own.
    virtual std::wstring GetLibraryOwner() = 0;
    /// The provider, whose name is also that of the folder of the section's bill libraries; "墨衡" for the
    /// product's own.
    virtual std::wstring GetLibraryProvider() = 0;
    virtual void Reserved5() = 0;   ///< keeps its place
    virtual void Reserved6() = 0;   ///< keeps its place
    virtual void Reserved7() = 0;   ///< keeps its place
    virtual void Reserved8() = 0;   ///< keeps its place
    virtual void Reserved9() = 0;   ///< keeps its place
    virtual void Reserved10() = 0;  ///< keeps its place
    /// The entry of a `LibraryKind` with this key, which isn't its name; null when there is none.
    virtual LibraryEntry* FindEntryByKey(const std::wstring& key, std::int32_t kind) = 0;
    /// The entry of a `LibraryKind` with this name; null when there is none.
    virtual LibraryEntry* FindEntryByName(const std::wstring& name, std::int32_t kind) = 0;
    /// Fills the caller's map with all entries of a `LibraryKind`. A null pointer is skipped by the caller.
    virtual void GetLibraryEntries(std::map<std::wstring, LibraryEntry*>& entries, std::int32_t kind) = 0;

protected:
    ~ILibraryGlobalConfigVisitor() = default;
};

/// One bill library.
class IBillLibraryConfigVisitor {
public:
    virtual void Reserved0() = 0;  ///< keeps its place
    virtual void Reserved1() = 0;  ///< keeps its place
    /// Writes the rule, or what it knows of it, over the defaults that the caller has put there. The result
    /// isn't read.
    virtual bool GetRule(BillLibraryRule& rule) = 0;

protected:
    ~IBillLibraryConfigVisitor() = default;
};

/// The enterprise bill libraries of a family.
class IEnterpriseBillLibraryConfigVisitor {
public:
    virtual void Reserved0() = 0;  ///< keeps its place
    virtual void Reserved1() = 0;  ///< keeps its place
    virtual void Reserved2() = 0;  ///< keeps its place
    virtual void Reserved3() = 0;  ///< keeps its place
    virtual void Reserved4() = 0;  ///< keeps its place
    /// The file of the library of this name; null when there is none.
    virtual EnterpriseBillFile* FindBillFile(const std::wstring& name) = 0;
    /// The record of the library of this name; null when there is none.
    virtual EnterpriseBillRecord* FindBillRecord(const std::wstring& name) = 0;

protected:
    ~IEnterpriseBillLibraryConfigVisitor() = default;
};

/// The types of a companion's exported functions, which it exports as `extern "C"` under the names that these
/// types have. Each may be missing: what needs it then gives no data. Texts end with a NUL; results may be
/// null.
namespace LibraryCompanion {

extern "C" {
/// Called once, behind the load: the folder that the companion was loaded from, with a backslash at its end,
/// and 1.
using InitializationSupportProduct = void(const wchar_t* folder, std::int32_t product);
/// The one visitor of folders.
using GetLibraryDirectoryVisitor = ILibraryDirectoryVisitor*();
/// The visitor of a section.
using GetLibraryGlobalConfigVisitor = ILibraryGlobalConfigVisitor*(const wchar_t* family,
                                                                   const wchar_t* section);
/// The visitor of a bill library of a section, by its name.
using GetBillLibraryConfigVisitor = IBillLibraryConfigVisitor*(const wchar_t* family, const wchar_t* section,
                                                               const wchar_t* library);
/// The visitor of a family's enterprise bill libraries.
using GetEnterpriseBillLibraryConfigVisitor = IEnterpriseBillLibraryConfigVisitor*(const wchar_t* family);
/// A number of the product that hosts interpret.
using GetLibrarySeries = std::int32_t();
}

}  // namespace LibraryCompanion
