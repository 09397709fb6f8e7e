// What the viewer shows: the rows of collections, their order, their end, and what stands in their place.
#include "tests/viewer/ViewerHost.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ViewerShows : public testing::Test {
protected:
    ViewerHost host;

    /// Category 1 with 2 and 3, then 4.
    void ShowTree()
    {
        host.Add(1, E_PROP_DT_CATEGORY);
        host.Add(2, E_PROP_DT_DOUBLE, 1);
        host.Add(3, E_PROP_DT_STRING_UNICODE, 1);
        host.Add(4, E_PROP_DT_LONG);
        host.Show();
    }
    bool ListIsShown() { return (GetWindowLongPtrW(host.ListWindow(), GWL_STYLE) & WS_VISIBLE) != 0; }
    LONG NumberOfCollections(LONG id)
    {
        LONG count = -1;
        EXPECT_EQ(host.control->GetNumRefPropCollections(id, &count), S_OK);
        return count;
    }
    static ULONG ReferencesTo(IqorPropertyCollection* collection)
    {
        collection->AddRef();
        return collection->Release();
    }
};

CComPtr<IqorStream> StreamOf(const std::string& bytes)
{
    CComPtr<IqorStream> stream = MakeStream();
    EXPECT_EQ(stream->SetStreamMode(E_STREAM_MODE_BINARY), S_OK);
    EXPECT_EQ(stream->Write(const_cast<char*>(bytes.data()), static_cast<LONG>(bytes.size())), S_OK);
    return stream;
}

using namespace std::string_literals;

} // namespace

TEST_F(ViewerShows, ARowForEachPropertyInTheOrderOfTheTree)
{
    ShowTree();
    EXPECT_THAT(host.Rows(), ElementsAre(1, 2, 3, 4));
    EXPECT_EQ(host.ItemOf(3)->m_strName, OLESTR("Item 3"));
    EXPECT_EQ(host.ItemOf(3)->Level(), 2);
    EXPECT_TRUE(ListIsShown());
    EXPECT_THAT(host.Sounds(), IsEmpty());
}

TEST_F(ViewerShows, NoRowForTypesWithoutOneAndTheirChildrenButKnowsThem)
{
    host.Add(1, E_PROP_DT_MULTI_STRING_UNICODE);
    host.Add(2, E_PROP_DT_DOUBLE, 1);
    host.Add(3, E_PROP_DT_DATE);
    host.Add(4, E_PROP_DT_POINTS_LIST);
    host.Add(5, E_PROP_DT_DOUBLE);
    host.Show();
    EXPECT_THAT(host.Rows(), ElementsAre(5));
    EXPECT_EQ(NumberOfCollections(1), 1);
    EXPECT_EQ(NumberOfCollections(2), 1);
    EXPECT_EQ(host.control->SetSelectedProperty(2), S_OK);
    EXPECT_EQ(host.Selected(), -1);
}

TEST_F(ViewerShows, NoRowForWhatIsInvisible)
{
    host.Add(1, E_PROP_DT_CATEGORY);
    host.Add(2, E_PROP_DT_DOUBLE, 1);
    host.Add(3, E_PROP_DT_DOUBLE);
    host.Add(4, E_PROP_DT_DOUBLE);
    host.SetVisible(2, false);
    host.SetVisible(3, false);
    host.Show();
    EXPECT_THAT(host.Rows(), ElementsAre(4)) << "the category has no visible child";
}

TEST_F(ViewerShows, InvisibleRootsWithTheirNamesWhenTheyAppear)
{
    host.Add(1, E_PROP_DT_DOUBLE);
    host.SetVisible(1, false);
    host.Show();
    EXPECT_EQ(host.ItemOf(1)->m_strName, OLESTR(""));
    host.SetVisible(1, true);
    EXPECT_THAT(host.Rows(), ElementsAre(1));
    EXPECT_EQ(host.ItemOf(1)->m_strName, OLESTR("Item 1"));
}

TEST_F(ViewerShows, CategoriesAsTheirStateSaysAndOtherParentsCollapsed)
{
    host.Add(1, E_PROP_DT_CATEGORY);
    host.Add(2, E_PROP_DT_DOUBLE, 1);
    host.Add(3, E_PROP_DT_CATEGORY);
    host.Add(4, E_PROP_DT_DOUBLE, 3);
    host.Add(5, E_PROP_DT_DOUBLE);
    host.Add(6, E_PROP_DT_DOUBLE, 5);
    EXPECT_EQ(host.control->InitCategoryStateMap(StreamOf("\2\0\0\0"
                                                          "\1\0\0\0\1"
                                                          "\5\0\0\0\0"s)),
              S_OK);
    host.Show();
    EXPECT_THAT(host.Rows(), ElementsAre(1, 3, 4, 5)) << "a state counts for categories only";
}

