// Modules loaded at run time: contract.
#pragma once

#include "QsUtils/text/CString.h"

namespace QsPlatform {

/// A module loaded at run time, released when the object goes. One object is for one thread at a time.
class DynamicModule {
public:
    DynamicModule() noexcept = default;
    /// Loads the module at `path`, a full path in the library's form. When there is no such file, a system
    /// whose modules end in ".so" is asked for the same name with that ending. On failure nothing is loaded.
    explicit DynamicModule(const CString& path) noexcept;
    DynamicModule(DynamicModule&& other) noexcept : m_handle(other.m_handle) { other.m_handle = nullptr; }
    DynamicModule& operator=(DynamicModule&& other) noexcept;
    DynamicModule(const DynamicModule&) = delete;
    DynamicModule& operator=(const DynamicModule&) = delete;
    ~DynamicModule();

    bool IsLoaded() const noexcept { return m_handle != nullptr; }
    /// The address of an exported function or object; null when there is none or nothing is loaded. It is
    /// good as long as this object.
    void* Symbol(const char* name) const noexcept;
    template <typename F>
    F* Function(const char* name) const noexcept {
        return reinterpret_cast<F*>(Symbol(name));
    }

private:
    void* m_handle = nullptr;
};

}  // namespace QsPlatform
