#include "companion/Disk.h"

#include <fstream>
#include <iterator>
#include <system_error>

#include "companion/System.h"

namespace Companion {

std::optional<std::string> SystemDisk::Read(const std::wstring& path) const {
    if (!HasFile(path))
        return std::nullopt;
    std::ifstream file(NativePath(path), std::ios::binary);
    if (!file.is_open())
        return std::nullopt;
    std::string bytes(std::istreambuf_iterator<char>(file), {});
    if (file.bad())
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
