// What every control owes its container, shown with the collection viewer.
#include "platform/atl/ComVariant.h"
#include "tests/viewer/ViewerHost.h"

#include <gmock/gmock.h>

#include <map>

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace {

class Control : public testing::Test {
protected:
    ViewerHost host{false};

    template <class Interface>
    CComPtr<Interface> As()
    {
        CComPtr<Interface> other;
        EXPECT_EQ(host.control.QueryInterface(&other), S_OK);
        return other;
    }
    HRESULT Do(LONG verb)
    {
        EXPECT_EQ(As<IOleObject>()->SetClientSite(host.site), S_OK);
        return As<IOleObject>()->DoVerb(verb, nullptr, host.site, 0, host.window.Handle(), nullptr);
    }
    HWND Window() { return host.viewer->ControlWindow(); }
};

/// A property bag in memory.
class Bag : public CComObjectRootEx<CComSingleThreadModel>, public IPropertyBag {
public:
    using Interfaces = InterfaceList<IPropertyBag>;

    std::map<std::wstring, CComVariant> values;

    STDMETHODIMP Read(LPCOLESTR name, VARIANT* value, IErrorLog*) override
    {
        const auto found = values.find(name);
        if (found == values.end())
            return E_INVALIDARG;
        const VARTYPE wanted = V_VT(value);
        VariantInit(value);
        return VariantChangeType(value, &found->second, 0, wanted);
    }
    STDMETHODIMP Write(LPCOLESTR name, VARIANT* value) override { return VariantCopy(&values[name], value); }
};

class OwnBag {
public:
    OwnBag()
    {
        CComObjectNoLock<Bag>::CreateInstance(&m_object);
        m_reference.Attach(m_object);
    }
    Bag* operator->() const { return m_object; }
    operator IPropertyBag*() const { return m_object; }

private:
    CComObjectNoLock<Bag>* m_object = nullptr;
    CComPtr<IPropertyBag> m_reference;
};

CComPtr<IStream> MemoryStream()
{
    CComPtr<IStream> stream;
    EXPECT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, &stream), S_OK);
    return stream;
}

void Rewind(IStream* stream)
{
    EXPECT_EQ(stream->Seek({}, STREAM_SEEK_SET, nullptr), S_OK);
}

ULONGLONG SizeOf(IStream* stream)
{
    STATSTG facts{};
    EXPECT_EQ(stream->Stat(&facts, STATFLAG_NONAME), S_OK);
    return facts.cbSize.QuadPart;
}

} // namespace

TEST_F(Control, AnswersForEveryInterfaceOfAControl)
{
    for (const IID& iid :
         {IID_IUnknown, IID_IDispatch, IID_IprpCollectionViewerCtrl, IID_ISupportErrorInfo, IID_IOleObject,
          IID_IOleControl, IID_IOleWindow, IID_IOleInPlaceObject, IID_IOleInPlaceActiveObject, IID_IViewObject,
          IID_IViewObject2, IID_IPersist, IID_IPersistStreamInit, IID_IPersistStorage, IID_IPersistPropertyBag,
          IID_IConnectionPointContainer, IID_IProvideClassInfo, IID_IProvideClassInfo2, IID_ICategorizeProperties}) {
        CComPtr<IUnknown> other;
        EXPECT_EQ(host.control->QueryInterface(iid, reinterpret_cast<void**>(&other)), S_OK);
        CComPtr<IUnknown> identity;
        CComPtr<IUnknown> first;
        EXPECT_EQ(other->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&identity)), S_OK);
        EXPECT_EQ(host.control->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&first)), S_OK);
        EXPECT_EQ(identity.p, first.p);
    }
    CComPtr<IUnknown> none;
    EXPECT_EQ(host.control->QueryInterface(IID_IMoniker, reinterpret_cast<void**>(&none)), E_NOINTERFACE);
}

