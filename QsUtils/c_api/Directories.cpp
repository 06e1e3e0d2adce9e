#include "QsUtils/c_api/Directories.h"

#include "QsUtils/c_api/Calls.h"
#include "QsUtils/directory/DirectoryManager.h"

using QsCApi::Argument;
using QsCApi::Call;
using QsCApi::Give;
using QsCApi::TextOf;

namespace {

using DirectoryManager::GetCommonDirectoryManager;
using DirectoryManager::GetLibraryDirectoryManager;
using DirectoryManager::GetProjectDirectoryManager;
using DirectoryManager::ICommonDirectory;
using DirectoryManager::ILibraryDirectory;
using DirectoryManager::IProjectDirectory;

QsStatus Common(CString (ICommonDirectory::*get)(), QsString** folder) {
    return Call([&] { Give(folder, (GetCommonDirectoryManager()->*get)()); }, folder);
}

QsStatus Project(CString (IProjectDirectory::*get)(), QsString** folder) {
    return Call([&] { Give(folder, (GetProjectDirectoryManager()->*get)()); }, folder);
}

QsStatus OfLibraries(CString (ILibraryDirectory::*get)(), QsString** folder) {
    return Call([&] { Give(folder, (GetLibraryDirectoryManager()->*get)()); }, folder);
}

QsStatus OfName(CString (ILibraryDirectory::*get)(const CString&), const QsChar* name, std::int32_t length,
                QsString** result) {
    return Call([&] { Give(result, (GetLibraryDirectoryManager()->*get)(TextOf(name, length))); }, result);
}

QsStatus OfKey(CString (ILibraryDirectory::*get)(const LibraryKey&), Argument family, Argument section,
               Argument item, QsString** folder) {
    return Call(
        [&] {
            const LibraryKey key = {TextOf(family), TextOf(section), TextOf(item)};
            Give(folder, (GetLibraryDirectoryManager()->*get)(key));
        },
        folder);
}

}  // namespace

QsStatus QsUseInstallation(const QsChar* folder, std::int32_t length, std::int32_t* isTaken) {
    return Call([&] { *isTaken = DirectoryManager::UseInstallation(TextOf(folder, length)); }, isTaken);
}

QsStatus QsCommonDirectory_GetExeDirectory(QsString** folder) {
    return Common(&ICommonDirectory::GetExeDirectory, folder);
}

QsStatus QsCommonDirectory_GetTempDirectory(QsString** folder) {
    return Common(&ICommonDirectory::GetTempDirectory, folder);
}

QsStatus QsCommonDirectory_GetCurrentWorkDirectory(QsString** folder) {
    return Common(&ICommonDirectory::GetCurrentWorkDirectory, folder);
}

QsStatus QsCommonDirectory_GetDocumentsDirectory(QsString** folder) {
    return Common(&ICommonDirectory::GetDocumentsDirectory, folder);
}

QsStatus QsProjectDirectory_GetDirectory(const QsChar* code, std::int32_t length, QsString** folder) {
    return Call([&] { Give(folder, GetProjectDirectoryManager()->GetDirectory(TextOf(code, length))); },
                folder);
}

QsStatus QsProjectDirectory_GetProjectTemplateDirectory(QsString** folder) {
    return Project(&IProjectDirectory::GetProjectTemplateDirectory, folder);
}

QsStatus QsProjectDirectory_GetTemplateDirectory(QsString** folder) {
    return Project(&IProjectDirectory::GetTemplateDirectory, folder);
}

QsStatus QsProjectDirectory_GetConfigDirectory(QsString** folder) {
    return Project(&IProjectDirectory::GetConfigDirectory, folder);
}

QsStatus QsProjectDirectory_GetTempFileDirectory(QsString** folder) {
    return Project(&IProjectDirectory::GetTempFileDirectory, folder);
}

QsStatus QsProjectDirectory_GetHelpDirectory(QsString** folder) {
    return Project(&IProjectDirectory::GetHelpDirectory, folder);
}

QsStatus QsProjectDirectory_GetProjectFileDirectory(QsString** folder) {
    return Project(&IProjectDirectory::GetProjectFileDirectory, folder);
}

