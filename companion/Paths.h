// Paths as texts in the library's form.
#pragma once

#include <string>
#include <string_view>

namespace Companion {

/// A path of the catalogue, with separators of either kind, as seen from `folder`, which is absolute: with
/// "." and ".." taken out of the text and without a backslash at its end, unless it is a root. ".." doesn't
/// lead above the root.
std::wstring Resolve(std::wstring_view folder, std::wstring_view path);

/// The path with one backslash at its end.
std::wstring AsFolder(std::wstring path);

}  // namespace Companion
