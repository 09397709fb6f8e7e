#include "tests/list/windows/TestGrid.h"

#include "list/GridMessages.h"
#include "list/RowFactory.h"
#include "list/WindowIds.h"
#include "platform/win/Reflection.h"
#include "toolkit/EditMessages.h"

namespace {

constexpr wchar_t kClass[] = L"TestGrid";

} // namespace

TestGrid::TestGrid(DWORD extraStyle)
{
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = &Procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hbrBackground = static_cast<HBRUSH>(GetStockObject(GRAY_BRUSH));
    windowClass.lpszClassName = kClass;
    RegisterClassW(&windowClass);
    window = CreateWindowW(kClass, L"test", WS_POPUP | WS_CLIPCHILDREN, 40, 40, 320, 240, nullptr, nullptr,
                           windowClass.hInstance, nullptr);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));

    list.m_eListType = ListType::PropertyList;
    SqorLBDrawSettings& settings = list.m_settings;
    settings.m_crItemHighlight = TestColours::highlight;
    settings.m_crNormalText = TestColours::normalText;
    settings.m_crInvalidText = TestColours::invalidText;
    settings.m_crInvalidDataItem = TestColours::invalidItem;
    settings.m_crHighlightedText = TestColours::highlightedText;
    settings.m_crGridLine = TestColours::gridLine;
    settings.m_crInactiveItemHighlight = TestColours::inactiveHighlight;
    settings.m_crInactiveHighlightedText = TestColours::inactiveHighlightedText;
    settings.m_crReadOnlyData = TestColours::readOnlyData;
    list.SetBackground(TestColours::background);
    list.m_bAllowEditing = true;
    list.SetWarningPrefix(OLESTR("Warning"));
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | WS_TABSTOP | LBS_OWNERDRAWVARIABLE |
                        LBS_NOINTEGRALHEIGHT | LBS_WANTKEYBOARDINPUT | extraStyle;
    EXPECT_TRUE(list.Create(style, {0, 0, 300, 200}, window, kListBoxId, this));
    LOGFONTW font{};
    font.lfHeight = -11;
    wcscpy(font.lfFaceName, L"MS Shell Dlg");
    list.SetListFont(font);
    ShowWindow(window, SW_SHOW);
    SetForegroundWindow(window);
    UpdateWindow(window);
    Pump();
}

TestGrid::~TestGrid()
{
    reactions.clear();
    Clear();
    DestroyWindow(window);
    Pump();
}

LRESULT CALLBACK TestGrid::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* const grid = reinterpret_cast<TestGrid*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return grid ? grid->OnMessage(message, wParam, lParam) : DefWindowProcW(window, message, wParam, lParam);
}

LRESULT TestGrid::OnMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (RegisteredEditMessages().Has(message) || message == WM_CUT || message == WM_COPY || message == WM_PASTE) {
        Heard("Clipboard");
        return messageAnswer;
    }
    switch (message) {
    case WM_COMMAND:
        if (reinterpret_cast<HWND>(lParam) == list.Handle() && HIWORD(wParam) == LBN_SELCHANGE) {
            Heard("Select " + std::to_string(IdOf(list.SelectedItem())));
            return 0;
        }
        break;
    case kItemToggledMessage: {
        auto* const item = reinterpret_cast<CqorLBItem*>(wParam);
        if (list.HasItem(item))
            Heard("Toggle " + std::to_string(IdOf(item)) + (lParam ? " collapsed" : " expanded"));
        return 0;
    }
    case kDeleteKeyMessage: Heard("Delete"); return 0;
    case kDragBeginsMessage: Heard("Drag"); return 0;
    case kReturnKeyMessage:
    case kTabKeyMessage:
        Heard(message == kReturnKeyMessage ? "Return" : "Tab");
        list.EditSelectedRow();
        return 0;
    case kEditStartMessage: Heard("InPlaceEditStart"); return 0;
    case kEditEndMessage: Heard("InPlaceEditEnd"); return 0;
    case WM_RBUTTONDOWN:
        rightDownAt = PointOf(lParam);
        Heard("RightDown");
        return 0;
    default: break;
    }
    if (const auto answer = ReflectToChild(window, message, wParam, lParam))
        return *answer;
    return DefWindowProcW(window, message, wParam, lParam);
}

void TestGrid::Heard(std::string event)
{
    const std::string name = event.substr(0, event.find(' '));
    heard.push_back(std::move(event));
    if (const auto reaction = reactions.find(name); reaction != reactions.end()) {
        const auto react = reaction->second;
        react();
    }
}

std::vector<std::string> TestGrid::Sounds()
{
    Pump();
    return std::exchange(heard, {});
}

void TestGrid::FireExtendedInfoButtonClicked(CprpPropItem& item)
{
    Heard("Button " + std::to_string(IdOf(&item)));
}

IqorPropertyCollection& TestGrid::AddCollection()
{
    collections.push_back(MakeObject<IqorPropertyCollection>(CLSID_prpPropertyCollection));
    return *collections.back();
}

void TestGrid::Add(LONG id, EprpPropDataType type, LONG parent, LONG editFlags)
{
    if (collections.empty())
        AddCollection();
    for (const auto& collection : collections) {
        Transact(collection, [&] {
            EXPECT_EQ(AddTo(collection, {.id = id, .type = type, .parent = parent, .editFlags = editFlags}), S_OK);
            const Text name = OLESTR("Item ") + std::to_wstring(id);
            EXPECT_EQ(PropertyOf(collection, id)->SetPropertyName(Bstr(name)), S_OK);
        });
    }
}

