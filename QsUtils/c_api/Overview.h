/// @file
/// The project overview: the form of named fields that describes a project.
#pragma once

#include "QsUtils/c_api/Basics.h"

#if defined(__cplusplus)
extern "C" {
#endif

/// Fields in order, each with the values of a new `stuColInfo` at first. Indexes count from 0; units are
/// borrowed until the list changes.
typedef struct QsOverviewList QsOverviewList;

/// The texts and the numbers of a field; flags are 1 or 0.
enum { QS_OVERVIEW_CODE = 0, QS_OVERVIEW_NAME = 1, QS_OVERVIEW_VALUE = 2, QS_OVERVIEW_TYPE = 3 };
enum {
    QS_OVERVIEW_BELONG_TYPE = 0,
    QS_OVERVIEW_PRINT = 1,
    QS_OVERVIEW_USER_DEF = 2,
    QS_OVERVIEW_SHOW = 3,
    QS_OVERVIEW_MANTISSA = 4,
    QS_OVERVIEW_INDEX_1 = 5,
    QS_OVERVIEW_INDEX_2 = 6
};

/// An empty list, which is the caller's.
QSUTILS_API QsStatus QsOverviewList_Create(QsOverviewList** list);
/// Adds a field and gives its index.
QSUTILS_API QsStatus QsOverviewList_Add(QsOverviewList* list, int32_t* index);
/// How many fields there are.
QSUTILS_API QsStatus QsOverviewList_Count(const QsOverviewList* list, int32_t* count);
/// A text of the field at an index; `which` is one of the texts above.
QSUTILS_API QsStatus QsOverviewList_GetText(const QsOverviewList* list, int32_t index, int32_t which,
                                            const QsChar** units, int32_t* length);
/// Sets a text of the field at an index, likewise.
QSUTILS_API QsStatus QsOverviewList_SetText(QsOverviewList* list, int32_t index, int32_t which,
                                            const QsChar* text, int32_t length);
/// A number of the field at an index; `which` is one of the numbers above.
QSUTILS_API QsStatus QsOverviewList_GetNumber(const QsOverviewList* list, int32_t index, int32_t which,
                                              int32_t* value);
/// Sets a number of the field at an index, likewise.
QSUTILS_API QsStatus QsOverviewList_SetNumber(QsOverviewList* list, int32_t index, int32_t which,
                                              int32_t value);
/// Takes all fields out.
QSUTILS_API QsStatus QsOverviewList_Clear(QsOverviewList* list);
/// Ends the list; null is taken.
QSUTILS_API void QsOverviewList_Free(QsOverviewList* list);

/// The fields that the product offers, as copies: appended by the call that reads their file, in place of the
/// list by later ones.
QSUTILS_API QsStatus QsGetProjOverViewInfo(QsOverviewList* list);
/// Appends the fields of a project's XML file.
QSUTILS_API QsStatus QsGetProjOverViewInfoOfFile(const QsChar* file, int32_t length, QsOverviewList* list);
/// Appends the fields to a project's XML file; `isOpened` is 0 when it can't be opened, which the user is
/// shown, too.
QSUTILS_API QsStatus QsCreateProjOverViewInfo(const QsChar* file, int32_t length, const QsOverviewList* list,
                                              int32_t* isOpened);

#if defined(__cplusplus)
}
#endif
