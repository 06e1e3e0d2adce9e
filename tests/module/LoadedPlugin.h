// The plug-in, loaded for the life of an object; its functions by name.
#pragma once

#include <fstream>
#include <stdexcept>
#include <string>

#include <dlfcn.h>

#include "tests/module/Plugin.h"

class LoadedPlugin {
public:
    LoadedPlugin() : m_module(dlopen(QSUTILS_PLUGIN, RTLD_NOW | RTLD_LOCAL)) {
        if (m_module == nullptr)
            throw std::runtime_error(dlerror());
    }
    LoadedPlugin(const LoadedPlugin&) = delete;
    LoadedPlugin& operator=(const LoadedPlugin&) = delete;
    ~LoadedPlugin() { dlclose(m_module); }

    /// The function of that name; `F` is its type.
    template <typename F>
    F* Function(const char* name) const {
        void* address = dlsym(m_module, name);
        if (address == nullptr)
            throw std::runtime_error(dlerror());
        return reinterpret_cast<F*>(address);
    }

private:
    void* m_module;
};

#define PLUGIN_FUNCTION(plugin, name) ((plugin).Function<decltype(name)>(#name))

/// How many lines of the process's memory map hold `part`.
inline int MappingsOf(const std::string& part) {
    std::ifstream maps("/proc/self/maps");
    int count = 0;
    for (std::string line; std::getline(maps, line);)
        count += line.find(part) != std::string::npos;
    return count;
}
