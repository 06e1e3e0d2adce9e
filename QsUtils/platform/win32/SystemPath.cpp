#include "QsUtils/platform/win32/SystemPath.h"

#include <cstddef>

#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

namespace {

/// What every call takes: a folder must leave room for a short name in it, and a search for its wildcard.
constexpr std::size_t LongestPath = MAX_PATH - 16;

bool HasPrefix(const std::wstring& path) {
    return path.starts_with(LR"(\\?\)") || path.starts_with(LR"(\\.\)");
}

/// The text itself when the system doesn't tell.
std::wstring InFull(const std::wstring& path) {
    const DWORD size = ::GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    std::wstring full(size, L'\0');
    const DWORD length = ::GetFullPathNameW(path.c_str(), size, full.data(), nullptr);
    if (length == 0 || length >= size)
        return path;
    full.resize(length);
    return full;
}

std::wstring WithPrefix(const std::wstring& path) {
    const std::wstring full = InFull(path);
    if (HasPrefix(full))
        return full;
    return full.starts_with(LR"(\\)") ? LR"(\\?\UNC\)" + full.substr(2) : LR"(\\?\)" + full;
}

}  // namespace

std::wstring SystemPath(const CString& path) {
    std::wstring text = path.ToWide();
    if (text.find(L'\0') != text.npos)
        return {};
    return text.size() < LongestPath || HasPrefix(text) ? text : WithPrefix(text);
}

std::wstring UnlimitedPath(const CString& path) {
    const std::wstring text = path.ToWide();
    if (text.empty() || text.find(L'\0') != text.npos)
        return {};
    return HasPrefix(text) ? text : WithPrefix(text);
}

}  // namespace QsPlatform
