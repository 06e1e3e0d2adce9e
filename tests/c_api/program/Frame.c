#include <stdio.h>
#include <string.h>

#include "Check.h"

/* Whether a file has this text in it. */
static int Holds(const char* name, const char* text) {
    char content[16384];
    size_t size;
    FILE* file = fopen(name, "rb");
    if (file == NULL)
        return 0;
    size = fread(content, 1, sizeof content - 1, file);
    content[size] = 0;
    fclose(file);
    return strstr(content, text) != NULL;
}

void CheckFrame(void) {
    QsTimeCostTracker* tracker = NULL;
    CHECK(strcmp(QsUtilsVersion(), EXPECTED_VERSION) == 0);
    TEXT("", QsGetSoftVersion(&theText));
    OK(QsSetSoftVersion(T("V1")));
    TEXT("V1", QsGetSoftVersion(&theText));
    OK(QsSetSoftVersion(NULL, 0));
    OK(QsRecordLogInfo(T("a record"), T("record.txt")));
    CHECK(Holds("record.txt", "\ta record\r\r\n"));
    OK(QsLogError(T("[ERROR]: told by C")));
    OK(QsTimeCostTracker_Create(T("work"), &tracker));
    QsTimeCostTracker_Free(tracker);
    CHECK(Holds("installation/Log/Tallyman.log", "[ERROR]: told by C"));
    CHECK(Holds("installation/Log/Tallyman.log", "[INFO]: work costs "));
}
