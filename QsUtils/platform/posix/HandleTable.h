// What handles stand for on a system that has none of its own.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <optional>

#include "QsUtils/platform/Handles.h"

namespace QsPlatform {

/// Guards every object and the table of handles. Nothing is waited for while it is held.
using HandleLock = std::unique_lock<std::mutex>;
HandleLock LockHandles();

/// When a wait gives up.
class Deadline {
public:
    explicit Deadline(DWORD milliseconds);
    /// Whether the wait only asks.
    bool IsNow() const noexcept { return m_isNow; }
    /// Waits for a change; false when it is too late for one.
    bool Await(std::condition_variable& change, HandleLock& lock) const;

private:
    bool m_isNow;
    std::optional<std::chrono::steady_clock::time_point> m_moment;
};

/// Something that can be waited for. It is counted by those who use it: its handle, and everybody who is
/// inside of a call. All is done under the lock.
class HandleObject {
public:
    HandleObject() = default;
    HandleObject(const HandleObject&) = delete;
    HandleObject& operator=(const HandleObject&) = delete;
    virtual ~HandleObject() = default;

    /// `WAIT_OBJECT_0`, `WAIT_TIMEOUT` or `WAIT_FAILED`. The lock is let go meanwhile.
    virtual DWORD Wait(HandleLock& lock, const Deadline& deadline) = 0;

    void Use() noexcept { ++m_users; }
    /// The object is deleted with its last user.
    void Leave() noexcept {
        if (--m_users == 0)
            delete this;
    }

private:
    std::size_t m_users = 0;
};

/// Uses an object for as long as it lives; the lock is held when it is made and when it goes.
class HandleUse {
public:
    explicit HandleUse(HandleObject* object) noexcept : m_object(object) {
        if (m_object != nullptr)
            m_object->Use();
    }
    HandleUse(const HandleUse&) = delete;
    HandleUse& operator=(const HandleUse&) = delete;
    ~HandleUse() {
        if (m_object != nullptr)
            m_object->Leave();
    }

private:
    HandleObject* m_object;
};

/// A new handle for an object, which uses it; null, with the object deleted, when the table is full or memory
/// is.
HANDLE OpenHandle(const HandleLock& lock, HandleObject* object) noexcept;
/// The object behind an open handle, else null.
HandleObject* FindObject(const HandleLock& lock, HANDLE handle) noexcept;
/// Ends all handles that are still open, and frees the table.
void CloseAllHandles(const HandleLock& lock) noexcept;

}  // namespace QsPlatform
