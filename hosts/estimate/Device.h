#pragma once

#include <filesystem>

namespace Estimate {

/// Whether a path names a device or a pipe, which can be written to but not replaced by a file.
bool IsDevice(const std::filesystem::path& path);

}  // namespace Estimate
