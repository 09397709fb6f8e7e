// The divider under the mouse: the cursor over it, the drag, the double click that fits it to the names.
#include "tests/list/windows/GridTest.h"

namespace {

class DividerOfList : public GridTest {
protected:
    void SetUp() override { ShowNumbers(3); }
    void TearDown() override { ClipCursor(nullptr); }

    void MoveTo(Point p, WPARAM keys = 0) { grid.list.Send(WM_MOUSEMOVE, keys, At(p)); }
    void PressAt(Point p) { grid.list.Send(WM_LBUTTONDOWN, MK_LBUTTON, At(p)); }
    void ReleaseAt(Point p) { grid.list.Send(WM_LBUTTONUP, 0, At(p)); }
    HCURSOR ClassCursor() const
    {
        return reinterpret_cast<HCURSOR>(GetClassLongPtrW(grid.list.Handle(), GCLP_HCURSOR));
    }
    bool ShowsSizeCursorAt(Point p)
    {
        MoveTo({50, 5});
        MoveTo(p);
        return ClassCursor() == LoadCursorW(nullptr, IDC_SIZEWE);
    }
    static Rect Cage()
    {
        RECT clip{};
        GetClipCursor(&clip);
        return FromPlatform(clip);
    }
    /// Width of a text in the font of the list, by a device context of the test's own.
    int WidthOf(const Text& text, LONG weight = FW_DONTCARE)
    {
        LOGFONTW font = grid.list.m_settings.m_lfFont;
        font.lfWeight = weight;
        const FontOwner made(CreateFontIndirectW(&font));
        const MemoryDcOwner dc(CreateCompatibleDC(nullptr));
        const SelectionScope selected(dc.Get(), made.Get());
        SIZE size{};
        GetTextExtentPoint32W(dc.Get(), text.c_str(), static_cast<int>(text.size()), &size);
        return size.cx;
    }
};

} // namespace

TEST_F(DividerOfList, IsUnderThePointerWithinFivePixels)
{
    EXPECT_FALSE(ShowsSizeCursorAt({94, 5}));
    EXPECT_TRUE(ShowsSizeCursorAt({95, 5}));
    EXPECT_TRUE(ShowsSizeCursorAt({105, 5}));
    EXPECT_FALSE(ShowsSizeCursorAt({106, 5}));
}

TEST_F(DividerOfList, EndsOnePixelBelowTheRows)
{
    const int bottom = grid.list.RowRect(2).bottom;
    EXPECT_TRUE(ShowsSizeCursorAt({100, bottom}));
    EXPECT_FALSE(ShowsSizeCursorAt({100, bottom + 1}));
}

TEST_F(DividerOfList, IsNowhereInAnEmptyList)
{
    grid.Clear();
    EXPECT_FALSE(ShowsSizeCursorAt({100, 5}));
    PressAt({100, 5});
    EXPECT_FALSE(grid.list.m_bDividerDrag);
    ReleaseAt({100, 5});
}

TEST_F(DividerOfList, GivesTheCursorOfTheClassBackBesideIt)
{
    const HCURSOR before = ClassCursor();
    MoveTo({100, 5});
    EXPECT_NE(ClassCursor(), before);
    MoveTo({50, 5});
    EXPECT_EQ(ClassCursor(), before);
}

TEST_F(DividerOfList, LeavesAnArrowBehindThePointer)
{
    MoveTo({100, 5});
    grid.list.Send(WM_MOUSELEAVE);
    EXPECT_EQ(ClassCursor(), LoadCursorW(nullptr, IDC_ARROW));
}

TEST_F(DividerOfList, HidesTheTipUnderThePointer)
{
    MoveTo({50, 5});
    EXPECT_EQ(grid.list.m_nTipItem, 0);
    MoveTo({100, 5});
    EXPECT_EQ(grid.list.m_nTipItem, -1);
}

TEST_F(DividerOfList, IsTakenWithoutASelection)
{
    Select(3);
    PressAt({102, 5});
    EXPECT_TRUE(grid.list.m_bDividerDrag);
    EXPECT_EQ(GetCapture(), grid.list.Handle());
    EXPECT_EQ(grid.list.m_nDividerPos, 100); // moves with the pointer only
    EXPECT_EQ(Selected(), 3);
    ReleaseAt({102, 5});
    EXPECT_THAT(grid.Sounds(), IsEmpty());
}

TEST_F(DividerOfList, CagesThePointerWhileItIsDragged)
{
    const Rect free = Cage();
    PressAt({100, 5});
    const Rect window = WindowRectOf(grid.list.Handle());
    EXPECT_EQ(Cage(), (Rect{window.left + 45, window.top, window.right - 40, window.bottom}));
    ReleaseAt({100, 5});
    EXPECT_EQ(Cage(), free);
}

TEST_F(DividerOfList, FollowsThePointerWhereverItIs)
{
    PressAt({100, 5});
    MoveTo({140, 5}, MK_LBUTTON);
    EXPECT_EQ(grid.list.m_nDividerPos, 140);
    MoveTo({-7, 5}, MK_LBUTTON); // only the cage limits the pointer
    EXPECT_EQ(grid.list.m_nDividerPos, -7);
    ReleaseAt({130, 5});
    EXPECT_EQ(grid.list.m_nDividerPos, 130);
    EXPECT_FALSE(grid.list.m_bDividerDrag);
    EXPECT_NE(GetCapture(), grid.list.Handle());
}

