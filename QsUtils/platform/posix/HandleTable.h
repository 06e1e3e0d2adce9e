// What handles stand for on a system that has none of its own.
#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
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
    /// Whether the wait has no limit.
    bool IsNever() const noexcept { return !m_moment; }
    /// Whether it is too late for another wait.
    bool IsOver() const;
    /// Waits for a change; false when it is too late for one.
    bool Await(std::condition_variable& change, HandleLock& lock) const;
    /// Waits for a change, for `pause` at most.
    void Pause(std::condition_variable& change, HandleLock& lock, std::chrono::microseconds pause) const;

private:
    bool m_isNow;
    std::optional<std::chrono::steady_clock::time_point> m_moment;
};

/// Something that can be waited for. Its handle shares it, and everybody who is inside of a call. All is done
/// under the lock.
class HandleObject {
public:
    HandleObject() = default;
    HandleObject(const HandleObject&) = delete;
    HandleObject& operator=(const HandleObject&) = delete;
    virtual ~HandleObject() = default;

    /// `WAIT_OBJECT_0`, `WAIT_TIMEOUT` or `WAIT_FAILED`. The lock is let go meanwhile.
    virtual DWORD Wait(HandleLock& lock, const Deadline& deadline) = 0;
};

using SharedHandleObject = std::shared_ptr<HandleObject>;

/// A new handle for an object; null when the table is full or memory is.
HANDLE OpenHandle(const HandleLock& lock, SharedHandleObject object) noexcept;
/// The object behind an open handle, else null.
SharedHandleObject FindObject(const HandleLock& lock, HANDLE handle) noexcept;
/// Ends all handles that are still open, and frees the table.
void CloseAllHandles(const HandleLock& lock) noexcept;

}  // namespace QsPlatform