QsStatus QsProjectDirectory_GetProgramTemplateDirectory(QsString** folder) {
    return Project(&IProjectDirectory::GetProgramTemplateDirectory, folder);
}

QsStatus QsProjectDirectory_GetReportDirectory(QsString** folder) {
    return Project(&IProjectDirectory::GetReportDirectory, folder);
}

QsStatus QsProjectDirectory_GetReportTemplateDirectory(QsString** folder) {
    return Project(&IProjectDirectory::GetReportTemplateDirectory, folder);
}

QsStatus QsProjectDirectory_GetBidTenderFileTemplateDirectory(QsString** folder) {
    return Project(&IProjectDirectory::GetBidTenderFileTemplateDirectory, folder);
}

QsStatus QsProjectDirectory_GetGraphSetDirectory(QsString** folder) {
    return Project(&IProjectDirectory::GetGraphSetDirectory, folder);
}

QsStatus QsProjectDirectory_GetSoftNetDirectory(QsString** folder) {
    return Project(&IProjectDirectory::GetSoftNetDirectory, folder);
}

QsStatus QsProjectDirectory_GetLibVisitorDirectory(QsString** folder) {
    return Project(&IProjectDirectory::GetLibVisitorDirectory, folder);
}

QsStatus QsProjectDirectory_GetFyhzTemplateDirectory(QsString** folder) {
    return Project(&IProjectDirectory::GetFyhzTemplateDirectory, folder);
}

QsStatus QsProjectDirectory_GetGfsjTemplateDirectory(QsString** folder) {
    return Project(&IProjectDirectory::GetGfsjTemplateDirectory, folder);
}

QsStatus QsProjectDirectory_GetCsxmTemplateDirectory(QsString** folder) {
    return Project(&IProjectDirectory::GetCsxmTemplateDirectory, folder);
}

QsStatus QsProjectDirectory_GetDjzcTemplateDirectory(QsString** folder) {
    return Project(&IProjectDirectory::GetDjzcTemplateDirectory, folder);
}

QsStatus QsProjectDirectory_GetLibraryDirectory(QsString** folder) {
    return Project(&IProjectDirectory::GetLibraryDirectory, folder);
}

QsStatus QsProjectDirectory_GetLogDirectory(QsString** folder) {
    return Project(&IProjectDirectory::GetLogDirectory, folder);
}

QsStatus QsLibraryDirectory_GetLibraryRootDirectory(QsString** folder) {
    return OfLibraries(&ILibraryDirectory::GetLibraryRootDirectory, folder);
}

QsStatus QsLibraryDirectory_GetGroupPriceRootDirectory(QsString** folder) {
    return OfLibraries(&ILibraryDirectory::GetGroupPriceRootDirectory, folder);
}

QsStatus QsLibraryDirectory_GetFamilyDirectory(const QsChar* family, std::int32_t familyLength,
                                               const QsChar* section, std::int32_t sectionLength,
                                               const QsChar* item, std::int32_t itemLength,
                                               QsString** folder) {
    return OfKey(&ILibraryDirectory::GetFamilyDirectory, {family, familyLength}, {section, sectionLength},
                 {item, itemLength}, folder);
}

QsStatus QsLibraryDirectory_GetQuotaLibraryDirectory(const QsChar* family, std::int32_t familyLength,
                                                     const QsChar* section, std::int32_t sectionLength,
                                                     const QsChar* item, std::int32_t itemLength,
                                                     QsString** folder) {
    return OfKey(&ILibraryDirectory::GetQuotaLibraryDirectory, {family, familyLength},
                 {section, sectionLength}, {item, itemLength}, folder);
}

QsStatus QsLibraryDirectory_GetBillLibraryRootDirectory(const QsChar* family, std::int32_t familyLength,
                                                        const QsChar* section, std::int32_t sectionLength,
                                                        const QsChar* item, std::int32_t itemLength,
                                                        QsString** folder) {
    return OfKey(&ILibraryDirectory::GetBillLibraryRootDirectory, {family, familyLength},
                 {section, sectionLength}, {item, itemLength}, folder);
}

