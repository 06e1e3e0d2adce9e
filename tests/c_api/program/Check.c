#include "Check.h"

#include <stdio.h>
#include <string.h>

enum { TEXTS = 16, LONGEST = 1024 };

QsString* theText = NULL;

static int failures = 0;

/* Decodes good UTF-8; gives the number of units. */
static int32_t Decode(const char* utf8, QsChar* units) {
    const unsigned char* byte = (const unsigned char*)utf8;
    int32_t count = 0;
    while (*byte != 0 && count < LONGEST - 2) {
        const int more = *byte < 0x80 ? 0 : *byte < 0xE0 ? 1 : *byte < 0xF0 ? 2 : 3;
        unsigned long point = more == 0 ? *byte : *byte & (0x3Fu >> more);
        int i;
        for (i = 1; i <= more; ++i)
            point = point << 6 | (byte[i] & 0x3Fu);
        byte += more + 1;
        if (point >= 0x10000) {
            units[count++] = (QsChar)(0xD7C0 + (point >> 10));
            point = 0xDC00 + (point & 0x3FF);
        }
        units[count++] = (QsChar)point;
    }
    units[count] = 0;
    return count;
}

const QsChar* Units(const char* utf8) {
    static QsChar texts[TEXTS][LONGEST];
    static int next = 0;
    QsChar* const units = texts[next];
    next = (next + 1) % TEXTS;
    Decode(utf8, units);
    return units;
}

void Check(int isGood, const char* what, const char* file, int line) {
    if (isGood)
        return;
    ++failures;
    fprintf(stderr, "%s:%d: %s\n", file, line, what);
}

static void Show(const QsChar* units, int32_t length) {
    int32_t i;
    fputs("  is:", stderr);
    for (i = 0; i < length; ++i)
        fprintf(stderr, units[i] > 32 && units[i] < 127 ? " %c" : " %04x", (unsigned)units[i]);
    fputc('\n', stderr);
}

int AreUnits(const QsChar* units, int32_t length, const char* utf8) {
    QsChar expected[LONGEST];
    const int32_t count = Decode(utf8, expected);
    if (units != NULL && length == count && memcmp(units, expected, sizeof(QsChar) * (size_t)count) == 0 &&
        units[length] == 0)
        return 1;
    Show(units, units == NULL ? 0 : length);
    return 0;
}

int IsText(QsString* text, const char* utf8) {
    const QsChar* units = NULL;
    int32_t length = -1;
    const int isSame = QsString_Units(text, &units, &length) == QS_OK && AreUnits(units, length, utf8);
    QsString_Free(text);
    return isSame;
}

int IsList(const QsTextList* list, const char* utf8) {
    QsString* joined = NULL;
    return QsTransAryToStr(list, T("|"), &joined) == QS_OK && IsText(joined, utf8);
}

int EndsWith(QsString* text, const char* utf8) {
    QsChar tail[LONGEST];
    const int32_t count = Decode(utf8, tail);
    const QsChar* units = NULL;
    int32_t length = 0;
    const int ends = QsString_Units(text, &units, &length) == QS_OK && length >= count &&
                     memcmp(units + length - count, tail, sizeof(QsChar) * (size_t)count) == 0;
    if (!ends)
        Show(units, length);
    QsString_Free(text);
    return ends;
}

int Failures(void) {
    return failures;
}
