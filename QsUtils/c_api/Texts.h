/// @file
/// Segments, strings, numbers and Chinese numerals, as `IQsUtils` describes them. A text that C++ changes in
/// place comes in as an argument and goes out as `result`.
#pragma once

#include "QsUtils/c_api/Lists.h"

#if defined(__cplusplus)
extern "C" {
#endif

// --- Segments. Each tells by `done` what the C++ function returns; `result` is there in any case.

/// Without the first segment: "a/b/c" gives "b/c".
QSUTILS_API QsStatus QsCutFirstSegment(const QsChar* text, int32_t length, const QsChar* separator,
                                       int32_t separatorLength, QsString** result, int32_t* done);
/// Without the last segment: "a/b/c" gives "a/b".
QSUTILS_API QsStatus QsCutLastSegment(const QsChar* text, int32_t length, const QsChar* separator,
                                      int32_t separatorLength, QsString** result, int32_t* done);
/// The first segment: "a/b/c" gives "a".
QSUTILS_API QsStatus QsGetFirstSegment(const QsChar* text, int32_t length, const QsChar* separator,
                                       int32_t separatorLength, QsString** result, int32_t* done);
/// The last segment: "a/b/c" gives "c".
QSUTILS_API QsStatus QsGetLastSegment(const QsChar* text, int32_t length, const QsChar* separator,
                                      int32_t separatorLength, QsString** result, int32_t* done);

// --- Searching, splitting, joining

/// The index of the first element equal to the text; -1 when there is none or the text is empty.
QSUTILS_API QsStatus QsFindInCStringArray(const QsChar* text, int32_t length, const QsTextList* list,
                                          int32_t* index);
/// Whether any element equals the text, up to its first NUL, without regard to case.
QSUTILS_API QsStatus QsStringArrayContains(const QsTextList* list, const QsChar* text, int32_t length,
                                           int32_t* contains);
/// How often `part` occurs. With a match, and only then, `positions` is replaced by the ascending positions.
QSUTILS_API QsStatus QsFindSpecStringCount(const QsChar* text, int32_t length, const QsChar* part,
                                           int32_t partLength, QsIndexList* positions, int32_t* count);
/// Appends the pieces between separators to `list`; a last empty piece is left out.
QSUTILS_API QsStatus QsSplit(const QsChar* text, int32_t length, QsChar separator, QsTextList* list);
/// Replaces `list` by the pieces; an empty separator leaves it as it was.
QSUTILS_API QsStatus QsTransStrToAry(const QsChar* text, int32_t length, const QsChar* separator,
                                     int32_t separatorLength, QsTextList* list);
/// The elements joined with the separator.
QSUTILS_API QsStatus QsTransAryToStr(const QsTextList* list, const QsChar* separator, int32_t separatorLength,
                                     QsString** result);
/// The text as it is; the comparisons of item codes pass through it.
QSUTILS_API QsStatus QsChangeSBCtoDBC(const QsChar* text, int32_t length, QsString** result);
/// Cuts the part marked by the first "&" out: what is left, and the part.
QSUTILS_API QsStatus QsTakeOutJxxzString(const QsChar* text, int32_t length, QsString** result,
                                         QsString** part);

// --- The ANSI code page, 936

/// Decodes bytes up to the first NUL; a length of -1 asks for that one.
QSUTILS_API QsStatus QsAnsiToUnicode(const char* bytes, int32_t length, QsString** result);
/// Encodes a text up to its first NUL; "?" stands for what the code page lacks.
QSUTILS_API QsStatus QsUnicodeToAnsi(const QsChar* text, int32_t length, QsBytes** result);
/// The text up to its first NUL.
QSUTILS_API QsStatus QsCStringToWstring(const QsChar* text, int32_t length, QsString** result);
/// How many characters the text has after a way through the code page and back.
QSUTILS_API QsStatus QsGetCharCount(const QsChar* text, int32_t length, int32_t* count);

// --- Numbers

/// Reads a whole number that takes the whole text. `isNumber` tells whether it has that form; else the value
/// is 0.
QSUTILS_API QsStatus QsParseToInteger(const QsChar* text, int32_t length, int32_t* value, int32_t* isNumber);
/// Reads a decimal number, likewise.
QSUTILS_API QsStatus QsParseToDouble(const QsChar* text, int32_t length, double* value, int32_t* isNumber);
/// Whether the text holds nothing but digits, points and one leading "-", in whatever arrangement.
QSUTILS_API QsStatus QsbIsNum(const QsChar* text, int32_t length, int32_t* isNumber);
/// The value with 0 to 6 decimals, and without trailing zeros if that is wanted.
QSUTILS_API QsStatus QsDoubleToCString(double value, int32_t decimals, int32_t trimZeros, QsString** result);
/// An amount of money in capital numerals with yuan, jiao and fen: 12.34 is "壹拾贰元叁角肆分".
QSUTILS_API QsStatus QsNumToRMBStr(double value, QsString** result);
/// A number in ordinary numerals: 105 is "一百零五".
QSUTILS_API QsStatus QsTransIntToUpper(int32_t value, QsString** result);

#if defined(__cplusplus)
}
#endif
