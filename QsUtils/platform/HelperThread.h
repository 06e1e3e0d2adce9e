// A second thread for a piece of work that is over before the call returns: contract.
#pragma once

#include <cstdint>

namespace QsPlatform {

/// Whether a second thread can be of use: the process may run on more than one processor.
bool HasSecondProcessor() noexcept;

/// Runs one function on a thread of its own, which the destructor waits for. For one thread at a time.
class HelperThread {
public:
    HelperThread() noexcept = default;
    HelperThread(const HelperThread&) = delete;
    HelperThread& operator=(const HelperThread&) = delete;
    ~HelperThread() { Join(); }

    /// False when the system gives no thread; nothing runs then. `work` must not raise anything. No signal of
    /// the host's is taken by the thread.
    bool Start(void (*work)(void*), void* argument) noexcept;
    bool IsStarted() const noexcept { return m_work != nullptr; }
    /// Waits until the work is over.
    void Join() noexcept;

private:
    static void Run(HelperThread& thread) noexcept { thread.m_work(thread.m_argument); }
    struct System;

    void (*m_work)(void*) = nullptr;
    void* m_argument = nullptr;
    std::uintptr_t m_thread = 0;
};

}  // namespace QsPlatform
