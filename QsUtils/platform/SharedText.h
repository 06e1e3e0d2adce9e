// Texts that processes share by name: contract.
#pragma once

#include <cstddef>
#include <optional>

#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// The bytes that a shared object has by agreement of its writer and its readers.
inline constexpr std::size_t SharedTextBytes = 256;

/// More of a text isn't read, whatever size the writer gave the object.
inline constexpr std::size_t LargestSharedText = std::size_t{1} << 20;

/// The text of UTF-16 units at the beginning of the shared object `name`, up to its first NUL or to the end
/// of the object. Nothing when there is no such object, or none that may be read. A name is a plain word
/// without slashes and backslashes.
///
/// The object is another program's: of whatever size and content it is, and whatever that program does with
/// it meanwhile, this call comes back. On Windows it is a named mapping of the session; a missing one is
/// asked for as a new one of `SharedTextBytes`, and the handle by which it is reached stays open until the
/// process ends, one more with every call. Elsewhere it is an object of POSIX shared memory that the user of
/// this process owns; those of others don't count, and a missing one isn't made. Any thread may call it.
std::optional<CString> ReadSharedText(const CString& name);

}  // namespace QsPlatform
