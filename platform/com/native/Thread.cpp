// Native bodies of the thread's id and last error, and of the clock.
#include "platform/com/Ole.h"

#include <atomic>
#include <chrono>

namespace {

constinit thread_local DWORD t_dwThreadId = 0;
constinit thread_local DWORD t_dwLastError = 0;

DWORD NewThreadId()
{
    static constinit std::atomic<DWORD> lastId{0};
    return t_dwThreadId = ++lastId;
}

} // namespace

/// Small, not zero, and not given again while the process lives: a lock that a dead thread left behind never takes
/// a younger thread for its owner.
DWORD WINAPI GetCurrentThreadId()
{
    return t_dwThreadId ? t_dwThreadId : NewThreadId();
}

DWORD WINAPI GetLastError()
{
    return t_dwLastError;
}

void WINAPI SetLastError(DWORD error)
{
    t_dwLastError = error;
}

/// Milliseconds of a clock that never goes back.
ULONGLONG WINAPI GetTickCount64()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<ULONGLONG>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}
