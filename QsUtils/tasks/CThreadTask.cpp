#include "QsUtils/tasks/CThreadTask.h"

#include <atomic>

#include "QsUtils/tasks/CQSThreadManager.h"

namespace {

// The lowest bit of the handle, which no handle uses.
constexpr std::uintptr_t ReturnMark = 1;

std::uintptr_t BitsOf(HANDLE thread) noexcept {
    return reinterpret_cast<std::uintptr_t>(thread);
}

}  // namespace

CThreadTask::CThreadTask(CQSThreadManager* manager, const CString& name, void* param)
    : m_strTaskName(name), m_pManager(manager), m_pParam(param), m_hThread(nullptr) {}

CThreadTask::CThreadTask(const CThreadTask& other)
    : m_strTaskName(other.m_strTaskName),
      m_pManager(other.m_pManager),
      m_pParam(other.m_pParam),
      m_hThread(other.ThreadHandle()) {}

CThreadTask& CThreadTask::operator=(const CThreadTask& other) {
    if (this == &other)
        return *this;
    m_strTaskName = other.m_strTaskName;
    m_pManager = other.m_pManager;
    m_pParam = other.m_pParam;
    SetThreadHandle(other.ThreadHandle());
    return *this;
}

CThreadTask::~CThreadTask() = default;

std::int32_t CThreadTask::InitTask() {
    return 1;
}

HANDLE CThreadTask::GetThread() {
    return ThreadHandle();
}

// The field may be read without the manager's lock. A task whose work is over is finished for the thread that
// the manager has called back, which holds up what belongs to the end of the others; for anybody else it is
// when its own thread has the lock and is telling its end.
HANDLE CThreadTask::ThreadHandle() const noexcept {
    HANDLE thread = std::atomic_ref(const_cast<HANDLE&>(m_hThread)).load(std::memory_order_acquire);
    if ((BitsOf(thread) & ReturnMark) == 0)
        return thread;
    return m_pManager->IsCalledBack() ? nullptr : reinterpret_cast<HANDLE>(BitsOf(thread) & ~ReturnMark);
}

void CThreadTask::SetThreadHandle(HANDLE thread) noexcept {
    std::atomic_ref(m_hThread).store(thread, std::memory_order_release);
}

/// By the task's own thread; the task may be gone when it returns.
void CThreadTask::MarkReturned() noexcept {
    SetThreadHandle(reinterpret_cast<HANDLE>(BitsOf(m_hThread) | ReturnMark));
}
