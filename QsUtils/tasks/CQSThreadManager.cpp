#include "QsUtils/tasks/CQSThreadManager.h"

#include <algorithm>

#include "QsUtils/tasks/TaskRecords.h"

namespace {

constexpr std::uint64_t DefaultParallelTasks = 10;

}  // namespace

CQSThreadManager::CQSThreadManager(bool lastInFirstOut)
    : m_pLock(nullptr),
      m_bLastInFirstOut(lastInFirstOut),
      m_nParallelTaskCount(DefaultParallelTasks),
      m_pObserverLock(nullptr),
      m_pRecords(std::make_unique<QsTasks::TaskRecords>()) {
    auto lock = std::make_unique<CSLock>();
    m_pObserverLock = new CSLock;
    m_pLock = lock.release();
}

CQSThreadManager::CQSThreadManager(const CQSThreadManager& other)
    : CQSThreadManager(other.m_bLastInFirstOut) {
    *this = other;
}

CQSThreadManager& CQSThreadManager::operator=(const CQSThreadManager& other) {
    if (this == &other)
        return *this;
    // One manager after the other, so that two that are assigned to each other don't wait for ever.
    std::map<CString, int> results;
    std::list<ITaskResultNotify*> observers;
    {
        const CSAutoLock lock(*other.m_pLock);
        const CSAutoLock observerLock(*other.m_pObserverLock);
        results = other.m_mapResult;
        observers = other.m_listObserver;
    }
    const CSAutoLock lock(*m_pLock);
    const CSAutoLock observerLock(*m_pObserverLock);
    m_mapResult.swap(results);
    m_bLastInFirstOut = other.m_bLastInFirstOut;
    m_nParallelTaskCount = other.m_nParallelTaskCount.load();
    // One by one: an observer of this manager's may be assigning in its callback.
    while (!m_listObserver.empty())
        m_pRecords->walk.Remove(m_listObserver, m_listObserver.begin());
    m_listObserver.splice(m_listObserver.end(), observers);
    return *this;
}

CQSThreadManager::~CQSThreadManager() {
    {
        const CSAutoLock lock(*m_pLock);
        m_pRecords->isEnding = true;
    }
    for (const CString& name : DropWaiting())
        Cancel(name);
    std::list<QsTasks::SharedTaskThread> threads;
    {
        const CSAutoLock lock(*m_pLock);
        DeleteTasks(m_listActive);  // what a derived class has put there
        DeleteTasks(m_listWait);
        threads = m_pRecords->threads.TakeAll();
    }
    // Those that had told of their tasks already, and were on their way out.
    for (const QsTasks::SharedTaskThread& thread : threads)
        ::WaitForSingleObject(thread->handle, INFINITE);
    delete m_pObserverLock;
    delete m_pLock;
}

void CQSThreadManager::StartTask(CThreadTask* task) {
    if (task != nullptr)
        StartTaskThread(task);
}

void CQSThreadManager::BatchStartTask(const std::vector<CThreadTask*>& tasks) {
    for (CThreadTask* const task : tasks)
        StartTaskThread(task);
}

void CQSThreadManager::SetParallelTaskCount(std::uint64_t count) {
    m_nParallelTaskCount = count;
}

void CQSThreadManager::CancelTask(const CString& name) {
    Cancel(name);
}

void CQSThreadManager::CancelAllTask() {
    for (const CString& name : DropWaiting())
        CancelTask(name);
}

void CQSThreadManager::Cancel(const CString& name) {
    QsTasks::SharedTaskThread thread;
    {
        const CSAutoLock lock(*m_pLock);
        CThreadTask* task = nullptr;
        if (GetActivedTaskReference(name, task) == 0) {
            ExitFromWaitQueue(name, 1);
            return;
        }
        if (task->ThreadHandle() != nullptr)
            thread = m_pRecords->threads.Find(task);
        if (thread == nullptr || thread->isEnding) {
            ExitFromActiveQueue(task, 1);
            return;
        }
    }
    // Without the lock, which the task's thread needs to tell of its end.
    ::WaitForSingleObject(thread->handle, INFINITE);
    const CSAutoLock lock(*m_pLock);
    if (thread->task != nullptr)
        ExitFromActiveQueue(thread->task, 1);
    m_pRecords->threads.Drop(*thread);
}

/// Deletes the waiting tasks, and names the active ones.
std::vector<CString> CQSThreadManager::DropWaiting() {
    const CSAutoLock lock(*m_pLock);
    TaskList waiting;
    waiting.swap(m_listWait);
    m_pRecords->waiting.Clear();
    DeleteTasks(waiting);
    std::vector<CString> names;
    for (const CThreadTask* task : m_listActive)
        names.push_back(task->m_strTaskName);
    return names;
}

void CQSThreadManager::AddTaskThreadMgrObserver(ITaskResultNotify* observer) {
    const CSAutoLock lock(*m_pObserverLock);
    m_listObserver.push_back(observer);
}

void CQSThreadManager::DelTaskThreadMgrObserver(ITaskResultNotify* observer) {
    const CSAutoLock lock(*m_pObserverLock);
    const auto place = std::find(m_listObserver.begin(), m_listObserver.end(), observer);
    if (place != m_listObserver.end())
        m_pRecords->walk.Remove(m_listObserver, place);
}

void CQSThreadManager::CloseTaskThread(CThreadTask& task) {
    QsTasks::SharedTaskThread thread;
    {
        const CSAutoLock lock(*m_pLock);
        if (task.ThreadHandle() != nullptr)
            thread = m_pRecords->threads.Find(&task);
    }
    if (thread == nullptr || ::WaitForSingleObject(thread->handle, INFINITE) == WAIT_TIMEOUT)
        return;
    const CSAutoLock lock(*m_pLock);
    m_pRecords->threads.Drop(*thread);
}
