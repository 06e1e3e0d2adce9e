// The files in which Wine keeps its registry.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace QsPlatform {

/// The bytes of the default value of a key, in the memory order of Windows and with the NUL of a text among
/// them; nothing when the file has no such key or value, or is none of a registry. `key` is the path below
/// the root of the file, with single backslashes; it has no case in ASCII. Where the file has the value more
/// than once the last one counts, as for Wine itself. Lines that say nothing are passed over. One pass.
std::optional<std::string> FindDefaultValue(std::string_view file, std::u16string_view key);

}  // namespace QsPlatform
