#include "benchmarks/Cases.h"

#include <atomic>

Span& TimedSpan()
{
    static Span s_span;
    return s_span;
}

void Keep(uint64_t value)
{
    static std::atomic<uint64_t> s_kept;
    s_kept.store(value, std::memory_order_relaxed);
}
