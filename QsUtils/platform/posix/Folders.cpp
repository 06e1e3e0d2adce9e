#include "QsUtils/platform/Folders.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "QsUtils/platform/NativePath.h"
#include "QsUtils/platform/posix/FileErrors.h"
#include "QsUtils/platform/posix/FolderPath.h"

namespace QsPlatform {

bool IsFolder(const CString& path) {
    const FolderPath folder(path);
    struct stat status {};
    return folder.IsGood() && ::fstatat(folder.Base(), folder.Rest(), &status, 0) == 0 &&
           S_ISDIR(status.st_mode);
}

bool IsRootFolder(const CString& path) {
    const FolderPath folder(path);
    struct stat own {};
    struct stat root {};
    return folder.IsGood() && ::fstatat(folder.Base(), folder.Rest(), &own, 0) == 0 &&
           ::stat("/", &root) == 0 && own.st_dev == root.st_dev && own.st_ino == root.st_ino;
}

bool IsLink(const CString& path) {
    const FolderPath entry(path);
    struct stat status {};
    return entry.IsGood() && ::fstatat(entry.Base(), entry.Rest(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
           S_ISLNK(status.st_mode);
}

bool CreateFolder(const CString& path, bool* lacksRoom) {
    const FolderPath folder(path);
    const bool isMade = folder.IsGood() && ::mkdirat(folder.Base(), folder.Rest(), 0777) == 0;
    if (lacksRoom != nullptr)
        *lacksRoom = !isMade && folder.IsGood() && IsWantOfRoom(errno);
    return isMade;
}

bool RemoveFolder(const CString& path) {
    const FolderPath folder(path);
    if (!folder.IsGood())
        return false;
    if (::unlinkat(folder.Base(), folder.Rest(), AT_REMOVEDIR) == 0)
        return true;
    return IsLink(path) && IsFolder(path) && ::unlinkat(folder.Base(), folder.Rest(), 0) == 0;
}

CString AbsolutePath(const CString& path) {
    if (path.Left(1) == u"\\" || path.Left(1) == u"/")
        return path;
    std::error_code error;
    CString folder = FromNativePath(std::filesystem::current_path(error));
    if (error)
        return path;
    return folder.Right(1) == u"\\" ? folder + path : folder + u'\\' + path;
}

}  // namespace QsPlatform
