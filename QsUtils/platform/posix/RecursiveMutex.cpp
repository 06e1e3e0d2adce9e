#include "QsUtils/platform/RecursiveMutex.h"

namespace QsPlatform {

RecursiveMutex::RecursiveMutex() = default;
RecursiveMutex::~RecursiveMutex() = default;

// Only its owner can find itself in the field, so it needn't be asked in any order with other memory.
void RecursiveMutex::lock() {
    const std::thread::id caller = std::this_thread::get_id();
    if (m_owner.load(std::memory_order_relaxed) != caller) {
        m_mutex.lock();
        m_owner.store(caller, std::memory_order_relaxed);
    }
    ++m_depth;
}

void RecursiveMutex::unlock() {
    if (m_owner.load(std::memory_order_relaxed) != std::this_thread::get_id() || --m_depth > 0)
        return;
    m_owner.store(std::thread::id(), std::memory_order_relaxed);
    m_mutex.unlock();
}

}  // namespace QsPlatform
