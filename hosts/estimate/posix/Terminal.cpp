#include "Terminal.h"

#include <cstdlib>
#include <string_view>

#include <unistd.h>

namespace Estimate {

Terminal::Terminal() = default;

Terminal::~Terminal() = default;

bool Terminal::IsWatched() const {
    const char* const kind = std::getenv("TERM");
    return isatty(STDERR_FILENO) != 0 && kind != nullptr && *kind != '\0' && std::string_view(kind) != "dumb";
}

std::vector<std::string> Terminal::Arguments(int argc, char** argv) {
    return std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc);
}

}  // namespace Estimate
