// estimate: prices a bill of quantities from the command line.
#include <exception>
#include <iostream>

#include "Commands.h"
#include "Terminal.h"

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    const Estimate::Terminal terminal;
    const Estimate::Streams streams{std::cin, std::cout, std::cerr, terminal.IsWatched()};
    try {
        return Estimate::Run(Estimate::Terminal::Arguments(argc, argv), streams);
    } catch (const std::exception& error) {
        std::cerr << "estimate: " << error.what() << '\n';
        return Estimate::CannotRun;
    }
}
