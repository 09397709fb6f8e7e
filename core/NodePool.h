// Memory for the many small nodes of one collection: equal blocks, cut from chunks of pages.
//
// Each page begins with the address of its pool's body, so a node can be given back without knowing its pool. Freed
// nodes are used again first. The body and its chunks live until the pool AND the last node are gone, so a node may
// outlive its collection. Chunks of a pool that is done go to a small store shared by the process, which saves the
// next pool the system's work of clearing fresh pages. While a pool's body lives the module stays loaded.
//
// Threads: like the nodes themselves, a pool is guarded by its collection's transaction; the shared store guards
// itself. Nodes that have outlived their pool may be freed on different threads at the same time.
#pragma once

#include <cstddef>

class NodePool {
public:
    /// nodeBytes must be a multiple of 16 for nodes that need that alignment; 8 is always kept.
    explicit NodePool(std::size_t nodeBytes);
    ~NodePool();
    NodePool(const NodePool&) = delete;
    NodePool& operator=(const NodePool&) = delete;

    [[nodiscard]] std::size_t NodeBytes() const noexcept;
    /// Memory for one node. Throws std::bad_alloc.
    [[nodiscard]] void* Allocate();

    /// Memory for a node that belongs to no pool, to be freed like all others; null when there is none.
    [[nodiscard]] static void* AllocateAlone(std::size_t nodeBytes) noexcept;

    /// Gives back what Allocate or AllocateAlone returned; null is allowed.
    static void Free(void* node) noexcept;

    /// Gives the chunks that are kept for later pools back to the system.
    static void ReleaseStore() noexcept;

private:
    struct Body;
    Body* m_pBody;
};
