// The order in which the nodes of a collection are saved and their rules evaluated: 17 buckets by id, ascending,
// the newest node first within a bucket. Adding an id again puts it to the head, as any new one.
//
// Each bucket is an array to whose end nodes are added and that is read from its end. A node knows its place, so its
// removal leaves a hole without a search; a bucket closes its holes when they are half of it. The last place of a
// bucket is never a hole. A walk knows the nodes to come and has them fetched from memory ahead of time.
#pragma once

#include "platform/com/Ole.h"
#include "platform/memory/Prefetch.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

template <class Node>
class IdOrder;

/// What a node carries for the index: its id, and its place in its bucket. Derive Node from it.
class IdIndexEntry {
public:
    [[nodiscard]] LONG Id() const noexcept { return m_nPropID; }

protected:
    IdIndexEntry() = default;
    ~IdIndexEntry() = default;

    LONG m_nPropID = 0; // must not change while the node is in an index

private:
    template <class Node>
    friend class IdOrder;

    uint32_t m_nMapPlace = 0;
};

template <class Node>
class IdOrder {
public:
    static constexpr std::size_t kBuckets = 17;

    // On purpose: the shift makes runs of 16 ids share a bucket. The order of saved texts rests on it.
    static constexpr std::size_t BucketOf(LONG id) noexcept { return (static_cast<uint32_t>(id) >> 4) % kBuckets; }

    void PutFirst(Node& node)
    {
        Bucket& bucket = m_buckets[BucketOf(node.Id())];
        bucket.MakeRoom();
        EntryOf(node).m_nMapPlace = static_cast<uint32_t>(bucket.places.size());
        bucket.places.push_back(&node);
    }

    void Remove(Node& node) noexcept
    {
        Bucket& bucket = m_buckets[BucketOf(node.Id())];
        bucket.places[EntryOf(node).m_nMapPlace] = nullptr;
        ++bucket.holes;
        while (!bucket.places.empty() && !bucket.places.back()) {
            bucket.places.pop_back();
            --bucket.holes;
        }
        if (2 * bucket.holes > bucket.places.size())
            bucket.CloseHoles();
    }

    void Clear() noexcept { m_buckets = {}; }

    /// Makes room for as many nodes in each bucket as another order has.
    void ReserveLike(const IdOrder& other)
    {
        for (std::size_t i = 0; i < kBuckets; ++i)
            m_buckets[i].places.reserve(other.m_buckets[i].places.size() - other.m_buckets[i].holes);
    }

    /// Calls visit(Node&) for every node in order. The visitor must not add or remove nodes.
    template <class Visit>
    void ForEach(Visit&& visit) const
    {
        for (const Bucket& bucket : m_buckets) {
            Node* const* const places = bucket.places.data();
            for (std::size_t i = bucket.places.size(); i-- > 0;) {
                if (i >= kLookAhead)
                    Prefetch(places[i - kLookAhead]);
                if (places[i])
                    visit(*places[i]);
            }
        }
    }

    /// Whether one node is visited ahead of another.
    [[nodiscard]] static bool ComesBefore(const Node& left, const Node& right) noexcept
    {
        const std::size_t leftBucket = BucketOf(left.Id());
        const std::size_t rightBucket = BucketOf(right.Id());
        return leftBucket != rightBucket ? leftBucket < rightBucket
                                         : EntryOf(left).m_nMapPlace > EntryOf(right).m_nMapPlace;
    }

    /// For a reader who meets the nodes in this very order: fetches the one that comes a while after this one.
    void PrefetchAfter(const Node& node) const noexcept
    {
        const Bucket& bucket = m_buckets[BucketOf(node.Id())];
        const uint32_t place = EntryOf(node).m_nMapPlace;
        if (place >= kLookAhead)
            Prefetch(bucket.places[place - kLookAhead]);
    }

private:
    static constexpr std::size_t kLookAhead = 24; // nodes; enough work to hide one trip to memory

    struct Bucket {
        // Grows by half, not by two: the arrays of a large collection stay close to their content.
        void MakeRoom()
        {
            if (places.size() == places.capacity())
                places.reserve(places.size() + places.size() / 2 + 8);
        }

        void CloseHoles() noexcept
        {
            std::size_t kept = 0;
            for (Node* node : places) {
                if (node) {
                    EntryOf(*node).m_nMapPlace = static_cast<uint32_t>(kept);
                    places[kept++] = node;
                }
            }
            places.resize(kept);
            holes = 0;
        }

        std::vector<Node*> places;
        std::size_t holes = 0;
    };

    static IdIndexEntry& EntryOf(Node& node) noexcept { return node; }
    static const IdIndexEntry& EntryOf(const Node& node) noexcept { return node; }

    std::array<Bucket, kBuckets> m_buckets;
};
