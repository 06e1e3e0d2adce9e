#include "Check.h"

/* What the threads write, under a lock. */
typedef struct Journal {
    QsLock* lock;
    int inits;
    int runs;
    int threads;
    int releases;
    int successes;
    int failures;
} Journal;

static void Count(Journal* journal, int* counter) {
    QsLock_Lock(journal->lock);
    ++*counter;
    QsLock_UnLock(journal->lock);
}

static uint32_t OnThread(void* context) {
    *(int*)context += 1;
    return 5;
}

static int32_t Init(void* context, QsTask* task) {
    (void)task;
    Count(context, &((Journal*)context)->inits);
    return 1;
}

static int32_t RefuseInit(void* context, QsTask* task) {
    (void)context;
    (void)task;
    return 0;
}

static int32_t Execute(void* context, QsTask* task) {
    Journal* journal = context;
    QsThread* thread = NULL;
    Count(journal, &journal->runs);
    if (QsTask_GetThread(task, &thread) == QS_OK && thread != NULL)
        Count(journal, &journal->threads);
    return 1;
}

static void Release(void* context) {
    Count(context, &((Journal*)context)->releases);
}

static void Success(void* context, const QsChar* name, int32_t length) {
    if (name != NULL && length > 0 && name[length] == 0)
        Count(context, &((Journal*)context)->successes);
}

static void Failure(void* context, const QsChar* name, int32_t length, const QsChar* reason,
                    int32_t reasonLength) {
    if (AreUnits(name, length, "fails") && AreUnits(reason, reasonLength, ""))
        Count(context, &((Journal*)context)->failures);
}

static void CheckThreads(void) {
    QsThread* thread = NULL;
    int counter = 0;
    uint32_t id = 0;
    uint32_t result = 7;
    OK(QsStartThread(OnThread, &counter, T("worker"), &thread, &id));
    CHECK(id != 0);
    OK(QsThread_Wait(thread, QS_WAIT_FOREVER, &result));
    CHECK(result == QS_WAIT_ENDED && counter == 1);
    OK(QsThread_Close(thread));
    STATUS(QS_INVALID_ARGUMENT, QsStartThread(NULL, NULL, T("none"), &thread, &id));
    CHECK(thread == NULL && id == 0);
}

static QsTask* NewTask(Journal* journal, const char* name, QsTaskInit init) {
    QsTask* task = NULL;
    OK(QsTask_Create(NULL, Units(name), -1, Execute, init, Release, journal, &task));
    return task;
}

static void RunTasks(Journal* journal, QsTaskManager* manager) {
    QsTask* batch[3];
    QsTask* never = NewTask(journal, "never", NULL);
    QsThread* thread = NULL;
    OK(QsTask_GetThread(never, &thread));
    CHECK(thread == NULL);
    QsTask_Free(never);
    OK(QsTaskManager_SetParallelTaskCount(manager, 3));
    OK(QsTaskManager_StartTask(manager, NewTask(journal, "one", Init)));
    batch[0] = NewTask(journal, "two", NULL);
    batch[1] = NULL;
    batch[2] = NewTask(journal, "fails", RefuseInit);
    OK(QsTaskManager_BatchStartTask(manager, batch, 3));
    OK(QsTaskManager_StartTask(manager, NULL));
    /* All of them run, and are waited for. */
    OK(QsTaskManager_CancelTask(manager, T("one")));
    OK(QsTaskManager_CancelTask(manager, T("two")));
    OK(QsTaskManager_CancelTask(manager, T("fails")));
}

/* The steps of a manager, which here is one that runs nothing by itself. */
static void CheckSteps(Journal* journal) {
    QsTaskManager* manager = NULL;
    QsTask* task = NewTask(journal, "step", NULL);
    QsTask* found = NULL;
    int32_t isTaken = 0;
    OK(QsTaskManager_Create(1, &manager));
    STATUS(QS_NOT_FOUND, QsTaskManager_GetCurFirstWaitTaskInfo(manager, &found));
    OK(QsTaskManager_EnterWaitQueue(manager, task, &isTaken));
    CHECK(isTaken == 1);
    OK(QsTaskManager_GetCurFirstWaitTaskInfo(manager, &found));
    CHECK(found == task);
    OK(QsTaskManager_EnterActiveQueue(manager, task, &isTaken));
    CHECK(isTaken == 1);
    OK(QsTaskManager_GetActivedTaskReference(manager, T("step"), &found));
    CHECK(found == task);
    STATUS(QS_NOT_FOUND, QsTaskManager_GetActivedTaskReference(manager, T("other"), &found));
    OK(QsTaskManager_StartThreadFromWaitInfo(manager));
    OK(QsTaskManager_CancelAllTask(manager));
    OK(QsTaskManager_StartTaskThread(manager, NewTask(journal, "runs", NULL), &isTaken));
    CHECK(isTaken == 1);
    if (QsTaskManager_GetActivedTaskReference(manager, T("runs"), &found) == QS_OK)
        OK(QsTaskManager_CloseTaskThread(manager, found));
    QsTaskManager_Free(manager);
}

void CheckTasks(void) {
    Journal journal = {NULL, 0, 0, 0, 0, 0, 0};
    QsTaskManager* manager = NULL;
    QsTaskObserver* observer = NULL;
    CheckThreads();
    OK(QsLock_Create(&journal.lock));
    OK(QsTaskManager_Create(0, &manager));
    OK(QsTaskObserver_Create(Success, Failure, &journal, &observer));
    OK(QsTaskManager_AddTaskThreadMgrObserver(manager, observer));
    RunTasks(&journal, manager);
    OK(QsTaskManager_DelTaskThreadMgrObserver(manager, observer));
    OK(QsTaskManager_CancelAllTask(manager));
    QsTaskManager_Free(manager);
    QsTaskObserver_Free(observer);
    CHECK(journal.successes == 2 && journal.failures == 1);
    CHECK(journal.inits == 1 && journal.runs == 2 && journal.threads == 2 && journal.releases == 4);
    CheckSteps(&journal);
    CHECK(journal.releases == 6 && journal.runs == 3);
    QsLock_Free(journal.lock);
    QsTask_Free(NULL);
    QsTaskManager_Free(NULL);
}
