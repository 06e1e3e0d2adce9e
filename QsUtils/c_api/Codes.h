/// @file
/// Item codes: their form, their order, and the majors that they belong to.
#pragma once

#include "QsUtils/c_api/Lists.h"

#if defined(__cplusplus)
extern "C" {
#endif

// --- The form of a code: prefix, ".", index; as `CCodeParser` describes it.

/// The separator, ".".
QSUTILS_API QsStatus QsCodeParser_GetSeparator(QsString** separator);
/// The number behind the last separator; 0 without one.
QSUTILS_API QsStatus QsCodeParser_GetIdx(const QsChar* code, int32_t length, int32_t* index);
/// The text before the last separator; empty without one.
QSUTILS_API QsStatus QsCodeParser_GetPrefix(const QsChar* code, int32_t length, QsString** prefix);
/// Both; empty and 0 without a separator. `isValid` tells whether the prefix has text and the index is above
/// 0.
QSUTILS_API QsStatus QsCodeParser_ParseCode(const QsChar* code, int32_t length, QsString** prefix,
                                            int32_t* index, int32_t* isValid);
/// Joins a prefix and an index, without a check of either.
QSUTILS_API QsStatus QsCodeParser_MakeCode(const QsChar* prefix, int32_t prefixLength, int32_t index,
                                           QsString** code);
/// Whether an index is above 0.
QSUTILS_API QsStatus QsCodeParser_IsIdxValid(int32_t index, int32_t* isValid);

// --- The order of codes: `order` is negative, 0 or positive.

/// Of quota codes: "2-9" stands before "2-10".
QSUTILS_API QsStatus QsCompareDECode(const QsChar* a, int32_t aLength, const QsChar* b, int32_t bLength,
                                     int32_t* order);
/// Of bill codes: the shorter first, then by the word order.
QSUTILS_API QsStatus QsCompareQDCode(const QsChar* a, int32_t aLength, const QsChar* b, int32_t bLength,
                                     int32_t* order);
/// By the numbers that two texts begin with, then as texts.
QSUTILS_API QsStatus QsCompareStringW(const QsChar* a, int32_t aLength, const QsChar* b, int32_t bLength,
                                      int32_t* order);
/// The same, part by part between separators.
QSUTILS_API QsStatus QsCompareStringWByParts(const QsChar* a, int32_t aLength, const QsChar* b,
                                             int32_t bLength, QsChar separator, int32_t* order);
/// Whether the number that `a` begins with is below that of `b`.
QSUTILS_API QsStatus QsSortItem(const QsChar* a, int32_t aLength, const QsChar* b, int32_t bLength,
                                int32_t* isBelow);

/// Codes, each with a pointer of the host's that is carried along unread. Units are borrowed until the list
/// changes.
typedef struct QsItemList QsItemList;

/// An empty list, which is the caller's.
QSUTILS_API QsStatus QsItemList_Create(QsItemList** list);
/// Adds a code with its item at the end.
QSUTILS_API QsStatus QsItemList_Add(QsItemList* list, const QsChar* code, int32_t length, void* item);
/// How many codes there are.
QSUTILS_API QsStatus QsItemList_Count(const QsItemList* list, int32_t* count);
/// The code and the item at an index.
QSUTILS_API QsStatus QsItemList_Get(const QsItemList* list, int32_t index, const QsChar** units,
                                    int32_t* length, void** item);
/// Takes all codes out.
QSUTILS_API QsStatus QsItemList_Clear(QsItemList* list);
/// Ends the list; null is taken. The items stay.
QSUTILS_API void QsItemList_Free(QsItemList* list);

/// Sorts a list by `QsCompareDECode`.
QSUTILS_API QsStatus QsSortDeItemCodes(QsItemList* list);
/// Sorts a list by `QsCompareQDCode`.
QSUTILS_API QsStatus QsSortQdItemCodes(QsItemList* list);
/// Sorts a list by `QsCompareStringWByParts` with "/".
QSUTILS_API QsStatus QsSortItemCodes(QsItemList* list);

// --- Majors

/// The code of a major, "T" of "建筑工程"; empty for an unknown one.
QSUTILS_API QsStatus QsGetMajorCodeByName(const QsChar* name, int32_t length, QsString** code);
/// The major of a code; empty for an unknown one.
QSUTILS_API QsStatus QsGetMajorByCode(const QsChar* code, int32_t length, QsString** name);
/// Appends the names of majors that have a code.
QSUTILS_API QsStatus QsGetAllMajorName(QsTextList* names);

#if defined(__cplusplus)
}
#endif