void TestGrid::Change(LONG id, const std::function<void(IqorProperty*)>& change, std::size_t collection)
{
    Transact(collections[collection], [&] { change(PropertyOf(collections[collection], id)); });
}

Text TestGrid::ValueOf(LONG id, std::size_t collection)
{
    Text value;
    Transact(
        collections[collection], [&] { value = StringOf(PropertyOf(collections[collection], id)); }, false);
    return value;
}

void TestGrid::Show()
{
    const auto& first = collections.front();
    Transact(
        first,
        [&] {
            LONG id = E_PROP_ID_INVALID;
            for (;;) {
                CComPtr<IqorProperty> property;
                EprpPropError error = E_PROP_ERROR_NONE;
                EXPECT_EQ(first->GetNextPropertyAll(&id, &error, &property), S_OK);
                if (!property)
                    return;
                auto node = std::make_unique<CprpMultiplePropInfo>();
                EXPECT_EQ(property->GetPropertyID(&node->m_nPropertyID), S_OK);
                EXPECT_EQ(property->GetDataType(&node->m_eDataType), S_OK);
                LONG parent = E_PROP_ID_TOP_LEVEL;
                EXPECT_EQ(property->GetParentProperty(&parent), S_OK);
                node->m_listCollections.assign(collections.begin(), collections.end());
                m_nodes[node->m_nPropertyID] = node.get();
                const auto at = m_nodes.find(parent);
                node->m_pParent = at == m_nodes.end() ? nullptr : at->second;
                (node->m_pParent ? node->m_pParent->m_listChildren : m_roots).push_back(std::move(node));
            }
        },
        false);
    {
        const CqorODListBox::FillScope fill(list);
        for (const auto& root : m_roots) {
            if (CprpPropItem* const item = MakeRow(*root, nullptr))
                list.ShowItem(*item);
        }
        list.RefreshAll();
    }
    for (const auto& collection : collections) {
        m_sinks.push_back(std::make_unique<ConnectedSink>(collection));
        (*m_sinks.back())->onStream = [this](IqorStream* stream) { OnEvents(stream); };
    }
    Pump();
    heard.clear();
}

CprpPropItem* TestGrid::MakeRow(CprpMultiplePropInfo& node, CqorLBItem* parent)
{
    auto made = MakePropItem(node.m_eDataType, this, &list, parent);
    if (!made)
        return nullptr;
    CprpPropItem* const item = made.get();
    item->m_pPropInfo = &node;
    node.m_pItem = item;
    bool visible = true;
    for (const auto& collection : node.m_listCollections) {
        Transact(
            collection,
            [&] { visible = FlagOf(PropertyOf(collection, node.m_nPropertyID), &IqorProperty::IsVisible) && visible; },
            false);
    }
    item->m_bVisible = visible;
    parent ? parent->AddChild(std::move(made)) : list.AddRoot(std::move(made));
    for (const auto& child : node.m_listChildren)
        MakeRow(*child, item);
    return item;
}

void TestGrid::Clear()
{
    list.Clear();
    m_sinks.clear();
    m_nodes.clear();
    m_roots.clear();
}

void TestGrid::OnEvents(IqorStream* stream)
{
    const auto records = ReadEvents(stream);
    Heard("Stream");
    for (const EventSeen& record : records) {
        if (record.type == E_PROP_EVENT_PROP_EDITED)
            OnEdited(record.id, record.visibilityChanged);
        else if (record.type == E_PROP_EVENT_PROP_DELETED)
            OnDeleted(record.id);
    }
    if (list.Exists())
        RedrawWindow(list.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void TestGrid::OnEdited(LONG id, bool visibilityChanged)
{
    if (!HasItem(id))
        return;
    CprpPropItem& item = Item(id);
    item.Refresh();
    if (!visibilityChanged)
        return;
    if (list.SelectedItem() == &item)
        list.EndEdit();
    if (!item.IsVisible())
        list.RemoveItem(item);
    else if (!item.m_pParent || !item.m_pParent->m_bCollapsed)
        list.ShowItem(item);
    else if (list.FindRow(*item.m_pParent) < 0 && item.m_pParent->IsVisible())
        list.ShowItem(*item.m_pParent);
}

void TestGrid::OnDeleted(LONG id)
{
    if (!HasItem(id))
        return;
    CprpPropItem& item = Item(id);
    ForgetRowsOf(*m_nodes.at(id));
    list.DropItem(item);
}

void TestGrid::ForgetRowsOf(CprpMultiplePropInfo& node)
{
    node.m_pItem = nullptr;
    for (const auto& child : node.m_listChildren)
        ForgetRowsOf(*child);
}

LONG TestGrid::IdOf(const CqorLBItem* item) const
{
    const auto* const row = dynamic_cast<const CprpPropItem*>(item);
    return row && row->m_pPropInfo ? row->m_pPropInfo->m_nPropertyID : -1;
}

Point TestGrid::NamePoint(LONG id)
{
    const Rect name = Rects(id).name;
    return {name.left + 10, name.top + 5};
}

Point TestGrid::DataPoint(LONG id)
{
    const Rect data = Rects(id).data;
    return {data.left + 20, data.top + 5};
}

Point TestGrid::BoxPoint(LONG id)
{
    const Rect indent = Rects(id).indent;
    return MarkCentre(indent, list.m_nRowUnit);
}

Picture TestGrid::Look()
{
    RedrawWindow(list.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    return Picture(list.Handle());
}
