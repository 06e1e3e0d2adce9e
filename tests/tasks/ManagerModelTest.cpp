// Random sequences of operations, beside the queues without threads.
#include <algorithm>
#include <map>
#include <memory>
#include <mutex>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/Rounds.h"
#include "tests/tasks/ManagerMembers.h"
#include "tests/tasks/PlainManager.h"
#include "tests/tasks/TestTasks.h"

namespace {

using ManagerMembers::Call;

/// How a task ends.
enum class Ending { Success, Failure, Unheard, FailedInit, Throw, ThrowInInit };

/// Does the same with a manager and with its model, and compares all that can be seen.
class Comparison {
public:
    Comparison(unsigned seed, bool lastInFirstOut)
        : m_random(seed), m_isLastFirst(lastInFirstOut), m_manager(lastInFirstOut), m_model(lastInFirstOut) {
        m_manager.AddTaskThreadMgrObserver(&m_observer);
    }
    ~Comparison() {
        for (auto& [number, gate] : m_gates)
            gate->Open();
    }

    void Step() {
        switch (Random(14)) {
            case 0:
            case 1:
            case 2:
            case 3:
                StartOne();
                break;
            case 4:
                StartSeveral();
                break;
            case 5:
            case 6:
            case 7:
            case 8:
                EndOne();
                break;
            case 9:
            case 10:
                Cancel(RandomName());
                break;
            case 11:
                m_model.limit = Random(4) == 0 ? Random(8) : 1 + Random(3);
                m_manager.SetParallelTaskCount(m_model.limit);
                break;
            case 12:
                m_model.StartNext();
                m_manager.StartThreadFromWaitInfo();
                break;
            default:
                SeldomStep();
        }
        Compare();
    }

private:
    void SeldomStep() {
        const std::string name = RandomName();
        switch (Random(6)) {
            case 0:
                return CancelAll();
            case 1:
                EXPECT_EQ(Call<ManagerMembers::BeInActivQueue>(m_manager, Text(name)),
                          m_model.IsActive(name));
                return;
            case 2: {  // a task that is taken out is the taker's
                CThreadTask* task = nullptr;
                EXPECT_EQ(m_manager.GetCurFirstWaitTaskInfo(task), !m_model.waiting.empty());
                if (task == nullptr)
                    return;
                m_model.waiting.erase(m_isLastFirst ? m_model.waiting.end() - 1 : m_model.waiting.begin());
                delete task;
                m_model.deleted.push_back(m_deleted.back());
                return;
            }
            default:
                return;
        }
    }

    unsigned Random(unsigned below) {
        return std::uniform_int_distribution<unsigned>(0, below - 1)(m_random);
    }
    std::string RandomName() { return std::string(1, static_cast<char>('a' + Random(12))); }
    static CString Text(const std::string& name) { return CString(std::u16string(name.begin(), name.end())); }

    CThreadTask* NewTask() {
        const int number = m_next++;
        const auto ending = static_cast<Ending>(Random(9) < 4 ? 0 : Random(6));
        Gate* const gate = (m_gates[number] = std::make_unique<Gate>()).get();
        m_endings[number] = ending;
        m_plainTask = {RandomName(), number, false};
        auto* const task = new TestTask(m_manager, Text(m_plainTask.name), [ending, gate]() -> std::int32_t {
            gate->Pass();
            if (ending == Ending::Throw)
                throw 1;
            return ending == Ending::Success ? 5 : ending == Ending::Unheard ? -1 : 0;
        });
        const bool isInitFailing = ending == Ending::FailedInit || ending == Ending::ThrowInInit;
        task->onInit = [this, number, isInitFailing, ending, gate]() -> std::int32_t {
            {
                const std::lock_guard lock(m_lock);
                m_started.push_back(number);
            }
            if (!isInitFailing)
                return 1;
            gate->Pass();
            if (ending == Ending::ThrowInInit)
                throw 1;
            return 0;
        };
        task->onEnd = [this, number] {
            const std::lock_guard lock(m_lock);
            m_deleted.push_back(number);
        };
        return task;
    }

    void StartOne() {
        CThreadTask* const task = NewTask();
        EXPECT_EQ(m_manager.StartTaskThread(task), m_model.Start(m_plainTask));
    }

    void StartSeveral() {
        std::vector<CThreadTask*> tasks;
        for (unsigned left = Random(5); left > 0; --left) {
            tasks.push_back(NewTask());
            m_model.Start(m_plainTask);
        }
        m_manager.BatchStartTask(tasks);
    }

    /// Lets a running task end, and waits until its thread has done all that belongs to that.
    void End(const PlainManager::Task& task) {
        const std::string name = task.name;
        CThreadTask* running = nullptr;
        ASSERT_EQ(m_manager.GetActivedTaskReference(Text(name), running), 1);
        const HANDLE thread = running->GetThread();
        EndInModel(task);
        m_gates[task.number]->Open();
        // A handle that is no longer good is that of a thread that has gone.
        EXPECT_NE(WaitForSingleObject(thread, INFINITE), WAIT_TIMEOUT);
    }

