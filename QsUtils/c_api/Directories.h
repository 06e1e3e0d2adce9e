/// @file
/// Where the folders of an installation lie, as `DirectoryManager` describes it. A folder ends with one
/// backslash; the empty text stands for one that isn't available.
#pragma once

#include "QsUtils/c_api/Basics.h"

#if defined(__cplusplus)
extern "C" {
#endif

/// For a host that doesn't stand in an installation: names the installation's folder, before anything else of
/// the library is called. `isTaken` is 0 when it isn't a folder.
QSUTILS_API QsStatus QsUseInstallation(const QsChar* folder, int32_t length, int32_t* isTaken);

// --- Folders that the operating system gives: of the host's executable, for temporary files, the current
// one, and the user's documents

/// The folder of the host's executable.
QSUTILS_API QsStatus QsCommonDirectory_GetExeDirectory(QsString** folder);
/// The folder for temporary files.
QSUTILS_API QsStatus QsCommonDirectory_GetTempDirectory(QsString** folder);
/// The current folder of the process.
QSUTILS_API QsStatus QsCommonDirectory_GetCurrentWorkDirectory(QsString** folder);
/// The user's folder of documents.
QSUTILS_API QsStatus QsCommonDirectory_GetDocumentsDirectory(QsString** folder);

// --- Folders that the installation chooses: by their code, and by those of which each function bears the
// name

/// The folder of a code.
QSUTILS_API QsStatus QsProjectDirectory_GetDirectory(const QsChar* code, int32_t length, QsString** folder);
/// The folder of the code "ProjectTemplateDirectory".
QSUTILS_API QsStatus QsProjectDirectory_GetProjectTemplateDirectory(QsString** folder);
/// The folder of the code "TemplateDirectory".
QSUTILS_API QsStatus QsProjectDirectory_GetTemplateDirectory(QsString** folder);
/// The folder of the code "ConfigDirectory".
QSUTILS_API QsStatus QsProjectDirectory_GetConfigDirectory(QsString** folder);
/// The folder of the code "TempFileDirectory".
QSUTILS_API QsStatus QsProjectDirectory_GetTempFileDirectory(QsString** folder);
/// The folder of the code "HelpDirectory".
QSUTILS_API QsStatus QsProjectDirectory_GetHelpDirectory(QsString** folder);
/// The folder of the code "ProjectFileDirectory".
QSUTILS_API QsStatus QsProjectDirectory_GetProjectFileDirectory(QsString** folder);
/// The folder of the code "ProgramTemplateDirectory".
QSUTILS_API QsStatus QsProjectDirectory_GetProgramTemplateDirectory(QsString** folder);
/// The folder of the code "ReportDirectory".
QSUTILS_API QsStatus QsProjectDirectory_GetReportDirectory(QsString** folder);
/// The folder of the code "ReportTemplateDirectory".
QSUTILS_API QsStatus QsProjectDirectory_GetReportTemplateDirectory(QsString** folder);
/// The folder of the code "BidTenderFileTemplateDirectory".
QSUTILS_API QsStatus QsProjectDirectory_GetBidTenderFileTemplateDirectory(QsString** folder);
/// The folder of the code "GraphSetDirectory".
QSUTILS_API QsStatus QsProjectDirectory_GetGraphSetDirectory(QsString** folder);
/// The folder of the code "SoftNetDirectory".
QSUTILS_API QsStatus QsProjectDirectory_GetSoftNetDirectory(QsString** folder);
/// The folder of the code "LibVisitor".
QSUTILS_API QsStatus QsProjectDirectory_GetLibVisitorDirectory(QsString** folder);
/// The folder of the code "FyhzTemplateDirectory".
QSUTILS_API QsStatus QsProjectDirectory_GetFyhzTemplateDirectory(QsString** folder);
/// The folder of the code "GfsjTemplateDirectory".
QSUTILS_API QsStatus QsProjectDirectory_GetGfsjTemplateDirectory(QsString** folder);
/// The folder of the code "CsxmTemplateDirectory".
QSUTILS_API QsStatus QsProjectDirectory_GetCsxmTemplateDirectory(QsString** folder);
/// The folder of the code "DjzcTemplateDirectory".
QSUTILS_API QsStatus QsProjectDirectory_GetDjzcTemplateDirectory(QsString** folder);
/// The folder of the code "LibraryDirectory".
QSUTILS_API QsStatus QsProjectDirectory_GetLibraryDirectory(QsString** folder);
/// The folder of the code "LogDirectory".
QSUTILS_API QsStatus QsProjectDirectory_GetLogDirectory(QsString** folder);

// --- Folders of the cost libraries, by the family, the section and the item that they are asked for

/// The folder whose subfolders are the families.
QSUTILS_API QsStatus QsLibraryDirectory_GetLibraryRootDirectory(QsString** folder);
/// The folder whose subfolders are the family's sections.
QSUTILS_API QsStatus QsLibraryDirectory_GetFamilyDirectory(const QsChar* family, int32_t familyLength,
                                                           const QsChar* section, int32_t sectionLength,
                                                           const QsChar* item, int32_t itemLength,
                                                           QsString** folder);
/// The folder of a section's quota library files.
QSUTILS_API QsStatus QsLibraryDirectory_GetQuotaLibraryDirectory(const QsChar* family, int32_t familyLength,
                                                                 const QsChar* section, int32_t sectionLength,
                                                                 const QsChar* item, int32_t itemLength,
                                                                 QsString** folder);
/// The folder above a section's folders of bill library files.
QSUTILS_API QsStatus QsLibraryDirectory_GetBillLibraryRootDirectory(const QsChar* family,
                                                                    int32_t familyLength,
                                                                    const QsChar* section,
                                                                    int32_t sectionLength, const QsChar* item,
                                                                    int32_t itemLength, QsString** folder);
/// The one among them of the section's provider.
QSUTILS_API QsStatus QsLibraryDirectory_GetBillLibraryDirectory(const QsChar* family, int32_t familyLength,
                                                                const QsChar* section, int32_t sectionLength,
                                                                const QsChar* item, int32_t itemLength,
                                                                QsString** folder);
/// The folder of a section's ".drt" files.
QSUTILS_API QsStatus QsLibraryDirectory_GetDrtFileDirectory(const QsChar* family, int32_t familyLength,
                                                            const QsChar* section, int32_t sectionLength,
                                                            const QsChar* item, int32_t itemLength,
                                                            QsString** folder);
/// The folder of a section's ".config" files.
QSUTILS_API QsStatus QsLibraryDirectory_GetConfigFileDirectory(const QsChar* family, int32_t familyLength,
                                                               const QsChar* section, int32_t sectionLength,
                                                               const QsChar* item, int32_t itemLength,
                                                               QsString** folder);
/// The folder whose subfolders are a section's items.
QSUTILS_API QsStatus QsLibraryDirectory_GetSubLibraryRootDirectory(const QsChar* family, int32_t familyLength,
                                                                   const QsChar* section,
                                                                   int32_t sectionLength, const QsChar* item,
                                                                   int32_t itemLength, QsString** folder);
/// The folder of one item.
QSUTILS_API QsStatus QsLibraryDirectory_GetSubLibraryDirectory(const QsChar* family, int32_t familyLength,
                                                               const QsChar* section, int32_t sectionLength,
                                                               const QsChar* item, int32_t itemLength,
                                                               QsString** folder);
/// The folder of a section's fee templates.
QSUTILS_API QsStatus QsLibraryDirectory_GetFeeTemplateLibraryDirectory(
    const QsChar* family, int32_t familyLength, const QsChar* section, int32_t sectionLength,
    const QsChar* item, int32_t itemLength, QsString** folder);
/// The folder of a section's report templates.
QSUTILS_API QsStatus QsLibraryDirectory_GetReportTemplateLibraryDirectory(
    const QsChar* family, int32_t familyLength, const QsChar* section, int32_t sectionLength,
    const QsChar* item, int32_t itemLength, QsString** folder);
/// The folder of path kind 10.
QSUTILS_API QsStatus QsLibraryDirectory_GetPathKind10Directory(const QsChar* family, int32_t familyLength,
                                                               const QsChar* section, int32_t sectionLength,
                                                               const QsChar* item, int32_t itemLength,
                                                               QsString** folder);
/// The folder of a family's enterprise bill library files.
QSUTILS_API QsStatus QsLibraryDirectory_GetEnterpriseBillDirectory(const QsChar* family, int32_t length,
                                                                   QsString** folder);
/// The folder of the group-price libraries.
QSUTILS_API QsStatus QsLibraryDirectory_GetGroupPriceRootDirectory(QsString** folder);
/// The folder of one of them.
QSUTILS_API QsStatus QsLibraryDirectory_GetGroupPriceDirectory(const QsChar* name, int32_t length,
                                                               QsString** folder);
/// The tag under which libraries list the item of this name.
QSUTILS_API QsStatus QsLibraryDirectory_GetLibraryTag(const QsChar* name, int32_t length, QsString** tag);

#if defined(__cplusplus)
}
#endif
