#include "companion/System.h"

#include <algorithm>

#include <windows.h>

#include "companion/Text.h"

namespace Companion {

namespace {

bool IsLetter(wchar_t unit) noexcept {
    return (unit >= L'a' && unit <= L'z') || (unit >= L'A' && unit <= L'Z');
}

/// Behind the next backslash from `at` on.
std::size_t BehindPart(std::wstring_view path, std::size_t at) noexcept {
    const std::size_t backslash = path.find(L'\\', std::min(at, path.size()));
    return backslash == std::wstring_view::npos ? path.size() : backslash + 1;
}

}  // namespace

std::string ShownPath(const std::wstring& path) {
    return ToUtf8(path);
}

std::filesystem::path NativePath(const std::wstring& path) {
    return path;
}

std::wstring LibraryForm(const std::filesystem::path& path) {
    std::wstring text = path.native();
    std::replace(text.begin(), text.end(), L'/', L'\\');
    return text;
}

std::size_t RootLength(std::wstring_view path) noexcept {
    if (path.starts_with(L"\\\\"))  // a server and its share, or a form such as \\?\C:\ of the same shape
        return BehindPart(path, BehindPart(path, 2));
    return path.size() >= 3 && IsLetter(path[0]) && path[1] == L':' && path[2] == L'\\' ? 3 : 0;
}

std::FILE* OpenToRead(const std::wstring& path) {
    return ::_wfopen(path.c_str(), L"rb");
}

std::FILE* OpenToReplace(const std::wstring& path) {
    return ::_wfopen(path.c_str(), L"wb");
}

void WriteToStandardError(const std::string& utf8) {
    HANDLE const console = ::GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0;
    if (console != nullptr && ::GetConsoleMode(console, &mode) != FALSE) {
        const std::wstring text = FromUtf8(utf8).value_or(std::wstring());
        DWORD written = 0;
        ::WriteConsoleW(console, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
        return;
    }
    std::fwrite(utf8.data(), 1, utf8.size(), stderr);
    std::fflush(stderr);
}

}  // namespace Companion
