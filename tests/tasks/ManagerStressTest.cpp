// Many tasks, many threads and many managers, for the sanitizers above all.
#include <atomic>
#include <chrono>
#include <memory>
#include <random>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/Rounds.h"
#include "tests/tasks/TestTasks.h"

namespace {

/// As many at each size, whatever the build; a sanitizer takes them all, since it is them that it is for.
constexpr int TaskCount = ThreadRounds(20'000);
constexpr int ManagerCount = ThreadRounds(1'000);
constexpr int ClientCount = 8;

struct CountingObserver : ITaskResultNotify {
    std::atomic<int> good{0};
    std::atomic<int> bad{0};
    void OnTaskSuccess(const CString&) override { ++good; }
    void OnTaskFailed(const CString&, const CString&) override { ++bad; }
};

CString NameOf(std::uint32_t number) {
    CString name;
    name.Format(u"short task %u", number);
    return name;
}

/// What became of tasks.
struct Fates {
    std::atomic<int> alive{0};
    std::atomic<int> ran{0};
    std::atomic<int> deletedUnrun{0};
};

/// A part of a task that tells when it goes without having been run.
class Fate {
public:
    explicit Fate(Fates& fates) : m_fates(fates) {}
    Fate(const Fate&) = delete;
    Fate& operator=(const Fate&) = delete;
    ~Fate() {
        if (!m_isRun)
            ++m_fates.deletedUnrun;
    }
    std::int32_t Run(std::int32_t code) {
        m_isRun = true;
        ++m_fates.ran;
        return code;
    }

private:
    Fates& m_fates;
    bool m_isRun = false;
};

void StartAndCancel(CQSThreadManager& manager, unsigned seed, Fates& fates) {
    std::mt19937 random(seed);
    for (int i = 0; i < TaskCount / ClientCount; ++i) {
        const std::int32_t code = random() % 64 == 0 ? -1 : static_cast<std::int32_t>(random() % 3);
        manager.StartTask(new TestTask(
            manager, NameOf(static_cast<std::uint32_t>(random() % TaskCount)),
            [fate = std::make_shared<Fate>(fates), code] { return fate->Run(code); }, &fates.alive));
        if (random() % 8 == 0)
            manager.CancelTask(NameOf(static_cast<std::uint32_t>(random() % TaskCount)));
    }
}

class ManagerStress : public testing::TestWithParam<int> {};

INSTANTIATE_TEST_SUITE_P(Limits, ManagerStress, testing::Values(1, 2, 10));

TEST_P(ManagerStress, ShortTasksFromManyThreadsWithCancelsOfTheSameNames) {
    CountingObserver observer;
    Fates fates;
    {
        CQSThreadManager manager(GetParam() % 2 == 0);
        manager.SetParallelTaskCount(static_cast<std::uint64_t>(GetParam()));
        manager.AddTaskThreadMgrObserver(&observer);
        std::vector<std::thread> clients;
        for (unsigned client = 0; client < ClientCount; ++client)
            clients.emplace_back([&, client] { StartAndCancel(manager, client, fates); });
        for (std::thread& client : clients)
            client.join();
        // A task that nobody is to hear of starts no other one; a further task does.
        for (std::uint32_t more = TaskCount; fates.ran + fates.deletedUnrun < TaskCount; ++more) {
            manager.StartTask(new TestTask(manager, NameOf(more), [] { return 1; }));
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }
    EXPECT_EQ(fates.alive, 0) << "every task has been deleted";
    EXPECT_EQ(fates.ran + fates.deletedUnrun, TaskCount / ClientCount * ClientCount);
    EXPECT_GT(fates.ran, fates.deletedUnrun);
    EXPECT_GT(observer.good, 0);
    EXPECT_GT(observer.bad, 0);
}

TEST_P(ManagerStress, AllTasksOfAQueueRunOnce) {
    CountingObserver observer;
    std::atomic<int> ran{0};
    CQSThreadManager manager(false);
    manager.SetParallelTaskCount(static_cast<std::uint64_t>(GetParam()));
    manager.AddTaskThreadMgrObserver(&observer);
    for (std::uint32_t i = 0; i < TaskCount; ++i)
        manager.StartTask(new TestTask(manager, NameOf(i), [&ran] { return ++ran; }));
    while (observer.good < TaskCount)
        std::this_thread::yield();
    EXPECT_EQ(ran, TaskCount);
}

TEST_P(ManagerStress, ObserversMayCancelWhateverHasFinished) {
    Fates fates;
    OpenManager manager(false);
    CallingObserver canceller;
    std::mt19937 random(5);  // observers are called one at a time
    std::atomic<std::uint32_t> told{0};
    std::atomic<int> cancelled{0};
    canceller.onSuccess = [&](const CString&) {
        for (std::uint32_t i = 0; i < 4; ++i) {  // first come, first served: these are at hand
            const CString name = NameOf(told + static_cast<std::uint32_t>(random() % 12));
            CThreadTask* task = nullptr;
            if (manager.GetActivedTaskReference(name, task) == 1 && task->GetThread() == nullptr) {
                manager.CancelTask(name);
                ++cancelled;
            }
        }
        ++told;
    };
    manager.SetParallelTaskCount(static_cast<std::uint64_t>(GetParam()));
    manager.AddTaskThreadMgrObserver(&canceller);
    const auto all = static_cast<std::uint32_t>(TaskCount / 4);
    for (std::uint32_t i = 0; i < all; ++i)
        manager.StartTask(new TestTask(
            manager, NameOf(i), [&fates] { return ++fates.ran; }, &fates.alive));
    while (told < all)
        std::this_thread::yield();
    manager.CancelAllTask();
    EXPECT_EQ(fates.ran, static_cast<int>(all));
    EXPECT_EQ(fates.alive, 0);
    EXPECT_GT(cancelled, 0);
}

TEST(ManagerEnd, ManagersMayEndWhileTheirTasksDo) {
    std::atomic<int> alive{0};
    CountingObserver observer;
    for (int round = 0; round < ManagerCount; ++round) {
        CQSThreadManager manager(round % 2 == 0);
        manager.SetParallelTaskCount(1 + static_cast<std::uint64_t>(round % 3));
        manager.AddTaskThreadMgrObserver(&observer);
        for (std::uint32_t i = 0; i < 4; ++i)
            manager.StartTask(new TestTask(
                manager, NameOf(i), [] { return 1; }, &alive));
        for (int wait = round % 7; wait > 0; --wait)
            std::this_thread::yield();
    }
    EXPECT_EQ(alive, 0);
}

TEST(ManagerEnd, ManyManagersEndTogether) {
    std::atomic<int> alive{0};
    for (int round = 0; round < ManagerCount / 20; ++round) {
        std::vector<std::unique_ptr<CQSThreadManager>> managers;
        for (int i = 0; i < 20; ++i) {
            CQSThreadManager& manager = *managers.emplace_back(std::make_unique<CQSThreadManager>(false));
            for (std::uint32_t task = 0; task < 3; ++task)
                manager.StartTask(new TestTask(
                    manager, NameOf(task), [] { return 0; }, &alive));
        }
    }
    EXPECT_EQ(alive, 0);
}

TEST(ManagerEnd, ClientsMayCancelOneTaskTogether) {
    std::atomic<int> alive{0};
    for (int round = 0; round < ThreadRounds(500); ++round) {
        CQSThreadManager manager(false);
        manager.StartTask(new TestTask(
            manager, u"t",
            [] {
                std::this_thread::yield();
                return 1;
            },
            &alive));
        std::vector<std::thread> clients;
        for (int client = 0; client < 3; ++client)
            clients.emplace_back([&] { manager.CancelTask(u"t"); });
        manager.CancelAllTask();
        for (std::thread& client : clients)
            client.join();
        EXPECT_EQ(alive, 0);
    }
}

// More threads than a process may have at once.
TEST(ManagerEnd, HundredThousandTasksLeaveNothingBehind) {
    CountingObserver observer;
    CQSThreadManager manager(true);
    manager.AddTaskThreadMgrObserver(&observer);
    const int all = Rounds(ThreadRounds(100'000));
    for (int i = 0; i < all; ++i) {
        manager.StartTask(new TestTask(manager, NameOf(static_cast<std::uint32_t>(i)), [] { return 1; }));
        if (i % 16 == 0)
            std::this_thread::yield();
    }
    while (observer.good < all)
        std::this_thread::yield();
}

}  // namespace
