#include <stdio.h>
#include <string.h>

#include "Check.h"

/* Some file below the working folder, whose name is one of the system's and of the library's as well. */
static void WriteFile(const char* name, const char* text) {
    FILE* file = fopen(name, "wb");
    CHECK(file != NULL);
    if (file != NULL) {
        fputs(text, file);
        fclose(file);
    }
}

static void CheckFolders(void) {
    int32_t isTrue = 0;
    /* What stands before the first backslash counts as a root. */
    OK(QsCreateFolderAllPath(T("folders"), &isTrue));
    OK(QsCreateFolderAllPath(T("folders\\a\\b"), &isTrue));
    CHECK(isTrue == 1);
    WriteFile("folders/a/b/x.txt", "x");
    OK(QsIsFileExist(T("folders\\a\\b\\*.txt"), &isTrue));
    CHECK(isTrue == 1);
    OK(QsIsFileOpen(T("folders\\a\\b\\x.txt"), &isTrue));
    CHECK(isTrue == 0);
    OK(QsCopyFolderAllFiles(T("folders\\a"), T("folders\\c"), 1));
    OK(QsIsFileExist(T("folders\\c\\b\\x.txt"), &isTrue));
    CHECK(isTrue == 1);
    OK(QsFindPath(T("folders\\c\\"), T("x.txt"), NULL, 0, &theText));
    CHECK(EndsWith(theText, "\\folders\\c\\b\\x.txt"));
    OK(QsFindPath(T("folders\\"), T("x.txt"), T("c"), &theText));
    CHECK(EndsWith(theText, "\\folders\\c\\b\\x.txt"));
    TEXT("", QsFindPath(T("folders\\"), T("y.txt"), NULL, 0, &theText));
    OK(QsFindRememberedPath(T("folders\\c\\"), T("x.txt"), NULL, 0, &theText));
    CHECK(EndsWith(theText, "\\folders\\c\\b\\x.txt"));
    OK(QsDeleteDirectory(T("folders"), &isTrue));
    CHECK(isTrue == 1);
    /* It is remembered, and so it is given again. */
    OK(QsFindRememberedPath(T("folders\\c\\"), T("x.txt"), NULL, 0, &theText));
    CHECK(EndsWith(theText, "\\folders\\c\\b\\x.txt"));
}

static void CheckPaths(void) {
    QsBytes* native = NULL;
    const char* data = NULL;
    int32_t number = 0;
    TEXT("b.tar", QsPickFileNameFromPath(T("C:\\a\\b.tar.gz"), &theText));
    TEXT("C:\\b", QsRemoveRelativeDirectoryFromPath(T("C:\\a\\..\\b"), &theText));
    STATUS(QS_FAILED, QsRemoveRelativeDirectoryFromPath(T("a\\.\\b"), &theText));
    OK(QsVersionBig(T("2.1"), T("2.0"), 0, &number));
    CHECK(number == 1);
    OK(QsToNativePath(T("a\\砖"), &native));
    OK(QsBytes_Data(native, &data, &number));
    CHECK(number == 5 && data[0] == 'a' && strcmp(data + 2, "砖") == 0);
    TEXT("a\\砖", QsFromNativePath(data, number, &theText));
    QsBytes_Free(native);
    OK(QsGetInitPath(&theText));
    CHECK(EndsWith(theText, "工程文件"));
}

static void CheckBackUp(void) {
    QsString* folder = NULL;
    const QsChar* units = NULL;
    int32_t length = 0;
    int32_t isTrue = 0;
    OK(QsCreateFolderAllPath(T("projects"), &isTrue));
    OK(QsCreateFolderAllPath(T("projects\\p"), &isTrue));
    WriteFile("projects/p.xml", "p");
    WriteFile("projects/p.mdb", "database");
    OK(QsInitBackUpInfo(T("projects\\p.xml")));
    OK(QsGetCurBackUpPath(T("projects\\p.xml"), &folder));
    OK(QsString_Units(folder, &units, &length));
    OK(QsIsFileExist(units, length, &isTrue));
    QsString_Free(folder);
    OK(QsGetCurBackUpDataBasePath(T("projects\\p.xml"), &folder));
    OK(QsString_Units(folder, &units, &length));
    OK(QsIsFileExist(units, length, &isTrue));
    CHECK(isTrue == 1);
    QsString_Free(folder);
    WriteFile("projects/p.mdb", "changed");
    OK(QsOnBackUpSaveFile(T("projects\\p.xml")));
    {
        char text[16] = "";
        FILE* file = fopen("projects/p.mdb", "rb");
        CHECK(file != NULL && fgets(text, sizeof text, file) != NULL && strcmp(text, "database") == 0);
        if (file != NULL)
            fclose(file);
    }
    OK(QsUpdateGraphicFileVer(T("projects\\p.xml")));
    OK(QsOnNotSaveGraphicFile(T("projects\\p.xml")));
}

void CheckFiles(void) {
    int32_t number = 7;
    CheckFolders();
    CheckPaths();
    CheckBackUp();
    OK(QsIsYsOpen(T("nobody's key"), T("item"), &number));
    CHECK(number == 0);
    TEXT("ShenDing", QsYsTypeToString(QS_YS_SHEN_DING, &theText));
    OK(QsStringToYsType(T("SongShen"), &number));
    CHECK(number == QS_YS_SONG_SHEN);
    OK(QsGetExcelInstallVersion(&theText));
    QsString_Free(theText);
}
