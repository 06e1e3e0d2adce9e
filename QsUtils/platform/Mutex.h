/// @file
/// A lock that stands before any code runs: contract.
#pragma once

#include <mutex>

namespace QsPlatform {

#if defined(_WIN32)
/// A mutex for `std::lock_guard`: not recursive, constant-initialised, and with nothing to free at the end.
/// The runtime's own mutex is neither of these on this system, where it is made on the heap at its first use.
class Mutex {
public:
    constexpr Mutex() noexcept = default;
    Mutex(const Mutex&) = delete;
    Mutex& operator=(const Mutex&) = delete;

    void lock() noexcept;
    void unlock() noexcept;

private:
    void* m_lock = nullptr;
};
#else
/// A mutex for `std::lock_guard`: not recursive, constant-initialised, and with nothing to free at the end.
using Mutex = std::mutex;
#endif

}  // namespace QsPlatform
