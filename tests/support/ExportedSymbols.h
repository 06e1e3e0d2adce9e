// The symbols that a built module offers to others.
#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <vector>

struct ExportedSymbol {
    /// As the linker has it.
    std::string symbol;
    /// Demangled.
    std::string name;
    /// Bound once for the whole process, so that the module can never leave it.
    bool isUnique = false;
};

std::vector<ExportedSymbol> ExportedSymbols(const std::filesystem::path& module);

/// The name that a symbol of the linker stands for; what is none of a C++ name stays.
std::string Demangled(const std::string& symbol);

/// The functions of another system that the library brings along where they are missing.
std::set<std::string> SystemNamesOfModule();
