// Connection points: the sinks of one event interface and the container that answers for them.
// A firing class derives from ConnectionPoint, keeps itself as a member of the component, and walks a snapshot
// of the sinks, so that a sink may advise or unadvise while it is being called.
#pragma once

#include "platform/atl/ComPtr.h"
#include "platform/com/Ole.h"

#include <mutex>
#include <vector>

/// The sinks of one event interface of one component. Lives inside the component, whose count it shares.
class ConnectionPoint : public IConnectionPoint {
public:
    /// @param container  the component that this point is a part of; not counted.
    ConnectionPoint(IConnectionPointContainer& container, REFIID eventInterface)
        : m_container(container), m_iid(eventInterface)
    {
    }
    ConnectionPoint(const ConnectionPoint&) = delete;
    ConnectionPoint& operator=(const ConnectionPoint&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** out) override;
    STDMETHODIMP_(ULONG) AddRef() override { return m_container.AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return m_container.Release(); }

    STDMETHODIMP GetConnectionInterface(IID* iid) override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
    /// A sink answers for the event interface or, late bound, for IDispatch alone.
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
    STDMETHODIMP Unadvise(DWORD cookie) override;
    STDMETHODIMP EnumConnections(IEnumConnections** connections) override;

    const IID& EventInterface() const noexcept { return m_iid; }
    bool HasSinks() const;
    /// Living sinks in the order of their slots, one reference each.
    std::vector<CComPtr<IDispatch>> Sinks() const;
    /// Drops all sinks; for the last step of the component's life.
    void DropSinks();

    /// Calls one event of every sink: null IID, locale 1024, arguments in reverse order as the caller gives them.
    /// @return the result of the last call; a failing sink does not stop the next one.
    HRESULT Fire(DISPID id, VARIANT* reversedArguments, UINT count) const;

protected:
    ~ConnectionPoint() = default;

private:
    IConnectionPointContainer& m_container;
    const IID m_iid;
    mutable std::mutex m_mutex;              // sinks come and go on other threads than the firing one
    std::vector<CComPtr<IDispatch>> m_slots; // a cookie is a slot's index plus 1; empty slots are used again
};

/// Enumerates the given points; each gets a reference.
HRESULT EnumerateConnectionPoints(std::vector<IConnectionPoint*> points, IEnumConnectionPoints** out);
