/* What a test in C is made of. A failed check is told with its place, and the program goes on. */
#pragma once

#include <QsUtils/c_api.h>

/* A text in UTF-8 as an argument: the units and -1. Sixteen are good at the same time. */
const QsChar* Units(const char* utf8);
#define T(utf8) Units(utf8), -1

void Check(int isGood, const char* what, const char* file, int line);
/* Whether a text that the library has handed out, or lends, is this one. The first frees it. */
int IsText(QsString* text, const char* utf8);
int AreUnits(const QsChar* units, int32_t length, const char* utf8);
/* Whether a list holds these texts, joined by "|". */
int IsList(const QsTextList* list, const char* utf8);
int EndsWith(QsString* text, const char* utf8);

/* How many checks have failed. */
int Failures(void);

/* Where `TEXT` has its result. */
extern QsString* theText;

#define CHECK(condition) Check((condition), #condition, __FILE__, __LINE__)
#define OK(call) Check((call) == QS_OK, #call, __FILE__, __LINE__)
#define STATUS(status, call) Check((call) == (status), #status ": " #call, __FILE__, __LINE__)
/* A call that writes its text to `theText`. */
#define TEXT(utf8, call) Check((call) == QS_OK && IsText(theText, utf8), utf8 ": " #call, __FILE__, __LINE__)

/* One function a subsystem. */
void CheckTexts(void);
void CheckLists(void);
void CheckCodes(void);
void CheckFormulas(void);
void CheckFiles(void);
void CheckConfiguration(void);
void CheckOverview(void);
void CheckXmlTrees(void);
void CheckXmlDocuments(void);
void CheckDirectories(void);
void CheckLibraries(void);
void CheckTasks(void);
void CheckFrame(void);
void CheckDialogs(void);
