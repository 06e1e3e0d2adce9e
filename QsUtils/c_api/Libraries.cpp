#include "QsUtils/c_api/Libraries.h"

#include <map>
#include <vector>

#include "QsUtils/c_api/Calls.h"
#include "QsUtils/c_api/Containers.h"
#include "QsUtils/c_api/LibraryTables.h"
#include "QsUtils/library/LibraryManager.h"

using LibraryManager::GetLibraryManager;
using QsCApi::Call;
using QsCApi::Checked;
using QsCApi::Give;
using QsCApi::TextOf;

QsStatus QsLibraryManager_GetLibrarySeries(std::int32_t* series) {
    return Call([&] { *series = GetLibraryManager()->GetLibrarySeries(); }, series);
}

// --- Listings

QsStatus QsLibraryManager_GetLibraryFamilies(QsTextList* families) {
    return Call([&] { GetLibraryManager()->GetLibraryFamilies(Checked(families).texts); });
}

QsStatus QsLibraryManager_GetFamilySections(const QsChar* family, std::int32_t familyLength,
                                            QsTextList* sections) {
    return Call([&] {
        GetLibraryManager()->GetFamilySections(Checked(sections).texts, TextOf(family, familyLength));
    });
}

QsStatus QsLibraryManager_GetFamilyDisplayName(const QsChar* family, std::int32_t familyLength,
                                               QsString** name) {
    return Call([&] { Give(name, GetLibraryManager()->GetFamilyDisplayName(TextOf(family, familyLength))); },
                name);
}

QsStatus QsLibraryManager_GetSectionItems(const QsChar* family, std::int32_t familyLength,
                                          const QsChar* section, std::int32_t sectionLength,
                                          QsTextList* items) {
    return Call([&] {
        GetLibraryManager()->GetSectionItems(Checked(items).texts, TextOf(family, familyLength),
                                             TextOf(section, sectionLength));
    });
}

QsStatus QsLibraryManager_GetBillLibraryFiles(const QsChar* family, std::int32_t familyLength,
                                              const QsChar* section, std::int32_t sectionLength,
                                              QsTextList* files) {
    return Call([&] {
        GetLibraryManager()->GetBillLibraryFiles(Checked(files).texts, TextOf(family, familyLength),
                                                 TextOf(section, sectionLength));
    });
}

QsStatus QsLibraryManager_GetQuotaLibraryNames(const QsChar* family, std::int32_t familyLength,
                                               const QsChar* section, std::int32_t sectionLength,
                                               const QsChar* item, std::int32_t itemLength,
                                               QsTextList* names) {
    return Call([&] {
        GetLibraryManager()->GetQuotaLibraryNames(Checked(names).texts, TextOf(family, familyLength),
                                                  TextOf(section, sectionLength), TextOf(item, itemLength));
    });
}

// --- Files

QsStatus QsLibraryManager_GetEnterpriseBillLibraryFile(const QsChar* family, std::int32_t familyLength,
                                                       const QsChar* name, std::int32_t nameLength,
                                                       QsString** path) {
    return Call(
        [&] {
            Give(path, GetLibraryManager()->GetEnterpriseBillLibraryFile(TextOf(family, familyLength),
                                                                         TextOf(name, nameLength)));
        },
        path);
}

QsStatus QsLibraryManager_FindBillLibraryFile(const QsChar* family, std::int32_t familyLength,
                                              const QsChar* section, std::int32_t sectionLength,
                                              const QsChar* fileName, std::int32_t fileNameLength,
                                              QsString** path) {
    return Call(
        [&] {
            Give(path, GetLibraryManager()->FindBillLibraryFile(TextOf(family, familyLength),
                                                                TextOf(section, sectionLength),
                                                                TextOf(fileName, fileNameLength)));
        },
        path);
}

QsStatus QsLibraryManager_FindDrtFile(const QsChar* family, std::int32_t familyLength, const QsChar* section,
                                      std::int32_t sectionLength, const QsChar* fileName,
                                      std::int32_t fileNameLength, QsString** path) {
    return Call(
        [&] {
            Give(path, GetLibraryManager()->FindDrtFile(TextOf(family, familyLength),
                                                        TextOf(section, sectionLength),
                                                        TextOf(fileName, fileNameLength)));
        },
        path);
}

QsStatus QsLibraryManager_FindConfigFile(const QsChar* family, std::int32_t familyLength,
                                         const QsChar* section, std::int32_t sectionLength,
                                         const QsChar* fileName, std::int32_t fileNameLength,
                                         QsString** path) {
    return Call(
        [&] {
            Give(path, GetLibraryManager()->FindConfigFile(TextOf(family, familyLength),
                                                           TextOf(section, sectionLength),
                                                           TextOf(fileName, fileNameLength)));
        },
        path);
}

