#include "tests/viewer/ViewerHost.h"

#include "list/WindowIds.h"

namespace {

constexpr const char* kEventNames[] = {"",
                                       "ExtendedInfoButtonClicked",
                                       "PropertyExpandCollapse",
                                       "SelectionChanged",
                                       "MultiEditStart",
                                       "MultiEditEnd",
                                       "InPlaceEditStart",
                                       "InPlaceEditEnd"};

CComPtr<IConnectionPoint> PointOf(IUnknown* control)
{
    CComPtr<IConnectionPointContainer> container;
    EXPECT_EQ(control->QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(&container)), S_OK);
    CComPtr<IConnectionPoint> point;
    EXPECT_EQ(container->FindConnectionPoint(DIID__IprpCollectionViewerCtrlEvents, &point), S_OK);
    return point;
}

} // namespace

STDMETHODIMP ViewerSink::Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT*,
                                EXCEPINFO*, UINT*)
{
    EXPECT_TRUE(iid == IID_NULL);
    EXPECT_EQ(locale, 1024U);
    EXPECT_EQ(flags, DISPATCH_METHOD);
    EXPECT_GE(id, 1);
    EXPECT_LE(id, 7);
    const std::string name = kEventNames[id];
    std::string entry = name;
    for (UINT i = parameters->cArgs; i-- > 0;) {
        const VARIANT& argument = parameters->rgvarg[i];
        if (V_VT(&argument) == VT_I4)
            entry += " " + std::to_string(V_I4(&argument));
        else if (V_VT(&argument) == VT_BOOL)
            entry += V_BOOL(&argument) == VARIANT_TRUE ? " true" : V_BOOL(&argument) == VARIANT_FALSE ? " false" : " ?";
        else
            entry += " of type " + std::to_string(V_VT(&argument));
    }
    heard.push_back(entry);
    if (const auto reaction = reactions.find(name); reaction != reactions.end()) {
        const auto react = reaction->second;
        react();
    }
    return answer;
}

ViewerSink* MakeViewerSink(CComPtr<IDispatch>& reference)
{
    CComObjectNoLock<ViewerSink>* made = nullptr;
    EXPECT_EQ(CComObjectNoLock<ViewerSink>::CreateInstance(&made), S_OK);
    reference.Attach(made);
    return made;
}

DWORD ConnectTo(IUnknown* control, IDispatch* sink)
{
    DWORD cookie = 0;
    EXPECT_EQ(PointOf(control)->Advise(sink, &cookie), S_OK);
    return cookie;
}

void DisconnectFrom(IUnknown* control, DWORD cookie)
{
    EXPECT_EQ(PointOf(control)->Unadvise(cookie), S_OK);
}

ViewerHost::ViewerHost(bool activate)
{
    CComObjectNoLock<ControlContainer>* container = nullptr;
    EXPECT_EQ(CComObjectNoLock<ControlContainer>::CreateInstance(&container), S_OK);
    m_siteReference.Attach(container);
    site = container;
    site->window = window.Handle();

    CComObject<CprpCollectionViewerCtrl>* made = nullptr;
    EXPECT_EQ(CComObject<CprpCollectionViewerCtrl>::CreateInstance(&made), S_OK);
    control.Attach(made);
    viewer = made;
    sink = MakeViewerSink(m_sinkReference);
    m_cookie = ConnectTo(control, m_sinkReference);
    if (activate)
        Activate();
}

ViewerHost::~ViewerHost()
{
    Release();
    Pump();
}

void ViewerHost::Release()
{
    if (!control)
        return;
    sink->reactions.clear();
    CComPtr<IOleObject> object;
    EXPECT_EQ(control.QueryInterface(&object), S_OK);
    object->Close(OLECLOSE_NOSAVE);
    object->SetClientSite(nullptr);
    DisconnectFrom(control, m_cookie);
    control.Release();
}

void ViewerHost::Activate(LONG verb)
{
    CComPtr<IOleObject> object;
    EXPECT_EQ(control.QueryInterface(&object), S_OK);
    EXPECT_EQ(object->SetClientSite(site), S_OK);
    EXPECT_EQ(object->DoVerb(verb, nullptr, site, 0, window.Handle(), nullptr), S_OK);
    Pump();
}

IqorPropertyCollection& ViewerHost::AddCollection()
{
    collections.push_back(MakeObject<IqorPropertyCollection>(CLSID_prpPropertyCollection));
    return *collections.back();
}

