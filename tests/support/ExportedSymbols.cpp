#include "tests/support/ExportedSymbols.h"

#include <cstdlib>
#include <memory>

#include <cxxabi.h>

std::string Demangled(const std::string& symbol) {
    int status = -1;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(symbol.c_str(), nullptr, nullptr, &status), std::free);
    return status == 0 ? name.get() : symbol;
}
