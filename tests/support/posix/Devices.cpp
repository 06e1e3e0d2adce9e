#include "tests/support/Devices.h"

std::string NullDevice() {
    return "/dev/null";
}

std::optional<std::string> FullDevice() {
    return "/dev/full";
}
