// Owner of one reference to an interface.
#pragma once

#include <lumevor/Text.h>

namespace lumevor {

template <class Interface>
class Ref {
public:
    Ref() = default;
    /// Shares what the caller keeps.
    Ref(Interface* shared) noexcept : m_object(shared)
    {
        if (m_object)
            m_object->AddRef();
    }
    Ref(const Ref& other) noexcept : Ref(other.m_object) {}
    Ref(Ref&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    Ref& operator=(Ref other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }
    ~Ref() { Clear(); }

    /// Takes over a reference that the caller owns.
    static Ref Adopt(Interface* owned) noexcept
    {
        Ref ref;
        ref.m_object = owned;
        return ref;
    }

    void Clear() noexcept
    {
        if (Interface* old = std::exchange(m_object, nullptr))
            old->Release();
    }
    /// For out parameters: releases what is held.
    Interface** Put() noexcept
    {
        Clear();
        return &m_object;
    }
    void** PutVoid() noexcept { return reinterpret_cast<void**>(Put()); }
    Interface* Get() const noexcept { return m_object; }
    Interface* Detach() noexcept { return std::exchange(m_object, nullptr); }
    Interface* operator->() const noexcept { return m_object; }
    explicit operator bool() const noexcept { return m_object != nullptr; }

    /// Null when the object lacks the interface.
    template <class Other>
    Ref<Other> As() const noexcept
    {
        Ref<Other> other;
        if (m_object)
            m_object->QueryInterface(__uuidof(Other), other.PutVoid());
        return other;
    }

    friend bool operator==(const Ref& a, const Ref& b) noexcept { return a.m_object == b.m_object; }

private:
    Interface* m_object = nullptr;
};

} // namespace lumevor
