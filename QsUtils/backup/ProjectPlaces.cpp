#include "QsUtils/backup/ProjectPlaces.h"

#include "QsUtils/backup/BackUpNames.h"

namespace QsBackup {

ProjectPlaces::ProjectPlaces(const CString& backUpFolder, const CString& projectFile)
    : graphics(WithoutExtension(projectFile)),
      dataBase(graphics + u".mdb"),
      folder(backUpFolder),
      savedGraphics(folder + u"\\" + GraphicFolder),
      workingDataBase(folder + u"\\" + DataBaseFile),
      versions(folder + u"\\" + VersionFile) {}

CString LastName(const CString& projectFile) {
    const int separator = projectFile.ReverseFind(u'\\');
    return separator < 0 ? CString() : projectFile.Mid(separator + 1);
}

CString WithoutExtension(const CString& name) {
    const int point = name.ReverseFind(u'.');
    return point < 0 ? name : name.Left(point);
}

}  // namespace QsBackup
