// Hosts that act inside of events: in each event they clear the viewer, show other collections, take its window,
// delete what is being edited, or let the control go.
#include "tests/viewer/ViewerHost.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Act {
    std::string name;
    void (*run)(ViewerHost&);
};

void ShowAnother(ViewerHost& host)
{
    CComPtr<IqorPropertyCollection> other = MakeObject<IqorPropertyCollection>(CLSID_prpPropertyCollection);
    Transact(other, [&] {
        EXPECT_EQ(AddTo(other, {.id = 2, .editFlags = E_PROP_EDIT_VALUE}), S_OK);
        EXPECT_EQ(AddTo(other, {.id = 7, .editFlags = E_PROP_EDIT_VALUE}), S_OK);
    });
    host.collections = {other};
    IqorPropertyCollection* pointers[] = {other};
    host.control->ShowProperties(pointers, 1);
}

void TakeTheWindow(ViewerHost& host)
{
    CComPtr<IOleObject> object;
    if (SUCCEEDED(host.control.QueryInterface(&object)))
        object->Close(OLECLOSE_NOSAVE);
}

const Act kActs[] = {
    {"Clear", [](ViewerHost& host) { host.control->Clear(); }},
    {"ShowOther", &ShowAnother},
    {"ShowTheSame", [](ViewerHost& host) { host.Show(); }},
    {"TakeTheWindow", &TakeTheWindow},
    {"LetGo", [](ViewerHost& host) { host.Release(); }},
    {"Delete",
     [](ViewerHost& host) {
         EprpPropError error = E_PROP_ERROR_NONE;
         const CComPtr<IqorPropertyCollection> collection = host.collections[0];
         if (SUCCEEDED(collection->StartTransaction(0))) {
             collection->RemoveProperty(1, &error);
             collection->EndTransaction(VARIANT_TRUE);
         }
     }},
    {"Hide",
     [](ViewerHost& host) {
         const CComPtr<IqorPropertyCollection> collection = host.collections[0];
         CComPtr<IqorProperty> property;
         EprpPropError error = E_PROP_ERROR_NONE;
         if (SUCCEEDED(collection->StartTransaction(0))) {
             if (SUCCEEDED(collection->GetProperty(2, &error, &property)) && property)
                 property->SetVisible(VARIANT_FALSE);
             collection->EndTransaction(VARIANT_TRUE);
         }
     }},
    {"EditAgain", [](ViewerHost& host) { host.control->DoInPlaceEdit(); }},
    {"SelectAnother", [](ViewerHost& host) { host.control->SetSelectedProperty(3); }},
    {"EndTheEdit", [](ViewerHost& host) { host.control->EndInPlaceEdit(); }},
    {"Collapse", [](ViewerHost& host) { host.control->ExpandCollapseProperty(1, VARIANT_FALSE); }},
};

const char* const kEvents[] = {
    "ExtendedInfoButtonClicked", "PropertyExpandCollapse", "SelectionChanged",   "MultiEditStart", "MultiEditEnd",
    "InPlaceEditStart",          "InPlaceEditEnd",         "PropertyEventStream"};

class ViewerHostActs : public testing::TestWithParam<std::tuple<const char*, Act>> {
protected:
    /// Runs the act once, inside the first event of the name.
    void ActInside(ViewerHost& host, const std::string& event, const Act& act)
    {
        const auto once = [this, &host, &act] {
            if (!std::exchange(m_acted, true))
                act.run(host);
        };
        if (event != "PropertyEventStream") {
            host.On(event, once);
            return;
        }
        m_collectionSink = std::make_unique<ConnectedSink>(host.collections[0]);
        (*m_collectionSink)->onStream = [once](IqorStream*) { once(); };
    }
    bool m_acted = false;
    std::unique_ptr<ConnectedSink> m_collectionSink;
};

/// What a user does in a few seconds; stops when the control has gone.
void UseAll(ViewerHost& host)
{
    const auto alive = [&] { return host.control && host.ListWindow(); };
    const auto edit = [&](LONG id, const wchar_t* text, UINT end) {
        if (!alive() || host.RowOf(id) < 0)
            return;
        host.Click(id);
        Pump();
        if (!alive())
            return;
        host.control->DoInPlaceEdit();
        if (!alive() || !host.EditWindow())
            return;
        TypeCharacters(text);
        PressKey(end);
    };
    edit(2, L"5", VK_RETURN);
    edit(3, L"6", VK_ESCAPE);
    edit(2, L"7", VK_DOWN);
    if (alive() && host.RowOf(3) >= 0)
        host.Click(3);
    Pump();
    if (const HWND button = alive() ? GetDlgItem(host.ListWindow(), 506) : nullptr)
        ClickAt(button, {3, 3});
    Pump();
    if (alive() && host.RowOf(1) >= 0)
        host.ClickBox(1);
    Pump();
}

} // namespace

