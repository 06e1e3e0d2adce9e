/// @file
/// Templates, the folder browser and the text tip. Without a display the dialogs answer as if cancelled.
#pragma once

#include "QsUtils/c_api/Basics.h"

#if defined(__cplusplus)
extern "C" {
#endif

// --- Templates, as `IQsUtils` describes them

/// The file "project.db" beside the executable, whether or not it exists.
QSUTILS_API QsStatus QsGetProjectDbTemplate(QsString** path);
/// The file "ZhengTiReport.xml" beside the executable, whether or not it exists.
QSUTILS_API QsStatus QsGetZhengTiReport(QsString** path);

/// Lets the user pick a fee template, and waits for that: the full path, or the empty text when nothing was
/// picked. With `isZeroVariant` the extension has the letter z.
QSUTILS_API QsStatus QsGetFeeTemplatePath(const QsChar* family, int32_t familyLength, const QsChar* section,
                                          int32_t sectionLength, int32_t isZeroVariant, QsString** path);
/// The same for a template of statutory fees and taxes.
QSUTILS_API QsStatus QsGetGfsjTemplatePath(const QsChar* family, int32_t familyLength, const QsChar* section,
                                           int32_t sectionLength, int32_t isZeroVariant, QsString** path);
/// The same for a template of measures.
QSUTILS_API QsStatus QsGetCsxmTemplatePath(const QsChar* family, int32_t familyLength, const QsChar* section,
                                           int32_t sectionLength, int32_t isZeroVariant, QsString** path);
/// The same for a template of unit price composition.
QSUTILS_API QsStatus QsGetDjzcTemplatePath(const QsChar* family, int32_t familyLength, const QsChar* section,
                                           int32_t sectionLength, QsString** path);
/// The same for a report: `reportType` is 0 for the project, 1 and 2 for a unit project by bill and by quota.
QSUTILS_API QsStatus QsGetReportTemplatePath(const QsChar* family, int32_t familyLength,
                                             const QsChar* section, int32_t sectionLength, int32_t reportType,
                                             QsString** path);

/// Lets the user choose a folder, and waits for that: its path, or the empty text.
QSUTILS_API QsStatus QsSelectFolder(QsString** path);

// --- The text tip, as `texttip` describes it: one of the process, for the interface thread

/// The colour of the text, 0x00BBGGRR.
QSUTILS_API QsStatus QsTextTip_SetTextColor(uint32_t color);
/// The colour behind it, likewise.
QSUTILS_API QsStatus QsTextTip_SetBackgroundColor(uint32_t color);
/// Measures the text and sizes the window for it.
QSUTILS_API QsStatus QsTextTip_SetShowText(const QsChar* text, int32_t length);
/// Whether the text is at least as wide as a rectangle less 4 pixels.
QSUTILS_API QsStatus QsTextTip_IsTextLonger(int32_t left, int32_t top, int32_t right, int32_t bottom,
                                            int32_t* isLonger);
/// Places the window with its left edge at the point and its lower edge 2 pixels above it.
QSUTILS_API QsStatus QsTextTip_SetWindowPosition(int32_t x, int32_t y);
/// Shows the window once after so many milliseconds, or at once for 0.
QSUTILS_API QsStatus QsTextTip_ShowWindowDelay(uint32_t milliseconds);
/// Hides the window and forgets a delay that is running.
QSUTILS_API QsStatus QsTextTip_CloseWindowNow(void);

#if defined(__cplusplus)
}
#endif
