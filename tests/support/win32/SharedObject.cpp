#include "tests/support/SharedObject.h"

#include <cstring>
#include <stdexcept>

#include <windows.h>

SharedObject::SharedObject(const std::string& name, std::string_view bytes) : m_name(name) {
    const HANDLE handle = ::CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                               static_cast<DWORD>(bytes.size()), name.c_str());
    void* const view = handle == nullptr ? nullptr : ::MapViewOfFile(handle, FILE_MAP_WRITE, 0, 0, 0);
    if (view == nullptr)
        throw std::runtime_error("can't make " + name);
    std::memcpy(view, bytes.data(), bytes.size());
    ::UnmapViewOfFile(view);
    m_handle = reinterpret_cast<std::intptr_t>(handle);
}

SharedObject::~SharedObject() {
    ::CloseHandle(reinterpret_cast<HANDLE>(m_handle));
}

bool SharedObject::Exists(const std::string& name) {
    const HANDLE handle = ::OpenFileMappingA(FILE_MAP_READ, FALSE, name.c_str());
    if (handle != nullptr)
        ::CloseHandle(handle);
    return handle != nullptr;
}

bool SharedObject::AreReached() {
    const char* const name = "QsUtils-test-reach";
    const SharedObject object(name, "x");
    const HANDLE handle = ::CreateFileMappingA(reinterpret_cast<HANDLE>(std::uintptr_t{0xFFFFFFFF}), nullptr,
                                               PAGE_READONLY, 0, 256, name);
    if (handle != nullptr)
        ::CloseHandle(handle);
    return handle != nullptr;
}

std::size_t CountHandles() {
    DWORD count = 0;
    ::GetProcessHandleCount(::GetCurrentProcess(), &count);
    return count;
}
