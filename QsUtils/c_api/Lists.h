/// @file
/// Lists and maps of the C interface. Hosts make them empty, hand them to functions, and free them.
#pragma once

#include "QsUtils/c_api/Basics.h"

#if defined(__cplusplus)
extern "C" {
#endif

/// Texts in order. Indexes count from 0; units are borrowed until the list changes.
typedef struct QsTextList QsTextList;

/// An empty list, which is the caller's.
QSUTILS_API QsStatus QsTextList_Create(QsTextList** list);
/// Adds a text at the end.
QSUTILS_API QsStatus QsTextList_Add(QsTextList* list, const QsChar* text, int32_t length);
/// How many texts there are.
QSUTILS_API QsStatus QsTextList_Count(const QsTextList* list, int32_t* count);
/// The text at an index.
QSUTILS_API QsStatus QsTextList_Get(const QsTextList* list, int32_t index, const QsChar** units,
                                    int32_t* length);
/// Takes all texts out.
QSUTILS_API QsStatus QsTextList_Clear(QsTextList* list);
/// Ends the list; null is taken.
QSUTILS_API void QsTextList_Free(QsTextList* list);

/// Numbers in order.
typedef struct QsIndexList QsIndexList;

/// An empty list, which is the caller's.
QSUTILS_API QsStatus QsIndexList_Create(QsIndexList** list);
/// Adds a number at the end.
QSUTILS_API QsStatus QsIndexList_Add(QsIndexList* list, uint32_t value);
/// How many numbers there are.
QSUTILS_API QsStatus QsIndexList_Count(const QsIndexList* list, int32_t* count);
/// The number at an index.
QSUTILS_API QsStatus QsIndexList_Get(const QsIndexList* list, int32_t index, uint32_t* value);
/// Takes all numbers out.
QSUTILS_API QsStatus QsIndexList_Clear(QsIndexList* list);
/// Ends the list; null is taken.
QSUTILS_API void QsIndexList_Free(QsIndexList* list);

/// Texts by texts. Units are borrowed until the map changes.
typedef struct QsTextMap QsTextMap;

/// An empty map, which is the caller's.
QSUTILS_API QsStatus QsTextMap_Create(QsTextMap** map);
/// Adds an entry, or gives the one of that key another value.
QSUTILS_API QsStatus QsTextMap_Set(QsTextMap* map, const QsChar* key, int32_t keyLength, const QsChar* value,
                                   int32_t valueLength);
/// How many entries there are.
QSUTILS_API QsStatus QsTextMap_Count(const QsTextMap* map, int32_t* count);
/// The text of a key. QS_NOT_FOUND for one that isn't there.
QSUTILS_API QsStatus QsTextMap_Find(const QsTextMap* map, const QsChar* key, int32_t keyLength,
                                    const QsChar** units, int32_t* length);
/// Replaces a list by the keys, ascending by unit.
QSUTILS_API QsStatus QsTextMap_Keys(const QsTextMap* map, QsTextList* keys);
/// Takes all entries out.
QSUTILS_API QsStatus QsTextMap_Clear(QsTextMap* map);
/// Ends the map; null is taken.
QSUTILS_API void QsTextMap_Free(QsTextMap* map);

/// Texts by numbers, likewise.
typedef struct QsIndexMap QsIndexMap;

/// An empty map, which is the caller's.
QSUTILS_API QsStatus QsIndexMap_Create(QsIndexMap** map);
/// Adds an entry, or gives the one of that key another text.
QSUTILS_API QsStatus QsIndexMap_Set(QsIndexMap* map, int32_t key, const QsChar* value, int32_t valueLength);
/// How many entries there are.
QSUTILS_API QsStatus QsIndexMap_Count(const QsIndexMap* map, int32_t* count);
/// The text of a key. QS_NOT_FOUND for one that isn't there.
QSUTILS_API QsStatus QsIndexMap_Find(const QsIndexMap* map, int32_t key, const QsChar** units,
                                     int32_t* length);
/// Replaces a list by the keys, ascending.
QSUTILS_API QsStatus QsIndexMap_Keys(const QsIndexMap* map, QsIndexList* keys);
/// Takes all entries out.
QSUTILS_API QsStatus QsIndexMap_Clear(QsIndexMap* map);
/// Ends the map; null is taken.
QSUTILS_API void QsIndexMap_Free(QsIndexMap* map);

#if defined(__cplusplus)
}
#endif
