#include "core/NodePool.h"

#include "core/ChunkStore.h"
#include "platform/atl/Module.h"
#include "platform/memory/MemoryMarks.h"

#include <algorithm>
#include <atomic>
#include <bit>
#include <cassert>
#include <cstdint>
#include <new>
#include <vector>

using ChunkStore::kPageBytes;

namespace {
/// Stands at the start of every page that holds nodes.
struct alignas(16) PageHead {
    void* body; // null: the page holds one node that has no pool
};

struct FreedNode {
    FreedNode* next;
};

PageHead& PageOf(void* node) noexcept
{
    return *reinterpret_cast<PageHead*>(reinterpret_cast<std::uintptr_t>(node) & ~std::uintptr_t{kPageBytes - 1});
}
} // namespace

struct NodePool::Body {
    struct Chunk {
        std::byte* memory;
        std::size_t bytes;
    };

    explicit Body(std::size_t bytes) : nodeBytes((std::max(bytes, sizeof(FreedNode)) + 7) & ~std::size_t{7})
    {
        assert(sizeof(PageHead) + nodeBytes <= kPageBytes);
        Module::Lock();
    }

    ~Body()
    {
        for (const Chunk& chunk : chunks)
            ChunkStore::Give(chunk.memory, chunk.bytes);
        Module::Unlock();
    }

    void* Allocate()
    {
        void* node = freed ? TakeFreed() : TakeNext();
        live.store(live.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
        return node;
    }

    void Free(void* node) noexcept
    {
        freed = new (node) FreedNode{freed};
        MarkUnused(node, nodeBytes);
        live.store(live.load(std::memory_order_relaxed) - 1, std::memory_order_relaxed);
    }

    void* TakeFreed() noexcept
    {
        FreedNode* node = freed;
        MarkUsed(node, nodeBytes);
        freed = node->next;
        return node;
    }

    void* TakeNext()
    {
        if (pageEnd - next < static_cast<std::ptrdiff_t>(nodeBytes))
            BeginPage();
        void* node = next;
        next += nodeBytes;
        MarkUsed(node, nodeBytes);
        return node;
    }

    void BeginPage()
    {
        if (pageEnd == chunkEnd)
            AddChunk();
        MarkUsed(pageEnd, sizeof(PageHead));
        new (pageEnd) PageHead{this};
        next = pageEnd + sizeof(PageHead);
        pageEnd += kPageBytes;
    }

    // A quarter of what there is, so that neither a small collection nor a large one holds much that it doesn't use.
    void AddChunk()
    {
        const std::size_t bytes = std::clamp(std::bit_floor(totalBytes / 4), kPageBytes, ChunkStore::kLargestChunk);
        if (chunks.size() == chunks.capacity())
            chunks.reserve(2 * chunks.size() + 4);
        auto* memory = static_cast<std::byte*>(ChunkStore::Take(bytes));
        chunks.push_back({memory, bytes});
        MarkUnused(memory, bytes);
        totalBytes += bytes;
        next = pageEnd = memory;
        chunkEnd = memory + bytes;
    }

    const std::size_t nodeBytes;
    FreedNode* freed = nullptr;
    std::byte* next = nullptr;     // first byte of the current page that was never used
    std::byte* pageEnd = nullptr;  // end of the current page, start of the next one of the chunk
    std::byte* chunkEnd = nullptr; // end of the newest chunk
    std::size_t totalBytes = 0;
    std::vector<Chunk> chunks;

    // Nodes in use. While the pool lives the transaction guards it; afterwards nodes go on any thread.
    std::atomic<std::size_t> live{0};
    std::atomic<bool> outlivesPool{false};
};

NodePool::NodePool(std::size_t nodeBytes) : m_pBody(new Body(nodeBytes)) {}

NodePool::~NodePool()
{
    if (m_pBody->live.load(std::memory_order_relaxed) == 0)
        delete m_pBody;
    else
        m_pBody->outlivesPool.store(true, std::memory_order_release);
}

void* NodePool::Allocate()
{
    return m_pBody->Allocate();
}

std::size_t NodePool::NodeBytes() const noexcept
{
    return m_pBody->nodeBytes;
}

void* NodePool::AllocateAlone(std::size_t nodeBytes) noexcept
{
    void* page = ::operator new (sizeof(PageHead) + nodeBytes, std::align_val_t{kPageBytes}, std::nothrow);
    return page ? new (page) PageHead{nullptr} + 1 : nullptr;
}

void NodePool::Free(void* node) noexcept
{
    if (!node)
        return;
    PageHead& page = PageOf(node);
    auto* body = static_cast<Body*>(page.body);
    if (!body)
        ::operator delete (&page, std::align_val_t{kPageBytes});
    else if (!body->outlivesPool.load(std::memory_order_acquire))
        body->Free(node);
    else if (body->live.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete body;
}

void NodePool::ReleaseStore() noexcept
{
    ChunkStore::ReleaseAll();
}
