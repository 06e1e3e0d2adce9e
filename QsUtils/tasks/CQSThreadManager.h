/// @file
/// Tasks on threads of their own, so many at a time.
#pragma once

#include <atomic>
#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <vector>

#include "QsUtils/platform/Api.h"
#include "QsUtils/tasks/CSLock.h"
#include "QsUtils/tasks/CThreadTask.h"
#include "QsUtils/tasks/ITaskResultNotify.h"
#include "QsUtils/text/CString.h"

namespace QsTasks {
struct TaskRecords;
struct TaskThread;
}  // namespace QsTasks

/// Runs named tasks, each on a thread that is made for it and ends with it, with at most a set number of them
/// at a time; the others wait. A name is in use while its task waits or runs. A task that has ended stays in
/// the active queue, doesn't count, and is deleted when something walks the queue.
///
/// Any thread may call any operation, also a task or an observer of the manager's own; see `CancelTask` for
/// the one call that never returns there. See docs/tasks.md for the states of a task and for what is logged.
///
/// A class derived from this one calls `CancelAllTask` in its own destructor, also when it overrides nothing:
/// later the object is no longer of that class, while tasks that end still look up its operations.
class QSUTILS_API CQSThreadManager {
public:
    /// Which of the waiting tasks is the next: the one that came last, or the one that came first.
    explicit CQSThreadManager(bool lastInFirstOut);
    /// Takes over the settings, the results and the observers. Tasks stay with the manager that has them.
    CQSThreadManager(const CQSThreadManager& other);
    /// Likewise; the tasks of both go on where they are.
    CQSThreadManager& operator=(const CQSThreadManager& other);
    /// Deletes the waiting tasks, and returns when the running ones have ended, observers have been told of
    /// them, and no thread of this manager is left. Tasks that are started meanwhile are refused. Not to be
    /// called from a task or an observer of its own.
    virtual ~CQSThreadManager();

    /// Runs the task, lets it wait, or deletes it because its name is in use; the manager owns it in any
    /// case. A task for which no thread can be had is deleted without having run, and nobody hears of it.
    /// Null is ignored.
    void StartTask(CThreadTask* task);
    /// The same for each task in order.
    void BatchStartTask(const std::vector<CThreadTask*>& tasks);
    /// How many tasks may run at a time; 10 at first. It counts from the next start on: running tasks aren't
    /// stopped, and waiting ones don't start before the next task ends.
    void SetParallelTaskCount(std::uint64_t count);
    /// Deletes the task of that name. A waiting one goes at once, and nobody hears of it. A running one is
    /// waited for, however long it takes, and its end is notified and brings on the next as ever; called by
    /// the task itself while it runs, that never returns. An observer may call it for any task whose
    /// `ExecuteTask` has returned, which is deleted at once, and whose end is notified all the same. A name
    /// that isn't in use is ignored.
    virtual void CancelTask(const CString& name);
    /// Deletes the waiting tasks, then cancels the active ones one by one.
    void CancelAllTask();
    /// Observers hear of the end of tasks. An observer that was added twice is told twice; null is kept and
    /// told nothing. One that is added during a notification is told of it too, unless it is added by one
    /// that was the last and has removed itself before. After `DelTaskThreadMgrObserver` has removed its only
    /// entry, an observer isn't called any more.
    void AddTaskThreadMgrObserver(ITaskResultNotify* observer);
    /// Removes one entry of an observer; one that isn't there is ignored.
    void DelTaskThreadMgrObserver(ITaskResultNotify* observer);

protected:
    /// What `StartTask` does: 1 when the task runs or waits, else 0.
    int StartTaskThread(CThreadTask* task);
    /// Takes the next waiting task and starts it; when there is no thread for it and no task runs whose end
    /// would bring on another, the one behind it, and so on.
    void StartThreadFromWaitInfo();
    /// Takes the next waiting task out of the queue: 1 with `task`, which is the caller's then, or 0.
    int GetCurFirstWaitTaskInfo(CThreadTask*& task);
    /// The first task of that name in the active queue: 1 with `task`, or 0.
    int GetActivedTaskReference(const CString& name, CThreadTask*& task);
    /// Puts a task at the end of the active queue: 1, or 0 when its name is running or the limit is reached.
    int EnterActiveQueue(CThreadTask* task);
    /// Puts a task at the end of the waiting queue: 1. When its name waits already, that entry moves to the
    /// end, the new task is deleted, and the result is 0.
    int EnterWaitQueue(CThreadTask* task);
    /// Waits for the task's thread and closes its handle.
    void CloseTaskThread(CThreadTask& task);

private:
    using TaskList = std::list<CThreadTask*>;

    std::uint64_t GetActiveTaskCount();
    int BeInActivQueue(const CString& name);
    int BeInWaitQueue(const CString& name);
    TaskList::iterator ExitFromActiveQueue(CThreadTask* task, int isDeleted);
    int ExitFromActiveQueue(const CString& name, int isDeleted);
    int ExitFromWaitQueue(const CString& name, int isDeleted);
    virtual int OnTaskComplete(const CString& name, int result);
    static std::uint32_t TaskThreadFunc(void* taskThread);

    static std::int32_t RunTask(CThreadTask& task, bool& isInitialised) noexcept;
    void EndTask(QsTasks::TaskThread& thread, bool isInitialised, std::int32_t code) noexcept;
    void NotifyObservers(const CString& name, int result) noexcept;
    friend class CThreadTask;
    bool IsCalledBack() const noexcept;
    bool IsQueued(const CThreadTask* task) const;
    bool IsRunning(const CString& name) const;
    bool RunOnThread(CThreadTask* task) noexcept;
    void DeleteTasks(TaskList& tasks) noexcept;
    std::vector<CString> DropWaiting();
    void Cancel(const CString& name);

    CSLock* m_pLock;
    TaskList m_listActive;
    TaskList m_listWait;
    std::map<CString, int> m_mapResult;
    bool m_bLastInFirstOut;
    std::atomic<std::uint64_t> m_nParallelTaskCount;
    CSLock* m_pObserverLock;
    std::list<ITaskResultNotify*> m_listObserver;
    std::unique_ptr<QsTasks::TaskRecords> m_pRecords;
};