TEST_F(DividerOfList, StaysWhereItWasLetGo)
{
    PressAt({100, 5});
    ReleaseAt({100, 5});
    MoveTo({160, 5});
    EXPECT_EQ(grid.list.m_nDividerPos, 100);
}

TEST_F(DividerOfList, EndsAnEditWithACommitWhenItIsTaken)
{
    OpenEditor(2);
    TypeOver(L"6");
    PressAt({100, 5});
    EXPECT_EQ(grid.ValueOf(2), OLESTR("6"));
    ReleaseAt({100, 5});
}

TEST_F(DividerOfList, KeepsEditorsAwayWhileItIsDragged)
{
    grid.Click(2);
    ASSERT_TRUE(TextBox(2).Exists());
    PressAt({100, 5});
    grid.Look();
    EXPECT_FALSE(TextBox(2).Exists());
    MoveTo({120, 5}, MK_LBUTTON);
    grid.Look();
    EXPECT_FALSE(TextBox(2).Exists());
    ReleaseAt({120, 5});
    grid.Look();
    EXPECT_TRUE(TextBox(2).Exists());
    EXPECT_EQ(PlaceInList(TextBox(2).Handle()).left, 121);
}

TEST_F(DividerOfList, IsLetGoWhenAnotherWindowTakesTheMouse)
{
    PressAt({100, 5});
    SetCapture(grid.window);
    EXPECT_FALSE(grid.list.m_bDividerDrag);
    ReleaseCapture();
    MoveTo({160, 5});
    EXPECT_EQ(grid.list.m_nDividerPos, 100);
}

TEST_F(DividerOfList, MovedByAHostTakesTheEditorAlongWithoutEndingIt)
{
    OpenEditor(2);
    TypeOver(L"6");
    grid.list.m_nDividerPos = 150;
    grid.Look();
    EXPECT_EQ(PlaceInList(TextBox(2).Handle()).left, 151);
    EXPECT_EQ(FocusedText(), OLESTR("6"));
    EXPECT_EQ(grid.ValueOf(2), OLESTR("0"));
}

TEST_F(DividerOfList, FitsTheWidestNameOnADoubleClick)
{
    SetName(2, OLESTR("A name wider than others"));
    DoubleClickAt(grid.list.Handle(), {100, 5});
    EXPECT_EQ(grid.list.m_nDividerPos, 15 + WidthOf(OLESTR("A name wider than others")) + 8);
}

TEST_F(DividerOfList, FitsWithoutEndingAnEdit)
{
    OpenEditor(2);
    TypeOver(L"6");
    grid.list.AutoFitDivider();
    EXPECT_EQ(grid.ValueOf(2), OLESTR("0"));
    EXPECT_TRUE(TextBox(2).HasFocus());
}

TEST_F(DividerOfList, FitsToTheLeftEdgeWithoutRows)
{
    grid.Clear();
    grid.list.AutoFitDivider();
    EXPECT_EQ(grid.list.m_nDividerPos, 0);
}

TEST_F(DividerOfList, FitsTheBoldNamesOfCategoriesAndTheIndentOfTheirChildren)
{
    grid.Clear();
    grid.collections.clear();
    grid.Add(1, E_PROP_DT_CATEGORY);
    grid.Add(2, E_PROP_DT_DOUBLE, 1);
    grid.Show();
    SetName(1, OLESTR("Mmmm mmmm"));
    SetName(2, OLESTR("Mm"));
    grid.list.AutoFitDivider();
    EXPECT_EQ(grid.list.m_nDividerPos, 15 + WidthOf(OLESTR("Mmmm mmmm"), FW_BOLD) + 8);
    grid.list.m_bSingleLevelIndent = false;
    SetName(2, OLESTR("Mmmm mmmm mm"));
    grid.list.AutoFitDivider();
    EXPECT_EQ(grid.list.m_nDividerPos, 30 + WidthOf(OLESTR("Mmmm mmmm mm")) + 8);
}

TEST_F(DividerOfList, IsFoundWhereAScrolledListShowsIt)
{
    grid.list.SetHorizontalExtent(800);
    SetScrollPos(grid.list.Handle(), SB_HORZ, 20, TRUE);
    ASSERT_NE(GetWindowLongPtrW(grid.list.Handle(), GWL_STYLE) & WS_HSCROLL, 0);
    ASSERT_EQ(GetScrollPos(grid.list.Handle(), SB_HORZ), 20);
    EXPECT_FALSE(ShowsSizeCursorAt({100, 5}));
    EXPECT_TRUE(ShowsSizeCursorAt({80, 5}));
    PressAt({80, 5});
    const Rect window = WindowRectOf(grid.list.Handle());
    EXPECT_EQ(Cage().left, window.left + 25);
    MoveTo({90, 5}, MK_LBUTTON);
    ReleaseAt({90, 5});
    EXPECT_EQ(grid.list.m_nDividerPos, 110);
}
