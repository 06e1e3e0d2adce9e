#include "QsUtils/tasks/CThreadTask.h"

#include <atomic>

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

// The field is written under the manager's lock and may be read without it.
HANDLE CThreadTask::ThreadHandle() const noexcept {
    return std::atomic_ref(const_cast<HANDLE&>(m_hThread)).load(std::memory_order_acquire);
}

void CThreadTask::SetThreadHandle(HANDLE thread) noexcept {
    std::atomic_ref(m_hThread).store(thread, std::memory_order_release);
}
