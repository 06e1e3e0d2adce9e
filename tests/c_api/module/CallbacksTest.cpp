// Callbacks of the C interface, from many threads.
#include <atomic>
#include <cstdint>
#include <mutex>
#include <set>
#include <string>
#include <vector>

#include <QsUtils/c_api.h>
#include <gtest/gtest.h>

#include "tests/support/Rounds.h"

namespace {

/// What tasks and an observer have told.
struct Journal {
    std::atomic<int> inits{0};
    std::atomic<int> runs{0};
    std::atomic<int> releases{0};
    std::mutex lock;
    std::multiset<std::u16string> successes;
    std::multiset<std::u16string> failures;
};

Journal& Of(void* context) {
    return *static_cast<Journal*>(context);
}

std::int32_t Init(void* context, QsTask*) {
    return ++Of(context).inits;
}

std::int32_t Execute(void* context, QsTask* task) {
    QsThread* thread = nullptr;
    EXPECT_EQ(QsTask_GetThread(task, &thread), QS_OK);
    EXPECT_NE(thread, nullptr);
    return ++Of(context).runs % 4 == 0 ? 0 : 1;
}

void Release(void* context) {
    ++Of(context).releases;
}

void OnSuccess(void* context, const QsChar* name, std::int32_t length) {
    const std::lock_guard lock(Of(context).lock);
    Of(context).successes.emplace(name, static_cast<std::size_t>(length));
}

void OnFailure(void* context, const QsChar* name, std::int32_t length, const QsChar* reason,
               std::int32_t reasonLength) {
    EXPECT_EQ(reasonLength, 0);
    EXPECT_EQ(reason[0], u'\0');
    const std::lock_guard lock(Of(context).lock);
    Of(context).failures.emplace(name, static_cast<std::size_t>(length));
}

QsTask* NewTask(Journal& journal, const std::u16string& name) {
    QsTask* task = nullptr;
    EXPECT_EQ(QsTask_Create(nullptr, name.data(), static_cast<std::int32_t>(name.size()), Execute, Init,
                            Release, &journal, &task),
              QS_OK);
    return task;
}

std::u16string NameOf(int number) {
    const std::string digits = std::to_string(number);
    return std::u16string(digits.begin(), digits.end());
}

TEST(CApiCallbacks, EveryTaskIsRunToldAndReleasedOnce) {
    const int tasks = ThreadRounds(Rounds(400));
    Journal journal;
    QsTaskManager* manager = nullptr;
    QsTaskObserver* observer = nullptr;
    ASSERT_EQ(QsTaskManager_Create(0, &manager), QS_OK);
    ASSERT_EQ(QsTaskObserver_Create(OnSuccess, OnFailure, &journal, &observer), QS_OK);
    ASSERT_EQ(QsTaskManager_AddTaskThreadMgrObserver(manager, observer), QS_OK);
    ASSERT_EQ(QsTaskManager_SetParallelTaskCount(manager, 4), QS_OK);
    std::multiset<std::u16string> names;
    for (int i = 0; i < tasks; ++i) {
        names.insert(NameOf(i));
        ASSERT_EQ(QsTaskManager_StartTask(manager, NewTask(journal, NameOf(i))), QS_OK);
    }
    for (;;) {
        const std::lock_guard lock(journal.lock);
        if (journal.successes.size() + journal.failures.size() == names.size())
            break;
    }
    QsTaskManager_Free(manager);
    QsTaskObserver_Free(observer);
    EXPECT_EQ(journal.inits, tasks);
    EXPECT_EQ(journal.runs, tasks);
    EXPECT_EQ(journal.releases, tasks);
    EXPECT_EQ(journal.failures.size(), static_cast<std::size_t>(tasks / 4));
    journal.successes.merge(journal.failures);
    EXPECT_EQ(journal.successes, names);
}

struct Counted {
    QsLock* lock;
    int count;
};

std::uint32_t CountUp(void* context) {
    Counted& counted = *static_cast<Counted*>(context);
    for (int i = 0; i < 1000; ++i) {
        QsLock_Lock(counted.lock);
        QsLock_Lock(counted.lock);
        ++counted.count;
        QsLock_UnLock(counted.lock);
        QsLock_UnLock(counted.lock);
    }
    return 0;
}

TEST(CApiCallbacks, ThreadsTakeTurnsByALock) {
    Counted counted = {nullptr, 0};
    ASSERT_EQ(QsLock_Create(&counted.lock), QS_OK);
    std::vector<QsThread*> threads(4);
    for (QsThread*& thread : threads) {
        std::uint32_t id = 0;
        ASSERT_EQ(QsStartThread(CountUp, &counted, u"counter", -1, &thread, &id), QS_OK);
        EXPECT_NE(id, 0u);
    }
    for (QsThread* const thread : threads) {
        std::uint32_t result = 7;
        EXPECT_EQ(QsThread_Wait(thread, QS_WAIT_FOREVER, &result), QS_OK);
        EXPECT_EQ(result, std::uint32_t{QS_WAIT_ENDED});
        EXPECT_EQ(QsThread_Close(thread), QS_OK);
    }
    EXPECT_EQ(counted.count, 4000);
    QsLock_Free(counted.lock);
}

std::uint32_t WaitForLock(void* context) {
    QsLock_Lock(static_cast<QsLock*>(context));
    QsLock_UnLock(static_cast<QsLock*>(context));
    return 0;
}

TEST(CApiCallbacks, AWaitMayEndBeforeTheThread) {
    QsLock* lock = nullptr;
    QsThread* thread = nullptr;
    std::uint32_t id = 0;
    std::uint32_t result = 7;
    ASSERT_EQ(QsLock_Create(&lock), QS_OK);
    ASSERT_EQ(QsLock_Lock(lock), QS_OK);
    ASSERT_EQ(QsStartThread(WaitForLock, lock, nullptr, 0, &thread, &id), QS_OK);
    EXPECT_EQ(QsThread_Wait(thread, 1, &result), QS_OK);
    EXPECT_EQ(result, std::uint32_t{QS_WAIT_TIMEOUT});
    ASSERT_EQ(QsLock_UnLock(lock), QS_OK);
    EXPECT_EQ(QsThread_Wait(thread, QS_WAIT_FOREVER, &result), QS_OK);
    EXPECT_EQ(QsThread_Close(thread), QS_OK);
    QsLock_Free(lock);
}

TEST(CApiCallbacks, ATaskWithoutWorkIsNone) {
    QsTask* task = reinterpret_cast<QsTask*>(0x10);
    EXPECT_EQ(QsTask_Create(nullptr, u"a", -1, nullptr, Init, Release, nullptr, &task), QS_INVALID_ARGUMENT);
    EXPECT_EQ(task, nullptr);
}

TEST(CApiCallbacks, ARefusedCallLeavesTasksWithTheCaller) {
    Journal journal;
    QsTask* const task = NewTask(journal, u"mine");
    QsTask* const tasks[] = {task};
    QsTaskManager* manager = nullptr;
    ASSERT_EQ(QsTaskManager_Create(0, &manager), QS_OK);
    EXPECT_EQ(QsTaskManager_StartTask(nullptr, task), QS_INVALID_ARGUMENT);
    EXPECT_EQ(QsTaskManager_BatchStartTask(nullptr, tasks, 1), QS_INVALID_ARGUMENT);
    EXPECT_EQ(QsTaskManager_BatchStartTask(manager, tasks, -1), QS_INVALID_ARGUMENT);
    EXPECT_EQ(QsTaskManager_BatchStartTask(manager, nullptr, 1), QS_INVALID_ARGUMENT);
    EXPECT_EQ(QsTaskManager_BatchStartTask(manager, nullptr, 0), QS_OK);
    EXPECT_EQ(journal.releases, 0);
    QsTask_Free(task);
    EXPECT_EQ(journal.releases, 1);
    QsTaskManager_Free(manager);
}

TEST(CApiCallbacks, AnObserverMayLackEitherFunction) {
    Journal journal;
    QsTaskManager* manager = nullptr;
    QsTaskObserver* observer = nullptr;
    ASSERT_EQ(QsTaskManager_Create(0, &manager), QS_OK);
    ASSERT_EQ(QsTaskObserver_Create(nullptr, nullptr, nullptr, &observer), QS_OK);
    ASSERT_EQ(QsTaskManager_AddTaskThreadMgrObserver(manager, observer), QS_OK);
    for (int i = 0; i < 4; ++i)
        ASSERT_EQ(QsTaskManager_StartTask(manager, NewTask(journal, NameOf(i))), QS_OK);
    QsTaskManager_Free(manager);
    QsTaskObserver_Free(observer);
    EXPECT_EQ(journal.runs, 4) << "one is a failure";
    EXPECT_EQ(journal.releases, 4);
}

}  // namespace
