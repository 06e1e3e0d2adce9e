#include "Check.h"

#define FAMILY T("北京")
#define SECTION T("2012预算定额")

static void CheckListings(void) {
    QsTextList* list = NULL;
    int32_t number = 0;
    OK(QsTextList_Create(&list));
    OK(QsLibraryManager_GetLibrarySeries(&number));
    CHECK(number == 1);
    OK(QsLibraryManager_GetLibraryFamilies(list));
    CHECK(IsList(list, "上海|北京"));
    OK(QsLibraryManager_GetFamilySections(FAMILY, list));
    CHECK(IsList(list, "2012预算定额|2021预算消耗量标准"));
    OK(QsTextList_Clear(list));
    OK(QsLibraryManager_GetSectionItems(FAMILY, SECTION, list));
    CHECK(IsList(list, "房屋建筑与装饰工程|通用安装工程"));
    OK(QsTextList_Clear(list));
    OK(QsLibraryManager_GetBillLibraryFiles(FAMILY, SECTION, list));
    CHECK(IsList(list, "房屋建筑与装饰工程2013.qdx|通用安装工程2013.qdx"));
    OK(QsTextList_Clear(list));
    OK(QsLibraryManager_GetQuotaLibraryNames(FAMILY, SECTION, T("通用安装工程"), list));
    CHECK(IsList(list, "通用安装工程预算定额(2012)"));
    TEXT("北京", QsLibraryManager_GetFamilyDisplayName(FAMILY, &theText));
    QsTextList_Free(list);
}

static void CheckLookUps(void) {
    OK(QsLibraryManager_GetEnterpriseBillLibraryFile(FAMILY, T("住宅标准清单"), &theText));
    CHECK(EndsWith(theText, "\\企业清单\\北京\\住宅标准清单.qyx"));
    OK(QsLibraryManager_FindBillLibraryFile(FAMILY, NULL, 0, T("通用安装工程2013.qdx"), &theText));
    CHECK(EndsWith(theText, "\\墨衡\\通用安装工程2013.qdx"));
    OK(QsLibraryManager_FindDrtFile(FAMILY, SECTION, T("通用安装2012.dex"), &theText));
    CHECK(EndsWith(theText, "\\配套文件\\通用安装2012.drt"));
    OK(QsLibraryManager_FindConfigFile(FAMILY, SECTION, T("通用安装2012.dex"), &theText));
    CHECK(EndsWith(theText, "\\配套文件\\通用安装2012.config"));
    OK(QsLibraryManager_FindQuotaLibraryFile(FAMILY, SECTION, T("北京2012通用安装"), &theText));
    CHECK(EndsWith(theText, "\\定额库\\通用安装2012.dex"));
    OK(QsLibraryManager_FindSubLibraryFile(FAMILY, SECTION, NULL, 0, T("安装子目2012.zkx"), &theText));
    CHECK(EndsWith(theText, "\\子库\\通用安装工程\\安装子目2012.zkx"));
    TEXT("", QsLibraryManager_FindSubLibraryFile(FAMILY, SECTION, NULL, 0, T("none"), &theText));
}

static void CheckRules(void) {
    QsRuleMap* rules = NULL;
    QsTextMap* paths = NULL;
    QsTextList* names = NULL;
    QsBillLibraryRule rule = {1, 2, 1, 1};
    int32_t count = 0;
    STATUS(QS_NOT_FOUND, QsLibraryManager_GetBillLibraryRule(FAMILY, SECTION, T("none"), &rule));
    CHECK(rule.nCount1 == 1 && rule.nCount2 == 2 && rule.bFlag1 == 1);
    OK(QsLibraryManager_GetBillLibraryRule(FAMILY, SECTION, T("通用安装工程工程量计算规范(2013)"), &rule));
    CHECK(rule.nCount1 == 9 && rule.nCount2 == 3 && rule.bFlag1 == 0 && rule.bFlag2 == 1);
    OK(QsRuleMap_Create(&rules));
    OK(QsTextMap_Create(&paths));
    OK(QsTextList_Create(&names));
    OK(QsRuleMap_Set(rules, T("mine"), &rule));
    OK(QsLibraryManager_GetBillLibraries(FAMILY, rules, paths));
    OK(QsRuleMap_Count(rules, &count));
    CHECK(count == 4);
    OK(QsRuleMap_Find(rules, T("mine"), &rule));
    CHECK(rule.nCount1 == 9 && rule.bFlag2 == 1);
    STATUS(QS_NOT_FOUND, QsRuleMap_Find(rules, T("none"), &rule));
    OK(QsTextMap_Count(paths, &count));
    CHECK(count == 3);
    OK(QsRuleMap_Keys(rules, names));
    OK(QsTextList_Count(names, &count));
    CHECK(count == 4);
    OK(QsRuleMap_Clear(rules));
    OK(QsRuleMap_Count(rules, &count));
    CHECK(count == 0);
    OK(QsTextMap_Clear(paths));
    OK(QsLibraryManager_GetQuotaLibraries(FAMILY, paths));
    OK(QsTextMap_Count(paths, &count));
    CHECK(count == 4);
    QsRuleMap_Free(rules);
    QsTextMap_Free(paths);
    QsTextList_Free(names);
}

static void CheckEntries(void) {
    QsLibraryEntryList* entries = NULL;
    const QsChar* units = NULL;
    int32_t length = 0;
    int32_t isGood = 0;
    OK(QsLibraryEntryList_Create(&entries));
    OK(QsLibraryManager_GetQuotaLibraryEntries(FAMILY, entries, &isGood));
    CHECK(isGood == 1);
    OK(QsLibraryEntryList_Count(entries, &length));
    CHECK(length == 4);
    OK(QsLibraryEntryList_Get(entries, 1, QS_LIBRARY_NAME, &units, &length));
    CHECK(AreUnits(units, length, "北京2012通用安装"));
    OK(QsLibraryEntryList_Get(entries, 1, QS_LIBRARY_FILE, &units, &length));
    CHECK(AreUnits(units, length, "通用安装工程预算定额(2012)"));
    OK(QsLibraryEntryList_Get(entries, 1, QS_LIBRARY_FIRST_ITEM_TAG, &units, &length));
    CHECK(AreUnits(units, length, "AZ"));
    STATUS(QS_INVALID_ARGUMENT, QsLibraryEntryList_Get(entries, 1, 3, &units, &length));
    OK(QsLibraryEntryList_Clear(entries));
    OK(QsLibraryManager_GetQuotaLibraryEntries(NULL, 0, entries, &isGood));
    CHECK(isGood == 0);
    QsLibraryEntryList_Free(entries);
}

void CheckLibraries(void) {
    CheckListings();
    CheckLookUps();
    CheckRules();
    CheckEntries();
    TEXT("墨衡", QsLibraryManager_GetLibraryProviderName(FAMILY, SECTION, 1, &theText));
    TEXT("北京2012通用安装", QsLibraryManager_GetQuotaLibraryName(FAMILY, SECTION, T("BJ2012-AZ"), &theText));
    TEXT("2012预算定额", QsLibraryManager_FindLibrarySection(FAMILY, T("BJ2012-AZ"), &theText));
    OK(QsLibraryManager_GetEnterpriseBillLibraryText(FAMILY, T("住宅标准清单"), &theText));
    QsString_Free(theText);
}
