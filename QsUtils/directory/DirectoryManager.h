/// @file
/// Where the folders of an installation lie: three services, one for each source of folders.
#pragma once

#include "QsUtils/directory/LibraryKey.h"
#include "QsUtils/directory/LibraryVisitor.h"
#include "QsUtils/platform/Api.h"
#include "QsUtils/text/CString.h"

/// Every folder is an absolute path in the library's form that ends with one backslash, to which callers
/// append file names directly; the empty text stands for a folder that isn't available. Nothing here creates
/// a folder or tests that one exists, nothing raises but memory exhaustion, and any thread may call anything.
namespace DirectoryManager {

/// Folders that the operating system gives.
class QSUTILS_API ICommonDirectory {
public:
    virtual ~ICommonDirectory();
    /// The folder of the host's executable, from which every other path starts; asked for once. Empty when
    /// the system doesn't tell it or its path has 260 units or more.
    virtual CString GetExeDirectory() = 0;
    /// The folder for temporary files; asked for once, so that a later change of the environment isn't seen.
    virtual CString GetTempDirectory() = 0;
    /// The current folder of the process, asked for at each call; empty when it can't be had.
    virtual CString GetCurrentWorkDirectory() = 0;
    /// The user's folder of documents, asked for at each call and never created; empty when there is none.
    virtual CString GetDocumentsDirectory() = 0;
};

/// Folders that the installation chooses in `DirectoryConfig.xml` beside the executable (see
/// docs/directories.md). The file is read once, at the first call.
class QSUTILS_API IProjectDirectory {
public:
    virtual ~IProjectDirectory();
    /// The folder of a code: the executable's folder followed by the relative path of the file, neither
    /// checked nor resolved. The executable's folder itself for a code that the file lacks, and when there is
    /// no good file.
    virtual CString GetDirectory(const CString& code) = 0;
    /// @name Single folders
    /// `GetDirectory` of the code that stands beside each.
    /// @{
    virtual CString GetProjectTemplateDirectory() = 0;  ///< of the code "ProjectTemplateDirectory"
    virtual CString GetTemplateDirectory() = 0;         ///< of the code "TemplateDirectory"
    virtual CString GetConfigDirectory() = 0;           ///< of the code "ConfigDirectory"
    virtual CString GetTempFileDirectory() = 0;         ///< of the code "TempFileDirectory"
    virtual CString GetHelpDirectory() = 0;             ///< of the code "HelpDirectory"
    virtual CString GetProjectFileDirectory() = 0;      ///< of the code "ProjectFileDirectory"
    virtual CString GetProgramTemplateDirectory() = 0;  ///< of the code "ProgramTemplateDirectory"
    virtual CString GetReportDirectory() = 0;           ///< of the code "ReportDirectory"
    virtual CString GetReportTemplateDirectory() = 0;   ///< of the code "ReportTemplateDirectory"
    virtual CString
    GetBidTenderFileTemplateDirectory() = 0;         ///< of the code "BidTenderFileTemplateDirectory"
    virtual CString GetGraphSetDirectory() = 0;      ///< of the code "GraphSetDirectory"
    virtual CString GetSoftNetDirectory() = 0;       ///< of the code "SoftNetDirectory"
    virtual CString GetLibVisitorDirectory() = 0;    ///< of the code "LibVisitor"
    virtual CString GetFyhzTemplateDirectory() = 0;  ///< of the code "FyhzTemplateDirectory"
    virtual CString GetGfsjTemplateDirectory() = 0;  ///< of the code "GfsjTemplateDirectory"
    virtual CString GetCsxmTemplateDirectory() = 0;  ///< of the code "CsxmTemplateDirectory"
    virtual CString GetDjzcTemplateDirectory() = 0;  ///< of the code "DjzcTemplateDirectory"
    virtual CString GetLibraryDirectory() = 0;       ///< of the code "LibraryDirectory"
    virtual CString GetLogDirectory() = 0;           ///< of the code "LogDirectory"
    /// @}
};

/// Folders of the cost libraries, which the companion module knows (see `LibraryVisitor.h`). It is loaded at
/// the first call that needs it; where it is missing, that call gives the empty text and the next one tries
/// again.
class QSUTILS_API ILibraryDirectory {
public:
    virtual ~ILibraryDirectory();
    /// The folder whose subfolders are the families. Kept, once it isn't empty.
    virtual CString GetLibraryRootDirectory() = 0;
    /// The folder whose subfolders are the sections of `key.Family`.
    virtual CString GetFamilyDirectory(const LibraryKey& key) = 0;
    /// The folder of a section's quota library files.
    virtual CString GetQuotaLibraryDirectory(const LibraryKey& key) = 0;
    /// The folder of the group-price libraries, "Library\组价库\" beside the executable; needs no companion.
    virtual CString GetGroupPriceRootDirectory() = 0;
    /// The folder of one group-price library below that; needs no companion.
    virtual CString GetGroupPriceDirectory(const CString& name) = 0;
    /// The folder above a section's folders of bill library files.
    virtual CString GetBillLibraryRootDirectory(const LibraryKey& key) = 0;
    /// The folder of a family's enterprise bill library files.
    virtual CString GetEnterpriseBillDirectory(const CString& family) = 0;
    /// The folder of a section's bill library files: the one named after the section's provider, below
    /// `GetBillLibraryRootDirectory`. Empty when the section has no provider.
    virtual CString GetBillLibraryDirectory(const LibraryKey& key) = 0;
    /// The folder of a section's ".drt" files.
    virtual CString GetDrtFileDirectory(const LibraryKey& key) = 0;
    /// The folder of a section's ".config" files.
    virtual CString GetConfigFileDirectory(const LibraryKey& key) = 0;
    /// The folder whose subfolders are a section's items.
    virtual CString GetSubLibraryRootDirectory(const LibraryKey& key) = 0;
    /// The folder of one item.
    virtual CString GetSubLibraryDirectory(const LibraryKey& key) = 0;
    /// The folder of a section's fee templates.
    virtual CString GetFeeTemplateLibraryDirectory(const LibraryKey& key) = 0;
    /// The folder of a section's report templates.
    virtual CString GetReportTemplateLibraryDirectory(const LibraryKey& key) = 0;
    /// The folder of path kind 10, for hosts that know its meaning.
    virtual CString GetPathKind10Directory(const LibraryKey& key) = 0;
    /// The tag under which libraries list the item of this name.
    virtual CString GetLibraryTag(const CString& name) = 0;
    /// The companion's visitor, which stays the companion's; null when there is none.
    virtual ILibraryDirectoryVisitor* GetLibraryDirectoryVisitor() = 0;
};

/// @name Services
/// Those of the process, always the same, made at the first call; never deleted by a caller.
/// @{

QSUTILS_API ICommonDirectory* GetCommonDirectoryManager();    ///< the system's folders
QSUTILS_API IProjectDirectory* GetProjectDirectoryManager();  ///< the installation's folders
QSUTILS_API ILibraryDirectory* GetLibraryDirectoryManager();  ///< the libraries' folders
/// @}

/// For a host that doesn't stand in an installation, such as a tool or a test: names the installation's
/// folder, with or without a backslash at its end, which from now on takes the place of the executable's
/// folder in all of the library. A relative path begins in the current folder. To be called before anything
/// else of the library: what has been read from another folder by then stays. False, with nothing changed,
/// when it isn't a folder, or has 260 units or more with its backslash.
QSUTILS_API bool UseInstallation(const CString& folder);

}  // namespace DirectoryManager
