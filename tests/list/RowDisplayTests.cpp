#include "tests/list/FakeRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;

#define NAMES(...) ElementsAre(__VA_ARGS__)
#define T(text) Text(OLESTR(text))

namespace {

/// Two categories of two values each, a value between them.
class Rows : public testing::Test {
protected:
    FakeList list;
    CqorLBItem& a = list.Category(T("A"));
    CqorLBItem& a1 = list.Leaf(T("a1"), &a);
    CqorLBItem& a2 = list.Leaf(T("a2"), &a);
    CqorLBItem& x = list.Leaf(T("x"));
    CqorLBItem& b = list.Category(T("B"));
    CqorLBItem& b1 = list.Leaf(T("b1"), &b);
    CqorLBItem& b2 = list.Leaf(T("b2"), &b);

    void ShowAll()
    {
        for (const auto& root : list.Roots())
            list.ShowItem(*root);
    }
    void TearDown() override
    {
        for (int row = 0; row < list.RowCount(); ++row) {
            EXPECT_EQ(list.ItemAt(row), list.rows[static_cast<std::size_t>(row)]);
            EXPECT_EQ(list.FindRow(*list.ItemAt(row)), row);
        }
        EXPECT_EQ(list.RowCount(), static_cast<int>(list.rows.size()));
    }
};

} // namespace

TEST_F(Rows, AppearInTreeOrder)
{
    ShowAll();
    EXPECT_THAT(list.Names(), NAMES(T("A"), T("a1"), T("a2"), T("x"), T("B"), T("b1"), T("b2")));
}

TEST_F(Rows, AppearInTreeOrderWhateverTheOrderOfShowing)
{
    list.ShowItem(b);
    list.ShowItem(x);
    list.ShowItem(a);
    EXPECT_THAT(list.Names(), NAMES(T("A"), T("a1"), T("a2"), T("x"), T("B"), T("b1"), T("b2")));
}

TEST_F(Rows, OfHiddenItemsAndEmptyCategoriesDoNotAppear)
{
    x.m_bVisible = false;
    b1.m_bVisible = b2.m_bVisible = false;
    ShowAll();
    EXPECT_THAT(list.Names(), NAMES(T("A"), T("a1"), T("a2")));
}

TEST_F(Rows, UnderACollapsedParentDoNotAppear)
{
    a.m_bCollapsed = true;
    ShowAll();
    EXPECT_THAT(list.Names(), NAMES(T("A"), T("x"), T("B"), T("b1"), T("b2")));
    list.ShowItem(a1);
    EXPECT_EQ(list.FindRow(a1), -1);
}

TEST_F(Rows, AChildStandsBehindItsNearestDisplayedSibling)
{
    a1.m_bVisible = false;
    ShowAll();
    list.ApplyVisibility(a1, true);
    EXPECT_THAT(list.Names(), NAMES(T("A"), T("a1"), T("a2"), T("x"), T("B"), T("b1"), T("b2")));
}

TEST_F(Rows, ARootStandsBehindTheWholeSubtreeOfTheRootBeforeIt)
{
    ShowAll();
    list.RemoveItem(x);
    list.ShowItem(x);
    EXPECT_EQ(list.FindRow(x), 3);
}

TEST_F(Rows, TheLastChildTakesItsParentAlong)
{
    ShowAll();
    list.ApplyVisibility(a1, false);
    list.ApplyVisibility(a2, false);
    EXPECT_THAT(list.Names(), NAMES(T("x"), T("B"), T("b1"), T("b2")));
}

TEST_F(Rows, AChildOfAVanishedParentBringsItBackFirst)
{
    ShowAll();
    list.ApplyVisibility(b1, false);
    list.ApplyVisibility(b2, false);
    list.ApplyVisibility(b2, true);
    EXPECT_THAT(list.Names(), NAMES(T("A"), T("a1"), T("a2"), T("x"), T("B"), T("b2")));
}

TEST_F(Rows, MissingAncestorsAreInsertedFromTheOutermost)
{
    CqorLBItem& inner = list.Category(T("C"), &b);
    list.Leaf(T("c1"), &inner);
    list.ShowItem(*inner.m_listChildren[0]);
    EXPECT_THAT(list.Names(), NAMES(T("B"), T("C"), T("c1")));
}

TEST_F(Rows, AnInvisibleParentIsInsertedForItsChildButNeverTwice)
{
    ShowAll();
    list.RemoveItem(b);
    b.m_bVisible = false;
    list.ShowItem(b1);
    list.ShowItem(b2);
    EXPECT_THAT(list.Names(), NAMES(T("A"), T("a1"), T("a2"), T("x"), T("B"), T("b1"), T("b2")));
}

