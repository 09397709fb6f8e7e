// Scrolling, the wheel, zooming and the heights of rows.
#include "tests/list/windows/GridTest.h"

namespace {

class Scrolling : public GridTest {
protected:
    void SetUp() override
    {
        ShowNumbers(40);
        grid.Click(1);
        grid.Sounds();
    }
    void Scroll(int code, int position = 0) { grid.list.Send(WM_VSCROLL, MAKEWPARAM(code, position)); }
};
class Zooming : public GridTest {
protected:
    void Zoom(int turn) { grid.list.Send(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, static_cast<WORD>(turn))); }
    void SetHeight(LONG height)
    {
        LOGFONTW font = grid.list.m_settings.m_lfFont;
        font.lfHeight = height;
        grid.list.SetListFont(font);
    }
    LONG Height() const { return grid.list.m_settings.m_lfFont.lfHeight; }
};

} // namespace

TEST_F(Scrolling, AtTheTopUpwardCodesAreSwallowed)
{
    for (const int code : {SB_LINEUP, SB_PAGEUP, SB_TOP, SB_ENDSCROLL}) {
        Scroll(code);
        EXPECT_TRUE(TextBox(1).Exists()) << code;
        EXPECT_EQ(grid.list.GetTopIndex(), 0) << code;
    }
}

TEST_F(Scrolling, AtTheEndDownwardCodesAreSwallowed)
{
    Scroll(SB_BOTTOM);
    const int end = grid.list.GetTopIndex();
    ASSERT_GT(end, 0);
    Select(40);
    grid.Look();
    ASSERT_TRUE(TextBox(40).Exists());
    const HWND before = TextBox(40).Handle();
    for (const int code : {SB_LINEDOWN, SB_PAGEDOWN, SB_BOTTOM, SB_ENDSCROLL}) {
        Scroll(code);
        EXPECT_EQ(TextBox(40).Handle(), before) << code;
        EXPECT_EQ(grid.list.GetTopIndex(), end) << code;
    }
}

TEST_F(Scrolling, ByTheThumbAlwaysActs)
{
    const HWND before = TextBox(1).Handle();
    SetFocus(before);
    TypeOver(L"5");
    Scroll(SB_THUMBPOSITION, 0);
    EXPECT_EQ(grid.ValueOf(1), OLESTR("5"));
    EXPECT_EQ(grid.list.GetTopIndex(), 0);
    Scroll(SB_THUMBPOSITION, 9);
    EXPECT_EQ(grid.list.GetTopIndex(), 9);
}

TEST_F(Scrolling, EndsAnEditWithACommitAndGivesTheFocusToTheList)
{
    SetFocus(TextBox(1).Handle());
    TypeOver(L"5");
    Scroll(SB_LINEDOWN);
    EXPECT_EQ(grid.ValueOf(1), OLESTR("5"));
    EXPECT_TRUE(ListHasFocus());
    EXPECT_FALSE(TextBox(1).Exists()); // the row is out of sight
}

TEST_F(Scrolling, BringsTheEditorOfAVisibleSelectedRowBackAtOnce)
{
    grid.Click(5);
    Scroll(SB_LINEDOWN);
    ASSERT_TRUE(TextBox(5).Exists());
    EXPECT_EQ(PlaceInList(TextBox(5).Handle()).left, grid.Rects(5).data.left + 1);
    EXPECT_EQ(PlaceInList(TextBox(5).Handle()).bottom, grid.Rects(5).data.bottom - 1);
}

TEST_F(Scrolling, HidesTheTip)
{
    grid.list.Send(WM_MOUSEMOVE, 0, At(grid.NamePoint(2)));
    ASSERT_EQ(grid.list.m_nTipItem, 1);
    Scroll(SB_LINEDOWN);
    EXPECT_EQ(grid.list.m_nTipItem, -1);
}

TEST_F(Scrolling, RepaintsEverythingAtOnce)
{
    Scroll(SB_PAGEDOWN);
    EXPECT_FALSE(GetUpdateRect(grid.list.Handle(), nullptr, FALSE));
}

TEST_F(Scrolling, TellsTheParentNothing)
{
    Scroll(SB_PAGEDOWN);
    Scroll(SB_LINEUP);
    EXPECT_THAT(grid.Sounds(), IsEmpty());
}

