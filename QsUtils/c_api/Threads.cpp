#include "QsUtils/c_api/Calls.h"
#include "QsUtils/c_api/Tasks.h"
#include "QsUtils/frame/IQsUtils.h"
#include "QsUtils/platform/Handles.h"
#include "QsUtils/tasks/CSLock.h"

using QsCApi::Call;
using QsCApi::Checked;
using QsCApi::TextOf;

struct QsLock {
    CSLock lock;
};

// --- Threads

QsStatus QsStartThread(std::uint32_t (*routine)(void* context), void* context, const QsChar* name,
                       std::int32_t length, QsThread** thread, std::uint32_t* id) {
    return Call(
        [&] {
            QsCApi::Require(routine != nullptr);
            HANDLE handle = IQsUtils::StartThread(routine, context, TextOf(name, length), id);
            *thread = reinterpret_cast<QsThread*>(handle);
            return QsStatus{handle == nullptr ? QS_FAILED : QS_OK};
        },
        thread, id);
}

QsStatus QsThread_Wait(QsThread* thread, std::uint32_t milliseconds, std::uint32_t* result) {
    return Call(
        [&] {
            const DWORD answer = ::WaitForSingleObject(&Checked(thread), milliseconds);
            if (answer == WAIT_FAILED)
                return QsStatus{QS_FAILED};
            *result = answer;
            return QsStatus{QS_OK};
        },
        result);
}

QsStatus QsThread_Close(QsThread* thread) {
    return Call([&] { return QsStatus{::CloseHandle(&Checked(thread)) != 0 ? QS_OK : QS_FAILED}; });
}

// --- Locks

QsStatus QsLock_Create(QsLock** lock) {
    return Call([&] { *lock = new QsLock; }, lock);
}

QsStatus QsLock_Lock(QsLock* lock) {
    return Call([&] { Checked(lock).lock.Lock(); });
}

QsStatus QsLock_UnLock(QsLock* lock) {
    return Call([&] { Checked(lock).lock.UnLock(); });
}

void QsLock_Free(QsLock* lock) {
    delete lock;
}
