// What a manager keeps beside its queues.
#pragma once

#include <atomic>
#include <cstdint>
#include <list>

#include "QsUtils/platform/Threads.h"
#include "QsUtils/tasks/ITaskResultNotify.h"
#include "QsUtils/tasks/TaskThreads.h"
#include "QsUtils/tasks/WaitIndex.h"

namespace QsTasks {

/// Where a notification is in the list of observers, which a callback may change. Under the observer lock.
struct ObserverWalk {
    using Observers = std::list<ITaskResultNotify*>;

    Observers::iterator place;
    bool isOn = false;
    /// Whether the observer at hand is gone and `place` is already the next one.
    bool isMoved = false;

    void Remove(Observers& observers, Observers::iterator removed) {
        const bool isHere = isOn && removed == place;
        const auto next = observers.erase(removed);
        if (isHere) {
            place = next;
            isMoved = true;
        }
    }
};

struct TaskRecords {
    WaitIndex waiting;
    TaskThreads threads;
    ObserverWalk walk;
    bool isEnding = false;  ///< the manager is being destroyed and takes no more tasks
    /// The id of the thread that is in others' code with the queue lock held; 0 when none is.
    std::atomic<std::uint32_t> calledBack{0};
};

/// Around others' code that is called with the queue lock held: observers, and the destructors of tasks.
class CallBack {
public:
    explicit CallBack(TaskRecords& records) noexcept
        : m_records(records), m_before(records.calledBack.exchange(QsPlatform::CurrentThreadId())) {}
    CallBack(const CallBack&) = delete;
    CallBack& operator=(const CallBack&) = delete;
    ~CallBack() { m_records.calledBack = m_before; }

private:
    TaskRecords& m_records;
    const std::uint32_t m_before;
};

}  // namespace QsTasks
