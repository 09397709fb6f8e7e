// CMutex and CSingleLock: the framework's mutex under its well-known names, for use within one process.
#pragma once

#include "platform/com/Ole.h"

#include <condition_variable>
#include <mutex>

/// Recursive for the thread that holds it. Created unnamed and unowned. Lock order and fairness are not promised.
class CMutex {
public:
    CMutex() = default;
    CMutex(const CMutex&) = delete;
    CMutex& operator=(const CMutex&) = delete;

    /// @param dwTimeout  milliseconds; 0 only polls, INFINITE waits without limit.
    /// @return FALSE when the time ran out with another thread still holding the mutex.
    BOOL Lock(DWORD dwTimeout = INFINITE);

    /// Gives back one Lock of the calling thread. FALSE, without effect, when that thread does not hold the mutex.
    BOOL Unlock();

private:
    std::mutex m_guard; // held for the few lines of each operation only
    std::condition_variable m_freed;
    DWORD m_dwOwner = 0; // thread id, 0 while free
    ULONG m_nDepth = 0;
};

/// Holds a mutex for a scope.
class CSingleLock {
public:
    explicit CSingleLock(CMutex* pMutex, BOOL bInitialLock = FALSE) : m_pMutex(pMutex)
    {
        if (bInitialLock)
            Lock();
    }
    ~CSingleLock() { Unlock(); }
    CSingleLock(const CSingleLock&) = delete;
    CSingleLock& operator=(const CSingleLock&) = delete;

    BOOL Lock(DWORD dwTimeout = INFINITE)
    {
        if (!m_bAcquired)
            m_bAcquired = m_pMutex->Lock(dwTimeout);
        return m_bAcquired;
    }
    BOOL Unlock()
    {
        if (m_bAcquired)
            m_bAcquired = !m_pMutex->Unlock();
        return !m_bAcquired;
    }
    BOOL IsLocked() const { return m_bAcquired; }

private:
    CMutex* const m_pMutex;
    BOOL m_bAcquired = FALSE;
};
