#include "platform/mfc/Mutex.h"

#include <chrono>

BOOL CMutex::Lock(DWORD dwTimeout)
{
    const DWORD self = GetCurrentThreadId();
    std::unique_lock guard(m_guard);
    if (m_dwOwner != self) {
        const auto isFree = [this] { return m_dwOwner == 0; };
        if (dwTimeout == INFINITE)
            m_freed.wait(guard, isFree);
        else if (!m_freed.wait_for(guard, std::chrono::milliseconds(dwTimeout), isFree))
            return FALSE;
        m_dwOwner = self;
    }
    ++m_nDepth;
    return TRUE;
}

BOOL CMutex::Unlock()
{
    const std::lock_guard guard(m_guard);
    if (m_dwOwner != GetCurrentThreadId())
        return FALSE;
    if (--m_nDepth == 0) {
        m_dwOwner = 0;
        m_freed.notify_one(); // under the guard, so that a waiter may destroy the mutex as soon as it holds it
    }
    return TRUE;
}
