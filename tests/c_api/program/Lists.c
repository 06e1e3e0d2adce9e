#include "Check.h"

static void CheckTextMap(void) {
    QsTextMap* map = NULL;
    QsTextList* keys = NULL;
    const QsChar* units = NULL;
    int32_t number = 0;
    OK(QsTextMap_Create(&map));
    OK(QsTextList_Create(&keys));
    OK(QsTextMap_Set(map, T("b"), T("2")));
    OK(QsTextMap_Set(map, T("a"), T("0")));
    OK(QsTextMap_Set(map, T("a"), T("1")));
    OK(QsTextMap_Count(map, &number));
    CHECK(number == 2);
    OK(QsTextMap_Find(map, T("a"), &units, &number));
    CHECK(AreUnits(units, number, "1"));
    STATUS(QS_NOT_FOUND, QsTextMap_Find(map, T("c"), &units, &number));
    CHECK(units == NULL && number == 0);
    OK(QsTextMap_Keys(map, keys));
    CHECK(IsList(keys, "a|b"));
    OK(QsTextMap_Clear(map));
    OK(QsTextMap_Keys(map, keys));
    CHECK(IsList(keys, ""));
    QsTextMap_Free(map);
    QsTextList_Free(keys);
}

static void CheckIndexes(void) {
    QsIndexMap* map = NULL;
    QsIndexList* keys = NULL;
    const QsChar* units = NULL;
    int32_t number = 0;
    uint32_t key = 0;
    OK(QsIndexMap_Create(&map));
    OK(QsIndexList_Create(&keys));
    OK(QsIndexList_Add(keys, 1));
    OK(QsIndexMap_Set(map, 7, T("seven")));
    OK(QsIndexMap_Count(map, &number));
    CHECK(number == 1);
    OK(QsIndexMap_Find(map, 7, &units, &number));
    CHECK(AreUnits(units, number, "seven"));
    STATUS(QS_NOT_FOUND, QsIndexMap_Find(map, 8, &units, &number));
    OK(QsIndexMap_Keys(map, keys));
    OK(QsIndexList_Count(keys, &number));
    OK(QsIndexList_Get(keys, 0, &key));
    CHECK(number == 1 && key == 7);
    OK(QsIndexMap_Clear(map));
    OK(QsIndexList_Clear(keys));
    OK(QsIndexList_Count(keys, &number));
    CHECK(number == 0);
    QsIndexMap_Free(map);
    QsIndexList_Free(keys);
}

void CheckLists(void) {
    QsTextList* list = NULL;
    const QsChar* units = NULL;
    int32_t number = 0;
    OK(QsTextList_Create(&list));
    OK(QsTextList_Add(list, T("first")));
    OK(QsTextList_Add(list, NULL, 0));
    OK(QsTextList_Count(list, &number));
    CHECK(number == 2);
    OK(QsTextList_Get(list, 0, &units, &number));
    CHECK(AreUnits(units, number, "first"));
    STATUS(QS_INVALID_ARGUMENT, QsTextList_Get(list, 2, &units, &number));
    CHECK(units == NULL && number == 0);
    OK(QsTextList_Clear(list));
    OK(QsTextList_Count(list, &number));
    CHECK(number == 0);
    QsTextList_Free(list);
    CheckTextMap();
    CheckIndexes();
}
