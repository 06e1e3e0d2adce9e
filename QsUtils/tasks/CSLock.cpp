#include "QsUtils/tasks/CSLock.h"

CSLock::CSLock() = default;
CSLock::CSLock(const CSLock&) {}
CSLock& CSLock::operator=(const CSLock&) {
    return *this;
}
CSLock::~CSLock() = default;

void CSLock::Lock() {
    m_mutex.lock();
}

void CSLock::UnLock() {
    m_mutex.unlock();
}

CSAutoLock::CSAutoLock(CSLock& lock) : m_pLock(&lock) {
    m_pLock->Lock();
}

CSAutoLock::CSAutoLock(const CSAutoLock&) = default;

CSAutoLock::~CSAutoLock() {
    m_pLock->UnLock();
}
