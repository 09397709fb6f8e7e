// Rows of the platform's list box against the tree of items: which stand where, and which one stays selected.
#include "tests/list/windows/GridTest.h"

namespace {

class DisplayedRows : public GridTest {};
class RemovedRow : public GridTest {};
class CollapsedRow : public GridTest {
protected:
    /// Category 1 with 2, category 3 with 4 in it, and 5.
    void ShowNested()
    {
        grid.Add(1, E_PROP_DT_CATEGORY);
        grid.Add(2, E_PROP_DT_DOUBLE, 1);
        grid.Add(3, E_PROP_DT_CATEGORY, 1);
        grid.Add(4, E_PROP_DT_DOUBLE, 3);
        grid.Add(5, E_PROP_DT_DOUBLE, 1);
        grid.Show();
    }
};

} // namespace

TEST_F(DisplayedRows, StandInTheOrderOfTheTree)
{
    ShowCategories();
    EXPECT_THAT(Rows(), ElementsAre(10, 11, 12, 15, 20, 21, 22));
}

TEST_F(DisplayedRows, AreFoundByTheirItemsAsThePlatformFindsThem)
{
    ShowCategories();
    for (CqorLBItem* const item : grid.list.CollectItems())
        EXPECT_EQ(grid.list.FindRow(*item),
                  grid.list.Send(LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(item)));
    grid.list.ExpandCollapse(grid.Item(10));
    EXPECT_EQ(grid.list.FindRow(grid.Item(11)), -1);
    EXPECT_EQ(grid.list.Send(LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&grid.Item(11))),
              LB_ERR);
}

TEST_F(DisplayedRows, OfTypesWithoutARowAndOfTheirChildrenAreNotMade)
{
    grid.Add(1, E_PROP_DT_POINTS_LIST);
    grid.Add(2, E_PROP_DT_DOUBLE, 1);
    grid.Add(3, E_PROP_DT_DATE);
    grid.Add(4, E_PROP_DT_MULTI_STRING_UNICODE);
    grid.Add(5, E_PROP_DT_DOUBLE);
    grid.Show();
    EXPECT_THAT(Rows(), ElementsAre(5));
    EXPECT_FALSE(grid.HasItem(2));
}

TEST_F(DisplayedRows, WithChildrenStartCollapsedUnlessTheyAreCategories)
{
    grid.Add(1, E_PROP_DT_DOUBLE);
    grid.Add(2, E_PROP_DT_DOUBLE, 1);
    grid.Add(3, E_PROP_DT_CATEGORY);
    grid.Add(4, E_PROP_DT_DOUBLE, 3);
    grid.Show();
    EXPECT_THAT(Rows(), ElementsAre(1, 3, 4));
}

TEST_F(DisplayedRows, OfHiddenPropertiesComeBackWhereTheyWere)
{
    ShowCategories();
    SetVisible(11, false);
    EXPECT_THAT(Rows(), ElementsAre(10, 12, 15, 20, 21, 22));
    SetVisible(15, false);
    EXPECT_THAT(Rows(), ElementsAre(10, 12, 20, 21, 22));
    SetVisible(15, true);
    EXPECT_THAT(Rows(), ElementsAre(10, 12, 15, 20, 21, 22)); // behind the whole subtree of the root before it
    SetVisible(11, true);
    EXPECT_THAT(Rows(), ElementsAre(10, 11, 12, 15, 20, 21, 22));
}

TEST_F(DisplayedRows, OfAChildBringItsVanishedCategoryBackFirst)
{
    ShowCategories();
    SetVisible(21, false);
    EXPECT_THAT(Rows(), ElementsAre(10, 11, 12, 15, 20, 22));
    SetVisible(22, false);
    EXPECT_THAT(Rows(), ElementsAre(10, 11, 12, 15));
    SetVisible(22, true); // not the first child, and no earlier sibling is displayed
    EXPECT_THAT(Rows(), ElementsAre(10, 11, 12, 15, 20, 22));
    SetVisible(21, true);
    EXPECT_THAT(Rows(), ElementsAre(10, 11, 12, 15, 20, 21, 22));
}

