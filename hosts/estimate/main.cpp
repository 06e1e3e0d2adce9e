// estimate: prices a bill of quantities from the command line.
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include <unistd.h>

#include "Commands.h"

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    const Estimate::Streams streams{std::cin, std::cout, std::cerr, isatty(STDERR_FILENO) != 0};
    try {
        return Estimate::Run(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc), streams);
    } catch (const std::exception& error) {
        std::cerr << "estimate: " << error.what() << '\n';
        return Estimate::CannotRun;
    }
}
