// What hosts ask and order of single rows: selection, places, the collections behind a row, expanding.
#include "tests/viewer/ViewerHost.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr const OLECHAR* kOtherValue = OLESTR("4");

class ViewerRows : public testing::Test {
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
    void SetTwoCollections()
    {
        host.AddCollection();
        host.AddCollection();
    }
};

} // namespace

TEST_F(ViewerRows, AreSelectedByTheHostWithAnEventAtOnce)
{
    ShowTree();
    EXPECT_EQ(host.control->SetSelectedProperty(3), S_OK);
    EXPECT_THAT(host.sink->heard, ElementsAre("SelectionChanged 3")) << "without a message loop";
    EXPECT_EQ(host.Selected(), 3);
    EXPECT_EQ(host.control->SetSelectedProperty(3), S_OK);
    EXPECT_THAT(host.Sounds(), ElementsAre("SelectionChanged 3", "SelectionChanged 3"));
}

TEST_F(ViewerRows, WithoutADisplayedRowAreNotSelected)
{
    ShowTree();
    host.control->SetSelectedProperty(4);
    EXPECT_EQ(host.control->ExpandCollapseProperty(1, VARIANT_FALSE), S_OK);
    host.Sounds();
    EXPECT_EQ(host.control->SetSelectedProperty(2), S_OK) << "in a collapsed category";
    EXPECT_EQ(host.control->SetSelectedProperty(99), S_OK);
    EXPECT_EQ(host.control->SetSelectedProperty(-1), S_OK);
    EXPECT_EQ(host.Selected(), 4);
    EXPECT_THAT(host.Sounds(), IsEmpty());
}

TEST_F(ViewerRows, AreSelectedByClicksAndKeysWithAnEvent)
{
    ShowTree();
    host.Click(2);
    EXPECT_THAT(host.Sounds(), ElementsAre("SelectionChanged 2"));
    SetFocus(host.ListWindow());
    PressKey(VK_DOWN);
    EXPECT_THAT(host.Sounds(), ElementsAre("SelectionChanged 3"));
    PressKey(VK_END);
    EXPECT_THAT(host.Sounds(), ElementsAre("SelectionChanged 4"));
    PressKey(VK_HOME);
    EXPECT_THAT(host.Sounds(), ElementsAre("SelectionChanged 1"));
}

TEST_F(ViewerRows, TellTheSelectionAsItIsWhenTheNewsArrives)
{
    ShowTree();
    host.Click(2);
    host.Click(4);
    EXPECT_THAT(host.Sounds(), ElementsAre("SelectionChanged 4", "SelectionChanged 4"));
}

TEST_F(ViewerRows, TellNothingWhenTheSelectionIsGoneMeanwhile)
{
    ShowTree();
    host.Click(2);
    host.control->Clear();
    EXPECT_THAT(host.Sounds(), IsEmpty());
}

TEST_F(ViewerRows, AreSelectedInSilenceWithTheFocus)
{
    ShowTree();
    SetFocus(host.ListWindow());
    EXPECT_EQ(host.Selected(), 1);
    EXPECT_THAT(host.Sounds(), IsEmpty());
}

TEST_F(ViewerRows, AreSelectedAfterTheOpenEditorHasCommitted)
{
    ShowTree();
    ASSERT_TRUE(host.Edit(4));
    host.TypeOver(L"12");
    host.Sounds();
    EXPECT_EQ(host.control->SetSelectedProperty(2), S_OK);
    EXPECT_THAT(host.Sounds(), ElementsAre("InPlaceEditEnd", "MultiEditStart", "MultiEditEnd", "SelectionChanged 2"));
    EXPECT_EQ(host.ValueOf(4), OLESTR("12"));
}

TEST_F(ViewerRows, AreNotAskedForWithoutAPlaceForTheAnswer)
{
    ExpectNullPointer(host.control->GetSelectedProperty(nullptr),
                      OLESTR("CprpCollectionViewerCtrl::GetSelectedProperty"), OLESTR("pnPropertyID"));
    ExpectNullPointer(host.control->GetInPlaceEditHWND(nullptr), OLESTR("CprpCollectionViewerCtrl::GetInPlaceEditHWND"),
                      OLESTR("phWnd"));
    ExpectNullPointer(host.control->get_HWND(nullptr), OLESTR("CprpCollectionViewerCtrl::get_HWND"), OLESTR("phWnd"));
}