TEST_F(Control, SaysWhatItIs)
{
    DWORD status = 0;
    EXPECT_EQ(As<IOleObject>()->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
    EXPECT_EQ(status, 131473U);
    CLSID clsid{};
    EXPECT_EQ(As<IOleObject>()->GetUserClassID(&clsid), S_OK);
    EXPECT_TRUE(clsid == CLSID_prpCollectionViewerCtrl);
    EXPECT_EQ(As<IPersistStreamInit>()->GetClassID(&clsid), S_OK);
    EXPECT_EQ(As<ISupportErrorInfo>()->InterfaceSupportsErrorInfo(IID_IprpCollectionViewerCtrl), S_OK);
    GUID events{};
    EXPECT_EQ(As<IProvideClassInfo2>()->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
    EXPECT_TRUE(events == DIID__IprpCollectionViewerCtrlEvents);
    EXPECT_EQ(As<IProvideClassInfo2>()->GetGUID(99, &events), E_INVALIDARG);
    CComPtr<ITypeInfo> info;
    ASSERT_EQ(As<IProvideClassInfo2>()->GetClassInfo(&info), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    EXPECT_TRUE(attributes->guid == CLSID_prpCollectionViewerCtrl);
    info->ReleaseTypeAttr(attributes);
}

TEST_F(Control, SortsItsMembersIntoCategories)
{
    const CComPtr<ICategorizeProperties> categories = As<ICategorizeProperties>();
    for (const DISPID id : {1, 2, 3, 4, 5, 6, 7, 8, 13, 15}) {
        INT category = 0;
        EXPECT_EQ(categories->MapPropertyToCategory(id, &category), S_OK) << id;
        EXPECT_EQ(category, 1) << id;
    }
    for (const DISPID id : {10, 11, 12, DISPID_FONT}) {
        INT category = 0;
        EXPECT_EQ(categories->MapPropertyToCategory(id, &category), S_OK) << id;
        EXPECT_EQ(category, -5) << id;
    }
    INT category = 0;
    EXPECT_EQ(categories->MapPropertyToCategory(9, &category), S_OK);
    EXPECT_EQ(category, -6);
    for (const DISPID id : {0, 14, 16, 38, DISPID_ENABLED})
        EXPECT_EQ(categories->MapPropertyToCategory(id, &category), E_FAIL) << id;
    EXPECT_EQ(categories->MapPropertyToCategory(1, nullptr), E_POINTER);

    CComBSTR name;
    EXPECT_EQ(categories->GetCategoryName(1, 0, &name), S_OK);
    EXPECT_EQ(name.View(), OLESTR("Colours"));
    CComBSTR none;
    EXPECT_EQ(categories->GetCategoryName(2, 0, &none), E_FAIL);
    EXPECT_EQ(categories->GetCategoryName(-5, 0, &none), E_FAIL);
    EXPECT_EQ(categories->GetCategoryName(1, 0, nullptr), E_POINTER);
}

TEST_F(Control, EnumeratesItsConnectionPointAndTheSinksOnIt)
{
    const auto container = As<IConnectionPointContainer>();
    CComPtr<IEnumConnectionPoints> points;
    ASSERT_EQ(container->EnumConnectionPoints(&points), S_OK);
    CComPtr<IConnectionPoint> point;
    ULONG given = 0;
    ASSERT_EQ(points->Next(1, &point, &given), S_OK);
    IID iid{};
    EXPECT_EQ(point->GetConnectionInterface(&iid), S_OK);
    EXPECT_TRUE(iid == DIID__IprpCollectionViewerCtrlEvents);
    CComPtr<IConnectionPoint> second;
    EXPECT_EQ(points->Next(1, &second, &given), S_FALSE);
    EXPECT_EQ(container->FindConnectionPoint(IID_IDispatch, &second), CONNECT_E_NOCONNECTION);
    CComPtr<IEnumConnections> connections;
    ASSERT_EQ(point->EnumConnections(&connections), S_OK);
    CONNECTDATA data{};
    ASSERT_EQ(connections->Next(1, &data, &given), S_OK);
    EXPECT_NE(data.dwCookie, 0U);
    data.pUnk->Release();
    EXPECT_EQ(connections->Next(1, &data, &given), S_FALSE);
}

TEST_F(Control, MakesItsWindowInTheSitesWindow)
{
    host.site->place = {12, 8, 212, 128};
    for (const LONG verb : {OLEIVERB_SHOW, OLEIVERB_INPLACEACTIVATE, OLEIVERB_UIACTIVATE}) {
        EXPECT_EQ(Do(verb), S_OK);
        ASSERT_NE(Window(), nullptr) << verb;
        EXPECT_EQ(GetParent(Window()), host.window.Handle());
        const auto style = static_cast<DWORD>(GetWindowLongPtrW(Window(), GWL_STYLE));
        constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
        EXPECT_EQ(style & kStyle, kStyle);
        EXPECT_TRUE(GetClassLongPtrW(Window(), GCL_STYLE) & CS_DBLCLKS);
        const Rect place = WindowRectOf(Window());
        EXPECT_EQ(place.Width(), 200);
        EXPECT_EQ(place.Height(), 120);
        HWND window = nullptr;
        EXPECT_EQ(As<IOleInPlaceObject>()->GetWindow(&window), S_OK);
        EXPECT_EQ(window, Window());
        EXPECT_EQ(As<IOleObject>()->Close(OLECLOSE_NOSAVE), S_OK);
        EXPECT_EQ(Window(), nullptr);
    }
    HWND window = nullptr;
    EXPECT_EQ(As<IOleInPlaceObject>()->GetWindow(&window), E_FAIL);
}

TEST_F(Control, TellsItsSiteInOrder)
{
    EXPECT_EQ(Do(OLEIVERB_INPLACEACTIVATE), S_OK);
    EXPECT_THAT(host.site->Asked(), ElementsAre("OnInPlaceActivate", "ShowObject"));
    EXPECT_EQ(Do(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_THAT(host.site->Asked(), ElementsAre("OnUIActivate", "OnFocus gained", "SetActiveObject", "ShowObject"));
    EXPECT_EQ(GetFocus(), host.ListWindow());
    EXPECT_TRUE(host.site->activeObject);
    EXPECT_EQ(As<IOleInPlaceObject>()->UIDeactivate(), S_OK);
    EXPECT_THAT(host.site->Asked(), ElementsAre("SetActiveObject null", "OnUIDeactivate"));
    EXPECT_EQ(As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
    EXPECT_THAT(host.site->Asked(), Contains("OnInPlaceDeactivate"));
    EXPECT_EQ(As<IOleInPlaceObject>()->InPlaceDeactivate(), S_OK);
    EXPECT_THAT(host.site->Asked(), IsEmpty());
}

TEST_F(Control, IsActiveWithTheFocusAndTellsWhenItGoes)
{
    Do(OLEIVERB_INPLACEACTIVATE);
    host.Add(1, E_PROP_DT_DOUBLE);
    host.Show();
    host.site->Asked();
    SetFocus(host.ListWindow());
    EXPECT_THAT(host.site->Asked(), ElementsAre("OnUIActivate", "SetActiveObject", "OnFocus gained"));
    SetFocus(host.window.Handle());
    EXPECT_THAT(host.site->Asked(), ElementsAre("OnFocus lost"));
}

TEST_F(Control, StaysAsItIsWhenItsSiteRefuses)
{
    EXPECT_TRUE(FAILED(As<IOleObject>()->DoVerb(OLEIVERB_SHOW, nullptr, nullptr, 0, nullptr, nullptr))) << "no site";
    host.site->canActivate = S_FALSE;
    EXPECT_TRUE(FAILED(Do(OLEIVERB_SHOW)));
    host.site->canActivate = S_OK;
    host.site->onActivate = E_ACCESSDENIED;
    EXPECT_EQ(Do(OLEIVERB_SHOW), E_ACCESSDENIED);
    EXPECT_EQ(Window(), nullptr);
    host.site->onActivate = S_OK;
    EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);
    EXPECT_NE(Window(), nullptr);
}

TEST_F(Control, HidesAndShowsItsWindow)
{
    Do(OLEIVERB_SHOW);
    EXPECT_EQ(Do(OLEIVERB_HIDE), S_OK);
    EXPECT_FALSE(IsWindowVisible(Window()));
    EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);
    EXPECT_TRUE(IsWindowVisible(Window()));
    EXPECT_EQ(Do(7), OLEOBJ_S_INVALIDVERB);
    EXPECT_EQ(Do(OLEIVERB_OPEN), E_NOTIMPL);
}

TEST_F(Control, ShowsWhatTheClipLeavesOfIt)
{
    Do(OLEIVERB_SHOW);
    const RECT place{0, 0, 200, 100};
    const RECT clip{50, 0, 120, 60};
    EXPECT_EQ(As<IOleInPlaceObject>()->SetObjectRects(&place, &clip), S_OK);
    RECT shown{};
    EXPECT_EQ(GetWindowRgnBox(Window(), &shown), SIMPLEREGION);
    EXPECT_EQ(FromPlatform(shown), FromPlatform(clip));
    EXPECT_EQ(WindowRectOf(Window()).Width(), 200);
    EXPECT_EQ(As<IOleInPlaceObject>()->SetObjectRects(&place, &place), S_OK);
    EXPECT_EQ(GetWindowRgnBox(Window(), &shown), ERROR) << "no region any more";
    EXPECT_EQ(As<IOleInPlaceObject>()->SetObjectRects(nullptr, &place), E_POINTER);
}

TEST_F(Control, LosesItsWindowWithItsParentAndMakesAnotherLater)
{
    const HWND inner = CreateWindowW(L"ControlContainer", L"", WS_CHILD | WS_VISIBLE, 0, 0, 300, 200,
                                     host.window.Handle(), nullptr, nullptr, nullptr);
    host.site->window = inner;
    Do(OLEIVERB_SHOW);
    EXPECT_EQ(GetParent(Window()), inner);
    DestroyWindow(inner);
    EXPECT_EQ(Window(), nullptr);
    EXPECT_EQ(host.ListWindow(), nullptr);
    host.site->window = host.window.Handle();
    EXPECT_EQ(Do(OLEIVERB_SHOW), S_OK);
    EXPECT_NE(Window(), nullptr);
}

TEST_F(Control, SurvivesAContainerThatLetsItGoInAnyOfItsCalls)
{
    for (const char* call : {"OnInPlaceActivate", "OnUIActivate", "ShowObject", "SetActiveObject", "OnFocus gained",
                             "OnUIDeactivate", "OnInPlaceDeactivate", "SetActiveObject null"}) {
        const int windows = ControlBase::LivingWindows();
        {
            ViewerHost other(false);
            other.Add(1, E_PROP_DT_DOUBLE);
            other.site->reactions[call] = [&other] { other.Release(); };
            CComPtr<IOleObject> object;
            ASSERT_EQ(other.control.QueryInterface(&object), S_OK);
            EXPECT_EQ(object->SetClientSite(other.site), S_OK);
            object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, other.site, 0, other.window.Handle(), nullptr);
            object->Close(OLECLOSE_NOSAVE);
            EXPECT_EQ(other.control.p, nullptr) << call << " never came";
        }
        EXPECT_EQ(ControlBase::LivingWindows(), windows) << call;
    }
}

TEST_F(Control, KeepsItsExtent)
{
    SIZEL size{};
    EXPECT_EQ(As<IOleObject>()->GetExtent(DVASPECT_CONTENT, &size), S_OK);
    EXPECT_EQ(size.cx, 5080);
    SIZEL wanted{3000, 2000};
    EXPECT_EQ(As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &wanted), S_OK);
    EXPECT_EQ(As<IViewObject2>()->GetExtent(DVASPECT_CONTENT, -1, nullptr, &size), S_OK);
    EXPECT_EQ(size.cx, 3000);
    EXPECT_EQ(size.cy, 2000);
    EXPECT_EQ(As<IOleObject>()->SetExtent(DVASPECT_ICON, &wanted), DV_E_DVASPECT);
    EXPECT_EQ(As<IOleObject>()->GetExtent(DVASPECT_CONTENT, nullptr), E_POINTER);
}

TEST_F(Control, DrawsItselfWithoutAWindow)
{
    EXPECT_EQ(host.control->put_BackgroundColour(0x40F080), S_OK);
    EXPECT_EQ(host.control->put_Appearance(0), S_OK);
    const HDC screen = GetDC(nullptr);
    const HDC dc = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 60, 40);
    const HGDIOBJ before = SelectObject(dc, bitmap);
    const RECTL place{10, 10, 60, 40};
    EXPECT_EQ(
        As<IViewObject2>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &place, nullptr, nullptr, 0),
        S_OK);
    EXPECT_EQ(GetPixel(dc, 11, 11), 0x40F080U);
    EXPECT_NE(GetPixel(dc, 9, 9), 0x40F080U);
    EXPECT_EQ(As<IViewObject2>()->Draw(DVASPECT_ICON, -1, nullptr, nullptr, nullptr, dc, &place, nullptr, nullptr, 0),
              DV_E_DVASPECT);
    EXPECT_EQ(
        As<IViewObject2>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr, &place, nullptr, nullptr, 0),
        E_INVALIDARG);
    SelectObject(dc, before);
    DeleteObject(bitmap);
    DeleteDC(dc);
    ReleaseDC(nullptr, screen);
}

