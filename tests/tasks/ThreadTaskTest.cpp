// What a task has and what it is given.
#include <functional>
#include <utility>

#include <gtest/gtest.h>

#include "tests/tasks/TestTasks.h"

namespace {

/// Shows the fields that derived classes see.
class OpenTask : public CThreadTask {
public:
    using CThreadTask::CThreadTask;
    using CThreadTask::m_pManager;
    using CThreadTask::m_pParam;
    using CThreadTask::m_strTaskName;

    std::int32_t ExecuteTask(int first, std::function<void()> hook) override {
        work(first, std::move(hook));
        return 1;
    }
    std::function<void(int, std::function<void()>)> work;
};

TEST(ThreadTask, ANewTaskHasWhatItWasMadeWith) {
    CQSThreadManager manager(false);
    int param = 5;
    OpenTask task(&manager, u"任务", &param);
    EXPECT_EQ(task.m_strTaskName, u"任务");
    EXPECT_EQ(task.m_pManager, &manager);
    EXPECT_EQ(task.m_pParam, &param);
    EXPECT_EQ(task.GetThread(), nullptr);
    EXPECT_EQ(task.InitTask(), 1);
    EXPECT_EQ(param, 5);
}

TEST(ThreadTask, TheWorkIsGivenZeroAndAFunctionThatDoesNothing) {
    CQSThreadManager manager(false);
    int param = 5;
    auto* const task = new OpenTask(&manager, u"t", &param);
    int first = 7;
    bool hasHook = false;
    void* seen = nullptr;
    task->work = [&](int number, const std::function<void()>& hook) {
        first = number;
        hasHook = hook != nullptr;
        hook();
        hook();
        seen = task->m_pParam;
    };
    manager.StartTask(task);
    manager.CancelTask(u"t");
    EXPECT_EQ(first, 0);
    EXPECT_TRUE(hasHook);
    EXPECT_EQ(seen, &param) << "as it was given";
    EXPECT_EQ(param, 5) << "and not looked at";
}

TEST(ThreadTask, CopiesHaveAllFields) {
    Gate gate;
    CQSThreadManager manager(false);
    CQSThreadManager other(true);
    int param = 5;
    auto* const task = new OpenTask(&manager, u"t", &param);
    task->work = [&](int, const std::function<void()>&) { gate.Pass(); };
    manager.StartTask(task);
    const HANDLE thread = task->GetThread();
    EXPECT_NE(thread, nullptr);
    OpenTask copy(*task);
    OpenTask assigned(&other, u"other", nullptr);
    assigned = *task;
    for (OpenTask* one : {&copy, &assigned}) {
        EXPECT_EQ(one->m_strTaskName, u"t");
        EXPECT_EQ(one->m_pManager, &manager);
        EXPECT_EQ(one->m_pParam, &param);
        EXPECT_EQ(one->GetThread(), thread);
    }
    gate.Open();
    manager.CancelTask(u"t");
    EXPECT_EQ(copy.GetThread(), thread) << "a copy is nobody's task";
    assigned = static_cast<const OpenTask&>(assigned);
    EXPECT_EQ(assigned.m_strTaskName, u"t");
}

}  // namespace
