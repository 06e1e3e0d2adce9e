#include "QsUtils/platform/win32/LinkTarget.h"

#include <utility>

#include "QsUtils/platform/win32/FileErrors.h"

namespace QsPlatform {

bool IsLinkPath(const std::wstring& path) {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return false;
    WIN32_FIND_DATAW found{};
    const HANDLE search = ::FindFirstFileW(path.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return false;
    ::FindClose(search);
    return IsLinkTag(found.dwReserved0);
}

std::wstring FollowLink(const std::wstring& path) {
    const FileHandle file(::CreateFileW(path.c_str(), 0,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                        OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!file.IsOpen())
        return path;
    std::wstring name(32768, L'\0');
    const DWORD length =
        ::GetFinalPathNameByHandleW(file.Get(), name.data(), static_cast<DWORD>(name.size()), 0);
    if (length == 0 || length >= name.size())
        return path;
    name.resize(length);
    return name;
}

}  // namespace QsPlatform
