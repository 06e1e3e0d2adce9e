#include "tests/support/Devices.h"

std::string NullDevice() {
    return "NUL";
}

std::optional<std::string> FullDevice() {
    return std::nullopt;
}
