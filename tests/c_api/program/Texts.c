#include <string.h>

#include "Check.h"

static void CheckSegments(void) {
    int32_t done = 0;
    TEXT("b/c", QsCutFirstSegment(T("a/b/c"), T("/"), &theText, &done));
    CHECK(done == 1);
    TEXT("a/b", QsCutLastSegment(T("a/b/c"), T("/"), &theText, &done));
    CHECK(done == 1);
    TEXT("a", QsGetFirstSegment(T("a/b/c"), T("/"), &theText, &done));
    CHECK(done == 1);
    TEXT("c", QsGetLastSegment(T("a/b/c"), T("/"), &theText, &done));
    CHECK(done == 1);
    TEXT("abc", QsCutFirstSegment(T("abc"), T("/"), &theText, &done));
    CHECK(done == 0);
}

static void CheckSearches(void) {
    QsTextList* list = NULL;
    QsIndexList* positions = NULL;
    int32_t number = 0;
    uint32_t position = 0;
    OK(QsTextList_Create(&list));
    OK(QsIndexList_Create(&positions));
    OK(QsSplit(T("砖,ab,"), ',', list));
    CHECK(IsList(list, "砖|ab"));
    OK(QsFindInCStringArray(T("ab"), list, &number));
    CHECK(number == 1);
    OK(QsStringArrayContains(list, T("AB"), &number));
    CHECK(number == 1);
    OK(QsStringArrayContains(list, T("b"), &number));
    CHECK(number == 0);
    OK(QsSplit(T("c"), ',', list));
    CHECK(IsList(list, "砖|ab|c"));
    OK(QsTransStrToAry(T("x--y"), T("--"), list));
    CHECK(IsList(list, "x|y"));
    TEXT("x+y", QsTransAryToStr(list, T("+"), &theText));
    OK(QsFindSpecStringCount(T("abcabc"), T("bc"), positions, &number));
    CHECK(number == 2);
    OK(QsIndexList_Get(positions, 1, &position));
    CHECK(position == 4);
    QsIndexList_Free(positions);
    QsTextList_Free(list);
}

static void CheckNarrow(void) {
    static const char bricks[] = "\xD7\xA9\xC7\xBD"; /* in code page 936 */
    QsBytes* bytes = NULL;
    const char* data = NULL;
    char buffer[5];
    int32_t number = 0;
    TEXT("砖墙", QsAnsiToUnicode(bricks, -1, &theText));
    TEXT("砖", QsAnsiToUnicode(bricks, 2, &theText));
    OK(QsUnicodeToAnsi(T("砖墙"), &bytes));
    OK(QsBytes_Data(bytes, &data, &number));
    CHECK(number == 4 && strcmp(data, bricks) == 0);
    OK(QsBytes_Copy(bytes, buffer, 5, &number));
    CHECK(number == 4 && strcmp(buffer, bricks) == 0);
    QsBytes_Free(bytes);
    OK(QsGetCharCount(T("砖"
                        "a"),
                      &number));
    CHECK(number == 2);
    TEXT("ab", QsCStringToWstring(T("ab"), &theText));
}

static void CheckNumbers(void) {
    int32_t number = 0;
    int32_t isGood = 0;
    double value = 0;
    OK(QsParseToInteger(T(" -12 "), &number, &isGood));
    CHECK(number == -12 && isGood == 1);
    OK(QsParseToInteger(T("1x"), &number, &isGood));
    CHECK(number == 0 && isGood == 0);
    OK(QsParseToDouble(T("2.5"), &value, &isGood));
    CHECK(value == 2.5 && isGood == 1);
    OK(QsbIsNum(T("1.2.3"), &isGood));
    CHECK(isGood == 1);
    TEXT("2.5", QsDoubleToCString(2.5, 3, 1, &theText));
    TEXT("2.500", QsDoubleToCString(2.5, 3, 0, &theText));
    TEXT("壹拾贰元叁角肆分", QsNumToRMBStr(12.34, &theText));
    TEXT("一百零五", QsTransIntToUpper(105, &theText));
}

static void CheckUnits(void) {
    int32_t number = 0;
    double value = 0;
    OK(QsGetUnitMantissa(T("t"), &number));
    CHECK(number == 3);
    TEXT("吨", QsGetIndicatorsUnit(T("kg"), &theText));
    STATUS(QS_NOT_FOUND, QsGetIndicatorsUnit(T("?"), &theText));
    CHECK(theText == NULL);
    OK(QsGetIndicatorsFactor(T("m2"), T("100m2"), &value, &number));
    CHECK(value == 0.01 && number == 1);
    OK(QsGetIndicatorsFactor(T("m2"), T("kg"), &value, &number));
    CHECK(value == 1 && number == 0);
    OK(QsIsValidRateOfTransPrice(T("-1"), &number));
    CHECK(number == 0);
    OK(QsGetFormatedRateOfTransPrice(T("17%"), &value));
    CHECK(value == 17);
}

static void CheckMaterials(void) {
    QsMaterialKey* key = NULL;
    TEXT("d41d8cd98f00b204e9800998ecf8427e", QsGetStreamMD5(T(""), &theText));
    OK(QsMaterialKey_Create(&key));
    OK(QsMaterialKey_SetText(key, 1, T("a")));
    OK(QsMaterialKey_SetText(key, 8, T("b")));
    OK(QsMaterialKey_SetFlag(key, 2, 7));
    STATUS(QS_INVALID_ARGUMENT, QsMaterialKey_SetText(key, 9, T("c")));
    STATUS(QS_INVALID_ARGUMENT, QsMaterialKey_SetFlag(key, 0, 1));
    {
        QsString* digest = NULL;
        QsString* plain = NULL;
        const QsChar* a = NULL;
        const QsChar* b = NULL;
        int32_t aLength = 0;
        int32_t bLength = 0;
        OK(QsGenerateMaterialMD5(key, &digest));
        OK(QsGetStreamMD5(T("a\t\t\t\t\t\t\t0\t1\tb"), &plain));
        OK(QsString_Units(digest, &a, &aLength));
        OK(QsString_Units(plain, &b, &bLength));
        CHECK(aLength == 32 && bLength == 32 && memcmp(a, b, 32 * sizeof(QsChar)) == 0);
        QsString_Free(digest);
        QsString_Free(plain);
    }
    QsMaterialKey_Free(key);
}

void CheckTexts(void) {
    QsString* part = NULL;
    CheckSegments();
    CheckSearches();
    CheckNarrow();
    CheckNumbers();
    CheckUnits();
    CheckMaterials();
    TEXT("a1", QsChangeSBCtoDBC(T("a1"), &theText));
    TEXT("ab@c", QsTakeOutJxxzString(T("ab&xy@c"), &theText, &part));
    CHECK(IsText(part, "y"));
}
