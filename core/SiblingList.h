// An ordered list of siblings whose links lie in the siblings themselves: append, unlink and the next one cost the
// same at any length.
//
// Invariant: a node is on one list at most, and knows whether, not which: whoever unlinks it knows that. The list owns
// nothing and takes no references: whoever appends a node holds it, and unlinks it before it goes.
#pragma once

#include <cassert>
#include <cstddef>
#include <utility>

template <class Node>
class SiblingList;

/// What a node carries for the list it is on: derive Node from SiblingLinks<Node>.
template <class Node>
class SiblingLinks {
public:
    SiblingLinks() = default;
    SiblingLinks(const SiblingLinks&) = delete;
    SiblingLinks& operator=(const SiblingLinks&) = delete;

    [[nodiscard]] Node* NextSibling() const noexcept { return m_pNext; }
    [[nodiscard]] Node* PreviousSibling() const noexcept
    {
        return IsOnAList() ? static_cast<Node*>(m_pPrevious) : nullptr;
    }
    [[nodiscard]] bool IsOnAList() const noexcept { return m_pPrevious != this; }

protected:
    ~SiblingLinks() = default;

private:
    friend class SiblingList<Node>;

    SiblingLinks* m_pPrevious = this; // itself while on no list
    Node* m_pNext = nullptr;
};

template <class Node>
class SiblingList {
public:
    /// Walks from first to last. The node it stands on may be unlinked only after the step beyond it.
    class Iterator {
    public:
        explicit Iterator(Node* node) noexcept : m_pNode(node) {}
        Node& operator*() const noexcept { return *m_pNode; }
        Iterator& operator++() noexcept
        {
            m_pNode = m_pNode->NextSibling();
            return *this;
        }
        bool operator==(const Iterator&) const noexcept = default;

    private:
        Node* m_pNode;
    };

    SiblingList() = default;
    SiblingList(const SiblingList&) = delete;
    SiblingList& operator=(const SiblingList&) = delete;
    ~SiblingList() { assert(IsEmpty()); }

    [[nodiscard]] Node* First() const noexcept { return m_pFirst; }
    [[nodiscard]] Node* Last() const noexcept { return m_pLast; }
    [[nodiscard]] std::size_t Count() const noexcept { return m_nCount; }
    [[nodiscard]] bool IsEmpty() const noexcept { return m_pFirst == nullptr; }
    [[nodiscard]] Iterator begin() const noexcept { return Iterator(m_pFirst); }
    [[nodiscard]] Iterator end() const noexcept { return Iterator(nullptr); }

    /// Puts a node that is on no list behind the last one.
    void Append(Node& node) noexcept
    {
        auto& links = LinksOf(node);
        assert(!links.IsOnAList());
        links.m_pPrevious = m_pLast;
        (m_pLast ? LinksOf(*m_pLast).m_pNext : m_pFirst) = &node;
        m_pLast = &node;
        ++m_nCount;
    }

    /// Takes a node of this list off it.
    void Unlink(Node& node) noexcept
    {
        auto& links = LinksOf(node);
        assert(links.IsOnAList());
        (links.m_pPrevious ? links.m_pPrevious->m_pNext : m_pFirst) = links.m_pNext;
        if (links.m_pNext)
            LinksOf(*links.m_pNext).m_pPrevious = links.m_pPrevious;
        else
            m_pLast = static_cast<Node*>(links.m_pPrevious);
        links.m_pPrevious = &node;
        links.m_pNext = nullptr;
        --m_nCount;
    }

    /// Takes over all nodes of another list, in their order, ahead of its own.
    void TakeOverAhead(SiblingList& other) noexcept
    {
        if (other.IsEmpty())
            return;
        LinksOf(*other.m_pLast).m_pNext = m_pFirst;
        if (m_pFirst)
            LinksOf(*m_pFirst).m_pPrevious = other.m_pLast;
        else
            m_pLast = other.m_pLast;
        m_pFirst = std::exchange(other.m_pFirst, nullptr);
        other.m_pLast = nullptr;
        m_nCount += std::exchange(other.m_nCount, 0);
    }

    /// Takes the first node off and returns it; null when there is none.
    Node* TakeFirst() noexcept
    {
        Node* first = m_pFirst;
        if (first)
            Unlink(*first);
        return first;
    }

    /// Whether links, ends and count agree. For tests and assertions: it walks the list.
    [[nodiscard]] bool IsConsistent() const noexcept
    {
        std::size_t seen = 0;
        const Node* previous = nullptr;
        for (const Node* node = m_pFirst; node; previous = std::exchange(node, node->NextSibling())) {
            if (!node->IsOnAList() || node->PreviousSibling() != previous || ++seen > m_nCount)
                return false;
        }
        return previous == m_pLast && seen == m_nCount;
    }

private:
    static SiblingLinks<Node>& LinksOf(Node& node) noexcept { return node; }
    static const SiblingLinks<Node>& LinksOf(const Node& node) noexcept { return node; }

    Node* m_pFirst = nullptr;
    Node* m_pLast = nullptr;
    std::size_t m_nCount = 0;
};