TEST_F(ViewerShows, ForcedRowsWhateverTheirPropertySays)
{
    host.Add(1, E_PROP_DT_DOUBLE);
    host.Add(2, E_PROP_DT_DOUBLE);
    host.SetVisible(1, false);
    EXPECT_EQ(host.control->SetPropVisOverrides(StreamOf("\1\0\0\0\xFF\xFF\0\0"
                                                         "\2\0\0\0\0\0\0\0"s)),
              S_OK);
    host.Show();
    EXPECT_THAT(host.Rows(), ElementsAre(1));
    EXPECT_TRUE(host.ItemOf(1)->m_bVisibilityForced);
    host.SetVisible(1, true);
    host.SetVisible(1, false);
    host.SetVisible(2, false);
    host.SetVisible(2, true);
    EXPECT_THAT(host.Rows(), ElementsAre(1));
}

TEST_F(ViewerShows, ForcedVisibilityLoadedLaterFreezesRowsButChangesNone)
{
    host.Add(1, E_PROP_DT_DOUBLE);
    host.Add(2, E_PROP_DT_DOUBLE);
    host.Show();
    EXPECT_EQ(host.control->SetPropVisOverrides(StreamOf("\1\0\0\0\0\0\0\0"s)), S_OK);
    EXPECT_THAT(host.Rows(), ElementsAre(1, 2));
    host.SetVisible(1, false);
    EXPECT_THAT(host.Rows(), ElementsAre(1, 2));
}

TEST_F(ViewerShows, ThePrecisionOfTheLastCollection)
{
    host.AddCollection();
    host.AddCollection();
    host.Add(1, E_PROP_DT_CATEGORY);
    host.Add(2, E_PROP_DT_DOUBLE, 1);
    EXPECT_EQ(host.collections[0]->put_Precision(2), S_OK);
    EXPECT_EQ(host.collections[1]->put_Precision(6), S_OK);
    host.Show();
    EXPECT_EQ(host.ItemOf(2)->m_nPrecision, 6);
}

TEST_F(ViewerShows, WhatAllCollectionsHaveInCommon)
{
    host.AddCollection();
    host.AddCollection();
    host.Add(1, E_PROP_DT_CATEGORY);
    host.AddTo(0, 2, E_PROP_DT_DOUBLE, 1);
    host.Add(3, E_PROP_DT_DOUBLE);
    host.AddTo(1, 4, E_PROP_DT_DOUBLE);
    host.AddTo(0, 5, E_PROP_DT_DOUBLE);
    host.Show();
    EXPECT_THAT(host.Rows(), ElementsAre(3)) << "the category lost its only child";
    EXPECT_EQ(NumberOfCollections(3), 2);
    EXPECT_EQ(NumberOfCollections(5), 0);
    EXPECT_EQ(NumberOfCollections(4), 0);
}

TEST_F(ViewerShows, EqualValuesAndBlanksOthers)
{
    host.AddCollection();
    host.AddCollection();
    host.Add(1, E_PROP_DT_DOUBLE);
    host.Show();
    EXPECT_EQ(host.DataOf(1), host.ValueOf(1));
    host.Change(
        1, [](IqorProperty* property) { SetDouble(property, 7); }, 1);
    EXPECT_EQ(host.DataOf(1), OLESTR(""));
    host.Change(1, [](IqorProperty* property) { SetDouble(property, 7); });
    EXPECT_EQ(host.DataOf(1), OLESTR("7"));
}

TEST_F(ViewerShows, OneCollectionGivenTwice)
{
    host.Add(1, E_PROP_DT_DOUBLE);
    IqorPropertyCollection* twice[] = {host.collections[0], host.collections[0]};
    EXPECT_EQ(host.control->ShowProperties(twice, 2), S_OK);
    EXPECT_THAT(host.Rows(), ElementsAre(1));
    EXPECT_EQ(NumberOfCollections(1), 2);
}

