// A part of an object that is made when somebody first writes it; until then it reads as a default value.
#pragma once

#include <memory>
#include <utility>

template <class Part>
class Lazy {
public:
    Lazy() = default;
    Lazy(const Lazy& other) : m_part(other.m_part ? std::make_unique<Part>(*other.m_part) : nullptr) {}
    Lazy(Lazy&&) noexcept = default;
    Lazy& operator=(Lazy other) noexcept
    {
        m_part.swap(other.m_part);
        return *this;
    }

    /// Whether the part has been made.
    explicit operator bool() const noexcept { return m_part != nullptr; }

    // Reading makes nothing.
    const Part& operator*() const noexcept { return m_part ? *m_part : Unmade(); }
    const Part* operator->() const noexcept { return &**this; }

    /// The part, for writing.
    Part& Make()
    {
        if (!m_part)
            m_part = std::make_unique<Part>();
        return *m_part;
    }
    void Clear() noexcept { m_part.reset(); }

private:
    static const Part& Unmade() noexcept
    {
        static const Part s_unmade{};
        return s_unmade;
    }

    std::unique_ptr<Part> m_part;
};
