// The threads that a manager has made and that may not be gone yet.
#pragma once

#include <list>
#include <memory>

#include "QsUtils/platform/Handles.h"
#include "QsUtils/tasks/CThreadTask.h"

namespace QsTasks {

/// One task's thread. Who waits for it shares it, so that the handle stays open for as long; it is closed
/// with the last share, and the manager has one until the thread is gone. Fields are guarded by the manager's
/// queue lock, but for the handle, which is written once before the thread runs.
struct TaskThread {
    TaskThread(CThreadTask* itsTask, const CString& taskName) : task(itsTask), name(taskName) {}
    TaskThread(const TaskThread&) = delete;
    TaskThread& operator=(const TaskThread&) = delete;
    ~TaskThread();

    CThreadTask* task;  ///< null once it has been deleted; its own thread may read it while it works
    const CString name;
    HANDLE handle = nullptr;
    /// Whether the thread is telling of its task's end. It holds the queue lock meanwhile: whoever finds this
    /// set is that thread.
    bool isEnding = false;
};

using SharedTaskThread = std::shared_ptr<TaskThread>;

/// All under the queue lock.
class TaskThreads {
public:
    /// An entry for a task whose thread is about to be made.
    SharedTaskThread Add(CThreadTask* task, const CString& name);
    /// The entry of a task that hasn't been deleted; null when it has none.
    SharedTaskThread Find(const CThreadTask* task) const;
    /// The task is going to be deleted; its thread is kept until it is gone.
    void LeaveTask(const CThreadTask* task) noexcept;
    /// Forgets a thread that never ran or that has been waited for.
    void Drop(const TaskThread& thread) noexcept;
    /// Forgets the threads of deleted tasks that are gone; waits for none.
    void DropGone() noexcept;
    /// All that are left when there are no tasks any more.
    std::list<SharedTaskThread> TakeAll() noexcept;

private:
    std::list<SharedTaskThread> m_ofTasks;
    std::list<SharedTaskThread> m_ofDeletedTasks;
};

}  // namespace QsTasks
