// The list as a tree list: selections of many rows by hand, editing after a pause, drags, connector lines.
#include "tests/list/windows/GridTest.h"

namespace {

class TreeList : public testing::Test {
protected:
    TestGrid grid{LBS_EXTENDEDSEL};

    void SetUp() override
    {
        grid.list.m_eListType = ListType::TreeList;
        for (LONG id = 1; id <= 8; ++id)
            grid.Add(id, E_PROP_DT_DOUBLE);
        grid.Show();
        SetFocus(grid.list.Handle());
    }
    std::vector<int> Selected()
    {
        std::vector<int> rows;
        for (int row = 0; row < grid.list.GetCount(); ++row) {
            if (grid.list.GetSel(row))
                rows.push_back(row);
        }
        return rows;
    }
    LRESULT Key(UINT key)
    {
        return SendMessageW(grid.window, WM_VKEYTOITEM, MAKEWPARAM(key, grid.list.GetCaretIndex()),
                            reinterpret_cast<LPARAM>(grid.list.Handle()));
    }
    void Press(int row, WPARAM keys = 0) { grid.list.Send(WM_LBUTTONDOWN, MK_LBUTTON | keys, At(PointIn(row))); }
    void Release(int row, WPARAM keys = 0) { grid.list.Send(WM_LBUTTONUP, keys, At(PointIn(row))); }
    void Click(int row, WPARAM keys = 0)
    {
        Press(row, keys);
        Release(row, keys);
    }
    Point PointIn(int row)
    {
        const Rect data = grid.list.RectsOf(row).data;
        return {data.left + 10, data.top + 4};
    }
};

} // namespace

TEST_F(TreeList, HasAnIconColumnBetweenIndentAndText)
{
    const RowRects rects = grid.list.RectsOf(0);
    EXPECT_EQ(rects.indent.right, 15);
    EXPECT_EQ(rects.name.left, 15);
    EXPECT_EQ(rects.name.right, 30);
    EXPECT_EQ(rects.data.left, 30);
}

TEST_F(TreeList, SelectsOneRowByAPlainPress)
{
    Click(2);
    EXPECT_THAT(Selected(), ElementsAre(2));
    Click(4);
    EXPECT_THAT(Selected(), ElementsAre(4));
    EXPECT_EQ(grid.list.GetAnchorIndex(), 4);
    EXPECT_EQ(grid.list.GetCaretIndex(), 4);
}

TEST_F(TreeList, TogglesARowWhenTheButtonComesUpWithCtrl)
{
    Click(2);
    Press(4, MK_CONTROL);
    EXPECT_THAT(Selected(), ElementsAre(2));
    Release(4, MK_CONTROL);
    EXPECT_THAT(Selected(), ElementsAre(2, 4));
    Click(2, MK_CONTROL);
    EXPECT_THAT(Selected(), ElementsAre(4));
}

TEST_F(TreeList, SelectsARangeFromTheAnchorWithShift)
{
    Click(2);
    Click(5, MK_SHIFT);
    EXPECT_THAT(Selected(), ElementsAre(2, 3, 4, 5));
    Click(1, MK_SHIFT);
    EXPECT_THAT(Selected(), ElementsAre(1, 2));
}

TEST_F(TreeList, KeepsALargerSelectionUnderAPlainPress)
{
    Click(2);
    Click(5, MK_SHIFT);
    Press(3);
    EXPECT_THAT(Selected(), ElementsAre(2, 3, 4, 5));
    EXPECT_EQ(grid.list.GetCaretIndex(), 3);
    Release(3);
}

TEST_F(TreeList, ClearsTheSelectionByAPressBesideTheCells)
{
    Click(2);
    const Rect indent = grid.list.RectsOf(4).indent;
    grid.list.Send(WM_LBUTTONDOWN, MK_LBUTTON, At({3, indent.top + 4}));
    grid.list.Send(WM_LBUTTONUP, 0, At({3, indent.top + 4}));
    EXPECT_FALSE(grid.list.GetSel(2));
}

TEST_F(TreeList, MovesSelectionAnchorAndCaretByPlainKeys)
{
    Click(2);
    Key(VK_DOWN);
    EXPECT_THAT(Selected(), ElementsAre(3));
    EXPECT_EQ(grid.list.GetAnchorIndex(), 3);
    Key(VK_END);
    EXPECT_THAT(Selected(), ElementsAre(7));
    Key(VK_DOWN);
    EXPECT_THAT(Selected(), ElementsAre(7));
    Key(VK_HOME);
    EXPECT_THAT(Selected(), ElementsAre(0));
    Key(VK_UP);
    EXPECT_THAT(Selected(), ElementsAre(0));
}

TEST_F(TreeList, MovesByThePagesOfItsWindow)
{
    const int page = WindowRectOf(grid.list.Handle()).Height() / grid.list.GetRowHeight(0);
    ASSERT_GT(page, 8);
    Click(2);
    Key(VK_NEXT);
    EXPECT_THAT(Selected(), ElementsAre(7));
    MoveWindow(grid.list.Handle(), 0, 0, 300, 3 * grid.list.GetRowHeight(0), TRUE);
    Key(VK_PRIOR);
    EXPECT_THAT(Selected(), ElementsAre(4));
}

TEST_F(TreeList, MovesTheCaretAloneWithCtrl)
{
    Click(2);
    const HeldKey ctrl(VK_CONTROL);
    Key(VK_DOWN);
    EXPECT_THAT(Selected(), ElementsAre(2));
    EXPECT_EQ(grid.list.GetCaretIndex(), 3);
}

