// A service object that is made on its first use.
#pragma once

#include <atomic>
#include <cstdint>
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

/// The same for an object that other threads may use while the module's static objects end: those of a host
/// that returns from its main function with threads running. Who uses the object at that moment keeps it, the
/// last one ends it, and who comes later finds none. No thread waits for another: where the system has ended
/// the others by then, they left as they were, and nobody can tell what they held.
template <typename T>
class SharedServiceHolder {
public:
    constexpr SharedServiceHolder() noexcept = default;
    SharedServiceHolder(const SharedServiceHolder&) = delete;
    SharedServiceHolder& operator=(const SharedServiceHolder&) = delete;
    ~SharedServiceHolder() {
        if (m_users.fetch_or(IsOver) == 0)
            m_service.Destroy();
    }

    /// Calls `use` with the object, unless the holder has ended.
    template <typename Use>
    void With(const Use& use) {
        const User user(*this);
        if (user.isIn)
            use(m_service.Get());
    }

private:
    static constexpr std::uint32_t IsOver = std::uint32_t{1} << 31;

    struct User {
        explicit User(SharedServiceHolder& used)
            : holder(used), isIn((used.m_users.fetch_add(1) & IsOver) == 0) {}
        User(const User&) = delete;
        User& operator=(const User&) = delete;
        ~User() {
            if (holder.m_users.fetch_sub(1) == (IsOver | 1))
                holder.m_service.Destroy();
        }
        SharedServiceHolder& holder;
        const bool isIn;
    };

    // Nothing here has a destructor: it is all good beyond the holder's own.
    std::atomic<std::uint32_t> m_users{0};
    LazyService<T> m_service;
};

}  // namespace QsFrame
