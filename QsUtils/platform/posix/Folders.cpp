#include "QsUtils/platform/Folders.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "QsUtils/platform/posix/FolderPath.h"

namespace QsPlatform {

bool IsFolder(const CString& path) {
    const FolderPath folder(path);
    struct stat status {};
    return folder.IsGood() && ::fstatat(folder.Base(), folder.Rest(), &status, 0) == 0 &&
           S_ISDIR(status.st_mode);
}

bool CreateFolder(const CString& path) {
    const FolderPath folder(path);
    return folder.IsGood() && ::mkdirat(folder.Base(), folder.Rest(), 0777) == 0;
}

bool RemoveFolder(const CString& path) {
    const FolderPath folder(path);
    if (!folder.IsGood())
        return false;
    if (::unlinkat(folder.Base(), folder.Rest(), AT_REMOVEDIR) == 0)
        return true;
    struct stat status {};
    const bool isLink =
        ::fstatat(folder.Base(), folder.Rest(), &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(status.st_mode);
    return isLink && ::fstatat(folder.Base(), folder.Rest(), &status, 0) == 0 && S_ISDIR(status.st_mode) &&
           ::unlinkat(folder.Base(), folder.Rest(), 0) == 0;
}

}  // namespace QsPlatform
