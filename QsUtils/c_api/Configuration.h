/// @file
/// Extra costs of libraries, what users typed last, and marks of items, as `IQsUtils1` describes them.
#pragma once

#include <stddef.h>

#include "QsUtils/c_api/Lists.h"

#if defined(__cplusplus)
extern "C" {
#endif

// --- Extra costs. `file` is the name of a library file without its folder.

/// Makes sure that the library's ".ec" file is read. `isThere` is 0 when there is no such library or file.
QSUTILS_API QsStatus QsInitOverHeight(const QsChar* file, int32_t fileLength, const QsChar* family,
                                      int32_t familyLength, int32_t* isThere);
/// Replaces `options` by the names of the over-height options. QS_NOT_FOUND, with the list as it was, where
/// C++ gives null.
QSUTILS_API QsStatus QsGetOverHeightList(const QsChar* file, int32_t fileLength, const QsChar* family,
                                         int32_t familyLength, QsTextList* options);
/// Replaces `types` by the coefficient texts by the names of the extra cost types. QS_NOT_FOUND likewise.
QSUTILS_API QsStatus QsGetExtraCostTypeList(const QsChar* file, int32_t fileLength, const QsChar* family,
                                            int32_t familyLength, QsTextMap* types);

enum {
    QS_EXTRA_COST_UNKNOWN = 0,
    QS_EXTRA_COST_ITEM_COEFFICIENT = 1,
    QS_EXTRA_COST_PROJECT_COEFFICIENT = 2,
    QS_EXTRA_COST_COMPOSITE_COEFFICIENT = 3
};

/// How a type applies its coefficient, a QS_EXTRA_COST_...
QSUTILS_API QsStatus QsGetExtraCostCalType(const QsChar* file, int32_t fileLength, const QsChar* typeName,
                                           int32_t typeNameLength, const QsChar* family, int32_t familyLength,
                                           int32_t* coefficientType);

/// A block of the host's data, uninitialised. It is the caller's until it is set.
QSUTILS_API QsStatus QsAllocateExtraCostData(size_t bytes, void** block);
/// Frees a block that hasn't been set, or is set no longer; null is taken.
QSUTILS_API void QsFreeExtraCostData(void* block);
/// Keeps a block of `QsAllocateExtraCostData`, or null, under a key. It is the library's from now on; the one
/// that was there isn't freed, and is the caller's again.
QSUTILS_API QsStatus QsSetExtraCostData(const QsChar* key, int32_t length, void* block);
/// The block under a key, borrowed. QS_NOT_FOUND when there is none.
QSUTILS_API QsStatus QsGetExtraCostDataByKey(const QsChar* key, int32_t length, void** block);

// --- What users typed last. A section is an input field, by any name.

/// Makes a value the most recent one of its section.
QSUTILS_API QsStatus QsWriteHistory(const QsChar* section, int32_t sectionLength, const QsChar* value,
                                    int32_t valueLength);
/// The values of a section, most recent first: appended to `values` by the first call for the section, which
/// keeps the whole list; in place of it by later ones.
QSUTILS_API QsStatus QsGetHistory(const QsChar* section, int32_t sectionLength, QsTextList* values);

// --- The marks that items can bear

/// Adds the names of a group's marks by their codes; a code that the map holds keeps its name.
QSUTILS_API QsStatus QsGetMarkMap(const QsChar* folder, int32_t folderLength, int32_t billMode,
                                  const QsChar* group, int32_t groupLength, QsTextMap* marks);
/// Appends the names of a group's marks.
QSUTILS_API QsStatus QsGetMarkList(const QsChar* folder, int32_t folderLength, int32_t billMode,
                                   const QsChar* group, int32_t groupLength, QsTextList* marks);

#if defined(__cplusplus)
}
#endif
