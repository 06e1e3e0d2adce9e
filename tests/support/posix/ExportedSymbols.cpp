#include "tests/support/ExportedSymbols.h"

#include <sstream>

#include "tests/support/ChildProcess.h"

std::vector<ExportedSymbol> ExportedSymbols(const std::filesystem::path& module) {
    const ProgramResult listing = RunProgram({"nm", {"-D", "--defined-only", module.string()}, {}, {}});
    std::istringstream lines(listing.out);
    std::vector<ExportedSymbol> symbols;
    // Each line is: address, blank, type, blank, name.
    for (std::string line; std::getline(lines, line);) {
        const std::size_t blank = line.find(' ');
        if (blank == std::string::npos || line.size() <= blank + 3)
            continue;
        const std::string symbol = line.substr(blank + 3);
        symbols.push_back({symbol, Demangled(symbol), line[blank + 1] == 'u'});
    }
    return symbols;
}

std::set<std::string> SystemNamesOfModule() {
    return {"CloseHandle(void*)", "WaitForSingleObject(void*, std::uint32_t)"};
}
