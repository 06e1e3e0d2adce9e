#include "QsUtils/c_api/Tasks.h"

#include <functional>
#include <vector>

#include "QsUtils/c_api/Calls.h"
#include "QsUtils/tasks/CQSThreadManager.h"

using QsCApi::Call;
using QsCApi::Checked;
using QsCApi::TextOf;

namespace {

QsTask* HandleOf(CThreadTask* task) {
    return reinterpret_cast<QsTask*>(task);
}

CThreadTask* TaskOf(QsTask* handle) {
    return reinterpret_cast<CThreadTask*>(handle);
}

struct TaskCallbacks {
    QsTaskExecute execute;
    QsTaskInit init;
    QsTaskRelease release;
};

class CallbackTask final : public CThreadTask {
public:
    CallbackTask(CQSThreadManager* manager, const CString& name, const TaskCallbacks& callbacks,
                 void* context)
        : CThreadTask(manager, name, context), m_callbacks(callbacks) {}
    CallbackTask(const CallbackTask&) = delete;
    CallbackTask& operator=(const CallbackTask&) = delete;
    ~CallbackTask() override {
        if (m_callbacks.release != nullptr)
            m_callbacks.release(m_pParam);
    }

    std::int32_t ExecuteTask(int, std::function<void()>) override {
        return m_callbacks.execute(m_pParam, HandleOf(this));
    }
    std::int32_t InitTask() override {
        return m_callbacks.init != nullptr ? m_callbacks.init(m_pParam, HandleOf(this))
                                           : CThreadTask::InitTask();
    }

private:
    TaskCallbacks m_callbacks;
};

/// Opens the steps that are for derived classes, since C has none. Managers made here are not of this class:
/// the destructor of `CQSThreadManager` waits for tasks that end and then look up `OnTaskComplete`, and an
/// object of a derived class would be changing its class by then.
class Steps : public CQSThreadManager {
public:
    using CQSThreadManager::CloseTaskThread;
    using CQSThreadManager::EnterActiveQueue;
    using CQSThreadManager::EnterWaitQueue;
    using CQSThreadManager::GetActivedTaskReference;
    using CQSThreadManager::GetCurFirstWaitTaskInfo;
    using CQSThreadManager::StartTaskThread;
    using CQSThreadManager::StartThreadFromWaitInfo;
};

class CallbackObserver final : public ITaskResultNotify {
public:
    CallbackObserver(QsTaskSuccess success, QsTaskFailure failure, void* context)
        : m_success(success), m_failure(failure), m_context(context) {}

    void OnTaskSuccess(const CString& name) override {
        if (m_success != nullptr)
            m_success(m_context, name.View().data(), name.GetLength());
    }
    void OnTaskFailed(const CString& name, const CString& reason) override {
        if (m_failure != nullptr)
            m_failure(m_context, name.View().data(), name.GetLength(), reason.View().data(),
                      reason.GetLength());
    }

private:
    QsTaskSuccess m_success;
    QsTaskFailure m_failure;
    void* m_context;
};

}  // namespace

struct QsTaskObserver {
    CallbackObserver observer;
};

struct QsTaskManager {
    CQSThreadManager manager;
};

namespace {

CQSThreadManager& Manager(QsTaskManager* handle) {
    return Checked(handle).manager;
}

}  // namespace

// --- Tasks and observers

QsStatus QsTask_Create(QsTaskManager* manager, const QsChar* name, std::int32_t length, QsTaskExecute execute,
                       QsTaskInit init, QsTaskRelease release, void* context, QsTask** task) {
    return Call(
        [&] {
            QsCApi::Require(execute != nullptr);
            CQSThreadManager* const itsManager = manager == nullptr ? nullptr : &manager->manager;
            const TaskCallbacks callbacks = {execute, init, release};
            *task = HandleOf(new CallbackTask(itsManager, TextOf(name, length), callbacks, context));
        },
        task);
}

QsStatus QsTask_GetThread(QsTask* task, QsThread** thread) {
    return Call([&] { *thread = reinterpret_cast<QsThread*>(TaskOf(&Checked(task))->GetThread()); }, thread);
}

void QsTask_Free(QsTask* task) {
    delete TaskOf(task);
}

QsStatus QsTaskObserver_Create(QsTaskSuccess success, QsTaskFailure failure, void* context,
                               QsTaskObserver** observer) {
    return Call([&] { *observer = new QsTaskObserver{CallbackObserver(success, failure, context)}; },
                observer);
}

void QsTaskObserver_Free(QsTaskObserver* observer) {
    delete observer;
}

