// What differs between the systems: the form of paths, and how standard error takes text.
#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

namespace Companion {

// A path in the library's form has its folders separated by backslashes; on Linux `/opt/app` is `\opt\app`.

std::filesystem::path NativePath(const std::wstring& path);
std::wstring LibraryForm(const std::filesystem::path& path);

/// How many units of a path in the library's form are its root, such as `C:\` or `\\server\share\`, the
/// backslash included if there is one; 0 for a relative path.
std::size_t RootLength(std::wstring_view path) noexcept;

/// The path as a user of the system writes it, in UTF-8.
std::string ShownPath(const std::wstring& path);

/// A plain C file, to be closed by the caller; null when it can't be opened. The streams of the C++ library
/// would leave locales behind where its runtime comes and goes with the module.
std::FILE* OpenToRead(const std::wstring& path);
std::FILE* OpenToReplace(const std::wstring& path);

void WriteToStandardError(const std::string& utf8);

}  // namespace Companion
