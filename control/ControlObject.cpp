// The control as an embedded object: site, verbs, extent, notifications.
#include "control/ControlBase.h"

#include <olectl.h>

namespace {

/// Two inches each way: what a container gets that has no idea of its own.
constexpr SIZEL kFirstExtent{5080, 5080};

} // namespace

ControlBase::ControlBase(const ControlFacts& facts) : m_facts(facts), m_sizeExtent(kFirstExtent) {}

STDMETHODIMP ControlBase::SetClientSite(IOleClientSite* site)
{
    const CComPtr<IOleObject> kept(this);
    m_spClientSite = site;
    if (site)
        OnSiteSet();
    return S_OK;
}

STDMETHODIMP ControlBase::GetClientSite(IOleClientSite** site)
{
    if (!site)
        return E_POINTER;
    *site = CComPtr<IOleClientSite>(m_spClientSite).Detach();
    return S_OK;
}

/// Takes the control's window away. Editors commit on the way.
STDMETHODIMP ControlBase::Close(DWORD saveOption)
{
    const CComPtr<IOleObject> kept(this);
    InPlaceDeactivate();
    DestroyControlWindow();
    const CComPtr<IOleClientSite> site = m_spClientSite;
    if (site && saveOption != OLECLOSE_NOSAVE && m_bDirty)
        site->SaveObject();
    if (const CComPtr<IOleAdviseHolder> holder = m_spAdviseHolder)
        holder->SendOnClose();
    return S_OK;
}

STDMETHODIMP ControlBase::DoVerb(LONG verb, LPMSG, IOleClientSite*, LONG, HWND, LPCRECT)
{
    switch (verb) {
    case OLEIVERB_PRIMARY:
    case OLEIVERB_SHOW:
    case OLEIVERB_INPLACEACTIVATE: return Activate(false);
    case OLEIVERB_UIACTIVATE: return Activate(true);
    case OLEIVERB_HIDE: return Hide();
    default: return verb > 0 ? OLEOBJ_S_INVALIDVERB : E_NOTIMPL;
    }
}

STDMETHODIMP ControlBase::EnumVerbs(IEnumOLEVERB** verbs)
{
    return verbs ? OleRegEnumVerbs(m_facts.clsid, verbs) : E_POINTER;
}

STDMETHODIMP ControlBase::GetUserClassID(CLSID* clsid)
{
    if (!clsid)
        return E_POINTER;
    *clsid = m_facts.clsid;
    return S_OK;
}

STDMETHODIMP ControlBase::GetUserType(DWORD form, LPOLESTR* name)
{
    return name ? OleRegGetUserType(m_facts.clsid, form, name) : E_POINTER;
}

/// Keeps the size. The window follows SetObjectRects alone: containers may send sizes here that are not their own.
STDMETHODIMP ControlBase::SetExtent(DWORD aspect, SIZEL* size)
{
    if (!size)
        return E_POINTER;
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    if (size->cx != m_sizeExtent.cx || size->cy != m_sizeExtent.cy) {
        m_sizeExtent = *size;
        SetDirty();
        ViewChanged();
    }
    return S_OK;
}

STDMETHODIMP ControlBase::GetExtent(DWORD aspect, SIZEL* size)
{
    if (!size)
        return E_POINTER;
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    *size = m_sizeExtent;
    return S_OK;
}

STDMETHODIMP ControlBase::Advise(IAdviseSink* sink, DWORD* connection)
{
    if (!m_spAdviseHolder) {
        const HRESULT hr = CreateOleAdviseHolder(&m_spAdviseHolder);
        if (FAILED(hr))
            return hr;
    }
    return m_spAdviseHolder->Advise(sink, connection);
}

STDMETHODIMP ControlBase::Unadvise(DWORD connection)
{
    return m_spAdviseHolder ? m_spAdviseHolder->Unadvise(connection) : OLE_E_NOCONNECTION;
}

STDMETHODIMP ControlBase::EnumAdvise(IEnumSTATDATA** advises)
{
    if (!advises)
        return E_POINTER;
    *advises = nullptr;
    return m_spAdviseHolder ? m_spAdviseHolder->EnumAdvise(advises) : S_OK;
}

STDMETHODIMP ControlBase::GetMiscStatus(DWORD aspect, DWORD* status)
{
    if (!status)
        return E_POINTER;
    *status = kControlMiscStatus;
    return aspect == DVASPECT_CONTENT ? S_OK : DV_E_DVASPECT;
}

/// While frozen, events are not fired and are lost: each of them tells of the moment only.
STDMETHODIMP ControlBase::FreezeEvents(BOOL freeze)
{
    if (freeze)
        ++m_nFrozen;
    else if (m_nFrozen > 0)
        --m_nFrozen;
    return S_OK;
}

void ControlBase::LetGo()
{
    InPlaceDeactivate();
    DestroyControlWindow();
    if (ConnectionPoint* const events = EventPoint())
        events->DropSinks();
    m_spInPlaceSite.Release();
    m_spClientSite.Release();
}
