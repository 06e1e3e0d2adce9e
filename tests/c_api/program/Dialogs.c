#include "Check.h"

/* The tests run without a display, so that nothing waits for a user. */
void CheckDialogs(void) {
    int32_t isLonger = 7;
    OK(QsGetProjectDbTemplate(&theText));
    CHECK(EndsWith(theText, "\\installation\\project.db"));
    OK(QsGetZhengTiReport(&theText));
    CHECK(EndsWith(theText, "\\installation\\ZhengTiReport.xml"));
    TEXT("", QsGetFeeTemplatePath(T("北京"), T("2012预算定额"), 0, &theText));
    TEXT("", QsGetGfsjTemplatePath(T("北京"), T("2012预算定额"), 1, &theText));
    TEXT("", QsGetCsxmTemplatePath(T("北京"), T("2012预算定额"), 0, &theText));
    TEXT("", QsGetDjzcTemplatePath(T("北京"), T("2012预算定额"), &theText));
    TEXT("", QsGetReportTemplatePath(T("北京"), T("2012预算定额"), 2, &theText));
    TEXT("", QsSelectFolder(&theText));
    OK(QsTextTip_SetTextColor(0x00FF0000));
    OK(QsTextTip_SetBackgroundColor(0x00FFFFFF));
    OK(QsTextTip_SetShowText(T("综合脚手架")));
    OK(QsTextTip_IsTextLonger(10, 0, 14, 20, &isLonger));
    CHECK(isLonger == 1);
    OK(QsTextTip_IsTextLonger(10, 0, 2000, 20, &isLonger));
    CHECK(isLonger == 0);
    OK(QsTextTip_SetWindowPosition(10, 20));
    OK(QsTextTip_ShowWindowDelay(60000));
    OK(QsTextTip_CloseWindowNow());
}
