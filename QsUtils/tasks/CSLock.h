/// @file
/// The lock of the task threads, and its scoped form.
#pragma once

#include "QsUtils/platform/Api.h"
#include "QsUtils/platform/RecursiveMutex.h"

/// A lock that its owner may take again: each `Lock` needs its `UnLock`. An `UnLock` by a thread that doesn't
/// own it does nothing. Any thread may call anything while the lock exists.
class QSUTILS_API CSLock {
public:
    CSLock();
    /// A lock of its own, which nobody owns: who waits for one lock can't be served by another.
    CSLock(const CSLock&);
    /// Leaves both locks as they are.
    CSLock& operator=(const CSLock&);
    /// Nobody may own the lock or wait for it any more.
    virtual ~CSLock();

    /// Waits until no other thread owns the lock, and enters it once more.
    void Lock();
    /// Leaves it once; with the last time it is free.
    void UnLock();

private:
    QsPlatform::RecursiveMutex m_mutex;
};

/// Holds a lock for as long as it lives.
class QSUTILS_API CSAutoLock {
public:
    /// Enters the lock, which has to outlive this object.
    explicit CSAutoLock(CSLock& lock);
    /// Doesn't enter the lock, but leaves it at its end all the same: with a copy, a lock is left once more
    /// than it was entered.
    CSAutoLock(const CSAutoLock&);
    CSAutoLock& operator=(const CSAutoLock&) = delete;
    virtual ~CSAutoLock();

private:
    CSLock* m_pLock;
};