TEST_F(ViewerShows, NothingAfterClearAndForNoCollections)
{
    ShowTree();
    host.control->SetSelectedProperty(2);
    host.Sounds();
    EXPECT_EQ(host.control->Clear(), S_OK);
    EXPECT_THAT(host.Rows(), IsEmpty());
    EXPECT_EQ(host.Selected(), -1);
    EXPECT_EQ(NumberOfCollections(1), 0);
    EXPECT_FALSE(ListIsShown());
    host.Show();
    EXPECT_EQ(host.control->ShowProperties(nullptr, 0), S_OK);
    EXPECT_THAT(host.Rows(), IsEmpty());
    EXPECT_FALSE(ListIsShown());
    EXPECT_THAT(host.Sounds(), IsEmpty());
}

TEST_F(ViewerShows, NothingOfMissingPointersAndKeepsWhatItShows)
{
    ShowTree();
    constexpr const OLECHAR* kMethod = OLESTR("CprpCollectionViewerCtrl::ShowProperties");
    ExpectNullPointer(host.control->ShowProperties(nullptr, 1), kMethod, OLESTR("ppICollections"));
    IqorPropertyCollection* pointers[] = {host.collections[0], nullptr};
    ExpectNullPointer(host.control->ShowProperties(pointers, 2), kMethod, OLESTR("ppICollections"));
    ExpectNegative(host.control->ShowProperties(pointers, -1));
    EXPECT_THAT(host.Rows(), ElementsAre(1, 2, 3, 4));
}

TEST_F(ViewerShows, NothingOfACollectionWithAnOpenTransactionAndLeavesItOpen)
{
    ShowTree();
    host.AddCollection();
    const CComPtr<IqorPropertyCollection> open = host.collections[1];
    const ULONG before = ReferencesTo(open);
    ASSERT_EQ(open->StartTransaction(-1), S_OK);
    IqorPropertyCollection* pointers[] = {host.collections[0], open};
    const HRESULT hr = host.control->ShowProperties(pointers, 2);
    EXPECT_TRUE(FAILED(hr));
    EXPECT_FALSE(LastErrorText().empty());
    EXPECT_THAT(host.Rows(), IsEmpty());
    EXPECT_EQ(open->EndTransaction(VARIANT_TRUE), S_OK);
    EXPECT_EQ(ReferencesTo(open), before);
}

TEST_F(ViewerShows, NoMoreOfCollectionsThatItShowedBefore)
{
    ShowTree();
    const ULONG shown = ReferencesTo(host.collections[0]);
    const CComPtr<IqorPropertyCollection> old = host.collections[0];
    host.collections.clear();
    host.Add(4, E_PROP_DT_LONG);
    host.Show();
    EXPECT_THAT(host.Rows(), ElementsAre(4));
    EXPECT_LT(ReferencesTo(old), shown);
    EXPECT_EQ(ReferencesTo(old), 1U) << "the test's own";
}

TEST_F(ViewerShows, TheSameFromScriptsThatCallItByName)
{
    DISPID id = 0;
    OLECHAR clear[] = L"Clear";
    LPOLESTR name = clear;
    EXPECT_EQ(host.control->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id), S_OK);
    EXPECT_EQ(id, 23);
    ShowTree();
    DISPPARAMS none{};
    EXPECT_EQ(
        host.control->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
        S_OK);
    EXPECT_THAT(host.Rows(), IsEmpty());
}

