#include "tests/support/ExportedSymbols.h"

#include <cstdlib>
#include <memory>

#include <windows.h>
#include <cxxabi.h>

namespace {

std::string Demangled(const char* symbol) {
    int status = -1;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(symbol, nullptr, nullptr, &status), std::free);
    return status == 0 ? name.get() : symbol;
}

}  // namespace

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
    for (DWORD i = 0; i < table->NumberOfNames; ++i)
        symbols.push_back({Demangled(reinterpret_cast<const char*>(base + names[i])), false});
    ::FreeLibrary(handle);
    return symbols;
}

std::set<std::string> SystemNamesOfModule() {
    return {};
}
