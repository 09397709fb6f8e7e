// The pool of nodes: distinct memory, reuse, nodes that outlive their pool, and the store of chunks.
#include "core/ChunkStore.h"
#include "core/NodePool.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <random>
#include <set>
#include <thread>
#include <vector>

namespace {
struct PoolOf : testing::TestWithParam<std::size_t> {
    std::size_t Bytes() const { return GetParam(); }
};
} // namespace

TEST_P(PoolOf, GivesEachNodeMemoryOfItsOwn)
{
    NodePool pool(Bytes());
    std::vector<unsigned char*> nodes;
    for (int i = 0; i < 5000; ++i) {
        auto* node = static_cast<unsigned char*>(pool.Allocate());
        ASSERT_EQ(reinterpret_cast<std::uintptr_t>(node) % 8, 0u);
        std::memset(node, i & 0xFF, Bytes());
        nodes.push_back(node);
    }
    for (std::size_t i = 0; i < nodes.size(); ++i)
        ASSERT_TRUE(std::all_of(nodes[i], nodes[i] + Bytes(), [&](unsigned char c) { return c == (i & 0xFF); })) << i;
    for (auto* node : nodes)
        NodePool::Free(node);
}

INSTANTIATE_TEST_SUITE_P(NodeSizes, PoolOf, testing::Values(1, 8, 16, 72, 96, 104, 1040, 4000));

TEST(NodePool, UsesAFreedNodeFirst)
{
    NodePool pool(96);
    void* a = pool.Allocate();
    void* b = pool.Allocate();
    NodePool::Free(a);
    EXPECT_EQ(pool.Allocate(), a);
    NodePool::Free(a);
    NodePool::Free(b);
}

TEST(NodePool, IgnoresAFreeOfNothing)
{
    NodePool::Free(nullptr);
}

TEST(NodePool, LetsNodesOutliveIt)
{
    std::vector<unsigned char*> nodes;
    {
        NodePool pool(96);
        for (int i = 0; i < 1000; ++i)
            nodes.push_back(static_cast<unsigned char*>(pool.Allocate()));
        for (; nodes.size() > 10; nodes.pop_back())
            NodePool::Free(nodes.back());
    }
    for (auto* node : nodes)
        std::memset(node, 1, 96);
    std::vector<std::thread> threads;
    for (auto* node : nodes)
        threads.emplace_back([node] { NodePool::Free(node); });
    for (auto& thread : threads)
        thread.join();
}

TEST(NodePool, FreesNodesThatNeverHadAPool)
{
    void* node = NodePool::AllocateAlone(96);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(node) % 16, 0u);
    std::memset(node, 1, 96);
    NodePool::Free(node);
}

TEST(NodePool, KeepsPoolsApart)
{
    NodePool small(16), large(512);
    std::set<void*> seen;
    for (int i = 0; i < 2000; ++i) {
        void* a = small.Allocate();
        void* b = large.Allocate();
        std::memset(b, 2, 512);
        std::memset(a, 1, 16);
        ASSERT_TRUE(seen.insert(a).second && seen.insert(b).second);
    }
    for (void* node : seen)
        NodePool::Free(node);
}

TEST(NodePool, StaysSoundOverALongRandomLife)
{
    NodePool pool(40);
    std::mt19937 random(7);
    std::vector<std::uint32_t*> nodes;
    for (int step = 0; step < 100000; ++step) {
        if (nodes.empty() || random() % 5 < 3) {
            auto* node = static_cast<std::uint32_t*>(pool.Allocate());
            std::fill(node, node + 10, static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(node)));
            nodes.push_back(node);
        } else {
            std::swap(nodes[random() % nodes.size()], nodes.back());
            const auto mark = static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(nodes.back()));
            ASSERT_TRUE(std::all_of(nodes.back(), nodes.back() + 10, [&](std::uint32_t word) { return word == mark; }));
            NodePool::Free(nodes.back());
            nodes.pop_back();
        }
    }
    for (auto* node : nodes)
        NodePool::Free(node);
}

TEST(NodePool, MayBeUsedByEachThreadOnItsOwn)
{
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([] {
            for (int round = 0; round < 20; ++round) {
                NodePool pool(96);
                std::vector<void*> nodes;
                for (int i = 0; i < 2000; ++i)
                    nodes.push_back(pool.Allocate());
                for (void* node : nodes)
                    NodePool::Free(node);
            }
        });
    for (auto& thread : threads)
        thread.join();
}

TEST(ChunkStore, GivesAKeptChunkBackBeforeItAsksForAFreshOne)
{
    ChunkStore::ReleaseAll();
    void* chunk = ChunkStore::Take(2 * ChunkStore::kPageBytes);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(chunk) % ChunkStore::kPageBytes, 0u);
    ChunkStore::Give(chunk, 2 * ChunkStore::kPageBytes);
    void* other = ChunkStore::Take(ChunkStore::kPageBytes);
    EXPECT_NE(other, chunk);
    EXPECT_EQ(ChunkStore::Take(2 * ChunkStore::kPageBytes), chunk);
    ChunkStore::Give(chunk, 2 * ChunkStore::kPageBytes);
    ChunkStore::Give(other, ChunkStore::kPageBytes);
    ChunkStore::ReleaseAll();
}

TEST(ChunkStore, KeepsNoMoreThanItsBound)
{
    ChunkStore::ReleaseAll();
    constexpr std::size_t kFits = ChunkStore::kMostKept / ChunkStore::kLargestChunk;
    std::vector<void*> chunks;
    for (std::size_t i = 0; i < kFits + 3; ++i)
        chunks.push_back(ChunkStore::Take(ChunkStore::kLargestChunk));
    for (void* chunk : chunks)
        ChunkStore::Give(chunk, ChunkStore::kLargestChunk);
    EXPECT_EQ(ChunkStore::KeptBytes(), ChunkStore::kMostKept);
    ChunkStore::ReleaseAll();
    EXPECT_EQ(ChunkStore::KeptBytes(), 0u);
}
