#include "QsUtils/platform/DynamicModule.h"

#include <exception>
#include <filesystem>
#include <system_error>
#include <utility>

#include "QsUtils/platform/NativePath.h"
#include "QsUtils/platform/win32/Windows.h"

namespace QsPlatform {

namespace {

/// While one stands, the system shows no box of its own about a file that is no module.
class QuietErrors {
public:
    QuietErrors() noexcept { ::SetThreadErrorMode(SEM_FAILCRITICALERRORS, &m_before); }
    QuietErrors(const QuietErrors&) = delete;
    QuietErrors& operator=(const QuietErrors&) = delete;
    ~QuietErrors() { ::SetThreadErrorMode(m_before, nullptr); }

private:
    DWORD m_before = 0;
};

HMODULE Module(void* handle) {
    return static_cast<HMODULE>(handle);
}

}  // namespace

DynamicModule::DynamicModule(const CString& path) noexcept {
    try {
        const std::filesystem::path native = ToNativePath(path);
        std::error_code error;
        if (!std::filesystem::is_regular_file(native, error))
            return;
        const QuietErrors quiet;
        // Made absolute, because a bare name would be searched for in the system's folders.
        m_handle = ::LoadLibraryW(std::filesystem::absolute(native).c_str());
    } catch (const std::exception&) {
        m_handle = nullptr;  // out of memory: nothing is loaded
    }
}

DynamicModule& DynamicModule::operator=(DynamicModule&& other) noexcept {
    if (this != &other) {
        if (m_handle != nullptr)
            ::FreeLibrary(Module(m_handle));
        m_handle = std::exchange(other.m_handle, nullptr);
    }
    return *this;
}

DynamicModule::~DynamicModule() {
    if (m_handle != nullptr)
        ::FreeLibrary(Module(m_handle));
}

void* DynamicModule::Symbol(const char* name) const noexcept {
    if (m_handle == nullptr)
        return nullptr;
    return reinterpret_cast<void*>(::GetProcAddress(Module(m_handle), name));
}

}  // namespace QsPlatform