TEST_F(ViewerShows, ATextInPlaceOfRowsWhenThereAreNone)
{
    EXPECT_EQ(host.control->put_BackgroundColour(0xFEFEFE), S_OK);
    EXPECT_EQ(host.control->put_NormalTextColour(0x123456), S_OK);
    RedrawWindow(host.viewer->ControlWindow(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    const Picture look(host.viewer->ControlWindow());
    const Rect client = ClientRectOf(host.viewer->ControlWindow());
    const Rect middle{40, client.bottom / 2 - 8, client.right - 40, client.bottom / 2 + 8};
    EXPECT_FALSE(ListIsShown());
    EXPECT_TRUE(look.Shows(middle, 0x123456));
    EXPECT_TRUE(look.IsFilled({4, 4, client.right - 4, client.bottom / 2 - 16}, 0xFEFEFE));
    EXPECT_NE(look.At(0, 0), 0xFEFEFEU) << "the sunken edge";
}

TEST_F(ViewerShows, ABlackFrameAroundTheTextWithABorder)
{
    EXPECT_EQ(host.control->put_Appearance(0), S_OK);
    EXPECT_EQ(host.control->put_BorderStyle(1), S_OK);
    RedrawWindow(host.viewer->ControlWindow(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    const Picture look(host.viewer->ControlWindow());
    const Rect client = ClientRectOf(host.viewer->ControlWindow());
    EXPECT_TRUE(look.IsFilled({0, 0, client.right, 1}, 0));
    EXPECT_TRUE(look.IsFilled({client.right - 1, 0, client.right, client.bottom}, 0));
}

TEST_F(ViewerShows, TheTextAgainWhenTheLastRowGoes)
{
    host.Add(1, E_PROP_DT_DOUBLE);
    host.Show();
    host.SetVisible(1, false);
    EXPECT_FALSE(ListIsShown());
    host.SetVisible(1, true);
    EXPECT_TRUE(ListIsShown());
    host.Remove(1);
    EXPECT_FALSE(ListIsShown());
}

TEST(ViewerWithoutAWindow, KeepsWhatItIsToShowForTheWindow)
{
    ViewerHost host(false);
    host.Add(1, E_PROP_DT_CATEGORY);
    host.Add(2, E_PROP_DT_DOUBLE, 1);
    host.Show();
    EXPECT_THAT(host.Rows(), IsEmpty());
    LONG count = 0;
    EXPECT_EQ(host.control->GetNumRefPropCollections(2, &count), S_OK);
    EXPECT_EQ(count, 1);
    host.Change(2, [](IqorProperty* property) { SetDouble(property, 5); });
    host.Activate();
    EXPECT_THAT(host.Rows(), ElementsAre(1, 2));
    EXPECT_EQ(host.DataOf(2), OLESTR("5"));
}

TEST(ViewerWithoutAWindow, AnswersAsOneThatShowsNothing)
{
    ViewerHost host(false);
    LONG_PTR window = 1;
    EXPECT_EQ(host.control->get_HWND(&window), S_OK);
    EXPECT_EQ(window, 0);
    EXPECT_EQ(host.control->GetInPlaceEditHWND(&window), S_OK);
    EXPECT_EQ(window, 0);
    EXPECT_EQ(host.Selected(), -1);
    EXPECT_EQ(host.control->SetSelectedProperty(1), S_OK);
    EXPECT_EQ(host.control->DoInPlaceEdit(), S_OK);
    EXPECT_EQ(host.control->EndInPlaceEdit(), S_OK);
    EXPECT_EQ(host.control->CancelInPlaceEdit(), S_OK);
    EXPECT_EQ(host.control->AutoFitDivider(), S_OK);
    EXPECT_EQ(host.control->Refresh(), S_OK);
    EXPECT_EQ(host.control->Clear(), S_OK);
    EXPECT_EQ(host.control->ExpandCollapseProperty(1, VARIANT_TRUE), S_OK);
    EXPECT_EQ(host.control->put_Precision(3), S_OK);
}

TEST(ViewerWithoutAWindow, BringsItsRowsBackWithTheNextWindow)
{
    ViewerHost host;
    host.Add(1, E_PROP_DT_DOUBLE);
    host.Add(2, E_PROP_DT_DOUBLE);
    host.Show();
    CComPtr<IOleInPlaceObject> inPlace;
    ASSERT_EQ(host.control.QueryInterface(&inPlace), S_OK);
    EXPECT_EQ(inPlace->InPlaceDeactivate(), S_OK);
    EXPECT_EQ(host.ListWindow(), nullptr);
    EXPECT_THAT(host.Rows(), IsEmpty());
    host.Change(2, [](IqorProperty* property) { SetDouble(property, 5); });
    host.SetVisible(1, false);
    host.Activate();
    EXPECT_THAT(host.Rows(), ElementsAre(2));
    EXPECT_EQ(host.DataOf(2), OLESTR("5"));
}

TEST(ViewerWithoutAWindow, ShowsOneMessageForAWindowThatIsMadeInsideOfATransactionOfTheHost)
{
    const RecordedAlerts alerts;
    ViewerHost host(false);
    host.Add(1, E_PROP_DT_CATEGORY);
    host.Add(2, E_PROP_DT_DOUBLE, 1);
    host.Add(3, E_PROP_DT_DOUBLE);
    host.Show();
    ASSERT_EQ(host.collections[0]->StartTransaction(-1), S_OK);
    host.Activate();
    EXPECT_EQ(alerts.Boxes().size(), 1U);
    EXPECT_THAT(host.Rows(), IsEmpty());
    EXPECT_EQ(host.control->SetSelectedProperty(2), S_OK);
    EXPECT_EQ(host.collections[0]->EndTransaction(VARIANT_TRUE), S_OK) << "still the host's";
    host.Show();
    EXPECT_THAT(host.Rows(), ElementsAre(1, 2, 3));
    EXPECT_EQ(alerts.Boxes().size(), 1U);
}
