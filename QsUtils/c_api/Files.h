/// @file
/// Paths, folders, versions, the backup of a project, open budgets, and the installed spreadsheet. Paths have
/// backslashes on every system; what can't be done shows in the result alone.
#pragma once

#include "QsUtils/c_api/Basics.h"

#if defined(__cplusplus)
extern "C" {
#endif

// --- Paths and folders, as `IQsUtils` describes them

/// Makes a folder and those above it; whether it exists at the end.
QSUTILS_API QsStatus QsCreateFolderAllPath(const QsChar* path, int32_t length, int32_t* exists);
/// Copies what is in a folder into another, which is emptied first with `clearTarget`.
QSUTILS_API QsStatus QsCopyFolderAllFiles(const QsChar* source, int32_t sourceLength, const QsChar* target,
                                          int32_t targetLength, int32_t clearTarget);
/// Removes a folder with all that is in it; whether it is gone.
QSUTILS_API QsStatus QsDeleteDirectory(const QsChar* path, int32_t length, int32_t* isGone);
/// Which of two dotted versions is bigger: 1 for `a`, -1 for `b`, 0 when they count as equal.
QSUTILS_API QsStatus QsVersionBig(const QsChar* a, int32_t aLength, const QsChar* b, int32_t bLength,
                                  int32_t withThirdPart, int32_t* order);
/// Whether a file or a folder of this path exists, or any that a pattern matches.
QSUTILS_API QsStatus QsIsFileExist(const QsChar* path, int32_t length, int32_t* exists);
/// Whether an existing file can't be opened for reading and writing by one alone.
QSUTILS_API QsStatus QsIsFileOpen(const QsChar* path, int32_t length, int32_t* isOpen);
/// The name of a file without its folder and its extension.
QSUTILS_API QsStatus QsPickFileNameFromPath(const QsChar* path, int32_t length, QsString** name);
/// Takes ".." and the part before it out of a path. QS_FAILED for a path that has a part "." or a last part
/// ".." with a part to take out.
QSUTILS_API QsStatus QsRemoveRelativeDirectoryFromPath(const QsChar* path, int32_t length, QsString** result);
/// The full path of a file or a folder in `folder` or below it, or the empty text. An empty tail asks for
/// none.
QSUTILS_API QsStatus QsFindPath(const QsChar* folder, int32_t folderLength, const QsChar* fileName,
                                int32_t fileNameLength, const QsChar* tail, int32_t tailLength,
                                QsString** path);
/// The same with a memory, as `IQsUtils1::FindPath`.
QSUTILS_API QsStatus QsFindRememberedPath(const QsChar* folder, int32_t folderLength, const QsChar* fileName,
                                          int32_t fileNameLength, const QsChar* tail, int32_t tailLength,
                                          QsString** path);
/// The folder in which file dialogs start.
QSUTILS_API QsStatus QsGetInitPath(QsString** path);
/// The system's path for one with backslashes, in UTF-8. On Windows it is the same text, and QS_FAILED is
/// given for one that can't be converted; on Linux slashes separate the folders.
QSUTILS_API QsStatus QsToNativePath(const QsChar* path, int32_t length, QsBytes** nativePath);
/// The path with backslashes for the system's, which is in UTF-8.
QSUTILS_API QsStatus QsFromNativePath(const char* nativePath, int32_t length, QsString** path);

// --- The backup of a project's working copy, as `IQsUtils` describes it; `file` is the full path of the
// project's.

/// The project's folder in the backup, which is made; empty when the executable's folder isn't known.
QSUTILS_API QsStatus QsGetCurBackUpPath(const QsChar* file, int32_t length, QsString** path);
/// The working copy of the database in that folder, whether or not it exists.
QSUTILS_API QsStatus QsGetCurBackUpDataBasePath(const QsChar* file, int32_t length, QsString** path);
/// A project is opened.
QSUTILS_API QsStatus QsInitBackUpInfo(const QsChar* file, int32_t length);
/// A project is saved.
QSUTILS_API QsStatus QsOnBackUpSaveFile(const QsChar* file, int32_t length);
/// The graphic folder of a project has been changed.
QSUTILS_API QsStatus QsUpdateGraphicFileVer(const QsChar* file, int32_t length);
/// A project is left without saving.
QSUTILS_API QsStatus QsOnNotSaveGraphicFile(const QsChar* file, int32_t length);

// --- Open budgets, and what else is on the machine

/// Whether another program lists an item as open under a budget key.
QSUTILS_API QsStatus QsIsYsOpen(const QsChar* key, int32_t keyLength, const QsChar* item, int32_t itemLength,
                                int32_t* isOpen);

enum { QS_YS_NORMAL = 0, QS_YS_SONG_SHEN = 1, QS_YS_SHEN_DING = 2 };

/// "Normal", "SongShen" or "ShenDing"; "Normal" for any other number as well.
QSUTILS_API QsStatus QsYsTypeToString(int32_t type, QsString** text);
/// The way back, a QS_YS_...; `QS_YS_NORMAL` for any other text.
QSUTILS_API QsStatus QsStringToYsType(const QsChar* text, int32_t length, int32_t* type);
/// The version number of the installed spreadsheet, or the empty text.
QSUTILS_API QsStatus QsGetExcelInstallVersion(QsString** version);

#if defined(__cplusplus)
}
#endif
