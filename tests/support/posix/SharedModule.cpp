#include "tests/support/SharedModule.h"

#include <fstream>

#include <dlfcn.h>
#include <malloc.h>

namespace {

template <typename Count>
std::size_t CountMapLines(Count isCounted) {
    std::ifstream maps("/proc/self/maps");
    std::size_t count = 0;
    for (std::string line; std::getline(maps, line);)
        count += isCounted(line);
    return count;
}

}  // namespace

SharedModule::SharedModule(const std::filesystem::path& path)
    : m_handle(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL)) {
    if (m_handle == nullptr)
        throw std::runtime_error(dlerror());
}

SharedModule::~SharedModule() {
    dlclose(m_handle);
}

void* SharedModule::Address(const char* name) const {
    void* const address = dlsym(m_handle, name);
    if (address == nullptr)
        throw std::runtime_error(dlerror());
    return address;
}

bool IsInProcess(const std::filesystem::path& path) {
    // The loaded file has the version behind its name.
    const std::string name = "/" + path.filename().string();
    return CountMapLines([&](const std::string& line) { return line.find(name) != std::string::npos; }) > 0;
}

std::size_t CountMappings() {
    return CountMapLines([](const std::string&) { return true; });
}

std::size_t HeapInUse() {
    return mallinfo2().uordblks;
}
