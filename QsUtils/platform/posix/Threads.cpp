#include "QsUtils/platform/Threads.h"

#include <cerrno>
#include <exception>
#include <memory>
#include <utility>

#include <pthread.h>
#include <unistd.h>

#include "QsUtils/platform/posix/HandleTable.h"

namespace QsPlatform {

namespace {

class Thread;

/// Threads whose routine has returned and that nobody has joined, the last one first. They are joined by
/// whoever waits for them, by the next thread that is started, and by the end of the module at the latest: a
/// handle that is closed early, or never, leaves no thread behind.
constinit Thread* theEnded = nullptr;

/// The system's thread. It keeps itself from its start until it has been joined.
class Thread final : public HandleObject, public std::enable_shared_from_this<Thread> {
public:
    Thread(QsThreadRoutine routine, void* parameter) noexcept : m_routine(routine), m_parameter(parameter) {}

    bool Run();
    DWORD Wait(HandleLock& lock, const Deadline& deadline) override;
    /// The id that the thread tells with its first step.
    std::uint32_t AwaitId(HandleLock& lock);

    /// Joins all that are already gone; waits for none.
    static void JoinGone(const HandleLock& lock);
    static void JoinEnded(HandleLock& lock);

private:
    static void* Main(void* thread);
    void TellId();
    void End();
    bool CanBeJoined() const { return m_isEnded && m_isKnown && !m_isBeingJoined; }
    bool TryJoin() noexcept { return ::pthread_tryjoin_np(m_thread, nullptr) == 0; }
    void Join(HandleLock& lock);
    /// The object may be gone when it returns, unless the caller shares it.
    void SetJoined();

    const QsThreadRoutine m_routine;
    void* const m_parameter;
    pthread_t m_thread{};
    std::uint32_t m_id = 0;
    bool m_isKnown = false;        // m_thread is written
    bool m_isEnded = false;        // its routine has returned
    bool m_isBeingJoined = false;  // by one who has let go of the lock for it
    bool m_isJoined = false;
    Thread* m_nextEnded = nullptr;
    std::shared_ptr<Thread> m_self;
    std::condition_variable m_change;
};

bool Thread::Run() {
    {
        const HandleLock lock = LockHandles();
        JoinGone(lock);
        m_self = shared_from_this();
    }
    const bool isStarted = ::pthread_create(&m_thread, nullptr, Main, this) == 0;
    const HandleLock lock = LockHandles();
    if (!isStarted)
        m_self.reset();  // the caller has it still
    m_isKnown = isStarted;
    m_change.notify_all();
    return isStarted;
}

void* Thread::Main(void* thread) {
    Thread& self = *static_cast<Thread*>(thread);
    self.TellId();
    self.m_routine(self.m_parameter);
    self.End();
    return nullptr;
}

void Thread::TellId() {
    const std::uint32_t id = CurrentThreadId();
    const HandleLock lock = LockHandles();
    m_id = id;
    m_change.notify_all();
}

void Thread::End() {
    const HandleLock lock = LockHandles();
    m_isEnded = true;
    m_nextEnded = theEnded;
    theEnded = this;
    m_change.notify_all();
}

std::uint32_t Thread::AwaitId(HandleLock& lock) {
    while (m_id == 0)
        m_change.wait(lock);
    return m_id;
}

DWORD Thread::Wait(HandleLock& lock, const Deadline& deadline) {
    while (!m_isJoined) {
        if (!CanBeJoined()) {
            if (!deadline.Await(m_change, lock) && !CanBeJoined())
                return m_isJoined ? WAIT_OBJECT_0 : WAIT_TIMEOUT;
        } else if (!deadline.IsNow()) {
            Join(lock);
        } else if (TryJoin()) {
            SetJoined();
        } else {
            return WAIT_TIMEOUT;
        }
    }
    return WAIT_OBJECT_0;
}

/// The thread has done all of its steps in this module but the last few, and comes to its end by itself. What
/// a host does at a thread's end may need handles, so the lock is let go.
void Thread::Join(HandleLock& lock) {
    m_isBeingJoined = true;
    lock.unlock();
    ::pthread_join(m_thread, nullptr);
    lock.lock();
    SetJoined();
}

void Thread::SetJoined() {
    m_isJoined = true;
    Thread** place = &theEnded;
    while (*place != this)
        place = &(*place)->m_nextEnded;
    *place = m_nextEnded;
    m_change.notify_all();
    m_self.reset();
}

void Thread::JoinGone(const HandleLock&) {
    for (Thread* thread = theEnded; thread != nullptr;) {
        Thread* const next = thread->m_nextEnded;
        if (thread->CanBeJoined() && thread->TryJoin())
            thread->SetJoined();
        thread = next;
    }
}

void Thread::JoinEnded(HandleLock& lock) {
    while (theEnded != nullptr) {
        const std::shared_ptr<Thread> thread = theEnded->shared_from_this();
        if (thread->CanBeJoined())
            thread->Join(lock);
        else if (!thread->m_isJoined)
            thread->m_change.wait(lock);
    }
}

}  // namespace

std::uint32_t CurrentThreadId() noexcept {
    return static_cast<std::uint32_t>(::gettid());
}

std::uint32_t LastSystemError() noexcept {
    return static_cast<std::uint32_t>(errno);
}

HANDLE MakeStoppedThread(QsThreadRoutine routine, void* parameter) noexcept {
    if (routine == nullptr)
        return nullptr;
    try {
        SharedHandleObject thread = std::make_shared<Thread>(routine, parameter);
        const HandleLock lock = LockHandles();
        return OpenHandle(lock, std::move(thread));
    } catch (const std::exception&) {  // memory exhaustion
        return nullptr;
    }
}

bool RunStoppedThread(HANDLE handle) noexcept {
    std::shared_ptr<Thread> thread;
    {
        const HandleLock lock = LockHandles();
        thread = std::dynamic_pointer_cast<Thread>(FindObject(lock, handle));
    }
    return thread != nullptr && thread->Run();
}

HANDLE StartRunningThread(QsThreadRoutine routine, void* parameter, std::uint32_t& id) noexcept {
    id = 0;
    HANDLE handle = MakeStoppedThread(routine, parameter);
    if (handle == nullptr)
        return nullptr;
    if (!RunStoppedThread(handle)) {
        ::CloseHandle(handle);
        return nullptr;
    }
    HandleLock lock = LockHandles();
    id = std::static_pointer_cast<Thread>(FindObject(lock, handle))->AwaitId(lock);
    return handle;
}

void EndHandles() noexcept {
    HandleLock lock = LockHandles();
    Thread::JoinEnded(lock);
    CloseAllHandles(lock);
}

}  // namespace QsPlatform
