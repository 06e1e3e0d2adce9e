#include "SharedList.h"

#include <cstring>

#include <windows.h>

namespace OpenBudget {

SharedList::SharedList(const std::string& name, const std::u16string& text, bool replace) : m_name(name) {
    m_handle =
        ::CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, ListBytes, m_name.c_str());
    if (::GetLastError() == ERROR_ALREADY_EXISTS && !replace) {
        m_failure = "it is held already";
        return;
    }
    void* const view =
        m_handle == nullptr ? nullptr : ::MapViewOfFile(m_handle, FILE_MAP_WRITE, 0, 0, ListBytes);
    if (view == nullptr) {
        m_failure = "the system refuses it: error " + std::to_string(::GetLastError());
        return;
    }
    std::memset(view, 0, ListBytes);
    std::memcpy(view, text.data(), text.size() * sizeof(char16_t));
    ::UnmapViewOfFile(view);
}

// The object goes with the last handle.
SharedList::~SharedList() {
    if (m_handle != nullptr)
        ::CloseHandle(m_handle);
}

}  // namespace OpenBudget