TEST_F(ViewerRows, TellWhereTheirValueStandsInTheControl)
{
    ShowTree();
    LONG left = 0, top = 0, right = 0, bottom = 0;
    EXPECT_EQ(host.control->GetPropertyDataRect(3, &left, &top, &right, &bottom), S_OK);
    const Rect data = host.List().RectsOf(host.RowOf(3)).data;
    constexpr int kEdge = 2; // of the sunken list
    EXPECT_EQ((Rect{static_cast<int>(left), static_cast<int>(top), static_cast<int>(right), static_cast<int>(bottom)}),
              Move(data, kEdge, kEdge));
    EXPECT_EQ(left, host.List().m_nDividerPos + kEdge);
}

TEST_F(ViewerRows, TellZerosForAPlaceThatIsNotThere)
{
    ShowTree();
    host.control->ExpandCollapseProperty(1, VARIANT_FALSE);
    for (const LONG id : {2, 99}) {
        LONG left = 1, top = 2, right = 3, bottom = 4;
        EXPECT_EQ(host.control->GetPropertyDataRect(id, &left, &top, &right, &bottom), S_OK);
        EXPECT_EQ(left | top | right | bottom, 0);
    }
}

TEST_F(ViewerRows, NeedAPlaceForEachEdge)
{
    LONG n = 0;
    constexpr const OLECHAR* kMethod = OLESTR("CprpCollectionViewerCtrl::GetPropertyDataRect");
    ExpectNullPointer(host.control->GetPropertyDataRect(1, nullptr, &n, &n, &n), kMethod, OLESTR("pnLeft"));
    ExpectNullPointer(host.control->GetPropertyDataRect(1, &n, nullptr, &n, &n), kMethod, OLESTR("pnTop"));
    ExpectNullPointer(host.control->GetPropertyDataRect(1, &n, &n, nullptr, &n), kMethod, OLESTR("pnRight"));
    ExpectNullPointer(host.control->GetPropertyDataRect(1, &n, &n, &n, nullptr), kMethod, OLESTR("pnBottom"));
}

TEST_F(ViewerRows, ExpandAndCollapseByOrderInSilence)
{
    ShowTree();
    EXPECT_EQ(host.control->ExpandCollapseProperty(1, VARIANT_TRUE), S_OK);
    EXPECT_THAT(host.Rows(), ElementsAre(1, 2, 3, 4)) << "expanded already";
    EXPECT_EQ(host.control->ExpandCollapseProperty(1, VARIANT_FALSE), S_OK);
    EXPECT_THAT(host.Rows(), ElementsAre(1, 4));
    EXPECT_EQ(host.control->ExpandCollapseProperty(1, VARIANT_FALSE), S_OK);
    EXPECT_THAT(host.Rows(), ElementsAre(1, 4));
    EXPECT_EQ(host.control->ExpandCollapseProperty(1, 1), S_OK) << "any number but 0 is true";
    EXPECT_THAT(host.Rows(), ElementsAre(1, 2, 3, 4));
    EXPECT_EQ(host.control->ExpandCollapseProperty(4, VARIANT_TRUE), S_OK) << "no children";
    EXPECT_TRUE(host.ItemOf(4)->m_bCollapsed);
    EXPECT_EQ(host.control->ExpandCollapseProperty(99, VARIANT_TRUE), S_OK);
    EXPECT_THAT(host.Sounds(), IsEmpty());
    // Not remembered as the state of the category either
    host.control->ExpandCollapseProperty(1, VARIANT_FALSE);
    host.Show();
    EXPECT_THAT(host.Rows(), ElementsAre(1, 2, 3, 4));
}

TEST_F(ViewerRows, ExpandAndCollapseByTheUserWithAnEventAndAreRemembered)
{
    ShowTree();
    host.ClickBox(1);
    EXPECT_THAT(host.Rows(), ElementsAre(1, 4));
    EXPECT_THAT(host.Sounds(), ElementsAre("PropertyExpandCollapse 1 true"));
    host.Show();
    EXPECT_THAT(host.Rows(), ElementsAre(1, 4));
    host.ClickBox(1);
    EXPECT_THAT(host.Sounds(), ElementsAre("PropertyExpandCollapse 1 false"));
}

