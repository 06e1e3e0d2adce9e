#include "Device.h"

#include <system_error>

namespace Estimate {

bool IsDevice(const std::filesystem::path& path) {
    std::error_code error;
    return std::filesystem::exists(path, error) && !std::filesystem::is_regular_file(path, error);
}

}  // namespace Estimate