QsStatus QsLibraryManager_FindQuotaLibraryFile(const QsChar* family, std::int32_t familyLength,
                                               const QsChar* section, std::int32_t sectionLength,
                                               const QsChar* libraryName, std::int32_t libraryNameLength,
                                               QsString** path) {
    return Call(
        [&] {
            Give(path, GetLibraryManager()->FindQuotaLibraryFile(TextOf(family, familyLength),
                                                                 TextOf(section, sectionLength),
                                                                 TextOf(libraryName, libraryNameLength)));
        },
        path);
}

QsStatus QsLibraryManager_FindSubLibraryFile(const QsChar* family, std::int32_t familyLength,
                                             const QsChar* section, std::int32_t sectionLength,
                                             const QsChar* item, std::int32_t itemLength,
                                             const QsChar* fileName, std::int32_t fileNameLength,
                                             QsString** path) {
    return Call(
        [&] {
            Give(path, GetLibraryManager()->FindSubLibraryFile(
                           TextOf(family, familyLength), TextOf(section, sectionLength),
                           TextOf(item, itemLength), TextOf(fileName, fileNameLength)));
        },
        path);
}

// --- Tables

QsStatus QsLibraryManager_GetBillLibraryRule(const QsChar* family, std::int32_t familyLength,
                                             const QsChar* section, std::int32_t sectionLength,
                                             const QsChar* libraryName, std::int32_t libraryNameLength,
                                             QsBillLibraryRule* rule) {
    return Call([&] {
        BillLibraryRule found = QsCApi::RuleOf(Checked(rule));
        if (!GetLibraryManager()->GetBillLibraryRule(TextOf(family, familyLength),
                                                     TextOf(section, sectionLength),
                                                     TextOf(libraryName, libraryNameLength), found))
            return QsStatus{QS_NOT_FOUND};
        *rule = QsCApi::RuleOf(found);
        return QsStatus{QS_OK};
    });
}

QsStatus QsLibraryManager_GetBillLibraries(const QsChar* family, std::int32_t familyLength, QsRuleMap* rules,
                                           QsTextMap* paths) {
    return Call([&] {
        GetLibraryManager()->GetBillLibraries(TextOf(family, familyLength), Checked(rules).rules,
                                              Checked(paths).texts);
    });
}

QsStatus QsLibraryManager_GetQuotaLibraries(const QsChar* family, std::int32_t familyLength,
                                            QsTextMap* paths) {
    return Call(
        [&] { GetLibraryManager()->GetQuotaLibraries(TextOf(family, familyLength), Checked(paths).texts); });
}

QsStatus QsLibraryManager_GetLibraryProviderName(const QsChar* family, std::int32_t familyLength,
                                                 const QsChar* section, std::int32_t sectionLength,
                                                 std::int32_t keepProvider, QsString** name) {
    return Call(
        [&] {
            Give(name, GetLibraryManager()->GetLibraryProviderName(
                           TextOf(family, familyLength), TextOf(section, sectionLength), keepProvider != 0));
        },
        name);
}

QsStatus QsLibraryManager_GetQuotaLibraryName(const QsChar* family, std::int32_t familyLength,
                                              const QsChar* section, std::int32_t sectionLength,
                                              const QsChar* key, std::int32_t keyLength, QsString** name) {
    return Call(
        [&] {
            Give(name,
                 GetLibraryManager()->GetQuotaLibraryName(
                     TextOf(family, familyLength), TextOf(section, sectionLength), TextOf(key, keyLength)));
        },
        name);
}

QsStatus QsLibraryManager_FindLibrarySection(const QsChar* family, std::int32_t familyLength,
                                             const QsChar* key, std::int32_t keyLength, QsString** section) {
    return Call(
        [&] {
            Give(section, GetLibraryManager()->FindLibrarySection(TextOf(family, familyLength),
                                                                  TextOf(key, keyLength)));
        },
        section);
}

QsStatus QsLibraryManager_GetEnterpriseBillLibraryText(const QsChar* family, std::int32_t familyLength,
                                                       const QsChar* name, std::int32_t nameLength,
                                                       QsString** text) {
    return Call(
        [&] {
            Give(text, GetLibraryManager()->GetEnterpriseBillLibraryText(TextOf(family, familyLength),
                                                                         TextOf(name, nameLength)));
        },
        text);
}

QsStatus QsLibraryManager_GetQuotaLibraryEntries(const QsChar* family, std::int32_t familyLength,
                                                 QsLibraryEntryList* entries, std::int32_t* isGood) {
    return Call(
        [&] {
            *isGood = GetLibraryManager()->GetQuotaLibraryEntries(TextOf(family, familyLength), CString(),
                                                                  Checked(entries).entries);
        },
        isGood);
}
