#include "tests/support/ExportedSymbols.h"

#include <cstddef>

#include <windows.h>

// The export table of the module as it lies in memory. No symbol of this system is bound for a whole process.
std::vector<ExportedSymbol> ExportedSymbols(const std::filesystem::path& module) {
    std::vector<ExportedSymbol> symbols;
    const HMODULE handle = ::LoadLibraryW(module.c_str());
    if (handle == nullptr)
        return symbols;
    const auto* const base = reinterpret_cast<const std::byte*>(handle);
    const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* const image = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const DWORD place = image->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT].VirtualAddress;
    const auto* const table = reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(base + place);
    const auto* const names = reinterpret_cast<const DWORD*>(base + table->AddressOfNames);
    for (DWORD i = 0; i < table->NumberOfNames; ++i) {
        const std::string symbol = reinterpret_cast<const char*>(base + names[i]);
        symbols.push_back({symbol, Demangled(symbol), false});
    }
    ::FreeLibrary(handle);
    return symbols;
}

std::set<std::string> SystemNamesOfModule() {
    return {};
}
