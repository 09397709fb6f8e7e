// Tells the address sanitizer which part of a pool's memory is in use, so that it finds the use of a freed node
// as it would with plain new and delete. Costs nothing in every other build.
#pragma once

#include <cstddef>

#if defined(__SANITIZE_ADDRESS__)
#define LV_ADDRESS_SANITIZER
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define LV_ADDRESS_SANITIZER
#endif
#endif

#ifdef LV_ADDRESS_SANITIZER
#include <sanitizer/asan_interface.h>
inline void MarkUnused(const void* memory, std::size_t bytes) noexcept
{
    __asan_poison_memory_region(memory, bytes);
}
inline void MarkUsed(const void* memory, std::size_t bytes) noexcept
{
    __asan_unpoison_memory_region(memory, bytes);
}
#undef LV_ADDRESS_SANITIZER
#else
inline void MarkUnused(const void*, std::size_t) noexcept {}
inline void MarkUsed(const void*, std::size_t) noexcept {}
#endif
