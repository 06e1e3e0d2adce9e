#include "QsUtils/platform/FolderCopying.h"

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>

#include "QsUtils/platform/posix/FileCopy.h"
#include "QsUtils/platform/posix/HeldFolder.h"
#include "QsUtils/platform/posix/Replacing.h"

namespace QsPlatform {

void MakeEntryWritable(const HeldFolder& folder, const NativeName& name) {
    struct stat status {};
    if (::fstatat(folder.Number(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
        !S_ISLNK(status.st_mode) && (status.st_mode & S_IWUSR) == 0)
        static_cast<void>(::fchmodat(folder.Number(), name.c_str(), (status.st_mode & 07777) | S_IWUSR, 0));
}

bool FillsFoldersUnseen() noexcept {
    return true;
}

NativeName UnseenName() {
    return TemporaryName();
}

bool RenameFolder(const HeldFolder& parent, const NativeName& from, const NativeName& to) {
    if (::renameat2(parent.Number(), from.c_str(), parent.Number(), to.c_str(), RENAME_NOREPLACE) == 0)
        return true;
    // Not every file system can do it; the name of an empty folder may be taken then.
    return (errno == EINVAL || errno == ENOSYS) &&
           ::renameat(parent.Number(), from.c_str(), parent.Number(), to.c_str()) == 0;
}

FileCopier::FileCopier(bool copiesMarks) : m_copiesMarks(copiesMarks), m_buffer(new char[CopyBufferSize]) {}

FileCopier::~FileCopier() = default;

CopyOutcome FileCopier::Copy(const HeldFolder& source, const CopiedFile& file, const HeldFolder& target,
                             bool isUnseen) {
    CopyOptions options;
    options.followsSource = file.isLink;
    options.makesSourceWritable = !file.isLink;
    options.isTargetUnseen = isUnseen;
    options.copiesMark = m_copiesMarks;
    return CopyBetween({source.Number(), file.name}, {target.Number(), file.name}, options, m_buffer.get());
}

}  // namespace QsPlatform
