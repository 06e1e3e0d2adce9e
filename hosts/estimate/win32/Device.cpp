#include "Device.h"

#include <windows.h>

namespace Estimate {

// No folder lists a device of this system: its name opens it wherever one stands.
bool IsDevice(const std::filesystem::path& path) {
    const HANDLE file = ::CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                      nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    const bool isFile = ::GetFileType(file) == FILE_TYPE_DISK;
    ::CloseHandle(file);
    return !isFile;
}

}  // namespace Estimate
