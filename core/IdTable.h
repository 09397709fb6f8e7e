// Finds a node by its id, whatever ids there are: never more than a few steps, never a walk along a chain.
//
// Ids from 0 up to kPagedIds lie in pages that are made when the first of their ids comes; a page is small, so that
// a few properties with ids far apart stay cheap. All other ids, negative ones included, lie in a table with
// open addressing that is at most half full. An id is in one of the two, never in both.
#pragma once

#include "platform/com/Ole.h"

#include <array>
#include <bit>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

/// Open addressing with linear steps; a removal closes its gap, so a search ends at the first empty place.
template <class Node>
class ScatteredIdTable {
public:
    [[nodiscard]] Node* Find(LONG id) const noexcept
    {
        if (m_places.empty())
            return nullptr;
        // Id 0 lies in a page, so an empty place never passes for a hit.
        for (std::size_t i = HomeOf(id);; i = After(i)) {
            const Place& place = m_places[i];
            if (place.id == id || !place.node)
                return place.node;
        }
    }

    void Insert(LONG id, Node* node)
    {
        if (2 * (m_count + 1) > m_places.size())
            Grow();
        Put({node, id});
        ++m_count;
    }

    void Erase(LONG id) noexcept
    {
        std::size_t gap = HomeOf(id);
        while (m_places[gap].id != id || !m_places[gap].node)
            gap = After(gap);
        // An entry behind the gap moves into it unless that would put it ahead of its own home.
        for (std::size_t i = After(gap); m_places[i].node; i = After(i)) {
            if (StepsFrom(HomeOf(m_places[i].id), i) >= StepsFrom(gap, i)) {
                m_places[gap] = m_places[i];
                gap = i;
            }
        }
        m_places[gap] = {};
        --m_count;
    }

    void Clear() noexcept
    {
        std::vector<Place>().swap(m_places);
        m_count = 0;
    }

private:
    struct Place {
        Node* node = nullptr;
        LONG id = 0;
    };

    // The upper bits of a product depend on all bits of the id, so runs and multiples spread alike.
    std::size_t HomeOf(LONG id) const noexcept
    {
        return static_cast<std::size_t>((static_cast<uint32_t>(id) * uint64_t{0x9E3779B97F4A7C15}) >> m_shift);
    }
    std::size_t After(std::size_t i) const noexcept { return (i + 1) & (m_places.size() - 1); }
    std::size_t StepsFrom(std::size_t from, std::size_t to) const noexcept
    {
        return (to - from) & (m_places.size() - 1);
    }

    void Put(const Place& entry) noexcept
    {
        std::size_t i = HomeOf(entry.id);
        while (m_places[i].node) {
            assert(m_places[i].id != entry.id);
            i = After(i);
        }
        m_places[i] = entry;
    }

    void Grow()
    {
        std::vector<Place> old(m_places.empty() ? kFirstSize : 2 * m_places.size());
        old.swap(m_places);
        m_shift = 64 - std::countr_zero(m_places.size());
        for (const Place& entry : old) {
            if (entry.node)
                Put(entry);
        }
    }

    static constexpr std::size_t kFirstSize = 16; // a power of two, as every size after it

    std::vector<Place> m_places;
    std::size_t m_count = 0;
    int m_shift = 64;
};

template <class Node>
class IdTable {
public:
    static constexpr uint32_t kIdsPerPage = 256;
    static constexpr uint32_t kPagedIds = uint32_t{1} << 20;

    [[nodiscard]] Node* Find(LONG id) const noexcept
    {
        const auto number = static_cast<uint32_t>(id);
        const std::size_t page = number / kIdsPerPage;
        if (page < m_pages.size())
            return m_pages[page] ? (*m_pages[page])[number % kIdsPerPage] : nullptr;
        return m_scattered.Find(id);
    }

    /// The id must be new. Either succeeds or changes nothing.
    void Insert(LONG id, Node* node)
    {
        assert(node && !Find(id));
        const auto number = static_cast<uint32_t>(id);
        if (number < kPagedIds)
            PageFor(number)[number % kIdsPerPage] = node;
        else
            m_scattered.Insert(id, node);
    }

    /// The id must be there.
    void Erase(LONG id) noexcept
    {
        assert(Find(id));
        const auto number = static_cast<uint32_t>(id);
        if (number < kPagedIds)
            (*m_pages[number / kIdsPerPage])[number % kIdsPerPage] = nullptr;
        else
            m_scattered.Erase(id);
    }

    void Clear() noexcept
    {
        m_pages.clear();
        m_scattered.Clear();
    }

private:
    using Page = std::array<Node*, kIdsPerPage>;

    Page& PageFor(uint32_t number)
    {
        const std::size_t page = number / kIdsPerPage;
        if (page >= m_pages.size())
            m_pages.resize(page + 1);
        if (!m_pages[page])
            m_pages[page] = std::make_unique<Page>();
        return *m_pages[page];
    }

    std::vector<std::unique_ptr<Page>> m_pages;
    ScatteredIdTable<Node> m_scattered;
};
