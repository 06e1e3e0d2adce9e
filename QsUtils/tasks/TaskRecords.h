// What a manager keeps beside its queues.
#pragma once

#include <list>

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
};

}  // namespace QsTasks
