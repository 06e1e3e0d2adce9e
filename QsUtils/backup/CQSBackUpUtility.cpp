#include "QsUtils/backup/CQSBackUpUtility.h"

#include <cstdint>
#include <optional>

#include "QsUtils/backup/BackUpNames.h"
#include "QsUtils/backup/FolderReplacement.h"
#include "QsUtils/backup/ProjectPlaces.h"
#include "QsUtils/platform/AbandonedVersions.h"
#include "QsUtils/platform/ExecutableFolder.h"
#include "QsUtils/platform/Files.h"
#include "QsUtils/platform/Folders.h"
#include "QsUtils/platform/ProfileFile.h"
#include "QsUtils/text/Files.h"
#include "QsUtils/text/Numbers.h"

using QsBackup::FolderReplacement;
using QsBackup::ProjectPlaces;

namespace {

struct Versions {
    CString run;
    CString backUp;

    /// Whether the graphic folder has moved on from the saved one. Texts are compared, not numbers.
    bool Differ() const { return run != backUp; }
};

/// In units, the NUL among them.
constexpr int VersionBuffer = 128;

Versions ReadVersions(const ProjectPlaces& places) {
    const QsPlatform::ProfileDocument file(places.versions);
    const auto read = [&](const CString& key) {
        return file.Text(QsBackup::VersionSection, key, u"1", VersionBuffer);
    };
    return {read(QsBackup::RunVersion), read(QsBackup::BackUpVersion)};
}

void WriteVersion(const ProjectPlaces& places, const CString& key, const CString& version) {
    QsPlatform::WriteProfileValue(places.versions, QsBackup::VersionSection, key, version);
}

// A saved graphic folder that couldn't be renewed, for want of room, is behind what the version file says: it
// may be older than the last save, or that of another project of the same name. A mark beside it tells so
// from then on.

CString MarkOfBehind(const ProjectPlaces& places) {
    return places.savedGraphics + u".qsutils-behind";
}

bool IsBehind(const ProjectPlaces& places) {
    return QsPlatform::IsFolder(MarkOfBehind(places));
}

void RenewSavedGraphics(const ProjectPlaces& places) {
    if (FolderReplacement(places.savedGraphics).ReplaceByCopyOf(places.graphics))
        QsPlatform::RemoveFolder(MarkOfBehind(places));
    else
        QsPlatform::CreateFolder(MarkOfBehind(places));
}

/// Ends what calls that were killed have left.
void Recover(const ProjectPlaces& places) {
    FolderReplacement(places.savedGraphics).Recover();
    FolderReplacement(places.graphics).Recover();
    QsPlatform::RemoveAbandonedVersions(places.folder);
    const int separator = places.dataBase.ReverseFind(u'\\');
    QsPlatform::RemoveAbandonedVersions(separator < 0 ? CString(u".") : places.dataBase.Left(separator));
}

}  // namespace

CQSBackUpUtility::CQSBackUpUtility(const CString& projectName)
    : m_strBackUpFolder(u"db808900-b06a-486b-ba7d-de9d3236d4ea"), m_strProjectName(projectName) {}

CQSBackUpUtility::~CQSBackUpUtility() = default;

/// None when the executable's folder isn't known.
std::optional<ProjectPlaces> CQSBackUpUtility::Begin(const CString& strProjectFile) {
    if (m_strProjectName.IsEmpty())
        m_strProjectName = QsBackup::LastName(strProjectFile);
    m_strProjectName = QsBackup::WithoutExtension(m_strProjectName);
    const CString executableFolder = QsPlatform::ExecutableFolder();
    if (executableFolder.IsEmpty())
        return std::nullopt;
    ProjectPlaces places(executableFolder + u"\\tempfile\\" + m_strBackUpFolder + u"\\" + m_strProjectName,
                         strProjectFile);
    QsText::CreateFolderAllPath(places.folder);
    Recover(places);
    return places;
}

void CQSBackUpUtility::GetCurBackUpPath(CString& strPath, const CString& strProjectFile) {
    const std::optional<ProjectPlaces> places = Begin(strProjectFile);
    strPath = places ? places->folder : CString();
}

void CQSBackUpUtility::GetCurBackUpDataBasePath(CString& strPath, const CString& strProjectFile) {
    const std::optional<ProjectPlaces> places = Begin(strProjectFile);
    strPath = places ? places->workingDataBase : CString();
}

void CQSBackUpUtility::InitBackUpInfo(const CString& strProjectFile) {
    const std::optional<ProjectPlaces> places = Begin(strProjectFile);
    if (!places)
        return;
    QsPlatform::CopyOneFile(places->dataBase, places->workingDataBase);
    RenewSavedGraphics(*places);
    WriteVersion(*places, QsBackup::RunVersion, u"1");
    WriteVersion(*places, QsBackup::BackUpVersion, u"1");
}

void CQSBackUpUtility::OnBackUpSaveFile(const CString& strProjectFile) {
    const std::optional<ProjectPlaces> places = Begin(strProjectFile);
    if (!places)
        return;
    QsPlatform::CopyOneFile(places->workingDataBase, places->dataBase);
    const Versions versions = ReadVersions(*places);
    if (versions.Differ() || IsBehind(*places))
        RenewSavedGraphics(*places);
    if (versions.Differ())
        WriteVersion(*places, QsBackup::BackUpVersion, versions.run);
}

void CQSBackUpUtility::UpdateGraphicFileVer(const CString& strProjectFile) {
    const std::optional<ProjectPlaces> places = Begin(strProjectFile);
    if (!places)
        return;
    // The number behind the largest one is the smallest one.
    const auto number = static_cast<std::uint32_t>(QsText::ReadInt(ReadVersions(*places).run.View()));
    CString next;
    next.Format(u"%d", static_cast<std::int32_t>(number + 1));
    WriteVersion(*places, QsBackup::RunVersion, next);
}

void CQSBackUpUtility::OnNotSaveGraphicFile(const CString& strProjectFile) {
    const std::optional<ProjectPlaces> places = Begin(strProjectFile);
    if (!places)
        return;
    const Versions versions = ReadVersions(*places);
    if (!versions.Differ())
        return;
    // The changes are the lesser evil beside a saved folder of who knows when.
    if (!IsBehind(*places))
        FolderReplacement(places->graphics).ReplaceByCopyOf(places->savedGraphics);
    WriteVersion(*places, QsBackup::RunVersion, versions.backUp);
}
