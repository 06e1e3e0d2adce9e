/// @file
/// A lock that its owner may take again: contract.
#pragma once

#include <atomic>
#include <cstdint>

#include "QsUtils/platform/Mutex.h"

namespace QsPlatform {

/// A mutex for `std::lock_guard` that the thread which holds it takes again at will, and that is free when it
/// has been left as often. An `unlock` by a thread that doesn't hold it does nothing. Constant-initialised,
/// and with nothing to free at the end; so it serves where virtual functions of others are called with the
/// lock held, and come back.
class RecursiveMutex {
public:
    constexpr RecursiveMutex() noexcept = default;
    RecursiveMutex(const RecursiveMutex&) = delete;
    RecursiveMutex& operator=(const RecursiveMutex&) = delete;

    void lock() noexcept;    ///< Waits until no other thread holds it, and takes it once more.
    void unlock() noexcept;  ///< Leaves it once.

private:
    /// A number that no other living thread has, never 0.
    static std::uintptr_t ThisThread() noexcept;

    Mutex m_lock;
    std::atomic<std::uintptr_t> m_owner{0};
    int m_depth = 0;
};

}  // namespace QsPlatform
