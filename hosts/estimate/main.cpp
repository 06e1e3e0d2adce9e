// estimate: prices a bill of quantities from the command line.
#include <exception>
#include <iostream>

#include "Commands.h"
#include "Refusal.h"
#include "Terminal.h"

int main(int argc, char** argv) {
    using namespace Estimate;
    std::ios::sync_with_stdio(false);
    const Terminal terminal;
    const Streams streams{std::cin, std::cout, std::cerr, terminal.IsWatched(),
                          LanguageOfEnvironment().value_or(LanguageOfSystem())};
    try {
        return Run(Terminal::Arguments(argc, argv), streams);
    } catch (const std::exception& error) {
        Refuse(streams, Say<Text::StoppedByError>(std::string_view(error.what())));
        return CannotRun;
    }
}
