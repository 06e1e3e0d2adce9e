// What programs register as classes: contract.
#pragma once

#include <cstddef>
#include <optional>

#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// The default value of the key `subkey` below the key `name` of the registered classes
/// (HKEY_CLASSES_ROOT), the user's own before those of the machine: its bytes as UTF-16 units up to the first
/// NUL, whatever type it has. Nothing when there is no such key or value, or when the value has more than
/// `most` bytes, among which a text's NUL counts. Names are single names without backslashes and have no
/// case. Any thread may call it; it reads the environment.
///
/// Linux has registered classes only where Windows programs run in Wine. There the registry is read that
/// belongs to the user's Wine prefix: $WINEPREFIX, else ".wine" in the user's home. Wine writes it out when
/// its last program ends, so the answer is the one of that moment.
std::optional<CString> ReadClassValue(const CString& name, const CString& subkey, std::size_t most);

}  // namespace QsPlatform
