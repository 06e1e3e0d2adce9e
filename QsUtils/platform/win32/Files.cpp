#include "QsUtils/platform/Files.h"

#include <string>

#include "QsUtils/platform/win32/FileCopy.h"
#include "QsUtils/platform/win32/FileErrors.h"
#include "QsUtils/platform/win32/LinkTarget.h"
#include "QsUtils/platform/win32/SystemPath.h"
#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

bool RemoveFile(const CString& path) {
    return ::DeleteFileW(SystemPath(path).c_str()) != 0;
}

bool MakeWritable(const CString& path) {
    const std::wstring entry = SystemPath(path);
    return IsLinkPath(entry) || SetNormal(entry);
}

bool CopyOneFile(const CString& source, const CString& target, bool* lacksRoom) {
    const CopyOutcome outcome = CopyBetween(SystemPath(source), SystemPath(target), false);
    if (lacksRoom != nullptr)
        *lacksRoom = outcome == CopyOutcome::NoRoom;
    return outcome == CopyOutcome::Copied;
}

bool IsRewritable(const CString& path) {
    const std::wstring name = SystemPath(path);
    // Some versions of the system let an administrator write to a file that is marked.
    const DWORD attributes = ::GetFileAttributesW(name.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES ||
        (attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) != 0)
        return false;
    const FileHandle file(::CreateFileW(name.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                        nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    return file.IsOpen();
}

Rewriting RewriteFile(const CString& source, const CString& target) {
    return IsRewritable(target) ? RewriteBy(SystemPath(source), SystemPath(target)) : Rewriting::NotBegun;
}

bool IsHeldElsewhere(const CString& path) {
    const std::wstring name = SystemPath(path);
    // Some versions of the system let an administrator write to a file that is marked.
    const DWORD attributes = ::GetFileAttributesW(name.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_READONLY) != 0)
        return true;
    const FileHandle file(::CreateFileW(name.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                        FILE_ATTRIBUTE_NORMAL, nullptr));
    return !file.IsOpen();
}

}  // namespace QsPlatform
