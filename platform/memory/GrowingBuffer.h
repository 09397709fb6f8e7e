// Plain elements one behind the other, whose number only grows, for those who write many of them: a writer asks for
// room, writes straight into it and says where it ended. Nothing is zero-filled first, and nothing moves until the room
// is used up; then the C library moves it, which for much memory only maps it elsewhere.
//
// Invariant: [m_begin, m_end) is content, [m_end, m_limit) is room that belongs to the buffer.
#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>
#include <type_traits>
#include <utility>

template <class Element>
class GrowingBuffer {
    static_assert(std::is_trivially_copyable_v<Element>);

public:
    GrowingBuffer() = default;
    GrowingBuffer(GrowingBuffer&& other) noexcept
        : m_begin(std::exchange(other.m_begin, nullptr)), m_end(std::exchange(other.m_end, nullptr)),
          m_limit(std::exchange(other.m_limit, nullptr))
    {
    }
    GrowingBuffer& operator=(GrowingBuffer other) noexcept
    {
        std::swap(m_begin, other.m_begin);
        std::swap(m_end, other.m_end);
        std::swap(m_limit, other.m_limit);
        return *this;
    }
    ~GrowingBuffer() { std::free(m_begin); }

    std::size_t Size() const noexcept { return static_cast<std::size_t>(m_end - m_begin); }
    std::size_t Capacity() const noexcept { return static_cast<std::size_t>(m_limit - m_begin); }
    /// Valid until the next call that may grow the content; null while there never was any.
    const Element* Data() const noexcept { return m_begin; }

    /// Makes the memory at least so large. Throws std::bad_alloc.
    void Reserve(std::size_t count)
    {
        if (count > Capacity())
            Resize(count);
    }

    /// Room for at least so many elements behind the content, at most until the next call. Throws std::bad_alloc.
    Element* Room(std::size_t count)
    {
        if (count > static_cast<std::size_t>(m_limit - m_end)) [[unlikely]]
            Resize((std::max)({Size() + count, 2 * Capacity(), kFirstCapacity}));
        return m_end;
    }
    /// What was written into the room up to here is content now.
    void EndAt(Element* end) noexcept
    {
        assert(end >= m_end && end <= m_limit);
        m_end = end;
    }

    void Append(const Element& element)
    {
        *Room(1) = element;
        ++m_end;
    }
    /// The elements must not be a part of this content, which may move.
    void Append(const Element* elements, std::size_t count)
    {
        Element* const room = Room(count);
        if (count != 0)
            std::memcpy(room, elements, count * sizeof(Element));
        m_end = room + count;
    }
    /// Drops everything behind the first `size` elements, of which there are that many.
    void Cut(std::size_t size) noexcept { m_end = m_begin + size; }

private:
    static constexpr std::size_t kFirstCapacity = (std::max)(std::size_t{1}, 256 / sizeof(Element));

    void Resize(std::size_t count)
    {
        const std::size_t size = Size();
        void* const memory = std::realloc(m_begin, count * sizeof(Element));
        if (!memory)
            throw std::bad_alloc();
        m_begin = static_cast<Element*>(memory);
        m_end = m_begin + size;
        m_limit = m_begin + count;
    }

    Element* m_begin = nullptr;
    Element* m_end = nullptr;
    Element* m_limit = nullptr;
};
