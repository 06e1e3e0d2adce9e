/// @file
/// A task that a manager runs on a thread of its own.
#pragma once

#include <cstdint>
#include <functional>

#include "QsUtils/platform/Api.h"
#include "QsUtils/platform/Handles.h"
#include "QsUtils/text/CString.h"

class CQSThreadManager;

/// Derived from by hosts, made with `new` and handed to a manager, which deletes it: when the task was
/// refused, cancelled while it waited, or some time after it ended. The destructor runs on whichever thread
/// that was, and may call the manager. Nobody but the manager touches a task that was handed over.
class QSUTILS_API CThreadTask {
public:
    /// `name` is the key by which the manager tells tasks apart, in the exact case; it stays as it is once
    /// the task was handed over. `param` is the host's own and isn't looked at.
    CThreadTask(CQSThreadManager* manager, const CString& name, void* param);
    /// Copies are for tasks that haven't been handed over: all fields, the thread's handle among them.
    CThreadTask(const CThreadTask&);
    /// Likewise.
    CThreadTask& operator=(const CThreadTask&);
    virtual ~CThreadTask();

    /// The work, on the task's thread. The manager passes 0 and a function that does nothing. -1 says that
    /// nobody is to hear of the task and no other is to start, 0 that it failed; anything else is success.
    /// An exception counts as 0.
    virtual std::int32_t ExecuteTask(int, std::function<void()>) = 0;
    /// Runs before the work, on the same thread. 0, like an exception, ends the task as failed, with no work
    /// done and no other task started; else it goes on.
    virtual std::int32_t InitTask();
    /// The running thread; null before the start and again when `ExecuteTask` has returned and observers are
    /// being told of it: a call of the manager that comes after that waits until they have been. An observer,
    /// or the destructor of a task, finds null as soon as `ExecuteTask` has returned. The handle is the
    /// manager's: it stays good until the task is deleted. Any thread may ask while the task exists.
    virtual HANDLE GetThread();

protected:
    CString m_strTaskName;         ///< the key
    CQSThreadManager* m_pManager;  ///< which runs the task, whatever the constructor was given
    void* m_pParam;                ///< the host's own

private:
    friend class CQSThreadManager;

    HANDLE ThreadHandle() const noexcept;
    void SetThreadHandle(HANDLE thread) noexcept;
    void MarkReturned() noexcept;

    HANDLE m_hThread;  // marked from the return of `ExecuteTask` on, until the manager's lock is there
};
