// Hearing the events of a COM object: the sink that it calls, and the connection between both.
//
//     class GridSink final : public lumevor::EventSink<_IprpCollectionViewerCtrlEvents> {
//         HRESULT OnEvent(DISPID id, const DISPPARAMS& arguments) override;
//     };
//     const auto sink = lumevor::Ref<GridSink>::Adopt(new GridSink);
//     const lumevor::Connection connection(grid.Get(), __uuidof(_IprpCollectionViewerCtrlEvents), sink.Get());
#pragma once

#include <lumevor/Error.h>

#include <atomic>

namespace lumevor {

/// Base of a sink on the heap, which lives as long as somebody holds it.
template <class Events>
class EventSink : public IDispatch {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** out) final
    {
        if (!out)
            return E_POINTER;
        const bool isOurs = iid == __uuidof(IUnknown) || iid == __uuidof(IDispatch) || iid == __uuidof(Events);
        *out = isOurs ? static_cast<IDispatch*>(this) : nullptr;
        if (isOurs)
            AddRef();
        return isOurs ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() final { return ++m_count; }
    STDMETHODIMP_(ULONG) Release() final
    {
        const ULONG left = --m_count;
        if (left == 0)
            delete this;
        return left;
    }
    STDMETHODIMP GetTypeInfoCount(UINT* count) final { return count ? (*count = 0, S_OK) : E_POINTER; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) final { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) final { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*, UINT*) final
    {
        constexpr DISPPARAMS kNone{};
        try {
            return OnEvent(id, arguments ? *arguments : kNone);
        } catch (...) { // the source of the events has no use for what goes wrong here
            return E_FAIL;
        }
    }

protected:
    virtual ~EventSink() = default;

    /// @param arguments  in reverse order: the first one comes last.
    virtual HRESULT OnEvent(DISPID id, const DISPPARAMS& arguments) = 0;

private:
    std::atomic<ULONG> m_count{1};
};

/// Connects a sink to an object for as long as it lives. Keeps both alive.
class Connection {
public:
    Connection(IUnknown* source, REFIID events, IDispatch* sink)
    {
        const auto container = Ref<IUnknown>(source).As<IConnectionPointContainer>();
        if (!container)
            throw Error(E_NOINTERFACE, TakeDescription());
        Check(container->FindConnectionPoint(events, m_point.Put()));
        Check(m_point->Advise(sink, &m_cookie));
    }
    ~Connection() { m_point->Unadvise(m_cookie); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

private:
    Ref<IConnectionPoint> m_point;
    DWORD m_cookie = 0;
};

} // namespace lumevor
