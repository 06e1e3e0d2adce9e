/// @file
/// Threads, locks, and tasks on threads of their own. Callbacks run on those threads, must not raise
/// anything, and get the `context` that they were given with, which the library never looks at.
#pragma once

#include "QsUtils/c_api/Basics.h"

#if defined(__cplusplus)
extern "C" {
#endif

// --- Threads

/// A thread: on Windows the system's own handle, for its calls as well.
typedef struct QsThread QsThread;

/// The time of a wait without limit.
#define QS_WAIT_FOREVER 0xFFFFFFFFu
enum { QS_WAIT_ENDED = 0, QS_WAIT_TIMEOUT = 258 };

/// Starts a thread that runs `routine(context)` and tells the log with `name`. The handle is the caller's,
/// who closes it; the thread runs on. QS_FAILED when there is no thread to be had.
QSUTILS_API QsStatus QsStartThread(uint32_t (*routine)(void* context), void* context, const QsChar* name,
                                   int32_t length, QsThread** thread, uint32_t* id);
/// Waits until the thread has ended, or for so many milliseconds at most; `result` is one of QS_WAIT_...
/// QS_FAILED for a handle that isn't open.
QSUTILS_API QsStatus QsThread_Wait(QsThread* thread, uint32_t milliseconds, uint32_t* result);
/// Gives the handle back. QS_FAILED for one that isn't open.
QSUTILS_API QsStatus QsThread_Close(QsThread* thread);

/// A lock that its owner may take again. Any thread may call anything while it exists.
typedef struct QsLock QsLock;

/// A lock that nobody owns; it is the caller's.
QSUTILS_API QsStatus QsLock_Create(QsLock** lock);
/// Waits until the lock is free or this thread's, and takes it; each call needs its `QsLock_UnLock`.
QSUTILS_API QsStatus QsLock_Lock(QsLock* lock);
/// Leaves the lock. By a thread that doesn't own it it does nothing.
QSUTILS_API QsStatus QsLock_UnLock(QsLock* lock);
/// Ends the lock, which nobody may own any more; null is taken.
QSUTILS_API void QsLock_Free(QsLock* lock);

// --- Tasks, as `CThreadTask` and `CQSThreadManager` describe them

/// Runs named tasks, each on a thread of its own, with a set number of them at a time.
typedef struct QsTaskManager QsTaskManager;
/// A task that a manager runs.
typedef struct QsTask QsTask;
/// Who hears of the end of tasks.
typedef struct QsTaskObserver QsTaskObserver;

/// The work. -1 says that nobody is to hear of the task and no other is to start, 0 that it failed; anything
/// else is success. `task` is borrowed for the call.
typedef int32_t (*QsTaskExecute)(void* context, QsTask* task);
/// Before the work, on the same thread; 0 ends the task as failed, with no work done.
typedef int32_t (*QsTaskInit)(void* context, QsTask* task);
/// The task is being deleted: the last that is heard of it, on whichever thread.
typedef void (*QsTaskRelease)(void* context);

/// A task of that name. `manager` may be null: the one that runs it counts. `init` and `release` may be null,
/// for nothing to do. The task is the caller's until it is handed to a manager.
QSUTILS_API QsStatus QsTask_Create(QsTaskManager* manager, const QsChar* name, int32_t length,
                                   QsTaskExecute execute, QsTaskInit init, QsTaskRelease release,
                                   void* context, QsTask** task);
/// The running thread, borrowed from the task; null, with QS_OK, before the start and at the end.
QSUTILS_API QsStatus QsTask_GetThread(QsTask* task, QsThread** thread);
/// Only for a task that was never handed over.
QSUTILS_API void QsTask_Free(QsTask* task);

/// A task has ended well. The name is borrowed for the call.
typedef void (*QsTaskSuccess)(void* context, const QsChar* name, int32_t length);
/// A task has failed. Name and reason are borrowed for the call; the reason is always empty.
typedef void (*QsTaskFailure)(void* context, const QsChar* name, int32_t length, const QsChar* reason,
                              int32_t reasonLength);

/// An observer that is called on the tasks' threads, one at a time; either function may be null. It is the
/// caller's, who frees it when no manager has it any more.
QSUTILS_API QsStatus QsTaskObserver_Create(QsTaskSuccess success, QsTaskFailure failure, void* context,
                                           QsTaskObserver** observer);
/// Ends the observer; null is taken.
QSUTILS_API void QsTaskObserver_Free(QsTaskObserver* observer);

/// A manager without tasks, which is the caller's. Any thread may call any of its functions. With
/// `lastInFirstOut` the waiting task that came last is the next.
QSUTILS_API QsStatus QsTaskManager_Create(int32_t lastInFirstOut, QsTaskManager** manager);
/// Deletes the waiting tasks, waits for the running ones, and ends the manager; null is taken. Not to be
/// called from a task or an observer of its own.
QSUTILS_API void QsTaskManager_Free(QsTaskManager* manager);
/// Runs the task, lets it wait, or deletes it because its name is in use. It is the manager's with any status
/// but QS_INVALID_ARGUMENT. Null is ignored.
QSUTILS_API QsStatus QsTaskManager_StartTask(QsTaskManager* manager, QsTask* task);
/// The same for each task in order.
QSUTILS_API QsStatus QsTaskManager_BatchStartTask(QsTaskManager* manager, QsTask* const* tasks,
                                                  int32_t count);
/// How many tasks may run at a time; 10 at first.
QSUTILS_API QsStatus QsTaskManager_SetParallelTaskCount(QsTaskManager* manager, uint64_t count);
/// Deletes the task of that name; a running one is waited for.
QSUTILS_API QsStatus QsTaskManager_CancelTask(QsTaskManager* manager, const QsChar* name, int32_t length);
/// Deletes the waiting tasks, then cancels the active ones one by one.
QSUTILS_API QsStatus QsTaskManager_CancelAllTask(QsTaskManager* manager);
/// Tells an observer of the end of tasks from now on; added twice, it is told twice.
QSUTILS_API QsStatus QsTaskManager_AddTaskThreadMgrObserver(QsTaskManager* manager, QsTaskObserver* observer);
/// Tells it no longer.
QSUTILS_API QsStatus QsTaskManager_DelTaskThreadMgrObserver(QsTaskManager* manager, QsTaskObserver* observer);

// What C++ keeps for classes derived from the manager: the steps of which the functions above are made.

/// As `QsTaskManager_StartTask`; whether the task runs or waits.
QSUTILS_API QsStatus QsTaskManager_StartTaskThread(QsTaskManager* manager, QsTask* task, int32_t* isTaken);
/// Starts the next waiting task.
QSUTILS_API QsStatus QsTaskManager_StartThreadFromWaitInfo(QsTaskManager* manager);
/// Takes the next waiting task out; it is the caller's. QS_NOT_FOUND when none waits.
QSUTILS_API QsStatus QsTaskManager_GetCurFirstWaitTaskInfo(QsTaskManager* manager, QsTask** task);
/// The active task of that name, borrowed. QS_NOT_FOUND when there is none.
QSUTILS_API QsStatus QsTaskManager_GetActivedTaskReference(QsTaskManager* manager, const QsChar* name,
                                                           int32_t length, QsTask** task);
/// Puts a task at the end of the active queue; it is the manager's when `isTaken` is 1.
QSUTILS_API QsStatus QsTaskManager_EnterActiveQueue(QsTaskManager* manager, QsTask* task, int32_t* isTaken);
/// Puts a task at the end of the waiting queue, likewise. One whose name waits already is deleted.
QSUTILS_API QsStatus QsTaskManager_EnterWaitQueue(QsTaskManager* manager, QsTask* task, int32_t* isTaken);
/// Waits for the task's thread and closes its handle.
QSUTILS_API QsStatus QsTaskManager_CloseTaskThread(QsTaskManager* manager, QsTask* task);

#if defined(__cplusplus)
}
#endif
