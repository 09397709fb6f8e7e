// The tip of the row under the pointer.
#include "tests/list/windows/GridTest.h"

namespace {

class Tip : public GridTest {
protected:
    void MoveTo(LONG id) { grid.list.Send(WM_MOUSEMOVE, 0, At(grid.NamePoint(id))); }
    HWND TipWindow() { return FindWindowW(TOOLTIPS_CLASSW, nullptr); }
    TOOLINFOW Tool(OLECHAR* text)
    {
        TOOLINFOW tool{};
        tool.cbSize = TTTOOLINFOW_V2_SIZE;
        tool.hwnd = grid.list.Handle();
        tool.uId = 1064;
        tool.lpszText = text;
        EXPECT_TRUE(SendMessageW(TipWindow(), TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&tool)));
        return tool;
    }
    Text TipText()
    {
        OLECHAR text[2048] = {};
        Tool(text);
        return text;
    }
    Rect TipPlace()
    {
        OLECHAR text[2048] = {};
        return FromPlatform(Tool(text).rect);
    }
};

} // namespace

TEST_F(Tip, ShowsTheErrorOfTheRowUnderThePointer)
{
    ShowNumbers(3);
    SetInvalid(2, OLESTR("Too long"));
    MoveTo(2);
    EXPECT_EQ(grid.list.m_nTipItem, 1);
    EXPECT_EQ(TipText(), OLESTR("Error: Too long"));
    EXPECT_EQ(TipPlace(), grid.list.RowRect(1));
}

TEST_F(Tip, IsEmptyForARowWithoutTexts)
{
    ShowNumbers(3);
    SetInvalid(2, OLESTR("Too long"));
    MoveTo(2);
    MoveTo(1);
    EXPECT_EQ(grid.list.m_nTipItem, 0);
    EXPECT_EQ(TipText(), OLESTR(""));
    EXPECT_EQ(TipPlace(), grid.list.RowRect(0));
}

TEST_F(Tip, ShowsAWarningBehindItsPrefix)
{
    ShowNumbers(2);
    SetWarning(2, OLESTR("worn tool"));
    MoveTo(2);
    EXPECT_EQ(TipText(), OLESTR("Warning worn tool"));
}

TEST_F(Tip, KeepsItsPrefixWhenAnEmptyOneIsSet)
{
    ShowNumbers(2);
    SetWarning(2, OLESTR("worn tool"));
    grid.list.SetWarningPrefix(OLESTR(""));
    MoveTo(2);
    EXPECT_EQ(TipText(), OLESTR("Warning worn tool"));
    grid.list.SetWarningPrefix(OLESTR("Careful:"));
    MoveTo(1);
    MoveTo(2);
    EXPECT_EQ(TipText(), OLESTR("Careful: worn tool"));
}

TEST_F(Tip, ShowsAnErrorAheadOfAWarning)
{
    ShowNumbers(2);
    SetWarning(2, OLESTR("worn tool"));
    SetInvalid(2, OLESTR("broken"));
    MoveTo(2);
    EXPECT_EQ(TipText(), OLESTR("Error: broken"));
}

TEST_F(Tip, ShowsAmpersandsAsTheyAre)
{
    ShowNumbers(2);
    SetWarning(2, OLESTR("nut & bolt"));
    MoveTo(2);
    EXPECT_EQ(TipText(), OLESTR("Warning nut & bolt"));
}

TEST_F(Tip, IsMadeOncePerRow)
{
    ShowNumbers(2);
    MoveTo(2);
    grid.Item(2).m_strError = OLESTR("new");
    MoveTo(2);
    EXPECT_EQ(TipText(), OLESTR(""));
    MoveTo(1);
    MoveTo(2);
    EXPECT_EQ(TipText(), OLESTR("new"));
}

TEST_F(Tip, TakesChangedTextsWhenItIsToldTo)
{
    ShowNumbers(2);
    MoveTo(2);
    grid.Item(2).m_strError = OLESTR("new");
    grid.list.UpdateToolTip();
    EXPECT_EQ(TipText(), OLESTR("new"));
    EXPECT_EQ(TipPlace(), grid.list.RowRect(1));
}

TEST_F(Tip, TakesNoTextWithoutARow)
{
    ShowNumbers(2);
    MoveTo(2);
    grid.list.HideToolTip();
    grid.Item(2).m_strError = OLESTR("new");
    grid.list.UpdateToolTip();
    EXPECT_EQ(TipText(), OLESTR(""));
    grid.list.m_nTipItem = 1;
    grid.Clear(); // hides it
    grid.list.UpdateToolTip();
    EXPECT_EQ(grid.list.m_nTipItem, -1);
}

TEST_F(Tip, StaysWithItsRowWhileThePointerIsBelowTheRows)
{
    ShowNumbers(2);
    SetInvalid(2, OLESTR("broken"));
    MoveTo(2);
    grid.list.Send(WM_MOUSEMOVE, 0, At({50, 150}));
    EXPECT_EQ(grid.list.m_nTipItem, 1);
    EXPECT_EQ(TipText(), OLESTR("Error: broken"));
}

TEST_F(Tip, TakesTextsOfAnyLength)
{
    ShowNumbers(2);
    const Text longText(1500, OLECHAR('x'));
    grid.Item(1).m_strError = longText;
    MoveTo(1);
    EXPECT_EQ(grid.list.m_nTipItem, 0);
    grid.Item(2).m_strError = OLESTR("short");
    MoveTo(2); // the record comes back with the long text first
    EXPECT_EQ(TipText(), OLESTR("short"));
}

TEST_F(Tip, GoesWhenARowIsToggled)
{
    ShowCategories();
    MoveTo(15);
    ASSERT_EQ(grid.list.m_nTipItem, 3);
    grid.list.ExpandCollapse(grid.Item(10));
    EXPECT_EQ(grid.list.m_nTipItem, -1);
}