TEST_F(TreeList, SelectsFromTheAnchorToTheCaretWithShift)
{
    Click(2);
    const HeldKey shift(VK_SHIFT);
    Key(VK_DOWN);
    Key(VK_DOWN);
    EXPECT_THAT(Selected(), ElementsAre(2, 3, 4));
    EXPECT_EQ(grid.list.GetCaretIndex(), 4);
    Key(VK_HOME);
    EXPECT_THAT(Selected(), ElementsAre(0, 1, 2));
}

TEST_F(TreeList, SelectsAllByCtrlA)
{
    EXPECT_EQ(Key('A'), -1);
    EXPECT_THAT(Selected(), IsEmpty());
    const HeldKey ctrl(VK_CONTROL);
    EXPECT_EQ(Key('A'), -1);
    EXPECT_EQ(Selected().size(), 8u);
    EXPECT_THAT(grid.Sounds(), ElementsAre(testing::StartsWith("Select")));
}

TEST_F(TreeList, StartsADragBeyondTheDragRectangle)
{
    grid.list.m_bDragEnabled = true;
    Press(2);
    const Point start = PointIn(2);
    grid.list.Send(WM_MOUSEMOVE, MK_LBUTTON, At({start.x + 2 * GetSystemMetrics(SM_CXDRAG) - 1, start.y}));
    EXPECT_THAT(grid.Sounds(), Not(Contains("Drag")));
    grid.list.Send(WM_MOUSEMOVE, MK_LBUTTON, At({start.x + 2 * GetSystemMetrics(SM_CXDRAG) + 1, start.y}));
    EXPECT_THAT(grid.Sounds(), Contains("Drag"));
    Release(2);
}

TEST_F(TreeList, DragsNothingUnlessAsked)
{
    Press(2);
    grid.list.Send(WM_MOUSEMOVE, MK_LBUTTON, At({PointIn(2).x + 60, PointIn(2).y}));
    EXPECT_THAT(grid.Sounds(), Not(Contains("Drag")));
    Release(2);
}

TEST_F(TreeList, GivesThePointOfTheRightButtonToItsParent)
{
    grid.list.Send(WM_RBUTTONDOWN, MK_RBUTTON, At({33, 44}));
    EXPECT_THAT(grid.heard, ElementsAre("RightDown"));
    EXPECT_EQ(grid.rightDownAt, (Point{33, 44}));
}

TEST_F(TreeList, SelectsNothingWhenItGetsTheFocus)
{
    EXPECT_THAT(Selected(), IsEmpty());
}

TEST_F(TreeList, ScrollsAsFarAsItsWidestText)
{
    const auto extent = [&] { return grid.list.Send(LB_GETHORIZONTALEXTENT); };
    const SelectionScope font(grid.list.MeasuringDc(), grid.list.ListFont());
    grid.Item(3).m_strData = OLESTR("a text that is wider than all others by far");
    grid.list.ShowItem(grid.Item(3));
    EXPECT_EQ(extent(), 30 + grid.Item(3).GetDataWidth(grid.list.MeasuringDc(), grid.list.m_settings));
    const LRESULT before = extent();
    grid.list.SetHoldExtent(true, false);
    grid.Item(3).m_strData = OLESTR("short");
    grid.list.ShowItem(grid.Item(3));
    EXPECT_EQ(extent(), before);
    grid.list.SetHoldExtent(false, true);
    EXPECT_LT(extent(), before);
}

TEST_F(TreeList, ConnectsItsRows)
{
    grid.list.m_crTreeLine = 0x00AA55;
    const Picture look = grid.Look();
    const auto shows = [&](int left, int top, int right, int bottom) {
        return look.Shows({left, top, right, bottom}, COLORREF{0x00AA55});
    };
    const Rect first = grid.list.RectsOf(0).indent;
    const Rect middle = grid.list.RectsOf(3).indent;
    const Rect last = grid.list.RectsOf(7).indent;
    const int height = first.Height();
    EXPECT_FALSE(shows(7, first.top, 8, first.top + height / 2 - 2)); // starts at the first row's middle
    EXPECT_TRUE(shows(7, first.top + height / 2, 8, first.bottom));
    EXPECT_TRUE(shows(7, middle.top, 8, middle.top + height / 2 - 2));
    EXPECT_TRUE(shows(7, middle.top + height / 2 + 2, 8, middle.bottom));
    EXPECT_TRUE(shows(9, middle.top, 15, middle.bottom));
    EXPECT_FALSE(shows(7, last.top + height / 2 + 2, 8, last.bottom)); // ends at the last row's
}

TEST_F(TreeList, OpensTheOnlySelectedRowAfterAPause)
{
    Click(2);
    Press(2);
    Release(2);
    grid.list.Send(WM_TIMER, 120);
    EXPECT_TRUE(grid.Item(3).m_edit.HasFocus());
}

TEST_F(TreeList, ForgetsToOpenARowThatAKeyHasLeft)
{
    Click(2);
    Press(2);
    Release(2);
    Key(VK_DOWN);
    grid.list.Send(WM_TIMER, 120);
    EXPECT_FALSE(grid.Item(3).m_edit.HasFocus());
    EXPECT_FALSE(grid.Item(4).m_edit.HasFocus());
}
