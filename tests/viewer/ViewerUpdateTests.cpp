// How the rows follow their collections, record by record.
#include "tests/support/FakeStream.h"
#include "tests/viewer/ViewerHost.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::string Record(EprpEventType type, LONG id, bool visibility = false)
{
    const SprpEventInfo record{type, id, 0, -1, visibility ? VARIANT_TRUE : VARIANT_FALSE, VARIANT_FALSE};
    return std::string(reinterpret_cast<const char*>(&record), sizeof record);
}

class ViewerFollows : public testing::Test {
protected:
    ViewerHost host;

    /// Category 1 with 2 and 3, then 4.
    void ShowTree()
    {
        host.Add(1, E_PROP_DT_CATEGORY);
        host.Add(2, E_PROP_DT_DOUBLE, 1);
        host.Add(3, E_PROP_DT_DOUBLE, 1);
        host.Add(4, E_PROP_DT_DOUBLE);
        host.Show();
    }
    HRESULT Send(std::initializer_list<FakeStream::Answer> answers)
    {
        OwnFakeStream stream;
        stream->answers = answers;
        return host.viewer->OnCollectionEvents(stream, *host.collections[0]);
    }
    /// Changes data without an event, so that a refresh shows.
    void ChangeInSilence(LONG id, double value)
    {
        Transact(
            host.collections[0], [&] { SetDouble(PropertyOf(host.collections[0], id), value); }, false);
    }
    bool IsDrawing()
    {
        // A list that does not draw keeps what is invalid invalid.
        InvalidateRect(host.ListWindow(), nullptr, FALSE);
        UpdateWindow(host.ListWindow());
        const Picture before(host.ListWindow());
        host.List().m_settings.m_crBackground ^= 0x3F3F3F;
        RedrawWindow(host.ListWindow(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        const Picture after(host.ListWindow());
        return !after.SameIn(ClientRectOf(host.ListWindow()), before);
    }
};

} // namespace

TEST_F(ViewerFollows, ChangesOfValuesAndStates)
{
    ShowTree();
    host.Change(2, [](IqorProperty* property) {
        SetDouble(property, 5);
        SetErrorText(property, OLESTR("Too long"));
        property->SetValid(VARIANT_FALSE);
    });
    EXPECT_EQ(host.DataOf(2), OLESTR("5"));
    EXPECT_TRUE(host.ItemOf(2)->IsInvalid());
    EXPECT_TRUE(host.ItemOf(1)->IsInvalid()) << "the category sums up";
    EXPECT_EQ(host.ItemOf(2)->m_strError, OLESTR("Error: Too long"));
}

TEST_F(ViewerFollows, TheVisibilityOfRoots)
{
    ShowTree();
    host.SetVisible(4, false);
    EXPECT_THAT(host.Rows(), ElementsAre(1, 2, 3));
    host.SetVisible(4, true);
    EXPECT_THAT(host.Rows(), ElementsAre(1, 2, 3, 4));
    host.SetVisible(1, false);
    EXPECT_THAT(host.Rows(), ElementsAre(4));
    host.SetVisible(1, true);
    EXPECT_THAT(host.Rows(), ElementsAre(1, 2, 3, 4));
}

TEST_F(ViewerFollows, TheVisibilityOfChildrenTogetherWithTheirCategory)
{
    ShowTree();
    host.SetVisible(2, false);
    host.SetVisible(3, false);
    EXPECT_THAT(host.Rows(), ElementsAre(4)) << "an empty category goes";
    host.SetVisible(3, true);
    EXPECT_THAT(host.Rows(), ElementsAre(1, 3, 4)) << "and comes back";
}

TEST_F(ViewerFollows, TheVisibilityOfChildrenOfACollapsedCategory)
{
    ShowTree();
    host.control->ExpandCollapseProperty(1, VARIANT_FALSE);
    host.SetVisible(2, false);
    EXPECT_THAT(host.Rows(), ElementsAre(1, 4));
    host.SetVisible(3, false);
    EXPECT_THAT(host.Rows(), ElementsAre(4));
    host.SetVisible(2, true);
    EXPECT_THAT(host.Rows(), ElementsAre(1, 4)) << "the category alone";
    host.control->ExpandCollapseProperty(1, VARIANT_TRUE);
    EXPECT_THAT(host.Rows(), ElementsAre(1, 2, 4));
}

TEST_F(ViewerFollows, SeveralVisibilitiesInOneStream)
{
    ShowTree();
    host.SetVisible(2, false);
    host.SetVisible(3, false);
    Transact(host.collections[0], [&] {
        PropertyOf(host.collections[0], 2)->SetVisible(VARIANT_TRUE);
        PropertyOf(host.collections[0], 3)->SetVisible(VARIANT_TRUE);
        PropertyOf(host.collections[0], 4)->SetVisible(VARIANT_FALSE);
    });
    EXPECT_THAT(host.Rows(), ElementsAre(1, 2, 3));
}

TEST_F(ViewerFollows, VisibilityThatAllCollectionsAgreeOn)
{
    host.AddCollection();
    host.AddCollection();
    host.Add(1, E_PROP_DT_DOUBLE);
    host.Add(2, E_PROP_DT_DOUBLE);
    host.SetVisible(1, false, 1);
    host.Show();
    EXPECT_THAT(host.Rows(), ElementsAre(2));
    host.SetVisible(1, true, 1);
    EXPECT_THAT(host.Rows(), ElementsAre(1, 2));
    host.SetVisible(2, false, 1);
    EXPECT_THAT(host.Rows(), ElementsAre(1));
}

TEST_F(ViewerFollows, Deletions)
{
    ShowTree();
    host.Remove(2);
    EXPECT_THAT(host.Rows(), ElementsAre(1, 3, 4));
    host.Remove(3);
    EXPECT_THAT(host.Rows(), ElementsAre(4)) << "a category without children is not shown";
    host.Remove(4);
    EXPECT_THAT(host.Rows(), IsEmpty());
}

TEST_F(ViewerFollows, TheDeletionOfAParentWithItsChildren)
{
    ShowTree();
    host.Remove(1);
    EXPECT_THAT(host.Rows(), ElementsAre(4));
    EXPECT_EQ(host.ItemOf(2), nullptr);
    LONG count = 0;
    EXPECT_EQ(host.control->GetNumRefPropCollections(2, &count), S_OK);
    EXPECT_EQ(count, 1) << "the node stays until the next content";
    EXPECT_EQ(host.control->ExpandCollapseProperty(1, VARIANT_FALSE), S_OK);
    host.Change(4, [](IqorProperty* property) { SetDouble(property, 2); });
    EXPECT_EQ(host.DataOf(4), OLESTR("2"));
}

TEST_F(ViewerFollows, NoAdditions)
{
    ShowTree();
    host.AddTo(0, 9, E_PROP_DT_DOUBLE);
    host.Remove(4);
    host.AddTo(0, 4, E_PROP_DT_DOUBLE);
    EXPECT_THAT(host.Rows(), ElementsAre(1, 2, 3)) << "the host shows the collection again";
    host.Show();
    EXPECT_THAT(host.Rows(), ElementsAre(1, 2, 3, 9, 4));
}

TEST_F(ViewerFollows, RecordsOfUnknownIdsNot)
{
    ShowTree();
    EXPECT_EQ(Send({{Record(E_PROP_EVENT_PROP_EDITED, 99, true)}, {Record(E_PROP_EVENT_PROP_DELETED, 98)}}), S_OK);
    EXPECT_THAT(host.Rows(), ElementsAre(1, 2, 3, 4));
}

TEST_F(ViewerFollows, RecordsInFrontOfABrokenOneAndStopsDrawing)
{
    ShowTree();
    ChangeInSilence(2, 6);
    ChangeInSilence(3, 7);
    const HRESULT hr = Send({{Record(E_PROP_EVENT_PROP_EDITED, 2)},
                             {Record(E_PROP_EVENT_PROP_EDITED, 3).substr(0, 19)},
                             {Record(E_PROP_EVENT_PROP_EDITED, 3)}});
    ExpectRefusal(hr, OLESTR("Error reading from stream. Expected 20 bytes but read 19 bytes"));
    EXPECT_EQ(host.DataOf(2), OLESTR("6"));
    EXPECT_NE(host.DataOf(3), OLESTR("7"));
    EXPECT_FALSE(IsDrawing());
    EXPECT_EQ(Send({{Record(E_PROP_EVENT_COLLECTION_LOADED, 0)}}), S_OK);
    EXPECT_FALSE(IsDrawing()) << "a load changes no rows";
    EXPECT_EQ(Send({{Record(E_PROP_EVENT_PROP_ADDED, 3)}}), S_OK);
    EXPECT_TRUE(IsDrawing());
}

TEST_F(ViewerFollows, NothingOfAMissingStream)
{
    ShowTree();
    EXPECT_TRUE(FAILED(host.viewer->OnCollectionEvents(nullptr, *host.collections[0])));
}

TEST_F(ViewerFollows, AChangeOfTheSelectedRowWithItsEditorClosed)
{
    ShowTree();
    ASSERT_TRUE(host.Edit(4));
    host.TypeOver(L"9");
    host.Sounds();
    host.SetVisible(4, true);
    EXPECT_TRUE(host.EditWindow() != nullptr) << "nothing has changed";
    host.Change(4, [](IqorProperty* property) { property->SetVisible(VARIANT_FALSE); });
    EXPECT_THAT(host.Rows(), ElementsAre(1, 2, 3));
    EXPECT_THAT(host.Sounds(), ElementsAre("InPlaceEditEnd", "MultiEditStart", "MultiEditEnd"));
    EXPECT_EQ(host.ValueOf(4), OLESTR("9"));
}

TEST_F(ViewerFollows, AChangeBesideAnOpenEditorThatKeepsItsText)
{
    ShowTree();
    ASSERT_TRUE(host.Edit(4));
    host.TypeOver(L"9");
    host.Change(2, [](IqorProperty* property) { SetDouble(property, 1); });
    host.Change(4, [](IqorProperty* property) { SetDouble(property, 2); });
    OLECHAR text[8] = {};
    GetWindowTextW(host.EditWindow(), text, 8);
    EXPECT_STREQ(text, L"9") << "while the box has the focus, what is typed wins";
    EXPECT_EQ(host.DataOf(4), OLESTR("2"));
}

TEST_F(ViewerFollows, CollectionsThatItNoLongerShowsNot)
{
    ShowTree();
    const CComPtr<IqorPropertyCollection> old = host.collections[0];
    host.control->Clear();
    Transact(old, [&] { SetDouble(PropertyOf(old, 2), 5); });
    EXPECT_THAT(host.Rows(), IsEmpty());
}

class ViewerGoesOn : public ViewerFollows {
protected:
    /// The tree, with a name of 2 that waits in a resource which it does not find.
    void AddTree()
    {
        constexpr LONG kBrokenNote = 60000; // in the resources of the tests of controls
        host.Add(1, E_PROP_DT_CATEGORY);
        Transact(host.collections[0], [&] {
            EXPECT_EQ(
                AddTo(host.collections[0], {.id = 2, .type = E_PROP_DT_DOUBLE, .parent = 1, .nameResID = kBrokenNote}),
                S_OK);
        });
        host.Add(3, E_PROP_DT_DOUBLE, 1);
        host.Add(4, E_PROP_DT_DOUBLE);
    }
    /// The name is found, and reading it fails the next time.
    void Break()
    {
        Transact(
            host.collections[0],
            [&] {
                EXPECT_EQ(PropertyOf(host.collections[0], 2)
                              ->SetHResModule(reinterpret_cast<LONG_PTR>(GetModuleHandleW(nullptr))),
                          S_OK);
            },
            false);
    }
};

TEST_F(ViewerGoesOn, ToTheOtherRowsWhenOneCannotBeRead)
{
    AddTree();
    host.Show();
    ChangeInSilence(3, 7);
    ChangeInSilence(4, 8);
    Break();
    ExpectInternal(host.control->Refresh());
    EXPECT_EQ(host.DataOf(3), OLESTR("7")) << "in the same category";
    EXPECT_EQ(host.DataOf(4), OLESTR("8"));
    EXPECT_TRUE(IsDrawing());
}

TEST_F(ViewerGoesOn, FromTheStartWhenOneRowCannotBeRead)
{
    AddTree();
    Break();
    IqorPropertyCollection* pointers[] = {host.collections[0]};
    ExpectInternal(host.control->ShowProperties(pointers, 1));
    EXPECT_THAT(host.Rows(), ElementsAre(1, 2, 3, 4));
    EXPECT_EQ(host.ItemOf(4)->m_strName, OLESTR("Item 4"));
    EXPECT_TRUE(IsDrawing());
    EXPECT_TRUE(host.Edit(4));
}

TEST_F(ViewerGoesOn, DrawingAfterAStreamToARowThatCannotBeRead)
{
    AddTree();
    host.Show();
    Break();
    ExpectInternal(Send({{Record(E_PROP_EVENT_PROP_EDITED, 2)}}));
    EXPECT_TRUE(IsDrawing());
}

TEST_F(ViewerGoesOn, AfterOneMessageForARowThatCannotBeRead)
{
    const RecordedAlerts alerts;
    AddTree();
    host.Show();
    Break();
    SetFocus(host.ListWindow());
    SendMessageW(host.ListWindow(), WM_KEYDOWN, VK_F5, 1);
    EXPECT_EQ(alerts.Boxes().size(), 1U);
    Pump();
    EXPECT_EQ(alerts.Boxes().size(), 1U);
    PressKey(VK_DOWN);
    EXPECT_EQ(host.Selected(), 2);
}
