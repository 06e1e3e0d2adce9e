#include "QsUtils/platform/UserFolders.h"

#include <array>

#include <shlobj.h>

#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

namespace {

static_assert(PathBuffer == MAX_PATH);

using Buffer = std::array<wchar_t, MAX_PATH>;

/// What a call has left in the buffer, `length` being what it returned: of a buffer that is too small it
/// tells the size that it wants.
CString Filled(const Buffer& buffer, DWORD length) {
    return length < buffer.size() ? CString(buffer.data(), static_cast<int>(length)) : CString();
}

}  // namespace

CString TemporaryFolder() {
    Buffer buffer{};
    return Filled(buffer, ::GetTempPathW(MAX_PATH, buffer.data()));
}

CString CurrentFolder() {
    Buffer buffer{};
    return Filled(buffer, ::GetCurrentDirectoryW(MAX_PATH, buffer.data()));
}

CString DocumentsFolder() {
    Buffer buffer{};
    if (::SHGetSpecialFolderPathW(nullptr, buffer.data(), CSIDL_PERSONAL, FALSE) == FALSE)
        return CString();
    return CString(buffer.data());
}

}  // namespace QsPlatform
