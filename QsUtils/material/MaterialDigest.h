// The digest that names a material.
#pragma once

#include "QsUtils/material/CommonMaterialKey.h"
#include "QsUtils/text/CString.h"

namespace QsMaterial {

/// The MD5 digest (RFC 1321) of the text's UTF-16LE bytes, without a byte-order mark or terminator, as 32
/// lower-case hexadecimal digits. Any thread may call it.
CString StreamMd5(const CString& text);

/// The same of the record's ten fields in their order with a tab between each two, the flags as "1" and "0".
/// Nothing is trimmed, folded or skipped, and a tab inside a field isn't escaped. Any thread may call it.
CString MaterialMd5(const CommonMaterialKey& key);

}  // namespace QsMaterial
