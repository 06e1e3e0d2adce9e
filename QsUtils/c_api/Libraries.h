/// @file
/// What cost libraries an installation has, and where their files are, as `ILibraryManager` describes it.
/// Outputs may be the same list or map time and again; paths are empty where there is no file.
#pragma once

#include "QsUtils/c_api/Lists.h"

#if defined(__cplusplus)
extern "C" {
#endif

/// The companion's series; -1 when there is none.
QSUTILS_API QsStatus QsLibraryManager_GetLibrarySeries(int32_t* series);

// --- Listings

/// Replaces a list by the families that offer a quota library.
QSUTILS_API QsStatus QsLibraryManager_GetLibraryFamilies(QsTextList* families);
/// Replaces a list by the family's sections.
QSUTILS_API QsStatus QsLibraryManager_GetFamilySections(const QsChar* family, int32_t familyLength,
                                                        QsTextList* sections);
/// The name under which a family is shown.
QSUTILS_API QsStatus QsLibraryManager_GetFamilyDisplayName(const QsChar* family, int32_t familyLength,
                                                           QsString** name);
/// Appends the section's items.
QSUTILS_API QsStatus QsLibraryManager_GetSectionItems(const QsChar* family, int32_t familyLength,
                                                      const QsChar* section, int32_t sectionLength,
                                                      QsTextList* items);
/// Appends the file names of the section's bill libraries that exist.
QSUTILS_API QsStatus QsLibraryManager_GetBillLibraryFiles(const QsChar* family, int32_t familyLength,
                                                          const QsChar* section, int32_t sectionLength,
                                                          QsTextList* files);
/// Appends the names of an item's quota libraries; an empty item stands for all items.
QSUTILS_API QsStatus QsLibraryManager_GetQuotaLibraryNames(const QsChar* family, int32_t familyLength,
                                                           const QsChar* section, int32_t sectionLength,
                                                           const QsChar* item, int32_t itemLength,
                                                           QsTextList* names);

// --- Files. An empty section stands for all sections of the family.

/// The file of an enterprise bill library.
QSUTILS_API QsStatus QsLibraryManager_GetEnterpriseBillLibraryFile(const QsChar* family, int32_t familyLength,
                                                                   const QsChar* name, int32_t nameLength,
                                                                   QsString** path);
/// The file of a bill library, by its name.
QSUTILS_API QsStatus QsLibraryManager_FindBillLibraryFile(const QsChar* family, int32_t familyLength,
                                                          const QsChar* section, int32_t sectionLength,
                                                          const QsChar* fileName, int32_t fileNameLength,
                                                          QsString** path);
/// The ".drt" file that goes with a library file.
QSUTILS_API QsStatus QsLibraryManager_FindDrtFile(const QsChar* family, int32_t familyLength,
                                                  const QsChar* section, int32_t sectionLength,
                                                  const QsChar* fileName, int32_t fileNameLength,
                                                  QsString** path);
/// The ".config" file that goes with a library file.
QSUTILS_API QsStatus QsLibraryManager_FindConfigFile(const QsChar* family, int32_t familyLength,
                                                     const QsChar* section, int32_t sectionLength,
                                                     const QsChar* fileName, int32_t fileNameLength,
                                                     QsString** path);
/// The data file of the quota library of that name.
QSUTILS_API QsStatus QsLibraryManager_FindQuotaLibraryFile(const QsChar* family, int32_t familyLength,
                                                           const QsChar* section, int32_t sectionLength,
                                                           const QsChar* libraryName,
                                                           int32_t libraryNameLength, QsString** path);
/// A file in the folder of an item; an empty item stands for all items.
QSUTILS_API QsStatus QsLibraryManager_FindSubLibraryFile(const QsChar* family, int32_t familyLength,
                                                         const QsChar* section, int32_t sectionLength,
                                                         const QsChar* item, int32_t itemLength,
                                                         const QsChar* fileName, int32_t fileNameLength,
                                                         QsString** path);

// --- Tables

/// How the codes of a bill library are counted.
typedef struct QsBillLibraryRule {
    int32_t nCount1;  ///< 9 where nothing is said
    int32_t nCount2;  ///< 3 where nothing is said
    int32_t bFlag1;   ///< 1 or 0
    int32_t bFlag2;   ///< 1 or 0
} QsBillLibraryRule;

/// Writes both counts and the first flag of a rule, and leaves the second flag as it was. QS_NOT_FOUND, with
/// the rule untouched, when there is no such library.
QSUTILS_API QsStatus QsLibraryManager_GetBillLibraryRule(const QsChar* family, int32_t familyLength,
                                                         const QsChar* section, int32_t sectionLength,
                                                         const QsChar* libraryName, int32_t libraryNameLength,
                                                         QsBillLibraryRule* rule);

/// Rules by the names of libraries.
typedef struct QsRuleMap QsRuleMap;

/// An empty map, which is the caller's.
QSUTILS_API QsStatus QsRuleMap_Create(QsRuleMap** map);
/// Adds a rule, or puts it in place of the one of that name.
QSUTILS_API QsStatus QsRuleMap_Set(QsRuleMap* map, const QsChar* name, int32_t length,
                                   const QsBillLibraryRule* rule);
/// How many rules there are.
QSUTILS_API QsStatus QsRuleMap_Count(const QsRuleMap* map, int32_t* count);
/// QS_NOT_FOUND for a name that isn't there.
QSUTILS_API QsStatus QsRuleMap_Find(const QsRuleMap* map, const QsChar* name, int32_t length,
                                    QsBillLibraryRule* rule);
/// Replaces a list by the names, ascending by unit.
QSUTILS_API QsStatus QsRuleMap_Keys(const QsRuleMap* map, QsTextList* names);
/// Takes all rules out.
QSUTILS_API QsStatus QsRuleMap_Clear(QsRuleMap* map);
/// Ends the map; null is taken.
QSUTILS_API void QsRuleMap_Free(QsRuleMap* map);

/// Adds the rule and the path of each bill library of the family under its name. A name that a map holds
/// keeps what it has.
QSUTILS_API QsStatus QsLibraryManager_GetBillLibraries(const QsChar* family, int32_t familyLength,
                                                       QsRuleMap* rules, QsTextMap* paths);
/// Adds the path of each quota library of the family likewise.
QSUTILS_API QsStatus QsLibraryManager_GetQuotaLibraries(const QsChar* family, int32_t familyLength,
                                                        QsTextMap* paths);
/// The provider of the first section that the companion knows.
QSUTILS_API QsStatus QsLibraryManager_GetLibraryProviderName(const QsChar* family, int32_t familyLength,
                                                             const QsChar* section, int32_t sectionLength,
                                                             int32_t keepProvider, QsString** name);
/// The name of the quota library with this key.
QSUTILS_API QsStatus QsLibraryManager_GetQuotaLibraryName(const QsChar* family, int32_t familyLength,
                                                          const QsChar* section, int32_t sectionLength,
                                                          const QsChar* key, int32_t keyLength,
                                                          QsString** name);
/// The first section with a quota library of this key.
QSUTILS_API QsStatus QsLibraryManager_FindLibrarySection(const QsChar* family, int32_t familyLength,
                                                         const QsChar* key, int32_t keyLength,
                                                         QsString** section);
/// The text of an enterprise bill library; the name may be empty.
QSUTILS_API QsStatus QsLibraryManager_GetEnterpriseBillLibraryText(const QsChar* family, int32_t familyLength,
                                                                   const QsChar* name, int32_t nameLength,
                                                                   QsString** text);

/// Quota libraries in order. Indexes count from 0; units are borrowed until the list changes.
typedef struct QsLibraryEntryList QsLibraryEntryList;

/// The texts of an entry.
enum { QS_LIBRARY_NAME = 0, QS_LIBRARY_FILE = 1, QS_LIBRARY_FIRST_ITEM_TAG = 2 };

/// An empty list, which is the caller's.
QSUTILS_API QsStatus QsLibraryEntryList_Create(QsLibraryEntryList** list);
/// How many libraries there are.
QSUTILS_API QsStatus QsLibraryEntryList_Count(const QsLibraryEntryList* list, int32_t* count);
/// `which` is one of the texts above.
QSUTILS_API QsStatus QsLibraryEntryList_Get(const QsLibraryEntryList* list, int32_t index, int32_t which,
                                            const QsChar** units, int32_t* length);
/// Takes all libraries out.
QSUTILS_API QsStatus QsLibraryEntryList_Clear(QsLibraryEntryList* list);
/// Ends the list; null is taken.
QSUTILS_API void QsLibraryEntryList_Free(QsLibraryEntryList* list);

/// Appends all quota libraries of the family; `isGood` is 0 for an empty family alone.
QSUTILS_API QsStatus QsLibraryManager_GetQuotaLibraryEntries(const QsChar* family, int32_t familyLength,
                                                             QsLibraryEntryList* entries, int32_t* isGood);

#if defined(__cplusplus)
}
#endif
