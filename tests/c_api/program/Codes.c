#include "Check.h"

static void CheckForm(void) {
    int32_t index = 0;
    int32_t isValid = 0;
    TEXT(".", QsCodeParser_GetSeparator(&theText));
    OK(QsCodeParser_GetIdx(T("A.B.3"), &index));
    CHECK(index == 3);
    TEXT("A.B", QsCodeParser_GetPrefix(T("A.B.3"), &theText));
    TEXT("A.B", QsCodeParser_ParseCode(T("A.B.3"), &theText, &index, &isValid));
    CHECK(index == 3 && isValid == 1);
    TEXT("", QsCodeParser_ParseCode(T("AB"), &theText, &index, &isValid));
    CHECK(index == 0 && isValid == 0);
    TEXT("A.4", QsCodeParser_MakeCode(T("A"), 4, &theText));
    OK(QsCodeParser_IsIdxValid(0, &isValid));
    CHECK(isValid == 0);
}

static void CheckOrders(void) {
    int32_t order = 0;
    OK(QsCompareDECode(T("2-9"), T("2-10"), &order));
    CHECK(order == -1);
    OK(QsCompareQDCode(T("10"), T("9"), &order));
    CHECK(order > 0);
    OK(QsCompareStringW(T("9"), T("10"), &order));
    CHECK(order < 0);
    OK(QsCompareStringWByParts(T("1/10"), T("1/9"), '/', &order));
    CHECK(order > 0);
    OK(QsSortItem(T("9"), T("10"), &order));
    CHECK(order == 1);
}

/* The codes of a list, which are made of one unit before the last; the item of the first is told. */
static void CheckOrder(QsItemList* list, const char* first, const char* second, void* itemOfFirst) {
    const QsChar* units = NULL;
    int32_t length = 0;
    void* item = NULL;
    OK(QsItemList_Get(list, 0, &units, &length, &item));
    CHECK(AreUnits(units, length, first));
    CHECK(item == itemOfFirst);
    OK(QsItemList_Get(list, 1, &units, &length, &item));
    CHECK(AreUnits(units, length, second));
}

static void CheckSorts(void) {
    static int things[2];
    QsItemList* list = NULL;
    int32_t count = 0;
    OK(QsItemList_Create(&list));
    OK(QsItemList_Add(list, T("1-10"), &things[0]));
    OK(QsItemList_Add(list, T("1-9"), &things[1]));
    OK(QsItemList_Count(list, &count));
    CHECK(count == 2);
    OK(QsSortDeItemCodes(list));
    CheckOrder(list, "1-9", "1-10", &things[1]);
    OK(QsItemList_Clear(list));
    OK(QsItemList_Add(list, T("10"), &things[0]));
    OK(QsItemList_Add(list, T("9"), &things[1]));
    OK(QsSortQdItemCodes(list));
    CheckOrder(list, "9", "10", &things[1]);
    OK(QsItemList_Clear(list));
    OK(QsItemList_Add(list, T("1/10"), &things[0]));
    OK(QsItemList_Add(list, T("1/9"), &things[1]));
    OK(QsSortItemCodes(list));
    CheckOrder(list, "1/9", "1/10", &things[1]);
    QsItemList_Free(list);
}

void CheckCodes(void) {
    QsTextList* names = NULL;
    int32_t count = 0;
    CheckForm();
    CheckOrders();
    CheckSorts();
    TEXT("T", QsGetMajorCodeByName(T("建筑工程"), &theText));
    TEXT("建筑工程", QsGetMajorByCode(T("T"), &theText));
    TEXT("", QsGetMajorByCode(T("?"), &theText));
    OK(QsTextList_Create(&names));
    OK(QsTextList_Add(names, T("mine")));
    OK(QsGetAllMajorName(names));
    OK(QsTextList_Count(names, &count));
    CHECK(count > 20);
    QsTextList_Free(names);
}
