// ControlBase, what every control of the server has in common: the conversation with its container, its window,
// its persistent form, its connection points and its categories. A control adds its own dual interface, its painting
// and its messages.
//
// User-interface thread only. Every call to the container and every message may come back into the control: the
// container may close it, take the site away or give its last reference back. Each such operation holds a reference
// to the control, takes its own reference to the site first, and asks again for the window before touching it.
//
// The bodies are told by subject: ControlObject (embedding), ControlInPlace (activation), ControlWindow (messages),
// ControlView (drawing without activation), ControlPersistence, ControlClassInfo (events, type, categories).
#pragma once

#include "LV_prpPropCollection.h"
#include "control/ControlFacts.h"
#include "control/ControlFont.h"
#include "platform/atl/ConnectionPoint.h"
#include "platform/atl/InterfaceList.h"
#include "platform/draw/Rect.h"

#include <ocidl.h>

class ControlBase : public IOleObject,
                    public IOleControl,
                    public IOleInPlaceObject,
                    public IOleInPlaceActiveObject,
                    public IViewObject2,
                    public IPersistStreamInit,
                    public IPersistStorage,
                    public IPersistPropertyBag,
                    public IConnectionPointContainer,
                    public IProvideClassInfo2,
                    public ICategorizeProperties {
public:
    /// What a control answers for: its dual interface in front, then the common ones.
    template <class Dual>
    using ControlInterfaces =
        InterfaceList<Dual, IDispatch, ISupportErrorInfo, IOleObject, IOleControl, IOleInPlaceObject,
                      IOleInPlaceActiveObject, InterfaceBy<IOleWindow, IOleInPlaceObject>, IViewObject2, IViewObject,
                      IPersistStreamInit, IPersistStorage, IPersistPropertyBag,
                      InterfaceBy<IPersist, IPersistStreamInit>, IConnectionPointContainer, IProvideClassInfo2,
                      IProvideClassInfo, ICategorizeProperties>;

    ControlBase(const ControlBase&) = delete;
    ControlBase& operator=(const ControlBase&) = delete;

    // IOleObject
    STDMETHODIMP SetClientSite(IOleClientSite* site) override;
    STDMETHODIMP GetClientSite(IOleClientSite** site) override;
    STDMETHODIMP SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
    STDMETHODIMP Close(DWORD saveOption) override;
    STDMETHODIMP SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP GetClipboardData(DWORD, IDataObject**) override { return E_NOTIMPL; }
    STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                        LPCRECT place) override;
    STDMETHODIMP EnumVerbs(IEnumOLEVERB** verbs) override;
    STDMETHODIMP Update() override { return S_OK; }
    STDMETHODIMP IsUpToDate() override { return S_OK; }
    STDMETHODIMP GetUserClassID(CLSID* clsid) override;
    STDMETHODIMP GetUserType(DWORD form, LPOLESTR* name) override;
    STDMETHODIMP SetExtent(DWORD aspect, SIZEL* size) override;
    STDMETHODIMP GetExtent(DWORD aspect, SIZEL* size) override;
    STDMETHODIMP Advise(IAdviseSink* sink, DWORD* connection) override;
    STDMETHODIMP Unadvise(DWORD connection) override;
    STDMETHODIMP EnumAdvise(IEnumSTATDATA** advises) override;
    STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) override;
    STDMETHODIMP SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }

    // IOleControl
    STDMETHODIMP GetControlInfo(CONTROLINFO*) override { return E_NOTIMPL; } // no mnemonics
    STDMETHODIMP OnMnemonic(MSG*) override { return E_NOTIMPL; }
    STDMETHODIMP OnAmbientPropertyChange(DISPID) override { return S_OK; } // the font is taken once, with the site
    STDMETHODIMP FreezeEvents(BOOL freeze) override;

    // IOleWindow, for both interfaces of in-place activation
    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return S_OK; }

    // IOleInPlaceObject
    STDMETHODIMP InPlaceDeactivate() override;
    STDMETHODIMP UIDeactivate() override;
    STDMETHODIMP SetObjectRects(LPCRECT place, LPCRECT clip) override;
    STDMETHODIMP ReactivateAndUndo() override { return E_NOTIMPL; }

    // IOleInPlaceActiveObject
    STDMETHODIMP TranslateAccelerator(LPMSG message) override;
    STDMETHODIMP OnFrameWindowActivate(BOOL) override { return S_OK; }
    STDMETHODIMP OnDocWindowActivate(BOOL) override { return S_OK; }
    STDMETHODIMP ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }

    // IViewObject2
    STDMETHODIMP Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device, HDC deviceDc, HDC dc,
                      LPCRECTL place, LPCRECTL windowPlace, BOOL(STDMETHODCALLTYPE* goesOn)(ULONG_PTR),
                      ULONG_PTR argument) override;
    STDMETHODIMP GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE**) override { return E_NOTIMPL; }
    STDMETHODIMP Freeze(DWORD, LONG, void*, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP Unfreeze(DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
    STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
    STDMETHODIMP GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, SIZEL* size) override;

    // IPersist, for all three interfaces of persistence
    STDMETHODIMP GetClassID(CLSID* clsid) override { return GetUserClassID(clsid); }
    // IPersistStreamInit, and what the other two share with it
    STDMETHODIMP IsDirty() override { return m_bDirty ? S_OK : S_FALSE; }
    STDMETHODIMP InitNew() override { return S_OK; }
    STDMETHODIMP Load(IStream* stream) override;
    STDMETHODIMP Save(IStream* stream, BOOL clearDirty) override;
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER*) override { return E_NOTIMPL; }
    // IPersistStorage
    STDMETHODIMP InitNew(IStorage*) override { return S_OK; }
    STDMETHODIMP Load(IStorage* storage) override;
    STDMETHODIMP Save(IStorage* storage, BOOL sameAsLoad) override;
    STDMETHODIMP SaveCompleted(IStorage*) override { return S_OK; }
    STDMETHODIMP HandsOffStorage() override { return S_OK; }
    // IPersistPropertyBag
    STDMETHODIMP Load(IPropertyBag* bag, IErrorLog* log) override;
    STDMETHODIMP Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) override;

    // IConnectionPointContainer
    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;

    // IProvideClassInfo2
    STDMETHODIMP GetClassInfo(ITypeInfo** info) override;
    STDMETHODIMP GetGUID(DWORD kind, GUID* guid) override;

    // ICategorizeProperties
    STDMETHODIMP MapPropertyToCategory(DISPID id, INT* category) override;
    STDMETHODIMP GetCategoryName(INT category, LCID locale, BSTR* name) override;

    /// The control's own window; null while there is none.
    HWND ControlWindow() const { return m_hWnd; }
    /// Windows of controls that exist now, process-wide.
    static int LivingWindows();

