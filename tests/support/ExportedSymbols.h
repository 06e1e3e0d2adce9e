// The symbols that a built module offers to others.
#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <vector>

struct ExportedSymbol {
    /// Demangled.
    std::string name;
    /// Bound once for the whole process, so that the module can never leave it.
    bool isUnique = false;
};

std::vector<ExportedSymbol> ExportedSymbols(const std::filesystem::path& module);

/// The functions of another system that the library brings along where they are missing.
std::set<std::string> SystemNamesOfModule();
