#include "QsUtils/platform/AppendedFile.h"

#include <algorithm>
#include <string>
#include <utility>

#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

namespace {

/// As the runtime's streams share a file.
HANDLE OpenFile(const std::filesystem::path& path, DWORD disposition) {
    return ::CreateFileW(path.c_str(), GENERIC_READ | FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                         nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

}  // namespace

AppendedFile::AppendedFile(const std::filesystem::path& path) noexcept : m_path(path), m_state(Open()) {}

AppendedFile::~AppendedFile() {
    Close();
}

void AppendedFile::Close() noexcept {
    if (m_file != NoFile)
        ::CloseHandle(SystemHandle(std::exchange(m_file, NoFile)));
}

AppendedFile::State AppendedFile::Open() noexcept {
    if (m_path.native().find(L'\0') != std::wstring::npos)
        return State::NotCreated;  // no file has a name with a NUL
    const HANDLE file = OpenFile(m_path, OPEN_ALWAYS);
    if (file == INVALID_HANDLE_VALUE)
        return Refused();
    m_file = reinterpret_cast<std::intptr_t>(file);
    BY_HANDLE_FILE_INFORMATION data{};
    if (::GetFileType(file) != FILE_TYPE_DISK || !::GetFileInformationByHandle(file, &data)) {
        Close();
        return State::NotOpened;
    }
    m_size = (std::uint64_t{data.nFileSizeHigh} << 32) | data.nFileSizeLow;
    // Not every implementation of the system refuses by itself a file marked so.
    if ((data.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0) {
        Close();
        return State::NotOpened;
    }
    return State::Open;
}

AppendedFile::State AppendedFile::Refused() noexcept {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!::GetFileAttributesExW(m_path.c_str(), GetFileExInfoStandard, &data))
        return State::NotCreated;
    m_size = (std::uint64_t{data.nFileSizeHigh} << 32) | data.nFileSizeLow;
    return State::NotOpened;
}

AppendedFile::Renewal AppendedFile::Renew() noexcept {
    Close();
    if (!::DeleteFileW(m_path.c_str()))
        return Renewal::NotRemoved;
    const HANDLE file = OpenFile(m_path, CREATE_ALWAYS);
    m_size = 0;
    if (file == INVALID_HANDLE_VALUE)
        return Renewal::NotCreated;
    m_file = reinterpret_cast<std::intptr_t>(file);
    return Renewal::Done;
}

bool AppendedFile::Write(const void* bytes, std::size_t count) noexcept {
    const char* next = static_cast<const char*>(bytes);
    while (count > 0) {
        DWORD written = 0;
        if (!::WriteFile(SystemHandle(m_file), next, static_cast<DWORD>(std::min(count, LargestPart)),
                         &written, nullptr) ||
            written == 0)
            return false;
        next += written;
        count -= written;
    }
    return true;
}

}  // namespace QsPlatform