TEST_F(Control, ComesBackFromAStream)
{
    EXPECT_EQ(As<IPersistStreamInit>()->InitNew(), S_OK);
    As<IOleObject>()->SetClientSite(host.site);
    EXPECT_EQ(As<IPersistStreamInit>()->IsDirty(), S_FALSE);
    host.control->put_AllowEditing(VARIANT_FALSE);
    host.control->put_GridLineColour(0x010203);
    host.control->put_BorderStyle(1);
    host.control->put_Appearance(0);
    host.control->put_DividerPosition(64);
    host.control->put_ShowHelpStringTooltips(VARIANT_FALSE);
    host.control->put_UseSingleLevelIndentation(VARIANT_FALSE);
    host.control->putref_Font(MakeFont({OLESTR("MS Shell Dlg"), 17, FW_BOLD, false}));
    EXPECT_EQ(As<IPersistStreamInit>()->IsDirty(), S_OK);
    const CComPtr<IStream> stream = MemoryStream();
    EXPECT_EQ(As<IPersistStreamInit>()->Save(stream, FALSE), S_OK);
    EXPECT_EQ(As<IPersistStreamInit>()->IsDirty(), S_OK);

    ViewerHost other(false);
    CComPtr<IPersistStreamInit> persist;
    ASSERT_EQ(other.control.QueryInterface(&persist), S_OK);
    Rewind(stream);
    EXPECT_EQ(persist->Load(stream), S_OK);
    EXPECT_EQ(persist->IsDirty(), S_FALSE);
    VARIANT_BOOL flag = VARIANT_TRUE;
    EXPECT_EQ(other.control->get_AllowEditing(&flag), S_OK);
    EXPECT_EQ(flag, VARIANT_FALSE);
    EXPECT_EQ(other.control->get_ShowHelpStringTooltips(&flag), S_OK);
    EXPECT_EQ(flag, VARIANT_FALSE);
    EXPECT_EQ(other.control->get_UseSingleLevelIndentation(&flag), S_OK);
    EXPECT_EQ(flag, VARIANT_TRUE) << "not kept";
    OLE_COLOR colour = 0;
    EXPECT_EQ(other.control->get_GridLineColour(&colour), S_OK);
    EXPECT_EQ(colour, 0x010203U);
    EXPECT_EQ(other.control->get_BackgroundColour(&colour), S_OK);
    EXPECT_EQ(colour, 0x80000005U);
    LONG number = 0;
    EXPECT_EQ(other.control->get_DividerPosition(&number), S_OK);
    EXPECT_EQ(number, 64);
    CComPtr<IFontDisp> font;
    EXPECT_EQ(other.control->get_Font(&font), S_OK);
    LOGFONTW description{};
    ASSERT_TRUE(ReadLogFont(font, description));
    EXPECT_EQ(description.lfWeight, FW_BOLD);
}

