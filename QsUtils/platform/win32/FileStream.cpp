#include "QsUtils/platform/FileStream.h"

#include <algorithm>
#include <string>

#include "QsUtils/platform/NativePath.h"
#include "QsUtils/platform/win32/FileErrors.h"
#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

FileStream::FileStream(const CString& path) : m_failure(Open(path)) {}

FileStream::~FileStream() {
    if (m_file != NoFile)
        ::CloseHandle(SystemHandle(m_file));
}

FileFailure FileStream::Open(const CString& path) {
    const std::wstring native = ToNativePath(path).native();
    if (native.find(L'\0') != std::wstring::npos)
        return FileFailure::MissingFile;  // no file has a name with a NUL
    const DWORD attributes = ::GetFileAttributesW(native.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return FailureOf(::GetLastError(), FileFailure::MissingFile);
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return FileFailure::NotAFile;
    const HANDLE file =
        ::CreateFileW(native.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                      nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return FailureOf(::GetLastError(), FileFailure::MissingFile);
    m_file = reinterpret_cast<std::intptr_t>(file);
    LARGE_INTEGER size{};
    if (::GetFileType(file) != FILE_TYPE_DISK)
        return FileFailure::NotAFile;
    if (!::GetFileSizeEx(file, &size))
        return FailureOf(::GetLastError(), FileFailure::Other);
    m_size = static_cast<std::uint64_t>(size.QuadPart);
    return FileFailure::None;
}

std::size_t FileStream::Read(void* bytes, std::size_t count) noexcept {
    if (m_failure != FileFailure::None)
        return 0;
    DWORD got = 0;
    if (::ReadFile(SystemHandle(m_file), bytes, static_cast<DWORD>(std::min(count, LargestPart)), &got,
                   nullptr))
        return got;
    m_failure = FailureOf(::GetLastError(), FileFailure::Other);
    return 0;
}

}  // namespace QsPlatform
