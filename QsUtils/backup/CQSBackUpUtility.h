// The working copy of a project.
#pragma once

#include <optional>

#include "QsUtils/backup/ProjectPlaces.h"
#include "QsUtils/text/CString.h"

/// Carries out one operation of the backup and is gone; `IQsUtils` documents them under the same names. All
/// state lies on disk: below the executable's folder in "tempfile\", the fixed folder and the project's bare
/// name. Nothing tells of a failure, and nothing raises but memory exhaustion. One call for one project at a
/// time.
class CQSBackUpUtility {
public:
    /// With an empty name the first call takes it from the project's path.
    explicit CQSBackUpUtility(const CString& projectName);
    virtual ~CQSBackUpUtility();

    void GetCurBackUpPath(CString& strPath, const CString& strProjectFile);
    void GetCurBackUpDataBasePath(CString& strPath, const CString& strProjectFile);
    void InitBackUpInfo(const CString& strProjectFile);
    void OnBackUpSaveFile(const CString& strProjectFile);
    void UpdateGraphicFileVer(const CString& strProjectFile);
    void OnNotSaveGraphicFile(const CString& strProjectFile);

private:
    std::optional<QsBackup::ProjectPlaces> Begin(const CString& strProjectFile);

    CString m_strBackUpFolder;
    CString m_strProjectName;
    CString m_strExtra;
};
