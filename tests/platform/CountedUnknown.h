// An object that does nothing but count its references, on any thread; for tests of who owns what.
#pragma once

#include "platform/com/Ole.h"

#include <atomic>

/// Lives on the stack of a test, so that its count can be read after the last release.
class CountedUnknown final : public IUnknown {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) override
    {
        *out = iid == IID_IUnknown ? this : nullptr;
        if (!*out)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_count; }
    STDMETHODIMP_(ULONG) Release() override { return --m_count; }

    ULONG Count() const { return m_count; }

private:
    std::atomic<ULONG> m_count{1};
};
