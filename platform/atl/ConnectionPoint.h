// Connection points: the sinks of one event interface and the container that answers for them.
// A firing class derives from ConnectionPoint and keeps itself as a member of the component. A sink may advise and
// unadvise while it is being called.
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
    /// Drops all sinks; for the last step of the component's life.
    void DropSinks();

    /// Calls one event of every sink in the order of the slots: null IID, locale 1024, arguments in reverse order as
    /// the caller gives them. Each slot is looked at when its turn comes: who has unadvised by then is not called any
    /// more. A slot that is added meanwhile waits for the next event.
    /// @return the result of the last call; a failing sink does not stop the next one.
    HRESULT Fire(DISPID id, VARIANT* reversedArguments, UINT count) const;

protected:
    ~ConnectionPoint() = default;

private:
    std::size_t SlotCount() const;
    CComPtr<IDispatch> SinkAt(std::size_t slot) const;

    IConnectionPointContainer& m_container;
    const IID m_iid;
    mutable std::mutex m_mutex;              // sinks come and go on other threads than the firing one
    std::vector<CComPtr<IDispatch>> m_slots; // a cookie is a slot's index plus 1; empty slots are used again
};

/// Enumerates the given points; each gets a reference.
HRESULT EnumerateConnectionPoints(std::vector<IConnectionPoint*> points, IEnumConnectionPoints** out);
