#include "QsUtils/backup/CQSBackUpUtility.h"

#include <cstdint>
#include <optional>

#include "QsUtils/backup/BackUpNames.h"
#include "QsUtils/backup/BehindMark.h"
#include "QsUtils/backup/FilePutBack.h"
#include "QsUtils/backup/FolderReplacement.h"
#include "QsUtils/backup/ProjectPlaces.h"
#include "QsUtils/platform/AbandonedVersions.h"
#include "QsUtils/platform/ExecutableFolder.h"
#include "QsUtils/platform/FileFailure.h"
#include "QsUtils/platform/Files.h"
#include "QsUtils/platform/ProfileFile.h"
#include "QsUtils/text/Files.h"
#include "QsUtils/text/Numbers.h"

using QsBackup::BehindMark;
using QsBackup::FilePutBack;
using QsBackup::FolderReplacement;
using QsBackup::ProjectPlaces;
using QsPlatform::FileFailure;

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

/// False when the versions couldn't be written, unless a file that somebody has marked as read-only, or a
/// folder in its place, keeps them as they are.
bool WriteVersions(const ProjectPlaces& places, const QsPlatform::ProfileValues& versions) {
    FileFailure failure = FileFailure::None;
    return QsPlatform::WriteProfileValues(places.versions, QsBackup::VersionSection, versions, &failure) ||
           failure == FileFailure::ReadOnlyTarget || failure == FileFailure::NotAFile;
}

/// Copies the drawings into the backup. The mark is there before: behind a copy that is killed, or has filled
/// the disk, it could no longer be made.
void RenewSavedGraphics(const ProjectPlaces& places) {
    BehindMark(places).Set();
    if (FolderReplacement(places.savedGraphics).ReplaceByCopyOf(places.graphics))
        BehindMark(places).Remove();
}

/// Ends what calls that were killed have left.
void Recover(const ProjectPlaces& places) {
    FolderReplacement(places.savedGraphics).Recover();
    FolderReplacement(places.graphics, places.folder).Recover();
    FilePutBack(places.dataBase, places.folder).Recover();
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
    BehindMark(places).Settle();
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
    BehindMark(*places).Set();  // while there is room: the database may take the last of it
    QsPlatform::CopyOneFile(places->dataBase, places->workingDataBase);
    RenewSavedGraphics(*places);
    // Former versions, had they stayed, could become alike by the next change.
    if (!WriteVersions(*places, {{QsBackup::RunVersion, u"1"}, {QsBackup::BackUpVersion, u"1"}}))
        BehindMark(*places).Set();
}

void CQSBackUpUtility::OnBackUpSaveFile(const CString& strProjectFile) {
    const std::optional<ProjectPlaces> places = Begin(strProjectFile);
    if (!places)
        return;
    FilePutBack(places->dataBase, places->folder).CopyFrom(places->workingDataBase);
    const Versions versions = ReadVersions(*places);
    if (!versions.Differ() && !BehindMark(*places).IsSet())
        return;
    RenewSavedGraphics(*places);  // which may bring back a version file that was the mark
    WriteVersions(*places, {{QsBackup::BackUpVersion, ReadVersions(*places).run}});
}

void CQSBackUpUtility::UpdateGraphicFileVer(const CString& strProjectFile) {
    const std::optional<ProjectPlaces> places = Begin(strProjectFile);
    if (!places)
        return;
    // The number behind the largest one is the smallest one.
    const auto number = static_cast<std::uint32_t>(QsText::ReadInt(ReadVersions(*places).run.View()));
    CString next;
    next.Format(u"%d", static_cast<std::int32_t>(number + 1));
    // A change that isn't counted must not keep the next save from renewing the saved drawings.
    if (!WriteVersions(*places, {{QsBackup::RunVersion, next}}))
        BehindMark(*places).Set();
}

void CQSBackUpUtility::OnNotSaveGraphicFile(const CString& strProjectFile) {
    const std::optional<ProjectPlaces> places = Begin(strProjectFile);
    if (!places)
        return;
    const Versions versions = ReadVersions(*places);
    if (!versions.Differ())
        return;
    // The changes are the lesser evil beside a saved folder of who knows when.
    const BehindMark mark(*places);
    if (!mark.IsSet() &&
        !FolderReplacement(places->graphics, places->folder).ReplaceByCopyOf(places->savedGraphics))
        mark.Set();  // changes that stay while the versions become alike
    WriteVersions(*places, {{QsBackup::RunVersion, versions.backUp}});
}
