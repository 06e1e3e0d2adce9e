// Names in the backup of a project. They are static objects of the module, which stand in frame/Module.cpp.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsBackup {

extern const CString VersionFile;
extern const CString DataBaseFile;
extern const CString GraphicFolder;
extern const CString VersionSection;
/// The version of the graphic folder that is worked in.
extern const CString RunVersion;
/// The version of the graphic folder in the backup.
extern const CString BackUpVersion;

}  // namespace QsBackup