TEST_F(ViewerRows, OtherThanCategoriesAreNotRememberedWhenTheyExpand)
{
    host.Add(1, E_PROP_DT_DOUBLE);
    host.Add(2, E_PROP_DT_DOUBLE, 1);
    host.Show();
    host.ClickBox(1);
    EXPECT_THAT(host.Rows(), ElementsAre(1, 2));
    EXPECT_THAT(host.Sounds(), ElementsAre("PropertyExpandCollapse 1 false"));
    host.Show();
    EXPECT_THAT(host.Rows(), ElementsAre(1));
}

TEST_F(ViewerRows, ThatAreGoneWhenTheirNewsArrivesTellNothing)
{
    ShowTree();
    host.ClickBox(1);
    host.control->Clear();
    EXPECT_THAT(host.Sounds(), IsEmpty());
}

TEST_F(ViewerRows, SaveAndTakeInTheStateOfCategories)
{
    ShowTree();
    host.ClickBox(1);
    host.Sounds();
    const CComPtr<IqorStream> stream = MakeStream();
    EXPECT_EQ(stream->SetStreamMode(E_STREAM_MODE_BINARY), S_OK);
    EXPECT_EQ(host.control->SaveCategoryStateMap(stream), S_OK);
    LONG size = 0;
    EXPECT_EQ(stream->GetStreamSize(&size), S_OK);
    EXPECT_EQ(size, 13);
    ExpectNullPointer(host.control->SaveCategoryStateMap(nullptr),
                      OLESTR("CprpCollectionViewerCtrl::SaveCategoryStateMap"), OLESTR("pIStateStream"));
    ExpectNullPointer(host.control->InitCategoryStateMap(nullptr),
                      OLESTR("CprpCollectionViewerCtrl::InitCategoryStateMap"), OLESTR("pIStateStream"));
    ExpectNullPointer(host.control->SetPropVisOverrides(nullptr),
                      OLESTR("CprpCollectionViewerCtrl::SetPropVisOverrides"), OLESTR("pIVisOverrideStream"));
}

TEST_F(ViewerRows, TellTheCollectionsBehindThem)
{
    SetTwoCollections();
    host.Add(1, E_PROP_DT_LONG);
    host.Show();
    IqorPropertyCollection* found[3] = {};
    LONG count = -1;
    VARIANT_BOOL success = VARIANT_FALSE;
    const ULONG before = (host.collections[0].p->AddRef(), host.collections[0].p->Release());
    EXPECT_EQ(host.control->GetRefPropCollections(1, found, 3, &count, &success), S_OK);
    EXPECT_EQ(success, VARIANT_TRUE);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(found[0], host.collections[0].p);
    EXPECT_EQ(found[1], host.collections[1].p);
    EXPECT_EQ(found[2], nullptr);
    EXPECT_EQ((host.collections[0].p->AddRef(), host.collections[0].p->Release()), before) << "without references";
}

TEST_F(ViewerRows, LeaveAnArrayAloneThatIsTooShort)
{
    SetTwoCollections();
    host.Add(1, E_PROP_DT_LONG);
    host.Show();
    IqorPropertyCollection* found[2] = {};
    LONG count = -1;
    VARIANT_BOOL success = VARIANT_TRUE;
    EXPECT_EQ(host.control->GetRefPropCollections(1, found, 1, &count, &success), S_OK);
    EXPECT_EQ(success, VARIANT_FALSE);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(found[0], nullptr);
    EXPECT_EQ(host.control->GetRefPropCollections(99, found, 2, &count, &success), S_OK);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(success, VARIANT_FALSE);
}

TEST_F(ViewerRows, NeedPlacesForTheCollectionsBehindThem)
{
    constexpr const OLECHAR* kMethod = OLESTR("CprpCollectionViewerCtrl::GetRefPropCollections");
    IqorPropertyCollection* found[1] = {};
    LONG count = 0;
    VARIANT_BOOL success = VARIANT_FALSE;
    ExpectNullPointer(host.control->GetRefPropCollections(1, nullptr, 1, &count, &success), kMethod,
                      OLESTR("ppRefCollections"));
    ExpectNullPointer(host.control->GetRefPropCollections(1, found, 1, nullptr, &success), kMethod,
                      OLESTR("pnNumRefCollections"));
    ExpectNullPointer(host.control->GetRefPropCollections(1, found, 1, &count, nullptr), kMethod, OLESTR("pbSuccess"));
    ExpectNullPointer(host.control->GetNumRefPropCollections(1, nullptr),
                      OLESTR("CprpCollectionViewerCtrl::GetNumRefPropCollections"), OLESTR("pnNumReferences"));
    ExpectNullPointer(host.control->GetFirstRefPropCollection(1, nullptr),
                      OLESTR("CprpCollectionViewerCtrl::GetFirstRefPropCollection"), OLESTR("ppIPropertyCollection"));
}

