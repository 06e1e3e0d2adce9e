#include "QsUtils/platform/FileContent.h"

#include <algorithm>
#include <string>
#include <utility>

#include "QsUtils/platform/NativePath.h"
#include "QsUtils/platform/win32/FileErrors.h"
#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

namespace {

/// At first asked of a file whose size the system doesn't tell.
constexpr std::size_t FirstPart = 4096;
/// The most that one call reads.
constexpr std::size_t LargestPart = std::size_t{1} << 26;

FileFailure ReadToEnd(HANDLE file, std::size_t size, std::size_t limit, std::string& bytes) {
    if (size > limit)
        return FileFailure::TooLarge;
    // One byte more than the file has, so that its end is met without growing.
    bytes.resize(std::max(size + 1, FirstPart));
    std::size_t used = 0;
    for (;;) {
        if (used == bytes.size())
            bytes.resize(used * 2);
        const auto wanted = static_cast<DWORD>(std::min(bytes.size() - used, LargestPart));
        DWORD count = 0;
        if (!::ReadFile(file, bytes.data() + used, wanted, &count, nullptr))
            return FailureOf(::GetLastError(), FileFailure::Other);
        if (count == 0)
            break;
        used += count;
        if (used > limit)
            return FileFailure::TooLarge;
    }
    bytes.resize(used);
    return FileFailure::None;
}

FileFailure Read(const CString& path, std::size_t limit, std::string& bytes) {
    const std::wstring native = ToNativePath(path).native();
    if (native.find(L'\0') != std::wstring::npos)
        return FileFailure::MissingFile;  // no file has a name with a NUL
    const DWORD attributes = ::GetFileAttributesW(native.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return FailureOf(::GetLastError(), FileFailure::MissingFile);
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return FileFailure::NotAFile;
    // Others may write, rename or remove the file meanwhile: a reader stands in nobody's way.
    const FileHandle file(::CreateFileW(native.c_str(), GENERIC_READ,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                        OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!file.IsOpen())
        return FailureOf(::GetLastError(), FileFailure::MissingFile);
    if (::GetFileType(file.Get()) != FILE_TYPE_DISK)
        return FileFailure::NotAFile;
    LARGE_INTEGER size{};
    if (!::GetFileSizeEx(file.Get(), &size))
        return FailureOf(::GetLastError(), FileFailure::Other);
    return ReadToEnd(file.Get(), static_cast<std::size_t>(size.QuadPart), limit, bytes);
}

}  // namespace

std::optional<std::string> ReadWholeFile(const CString& path, FileFailure* failure, std::size_t limit) {
    std::string bytes;
    const FileFailure outcome = Read(path, limit, bytes);
    if (failure != nullptr)
        *failure = outcome;
    if (outcome != FileFailure::None)
        return std::nullopt;
    return std::optional<std::string>(std::move(bytes));
}

}  // namespace QsPlatform
