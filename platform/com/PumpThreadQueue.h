// Delivery of posted events to a thread that has no message loop of its own.
#pragma once

#include "platform/com/Ole.h"

extern "C" {

/// Delivers everything that was posted to the calling thread, in order of posting and including what is posted
/// meanwhile. A native client calls it on each thread that has created a collection or given one its unique number,
/// wherever a Windows client would run its message loop; on Windows it runs that loop until the queue is empty.
/// @param dwTimeout  milliseconds to wait when nothing is there yet; 0 does not wait, INFINITE waits without limit.
///                   Natively a thread without event windows never waits, since nothing can come.
/// @return how many messages were handled; natively, how many events.
ULONG PumpThreadQueue(DWORD dwTimeout);
}