TEST_F(Control, IsNotChangedByAFormThatIsCutOffOrOfALaterProgram)
{
    As<IOleObject>()->SetClientSite(host.site);
    host.control->put_DividerPosition(64);
    const CComPtr<IStream> whole = MemoryStream();
    EXPECT_EQ(As<IPersistStreamInit>()->Save(whole, TRUE), S_OK);
    EXPECT_EQ(As<IPersistStreamInit>()->IsDirty(), S_FALSE);
    host.control->put_DividerPosition(90);
    const ULONGLONG size = SizeOf(whole);
    for (ULONGLONG length = 0; length < size; ++length) {
        ULARGE_INTEGER cut{};
        cut.QuadPart = length;
        const CComPtr<IStream> stream = MemoryStream();
        Rewind(whole);
        EXPECT_EQ(whole->CopyTo(stream, cut, nullptr, nullptr), S_OK);
        Rewind(stream);
        EXPECT_TRUE(FAILED(As<IPersistStreamInit>()->Load(stream))) << length;
    }
    const DWORD later = 0x7000;
    const CComPtr<IStream> stream = MemoryStream();
    EXPECT_EQ(stream->Write(&later, sizeof later, nullptr), S_OK);
    Rewind(stream);
    EXPECT_TRUE(FAILED(As<IPersistStreamInit>()->Load(stream)));
    EXPECT_EQ(As<IPersistStreamInit>()->Load(static_cast<IStream*>(nullptr)), E_POINTER);
    LONG number = 0;
    EXPECT_EQ(host.control->get_DividerPosition(&number), S_OK);
    EXPECT_EQ(number, 90);
}