TEST_F(ViewerRows, GiveTheFirstCollectionWithAReference)
{
    SetTwoCollections();
    host.Add(1, E_PROP_DT_LONG);
    host.Show();
    const ULONG before = (host.collections[0].p->AddRef(), host.collections[0].p->Release());
    CComPtr<IqorPropertyCollection> first;
    EXPECT_EQ(host.control->GetFirstRefPropCollection(1, &first), S_OK);
    EXPECT_EQ(first.p, host.collections[0].p);
    EXPECT_EQ((first->AddRef(), first->Release()), before + 1);
    CComPtr<IqorPropertyCollection> none;
    EXPECT_EQ(host.control->GetFirstRefPropCollection(99, &none), S_OK);
    EXPECT_EQ(none.p, nullptr);
}

TEST_F(ViewerRows, GiveTheShownTextOfTheSelectedOne)
{
    SetTwoCollections();
    host.Add(1, E_PROP_DT_LONG);
    host.Show();
    CComBSTR text;
    EXPECT_EQ(host.control->GetNetSelectedPropertyString(&text), S_OK);
    EXPECT_EQ(text.m_str, nullptr) << "nothing selected";
    host.control->SetSelectedProperty(1);
    for (std::size_t i = 0; i < 2; ++i)
        host.Change(
            1, [](IqorProperty* property) { SetLong(property, 4); }, i);
    EXPECT_EQ(host.control->GetNetSelectedPropertyString(&text), S_OK);
    EXPECT_EQ(text.View(), kOtherValue);
    ExpectBstrNotNull(host.control->GetNetSelectedPropertyString(&text),
                      OLESTR("CprpCollectionViewerCtrl::GetNetSelectedPropertyString"),
                      OLESTR("pbstrNetPropertyString"));
    host.Change(
        1, [](IqorProperty* property) { SetLong(property, 5); }, 1);
    CComBSTR mixed;
    EXPECT_EQ(host.control->GetNetSelectedPropertyString(&mixed), S_OK);
    EXPECT_NE(mixed.m_str, nullptr);
    EXPECT_EQ(mixed.View(), OLESTR(""));
    ExpectNullPointer(host.control->GetNetSelectedPropertyString(nullptr),
                      OLESTR("CprpCollectionViewerCtrl::GetNetSelectedPropertyString"),
                      OLESTR("pbstrNetPropertyString"));
}

TEST_F(ViewerRows, TakeTheirDecimalsFromEveryCollectionAndTheViewer)
{
    SetTwoCollections();
    host.Add(1, E_PROP_DT_DOUBLE);
    for (std::size_t i = 0; i < 2; ++i)
        host.Change(
            1, [](IqorProperty* property) { SetDouble(property, 1.23456789); }, i);
    host.Show();
    EXPECT_EQ(host.control->put_Precision(2), S_OK);
    EXPECT_EQ(host.DataOf(1), host.ValueOf(1));
    LONG precision = 0;
    EXPECT_EQ(host.collections[1]->get_Precision(&precision), S_OK);
    EXPECT_EQ(precision, 2);
    EXPECT_NE(host.ItemOf(1)->m_nPrecision, 2) << "rows that keep their own follow later";
    EXPECT_EQ(host.control->Refresh(), S_OK);
    EXPECT_EQ(host.ItemOf(1)->m_nPrecision, 2);
}

TEST_F(ViewerRows, RaiseAnOpenTransactionWhenTheyAreToChangeTheirDecimals)
{
    SetTwoCollections();
    host.Add(1, E_PROP_DT_DOUBLE);
    host.Show();
    ASSERT_EQ(host.collections[1]->StartTransaction(-1), S_OK);
    EXPECT_TRUE(FAILED(host.control->put_Precision(2)));
    EXPECT_EQ(host.collections[1]->EndTransaction(VARIANT_FALSE), S_OK) << "still the host's";
}

TEST_F(ViewerRows, HaveNothingToDoByDefault)
{
    ShowTree();
    EXPECT_EQ(host.control->DoDefaultExtendedInfoAction(4), S_OK);
    EXPECT_EQ(host.control->DoDefaultExtendedInfoAction(99), S_OK);
    EXPECT_THAT(host.Sounds(), IsEmpty());
}
