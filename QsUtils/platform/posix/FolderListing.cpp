#include "QsUtils/platform/FolderListing.h"

#include <memory>
#include <string>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>

#include "QsUtils/platform/Utf8.h"
#include "QsUtils/platform/posix/DirectoryReader.h"
#include "QsUtils/platform/posix/FileErrors.h"
#include "QsUtils/platform/posix/FolderPath.h"

namespace QsPlatform {

namespace {

/// Only the root is its own parent.
bool IsRoot(int folder) {
    struct stat own {};
    struct stat parent {};
    return ::fstat(folder, &own) == 0 && ::fstatat(folder, "..", &parent, 0) == 0 &&
           own.st_dev == parent.st_dev && own.st_ino == parent.st_ino;
}

}  // namespace

std::vector<FolderEntry> ListFolder(const CString& folder, const NameMask& mask, std::size_t most) {
    std::vector<FolderEntry> entries;
    const FolderPath path(folder);
    if (!path.IsGood())
        return entries;
    const FileDescriptor opened(::openat(path.Base(), path.Rest(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened.IsOpen())
        return entries;
    const std::unique_ptr<char[]> buffer(new char[DirectoryReader::BufferSize]);
    DirectoryReader reader(opened.Number(), buffer.get());
    while (const dirent64* const entry = entries.size() < most ? reader.Next() : nullptr) {
        std::u16string name = DecodeUtf8(entry->d_name);
        if (!mask.Matches(name))
            continue;
        const bool isDots = IsDots(name);
        if (isDots && IsRoot(opened.Number()))
            continue;
        entries.push_back({CString(std::move(name)), LeadsToFolder(opened.Number(), *entry), isDots});
    }
    return entries;
}

std::optional<FolderEntry> FindEntry(const CString& path) {
    const FolderPath entry(path);
    struct stat status {};
    if (!entry.IsGood() || entry.EndsAsFolder() ||
        ::fstatat(entry.Base(), entry.Rest(), &status, AT_SYMLINK_NOFOLLOW) != 0)
        return std::nullopt;
    const bool isFolder = S_ISDIR(status.st_mode) ||
                          (S_ISLNK(status.st_mode) &&
                           ::fstatat(entry.Base(), entry.Rest(), &status, 0) == 0 && S_ISDIR(status.st_mode));
    CString name = path.Mid(path.ReverseFind(u'\\') + 1);
    const bool isDots = IsDots(name.View());
    return FolderEntry{std::move(name), isFolder, isDots};
}

}  // namespace QsPlatform