TEST_F(Control, ComesBackFromAStorage)
{
    CComPtr<IStorage> storage;
    ASSERT_EQ(StgCreateDocfile(nullptr, STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE | STGM_DELETEONRELEASE, 0,
                               &storage),
              S_OK);
    host.control->put_DividerPosition(64);
    EXPECT_EQ(As<IPersistStorage>()->Save(storage, TRUE), S_OK);
    EXPECT_EQ(As<IPersistStorage>()->SaveCompleted(nullptr), S_OK);
    CComPtr<IStream> contents;
    EXPECT_EQ(storage->OpenStream(L"Contents", nullptr, STGM_READ | STGM_SHARE_EXCLUSIVE, 0, &contents), S_OK);
    contents.Release();
    host.control->put_DividerPosition(90);
    EXPECT_EQ(As<IPersistStorage>()->Load(storage), S_OK);
    LONG number = 0;
    EXPECT_EQ(host.control->get_DividerPosition(&number), S_OK);
    EXPECT_EQ(number, 64);
}

TEST_F(Control, ComesBackFromAPropertyBag)
{
    As<IOleObject>()->SetClientSite(host.site);
    host.control->put_ItemHighlightColour(0x123456);
    OwnBag bag;
    EXPECT_EQ(As<IPersistPropertyBag>()->Save(bag, TRUE, TRUE), S_OK);
    EXPECT_EQ(bag->values.size(), 21U);
    EXPECT_EQ(V_VT(&bag->values[L"_cx"]), VT_UI4);
    EXPECT_EQ(V_UI4(&bag->values[L"_cy"]), 5080U);
    EXPECT_EQ(V_VT(&bag->values[L"AllowEditing"]), VT_BOOL);
    EXPECT_EQ(V_VT(&bag->values[L"DividerPosition"]), VT_I4);
    EXPECT_EQ(V_VT(&bag->values[L"Font"]), VT_DISPATCH);
    EXPECT_EQ(V_VT(&bag->values[L"Enabled"]), VT_BOOL);
    host.control->put_ItemHighlightColour(0);
    host.control->put_DividerPosition(33);
    bag->values.erase(L"DividerPosition");
    EXPECT_EQ(As<IPersistPropertyBag>()->Load(bag, nullptr), S_OK);
    OLE_COLOR colour = 0;
    EXPECT_EQ(host.control->get_ItemHighlightColour(&colour), S_OK);
    EXPECT_EQ(colour, 0x123456U);
    LONG number = 0;
    EXPECT_EQ(host.control->get_DividerPosition(&number), S_OK);
    EXPECT_EQ(number, 33) << "missing in the bag";
}

