// Texts as they stand in files and as they cross the contract.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Companion {

/// None for bytes that aren't well-formed UTF-8 (RFC 3629).
std::optional<std::wstring> FromUtf8(std::string_view bytes);

/// A lone surrogate becomes the three bytes that UTF-8 would give it, as the library encodes names of files.
std::string ToUtf8(std::wstring_view text);

/// The place of the first byte that isn't part of a well-formed character; npos when all are.
std::size_t FindMalformed(std::string_view bytes) noexcept;

/// Whether there is a control character other than, where `lines` says so, tabs and line feeds.
bool HasControls(std::wstring_view text, bool lines) noexcept;

/// Whether a text can be the name of one entry of a folder on every system: it isn't empty, has no separator
/// and no control character, and isn't made of points and blanks alone, which lead to other folders.
bool IsEntryName(std::wstring_view name) noexcept;

/// The text without blanks, tabs and line feeds at its ends.
std::wstring_view Trimmed(std::wstring_view text) noexcept;

/// The parts between semicolons, without blanks around them; empty parts fall away.
std::vector<std::wstring> SplitList(std::wstring_view text);

}  // namespace Companion
