// Drawing for a container that has not activated the control, and telling it that the picture is old.
#include "control/ControlBase.h"

STDMETHODIMP ControlBase::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC dc, LPCRECTL place, LPCRECTL,
                               BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR)
{
    if (!dc || !place)
        return E_INVALIDARG;
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    const CComPtr<IOleObject> kept(this);
    try {
        OnDraw(dc, {place->left, place->top, place->right, place->bottom});
        return S_OK;
    } catch (...) {
        return E_FAIL; // a picture that is not drawn is shown to nobody; the container decides what to do
    }
}

STDMETHODIMP ControlBase::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink)
{
    m_spViewSink = sink;
    m_dwViewAspects = aspects;
    m_dwViewFlags = flags;
    if ((flags & ADVF_PRIMEFIRST) != 0)
        ViewChanged();
    return S_OK;
}

STDMETHODIMP ControlBase::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink)
{
    if (aspects)
        *aspects = m_dwViewAspects;
    if (flags)
        *flags = m_dwViewFlags;
    if (sink)
        *sink = CComPtr<IAdviseSink>(m_spViewSink).Detach();
    return S_OK;
}

STDMETHODIMP ControlBase::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, SIZEL* size)
{
    return GetExtent(aspect, size);
}

void ControlBase::ViewChanged()
{
    constexpr LONG kWhole = -1;
    const CComPtr<IAdviseSink> sink = m_spViewSink;
    if (m_hWnd || !sink)
        return; // a window repaints itself
    if ((m_dwViewFlags & ADVF_ONLYONCE) != 0)
        m_spViewSink.Release();
    sink->OnViewChange(DVASPECT_CONTENT, kWhole);
}
