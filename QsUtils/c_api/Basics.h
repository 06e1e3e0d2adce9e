/// @file
/// What every function of the C interface uses: status, texts, bytes.
#pragma once

#include <stdint.h>

#include "QsUtils/platform/Api.h"

#if defined(__cplusplus)
typedef char16_t QsChar;
extern "C" {
#else
/// A unit of UTF-16; on Windows a wchar_t is one, too.
typedef uint_least16_t QsChar;
#endif

/// What became of a call.
typedef int32_t QsStatus;
enum {
    QS_OK = 0,
    QS_INVALID_ARGUMENT = 1,  ///< a null handle, no place for a result, a bad length, no such index
    QS_OUT_OF_MEMORY = 2,
    QS_NOT_FOUND = 3,  ///< there is no such thing, or no data
    QS_BUFFER_TOO_SMALL = 4,
    QS_FAILED = 5  ///< anything else: the C++ function has raised an exception
};

/// The name of a status, "QS_OK" for instance; "unknown status" for any other number. Never freed.
QSUTILS_API const char* QsStatusText(QsStatus status);

/// A text that the library hands out. It never changes, and any thread may read it.
typedef struct QsString QsString;

/// A text of one's own.
QSUTILS_API QsStatus QsString_Create(const QsChar* text, int32_t length, QsString** result);
/// The units, with a NUL behind the last, and their number without it. Borrowed: good until the text is
/// freed.
QSUTILS_API QsStatus QsString_Units(const QsString* text, const QsChar** units, int32_t* length);
/// Copies the units and a NUL to a buffer for `capacity` units. `length` is written in any case: without the
/// NUL, so that `length` + 1 is the capacity that suffices. QS_BUFFER_TOO_SMALL, with nothing copied, below
/// that; the buffer may be null when `capacity` is 0.
QSUTILS_API QsStatus QsString_Copy(const QsString* text, QsChar* buffer, int32_t capacity, int32_t* length);
/// Ends a text; null is taken.
QSUTILS_API void QsString_Free(QsString* text);

/// Bytes that the library hands out, likewise: a narrow text.
typedef struct QsBytes QsBytes;

/// The bytes, with a NUL behind the last, and their number without it. Borrowed like the units of a text.
QSUTILS_API QsStatus QsBytes_Data(const QsBytes* bytes, const char** data, int32_t* length);
/// Copies the bytes and a NUL to a buffer, as `QsString_Copy` does.
QSUTILS_API QsStatus QsBytes_Copy(const QsBytes* bytes, char* buffer, int32_t capacity, int32_t* length);
/// Ends the bytes; null is taken.
QSUTILS_API void QsBytes_Free(QsBytes* bytes);

#if defined(__cplusplus)
}
#endif
