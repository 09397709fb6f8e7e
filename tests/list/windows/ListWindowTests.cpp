// The list's window: how it is made and how it ends, what it forwards, focus, scrolling, zoom, background.
#include "tests/list/windows/GridTest.h"

#include "list/WindowIds.h"
#include "toolkit/EditMessages.h"

namespace {

class ListWindow : public GridTest {
protected:
    HWND Tip() { return FindWindowW(TOOLTIPS_CLASSW, nullptr); }
};

} // namespace

TEST_F(ListWindow, IsAListBoxAtTheOriginOfItsParent)
{
    OLECHAR name[32] = {};
    GetClassNameW(grid.list.Handle(), name, 32);
    EXPECT_EQ(CompareStringOrdinal(name, -1, L"ListBox", -1, TRUE), CSTR_EQUAL);
    EXPECT_EQ(grid.list.WindowText(), OLESTR("Tolvarin List Box"));
    EXPECT_EQ(GetDlgCtrlID(grid.list.Handle()), 556);
    const Rect outer = WindowRectOf(grid.list.Handle());
    const Rect parent = WindowRectOf(grid.window);
    EXPECT_EQ(outer.left, parent.left);
    EXPECT_EQ(outer.top, parent.top);
    EXPECT_EQ(outer.Width(), 300);
    EXPECT_EQ(outer.Height(), 200);
}

TEST_F(ListWindow, HasATipWithOneTool)
{
    const HWND tip = Tip();
    ASSERT_NE(tip, nullptr);
    EXPECT_EQ(SendMessageW(tip, TTM_GETTOOLCOUNT, 0, 0), 1);
    EXPECT_EQ(SendMessageW(tip, TTM_GETMAXTIPWIDTH, 0, 0), 225);
    EXPECT_EQ(SendMessageW(tip, TTM_GETDELAYTIME, TTDT_AUTOPOP, 0), 30000);
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(tip, GWL_STYLE));
    EXPECT_EQ(style & (WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX), WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX);
    TOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;
    tool.hwnd = grid.list.Handle();
    tool.uId = 1064;
    OLECHAR text[8] = OLESTR("stale");
    tool.lpszText = text;
    EXPECT_TRUE(SendMessageW(tip, TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&tool)));
    EXPECT_TRUE(tool.uFlags & TTF_SUBCLASS);
}

TEST_F(ListWindow, WidensItsTipWithItself)
{
    MoveWindow(grid.list.Handle(), 0, 0, 250, 200, FALSE);
    const int client = grid.list.ClientRect().Width();
    EXPECT_EQ(SendMessageW(Tip(), TTM_GETMAXTIPWIDTH, 0, 0), client * 3 / 4);
}

TEST_F(ListWindow, TakesItsTipAlong)
{
    grid.list.Destroy();
    EXPECT_FALSE(grid.list.Exists());
    EXPECT_EQ(Tip(), nullptr);
}

TEST_F(ListWindow, PutsTheCursorOfItsClassBack)
{
    ShowNumbers(3);
    const HWND other = CreateWindowW(L"ListBox", L"", WS_CHILD, 0, 0, 10, 10, grid.window, nullptr, nullptr, nullptr);
    const ULONG_PTR before = GetClassLongPtrW(other, GCLP_HCURSOR);
    grid.list.Send(WM_MOUSEMOVE, 0, At({100, 5}));
    EXPECT_NE(GetClassLongPtrW(other, GCLP_HCURSOR), before);
    grid.list.Destroy();
    EXPECT_EQ(GetClassLongPtrW(other, GCLP_HCURSOR), before);
}

TEST_F(ListWindow, ForwardsClipboardMessagesToItsParentAndGivesItsAnswer)
{
    grid.messageAnswer = 17;
    for (const UINT message : {UINT{WM_CUT}, UINT{WM_COPY}, UINT{WM_PASTE}, RegisteredEditMessages().canCut,
                               RegisteredEditMessages().canCopy, RegisteredEditMessages().canPaste})
        EXPECT_EQ(grid.list.Send(message), 17) << message;
    EXPECT_EQ(grid.Sounds().size(), 6u);
}

TEST_F(ListWindow, SelectsTheFirstRowWhenItGetsTheFocusWithoutASelection)
{
    ShowNumbers(3);
    SetFocus(grid.list.Handle());
    EXPECT_EQ(grid.list.GetCurSel(), 0);
    EXPECT_THAT(grid.Sounds(), IsEmpty());
}

TEST_F(ListWindow, KeepsASelectionWhenItGetsTheFocus)
{
    ShowNumbers(3);
    grid.list.SelectRow(2);
    SetFocus(grid.list.Handle());
    EXPECT_EQ(grid.list.GetCurSel(), 2);
}

TEST_F(ListWindow, ErasesBelowItsLastRowOnly)
{
    ShowNumbers(3);
    const Picture look = grid.Look();
    const Rect last = grid.list.RowRect(2);
    const Rect client = grid.list.ClientRect();
    EXPECT_TRUE(look.IsFilled({0, last.bottom, client.right, client.bottom}, TestColours::background));
}

TEST_F(ListWindow, ErasesEverythingWithoutRows)
{
    const Picture look = grid.Look();
    const Rect client = grid.list.ClientRect();
    EXPECT_TRUE(look.IsFilled(client, TestColours::background));
}

