// Files that are none.
#pragma once

#include <optional>
#include <string>

/// Takes everything and keeps nothing.
std::string NullDevice();

/// Refuses every byte as a full disk does; not every system has one.
std::optional<std::string> FullDevice();
