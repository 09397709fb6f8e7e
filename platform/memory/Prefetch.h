// Hints to the processor that memory will be read soon. A hint never faults, so any address will do, null included.
#pragma once

#include <cstddef>

#if __has_include(<xmmintrin.h>)
#include <xmmintrin.h>
inline void PrefetchLine(const void* address) noexcept
{
    _mm_prefetch(static_cast<const char*>(address), _MM_HINT_T0);
}
#else
inline void PrefetchLine(const void*) noexcept {}
#endif

constexpr std::size_t kCacheLine = 64;

/// Asks for every cache line of an object that is about to be visited.
template <class Object>
void Prefetch(const Object* object) noexcept
{
    for (std::size_t offset = 0; offset < sizeof(Object); offset += kCacheLine)
        PrefetchLine(reinterpret_cast<const char*>(object) + offset);
}
