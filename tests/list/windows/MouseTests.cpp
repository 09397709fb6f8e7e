// The mouse on the rows: selection, the expand box, double clicks, the right button.
#include "tests/list/windows/GridTest.h"

namespace {

class Press : public GridTest {
protected:
    void PressAt(Point p) { grid.list.Send(WM_LBUTTONDOWN, MK_LBUTTON, At(p)); }
    void ReleaseAt(Point p) { grid.list.Send(WM_LBUTTONUP, 0, At(p)); }
};
class DoubleClick : public Press {};

} // namespace

TEST_F(Press, SelectsTheRowAndTellsTheParentLater)
{
    ShowNumbers(3);
    grid.Click(2);
    EXPECT_EQ(grid.list.GetCurSel(), 1);
    EXPECT_THAT(grid.heard, IsEmpty()); // posted
    EXPECT_TRUE(TextBox(2).Exists());   // but drawn already
    EXPECT_THAT(grid.Sounds(), ElementsAre("Select 2"));
}

TEST_F(Press, OnTheSelectedRowTellsTheParentAgain)
{
    ShowNumbers(3);
    grid.Click(2);
    grid.Click(2);
    EXPECT_THAT(grid.Sounds(), ElementsAre("Select 2", "Select 2"));
}

TEST_F(Press, OnTheDataOrTheIndentSelectsTheRowAsWell)
{
    ShowNumbers(3);
    ClickAt(grid.list.Handle(), grid.DataPoint(3));
    EXPECT_EQ(Selected(), 3);
    ClickAt(grid.list.Handle(), {3, grid.NamePoint(2).y});
    EXPECT_EQ(Selected(), 2);
}

TEST_F(Press, BelowTheLastRowSelectsIt)
{
    ShowNumbers(3);
    ASSERT_LT(grid.list.RowRect(2).bottom, 150);
    ASSERT_EQ(grid.list.HitTest({50, 150}), RowPart::Outside);
    ClickAt(grid.list.Handle(), {50, 150});
    EXPECT_EQ(Selected(), 3);
    EXPECT_THAT(grid.Sounds(), ElementsAre("Select 3"));
}

TEST_F(Press, InAnEmptyListDoesNothing)
{
    grid.AddCollection();
    grid.Show();
    ClickAt(grid.list.Handle(), {50, 20});
    EXPECT_EQ(grid.list.GetCurSel(), -1);
    EXPECT_THAT(grid.Sounds(), IsEmpty());
    EXPECT_EQ(grid.list.HitTest({50, 20}), RowPart::Outside);
}

TEST_F(Press, TakesTheFocus)
{
    ShowNumbers(3);
    SetFocus(grid.window);
    grid.Click(2);
    EXPECT_TRUE(ListHasFocus());
}

TEST_F(Press, OnAnExpandBoxTogglesWithoutSelectingOrTakingTheFocus)
{
    ShowCategories();
    Select(15);
    SetFocus(grid.window);
    ClickAt(grid.list.Handle(), grid.BoxPoint(10));
    EXPECT_THAT(Rows(), ElementsAre(10, 15, 20, 21, 22));
    EXPECT_EQ(Selected(), 15);
    EXPECT_EQ(GetFocus(), grid.window);
    EXPECT_THAT(grid.heard, IsEmpty());
    EXPECT_THAT(grid.Sounds(), ElementsAre("Toggle 10 collapsed"));
    ClickAt(grid.list.Handle(), grid.BoxPoint(10));
    EXPECT_THAT(Rows(), ElementsAre(10, 11, 12, 15, 20, 21, 22));
    EXPECT_THAT(grid.Sounds(), ElementsAre("Toggle 10 expanded"));
}

TEST_F(Press, OnAnExpandBoxEndsAnEditWithACommit)
{
    ShowCategories();
    OpenEditor(15);
    TypeOver(L"8");
    ClickAt(grid.list.Handle(), grid.BoxPoint(10));
    EXPECT_EQ(grid.ValueOf(15), OLESTR("8"));
    EXPECT_THAT(grid.Sounds(), Contains("Toggle 10 collapsed"));
}

TEST_F(Press, InTheOuterIndentOfADeepRowIsNotOnItsBox)
{
    grid.Add(1, E_PROP_DT_CATEGORY);
    grid.Add(2, E_PROP_DT_CATEGORY, 1);
    grid.Add(3, E_PROP_DT_DOUBLE, 2);
    grid.list.m_bSingleLevelIndent = false;
    grid.Show();
    const int y = grid.NamePoint(2).y;
    EXPECT_EQ(grid.Rects(2).indent.right, 30);
    EXPECT_EQ(grid.list.HitTest({14, y}), RowPart::Indent);
    EXPECT_EQ(grid.list.HitTest({15, y}), RowPart::ExpandBox);
    ClickAt(grid.list.Handle(), {14, y});
    EXPECT_FALSE(grid.Item(2).m_bCollapsed);
    EXPECT_EQ(Selected(), 2);
    ClickAt(grid.list.Handle(), {15, y});
    EXPECT_TRUE(grid.Item(2).m_bCollapsed);
}

