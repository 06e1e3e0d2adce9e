#include "Terminal.h"

#include <unistd.h>

namespace Estimate {

Terminal::Terminal() = default;

Terminal::~Terminal() = default;

bool Terminal::IsWatched() const {
    return isatty(STDERR_FILENO) != 0;
}

std::vector<std::string> Terminal::Arguments(int argc, char** argv) {
    return std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc);
}

}  // namespace Estimate
