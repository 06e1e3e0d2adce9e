#include "tests/support/SharedModule.h"

#include <windows.h>
#include <malloc.h>
#include <psapi.h>

SharedModule::SharedModule(const std::filesystem::path& path) : m_handle(::LoadLibraryW(path.c_str())) {
    if (m_handle == nullptr)
        throw std::runtime_error("the module can't be loaded: " + path.string());
}

SharedModule::~SharedModule() {
    ::FreeLibrary(static_cast<HMODULE>(m_handle));
}

void* SharedModule::Address(const char* name) const {
    const auto address = ::GetProcAddress(static_cast<HMODULE>(m_handle), name);
    if (address == nullptr)
        throw std::runtime_error(std::string("the module has no ") + name);
    return reinterpret_cast<void*>(address);
}

bool IsInProcess(const std::filesystem::path& path) {
    return ::GetModuleHandleW(path.filename().c_str()) != nullptr;
}

std::size_t CountMappings() {
    DWORD bytes = 0;
    HMODULE first = nullptr;
    ::EnumProcessModules(::GetCurrentProcess(), &first, sizeof first, &bytes);
    return bytes / sizeof first;
}

std::size_t HeapInUse() {
    std::size_t bytes = 0;
    _HEAPINFO entry{};
    while (_heapwalk(&entry) == _HEAPOK) {
        if (entry._useflag == _USEDENTRY)
            bytes += entry._size;
    }
    return bytes;
}
