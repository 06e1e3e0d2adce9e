#include "QsUtils/platform/Signals.h"

#include <exception>
#include <memory>
#include <utility>

#include <pthread.h>

#include "QsUtils/platform/posix/HandleTable.h"

namespace QsPlatform {

namespace {

class MutexObject final : public HandleObject {
public:
    DWORD Wait(HandleLock& lock, const Deadline& deadline) override {
        const pthread_t caller = ::pthread_self();
        while (m_depth > 0 && m_owner != caller)
            if (!deadline.Await(m_change, lock) && m_depth > 0)
                return WAIT_TIMEOUT;
        m_owner = caller;
        ++m_depth;
        return WAIT_OBJECT_0;
    }

    bool Release() {
        if (m_depth == 0 || m_owner != ::pthread_self())
            return false;
        if (--m_depth == 0)
            m_change.notify_one();
        return true;
    }

private:
    pthread_t m_owner{};  // while it is taken; unlike the thread's id it costs no system call
    std::size_t m_depth = 0;
    std::condition_variable m_change;
};

class Event final : public HandleObject {
public:
    DWORD Wait(HandleLock& lock, const Deadline& deadline) override {
        while (!m_isSet)
            if (!deadline.Await(m_change, lock) && !m_isSet)
                return WAIT_TIMEOUT;
        return WAIT_OBJECT_0;
    }

    void Set() {
        m_isSet = true;
        m_change.notify_all();
    }

private:
    bool m_isSet = false;
    std::condition_variable m_change;
};

template <typename Object>
HANDLE NewObject() noexcept {
    try {
        SharedHandleObject object = std::make_shared<Object>();
        const HandleLock lock = LockHandles();
        return OpenHandle(lock, std::move(object));
    } catch (const std::exception&) {
        return nullptr;
    }
}

}  // namespace

HANDLE NewMutex() noexcept {
    return NewObject<MutexObject>();
}

bool ReleaseOwnedMutex(HANDLE handle) noexcept {
    const HandleLock lock = LockHandles();
    const auto mutex = std::dynamic_pointer_cast<MutexObject>(FindObject(lock, handle));
    return mutex != nullptr && mutex->Release();
}

HANDLE NewEvent() noexcept {
    return NewObject<Event>();
}

bool SignalEvent(HANDLE handle) noexcept {
    const HandleLock lock = LockHandles();
    const auto event = std::dynamic_pointer_cast<Event>(FindObject(lock, handle));
    if (event == nullptr)
        return false;
    event->Set();
    return true;
}

}  // namespace QsPlatform
