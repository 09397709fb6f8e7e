#include "benchmarks/Cases.h"
#include "core/ChunkStore.h"

#include <malloc.h>

double HeapBytes()
{
    // Chunks that earlier trees have left would serve the next one unseen.
    ChunkStore::ReleaseAll();
    const struct mallinfo2 heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd);
}
