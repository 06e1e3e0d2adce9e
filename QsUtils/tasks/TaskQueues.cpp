// The two queues of the task manager: how a task enters them and leaves them. A task is deleted when the walk
// that found it is over, since its destructor may call the manager.
#include <algorithm>
#include <iterator>
#include <memory>

#include "QsUtils/frame/Log.h"
#include "QsUtils/tasks/CQSThreadManager.h"
#include "QsUtils/tasks/TaskRecords.h"

using QsFrame::Log;

void CQSThreadManager::DeleteTasks(TaskList& tasks) noexcept {
    if (tasks.empty())
        return;
    const QsTasks::CallBack callBack(*m_pRecords);
    for (CThreadTask* const task : tasks) {
        m_pRecords->threads.LeaveTask(task);
        delete task;
    }
    m_pRecords->threads.DropGone();
}

bool CQSThreadManager::IsQueued(const CThreadTask* task) const {
    const auto none = const_cast<TaskList&>(m_listWait).end();
    const auto waiting = m_pRecords->waiting.Find(task->m_strTaskName, none);
    return (waiting != none && *waiting == task) ||
           std::find(m_listActive.begin(), m_listActive.end(), task) != m_listActive.end();
}

bool CQSThreadManager::IsCalledBack() const noexcept {
    return m_pRecords->calledBack == QsPlatform::CurrentThreadId();
}

// --- The active queue

bool CQSThreadManager::IsRunning(const CString& name) const {
    return std::any_of(m_listActive.begin(), m_listActive.end(), [&name](const CThreadTask* task) {
        return task->ThreadHandle() != nullptr && task->m_strTaskName == name;
    });
}

std::uint64_t CQSThreadManager::GetActiveTaskCount() {
    const CSAutoLock lock(*m_pLock);
    return static_cast<std::uint64_t>(
        std::count_if(m_listActive.begin(), m_listActive.end(),
                      [](const CThreadTask* task) { return task->ThreadHandle() != nullptr; }));
}

int CQSThreadManager::BeInActivQueue(const CString& name) {
    const CSAutoLock lock(*m_pLock);
    TaskList finished;
    int isIn = 0;
    for (auto next = m_listActive.begin(); next != m_listActive.end() && isIn == 0;) {
        const auto here = next++;
        if ((*here)->ThreadHandle() == nullptr)
            finished.splice(finished.end(), m_listActive, here);
        else
            isIn = (*here)->m_strTaskName == name;
    }
    DeleteTasks(finished);
    return isIn;
}

int CQSThreadManager::GetActivedTaskReference(const CString& name, CThreadTask*& task) {
    const CSAutoLock lock(*m_pLock);
    for (CThreadTask* const one : m_listActive) {
        if (one->m_strTaskName == name) {
            task = one;
            return 1;
        }
    }
    return 0;
}

int CQSThreadManager::EnterActiveQueue(CThreadTask* task) {
    const CSAutoLock lock(*m_pLock);
    const CString& name = task->m_strTaskName;
    TaskList finished;
    bool isRunning = false;
    for (auto next = m_listActive.begin(); next != m_listActive.end() && !isRunning;) {
        const auto here = next++;
        if (!((*here)->m_strTaskName == name))
            continue;
        isRunning = (*here)->ThreadHandle() != nullptr;
        if (!isRunning)
            finished.splice(finished.end(), m_listActive, here);
    }
    DeleteTasks(finished);  // which may have started one of that name
    if (IsRunning(name) || GetActiveTaskCount() >= m_nParallelTaskCount)
        return 0;
    m_listActive.push_back(task);
    Log(u"[INFO]: push %s to active queue ok,current size:%d.\n", name, m_listActive.size());
    return 1;
}

CQSThreadManager::TaskList::iterator CQSThreadManager::ExitFromActiveQueue(CThreadTask* task, int isDeleted) {
    const CSAutoLock lock(*m_pLock);
    const auto place = std::find(m_listActive.begin(), m_listActive.end(), task);
    if (place == m_listActive.end())
        return place;
    TaskList taken;
    const auto next = std::next(place);
    taken.splice(taken.end(), m_listActive, place);
    if (isDeleted != 0)
        DeleteTasks(taken);
    return next;
}

int CQSThreadManager::ExitFromActiveQueue(const CString& name, int isDeleted) {
    const CSAutoLock lock(*m_pLock);
    CThreadTask* task = nullptr;
    if (GetActivedTaskReference(name, task) == 0)
        return 0;
    ExitFromActiveQueue(task, isDeleted);
    return 1;
}

// --- The waiting queue

int CQSThreadManager::BeInWaitQueue(const CString& name) {
    const CSAutoLock lock(*m_pLock);
    return m_pRecords->waiting.Find(name, m_listWait.end()) != m_listWait.end();
}

int CQSThreadManager::EnterWaitQueue(CThreadTask* task) {
    const CSAutoLock lock(*m_pLock);
    const CString& name = task->m_strTaskName;
    const auto place = m_pRecords->waiting.Find(name, m_listWait.end());
    if (place != m_listWait.end()) {
        Log(u"[Info]: Task(%s) is exist in wait queue.！", name);
        m_listWait.splice(m_listWait.end(), m_listWait, place);
        if (*place != task) {
            const QsTasks::CallBack callBack(*m_pRecords);
            delete task;
        }
        return 0;
    }
    std::unique_ptr<CThreadTask> owned(task);
    TaskList entry(1, task);
    m_pRecords->waiting.Add(name, entry.begin());
    m_listWait.splice(m_listWait.end(), entry);
    static_cast<void>(owned.release());
    Log(u"[INFO]: push task to wait queue ok,current size:%d.\n%s\n", m_listWait.size(), name);
    return 1;
}

int CQSThreadManager::ExitFromWaitQueue(const CString& name, int isDeleted) {
    const CSAutoLock lock(*m_pLock);
    const auto place = m_pRecords->waiting.Find(name, m_listWait.end());
    if (place == m_listWait.end())
        return 0;
    TaskList taken;
    m_pRecords->waiting.Remove(name, place);
    taken.splice(taken.end(), m_listWait, place);
    if (isDeleted != 0)
        DeleteTasks(taken);
    return 1;
}

int CQSThreadManager::GetCurFirstWaitTaskInfo(CThreadTask*& task) {
    const CSAutoLock lock(*m_pLock);
    if (m_listWait.empty())
        return 0;
    const auto place = m_bLastInFirstOut ? std::prev(m_listWait.end()) : m_listWait.begin();
    task = *place;
    m_pRecords->waiting.Remove(task->m_strTaskName, place);
    m_listWait.erase(place);
    return 1;
}
