#include "QsUtils/platform/Folders.h"

#include "QsUtils/platform/win32/SystemPath.h"
#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

bool IsFolder(const CString& path) {
    const DWORD attributes = ::GetFileAttributesW(SystemPath(path).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool CreateFolder(const CString& path) {
    return ::CreateDirectoryW(SystemPath(path).c_str(), nullptr) != 0;
}

bool RemoveFolder(const CString& path) {
    return ::RemoveDirectoryW(SystemPath(path).c_str()) != 0;
}

}  // namespace QsPlatform
