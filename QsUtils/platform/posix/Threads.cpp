#include "QsUtils/platform/Threads.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
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

/// Threads that have been started and not been joined. Under the lock.
constinit std::size_t theUnjoined = 0;

/// A thread whose routine has returned still ends what the host keeps for each thread, as a rule within this
/// time. Who waits for it no longer than a limit looks again and again, the longer the less often.
constexpr std::chrono::microseconds FirstPause{50};
constexpr std::chrono::microseconds LongestPause{2000};

/// The system's thread. It keeps itself from its start until it has been joined.
class Thread final : public HandleObject, public std::enable_shared_from_this<Thread> {
public:
    Thread(QsThreadRoutine routine, void* parameter) noexcept : m_routine(routine), m_parameter(parameter) {}

    /// The lock is let go meanwhile.
    bool Run(HandleLock& lock);
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

bool Thread::Run(HandleLock& lock) {
    JoinGone(lock);
    m_self = shared_from_this();
    ++theUnjoined;
    lock.unlock();
    const bool isStarted = ::pthread_create(&m_thread, nullptr, Main, this) == 0;
    lock.lock();
    if (!isStarted) {
        --theUnjoined;
        m_self.reset();  // the caller has it still
    }
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
    auto pause = FirstPause;
    while (!m_isJoined) {
        if (!CanBeJoined()) {
            if (!deadline.Await(m_change, lock) && !CanBeJoined())
                return m_isJoined ? WAIT_OBJECT_0 : WAIT_TIMEOUT;
        } else if (deadline.IsNever()) {
            Join(lock);
        } else if (TryJoin()) {
            SetJoined();
        } else if (deadline.IsOver()) {
            return WAIT_TIMEOUT;
        } else {
            deadline.Pause(m_change, lock, pause);
            pause = std::min(2 * pause, LongestPause);
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
    --theUnjoined;
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

/// As many as there are at first: threads that still run may start others and end them without an end.
void Thread::JoinEnded(HandleLock& lock) {
    std::size_t left = 0;
    for (const Thread* thread = theEnded; thread != nullptr; thread = thread->m_nextEnded)
        ++left;
    const Deadline never(INFINITE);
    for (; left > 0 && theEnded != nullptr; --left)
        theEnded->shared_from_this()->Wait(lock, never);
}

/// Null for a null routine and when memory is exhausted.
std::shared_ptr<Thread> NewThread(QsThreadRoutine routine, void* parameter) noexcept {
    if (routine == nullptr)
        return nullptr;
    try {
        return std::make_shared<Thread>(routine, parameter);
    } catch (const std::exception&) {
        return nullptr;
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
    std::shared_ptr<Thread> thread = NewThread(routine, parameter);
    const HandleLock lock = LockHandles();
    return thread == nullptr ? nullptr : OpenHandle(lock, std::move(thread));
}

// A handle is found and its thread counted in one hold of the lock, here and below, so that the end of the
// module either leaves the handle alone or comes before there is a thread.
bool RunStoppedThread(HANDLE handle) noexcept {
    HandleLock lock = LockHandles();
    const auto thread = std::dynamic_pointer_cast<Thread>(FindObject(lock, handle));
    return thread != nullptr && thread->Run(lock);
}

HANDLE StartRunningThread(QsThreadRoutine routine, void* parameter, std::uint32_t& id) noexcept {
    id = 0;
    const std::shared_ptr<Thread> thread = NewThread(routine, parameter);
    if (thread == nullptr)
        return nullptr;
    HandleLock lock = LockHandles();
    HANDLE handle = OpenHandle(lock, thread);
    if (handle == nullptr)
        return nullptr;
    if (thread->Run(lock)) {
        id = thread->AwaitId(lock);
        return handle;
    }
    lock.unlock();
    ::CloseHandle(handle);
    return nullptr;
}

// A host may return from its main function while threads run. They go on until the process is gone, some way
// beyond the end of the static objects, and so keep the handles that they work with.
void EndHandles() noexcept {
    HandleLock lock = LockHandles();
    Thread::JoinEnded(lock);
    if (theUnjoined == 0)
        CloseAllHandles(lock);
}

}  // namespace QsPlatform
