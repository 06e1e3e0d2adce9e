#include <stdio.h>

#include "Check.h"

static int HasText(const QsOverviewList* list, int32_t index, int32_t which, const char* utf8) {
    const QsChar* units = NULL;
    int32_t length = 0;
    return QsOverviewList_GetText(list, index, which, &units, &length) == QS_OK &&
           AreUnits(units, length, utf8);
}

static int32_t NumberOf(const QsOverviewList* list, int32_t index, int32_t which) {
    int32_t value = -1;
    OK(QsOverviewList_GetNumber(list, index, which, &value));
    return value;
}

static void CheckOffer(void) {
    QsOverviewList* list = NULL;
    int32_t number = 0;
    OK(QsOverviewList_Create(&list));
    OK(QsOverviewList_Add(list, &number));
    CHECK(number == 0);
    OK(QsOverviewList_SetText(list, 0, QS_OVERVIEW_CODE, T("mine")));
    OK(QsGetProjOverViewInfo(list));
    OK(QsOverviewList_Count(list, &number));
    CHECK(number > 10);
    CHECK(HasText(list, 0, QS_OVERVIEW_CODE, "mine"));
    CHECK(HasText(list, 1, QS_OVERVIEW_CODE, "GCMC"));
    CHECK(HasText(list, 1, QS_OVERVIEW_NAME, "工程名称"));
    CHECK(HasText(list, 1, QS_OVERVIEW_TYPE, "文本"));
    OK(QsGetProjOverViewInfo(list));
    CHECK(HasText(list, 0, QS_OVERVIEW_CODE, "GCMC"));
    OK(QsOverviewList_Clear(list));
    OK(QsOverviewList_Count(list, &number));
    CHECK(number == 0);
    QsOverviewList_Free(list);
}

static void FillField(QsOverviewList* list) {
    int32_t index = -1;
    OK(QsOverviewList_Add(list, &index));
    CHECK(NumberOf(list, index, QS_OVERVIEW_BELONG_TYPE) == 1);
    OK(QsOverviewList_SetText(list, index, QS_OVERVIEW_CODE, T("JZMJ")));
    OK(QsOverviewList_SetText(list, index, QS_OVERVIEW_NAME, T("建筑面积")));
    OK(QsOverviewList_SetText(list, index, QS_OVERVIEW_VALUE, T("unread")));
    OK(QsOverviewList_SetNumber(list, index, QS_OVERVIEW_BELONG_TYPE, 2));
    OK(QsOverviewList_SetNumber(list, index, QS_OVERVIEW_PRINT, 5));
    OK(QsOverviewList_SetNumber(list, index, QS_OVERVIEW_SHOW, 1));
    OK(QsOverviewList_SetNumber(list, index, QS_OVERVIEW_MANTISSA, 2));
    OK(QsOverviewList_SetNumber(list, index, QS_OVERVIEW_INDEX_1, 3));
    OK(QsOverviewList_SetNumber(list, index, QS_OVERVIEW_INDEX_2, 4));
    STATUS(QS_INVALID_ARGUMENT, QsOverviewList_SetNumber(list, index, 7, 1));
    STATUS(QS_INVALID_ARGUMENT, QsOverviewList_SetText(list, index, -1, T("x")));
    STATUS(QS_INVALID_ARGUMENT, QsOverviewList_SetText(list, 1, QS_OVERVIEW_CODE, T("x")));
}

void CheckOverview(void) {
    QsOverviewList* list = NULL;
    QsOverviewList* read = NULL;
    int32_t number = 0;
    FILE* file = fopen("overview.xml", "wb");
    CheckOffer();
    CHECK(file != NULL);
    if (file != NULL) {
        fputs("<Project/>", file);
        fclose(file);
    }
    OK(QsOverviewList_Create(&list));
    OK(QsOverviewList_Create(&read));
    FillField(list);
    OK(QsCreateProjOverViewInfo(T("overview.xml"), list, &number));
    CHECK(number == 1);
    OK(QsOverviewList_Add(read, &number));
    OK(QsGetProjOverViewInfoOfFile(T("overview.xml"), read));
    OK(QsOverviewList_Count(read, &number));
    CHECK(number == 2);
    CHECK(HasText(read, 1, QS_OVERVIEW_CODE, "JZMJ"));
    CHECK(HasText(read, 1, QS_OVERVIEW_NAME, "建筑面积"));
    CHECK(HasText(read, 1, QS_OVERVIEW_VALUE, ""));
    CHECK(NumberOf(read, 1, QS_OVERVIEW_BELONG_TYPE) == 2);
    CHECK(NumberOf(read, 1, QS_OVERVIEW_PRINT) == 1);
    CHECK(NumberOf(read, 1, QS_OVERVIEW_SHOW) == 1);
    CHECK(NumberOf(read, 1, QS_OVERVIEW_USER_DEF) == 0);
    CHECK(NumberOf(read, 1, QS_OVERVIEW_MANTISSA) == 2);
    CHECK(NumberOf(read, 1, QS_OVERVIEW_INDEX_1) == 3);
    CHECK(NumberOf(read, 1, QS_OVERVIEW_INDEX_2) == 4);
    QsOverviewList_Free(list);
    QsOverviewList_Free(read);
}
