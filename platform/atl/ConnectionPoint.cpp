#include "platform/atl/ConnectionPoint.h"

#include "platform/atl/InterfaceList.h"

#include <algorithm>
#include <atomic>
#include <new>
#include <utility>

namespace {

constexpr LCID kUserDefaultLocale = 1024;

/// Enumerator over a fixed list of items that own their references.
template <class Interface, class Item, class Raw>
class Enumerator final : public Interface {
public:
    Enumerator(std::vector<Item> items, std::size_t next) : m_items(std::move(items)), m_next(next) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** out) override
    {
        return QueryList<Enumerator>(this, InterfaceList<Interface>{}, iid, out);
    }
    STDMETHODIMP_(ULONG) AddRef() override { return m_count.fetch_add(1) + 1; }
    STDMETHODIMP_(ULONG) Release() override
    {
        const ULONG left = m_count.fetch_sub(1) - 1;
        if (left == 0)
            delete this;
        return left;
    }
    STDMETHODIMP Next(ULONG wanted, Raw* out, ULONG* fetched) override
    {
        if (!out || (!fetched && wanted != 1))
            return E_POINTER;
        ULONG given = 0;
        for (; given < wanted && m_next < m_items.size(); ++given, ++m_next)
            Hand(m_items[m_next], out[given]);
        if (fetched)
            *fetched = given;
        return given == wanted ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG count) override
    {
        const std::size_t left = m_items.size() - m_next;
        m_next += std::min<std::size_t>(count, left);
        return count <= left ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() override
    {
        m_next = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(Interface** out) override
    {
        if (!out)
            return E_POINTER;
        *out = new (std::nothrow) Enumerator(m_items, m_next);
        if (!*out)
            return E_OUTOFMEMORY;
        (*out)->AddRef();
        return S_OK;
    }

private:
    ~Enumerator() = default;

    static void Hand(const CComPtr<IConnectionPoint>& item, IConnectionPoint*& out)
    {
        out = item.p;
        out->AddRef();
    }
    static void Hand(const std::pair<CComPtr<IDispatch>, DWORD>& item, CONNECTDATA& out)
    {
        out.pUnk = item.first.p;
        out.pUnk->AddRef();
        out.dwCookie = item.second;
    }

    std::vector<Item> m_items;
    std::size_t m_next;
    std::atomic<ULONG> m_count{0};
};

using ConnectionEnumerator = Enumerator<IEnumConnections, std::pair<CComPtr<IDispatch>, DWORD>, CONNECTDATA>;
using PointEnumerator = Enumerator<IEnumConnectionPoints, CComPtr<IConnectionPoint>, IConnectionPoint*>;

} // namespace

STDMETHODIMP ConnectionPoint::QueryInterface(REFIID iid, void** out)
{
    return QueryList<ConnectionPoint>(this, InterfaceList<IConnectionPoint>{}, iid, out);
}

STDMETHODIMP ConnectionPoint::GetConnectionInterface(IID* iid)
{
    if (!iid)
        return E_POINTER;
    *iid = m_iid;
    return S_OK;
}

STDMETHODIMP ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** container)
{
    if (!container)
        return E_POINTER;
    *container = &m_container;
    m_container.AddRef();
    return S_OK;
}

STDMETHODIMP ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie)
{
    if (!sink || !cookie)
        return E_POINTER;
    *cookie = 0;
    CComPtr<IDispatch> dispatch;
    if (FAILED(sink->QueryInterface(m_iid, reinterpret_cast<void**>(&dispatch))) &&
        FAILED(sink->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&dispatch))))
        return CONNECT_E_CANNOTCONNECT;

    const std::lock_guard guard(m_mutex);
    auto slot = std::find_if(m_slots.begin(), m_slots.end(), [](const auto& s) { return !s.p; });
    if (slot == m_slots.end())
        slot = m_slots.emplace(m_slots.end());
    *slot = std::move(dispatch);
    *cookie = static_cast<DWORD>(slot - m_slots.begin()) + 1;
    return S_OK;
}

STDMETHODIMP ConnectionPoint::Unadvise(DWORD cookie)
{
    CComPtr<IDispatch> gone; // declared first, so released after the lock: its last release may call back
    const std::lock_guard guard(m_mutex);
    if (cookie == 0 || cookie > m_slots.size() || !m_slots[cookie - 1].p)
        return CONNECT_E_NOCONNECTION;
    std::swap(gone, m_slots[cookie - 1]);
    return S_OK;
}

STDMETHODIMP ConnectionPoint::EnumConnections(IEnumConnections** connections)
{
    if (!connections)
        return E_POINTER;
    std::vector<std::pair<CComPtr<IDispatch>, DWORD>> items;
    {
        const std::lock_guard guard(m_mutex);
        for (std::size_t i = 0; i < m_slots.size(); ++i)
            if (m_slots[i].p)
                items.emplace_back(m_slots[i], static_cast<DWORD>(i + 1));
    }
    *connections = new (std::nothrow) ConnectionEnumerator(std::move(items), 0);
    if (!*connections)
        return E_OUTOFMEMORY;
    (*connections)->AddRef();
    return S_OK;
}

bool ConnectionPoint::HasSinks() const
{
    const std::lock_guard guard(m_mutex);
    return std::any_of(m_slots.begin(), m_slots.end(), [](const auto& s) { return s.p != nullptr; });
}

std::size_t ConnectionPoint::SlotCount() const
{
    const std::lock_guard guard(m_mutex);
    return m_slots.size();
}

CComPtr<IDispatch> ConnectionPoint::SinkAt(std::size_t slot) const
{
    const std::lock_guard guard(m_mutex);
    return slot < m_slots.size() ? m_slots[slot] : nullptr;
}

void ConnectionPoint::DropSinks()
{
    std::vector<CComPtr<IDispatch>> gone;
    const std::lock_guard guard(m_mutex);
    std::swap(gone, m_slots);
}

HRESULT ConnectionPoint::Fire(DISPID id, VARIANT* reversedArguments, UINT count) const
{
    HRESULT last = S_OK;
    const std::size_t slots = SlotCount();
    for (std::size_t slot = 0; slot < slots; ++slot) {
        const CComPtr<IDispatch> sink = SinkAt(slot); // a reference for the time of the call
        if (!sink)
            continue;
        DISPPARAMS params{reversedArguments, nullptr, count, 0};
        last = sink->Invoke(id, IID_NULL, kUserDefaultLocale, DISPATCH_METHOD, &params, nullptr, nullptr, nullptr);
    }
    return last;
}

HRESULT EnumerateConnectionPoints(std::vector<IConnectionPoint*> points, IEnumConnectionPoints** out)
{
    if (!out)
        return E_POINTER;
    std::vector<CComPtr<IConnectionPoint>> items(points.begin(), points.end());
    *out = new (std::nothrow) PointEnumerator(std::move(items), 0);
    if (!*out)
        return E_OUTOFMEMORY;
    (*out)->AddRef();
    return S_OK;
}