TEST_F(Control, IsSavedByItsContainerWhenItClosesChanged)
{
    Do(OLEIVERB_SHOW);
    host.control->put_DividerPosition(50);
    host.site->Asked();
    EXPECT_EQ(As<IOleObject>()->Close(OLECLOSE_NOSAVE), S_OK);
    EXPECT_THAT(host.site->Asked(), Not(Contains("SaveObject")));
    EXPECT_EQ(As<IOleObject>()->Close(OLECLOSE_SAVEIFDIRTY), S_OK);
    EXPECT_THAT(host.site->Asked(), ElementsAre("SaveObject"));
}

TEST_F(Control, RefusesNullPointers)
{
    EXPECT_EQ(As<IOleObject>()->GetClientSite(nullptr), E_POINTER);
    EXPECT_EQ(As<IOleObject>()->GetMiscStatus(DVASPECT_CONTENT, nullptr), E_POINTER);
    EXPECT_EQ(As<IOleInPlaceObject>()->GetWindow(nullptr), E_POINTER);
    EXPECT_EQ(As<IOleInPlaceActiveObject>()->TranslateAccelerator(nullptr), E_POINTER);
    EXPECT_EQ(As<IProvideClassInfo2>()->GetGUID(1, nullptr), E_POINTER);
    EXPECT_EQ(As<IConnectionPointContainer>()->FindConnectionPoint(IID_IDispatch, nullptr), E_POINTER);
    EXPECT_EQ(As<IPersistPropertyBag>()->Load(static_cast<IPropertyBag*>(nullptr), nullptr), E_POINTER);
}
