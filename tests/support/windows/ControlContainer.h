// A container in the small: one site with its frame, for one control. Writes down what the control asks and tells, and
// offers what a test sets.
#pragma once

#include "platform/atl/ComObject.h"
#include "platform/atl/ComPtr.h"
#include "platform/draw/Rect.h"
#include "platform/win/Rectangles.h"

#include <ocidl.h>
#include <olectl.h>

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

/// Make it with CComObjectNoLock<ControlContainer>; not counted by the module of the control.
class ControlContainer : public CComObjectRootEx<CComSingleThreadModel>,
                         public IOleClientSite,
                         public IOleInPlaceSite,
                         public IOleInPlaceFrame,
                         public IOleControlSite,
                         public IDispatch {
public:
    using Interfaces = InterfaceList<IOleClientSite, IOleInPlaceSite, InterfaceBy<IOleWindow, IOleInPlaceSite>,
                                     IOleInPlaceFrame, IOleInPlaceUIWindow, IOleControlSite, IDispatch>;

    HWND window = nullptr;
    Rect place{0, 0, 300, 200};     ///< of the control, in the window
    Rect clip{0, 0, 10000, 10000};  ///< what shows of it
    HRESULT canActivate = S_OK;     ///< answer to CanInPlaceActivate
    HRESULT onActivate = S_OK;      ///< answer to OnInPlaceActivate
    CComPtr<IFontDisp> ambientFont; ///< offered when it is there
    CComPtr<IOleInPlaceActiveObject> activeObject;
    std::vector<std::string> asked; ///< in order
    /// Called inside of each call of the name.
    std::map<std::string, std::function<void()>> reactions;

    std::vector<std::string> Asked() { return std::exchange(asked, {}); }

    // IOleClientSite
    STDMETHODIMP SaveObject() override { return Note("SaveObject"); }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP GetContainer(IOleContainer**) override { return E_NOINTERFACE; }
    STDMETHODIMP ShowObject() override { return Note("ShowObject"); }
    STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

    // IOleWindow
    STDMETHODIMP GetWindow(HWND* out) override
    {
        *out = window;
        return S_OK;
    }
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return S_OK; }

    // IOleInPlaceSite
    STDMETHODIMP CanInPlaceActivate() override { return canActivate; }
    STDMETHODIMP OnInPlaceActivate() override
    {
        Note("OnInPlaceActivate");
        return onActivate;
    }
    STDMETHODIMP OnUIActivate() override { return Note("OnUIActivate"); }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, RECT* placeOut,
                                  RECT* clipOut, OLEINPLACEFRAMEINFO*) override
    {
        *frame = CComPtr<IOleInPlaceFrame>(this).Detach();
        *document = nullptr;
        *placeOut = ToPlatform(place);
        *clipOut = ToPlatform(clip);
        return S_OK;
    }
    STDMETHODIMP Scroll(SIZE) override { return S_OK; }
    STDMETHODIMP OnUIDeactivate(BOOL) override { return Note("OnUIDeactivate"); }
    STDMETHODIMP OnInPlaceDeactivate() override { return Note("OnInPlaceDeactivate"); }
    STDMETHODIMP DiscardUndoState() override { return S_OK; }
    STDMETHODIMP DeactivateAndUndo() override { return S_OK; }
    STDMETHODIMP OnPosRectChange(LPCRECT) override { return S_OK; }

    // IOleInPlaceFrame
    STDMETHODIMP GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) override
    {
        activeObject = object;
        return Note(object ? "SetActiveObject" : "SetActiveObject null");
    }
    STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
    STDMETHODIMP RemoveMenus(HMENU) override { return S_OK; }
    STDMETHODIMP SetStatusText(LPCOLESTR) override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }
    STDMETHODIMP TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

    // IOleControlSite
    STDMETHODIMP OnControlInfoChanged() override { return S_OK; }
    STDMETHODIMP LockInPlaceActive(BOOL) override { return S_OK; }
    STDMETHODIMP GetExtendedControl(IDispatch**) override { return E_NOTIMPL; }
    STDMETHODIMP TransformCoords(POINTL*, POINTF*, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(MSG*, DWORD) override { return S_FALSE; }
    STDMETHODIMP OnFocus(BOOL gained) override { return Note(gained ? "OnFocus gained" : "OnFocus lost"); }
    STDMETHODIMP ShowPropertyFrame() override { return E_NOTIMPL; }

    // IDispatch: the ambient properties
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*, UINT*) override
    {
        if (id != DISPID_AMBIENT_FONT || !ambientFont)
            return DISP_E_MEMBERNOTFOUND;
        V_VT(result) = VT_DISPATCH;
        V_DISPATCH(result) = CComPtr<IFontDisp>(ambientFont).Detach();
        return S_OK;
    }

private:
    HRESULT Note(const std::string& name)
    {
        asked.push_back(name);
        if (const auto reaction = reactions.find(name); reaction != reactions.end()) {
            const auto react = reaction->second;
            react();
        }
        return S_OK;
    }
};

/// A top-level window for a control to be put into.
class ContainerWindow {
public:
    ContainerWindow()
    {
        WNDCLASSW description{};
        description.lpfnWndProc = DefWindowProcW;
        description.hInstance = GetModuleHandleW(nullptr);
        description.hbrBackground = static_cast<HBRUSH>(GetStockObject(GRAY_BRUSH));
        description.lpszClassName = L"ControlContainer";
        RegisterClassW(&description);
        m_hWnd = CreateWindowW(L"ControlContainer", L"container", WS_POPUP | WS_CLIPCHILDREN, 40, 40, 320, 240, nullptr,
                               nullptr, description.hInstance, nullptr);
        ShowWindow(m_hWnd, SW_SHOW);
        SetForegroundWindow(m_hWnd);
    }
    ~ContainerWindow() { DestroyWindow(m_hWnd); }
    ContainerWindow(const ContainerWindow&) = delete;
    ContainerWindow& operator=(const ContainerWindow&) = delete;

    HWND Handle() const { return m_hWnd; }

private:
    HWND m_hWnd;
};
