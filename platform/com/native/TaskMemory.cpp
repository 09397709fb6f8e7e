// Native bodies of the task allocator: memory that a caller frees for its callee.
#include "platform/com/Ole.h"

#include <cstdlib>

LPVOID WINAPI CoTaskMemAlloc(SIZE_T size)
{
    return std::malloc(size);
}

LPVOID WINAPI CoTaskMemRealloc(LPVOID block, SIZE_T size)
{
    if (block && size == 0) {
        std::free(block);
        return nullptr;
    }
    return std::realloc(block, size);
}

void WINAPI CoTaskMemFree(LPVOID block)
{
    std::free(block);
}