TEST_F(Zooming, IsLiteralAtEvenHeights)
{
    SetHeight(-12);
    Zoom(-120);
    EXPECT_EQ(Height(), -10);
    Zoom(-120); // -10 is not below -11
    EXPECT_EQ(Height(), -10);
    SetHeight(-20);
    Zoom(120);
    EXPECT_EQ(Height(), -22);
    Zoom(120);
    EXPECT_EQ(Height(), -22);
}

TEST_F(Zooming, TakesOneStepHoweverFarTheWheelTurns)
{
    Zoom(480);
    EXPECT_EQ(Height(), -13);
    Zoom(-480);
    EXPECT_EQ(Height(), -11);
}

TEST_F(Zooming, IgnoresHalfATurn)
{
    SetHeight(-15);
    Zoom(60);
    Zoom(-60);
    EXPECT_EQ(Height(), -15);
}

TEST_F(Zooming, GivesEditorsTheNewFont)
{
    ShowNumbers(2);
    grid.Click(2);
    Zoom(120);
    ASSERT_TRUE(TextBox(2).Exists());
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(TextBox(2).Send(WM_GETFONT)), sizeof font, &font);
    EXPECT_EQ(font.lfHeight, -13);
    EXPECT_EQ(PlaceInList(TextBox(2).Handle()).bottom, grid.Rects(2).data.bottom - 1);
}

TEST_F(Zooming, MeasuresRowsOfEveryClass)
{
    grid.Add(1, E_PROP_DT_CATEGORY);
    grid.Add(2, E_PROP_DT_DOUBLE, 1);
    grid.Add(3, E_PROP_DT_ENUM, 1);
    grid.Show();
    std::vector<int> before;
    for (int row = 0; row < 3; ++row)
        before.push_back(grid.list.GetRowHeight(row));
    for (int i = 0; i < 5; ++i)
        Zoom(120);
    for (int row = 0; row < 3; ++row)
        EXPECT_GT(grid.list.GetRowHeight(row), before[static_cast<std::size_t>(row)]) << row;
    for (int i = 0; i < 5; ++i)
        Zoom(-120);
    for (int row = 0; row < 3; ++row)
        EXPECT_EQ(grid.list.GetRowHeight(row), before[static_cast<std::size_t>(row)]) << row;
}

TEST_F(Zooming, NeverAsksForRowsThatThePlatformRefuses)
{
    ShowNumbers(2);
    SetHeight(-300);
    grid.list.MeasureAllRows();
    EXPECT_EQ(grid.list.GetRowHeight(0), 255);
    SetVisible(1, false);
    SetVisible(1, true); // measured at its insertion
    EXPECT_EQ(grid.list.GetRowHeight(0), 255);
}

TEST_F(Zooming, OfACategoryIsTheTextHeightAndFourTenths)
{
    grid.Add(1, E_PROP_DT_CATEGORY);
    grid.Add(2, E_PROP_DT_DOUBLE, 1);
    grid.Show();
    ASSERT_EQ(grid.list.TextHeight(), 12) << "the fonts of this machine differ";
    EXPECT_EQ(grid.list.GetRowHeight(0), 16);
}

TEST_F(Zooming, KeepsRowsAsHighAsTheirTextBoxes)
{
    ShowNumbers(1);
    const HWND edit = CreateWindowW(L"Edit", L"", WS_CHILD | ES_AUTOHSCROLL, 0, 0, 100, 16, grid.list.Handle(), nullptr,
                                    nullptr, nullptr);
    EXPECT_EQ(grid.list.GetRowHeight(0), WindowRectOf(edit).Height());
    DestroyWindow(edit);
}

TEST_F(Zooming, KeepsRowsOfEnumerationsAPixelHigherThanTheirDropLists)
{
    ShowOne(E_PROP_DT_ENUM);
    const HWND combo = CreateWindowW(L"ComboBox", L"", WS_CHILD | CBS_DROPDOWNLIST | CBS_NOINTEGRALHEIGHT, 1, 0, 99, 16,
                                     grid.list.Handle(), nullptr, nullptr, nullptr);
    const FontOwner font(CreateFontIndirectW(&grid.list.m_settings.m_lfFont));
    SendMessageW(combo, WM_SETFONT, reinterpret_cast<WPARAM>(font.Get()), FALSE);
    EXPECT_EQ(grid.list.GetRowHeight(0), WindowRectOf(combo).Height() + 1);
    DestroyWindow(combo);
}
