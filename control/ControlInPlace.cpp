// In-place activation: the window in the site's window, the focus, the place that the container gives.
#include "control/ControlBase.h"
#include "platform/win/Rectangles.h"

/// What a site says about its windows.
struct ControlBase::WindowContext {
    CComPtr<IOleInPlaceFrame> frame;
    CComPtr<IOleInPlaceUIWindow> document; ///< null where the frame is the document's window as well
    RECT place{};
    RECT clip{};

    HRESULT Ask(IOleInPlaceSite& site)
    {
        OLEINPLACEFRAMEINFO info{};
        info.cb = sizeof info;
        return site.GetWindowContext(&frame, &document, &place, &clip, &info);
    }
};

STDMETHODIMP ControlBase::GetWindow(HWND* window)
{
    if (!window)
        return E_POINTER;
    *window = m_hWnd;
    return m_hWnd ? S_OK : E_FAIL;
}

/// Makes the window in the site's window, or shows the one that there is.
HRESULT ControlBase::Activate(bool withUi)
{
    const CComPtr<IOleObject> kept(this);
    const CComPtr<IOleClientSite> client = m_spClientSite;
    if (!client)
        return E_UNEXPECTED;
    CComPtr<IOleInPlaceSite> site = m_spInPlaceSite;
    if (!site) {
        const HRESULT hr = client->QueryInterface(IID_IOleInPlaceSite, reinterpret_cast<void**>(&site));
        if (FAILED(hr))
            return hr;
    }
    if (!m_bInPlaceActive) {
        if (site->CanInPlaceActivate() != S_OK)
            return E_FAIL;
        const HRESULT hr = site->OnInPlaceActivate();
        if (FAILED(hr))
            return hr;
        m_bInPlaceActive = true;
        m_spInPlaceSite = site;
    }
    const HRESULT hr = ActivateInPlace(*site, withUi);
    if (FAILED(hr))
        InPlaceDeactivate();
    else if (m_bInPlaceActive)
        client->ShowObject();
    return hr;
}

HRESULT ControlBase::ActivateInPlace(IOleInPlaceSite& site, bool withUi)
{
    HWND parent = nullptr;
    HRESULT hr = site.GetWindow(&parent);
    if (FAILED(hr))
        return hr;
    WindowContext context;
    hr = context.Ask(site);
    if (FAILED(hr))
        return hr;
    if (m_hWnd)
        ShowWindow(m_hWnd, SW_SHOW);
    else if (!CreateControlWindow(parent, FromPlatform(context.place)))
        return E_FAIL;
    SetObjectRects(&context.place, &context.clip);
    return withUi ? ActivateUi(site, context) : S_OK;
}

HRESULT ControlBase::ActivateUi(IOleInPlaceSite& site, const WindowContext& context)
{
    if (m_bUiActive)
        return S_OK;
    m_bUiActive = true; // ahead of the focus, whose arrival asks for the same
    const HRESULT hr = site.OnUIActivate();
    if (FAILED(hr)) {
        m_bUiActive = false;
        return hr;
    }
    if (m_hWnd && !HasFocusInside())
        SetFocus(m_hWnd);
    for (IOleInPlaceUIWindow* const around : {static_cast<IOleInPlaceUIWindow*>(context.frame), context.document.p}) {
        if (!around || !m_bUiActive)
            continue;
        around->SetActiveObject(this, OLESTR(""));
        around->SetBorderSpace(nullptr); // the control brings no tools along
    }
    return S_OK;
}

HRESULT ControlBase::Hide()
{
    const CComPtr<IOleObject> kept(this);
    UIDeactivate();
    if (m_hWnd)
        ShowWindow(m_hWnd, SW_HIDE);
    return S_OK;
}

STDMETHODIMP ControlBase::InPlaceDeactivate()
{
    if (!m_bInPlaceActive)
        return S_OK;
    const CComPtr<IOleObject> kept(this);
    UIDeactivate();
    if (!m_bInPlaceActive)
        return S_OK;
    m_bInPlaceActive = m_bFocusTold = false;
    const CComPtr<IOleInPlaceSite> site = std::move(m_spInPlaceSite);
    DestroyControlWindow();
    if (site)
        site->OnInPlaceDeactivate();
    return S_OK;
}

STDMETHODIMP ControlBase::UIDeactivate()
{
    if (!m_bUiActive)
        return S_OK;
    const CComPtr<IOleObject> kept(this);
    m_bUiActive = false;
    const CComPtr<IOleInPlaceSite> site = m_spInPlaceSite;
    if (!site)
        return S_OK;
    WindowContext context;
    context.Ask(*site);
    if (context.document)
        context.document->SetActiveObject(nullptr, nullptr);
    if (context.frame)
        context.frame->SetActiveObject(nullptr, nullptr);
    site->OnUIDeactivate(FALSE);
    return S_OK;
}

/// What the clip leaves of the place is shown; the window itself always has the whole place.
STDMETHODIMP ControlBase::SetObjectRects(LPCRECT place, LPCRECT clip)
{
    if (!place || !clip)
        return E_POINTER;
    if (!m_hWnd)
        return S_OK;
    RECT shown{};
    HRGN region = nullptr; // belongs to the window once set
    if (IntersectRect(&shown, place, clip) && !EqualRect(&shown, place)) {
        OffsetRect(&shown, -place->left, -place->top);
        region = CreateRectRgnIndirect(&shown);
    }
    SetWindowRgn(m_hWnd, region, TRUE);
    MoveWindow(m_hWnd, place->left, place->top, place->right - place->left, place->bottom - place->top, TRUE);
    return S_OK;
}

STDMETHODIMP ControlBase::TranslateAccelerator(LPMSG message)
{
    if (!message)
        return E_POINTER;
    const CComPtr<IOleObject> kept(this);
    return TakesKey(*message) ? S_OK : S_FALSE;
}

bool ControlBase::HasFocusInside() const
{
    const HWND focus = GetFocus();
    return m_hWnd && focus && (focus == m_hWnd || IsChild(m_hWnd, focus));
}

/// Calls the container, which activates and deactivates other objects meanwhile.
void ControlBase::FocusGained()
{
    const CComPtr<IOleObject> kept(this);
    const CComPtr<IOleInPlaceSite> site = m_spInPlaceSite;
    WindowContext context;
    if (site && !m_bUiActive && SUCCEEDED(context.Ask(*site)))
        ActivateUi(*site, context);
    TellFocus(true);
}

void ControlBase::FocusLost()
{
    if (!HasFocusInside())
        TellFocus(false);
}

/// The focus moves on inside of the control; the container hears of its coming and going alone.
void ControlBase::TellFocus(bool inside)
{
    if (!m_bInPlaceActive || m_bFocusTold == inside)
        return;
    m_bFocusTold = inside;
    const CComPtr<IOleObject> kept(this);
    CComPtr<IOleControlSite> site;
    if (m_spClientSite && SUCCEEDED(m_spClientSite.QueryInterface(&site)))
        site->OnFocus(inside);
}
