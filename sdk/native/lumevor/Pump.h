// Delivering the events that other threads have posted to this one; the native half.
#pragma once

#include "platform/com/PumpThreadQueue.h"

namespace lumevor {

/// Delivers what has been posted to the calling thread, and waits for the first of it.
/// @param milliseconds  longest wait; 0 only looks, INFINITE waits without limit.
/// @return the number of messages delivered.
inline ULONG PumpEvents(DWORD milliseconds)
{
    return PumpThreadQueue(milliseconds);
}

} // namespace lumevor
