#include "QsUtils/platform/FolderCopying.h"

#include <fcntl.h>
#include <sys/stat.h>

#include "QsUtils/platform/posix/FileCopy.h"
#include "QsUtils/platform/posix/HeldFolder.h"

namespace QsPlatform {

void MakeEntryWritable(const HeldFolder& folder, const NativeName& name) {
    struct stat status {};
    if (::fstatat(folder.Number(), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) == 0 &&
        !S_ISLNK(status.st_mode) && (status.st_mode & S_IWUSR) == 0)
        static_cast<void>(::fchmodat(folder.Number(), name.c_str(), (status.st_mode & 07777) | S_IWUSR, 0));
}

FileCopier::FileCopier() : m_buffer(new char[CopyBufferSize]) {}

FileCopier::~FileCopier() = default;

CopyOutcome FileCopier::Copy(const HeldFolder& source, const CopiedFile& file, const HeldFolder& target,
                             bool isUnseen) {
    CopyOptions options;
    options.followsSource = file.isLink;
    options.makesSourceWritable = !file.isLink;
    options.isTargetUnseen = isUnseen;
    return CopyBetween({source.Number(), file.name}, {target.Number(), file.name}, options, m_buffer.get());
}

}  // namespace QsPlatform
