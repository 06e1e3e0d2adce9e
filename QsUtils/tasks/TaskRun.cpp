// The task manager: how a task gets its thread, and what that thread does.
#include <memory>

#include "QsUtils/frame/Log.h"
#include "QsUtils/platform/Threads.h"
#include "QsUtils/tasks/CQSThreadManager.h"
#include "QsUtils/tasks/TaskRecords.h"

using QsFrame::Log;

namespace {

/// The result by which a task says that nobody is to hear of it.
constexpr std::int32_t Unheard = -1;

}  // namespace

int CQSThreadManager::StartTaskThread(CThreadTask* task) {
    if (task == nullptr)
        return 0;
    std::unique_ptr<CThreadTask> owned(task);  // a refused task is deleted without the lock
    const CSAutoLock lock(*m_pLock);
    if (IsQueued(task)) {  // handed over twice: it is the manager's already
        static_cast<void>(owned.release());
        return 0;
    }
    m_pRecords->threads.DropGone();
    const CString& name = task->m_strTaskName;
    m_mapResult.erase(name);
    if (m_pRecords->isEnding || BeInWaitQueue(name) != 0 || BeInActivQueue(name) != 0)
        return 0;
    // The destructors of the tasks that the walk has deleted may have started one of that name.
    if (BeInWaitQueue(name) != 0 || IsRunning(name))
        return 0;
    task->m_pManager = this;
    task->SetThreadHandle(nullptr);
    if (EnterActiveQueue(task) == 0)
        return EnterWaitQueue(owned.release());
    if (!RunOnThread(task)) {
        ExitFromActiveQueue(task, 0);
        return 0;
    }
    static_cast<void>(owned.release());
    return 1;
}

/// The handle stands in the task before the thread's first step. False when there is no thread or no memory
/// to be had.
bool CQSThreadManager::RunOnThread(CThreadTask* task) noexcept {
    try {
        const QsTasks::SharedTaskThread thread = m_pRecords->threads.Add(task, task->m_strTaskName);
        thread->handle = QsPlatform::MakeStoppedThread(TaskThreadFunc, thread.get());
        task->SetThreadHandle(thread->handle);
        if (thread->handle != nullptr && QsPlatform::RunStoppedThread(thread->handle))
            return true;
        task->SetThreadHandle(nullptr);
        m_pRecords->threads.Drop(*thread);
    } catch (const std::exception&) {
    }
    return false;
}

void CQSThreadManager::StartThreadFromWaitInfo() {
    const CSAutoLock lock(*m_pLock);
    CThreadTask* task = nullptr;
    if (GetCurFirstWaitTaskInfo(task) == 0) {
        Log(u"[INFO]: There is no task in wait queue.");
        return;
    }
    int isIn = 0;
    do {
        std::unique_ptr<CThreadTask> owned(task);
        const CString name = task->m_strTaskName;  // the task may be gone when it has been started
        isIn = StartTaskThread(owned.release());
        Log(u"[INFO]: Prepare to start task from wait queue.%s.", name);
        // Without a thread for this one and without a task that runs, nobody would ever start the others.
    } while (isIn == 0 && GetActiveTaskCount() == 0 && GetCurFirstWaitTaskInfo(task) != 0);
}

std::uint32_t CQSThreadManager::TaskThreadFunc(void* argument) {
    auto& thread = *static_cast<QsTasks::TaskThread*>(argument);
    CQSThreadManager* const manager = thread.task->m_pManager;
    bool isInitialised = false;
    const std::int32_t code = RunTask(*thread.task, isInitialised);
    manager->EndTask(thread, isInitialised, code);
    return static_cast<std::uint32_t>(code);
}

std::int32_t CQSThreadManager::RunTask(CThreadTask& task, bool& isInitialised) noexcept {
    try {
        isInitialised = task.InitTask() != 0;
        return isInitialised ? task.ExecuteTask(0, [] {}) : 0;
    } catch (...) {
        // A failure like any other: the process lives, observers hear of it, and the next task starts.
        return 0;
    }
}

/// The end of a task in one step for the calls of other threads: when these find it finished, observers have
/// been told and the next one has been started. Only an observer that is being told of another task's end
/// sees it earlier: it has the lock, and may do with the task what may be done with a finished one. The task
/// itself may be deleted on the way, by an observer for instance.
void CQSThreadManager::EndTask(QsTasks::TaskThread& thread, bool isInitialised, std::int32_t code) noexcept {
    if (isInitialised)
        thread.task->MarkReturned();
    const CSAutoLock lock(*m_pLock);
    if (isInitialised && thread.task != nullptr)
        thread.task->SetThreadHandle(nullptr);
    if (isInitialised && code == Unheard)
        return;
    thread.isEnding = true;
    try {
        const QsTasks::CallBack callBack(*m_pRecords);
        OnTaskComplete(thread.name, code);
    } catch (...) {  // of a class derived from this one, or for want of memory
    }
    if (!isInitialised) {
        if (thread.task != nullptr)
            ExitFromActiveQueue(thread.task, 1);
        return;
    }
    try {
        StartThreadFromWaitInfo();
    } catch (const std::exception&) {  // for want of memory
    }
}

int CQSThreadManager::OnTaskComplete(const CString& name, int result) {
    const CSAutoLock lock(*m_pLock);
    const CSAutoLock observerLock(*m_pObserverLock);
    m_mapResult[name] = result != 0;
    NotifyObservers(name, result);
    return 1;
}

void CQSThreadManager::NotifyObservers(const CString& name, int result) noexcept {
    QsTasks::ObserverWalk& walk = m_pRecords->walk;
    walk.isOn = true;
    for (walk.place = m_listObserver.begin(); walk.place != m_listObserver.end();) {
        walk.isMoved = false;
        ITaskResultNotify* const observer = *walk.place;
        try {
            if (observer != nullptr && result != 0)
                observer->OnTaskSuccess(name);
            else if (observer != nullptr)
                observer->OnTaskFailed(name, CString());
        } catch (...) {  // one observer's trouble is not another's
        }
        if (!walk.isMoved)
            ++walk.place;
    }
    walk.isOn = false;
}
