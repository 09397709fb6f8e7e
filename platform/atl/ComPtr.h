// Owners of interface references and of out texts, under their well-known names.
#pragma once

#include "platform/com/Ole.h"

#include <utility>

/// Owns one reference. `operator&` is for out parameters and wants an empty pointer.
template <class T>
class CComPtr {
public:
    T* p = nullptr;

    CComPtr() = default;
    CComPtr(T* other) : p(other)
    {
        if (p)
            p->AddRef();
    }
    CComPtr(const CComPtr& other) : CComPtr(other.p) {}
    CComPtr(CComPtr&& other) noexcept : p(std::exchange(other.p, nullptr)) {}
    ~CComPtr() { Release(); }

    CComPtr& operator=(CComPtr other) noexcept
    {
        std::swap(p, other.p);
        return *this;
    }

    void Release() noexcept
    {
        if (T* old = std::exchange(p, nullptr))
            old->Release();
    }
    /// Takes over a reference that the caller owns.
    void Attach(T* other) noexcept
    {
        Release();
        p = other;
    }
    /// Hands the reference over to an out parameter.
    T* Detach() noexcept { return std::exchange(p, nullptr); }

    T** operator&() noexcept { return &p; }
    T* operator->() const noexcept { return p; }
    T& operator*() const noexcept { return *p; }
    operator T*() const noexcept { return p; }

    HRESULT CoCreateInstance(REFCLSID clsid, DWORD context = CLSCTX_INPROC_SERVER) noexcept
    {
        Release();
        return ::CoCreateInstance(clsid, nullptr, context, __uuidof(T), reinterpret_cast<void**>(&p));
    }
    template <class Other>
    HRESULT QueryInterface(Other** out) const noexcept
    {
        return p->QueryInterface(__uuidof(Other), reinterpret_cast<void**>(out));
    }
};

/// Owns one BSTR.
class CComBSTR {
public:
    BSTR m_str = nullptr;

    CComBSTR() = default;
    explicit CComBSTR(TextView text) : m_str(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
    CComBSTR(CComBSTR&& other) noexcept : m_str(std::exchange(other.m_str, nullptr)) {}
    CComBSTR& operator=(CComBSTR&& other) noexcept
    {
        std::swap(m_str, other.m_str);
        return *this;
    }
    CComBSTR(const CComBSTR&) = delete;
    CComBSTR& operator=(const CComBSTR&) = delete;
    ~CComBSTR() { SysFreeString(m_str); }

    BSTR* operator&() noexcept { return &m_str; }
    operator BSTR() const noexcept { return m_str; }
    BSTR Detach() noexcept { return std::exchange(m_str, nullptr); }
    /// Whole content by its length prefix; a null BSTR is an empty text.
    TextView View() const noexcept { return {m_str ? m_str : OLESTR(""), SysStringLen(m_str)}; }
};

/// Whole content of a BSTR by its length prefix; a null one is an empty text.
inline TextView ViewOf(BSTR text) noexcept
{
    return {text ? text : OLESTR(""), SysStringLen(text)};
}
