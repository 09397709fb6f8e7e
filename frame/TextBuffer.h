// Text under construction that only grows, for those who write much of it: a writer asks for room, writes its units
// straight into it and says where it ended. Nothing is zero-filled first, and nothing moves until the room is used up.
//
// Invariant: [m_begin, m_end) is text, [m_end, m_limit) is room that belongs to the buffer.
#pragma once

#include "platform/com/Ole.h"

#include <algorithm>
#include <cassert>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

class TextBuffer {
public:
    TextBuffer() = default;
    TextBuffer(TextBuffer&& other) noexcept
        : m_begin(std::exchange(other.m_begin, nullptr)), m_end(std::exchange(other.m_end, nullptr)),
          m_limit(std::exchange(other.m_limit, nullptr))
    {
    }
    TextBuffer& operator=(TextBuffer other) noexcept
    {
        std::swap(m_begin, other.m_begin);
        std::swap(m_end, other.m_end);
        std::swap(m_limit, other.m_limit);
        return *this;
    }
    ~TextBuffer() { std::free(m_begin); }

    std::size_t Size() const noexcept { return static_cast<std::size_t>(m_end - m_begin); }
    std::size_t Capacity() const noexcept { return static_cast<std::size_t>(m_limit - m_begin); }
    /// Valid until the next call that may grow the text.
    TextView View() const noexcept { return {m_begin, Size()}; }

    /// Makes the text's memory at least so large. Throws std::bad_alloc.
    void Reserve(std::size_t units)
    {
        if (units > Capacity())
            Resize(units);
    }

    /// At least so many units of room behind the text, at most until the next call. Throws std::bad_alloc.
    OLECHAR* Room(std::size_t units)
    {
        if (units > static_cast<std::size_t>(m_limit - m_end)) [[unlikely]]
            Resize((std::max)({Size() + units, 2 * Capacity(), kFirstCapacity}));
        return m_end;
    }
    /// What was written into the room up to here is text now.
    void EndAt(OLECHAR* end) noexcept
    {
        assert(end >= m_end && end <= m_limit);
        m_end = end;
    }

    /// The text must not be a part of this one, which may move.
    void Append(TextView text)
    {
        OLECHAR* const room = Room(text.size());
        if (!text.empty())
            std::memcpy(room, text.data(), text.size() * sizeof(OLECHAR));
        m_end = room + text.size();
    }
    void Append(OLECHAR unit)
    {
        *Room(1) = unit;
        ++m_end;
    }
    /// Drops everything behind the first `size` units, of which there are that many.
    void Cut(std::size_t size) noexcept { m_end = m_begin + size; }

private:
    static constexpr std::size_t kFirstCapacity = 128;

    void Resize(std::size_t units)
    {
        const std::size_t size = Size();
        void* const memory = std::realloc(m_begin, units * sizeof(OLECHAR));
        if (!memory)
            throw std::bad_alloc();
        m_begin = static_cast<OLECHAR*>(memory);
        m_end = m_begin + size;
        m_limit = m_begin + units;
    }

    OLECHAR* m_begin = nullptr;
    OLECHAR* m_end = nullptr;
    OLECHAR* m_limit = nullptr;
};
