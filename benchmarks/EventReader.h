// A sink that reads every record of each stream that it is handed, and the old texts in one of three ways.
#pragma once

#include "LV_prpPropCollection.h"
#include "platform/atl/ComPtr.h"
#include "platform/com/Ole.h"

#include <cstdint>

enum class OldTexts {
    Copied,  ///< each text as a BSTR of its own
    InPlace, ///< each text where it stands in the stream
    Skipped,
};

class EventReader final : public IDispatch {
public:
    explicit EventReader(OldTexts how) : m_how(how) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** out) override;
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_count; }
    STDMETHODIMP_(ULONG) Release() override;
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* params, VARIANT*, EXCEPINFO*, UINT*) override;

    /// Records read so far.
    uint64_t Records() const { return m_records; }
    /// Characters of the old texts read so far, and the ids: proof that they were looked at.
    uint64_t Checksum() const { return m_checksum; }

private:
    ~EventReader() = default;

    void Read(IqorStream& stream);

    ULONG m_count = 0;
    OldTexts m_how;
    uint64_t m_records = 0;
    uint64_t m_checksum = 0;
};

/// A connection of a sink with a collection; ends with the object.
class Subscription {
public:
    Subscription(IqorPropertyCollection& collection, IDispatch& sink);
    ~Subscription();
    Subscription(const Subscription&) = delete;
    Subscription& operator=(const Subscription&) = delete;

private:
    CComPtr<IConnectionPoint> m_point;
    DWORD m_cookie = 0;
};
