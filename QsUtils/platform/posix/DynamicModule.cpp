#include "QsUtils/platform/DynamicModule.h"

#include <exception>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include <dlfcn.h>

#include "QsUtils/platform/NativePath.h"

namespace QsPlatform {

namespace {

constexpr std::u16string_view ForeignEnding = u".dll";

bool IsFile(const std::filesystem::path& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

/// The name that the module has on this system when it isn't there under its literal one.
std::filesystem::path UnderOwnEnding(const CString& path) {
    const bool foreign = path.Right(static_cast<int>(ForeignEnding.size())).CompareNoCase(ForeignEnding) == 0;
    const int kept = path.GetLength() - (foreign ? static_cast<int>(ForeignEnding.size()) : 0);
    return ToNativePath(path.Left(kept) + u".so");
}

}  // namespace

DynamicModule::DynamicModule(const CString& path) noexcept {
    try {
        std::filesystem::path native = ToNativePath(path);
        if (!IsFile(native))
            native = UnderOwnEnding(path);
        // Made absolute, because a bare name would be searched for in the system's folders.
        if (IsFile(native))
            m_handle = ::dlopen(std::filesystem::absolute(native).c_str(), RTLD_NOW | RTLD_LOCAL);
    } catch (const std::exception&) {
        m_handle = nullptr;  // out of memory: nothing is loaded
    }
}

DynamicModule& DynamicModule::operator=(DynamicModule&& other) noexcept {
    if (this != &other) {
        if (m_handle != nullptr)
            ::dlclose(m_handle);
        m_handle = std::exchange(other.m_handle, nullptr);
    }
    return *this;
}

DynamicModule::~DynamicModule() {
    if (m_handle != nullptr)
        ::dlclose(m_handle);
}

void* DynamicModule::Symbol(const char* name) const noexcept {
    return m_handle == nullptr ? nullptr : ::dlsym(m_handle, name);
}

}  // namespace QsPlatform
