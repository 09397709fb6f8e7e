// CprpCollectionSink, one connection of the viewer to the events of one collection.
#pragma once

#include "LV_prpPropCollection.h"
#include "platform/atl/ComObject.h"
#include "platform/atl/ComPtr.h"

#include <utility>
#include <vector>

/// Who hears of the events.
class CollectionListener {
public:
    /// The changes of one transaction. On the thread of the listener; may be entered again while it runs, when an
    /// editor commits on the way.
    virtual HRESULT OnCollectionEvents(IqorStream* stream, IqorPropertyCollection& collection) = 0;

protected:
    ~CollectionListener() = default;
};

class CprpCollectionSink : public CComObjectRootEx<CComMultiThreadModel>, public IDispatch {
public:
    using Interfaces = InterfaceList<IDispatch>;

    /// A sink that hears from now on. Raises what the collection answers.
    static CComPtr<CprpCollectionSink> Connect(CollectionListener& viewer, IqorPropertyCollection& collection);
    /// Hears nothing from now on, also of a call that is under way to it.
    void Disconnect() noexcept;

    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*, UINT*) override;

private:
    static constexpr DWORD kNotConnected = 0xFEFEFEFE;

    DWORD m_dwCookie = kNotConnected;
    CollectionListener* m_pViewer = nullptr;
    CComPtr<IqorPropertyCollection> m_spCollection;
};

/// Connections that end with their owner.
class Connections {
public:
    Connections() = default;
    Connections(Connections&&) noexcept = default;
    Connections& operator=(Connections&& other) noexcept
    {
        std::swap(m_sinks, other.m_sinks);
        return *this;
    }
    ~Connections()
    {
        for (const auto& sink : m_sinks)
            sink->Disconnect();
    }

    void Add(CollectionListener& viewer, IqorPropertyCollection& collection)
    {
        m_sinks.push_back(CprpCollectionSink::Connect(viewer, collection));
    }

private:
    std::vector<CComPtr<CprpCollectionSink>> m_sinks;
};
