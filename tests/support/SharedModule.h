// A shared library or DLL as a process sees it.
#pragma once

#include <cstddef>
#include <filesystem>
#include <stdexcept>
#include <string>

/// Loaded for the life of the object. Raises `std::runtime_error` when it can't be loaded.
class SharedModule {
public:
    explicit SharedModule(const std::filesystem::path& path);
    SharedModule(const SharedModule&) = delete;
    SharedModule& operator=(const SharedModule&) = delete;
    ~SharedModule();

    /// The function of that name; `F` is its type.
    template <typename F>
    F* Function(const char* name) const {
        return reinterpret_cast<F*>(Address(name));
    }

private:
    void* Address(const char* name) const;

    void* m_handle;
};

/// Whether a module whose file is named like `path` is in this process.
bool IsInProcess(const std::filesystem::path& path);

/// How many pieces of modules and memory the process has; what is left behind makes it grow.
std::size_t CountMappings();

/// Bytes of the heap that are in use.
std::size_t HeapInUse();
