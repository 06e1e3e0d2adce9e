#include "QsUtils/platform/win32/FileCopy.h"

#include "QsUtils/platform/win32/FileErrors.h"
#include "QsUtils/platform/win32/LinkTarget.h"
#include "QsUtils/platform/win32/TemporaryName.h"
#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

namespace {

FileHandle OpenForAttributes(const std::wstring& path) {
    return FileHandle(::CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                    nullptr, OPEN_EXISTING, 0, nullptr));
}

bool IsSameFile(const std::wstring& a, const std::wstring& b) {
    const FileHandle first = OpenForAttributes(a);
    const FileHandle second = OpenForAttributes(b);
    BY_HANDLE_FILE_INFORMATION firstFile{};
    BY_HANDLE_FILE_INFORMATION secondFile{};
    return first.IsOpen() && second.IsOpen() && ::GetFileInformationByHandle(first.Get(), &firstFile) &&
           ::GetFileInformationByHandle(second.Get(), &secondFile) &&
           firstFile.dwVolumeSerialNumber == secondFile.dwVolumeSerialNumber &&
           firstFile.nFileIndexHigh == secondFile.nFileIndexHigh &&
           firstFile.nFileIndexLow == secondFile.nFileIndexLow;
}

/// Makes a new version last before it gets the name.
bool Flush(const std::wstring& path) {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    bool isFlushed = false;
    {
        const FileHandle file(
            ::CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
        isFlushed = file.IsOpen() && ::FlushFileBuffers(file.Get());
    }
    return isFlushed && ::SetFileAttributesW(path.c_str(), attributes);
}

CopyOutcome OutcomeOf(DWORD error) noexcept {
    return IsWantOfRoom(error) ? CopyOutcome::NoRoom : CopyOutcome::LeftOut;
}

CopyOutcome CopyToNewName(const std::wstring& source, const std::wstring& target, bool replaces) {
    const std::wstring folder = target.substr(0, target.find_last_of(L"\\/:") + 1);
    for (int names = 0; names < MostNames; ++names) {
        const std::wstring version = folder + TemporaryName();
        if (!::CopyFileW(source.c_str(), version.c_str(), TRUE)) {
            const DWORD error = ::GetLastError();
            if (error == ERROR_FILE_EXISTS)
                continue;
            ::DeleteFileW(version.c_str());
            return OutcomeOf(error);
        }
        if ((!replaces || Flush(version)) &&
            ::MoveFileExW(version.c_str(), target.c_str(),
                          replaces ? MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH : 0))
            return CopyOutcome::Copied;
        const DWORD error = ::GetLastError();
        ::SetFileAttributesW(version.c_str(), FILE_ATTRIBUTE_NORMAL);
        ::DeleteFileW(version.c_str());
        return OutcomeOf(error);
    }
    return CopyOutcome::LeftOut;
}

}  // namespace

void TakeMarkOff(const std::wstring& path) {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
        ::SetFileAttributesW(path.c_str(), attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY));
}

bool SetNormal(const std::wstring& path) {
    return ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL) != 0;
}

CopyOutcome CopyBetween(const std::wstring& source, std::wstring target, bool isTargetUnseen) {
    const DWORD from = ::GetFileAttributesW(source.c_str());
    if (from == INVALID_FILE_ATTRIBUTES || (from & FILE_ATTRIBUTE_DIRECTORY) != 0 || target.empty())
        return CopyOutcome::LeftOut;
    if (isTargetUnseen)
        return ::CopyFileW(source.c_str(), target.c_str(), TRUE) ? CopyOutcome::Copied
                                                                 : OutcomeOf(::GetLastError());
    DWORD to = ::GetFileAttributesW(target.c_str());
    if (to != INVALID_FILE_ATTRIBUTES && IsLinkPath(target)) {
        target = FollowLink(target);
        to = ::GetFileAttributesW(target.c_str());
    }
    const bool replaces = to != INVALID_FILE_ATTRIBUTES;
    if (replaces &&
        ((to & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0 || IsSameFile(source, target)))
        return CopyOutcome::LeftOut;
    return CopyToNewName(source, target, replaces);
}

Rewriting RewriteBy(const std::wstring& source, const std::wstring& target) {
    const DWORD from = ::GetFileAttributesW(source.c_str());
    if (from == INVALID_FILE_ATTRIBUTES || (from & FILE_ATTRIBUTE_DIRECTORY) != 0 ||
        IsSameFile(source, target))
        return Rewriting::NotBegun;
    return ::CopyFileW(source.c_str(), target.c_str(), FALSE) && Flush(target) ? Rewriting::Done
                                                                               : Rewriting::Unfinished;
}

}  // namespace QsPlatform
