#include "QsUtils/tasks/TaskThreads.h"

#include <algorithm>
#include <utility>

namespace QsTasks {

namespace {

template <typename List>
auto PlaceOf(List& threads, const CThreadTask* task) {
    return std::find_if(threads.begin(), threads.end(),
                        [task](const SharedTaskThread& one) { return one->task == task; });
}

}  // namespace

TaskThread::~TaskThread() {
    if (handle != nullptr)
        ::CloseHandle(handle);
}

SharedTaskThread TaskThreads::Add(CThreadTask* task, const CString& name) {
    return m_ofTasks.emplace_back(std::make_shared<TaskThread>(task, name));
}

SharedTaskThread TaskThreads::Find(const CThreadTask* task) const {
    const auto place = PlaceOf(m_ofTasks, task);
    return place == m_ofTasks.end() ? nullptr : *place;
}

void TaskThreads::LeaveTask(const CThreadTask* task) noexcept {
    const auto place = PlaceOf(m_ofTasks, task);
    if (place == m_ofTasks.end())
        return;
    (*place)->task = nullptr;
    m_ofDeletedTasks.splice(m_ofDeletedTasks.end(), m_ofTasks, place);
}

void TaskThreads::Drop(const TaskThread& thread) noexcept {
    const auto isIt = [&thread](const SharedTaskThread& one) { return one.get() == &thread; };
    m_ofTasks.remove_if(isIt);
    m_ofDeletedTasks.remove_if(isIt);
}

void TaskThreads::DropGone() noexcept {
    m_ofDeletedTasks.remove_if(
        [](const SharedTaskThread& one) { return ::WaitForSingleObject(one->handle, 0) == WAIT_OBJECT_0; });
}

std::list<SharedTaskThread> TaskThreads::TakeAll() noexcept {
    return std::exchange(m_ofDeletedTasks, {});
}

}  // namespace QsTasks
