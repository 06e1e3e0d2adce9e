#include "Check.h"

typedef QsStatus (*Folder)(QsString** folder);
typedef QsStatus (*FolderOfKey)(const QsChar* family, int32_t familyLength, const QsChar* section,
                                int32_t sectionLength, const QsChar* item, int32_t itemLength,
                                QsString** folder);

static void CheckCommon(void) {
    static const Folder folders[] = {QsCommonDirectory_GetTempDirectory,
                                     QsCommonDirectory_GetCurrentWorkDirectory,
                                     QsCommonDirectory_GetDocumentsDirectory};
    int i;
    OK(QsCommonDirectory_GetExeDirectory(&theText));
    CHECK(EndsWith(theText, "\\installation\\"));
    for (i = 0; i < 3; ++i) {
        theText = NULL;
        OK(folders[i](&theText));
        CHECK(theText != NULL);
        QsString_Free(theText);
    }
}

static void CheckProject(void) {
    static const struct {
        Folder get;
        const char* end;
    } folders[] = {{QsProjectDirectory_GetProjectTemplateDirectory, "\\installation\\模板\\工程模板\\"},
                   {QsProjectDirectory_GetTemplateDirectory, "\\installation\\模板\\"},
                   {QsProjectDirectory_GetConfigDirectory, "\\installation\\Config\\"},
                   {QsProjectDirectory_GetTempFileDirectory, "\\installation\\Temp\\"},
                   {QsProjectDirectory_GetHelpDirectory, "\\installation\\Help\\"},
                   {QsProjectDirectory_GetProjectFileDirectory, "\\installation\\工程文件\\"},
                   {QsProjectDirectory_GetProgramTemplateDirectory, "\\installation\\模板\\程序模板\\"},
                   {QsProjectDirectory_GetReportDirectory, "\\installation\\报表\\"},
                   {QsProjectDirectory_GetReportTemplateDirectory, "\\installation\\模板\\报表模板\\"},
                   {QsProjectDirectory_GetBidTenderFileTemplateDirectory, "\\installation\\模板\\招投标\\"},
                   {QsProjectDirectory_GetGraphSetDirectory, "\\installation\\图集\\"},
                   {QsProjectDirectory_GetSoftNetDirectory, "\\installation\\Net\\"},
                   {QsProjectDirectory_GetLibVisitorDirectory, "\\installation\\LibVisitor\\"},
                   {QsProjectDirectory_GetFyhzTemplateDirectory, "\\installation\\模板\\费用汇总模板\\"},
                   {QsProjectDirectory_GetGfsjTemplateDirectory, "\\installation\\模板\\规费税金模板\\"},
                   {QsProjectDirectory_GetCsxmTemplateDirectory, "\\installation\\模板\\措施项目模板\\"},
                   {QsProjectDirectory_GetDjzcTemplateDirectory, "\\installation\\模板\\综合单价组成模板\\"},
                   {QsProjectDirectory_GetLibraryDirectory, "\\installation\\Library\\"},
                   {QsProjectDirectory_GetLogDirectory, "\\installation\\Log\\"}};
    unsigned i;
    for (i = 0; i < sizeof folders / sizeof folders[0]; ++i) {
        theText = NULL;
        OK(folders[i].get(&theText));
        CHECK(EndsWith(theText, folders[i].end));
    }
    OK(QsProjectDirectory_GetDirectory(T("HelpDirectory"), &theText));
    CHECK(EndsWith(theText, "\\installation\\Help\\"));
}

static void CheckOfLibraries(void) {
    static const struct {
        FolderOfKey get;
        const char* end;
    } folders[] = {
        {QsLibraryDirectory_GetFamilyDirectory, "\\Library\\北京\\"},
        {QsLibraryDirectory_GetQuotaLibraryDirectory, "\\Library\\北京\\2012预算定额\\定额库\\"},
        {QsLibraryDirectory_GetBillLibraryRootDirectory, "\\Library\\清单库\\北京\\2012预算定额\\"},
        {QsLibraryDirectory_GetBillLibraryDirectory, "\\Library\\清单库\\北京\\2012预算定额\\墨衡\\"},
        {QsLibraryDirectory_GetDrtFileDirectory, "\\Library\\北京\\2012预算定额\\配套文件\\"},
        {QsLibraryDirectory_GetConfigFileDirectory, "\\Library\\北京\\2012预算定额\\配套文件\\"},
        {QsLibraryDirectory_GetSubLibraryRootDirectory, "\\Library\\北京\\2012预算定额\\子库\\"},
        {QsLibraryDirectory_GetSubLibraryDirectory, "\\2012预算定额\\子库\\通用安装工程\\"},
        {QsLibraryDirectory_GetFeeTemplateLibraryDirectory, "\\Library\\北京\\2012预算定额\\取费模板\\"},
        {QsLibraryDirectory_GetReportTemplateLibraryDirectory, "\\Library\\北京\\2012预算定额\\报表模板\\"},
        {QsLibraryDirectory_GetPathKind10Directory, ""}};
    unsigned i;
    for (i = 0; i < sizeof folders / sizeof folders[0]; ++i) {
        theText = NULL;
        OK(folders[i].get(T("北京"), T("2012预算定额"), T("通用安装工程"), &theText));
        CHECK(EndsWith(theText, folders[i].end));
    }
}

void CheckDirectories(void) {
    CheckCommon();
    CheckProject();
    CheckOfLibraries();
    OK(QsLibraryDirectory_GetLibraryRootDirectory(&theText));
    CHECK(EndsWith(theText, "\\installation\\Library\\"));
    OK(QsLibraryDirectory_GetEnterpriseBillDirectory(T("北京"), &theText));
    CHECK(EndsWith(theText, "\\Library\\清单库\\企业清单\\北京\\"));
    OK(QsLibraryDirectory_GetGroupPriceRootDirectory(&theText));
    CHECK(EndsWith(theText, "\\Library\\组价库\\"));
    OK(QsLibraryDirectory_GetGroupPriceDirectory(T("常用组价"), &theText));
    CHECK(EndsWith(theText, "\\Library\\组价库\\常用组价\\"));
    TEXT("AZ", QsLibraryDirectory_GetLibraryTag(T("通用安装工程"), &theText));
}
