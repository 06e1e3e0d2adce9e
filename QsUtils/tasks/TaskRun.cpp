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
        thread->handle = QsPlatform::MakeStoppedThread(TaskThreadFunc, task);
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
    std::unique_ptr<CThreadTask> owned(task);
    const CString name = task->m_strTaskName;  // the task may be gone when it has been started
    StartTaskThread(owned.release());
    Log(u"[INFO]: Prepare to start task from wait queue.%s.", name);
}

std::uint32_t CQSThreadManager::TaskThreadFunc(void* argument) {
    auto* const task = static_cast<CThreadTask*>(argument);
    CQSThreadManager* const manager = task->m_pManager;
    bool isInitialised = false;
    const std::int32_t code = RunTask(*task, isInitialised);
    manager->EndTask(task, isInitialised, code);
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

/// The end of a task in one step for all other threads: when they see it finished, observers have been told
/// and the next one has been started. The task itself may be deleted on the way, by an observer for instance.
void CQSThreadManager::EndTask(CThreadTask* task, bool isInitialised, std::int32_t code) noexcept {
    const CSAutoLock lock(*m_pLock);
    const QsTasks::SharedTaskThread thread = m_pRecords->threads.Find(task);
    if (isInitialised)
        task->SetThreadHandle(nullptr);
    if (isInitialised && code == Unheard)
        return;
    thread->isEnding = true;
    try {
        OnTaskComplete(thread->name, code);
    } catch (...) {  // of a class derived from this one, or for want of memory
    }
    if (!isInitialised) {
        if (thread->task != nullptr)
            ExitFromActiveQueue(task, 1);
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
        try {
            if (result != 0)
                (*walk.place)->OnTaskSuccess(name);
            else
                (*walk.place)->OnTaskFailed(name, CString());
        } catch (...) {  // one observer's trouble is not another's
        }
        if (!walk.isMoved)
            ++walk.place;
    }
    walk.isOn = false;
}
