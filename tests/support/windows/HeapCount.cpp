#include "tests/support/windows/HeapCount.h"

#include "platform/com/Ole.h"

#include <atomic>
#include <cstdlib>
#include <malloc.h>
#include <new>
#include <vector>

namespace {

std::atomic<std::size_t> g_living{0};

} // namespace

void* operator new(std::size_t size)
{
    void* const memory = std::malloc(size ? size : 1);
    if (!memory)
        throw std::bad_alloc();
    g_living += _msize(memory);
    return memory;
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    void* const memory = std::malloc(size ? size : 1);
    if (memory)
        g_living += _msize(memory);
    return memory;
}

void operator delete(void* memory) noexcept
{
    if (!memory)
        return;
    g_living -= _msize(memory);
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    operator delete(memory);
}

std::size_t LivingBytes()
{
    return g_living;
}

std::size_t HeapBytes()
{
    HANDLE heaps[64] = {};
    const DWORD count = GetProcessHeaps(64, heaps);
    std::size_t bytes = 0;
    for (DWORD i = 0; i < count && i < 64; ++i) {
        if (!HeapLock(heaps[i]))
            continue;
        PROCESS_HEAP_ENTRY entry{};
        while (HeapWalk(heaps[i], &entry)) {
            if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0)
                bytes += entry.cbData;
        }
        HeapUnlock(heaps[i]);
    }
    return bytes;
}