QsStatus QsLibraryDirectory_GetBillLibraryDirectory(const QsChar* family, std::int32_t familyLength,
                                                    const QsChar* section, std::int32_t sectionLength,
                                                    const QsChar* item, std::int32_t itemLength,
                                                    QsString** folder) {
    return OfKey(&ILibraryDirectory::GetBillLibraryDirectory, {family, familyLength},
                 {section, sectionLength}, {item, itemLength}, folder);
}

QsStatus QsLibraryDirectory_GetDrtFileDirectory(const QsChar* family, std::int32_t familyLength,
                                                const QsChar* section, std::int32_t sectionLength,
                                                const QsChar* item, std::int32_t itemLength,
                                                QsString** folder) {
    return OfKey(&ILibraryDirectory::GetDrtFileDirectory, {family, familyLength}, {section, sectionLength},
                 {item, itemLength}, folder);
}

QsStatus QsLibraryDirectory_GetConfigFileDirectory(const QsChar* family, std::int32_t familyLength,
                                                   const QsChar* section, std::int32_t sectionLength,
                                                   const QsChar* item, std::int32_t itemLength,
                                                   QsString** folder) {
    return OfKey(&ILibraryDirectory::GetConfigFileDirectory, {family, familyLength}, {section, sectionLength},
                 {item, itemLength}, folder);
}

QsStatus QsLibraryDirectory_GetSubLibraryRootDirectory(const QsChar* family, std::int32_t familyLength,
                                                       const QsChar* section, std::int32_t sectionLength,
                                                       const QsChar* item, std::int32_t itemLength,
                                                       QsString** folder) {
    return OfKey(&ILibraryDirectory::GetSubLibraryRootDirectory, {family, familyLength},
                 {section, sectionLength}, {item, itemLength}, folder);
}

QsStatus QsLibraryDirectory_GetSubLibraryDirectory(const QsChar* family, std::int32_t familyLength,
                                                   const QsChar* section, std::int32_t sectionLength,
                                                   const QsChar* item, std::int32_t itemLength,
                                                   QsString** folder) {
    return OfKey(&ILibraryDirectory::GetSubLibraryDirectory, {family, familyLength}, {section, sectionLength},
                 {item, itemLength}, folder);
}

QsStatus QsLibraryDirectory_GetFeeTemplateLibraryDirectory(const QsChar* family, std::int32_t familyLength,
                                                           const QsChar* section, std::int32_t sectionLength,
                                                           const QsChar* item, std::int32_t itemLength,
                                                           QsString** folder) {
    return OfKey(&ILibraryDirectory::GetFeeTemplateLibraryDirectory, {family, familyLength},
                 {section, sectionLength}, {item, itemLength}, folder);
}

QsStatus QsLibraryDirectory_GetReportTemplateLibraryDirectory(const QsChar* family, std::int32_t familyLength,
                                                              const QsChar* section,
                                                              std::int32_t sectionLength, const QsChar* item,
                                                              std::int32_t itemLength, QsString** folder) {
    return OfKey(&ILibraryDirectory::GetReportTemplateLibraryDirectory, {family, familyLength},
                 {section, sectionLength}, {item, itemLength}, folder);
}

QsStatus QsLibraryDirectory_GetPathKind10Directory(const QsChar* family, std::int32_t familyLength,
                                                   const QsChar* section, std::int32_t sectionLength,
                                                   const QsChar* item, std::int32_t itemLength,
                                                   QsString** folder) {
    return OfKey(&ILibraryDirectory::GetPathKind10Directory, {family, familyLength}, {section, sectionLength},
                 {item, itemLength}, folder);
}

QsStatus QsLibraryDirectory_GetEnterpriseBillDirectory(const QsChar* family, std::int32_t length,
                                                       QsString** folder) {
    return OfName(&ILibraryDirectory::GetEnterpriseBillDirectory, family, length, folder);
}

QsStatus QsLibraryDirectory_GetGroupPriceDirectory(const QsChar* name, std::int32_t length,
                                                   QsString** folder) {
    return OfName(&ILibraryDirectory::GetGroupPriceDirectory, name, length, folder);
}

QsStatus QsLibraryDirectory_GetLibraryTag(const QsChar* name, std::int32_t length, QsString** tag) {
    return OfName(&ILibraryDirectory::GetLibraryTag, name, length, tag);
}
