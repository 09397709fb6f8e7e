// The count of living objects of this module, which decides whether the library may be unloaded.
#pragma once

#include "platform/com/Ole.h"

#include <atomic>

/// Process-wide: one count per linked module. Any thread.
class Module {
public:
    static void Lock() { s_count.fetch_add(1, std::memory_order_relaxed); }
    static void Unlock() { s_count.fetch_sub(1, std::memory_order_acq_rel); }
    static LONG LockCount() { return s_count.load(std::memory_order_acquire); }

private:
    static inline std::atomic<LONG> s_count{0};
};