TEST_F(ListWindow, PaintsWhatItErasesInANewBackground)
{
    grid.Look();
    grid.list.SetBackground(0x00AA00);
    EXPECT_EQ(grid.Look().At(5, 5), COLORREF{0x00AA00});
}

TEST_F(ListWindow, ScrollsOneLinePerWheelTurnWhateverItsSize)
{
    ShowNumbers(40);
    grid.list.Send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-360)));
    EXPECT_EQ(grid.list.GetTopIndex(), 1);
    grid.list.Send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-120)));
    EXPECT_EQ(grid.list.GetTopIndex(), 2);
    grid.list.Send(WM_MOUSEWHEEL, MAKEWPARAM(0, 120));
    EXPECT_EQ(grid.list.GetTopIndex(), 1);
}

TEST_F(ListWindow, TakesHalfAWheelTurnDownAsALineUp)
{
    ShowNumbers(40);
    grid.list.SetTopIndex(5);
    grid.list.Send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-60)));
    EXPECT_EQ(grid.list.GetTopIndex(), 4);
}

TEST_F(ListWindow, ScrollEndsAnEditOnlyWhenItActs)
{
    ShowNumbers(40);
    grid.Click(1);
    ASSERT_TRUE(grid.Item(1).m_edit.Exists());
    grid.list.Send(WM_VSCROLL, SB_LINEUP); // at the top already
    EXPECT_TRUE(grid.Item(1).m_edit.Exists());
    grid.list.Send(WM_VSCROLL, SB_ENDSCROLL);
    EXPECT_TRUE(grid.Item(1).m_edit.Exists());
    grid.list.Send(WM_VSCROLL, SB_PAGEDOWN);
    EXPECT_FALSE(grid.Item(1).m_edit.Exists());
    EXPECT_GT(grid.list.GetTopIndex(), 1);
    grid.list.Send(WM_VSCROLL, SB_TOP);
    EXPECT_TRUE(grid.Item(1).m_edit.Exists()); // the selected row draws it again
}

TEST_F(ListWindow, ZoomsByTheWheelWithCtrlAndMeasuresItsRows)
{
    ShowNumbers(3);
    const int before = grid.list.GetRowHeight(0);
    grid.list.Send(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, 120));
    EXPECT_EQ(grid.list.m_settings.m_lfFont.lfHeight, -13);
    EXPECT_GT(grid.list.GetRowHeight(0), before);
    EXPECT_EQ(grid.list.GetRowHeight(0), grid.list.GetRowHeight(2));
    grid.list.Send(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, static_cast<WORD>(-120)));
    EXPECT_EQ(grid.list.m_settings.m_lfFont.lfHeight, -11);
    EXPECT_EQ(grid.list.GetRowHeight(0), before);
}

TEST_F(ListWindow, ZoomStopsAtItsLimitsWithoutMeasuring)
{
    ShowNumbers(1);
    const int generation = grid.list.FontGeneration();
    grid.list.Send(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, static_cast<WORD>(-120)));
    EXPECT_EQ(grid.list.m_settings.m_lfFont.lfHeight, -11);
    EXPECT_EQ(grid.list.FontGeneration(), generation);
    for (int i = 0; i < 10; ++i)
        grid.list.Send(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, 120));
    EXPECT_EQ(grid.list.m_settings.m_lfFont.lfHeight, -21);
    EXPECT_EQ(grid.list.FontGeneration(), generation + 5);
}

TEST_F(ListWindow, ZoomEndsAnEditWithACommit)
{
    ShowNumbers(1);
    grid.Click(1);
    PressKey(VK_RETURN);
    TypeCharacters(L"7");
    grid.list.Send(WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, 120));
    EXPECT_EQ(grid.ValueOf(1), OLESTR("7"));
}

TEST_F(ListWindow, HoldsDrawingOnceAroundAFill)
{
    for (LONG id = 1; id <= 3; ++id)
        grid.Add(id, E_PROP_DT_DOUBLE);
    grid.Show();
    EXPECT_EQ(grid.list.GetTopIndex(), 0);
    EXPECT_EQ(grid.list.GetCount(), 3);
}

TEST_F(ListWindow, ClearDropsRowsAndItems)
{
    ShowNumbers(3);
    grid.Click(2);
    grid.Clear();
    EXPECT_EQ(grid.list.GetCount(), 0);
    EXPECT_TRUE(grid.list.Roots().empty());
    EXPECT_EQ(grid.references, 0);
}

TEST_F(ListWindow, TellsWhatARowShows)
{
    ShowNumbers(2);
    grid.Change(2, [](IqorProperty* property) { SetString(property, OLESTR("4.25")); });
    grid.list.SelectRow(1);
    const RowFacts facts = grid.list.FactsOf(1);
    EXPECT_EQ(facts.name, OLESTR("Item 2"));
    EXPECT_EQ(facts.data, OLESTR("4.25"));
    EXPECT_EQ(facts.row, grid.list.RowRect(1));
    EXPECT_EQ(facts.level, 1);
    EXPECT_TRUE(facts.selected);
    EXPECT_FALSE(facts.hasChildren);
    EXPECT_EQ(grid.list.FactsOf(2), RowFacts{});
}
