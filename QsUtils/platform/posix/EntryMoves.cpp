#include "QsUtils/platform/EntryMoves.h"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "QsUtils/platform/posix/FolderPath.h"

namespace QsPlatform {

namespace {

bool Rename(const FolderPath& from, const FolderPath& to, unsigned flags) {
    return ::renameat2(from.Base(), from.Rest(), to.Base(), to.Rest(), flags) == 0;
}

}  // namespace

bool MoveEntry(const CString& from, const CString& to) {
    const FolderPath source(from);
    const FolderPath target(to);
    if (!source.IsGood() || !target.IsGood())
        return false;
    if (Rename(source, target, RENAME_NOREPLACE))
        return true;
    if (errno != EINVAL && errno != ENOSYS)
        return false;
    // A file system without that step: whoever makes the name in this moment loses an empty folder or a file.
    struct stat status {};
    return ::fstatat(target.Base(), target.Rest(), &status, AT_SYMLINK_NOFOLLOW) != 0 && errno == ENOENT &&
           Rename(source, target, 0);
}

bool MoveFileOver(const CString& from, const CString& to) {
    const FolderPath source(from);
    const FolderPath target(to);
    return source.IsGood() && target.IsGood() && Rename(source, target, 0);
}

bool ExchangeEntries(const CString& a, const CString& b) {
    const FolderPath one(a);
    const FolderPath other(b);
    return one.IsGood() && other.IsGood() && Rename(one, other, RENAME_EXCHANGE);
}

bool FlushFileSystem(const CString& folder) {
    const FolderPath path(folder);
    if (!path.IsGood())
        return false;
    const FileDescriptor opened(::openat(path.Base(), path.Rest(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return opened.IsOpen() && ::syncfs(opened.Number()) == 0;
}

}  // namespace QsPlatform