    void EndInModel(const PlainManager::Task& task) {
        const Ending ending = m_endings[task.number];
        const bool isInitialised = ending != Ending::FailedInit && ending != Ending::ThrowInInit;
        const int code = ending == Ending::Success ? 5 : ending == Ending::Unheard ? -1 : 0;
        m_model.End(task.name, isInitialised, code);
    }

    void EndOne() {
        std::vector<PlainManager::Task> running;
        for (const PlainManager::Task& task : m_model.active)
            if (task.isRunning)
                running.push_back(task);
        if (!running.empty())
            End(running[Random(static_cast<unsigned>(running.size()))]);
    }

    void Cancel(const std::string& name) {
        if (const auto task = m_model.FindActive(name); task != m_model.active.end() && task->isRunning) {
            const PlainManager::Task ended = *task;
            End(ended);
            // The end may have brought on another task of that name, which would be waited for.
            const auto next = m_model.FindActive(name);
            if (next != m_model.active.end() && next->isRunning)
                return;
        }
        m_model.Cancel(name);
        m_manager.CancelTask(Text(name));
    }

    /// The running ones end one by one, in the order of the queue, while somebody waits for all of them.
    void CancelAll() {
        m_model.DeleteWaiting();
        const std::vector<PlainManager::Task> before = m_model.active;
        std::thread canceller([this] { m_manager.CancelAllTask(); });
        AwaitDeletions();
        for (const PlainManager::Task& task : before) {
            if (task.isRunning) {
                const std::size_t told = m_model.told.size();
                EndInModel(task);
                m_gates[task.number]->Open();
                if (m_model.told.size() > told)
                    m_told.Await(m_model.told.size());
            }
            if (m_model.FindActive(task.name) != m_model.active.end())
                m_model.Cancel(task.name);
            AwaitDeletions();  // before another one ends, which may delete itself
        }
        canceller.join();
    }

    void AwaitDeletions() {
        const auto count = [this] {
            const std::lock_guard lock(m_lock);
            return m_deleted.size();
        };
        while (count() < m_model.deleted.size())
            std::this_thread::yield();
    }

    void Compare() {
        std::vector<std::u16string> told;
        for (const std::string& one : m_model.told)
            told.emplace_back(one.begin(), one.end());
        EXPECT_EQ(m_told.Read(), told);
        EXPECT_EQ(Call<ManagerMembers::GetActiveTaskCount>(m_manager), m_model.CountRunning());
        for (char letter = 'a'; letter < 'a' + 12; ++letter) {
            const std::string name(1, letter);
            CThreadTask* task = nullptr;
            const auto plain = m_model.FindActive(name);
            ASSERT_EQ(m_manager.GetActivedTaskReference(Text(name), task), plain != m_model.active.end());
            if (task != nullptr) {
                ASSERT_EQ(task->GetThread() != nullptr, plain->isRunning) << name;
            }
            ASSERT_EQ(Call<ManagerMembers::BeInWaitQueue>(m_manager, Text(name)), m_model.IsWaiting(name));
        }
        CompareStarts();
        const std::lock_guard lock(m_lock);
        ASSERT_EQ(m_deleted, m_model.deleted) << "in this order";
    }

    /// Threads that are made one after the other may come to their first steps in another order.
    void CompareStarts() {
        std::vector<int> expected = m_model.started;
        std::vector<int> started;
        for (;;) {
            {
                const std::lock_guard lock(m_lock);
                started = m_started;
            }
            if (started.size() >= expected.size())
                break;
            std::this_thread::yield();
        }
        std::sort(expected.begin(), expected.end());
        std::sort(started.begin(), started.end());
        ASSERT_EQ(started, expected);
    }

    std::mt19937 m_random;
    const bool m_isLastFirst;
    int m_next = 0;
    std::map<int, std::unique_ptr<Gate>> m_gates;
    std::map<int, Ending> m_endings;
    std::mutex m_lock;
    std::vector<int> m_deleted;
    std::vector<int> m_started;
    Journal m_told;
    JournalObserver m_observer{m_told};
    OpenManager m_manager;
    PlainManager m_model;
    PlainManager::Task m_plainTask;
};

TEST(ManagerModel, RandomSequencesGiveTheSameStatesAndNotifications) {
    for (int round = 0; round < Rounds(ThreadRounds(400)) && !testing::Test::HasFailure(); ++round) {
        const bool isLastFirst = round % 2 != 0;
        Comparison comparison(static_cast<unsigned>(round), isLastFirst);
        for (int step = 0; step < 120 && !testing::Test::HasFailure(); ++step)
            comparison.Step();
        EXPECT_FALSE(testing::Test::HasFailure()) << "round " << round;
    }
}

}  // namespace
