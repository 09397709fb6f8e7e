// An owned text in eight bytes, for objects that exist a million times and mostly hold no text.
// Invariant: a null pointer is the empty text; otherwise the block holds a length and the units.
#pragma once

#include "platform/com/Ole.h"

#include <cstring>
#include <memory>
#include <utility>

class PackedText {
public:
    PackedText() = default;
    explicit PackedText(TextView text) { Assign(text); }
    PackedText(const PackedText& other) : PackedText(other.View()) {}
    PackedText(PackedText&& other) noexcept = default;
    PackedText& operator=(const PackedText& other)
    {
        if (this != &other)
            Assign(other.View());
        return *this;
    }
    PackedText& operator=(PackedText&& other) noexcept = default;

    TextView View() const noexcept { return m_block ? TextView(Units(), m_block->length) : TextView(); }
    bool Empty() const noexcept { return !m_block; }

    /// A text that is a part of the present one may be assigned.
    void Assign(TextView text)
    {
        if (text.empty()) {
            m_block.reset();
            return;
        }
        Owner block(static_cast<Header*>(::operator new(sizeof(Header) + text.size() * sizeof(OLECHAR))));
        block->length = static_cast<uint32_t>(text.size());
        std::memcpy(reinterpret_cast<OLECHAR*>(block.get() + 1), text.data(), text.size() * sizeof(OLECHAR));
        m_block = std::move(block);
    }
    void Clear() noexcept { m_block.reset(); }

private:
    struct Header {
        uint32_t length; // units; a BSTR has no more either
    };
    struct Free {
        void operator()(Header* block) const noexcept { ::operator delete(block); }
    };
    using Owner = std::unique_ptr<Header, Free>;

    const OLECHAR* Units() const noexcept { return reinterpret_cast<const OLECHAR*>(m_block.get() + 1); }

    Owner m_block;
};
