#include "QsUtils/platform/Folders.h"

#include <string>
#include <string_view>

#include "QsUtils/platform/win32/FileErrors.h"
#include "QsUtils/platform/win32/LinkTarget.h"
#include "QsUtils/platform/win32/SystemPath.h"
#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

bool IsFolder(const CString& path) {
    const DWORD attributes = ::GetFileAttributesW(SystemPath(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool IsRootFolder(const CString& path) {
    std::wstring full = UnlimitedPath(path);
    if (full.empty())
        return false;
    if (full.back() != L'\\')
        full += L'\\';
    return full.size() == std::wstring_view(LR"(\\?\C:\)").size() && full.ends_with(L":\\");
}

bool IsLink(const CString& path) {
    std::wstring entry = SystemPath(path);
    while (entry.size() > 1 && (entry.back() == L'\\' || entry.back() == L'/'))
        entry.pop_back();
    return IsLinkPath(entry);
}

bool CreateFolder(const CString& path, bool* lacksRoom) {
    const bool isMade = ::CreateDirectoryW(SystemPath(path).c_str(), nullptr) != 0;
    if (lacksRoom != nullptr)
        *lacksRoom = !isMade && IsWantOfRoom(::GetLastError());
    return isMade;
}

bool RemoveFolder(const CString& path) {
    return ::RemoveDirectoryW(SystemPath(path).c_str()) != 0;
}

CString AbsolutePath(const CString& path) {
    if ((path.Mid(1, 1) == u":" && (path.Mid(2, 1) == u"\\" || path.Mid(2, 1) == u"/")) ||
        path.Left(2) == u"\\\\")
        return path;
    const std::wstring text = path.IsEmpty() ? L".\\" : path.ToWide();
    const DWORD size = ::GetFullPathNameW(text.c_str(), 0, nullptr, nullptr);
    std::wstring full(size, L'\0');
    const DWORD length = ::GetFullPathNameW(text.c_str(), size, full.data(), nullptr);
    if (length == 0 || length >= size)
        return path;
    full.resize(length);
    return CString(full);
}

}  // namespace QsPlatform
