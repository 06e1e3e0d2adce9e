#include "QsUtils/platform/posix/DirectoryReader.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/types.h>

namespace QsPlatform {

bool DirectoryReader::Fill() noexcept {
    const ssize_t got = ::getdents64(m_folder, m_buffer, BufferSize);
    m_at = 0;
    m_end = got > 0 ? static_cast<std::size_t>(got) : 0;
    return m_end > 0;
}

bool LeadsToFolder(int folder, const dirent64& entry) noexcept {
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN)
        return entry.d_type == DT_DIR;
    struct stat status {};
    return ::fstatat(folder, entry.d_name, &status, 0) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace QsPlatform
