// Where a project and its backup stand.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsBackup {

/// Paths of a project's parts in the library's form; nothing of them need exist.
struct ProjectPlaces {
    /// `backUpFolder` is the project's folder in the backup.
    ProjectPlaces(const CString& backUpFolder, const CString& projectFile);

    // In the project: the project file's path up to its last "." is the folder, with ".mdb" the database. The
    // whole path counts, also a "." in the name of a folder.
    CString graphics;
    CString dataBase;

    // In the backup.
    CString folder;
    CString savedGraphics;
    CString workingDataBase;
    CString versions;
};

/// What stands behind the last backslash; empty when there is none.
CString LastName(const CString& projectFile);

/// A name or a path up to its last ".".
CString WithoutExtension(const CString& name);

}  // namespace QsBackup
