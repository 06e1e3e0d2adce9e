#include "QsUtils/platform/FileReplacement.h"

#include <algorithm>
#include <string>
#include <utility>

#include "QsUtils/platform/NativePath.h"
#include "QsUtils/platform/win32/FileErrors.h"
#include "QsUtils/platform/win32/LinkTarget.h"
#include "QsUtils/platform/win32/TemporaryName.h"
#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

namespace {

namespace fs = std::filesystem;

/// What a new version takes over from the old one.
constexpr DWORD KeptAttributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                                 FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

}  // namespace

bool FileReplacement::Begin(const CString& path) {
    m_target = ToNativePath(path);
    if (!m_target.has_filename() || m_target.native().find(L'\0') != std::wstring::npos)
        return Fail(FileFailure::Other);
    DWORD attributes = ::GetFileAttributesW(m_target.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
        m_target = fs::path(FollowLink(m_target.native()));
        attributes = ::GetFileAttributesW(m_target.c_str());
    }
    const bool exists = attributes != INVALID_FILE_ATTRIBUTES;
    if (!exists && ::GetLastError() != ERROR_FILE_NOT_FOUND)
        return Fail(FailureOf(::GetLastError(), FileFailure::MissingFolder));
    if (exists && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return Fail(FileFailure::NotAFile);
    if (exists && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
        return Fail(FileFailure::ReadOnlyTarget);
    const DWORD kept = exists ? attributes & KeptAttributes : 0;
    for (int names = 0; m_file == NoFile && names < MostNames; ++names) {
        fs::path beside = m_target.parent_path() / TemporaryName();
        m_file = reinterpret_cast<std::intptr_t>(
            ::CreateFileW(beside.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                          kept != 0 ? kept : FILE_ATTRIBUTE_NORMAL, nullptr));
        if (m_file != NoFile)
            m_temporary = std::move(beside);
        else if (::GetLastError() != ERROR_FILE_EXISTS)
            break;
    }
    if (m_file == NoFile)
        return Fail(FailureOf(::GetLastError(), FileFailure::MissingFolder));
    return true;
}

bool FileReplacement::Write(const void* bytes, std::size_t count) noexcept {
    if (m_ended)
        return false;
    const char* from = static_cast<const char*>(bytes);
    while (count > 0) {
        const auto part = static_cast<DWORD>(std::min(count, LargestPart));
        DWORD written = 0;
        if (!::WriteFile(SystemHandle(m_file), from, part, &written, nullptr))
            return Fail(FailureOf(::GetLastError(), FileFailure::Other));
        if (written == 0)
            return Fail(FileFailure::DiskFull);
        from += written;
        count -= written;
    }
    return true;
}

bool FileReplacement::Commit() noexcept {
    if (m_ended)
        return false;
    // Flushed before it gets the name: after a loss of power the name must not stand for an empty file.
    if (!::FlushFileBuffers(SystemHandle(m_file)))
        return Fail(FailureOf(::GetLastError(), FileFailure::Other));
    if (!::CloseHandle(SystemHandle(std::exchange(m_file, NoFile))))
        return Fail(FailureOf(::GetLastError(), FileFailure::Other));
    if (!::MoveFileExW(m_temporary.c_str(), m_target.c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        return Fail(FailureOf(::GetLastError(), FileFailure::MissingFolder));
    m_ended = true;
    m_temporary.clear();
    return true;
}

void FileReplacement::Discard() noexcept {
    m_ended = true;
    if (m_file != NoFile)
        ::CloseHandle(SystemHandle(std::exchange(m_file, NoFile)));
    if (!m_temporary.empty()) {
        ::DeleteFileW(m_temporary.c_str());
        m_temporary.clear();
    }
}

}  // namespace QsPlatform
