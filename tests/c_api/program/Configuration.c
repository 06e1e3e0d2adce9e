#include <string.h>

#include "Check.h"

static void CheckExtraCosts(void) {
    QsTextList* options = NULL;
    QsTextMap* types = NULL;
    const QsChar* units = NULL;
    int32_t number = 0;
    OK(QsTextList_Create(&options));
    OK(QsTextMap_Create(&types));
    OK(QsInitOverHeight(T("建筑子目2012.zkx"), T("北京"), &number));
    CHECK(number == 1);
    OK(QsInitOverHeight(T("none.zkx"), T("北京"), &number));
    CHECK(number == 0);
    OK(QsTextList_Add(options, T("mine")));
    STATUS(QS_NOT_FOUND, QsGetOverHeightList(T("none.zkx"), T("北京"), options));
    CHECK(IsList(options, "mine"));
    OK(QsGetOverHeightList(T("建筑子目2012.zkx"), T("北京"), options));
    CHECK(IsList(options, "檐高20m以内|檐高40m以内|檐高70m以内|檐高110m以内"));
    STATUS(QS_NOT_FOUND, QsGetExtraCostTypeList(T("none.zkx"), T("北京"), types));
    OK(QsGetExtraCostTypeList(T("建筑子目2012.zkx"), T("北京"), types));
    OK(QsTextMap_Find(types, T("垂直运输"), &units, &number));
    CHECK(AreUnits(units, number, "工程系数"));
    OK(QsGetExtraCostCalType(T("建筑子目2012.zkx"), T("垂直运输"), T("北京"), &number));
    CHECK(number == QS_EXTRA_COST_PROJECT_COEFFICIENT);
    QsTextList_Free(options);
    QsTextMap_Free(types);
}

static void CheckBlocks(void) {
    void* block = NULL;
    void* found = NULL;
    OK(QsAllocateExtraCostData(16, &block));
    memcpy(block, "a host's data", 14);
    OK(QsSetExtraCostData(T("key"), block));
    OK(QsGetExtraCostDataByKey(T("key"), &found));
    CHECK(found == block && strcmp(found, "a host's data") == 0);
    STATUS(QS_NOT_FOUND, QsGetExtraCostDataByKey(T("other"), &found));
    CHECK(found == NULL);
    OK(QsAllocateExtraCostData(1, &found));
    OK(QsSetExtraCostData(T("key"), found));
    QsFreeExtraCostData(block);
    QsFreeExtraCostData(NULL);
}

void CheckConfiguration(void) {
    QsTextList* list = NULL;
    QsTextMap* marks = NULL;
    const QsChar* units = NULL;
    int32_t length = 0;
    CheckExtraCosts();
    CheckBlocks();
    OK(QsTextList_Create(&list));
    OK(QsTextMap_Create(&marks));
    OK(QsGetHistory(T("建设单位"), list));
    CHECK(IsList(list, "某某建设开发有限公司|某某职业技术学院"));
    OK(QsWriteHistory(T("建设单位"), T("某某学校")));
    OK(QsGetHistory(T("建设单位"), list));
    CHECK(IsList(list, "某某学校|某某建设开发有限公司|某某职业技术学院"));
    OK(QsTextList_Clear(list));
    OK(QsTextMap_Set(marks, T("SJ"), T("mine")));
    OK(QsGetMarkMap(NULL, 0, 1, T("FeeTax"), marks));
    OK(QsTextMap_Find(marks, T("SJ"), &units, &length));
    CHECK(AreUnits(units, length, "mine"));
    OK(QsTextMap_Find(marks, T("SHBX"), &units, &length));
    CHECK(AreUnits(units, length, "社会保险费"));
    OK(QsTextList_Add(list, T("mine")));
    OK(QsGetMarkList(NULL, 0, 1, T("MesureItem"), list));
    CHECK(IsList(list, "mine|安全文明施工费|夜间施工费"));
    QsTextList_Free(list);
    QsTextMap_Free(marks);
}
