// A growing run of bytes. Appending is amortised constant time and touches only the new bytes: nothing is
// zero-filled first, which is what a container of bytes would do before a caller writes over it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <utility>

using ByteView = std::span<const unsigned char>;

class ByteBuffer {
public:
    ByteBuffer() = default;
    ByteBuffer(ByteBuffer&& other) noexcept { Swap(other); }
    ByteBuffer& operator=(ByteBuffer&& other) noexcept
    {
        ByteBuffer taken(std::move(other));
        Swap(taken);
        return *this;
    }

    std::size_t Size() const { return m_size; }
    const unsigned char* Data() const { return m_bytes.get(); }
    ByteView View() const { return {m_bytes.get(), m_size}; }

    /// Counts `count` more bytes in and tells where they begin; the caller writes them.
    unsigned char* Extend(std::size_t count)
    {
        if (count > m_capacity - m_size)
            Grow(count);
        return m_bytes.get() + std::exchange(m_size, m_size + count);
    }

    /// `data` must not lie inside this buffer: growing would move it.
    void Append(const void* data, std::size_t count)
    {
        if (count != 0)
            std::memcpy(Extend(count), data, count);
    }
    void Append(ByteView bytes) { Append(bytes.data(), bytes.size()); }

    /// Drops everything behind the first `size` bytes; `size` is at most Size().
    void Cut(std::size_t size) { m_size = size; }

    /// Drops the first `count` bytes, of which there are that many.
    void CutFront(std::size_t count)
    {
        m_size -= count;
        if (count != 0 && m_size != 0)
            std::memmove(m_bytes.get(), m_bytes.get() + count, m_size);
    }

    /// Empties the buffer and keeps its memory for the next content, unless that memory is more than `keep` bytes.
    void Clear(std::size_t keep)
    {
        m_size = 0;
        if (m_capacity > keep) {
            m_bytes.reset();
            m_capacity = 0;
        }
    }

    void Swap(ByteBuffer& other) noexcept
    {
        std::swap(m_bytes, other.m_bytes);
        std::swap(m_size, other.m_size);
        std::swap(m_capacity, other.m_capacity);
    }

private:
    void Grow(std::size_t count)
    {
        constexpr std::size_t kFirstCapacity = 256;
        const std::size_t capacity = std::max({m_size + count, m_capacity * 2, kFirstCapacity});
        std::unique_ptr<unsigned char[]> larger(new unsigned char[capacity]);
        if (m_size != 0)
            std::memcpy(larger.get(), m_bytes.get(), m_size);
        m_bytes = std::move(larger);
        m_capacity = capacity;
    }

    std::unique_ptr<unsigned char[]> m_bytes;
    std::size_t m_size = 0;
    std::size_t m_capacity = 0;
};