TEST_F(DisplayedRows, ThatComeAndGoLeaveTheSelectionOnItsItem)
{
    ShowCategories();
    Select(21);
    SetVisible(11, false);
    EXPECT_EQ(Selected(), 21);
    EXPECT_EQ(grid.list.GetCurSel(), 4);
    SetVisible(11, true);
    EXPECT_EQ(Selected(), 21);
    EXPECT_EQ(grid.list.GetCurSel(), 5);
    EXPECT_THAT(grid.Sounds(), Not(Contains("Select 21")));
}

TEST_F(DisplayedRows, ShownAgainKeepASelectionOnOtherItems)
{
    ShowCategories();
    Select(22);
    grid.list.ShowItem(grid.Item(10)); // goes and comes with all its children
    EXPECT_THAT(Rows(), ElementsAre(10, 11, 12, 15, 20, 21, 22));
    EXPECT_EQ(Selected(), 22);
}

TEST_F(RemovedRow, HandsTheSelectionToTheItemBehindIt)
{
    ShowCategories();
    Select(12);
    SetVisible(12, false);
    EXPECT_EQ(Selected(), 15);
    EXPECT_EQ(grid.list.GetCurSel(), 2);
    EXPECT_THAT(grid.Sounds(), Not(Contains("Select 15")));
}

TEST_F(RemovedRow, InLastPlaceHandsTheSelectionToTheRowBefore)
{
    ShowCategories();
    Select(22);
    SetVisible(22, false);
    EXPECT_EQ(Selected(), 21);
}

TEST_F(RemovedRow, ThatWasTheOnlyOneLeavesNoSelection)
{
    ShowNumbers(1);
    Select(1);
    SetVisible(1, false);
    EXPECT_EQ(grid.list.GetCount(), 0);
    EXPECT_EQ(grid.list.GetCurSel(), -1);
}

TEST_F(RemovedRow, OfACategoryTakesItsChildrenAlong)
{
    ShowCategories();
    SetVisible(10, false);
    EXPECT_THAT(Rows(), ElementsAre(15, 20, 21, 22));
    SetVisible(10, true);
    EXPECT_THAT(Rows(), ElementsAre(10, 11, 12, 15, 20, 21, 22));
}

TEST_F(RemovedRow, UnderACollapsedCategoryRemovesItWithTheLastVisibleChildOnly)
{
    ShowCategories();
    grid.list.ExpandCollapse(grid.Item(10));
    SetVisible(12, false);
    EXPECT_THAT(Rows(), ElementsAre(10, 15, 20, 21, 22));
    SetVisible(11, false);
    EXPECT_THAT(Rows(), ElementsAre(15, 20, 21, 22));
    SetVisible(12, true);
    EXPECT_THAT(Rows(), ElementsAre(10, 15, 20, 21, 22));
    EXPECT_TRUE(grid.Item(10).m_bCollapsed);
}

TEST_F(RemovedRow, OfADeletedPropertyGoesWithItsItem)
{
    ShowCategories();
    Transact(grid.collections[0], [&] {
        EprpPropError error = E_PROP_ERROR_NONE;
        EXPECT_EQ(grid.Collection().RemoveProperty(11, &error), S_OK);
        EXPECT_EQ(grid.Collection().RemoveProperty(20, &error), S_OK);
    });
    EXPECT_THAT(Rows(), ElementsAre(10, 12, 15));
    EXPECT_FALSE(grid.HasItem(11));
    EXPECT_FALSE(grid.HasItem(21));
    EXPECT_EQ(grid.list.CollectItems().size(), 3u);
}

TEST_F(RemovedRow, OfADeletedLastChildTakesACollapsedCategoryAlong)
{
    ShowCategories();
    grid.list.ExpandCollapse(grid.Item(10));
    Transact(grid.collections[0], [&] {
        EprpPropError error = E_PROP_ERROR_NONE;
        EXPECT_EQ(grid.Collection().RemoveProperty(11, &error), S_OK);
        EXPECT_EQ(grid.Collection().RemoveProperty(12, &error), S_OK);
    });
    EXPECT_THAT(Rows(), ElementsAre(15, 20, 21, 22));
}

