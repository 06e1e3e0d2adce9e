/// @file
/// The soft version, logs, and how long work takes.
#pragma once

#include "QsUtils/c_api/Basics.h"
/* QsUtilsVersion, which needs no status. */
#include "QsUtils/frame/Version.h"

#if defined(__cplusplus)
extern "C" {
#endif

/// The version text that the host has set; empty until then. For one thread at a time.
QSUTILS_API QsStatus QsGetSoftVersion(QsString** version);
/// Sets the version text.
QSUTILS_API QsStatus QsSetSoftVersion(const QsChar* version, int32_t length);

/// Appends "<date> <time>\t<text>" to a file. A failure to write is told to nobody.
QSUTILS_API QsStatus QsRecordLogInfo(const QsChar* text, int32_t length, const QsChar* path,
                                     int32_t pathLength);
/// Writes a line to the module's log; the text brings its level along, "[ERROR]: " for instance.
QSUTILS_API QsStatus QsLogError(const QsChar* text, int32_t length);

/// Writes "[INFO]: <name> costs <n>ms." to the log when it is freed.
typedef struct QsTimeCostTracker QsTimeCostTracker;

/// Begins to measure.
QSUTILS_API QsStatus QsTimeCostTracker_Create(const QsChar* name, int32_t length,
                                              QsTimeCostTracker** tracker);
/// Ends the measuring and writes the line; null is taken.
QSUTILS_API void QsTimeCostTracker_Free(QsTimeCostTracker* tracker);

#if defined(__cplusplus)
}
#endif