void ViewerHost::Add(LONG id, EprpPropDataType type, LONG parent, LONG editFlags)
{
    if (collections.empty())
        AddCollection();
    for (std::size_t i = 0; i < collections.size(); ++i)
        AddTo(i, id, type, parent, editFlags);
}

void ViewerHost::AddTo(std::size_t collection, LONG id, EprpPropDataType type, LONG parent, LONG editFlags)
{
    IqorPropertyCollection* const to = collections[collection];
    Transact(to, [&] {
        EXPECT_EQ(::AddTo(to, {.id = id, .type = type, .parent = parent, .editFlags = editFlags}), S_OK);
        const Text name = OLESTR("Item ") + std::to_wstring(id);
        EXPECT_EQ(PropertyOf(to, id)->SetPropertyName(Bstr(name)), S_OK);
    });
}

void ViewerHost::Change(LONG id, const std::function<void(IqorProperty*)>& change, std::size_t collection)
{
    const CComPtr<IqorPropertyCollection> of = collections[collection];
    Transact(of, [&] { change(PropertyOf(of, id)); });
}

void ViewerHost::SetVisible(LONG id, bool visible, std::size_t collection)
{
    Change(
        id, [&](IqorProperty* property) { property->SetVisible(visible ? VARIANT_TRUE : VARIANT_FALSE); }, collection);
}

void ViewerHost::Remove(LONG id, std::size_t collection)
{
    const CComPtr<IqorPropertyCollection> of = collections[collection];
    Transact(of, [&] {
        EprpPropError error = E_PROP_ERROR_NONE;
        EXPECT_EQ(of->RemoveProperty(id, &error), S_OK);
    });
}

Text ViewerHost::ValueOf(LONG id, std::size_t collection)
{
    Text value;
    const CComPtr<IqorPropertyCollection> of = collections[collection];
    Transact(
        of, [&] { value = StringOf(PropertyOf(of, id)); }, false);
    return value;
}

void ViewerHost::Show()
{
    std::vector<IqorPropertyCollection*> pointers(collections.begin(), collections.end());
    EXPECT_EQ(control->ShowProperties(pointers.data(), static_cast<LONG>(pointers.size())), S_OK);
    Pump();
}

std::vector<LONG> ViewerHost::Rows() const
{
    std::vector<LONG> ids;
    for (int row = 0; row < viewer->List().RowCount(); ++row)
        ids.push_back(static_cast<CprpPropItem*>(viewer->List().ItemAt(row))->m_pPropInfo->m_nPropertyID);
    return ids;
}

CprpPropItem* ViewerHost::ItemOf(LONG id) const
{
    for (CqorLBItem* const item : viewer->List().CollectItems()) {
        auto* const row = static_cast<CprpPropItem*>(item);
        if (row->m_pPropInfo && row->m_pPropInfo->m_nPropertyID == id)
            return row;
    }
    return nullptr;
}

int ViewerHost::RowOf(LONG id) const
{
    const CprpPropItem* const item = ItemOf(id);
    return item ? viewer->List().FindRow(*item) : -1;
}

LONG ViewerHost::Selected() const
{
    LONG id = 0;
    EXPECT_EQ(control->GetSelectedProperty(&id), S_OK);
    return id;
}

void ViewerHost::Click(LONG id)
{
    const Rect name = viewer->List().RectsOf(RowOf(id)).name;
    ClickAt(ListWindow(), {name.left + 10, name.top + 5});
}

void ViewerHost::ClickBox(LONG id)
{
    const Rect indent = viewer->List().RectsOf(RowOf(id)).indent;
    ClickAt(ListWindow(), MarkCentre(indent, viewer->List().m_nRowUnit));
}

bool ViewerHost::Edit(LONG id)
{
    EXPECT_EQ(control->SetSelectedProperty(id), S_OK);
    EXPECT_EQ(control->DoInPlaceEdit(), S_OK);
    return EditWindow() && GetFocus() == EditWindow();
}

HWND ViewerHost::EditWindow() const
{
    LONG_PTR edit = 0;
    EXPECT_EQ(control->GetInPlaceEditHWND(&edit), S_OK);
    return reinterpret_cast<HWND>(edit);
}

void ViewerHost::TypeOver(const std::wstring& text)
{
    SendMessageW(EditWindow(), EM_SETSEL, 0, -1);
    TypeCharacters(text);
}

Heard ViewerHost::Sounds()
{
    Pump();
    return std::exchange(sink->heard, {});
}