protected:
    explicit ControlBase(const ControlFacts& facts);
    ~ControlBase() = default;

    // What a control adds
    virtual IDispatch& Automation() = 0;
    /// Null for a control that fires nothing.
    virtual ConnectionPoint* EventPoint() = 0;
    /// A real site was set: the time to take over what the container offers.
    virtual void OnSiteSet() {}
    /// The window stands, empty; the time to make what is in it. A failure is shown to the user, the window stays.
    virtual void OnWindowCreated() {}
    /// A message of the control's window. Controls handle theirs and leave the rest to this body.
    virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    virtual void OnDraw(HDC dc, const Rect& place) = 0;
    /// A key of the host's message loop ahead of its translation. True when the host is to leave it alone.
    virtual bool TakesKey(const MSG&) { return false; }

    // What a control may use
    IOleClientSite* Site() const { return m_spClientSite; }
    bool IsInPlaceActive() const { return m_bInPlaceActive; }
    bool HasFocusInside() const;
    /// A child window has got or lost the focus; the control's own window tells so itself. Calls the container.
    void FocusGained();
    void FocusLost();
    bool EventsAreFrozen() const { return m_nFrozen > 0; }
    void SetDirty() { m_bDirty = true; }
    /// What is shown has changed; for the time without a window the container is told.
    void ViewChanged();
    /// Last step of the control's life: destroys the window, drops sinks and site. From FinalRelease.
    void LetGo();

    // Stock values
    LONG m_nBorderStyle = 0;
    SHORT m_nAppearance = 1;
    bool m_bEnabled = true;
    CComPtr<IFontDisp> m_spFont;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HRESULT Activate(bool withUi);
    HRESULT ActivateInPlace(IOleInPlaceSite& site, bool withUi);
    struct WindowContext;
    HRESULT ActivateUi(IOleInPlaceSite& site, const WindowContext& context);
    void TellFocus(bool inside);
    HRESULT Hide();
    bool CreateControlWindow(HWND parent, const Rect& place);
    void DestroyControlWindow();
    void OnPaint();

    void ReadMember(const PersistedMember& member, VARIANT& out);
    void WriteMember(const PersistedMember& member, VARIANT& value);

    const ControlFacts& m_facts;
    HWND m_hWnd = nullptr;
    CComPtr<IOleClientSite> m_spClientSite;
    CComPtr<IOleInPlaceSite> m_spInPlaceSite; ///< while in-place active
    CComPtr<IOleAdviseHolder> m_spAdviseHolder;
    CComPtr<IAdviseSink> m_spViewSink;
    DWORD m_dwViewAspects = 0;
    DWORD m_dwViewFlags = 0;
    SIZEL m_sizeExtent; ///< hundredths of a millimetre
    int m_nFrozen = 0;
    bool m_bInPlaceActive = false;
    bool m_bUiActive = false;
    bool m_bFocusTold = false;
    bool m_bDirty = false;
};
