// All living nodes of a collection by id: a table that finds, and beside it the order that saves and rules observe.
//
// Invariant: table and order hold the same nodes. The index owns nothing and takes no references; a node leaves it
// before it goes. Finding, adding and removing cost the same at any size.
#pragma once

#include "core/IdOrder.h"
#include "core/IdTable.h"

#include <cstddef>
#include <utility>
#include <vector>

/// Node derives from IdIndexEntry, accessibly to the index.
template <class Node>
class IdIndex {
public:
    IdIndex() = default;
    IdIndex(const IdIndex&) = delete;
    IdIndex& operator=(const IdIndex&) = delete;

    [[nodiscard]] Node* Find(LONG id) const noexcept { return m_table.Find(id); }
    [[nodiscard]] std::size_t Size() const noexcept { return m_count; }
    [[nodiscard]] bool IsEmpty() const noexcept { return m_count == 0; }

    /// Makes room for the ids of another index.
    void ReserveLike(const IdIndex& other) { m_order.ReserveLike(other.m_order); }

    /// Adds a node whose id is new, at the head of its bucket. Either succeeds or changes nothing.
    void Insert(Node& node)
    {
        m_order.PutFirst(node);
        try {
            m_table.Insert(node.Id(), &node);
        } catch (...) {
            m_order.Remove(node);
            throw;
        }
        ++m_count;
    }

    void Erase(Node& node) noexcept
    {
        m_table.Erase(node.Id());
        m_order.Remove(node);
        --m_count;
    }

    void Clear() noexcept
    {
        m_table.Clear();
        m_order.Clear();
        m_count = 0;
    }

    /// Calls visit(Node&) for every node in order. The visitor must not add or remove nodes: a walk that calls out
    /// to somebody who might takes a snapshot and looks each id up again.
    template <class Visit>
    void ForEach(Visit&& visit) const
    {
        m_order.ForEach(std::forward<Visit>(visit));
    }

    [[nodiscard]] std::vector<LONG> Snapshot() const
    {
        std::vector<LONG> ids;
        ids.reserve(m_count);
        ForEach([&](const Node& node) { ids.push_back(node.Id()); });
        return ids;
    }

    [[nodiscard]] bool ComesBefore(const Node& left, const Node& right) const noexcept
    {
        return m_order.ComesBefore(left, right);
    }

    /// For a reader who meets the ids in this order, as a load does with a text that was saved here.
    void PrefetchAfter(const Node& node) const noexcept { m_order.PrefetchAfter(node); }

private:
    IdTable<Node> m_table;
    IdOrder<Node> m_order;
    std::size_t m_count = 0;
};
