#include "QsUtils/platform/RecursiveMutex.h"

namespace QsPlatform {

RecursiveMutex::RecursiveMutex() {
    ::InitializeCriticalSection(&m_section);
}

RecursiveMutex::~RecursiveMutex() {
    ::DeleteCriticalSection(&m_section);
}

void RecursiveMutex::lock() {
    ::EnterCriticalSection(&m_section);
}

void RecursiveMutex::unlock() {
    // One step too many would spoil the section for good. The owner alone can find itself in this field.
    const HANDLE owner = *const_cast<volatile HANDLE*>(&m_section.OwningThread);
    if (reinterpret_cast<std::uintptr_t>(owner) == ::GetCurrentThreadId())
        ::LeaveCriticalSection(&m_section);
}

}  // namespace QsPlatform
