/// @file
/// Digests of texts and of materials.
#pragma once

#include "QsUtils/c_api/Basics.h"

#if defined(__cplusplus)
extern "C" {
#endif

/// The MD5 digest of the text's UTF-16LE bytes, as 32 lower-case hexadecimal digits.
QSUTILS_API QsStatus QsGetStreamMD5(const QsChar* text, int32_t length, QsString** digest);

/// The identity of a material: eight texts and two flags, all empty and 0 at first.
typedef struct QsMaterialKey QsMaterialKey;

/// An empty key, which is the caller's.
QSUTILS_API QsStatus QsMaterialKey_Create(QsMaterialKey** key);
/// Sets the text of that number, 1 to 8: `strKeyText1` to `strKeyText8`.
QSUTILS_API QsStatus QsMaterialKey_SetText(QsMaterialKey* key, int32_t number, const QsChar* text,
                                           int32_t length);
/// Sets the flag of that number, 1 or 2: `bKeyFlag1` or `bKeyFlag2`.
QSUTILS_API QsStatus QsMaterialKey_SetFlag(QsMaterialKey* key, int32_t number, int32_t value);
/// Ends the key; null is taken.
QSUTILS_API void QsMaterialKey_Free(QsMaterialKey* key);

/// The digest of a material's identity.
QSUTILS_API QsStatus QsGenerateMaterialMD5(QsMaterialKey* key, QsString** digest);

#if defined(__cplusplus)
}
#endif