// --- The manager

QsStatus QsTaskManager_Create(std::int32_t lastInFirstOut, QsTaskManager** manager) {
    return Call([&] { *manager = new QsTaskManager{CQSThreadManager(lastInFirstOut != 0)}; }, manager);
}

void QsTaskManager_Free(QsTaskManager* manager) {
    delete manager;
}

QsStatus QsTaskManager_StartTask(QsTaskManager* manager, QsTask* task) {
    return Call([&] { Manager(manager).StartTask(TaskOf(task)); });
}

QsStatus QsTaskManager_BatchStartTask(QsTaskManager* manager, QsTask* const* tasks, std::int32_t count) {
    return Call([&] {
        QsCApi::Require(count >= 0 && (tasks != nullptr || count == 0));
        CQSThreadManager& starter = Manager(manager);
        std::vector<CThreadTask*> all;
        all.reserve(static_cast<std::size_t>(count));
        for (std::int32_t i = 0; i < count; ++i)
            all.push_back(TaskOf(tasks[i]));
        starter.BatchStartTask(all);
    });
}

QsStatus QsTaskManager_SetParallelTaskCount(QsTaskManager* manager, std::uint64_t count) {
    return Call([&] { Manager(manager).SetParallelTaskCount(count); });
}

QsStatus QsTaskManager_CancelTask(QsTaskManager* manager, const QsChar* name, std::int32_t length) {
    return Call([&] { Manager(manager).CancelTask(TextOf(name, length)); });
}

QsStatus QsTaskManager_CancelAllTask(QsTaskManager* manager) {
    return Call([&] { Manager(manager).CancelAllTask(); });
}

QsStatus QsTaskManager_AddTaskThreadMgrObserver(QsTaskManager* manager, QsTaskObserver* observer) {
    return Call([&] { Manager(manager).AddTaskThreadMgrObserver(&Checked(observer).observer); });
}

QsStatus QsTaskManager_DelTaskThreadMgrObserver(QsTaskManager* manager, QsTaskObserver* observer) {
    return Call([&] { Manager(manager).DelTaskThreadMgrObserver(&Checked(observer).observer); });
}

// --- Its steps

QsStatus QsTaskManager_StartTaskThread(QsTaskManager* manager, QsTask* task, std::int32_t* isTaken) {
    return Call([&] { *isTaken = std::invoke(&Steps::StartTaskThread, Manager(manager), TaskOf(task)); },
                isTaken);
}

QsStatus QsTaskManager_StartThreadFromWaitInfo(QsTaskManager* manager) {
    return Call([&] { std::invoke(&Steps::StartThreadFromWaitInfo, Manager(manager)); });
}

QsStatus QsTaskManager_GetCurFirstWaitTaskInfo(QsTaskManager* manager, QsTask** task) {
    return Call(
        [&] {
            CThreadTask* next = nullptr;
            const bool isThere = std::invoke(&Steps::GetCurFirstWaitTaskInfo, Manager(manager), next) != 0;
            *task = HandleOf(next);
            return QsStatus{isThere ? QS_OK : QS_NOT_FOUND};
        },
        task);
}

QsStatus QsTaskManager_GetActivedTaskReference(QsTaskManager* manager, const QsChar* name,
                                               std::int32_t length, QsTask** task) {
    return Call(
        [&] {
            CThreadTask* active = nullptr;
            const bool isThere = std::invoke(&Steps::GetActivedTaskReference, Manager(manager),
                                             TextOf(name, length), active) != 0;
            *task = HandleOf(active);
            return QsStatus{isThere ? QS_OK : QS_NOT_FOUND};
        },
        task);
}

QsStatus QsTaskManager_EnterActiveQueue(QsTaskManager* manager, QsTask* task, std::int32_t* isTaken) {
    return Call(
        [&] { *isTaken = std::invoke(&Steps::EnterActiveQueue, Manager(manager), TaskOf(&Checked(task))); },
        isTaken);
}

QsStatus QsTaskManager_EnterWaitQueue(QsTaskManager* manager, QsTask* task, std::int32_t* isTaken) {
    return Call(
        [&] { *isTaken = std::invoke(&Steps::EnterWaitQueue, Manager(manager), TaskOf(&Checked(task))); },
        isTaken);
}

QsStatus QsTaskManager_CloseTaskThread(QsTaskManager* manager, QsTask* task) {
    return Call([&] { std::invoke(&Steps::CloseTaskThread, Manager(manager), *TaskOf(&Checked(task))); });
}