TEST_F(Press, LetsTheIndentWinOverADividerLeftOfIt)
{
    ShowCategories();
    grid.list.m_nDividerPos = 4;
    const int y = grid.NamePoint(10).y;
    EXPECT_EQ(grid.list.HitTest({10, y}), RowPart::ExpandBox);
    EXPECT_EQ(grid.list.HitTest({20, y}), RowPart::Data);
}

TEST_F(Press, CommitsAnOpenEditBeforeTheSelectionMoves)
{
    ShowNumbers(3);
    OpenEditor(1);
    TypeOver(L"4.5");
    grid.Click(3);
    EXPECT_EQ(grid.ValueOf(1), OLESTR("4.5"));
    EXPECT_FALSE(TextBox(1).Exists());
    EXPECT_TRUE(TextBox(3).Exists());
    EXPECT_THAT(grid.Sounds(), ElementsAre("InPlaceEditEnd", "MultiEditStart", "Stream", "MultiEditEnd", "Select 3"));
}

TEST_F(Press, FollowsItsRowWhenTheCommitHidesARowAboveIt)
{
    ShowNumbers(4);
    OpenEditor(2);
    TypeOver(L"4.5");
    grid.reactions["MultiEditEnd"] = [this] { SetVisible(1, false); };
    grid.Click(3);
    EXPECT_THAT(Rows(), ElementsAre(2, 3, 4));
    EXPECT_EQ(Selected(), 3);
}

TEST_F(Press, SurvivesAHostThatClearsTheListInTheCommit)
{
    ShowNumbers(4);
    OpenEditor(2);
    TypeOver(L"4.5");
    grid.reactions["MultiEditEnd"] = [this] { grid.list.Clear(); };
    grid.Click(3);
    EXPECT_EQ(grid.list.GetCount(), 0);
    EXPECT_EQ(grid.ValueOf(2), OLESTR("4.5"));
}

TEST_F(Press, OfTheRightButtonIsIgnored)
{
    ShowNumbers(3);
    Select(1);
    grid.list.Send(WM_RBUTTONDOWN, MK_RBUTTON, At(grid.NamePoint(3)));
    grid.list.Send(WM_RBUTTONUP, 0, At(grid.NamePoint(3)));
    EXPECT_EQ(Selected(), 1);
    EXPECT_THAT(grid.Sounds(), IsEmpty());
}

TEST_F(DoubleClick, OnTheSelectedRowTogglesItWithoutANotification)
{
    ShowCategories();
    DoubleClickAt(grid.list.Handle(), grid.NamePoint(10));
    EXPECT_THAT(Rows(), ElementsAre(10, 15, 20, 21, 22));
    EXPECT_THAT(grid.Sounds(), ElementsAre("Select 10"));
    DoubleClickAt(grid.list.Handle(), grid.DataPoint(10));
    EXPECT_THAT(Rows(), ElementsAre(10, 11, 12, 15, 20, 21, 22));
}

TEST_F(DoubleClick, OnARowWithoutChildrenKeepsItsFlag)
{
    ShowCategories();
    DoubleClickAt(grid.list.Handle(), grid.NamePoint(15));
    EXPECT_TRUE(grid.Item(15).m_bCollapsed);
    EXPECT_THAT(Rows(), ElementsAre(10, 11, 12, 15, 20, 21, 22));
}

TEST_F(DoubleClick, OnTheBoxOfAnotherRowTogglesOnce)
{
    ShowCategories();
    Select(15);
    DoubleClickAt(grid.list.Handle(), grid.BoxPoint(10));
    EXPECT_TRUE(grid.Item(10).m_bCollapsed);
    EXPECT_EQ(Selected(), 15);
    EXPECT_THAT(grid.Sounds(), ElementsAre("Toggle 10 collapsed"));
}

TEST_F(DoubleClick, OnTheBoxOfTheSelectedRowTogglesTwice)
{
    ShowCategories();
    Select(10);
    DoubleClickAt(grid.list.Handle(), grid.BoxPoint(10));
    EXPECT_FALSE(grid.Item(10).m_bCollapsed);
    EXPECT_THAT(grid.Sounds(), ElementsAre("Toggle 10 collapsed"));
}

TEST_F(DoubleClick, BelowTheRowsTogglesNothing)
{
    ShowCategories();
    grid.list.ExpandCollapse(grid.Item(20));
    DoubleClickAt(grid.list.Handle(), {50, 180});
    EXPECT_EQ(Selected(), 20);
    EXPECT_TRUE(grid.Item(20).m_bCollapsed);
}
