#include "QsUtils/platform/Signals.h"

#include <new>

#include "QsUtils/platform/Threads.h"
#include "QsUtils/platform/posix/HandleTable.h"

namespace QsPlatform {

namespace {

class Mutex final : public HandleObject {
public:
    DWORD Wait(HandleLock& lock, const Deadline& deadline) override {
        const std::uint32_t caller = CurrentThreadId();
        while (m_owner != 0 && m_owner != caller)
            if (!deadline.Await(m_change, lock) && m_owner != 0)
                return WAIT_TIMEOUT;
        m_owner = caller;
        ++m_depth;
        return WAIT_OBJECT_0;
    }

    bool Release(std::uint32_t caller) {
        if (m_owner != caller)
            return false;
        if (--m_depth == 0) {
            m_owner = 0;
            m_change.notify_one();
        }
        return true;
    }

private:
    std::uint32_t m_owner = 0;  // a thread's id
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
    Object* const object = new (std::nothrow) Object;
    if (object == nullptr)
        return nullptr;
    const HandleLock lock = LockHandles();
    return OpenHandle(lock, object);
}

}  // namespace

HANDLE NewMutex() noexcept {
    return NewObject<Mutex>();
}

bool ReleaseOwnedMutex(HANDLE handle) noexcept {
    const std::uint32_t caller = CurrentThreadId();
    const HandleLock lock = LockHandles();
    auto* const mutex = dynamic_cast<Mutex*>(FindObject(lock, handle));
    return mutex != nullptr && mutex->Release(caller);
}

HANDLE NewEvent() noexcept {
    return NewObject<Event>();
}

bool SignalEvent(HANDLE handle) noexcept {
    const HandleLock lock = LockHandles();
    auto* const event = dynamic_cast<Event*>(FindObject(lock, handle));
    if (event == nullptr)
        return false;
    event->Set();
    return true;
}

}  // namespace QsPlatform
