#include "QsUtils/platform/win32/SystemPath.h"

#include <cstddef>

#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

namespace {

/// What every call takes: a folder must leave room for a short name in it, and a search for its wildcard.
constexpr std::size_t LongestPath = MAX_PATH - 16;

}  // namespace

std::wstring SystemPath(const CString& path) {
    std::wstring text = path.ToWide();
    if (text.find(L'\0') != text.npos)
        return {};
    if (text.size() < LongestPath || text.starts_with(LR"(\\?\)") || text.starts_with(LR"(\\.\)"))
        return text;
    const DWORD size = ::GetFullPathNameW(text.c_str(), 0, nullptr, nullptr);
    std::wstring full(size, L'\0');
    const DWORD length = ::GetFullPathNameW(text.c_str(), size, full.data(), nullptr);
    if (length == 0 || length >= size)
        return text;
    full.resize(length);
    if (full.starts_with(LR"(\\)"))
        return LR"(\\?\UNC\)" + full.substr(2);
    return LR"(\\?\)" + full;
}

}  // namespace QsPlatform