TEST_P(ViewerHostActs, AndNothingBreaks)
{
    const RecordedAlerts alerts;
    const int windows = SubclassedWindow::LivingWindows();
    const int controls = ControlBase::LivingWindows();
    const int handles = LivingHandles::Count();
    const LONG objects = Module::LockCount();
    {
        ViewerHost host;
        host.Add(1, E_PROP_DT_CATEGORY);
        host.Add(2, E_PROP_DT_DOUBLE, 1, E_PROP_EDIT_VALUE | E_PROP_EDIT_SHOW_EXTENDED_INFO);
        host.Add(3, E_PROP_DT_DOUBLE, 1, E_PROP_EDIT_VALUE | E_PROP_EDIT_SHOW_EXTENDED_INFO);
        host.Show();
        SetFocus(host.ListWindow());
        ActInside(host, std::get<0>(GetParam()), std::get<1>(GetParam()));
        UseAll(host);
        EXPECT_TRUE(m_acted) << "the event never came";
        EXPECT_THAT(alerts.Boxes(), IsEmpty());
        m_collectionSink.reset();
    }
    EXPECT_EQ(SubclassedWindow::LivingWindows(), windows);
    EXPECT_EQ(ControlBase::LivingWindows(), controls);
    EXPECT_EQ(LivingHandles::Count(), handles);
    EXPECT_EQ(Module::LockCount(), objects);
}

INSTANTIATE_TEST_SUITE_P(Each, ViewerHostActs, testing::Combine(testing::ValuesIn(kEvents), testing::ValuesIn(kActs)),
                         [](const auto& each) {
                             return std::string(std::get<0>(each.param)) + "_" + std::get<1>(each.param).name;
                         });

class ViewerReentry : public testing::Test {
protected:
    ViewerHost host;

    void ShowNumbers()
    {
        for (const LONG id : {1, 2, 3})
            host.Add(id, E_PROP_DT_DOUBLE);
        host.Show();
    }
};

TEST_F(ViewerReentry, WritesToTheRemainingCollectionsAfterAClear)
{
    host.AddCollection();
    host.AddCollection();
    ShowNumbers();
    ConnectedSink first(host.collections[0]);
    first->onStream = [&](IqorStream*) { host.control->Clear(); };
    ASSERT_TRUE(host.Edit(2));
    host.TypeOver(L"5");
    PressKey(VK_RETURN);
    EXPECT_EQ(host.ValueOf(2, 0), OLESTR("5"));
    EXPECT_EQ(host.ValueOf(2, 1), OLESTR("5"));
    EXPECT_THAT(host.Rows(), IsEmpty());
}

TEST_F(ViewerReentry, KeepsWhatTheHostShowsInTheCommitOfTheOldContent)
{
    ShowNumbers();
    host.On("MultiEditEnd", [&] { ShowAnother(host); });
    ASSERT_TRUE(host.Edit(2));
    host.TypeOver(L"5");
    PressKey(VK_RETURN);
    EXPECT_THAT(host.Rows(), ElementsAre(2, 7));
}

TEST_F(ViewerReentry, ShowsWhatWasAskedForLastWhenTheCommitShowsAnother)
{
    ShowNumbers();
    const CComPtr<IqorPropertyCollection> asked = host.collections[0];
    host.On("MultiEditEnd", [&] { ShowAnother(host); });
    ASSERT_TRUE(host.Edit(2));
    host.TypeOver(L"5");
    IqorPropertyCollection* pointers[] = {asked};
    EXPECT_EQ(host.control->ShowProperties(pointers, 1), S_OK);
    EXPECT_THAT(host.Rows(), ElementsAre(1, 2, 3));
}

TEST_F(ViewerReentry, StartsTransactionsInsideOfNestedEvents)
{
    ShowNumbers();
    ConnectedSink sink(host.collections[0]);
    int nested = 0;
    sink->onStream = [&](IqorStream*) {
        if (++nested == 1)
            host.Change(3, [](IqorProperty* property) { SetDouble(property, 8); });
    };
    ASSERT_TRUE(host.Edit(2));
    host.TypeOver(L"5");
    PressKey(VK_RETURN);
    EXPECT_EQ(nested, 2);
    EXPECT_EQ(host.DataOf(2), OLESTR("5"));
    EXPECT_EQ(host.DataOf(3), OLESTR("8"));
}

TEST_F(ViewerReentry, GoesOnToTheNextSinkWhenOneFails)
{
    ShowNumbers();
    CComPtr<IDispatch> reference;
    ViewerSink* const second = MakeViewerSink(reference);
    const DWORD cookie = ConnectTo(host.control, reference);
    host.sink->answer = E_FAIL;
    host.control->SetSelectedProperty(2);
    EXPECT_THAT(second->heard, ElementsAre("SelectionChanged 2"));
    DisconnectFrom(host.control, cookie);
    host.control->SetSelectedProperty(3);
    EXPECT_THAT(second->heard, ElementsAre("SelectionChanged 2"));
}

TEST_F(ViewerReentry, FiresNothingWhileEventsAreFrozen)
{
    ShowNumbers();
    CComPtr<IOleControl> control;
    ASSERT_EQ(host.control.QueryInterface(&control), S_OK);
    EXPECT_EQ(control->FreezeEvents(TRUE), S_OK);
    host.control->SetSelectedProperty(2);
    EXPECT_THAT(host.Sounds(), IsEmpty());
    EXPECT_EQ(control->FreezeEvents(FALSE), S_OK);
    EXPECT_EQ(control->FreezeEvents(FALSE), S_OK) << "once too often";
    host.control->SetSelectedProperty(3);
    EXPECT_THAT(host.Sounds(), ElementsAre("SelectionChanged 3"));
}
