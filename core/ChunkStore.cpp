#include "core/ChunkStore.h"

#include "platform/memory/MemoryMarks.h"

#include <bit>
#include <cassert>
#include <mutex>
#include <new>

namespace {
using namespace ChunkStore;

constexpr std::align_val_t kAlignment{kPageBytes};

struct KeptChunk {
    KeptChunk* next;
};

// Process-wide, and the only such state of the pools. It is emptied when the module goes; pools that are even later
// (owned by other statics) find it closed and hand their chunks to the system.
class Store {
public:
    ~Store()
    {
        Empty();
        m_closed = true;
    }

    void* Take(std::size_t bytes)
    {
        const std::scoped_lock guard(m_mutex);
        KeptChunk*& head = m_kept[BinOf(bytes)];
        KeptChunk* chunk = head;
        if (chunk) {
            head = chunk->next;
            m_keptBytes -= bytes;
        }
        return chunk;
    }

    bool Give(void* chunk, std::size_t bytes)
    {
        const std::scoped_lock guard(m_mutex);
        if (m_closed || m_keptBytes + bytes > kMostKept)
            return false;
        KeptChunk*& head = m_kept[BinOf(bytes)];
        head = new (chunk) KeptChunk{head};
        m_keptBytes += bytes;
        return true;
    }

    void Empty()
    {
        const std::scoped_lock guard(m_mutex);
        for (KeptChunk*& head : m_kept) {
            while (KeptChunk* chunk = head) {
                head = chunk->next;
                ::operator delete(chunk, kAlignment);
            }
        }
        m_keptBytes = 0;
    }

    std::size_t KeptBytes()
    {
        const std::scoped_lock guard(m_mutex);
        return m_keptBytes;
    }

private:
    static constexpr std::size_t kBins = std::bit_width(kLargestChunk / kPageBytes);

    static std::size_t BinOf(std::size_t bytes)
    {
        assert(std::has_single_bit(bytes) && bytes >= kPageBytes && bytes <= kLargestChunk);
        return static_cast<std::size_t>(std::countr_zero(bytes / kPageBytes));
    }

    std::mutex m_mutex;
    KeptChunk* m_kept[kBins] = {};
    std::size_t m_keptBytes = 0;
    bool m_closed = false;
};

Store g_store;
} // namespace

void* ChunkStore::Take(std::size_t bytes)
{
    if (void* chunk = g_store.Take(bytes))
        return chunk;
    return ::operator new(bytes, kAlignment);
}

void ChunkStore::Give(void* chunk, std::size_t bytes) noexcept
{
    MarkUsed(chunk, bytes);
    if (!g_store.Give(chunk, bytes))
        ::operator delete(chunk, kAlignment);
}

void ChunkStore::ReleaseAll() noexcept
{
    g_store.Empty();
}

std::size_t ChunkStore::KeptBytes() noexcept
{
    return g_store.KeptBytes();
}
