#include "companion/Disk.h"

#include <cstdio>
#include <memory>
#include <system_error>

#include "companion/System.h"

namespace Companion {

std::optional<std::string> SystemDisk::Read(const std::wstring& path) const {
    if (!HasFile(path))
        return std::nullopt;
    std::FILE* const file = OpenToRead(path);
    if (file == nullptr)
        return std::nullopt;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> closed(file, std::fclose);
    std::string bytes;
    char piece[16'384];
    for (std::size_t size = 0; (size = std::fread(piece, 1, sizeof piece, file)) > 0;)
        bytes.append(piece, size);
    if (std::ferror(file) != 0)
        return std::nullopt;
    return bytes;
}

bool SystemDisk::HasFile(const std::wstring& path) const {
    std::error_code error;
    return std::filesystem::is_regular_file(NativePath(path), error);
}

bool SystemDisk::HasFolder(const std::wstring& path) const {
    std::error_code error;
    return std::filesystem::is_directory(NativePath(path), error);
}

}  // namespace Companion