TEST_F(Rows, AVisibleSiblingWithoutARowIsPassedOver)
{
    ShowAll();
    list.RemoveItem(a1);
    a1.m_bVisible = true; // told to be visible, but its own turn is still to come
    list.ShowItem(a2);
    EXPECT_THAT(list.Names(), NAMES(T("A"), T("a2"), T("x"), T("B"), T("b1"), T("b2")));
}

TEST_F(Rows, OfACollapsedCategoryGoWithItsLastVisibleChild)
{
    ShowAll();
    list.Collapse(a, true);
    list.ApplyVisibility(a1, false);
    EXPECT_EQ(list.FindRow(a), 0);
    list.ApplyVisibility(a2, false);
    EXPECT_EQ(list.FindRow(a), -1);
}

TEST_F(Rows, OfACollapsedCategoryComeBackWithAVisibleChildWhichGetsNoRow)
{
    ShowAll();
    list.Collapse(a, true);
    list.ApplyVisibility(a1, false);
    list.ApplyVisibility(a2, false);
    list.ApplyVisibility(a2, true);
    EXPECT_THAT(list.Names(), NAMES(T("A"), T("x"), T("B"), T("b1"), T("b2")));
}

TEST_F(Rows, RemovingAnExpandedParentRemovesTheSubtree)
{
    ShowAll();
    list.RemoveItem(a);
    EXPECT_THAT(list.Names(), NAMES(T("x"), T("B"), T("b1"), T("b2")));
}

TEST_F(Rows, RemovingWhatHasNoRowChangesNothing)
{
    ShowAll();
    list.RemoveItem(x);
    list.RemoveItem(x);
    EXPECT_THAT(list.Names(), NAMES(T("A"), T("a1"), T("a2"), T("B"), T("b1"), T("b2")));
}

TEST_F(Rows, CollapseAndExpandKeepInnerFlags)
{
    CqorLBItem& inner = list.Category(T("C"), &b);
    list.Leaf(T("c1"), &inner);
    CqorLBItem& open = list.Category(T("D"), &b);
    list.Leaf(T("d1"), &open);
    ShowAll();
    list.Collapse(inner, true);
    list.Collapse(b, true);
    EXPECT_THAT(list.Names(), NAMES(T("A"), T("a1"), T("a2"), T("x"), T("B")));
    EXPECT_FALSE(open.m_bCollapsed);

    list.Expand(b);
    EXPECT_THAT(list.Names(),
                NAMES(T("A"), T("a1"), T("a2"), T("x"), T("B"), T("b1"), T("b2"), T("C"), T("D"), T("d1")));
}

TEST_F(Rows, ExpandGivesTheLastRowOfTheSubtree)
{
    ShowAll();
    list.Collapse(a, true);
    EXPECT_EQ(list.Expand(a), 2);
}

TEST_F(Rows, ExpandSkipsHiddenChildren)
{
    ShowAll();
    list.Collapse(a, true);
    a1.m_bVisible = false;
    EXPECT_EQ(list.Expand(a), 1);
    EXPECT_THAT(list.Names(), NAMES(T("A"), T("a2"), T("x"), T("B"), T("b1"), T("b2")));
}

TEST_F(Rows, ExpandAndCollapseWithoutARowSetTheFlagAndRefreshOnly)
{
    list.Collapse(a, true);
    EXPECT_TRUE(a.m_bCollapsed);
    EXPECT_EQ(list.Expand(a), -1);
    EXPECT_FALSE(a.m_bCollapsed);
    EXPECT_THAT(list.Names(), IsEmpty());
    EXPECT_EQ(static_cast<FakeItem&>(a).m_nRefreshes, 2);
}

TEST_F(Rows, CollapseOverTheSelectionClearsItAndSaysSo)
{
    ShowAll();
    list.Select(a2);
    list.Collapse(a, true);
    EXPECT_EQ(list.Selected(), nullptr);
    EXPECT_EQ(list.selectionsLost, 1);
}

TEST_F(Rows, CollapseElsewhereKeepsTheSelectedItem)
{
    ShowAll();
    list.Select(b1);
    list.Collapse(a, true);
    EXPECT_EQ(list.Selected(), &b1);
    list.Expand(a);
    EXPECT_EQ(list.Selected(), &b1);
    EXPECT_EQ(list.selectionsLost, 0);
}

TEST_F(Rows, ShowingAnotherItemKeepsTheSelectedOne)
{
    x.m_bVisible = false;
    ShowAll();
    list.Select(b2);
    list.ApplyVisibility(x, true);
    EXPECT_EQ(list.Selected(), &b2);
}

TEST_F(Rows, RemovingTheSelectedRowSelectsTheItemBehindIt)
{
    ShowAll();
    list.Select(x);
    list.RemoveItem(x);
    EXPECT_EQ(list.Selected(), &b);
}