TEST_F(CollapsedRow, HidesAllItsDescendants)
{
    ShowNested();
    ASSERT_THAT(Rows(), ElementsAre(1, 2, 3, 4, 5));
    grid.list.ExpandCollapse(grid.Item(1));
    EXPECT_THAT(Rows(), ElementsAre(1));
    grid.list.ExpandCollapse(grid.Item(1));
    EXPECT_THAT(Rows(), ElementsAre(1, 2, 3, 4, 5));
}

TEST_F(CollapsedRow, StaysCollapsedWithinAParentThatOpensAgain)
{
    ShowNested();
    grid.list.ExpandCollapse(grid.Item(3));
    grid.list.ExpandCollapse(grid.Item(1));
    EXPECT_THAT(Rows(), ElementsAre(1));
    grid.list.ExpandCollapse(grid.Item(1));
    EXPECT_THAT(Rows(), ElementsAre(1, 2, 3, 5));
    EXPECT_TRUE(grid.Item(3).m_bCollapsed);
}

TEST_F(CollapsedRow, TakesASelectionInsideAwayAndSaysSo)
{
    ShowNested();
    Select(4);
    grid.list.ExpandCollapse(grid.Item(1));
    EXPECT_EQ(grid.list.GetCurSel(), -1);
    EXPECT_THAT(grid.Sounds(), ElementsAre("Select -1"));
}

TEST_F(CollapsedRow, LeavesASelectionElsewhereAlone)
{
    ShowCategories();
    Select(21);
    grid.list.ExpandCollapse(grid.Item(10));
    EXPECT_EQ(Selected(), 21);
    EXPECT_THAT(grid.Sounds(), IsEmpty());
}

TEST_F(CollapsedRow, KeepsTheScrollPosition)
{
    for (LONG id = 1; id <= 30; ++id)
        grid.Add(id, E_PROP_DT_DOUBLE);
    grid.Add(40, E_PROP_DT_CATEGORY);
    grid.Add(41, E_PROP_DT_DOUBLE, 40);
    grid.Show();
    grid.list.SetTopIndex(7);
    grid.list.ExpandCollapse(grid.Item(40));
    EXPECT_EQ(grid.list.GetTopIndex(), 7);
    grid.list.ExpandCollapse(grid.Item(40));
    EXPECT_EQ(grid.list.GetTopIndex(), 7);
}

TEST_F(CollapsedRow, EndsAnEditWithACommit)
{
    ShowCategories();
    OpenEditor(15);
    TypeOver(L"7");
    grid.list.ExpandCollapse(grid.Item(10));
    EXPECT_EQ(grid.ValueOf(15), OLESTR("7"));
}

TEST_F(CollapsedRow, WithoutARowChangesItsFlagOnly)
{
    ShowCategories();
    SetVisible(10, false);
    grid.list.Collapse(grid.Item(10), true);
    EXPECT_TRUE(grid.Item(10).m_bCollapsed);
    EXPECT_EQ(grid.list.Expand(grid.Item(10)), -1);
    EXPECT_FALSE(grid.Item(10).m_bCollapsed);
    EXPECT_THAT(Rows(), ElementsAre(15, 20, 21, 22));
}

TEST_F(DisplayedRows, LeaveNoWindowAndNoHandleBehind)
{
    const int windows = SubclassedWindow::LivingWindows();
    const int handles = LivingHandles::Count();
    for (int round = 0; round < 20; ++round) {
        TestGrid other;
        other.Add(1, E_PROP_DT_DOUBLE, E_PROP_ID_TOP_LEVEL, E_PROP_EDIT_VALUE | E_PROP_EDIT_SHOW_EXTENDED_INFO);
        other.Add(2, E_PROP_DT_ENUM);
        other.Add(3, E_PROP_DT_CATEGORY);
        other.Add(4, E_PROP_DT_STRING_UNICODE, 3);
        other.Show();
        for (const LONG id : {1, 2, 3, 4}) {
            other.Click(id);
            other.list.EditSelectedRow();
        }
        other.Look();
    }
    EXPECT_EQ(SubclassedWindow::LivingWindows(), windows);
    EXPECT_EQ(LivingHandles::Count(), handles);
}
