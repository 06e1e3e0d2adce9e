#include "QsUtils/platform/RecursiveMutex.h"

namespace QsPlatform {

void RecursiveMutex::lock() noexcept {
    const std::uintptr_t mine = ThisThread();
    // Only this thread itself could have written its number here, so the order of other writes is all the
    // same.
    if (m_owner.load(std::memory_order_relaxed) != mine) {
        m_lock.lock();
        m_owner.store(mine, std::memory_order_relaxed);
    }
    ++m_depth;
}

void RecursiveMutex::unlock() noexcept {
    // One step too many, or by somebody else, must not spoil the lock for good.
    if (m_owner.load(std::memory_order_relaxed) != ThisThread() || --m_depth > 0)
        return;
    m_owner.store(0, std::memory_order_relaxed);
    m_lock.unlock();
}

}  // namespace QsPlatform
