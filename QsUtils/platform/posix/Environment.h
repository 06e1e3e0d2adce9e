// What the user's environment says.
#pragma once

#include <cstdlib>
#include <string_view>

namespace QsPlatform {

/// The value of a variable, valid until somebody changes the environment; empty when there is none.
inline std::string_view EnvironmentVariable(const char* name) {
    // The library never changes the environment, and a host that does while others read it is lost anyway.
    const char* const value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe)
    return value == nullptr ? std::string_view() : std::string_view(value);
}

}  // namespace QsPlatform
