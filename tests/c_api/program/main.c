/* A host in C. It runs in a folder of its own that holds a copy of the sample installation under
   "installation", and goes through every subsystem. */
#include <stdio.h>
#include <string.h>

#include "Check.h"

static void CheckBasics(void) {
    static const QsChar lone[] = {0xD800, 'a', 0, 0xDC00};
    QsString* text = NULL;
    const QsChar* units = NULL;
    QsChar buffer[5];
    int32_t length = 0;
    CHECK(strcmp(QsStatusText(QS_OK), "QS_OK") == 0);
    CHECK(strcmp(QsStatusText(QS_FAILED), "QS_FAILED") == 0);
    CHECK(strcmp(QsStatusText(QS_FAILED + 1), "unknown status") == 0);
    OK(QsString_Create(lone, 4, &text));
    OK(QsString_Units(text, &units, &length));
    CHECK(length == 4 && memcmp(units, lone, sizeof lone) == 0 && units[4] == 0);
    STATUS(QS_BUFFER_TOO_SMALL, QsString_Copy(text, buffer, 4, &length));
    CHECK(length == 4);
    OK(QsString_Copy(text, buffer, 5, &length));
    CHECK(length == 4 && memcmp(buffer, lone, sizeof lone) == 0 && buffer[4] == 0);
    QsString_Free(text);
    QsString_Free(NULL);
}

int main(void) {
    int32_t isTaken = 0;
    OK(QsUseInstallation(T("installation"), &isTaken));
    CHECK(isTaken == 1);
    CheckBasics();
    CheckTexts();
    CheckLists();
    CheckCodes();
    CheckFormulas();
    CheckFiles();
    CheckConfiguration();
    CheckOverview();
    CheckXmlTrees();
    CheckXmlDocuments();
    CheckDirectories();
    CheckLibraries();
    CheckTasks();
    CheckFrame();
    CheckDialogs();
    if (Failures() == 0)
        puts("every subsystem has answered");
    return Failures() == 0 ? 0 : 1;
}