TEST_F(Rows, RemovingTheSelectedLastRowSelectsTheOneBefore)
{
    ShowAll();
    list.Select(b2);
    list.RemoveItem(b2);
    EXPECT_EQ(list.Selected(), &b1);
}

TEST_F(Rows, RemovingTheOnlyRowLeavesNoSelection)
{
    list.ShowItem(x);
    list.Select(x);
    list.RemoveItem(x);
    EXPECT_EQ(list.selected, -1);
}

TEST_F(Rows, RemovingASelectedParentSelectsTheItemBehindTheSubtree)
{
    ShowAll();
    list.Select(a);
    list.RemoveItem(a);
    EXPECT_EQ(list.Selected(), &x);
}

TEST_F(Rows, AreTakenOutForGood)
{
    ShowAll();
    const int alive = FakeItem::s_alive;
    list.RemoveItem(a1);
    list.TakeOut(a1);
    EXPECT_EQ(FakeItem::s_alive, alive - 1);
    EXPECT_THAT(list.Names(), NAMES(T("A"), T("a2"), T("x"), T("B"), T("b1"), T("b2")));
    EXPECT_EQ(a.m_listChildren.size(), 1u);
}

TEST_F(Rows, TakenOutWhileBusyStayInMemoryUntilTheEnd)
{
    ShowAll();
    const int alive = FakeItem::s_alive;
    {
        const RowDisplay::BusyScope busy(list);
        list.RemoveItem(b);
        list.TakeOut(b);
        EXPECT_TRUE(b.IsRetired());
        EXPECT_TRUE(b1.IsRetired());
        EXPECT_EQ(FakeItem::s_alive, alive);
    }
    EXPECT_EQ(FakeItem::s_alive, alive - 3);
}

TEST_F(Rows, FindItemByEitherKeyDepthFirst)
{
    a2.m_nItemID = 7;
    b1.m_nItemID = 7;
    b2.m_nRefID = 7;
    EXPECT_EQ(list.FindItem(7, false), &a2);
    EXPECT_EQ(list.FindItem(7, true), &b2);
    EXPECT_EQ(list.FindItem(8, false), nullptr);
}

TEST_F(Rows, CollectItemsListsTheTreeDepthFirst)
{
    EXPECT_THAT(list.CollectItems(), ElementsAre(&a, &a1, &a2, &x, &b, &b1, &b2));
    EXPECT_TRUE(list.HasItem(&b2));
    const FakeItem stranger(T("s"), false);
    EXPECT_FALSE(list.HasItem(&stranger));
}

TEST_F(Rows, RefreshAllReachesVisibleRootsAndTheirChildren)
{
    x.m_bVisible = false;
    list.RefreshAll();
    EXPECT_EQ(static_cast<FakeItem&>(a1).m_nRefreshes, 1);
    EXPECT_EQ(static_cast<FakeItem&>(x).m_nRefreshes, 0);
}

TEST_F(Rows, RefreshAllGoesOnAfterARowThatFailsAndRaisesTheFirstFailure)
{
    static_cast<FakeItem&>(a).onRefresh = [] { throw 1; };
    static_cast<FakeItem&>(x).onRefresh = [] { throw 2; };
    int raised = 0;
    try {
        list.RefreshAll();
    } catch (int failure) {
        raised = failure;
    }
    EXPECT_EQ(raised, 1);
    EXPECT_EQ(static_cast<FakeItem&>(b2).m_nRefreshes, 1);
}

TEST_F(Rows, SurviveAHostThatClearsTheListDuringAnInsertion)
{
    list.onInsert = [&] { list.Clear(); };
    list.ShowItem(a);
    EXPECT_THAT(list.Names(), IsEmpty());
    EXPECT_EQ(FakeItem::s_alive, 0);
}

TEST_F(Rows, SurviveAHostThatClearsTheListDuringAnExpand)
{
    ShowAll();
    list.Collapse(a, true);
    list.onInsert = [&] { list.Clear(); };
    EXPECT_EQ(list.Expand(a), -1);
    EXPECT_THAT(list.Names(), IsEmpty());
    EXPECT_EQ(FakeItem::s_alive, 0);
}

TEST_F(Rows, SurviveAHostThatClearsAndFillsTheListDuringACollapse)
{
    ShowAll();
    list.Select(a1);
    list.onDelete = [&] {
        list.Clear();
        list.ShowItem(list.Leaf(T("new")));
    };
    list.Collapse(a, true);
    EXPECT_THAT(list.Names(), NAMES(T("new")));
    EXPECT_EQ(FakeItem::s_alive, 1);
}

TEST_F(Rows, SurviveAHostThatClearsTheListDuringARemoval)
{
    ShowAll();
    list.onDelete = [&] { list.Clear(); };
    list.RemoveItem(a);
    EXPECT_THAT(list.Names(), IsEmpty());
    EXPECT_EQ(FakeItem::s_alive, 0);
}
