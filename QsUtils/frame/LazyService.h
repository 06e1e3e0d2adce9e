// A service object that is made on its first use.
#pragma once

#include <atomic>
#include <mutex>

#include "QsUtils/platform/Mutex.h"

namespace QsFrame {

/// Holds the one object of a service. `Get` makes it, whichever thread comes first; `Destroy` ends it while
/// no other thread is in the library. Constant-initialised, so that it is ready before any code runs.
template <typename T>
class LazyService {
public:
    constexpr LazyService() noexcept = default;
    LazyService(const LazyService&) = delete;
    LazyService& operator=(const LazyService&) = delete;

    T& Get() {
        if (T* service = m_service.load(std::memory_order_acquire))
            return *service;
        const std::lock_guard lock(m_creation);
        T* service = m_service.load(std::memory_order_relaxed);
        if (service == nullptr) {
            service = new T;
            m_service.store(service, std::memory_order_release);
        }
        return *service;
    }

    /// The object, or null when it has not been made or has been destroyed.
    T* Peek() const noexcept { return m_service.load(std::memory_order_acquire); }

    void Destroy() { delete m_service.exchange(nullptr, std::memory_order_acq_rel); }

private:
    std::atomic<T*> m_service{nullptr};
    QsPlatform::Mutex m_creation;
};

/// The same, ended together with the module's static objects instead of by the end sequence.
template <typename T>
class ServiceHolder : public LazyService<T> {
public:
    constexpr ServiceHolder() noexcept = default;
    ~ServiceHolder() { this->Destroy(); }
};

}  // namespace QsFrame
