// The text box and the button of the selected row: when they are there, where they stand, how an edit ends.
#include "tests/list/windows/GridTest.h"

#include "list/WindowIds.h"

namespace {

constexpr LONG kWithButton = E_PROP_EDIT_VALUE | E_PROP_EDIT_SHOW_EXTENDED_INFO;

class Editors : public GridTest {
protected:
    CprpExtendedButton& Button(LONG id = 1) { return grid.Item(id).m_btnExtended; }
    void ClickButton(LONG id = 1)
    {
        const HWND button = Button(id).Handle();
        ClickAt(button, {5, 5});
    }
};
class TextBoxes : public Editors {};
class EndOfAnEdit : public Editors {
protected:
    void SetUp() override
    {
        ShowNumbers(2);
        OpenEditor(1);
    }
};

} // namespace

TEST_F(Editors, AreMadeByThePaintOfTheSelectedRow)
{
    ShowNumbers(2);
    grid.Look();
    EXPECT_FALSE(TextBox(1).Exists());
    Select(1);
    grid.Look();
    EXPECT_TRUE(TextBox(1).Exists());
    EXPECT_FALSE(TextBox(1).HasFocus()); // no edit starts by itself
    Select(2);
    grid.Look();
    EXPECT_FALSE(TextBox(1).Exists());
    EXPECT_TRUE(TextBox(2).Exists());
}

TEST_F(Editors, AreAbsentFromAReadOnlyRow)
{
    ShowOne(E_PROP_DT_DOUBLE, kWithButton);
    grid.Click(1);
    EXPECT_TRUE(TextBox().Exists());
    EXPECT_TRUE(Button().Exists());
    SetReadOnly(1);
    EXPECT_FALSE(TextBox().Exists());
    EXPECT_FALSE(Button().Exists());
    SetReadOnly(1, false);
    EXPECT_TRUE(TextBox().Exists());
    EXPECT_TRUE(Button().Exists());
}

TEST_F(Editors, AreAbsentFromAListWithoutEditing)
{
    grid.list.m_bAllowEditing = false;
    ShowOne(E_PROP_DT_DOUBLE, kWithButton);
    grid.Click(1);
    EXPECT_FALSE(TextBox().Exists());
    EXPECT_FALSE(Button().Exists());
}

TEST_F(Editors, FollowTheEditFlags)
{
    ShowOne(E_PROP_DT_DOUBLE, E_PROP_EDIT_SHOW_EXTENDED_INFO);
    grid.Click(1);
    EXPECT_FALSE(TextBox().Exists());
    EXPECT_TRUE(Button().Exists());
    grid.Change(1, [](IqorProperty* property) { EXPECT_EQ(property->SetEditFlags(E_PROP_EDIT_VALUE), S_OK); });
    grid.Item(1).Refresh();
    grid.Look();
    EXPECT_TRUE(TextBox().Exists());
    EXPECT_FALSE(Button().Exists());
}

TEST_F(Editors, HaveNoButtonInAListWithoutExtendedInfoAfterTheNextRefresh)
{
    ShowOne(E_PROP_DT_DOUBLE, kWithButton);
    grid.Click(1);
    grid.list.m_bShowExtendedInfo = false;
    grid.Look();
    EXPECT_TRUE(Button().Exists());
    grid.Item(1).Refresh();
    grid.Look();
    EXPECT_FALSE(Button().Exists());
}

TEST_F(Editors, ShareTheCell)
{
    ShowOne(E_PROP_DT_DOUBLE, kWithButton);
    grid.Click(1);
    const Rect data = grid.Rects(1).data;
    EXPECT_EQ(PlaceInList(Button().Handle()), (Rect{data.right - data.Height(), data.top, data.right, data.bottom}));
    const Rect box = PlaceInList(TextBox().Handle());
    EXPECT_EQ(box, (Rect{data.left + 1, data.top + (data.Height() - grid.list.TextHeight()) / 2,
                         data.right - data.Height(), data.bottom - 1}));
}

TEST_F(Editors, ButtonIsAButtonOfTheListInItsFont)
{
    ShowOne(E_PROP_DT_DOUBLE, kWithButton);
    grid.Click(1);
    EXPECT_EQ(Button().WindowText(), OLESTR("..."));
    EXPECT_EQ(GetDlgCtrlID(Button().Handle()), 506);
    EXPECT_EQ(GetParent(Button().Handle()), grid.list.Handle());
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(Button().Handle(), GWL_STYLE));
    EXPECT_EQ(style & (WS_CHILD | WS_VISIBLE), WS_CHILD | WS_VISIBLE);
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(Button().Send(WM_GETFONT)), sizeof font, &font);
    EXPECT_EQ(font.lfHeight, -11);
}

TEST_F(Editors, ButtonTellsTheHostWhichRowItBelongsTo)
{
    grid.Add(1, E_PROP_DT_DOUBLE, E_PROP_ID_TOP_LEVEL, kWithButton);
    grid.Add(2, E_PROP_DT_DOUBLE, E_PROP_ID_TOP_LEVEL, kWithButton);
    grid.Show();
    grid.Click(2);
    grid.Sounds();
    ClickButton(2);
    EXPECT_THAT(grid.Sounds(), ElementsAre("Button 2"));
}

TEST_F(Editors, ButtonTakesTheFocusWhichCommitsBeforeItsEvent)
{
    ShowOne(E_PROP_DT_DOUBLE, kWithButton);
    OpenEditor(1);
    TypeOver(L"3");
    ClickButton();
    EXPECT_THAT(grid.Sounds(), ElementsAre("InPlaceEditEnd", "MultiEditStart", "Stream", "MultiEditEnd", "Button 1"));
    EXPECT_EQ(grid.ValueOf(1), OLESTR("3"));
}

TEST_F(Editors, ButtonMayTakeTheRowAway)
{
    ShowOne(E_PROP_DT_DOUBLE, kWithButton);
    grid.Click(1);
    grid.reactions["Button"] = [this] { grid.list.Clear(); };
    ClickButton();
    EXPECT_EQ(grid.list.GetCount(), 0);
    EXPECT_THAT(grid.Sounds(), Contains("Button 1"));
}

TEST_F(Editors, ReturnPressesTheButtonOfARowWithoutATextBox)
{
    ShowOne(E_PROP_DT_DOUBLE, E_PROP_EDIT_SHOW_EXTENDED_INFO);
    SetFocus(grid.list.Handle());
    grid.Sounds();
    PressKey(VK_RETURN);
    EXPECT_THAT(grid.Sounds(), ElementsAre("Return", "Button 1"));
}

TEST_F(Editors, ReturnReachesTheButtonAlsoWithEditingSwitchedOff)
{
    grid.list.m_bAllowEditing = false;
    ShowOne(E_PROP_DT_DOUBLE, kWithButton);
    SetFocus(grid.list.Handle());
    PressKey(VK_RETURN);
    EXPECT_THAT(grid.Sounds(), ElementsAre("Return", "Button 1"));
}

TEST_F(Editors, ReturnDoesNothingOnAReadOnlyRow)
{
    ShowOne(E_PROP_DT_DOUBLE, kWithButton);
    SetReadOnly(1);
    SetFocus(grid.list.Handle());
    grid.Sounds();
    PressKey(VK_RETURN);
    EXPECT_THAT(grid.Sounds(), ElementsAre("Return"));
    EXPECT_TRUE(ListHasFocus());
}

TEST_F(TextBoxes, IsAnEditFieldOfTheListWithMargins)
{
    ShowNumbers(1);
    grid.Click(1);
    OLECHAR name[16] = {};
    GetClassNameW(TextBox().Handle(), name, 16);
    EXPECT_EQ(CompareStringOrdinal(name, -1, L"Edit", -1, TRUE), CSTR_EQUAL);
    EXPECT_EQ(GetDlgCtrlID(TextBox().Handle()), 507);
    EXPECT_EQ(GetParent(TextBox().Handle()), grid.list.Handle());
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(TextBox().Handle(), GWL_STYLE));
    EXPECT_EQ(style & (WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL), WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL);
    EXPECT_EQ(TextBox().Send(EM_GETMARGINS), MAKELRESULT(4, 4));
    EXPECT_EQ(grid.Item(1).GetEditWindow(), TextBox().Handle());
}

TEST_F(TextBoxes, StandsHalfTheSpareHeightBelowTheTopOfItsCell)
{
    ShowNumbers(2);
    grid.list.SetRowHeight(1, 41);
    grid.Click(2);
    const Rect data = grid.Rects(2).data;
    const int room = 41 - grid.list.TextHeight();
    EXPECT_EQ(PlaceInList(TextBox(2).Handle()),
              (Rect{data.left + 1, data.top + room / 2, data.right, data.bottom - 1}));
}

TEST_F(TextBoxes, OpensWithItsWholeTextSelectedAndNothingToUndo)
{
    ShowNumbers(1);
    SetValue(1, OLESTR("12.5"));
    grid.Click(1);
    grid.Sounds();
    PressKey(VK_RETURN);
    EXPECT_TRUE(TextBox().HasFocus());
    EXPECT_EQ(TextBox().GetSel(), std::pair(0, 4));
    EXPECT_FALSE(TextBox().Send(EM_CANUNDO));
    EXPECT_THAT(grid.Sounds(), ElementsAre("Return", "InPlaceEditStart"));
}

TEST_F(TextBoxes, WithoutTheFocusShowsWhatTheRowShows)
{
    ShowNumbers(1);
    grid.Click(1);
    SetFocus(grid.list.Handle());
    SetValue(1, OLESTR("6.5"));
    EXPECT_EQ(TextBox().WindowText(), OLESTR("6.5"));
    TextBox().PutText(OLESTR("stray"));
    grid.Look();
    EXPECT_EQ(TextBox().WindowText(), OLESTR("6.5"));
}

TEST_F(TextBoxes, WithTheFocusKeepsWhatTheUserTypes)
{
    ShowNumbers(1);
    OpenEditor(1);
    TypeOver(L"77");
    SetValue(1, OLESTR("6.5")); // from elsewhere
    grid.Look();
    EXPECT_EQ(FocusedText(), OLESTR("77"));
    EXPECT_EQ(grid.Item(1).m_strData, OLESTR("6.5"));
}

TEST_F(TextBoxes, LimitsWhatIsTypedByItsKind)
{
    grid.Add(1, E_PROP_DT_DOUBLE);
    grid.Add(2, E_PROP_DT_LONG);
    grid.Add(3, E_PROP_DT_DWORD);
    grid.Add(4, E_PROP_DT_STRING_UNICODE);
    grid.Show();
    for (const auto& [id, limit] : {std::pair{1, 15}, std::pair{2, 9}, std::pair{3, 9}, std::pair{4, 500}}) {
        OpenEditor(id);
        TypeCharacters(std::wstring(static_cast<std::size_t>(limit) + 3, L'1'));
        EXPECT_EQ(FocusedText().size(), static_cast<std::size_t>(limit)) << id;
        EXPECT_EQ(TextBox(id).Send(EM_GETLIMITTEXT), limit) << id;
    }
}

TEST_F(EndOfAnEdit, ByReturnCommitsOnce)
{
    TypeOver(L"2.5");
    PressKey(VK_RETURN);
    EXPECT_THAT(grid.Sounds(), ElementsAre("InPlaceEditEnd", "MultiEditStart", "Stream", "MultiEditEnd"));
    EXPECT_EQ(grid.ValueOf(1), OLESTR("2.5"));
    EXPECT_TRUE(ListHasFocus());
    EXPECT_TRUE(TextBox(1).Exists());
    SetFocus(grid.window);
    EXPECT_THAT(grid.Sounds(), IsEmpty());
}

TEST_F(EndOfAnEdit, ByReturnOnAnUntouchedTextWritesNothing)
{
    PressKey(VK_RETURN);
    EXPECT_THAT(grid.Sounds(), ElementsAre("InPlaceEditEnd"));
    EXPECT_TRUE(ListHasFocus());
}

TEST_F(EndOfAnEdit, ByEscapeDiscardsInSilence)
{
    TypeOver(L"2.5");
    PressKey(VK_ESCAPE);
    EXPECT_THAT(grid.Sounds(), IsEmpty());
    EXPECT_EQ(grid.ValueOf(1), OLESTR("0"));
    EXPECT_TRUE(ListHasFocus());
    grid.Look();
    EXPECT_EQ(TextBox(1).WindowText(), OLESTR("0"));
}

TEST_F(EndOfAnEdit, ByLossOfFocusCommits)
{
    TypeOver(L"2.5");
    SetFocus(grid.window);
    EXPECT_THAT(grid.Sounds(), ElementsAre("InPlaceEditEnd", "MultiEditStart", "Stream", "MultiEditEnd"));
    EXPECT_EQ(grid.ValueOf(1), OLESTR("2.5"));
}

TEST_F(EndOfAnEdit, StartsAgainWhenTheFocusComesBack)
{
    PressKey(VK_RETURN);
    grid.Sounds();
    SetFocus(TextBox(1).Handle());
    EXPECT_THAT(grid.Sounds(), ElementsAre("InPlaceEditStart"));
    TypeOver(L"9");
    SetFocus(grid.window); // commits, though the Return before had said not to
    EXPECT_EQ(grid.ValueOf(1), OLESTR("9"));
}

TEST_F(EndOfAnEdit, ByTheHostCommitsOrCancels)
{
    TypeOver(L"2.5");
    grid.list.EndEdit();
    EXPECT_FALSE(TextBox(1).Exists());
    EXPECT_EQ(grid.ValueOf(1), OLESTR("2.5"));
    EXPECT_TRUE(ListHasFocus());
    OpenEditor(1);
    TypeOver(L"7");
    grid.list.CancelEdit();
    EXPECT_FALSE(TextBox(1).Exists());
    EXPECT_EQ(grid.ValueOf(1), OLESTR("2.5"));
    EXPECT_THAT(grid.Sounds(), IsEmpty());
    EXPECT_TRUE(ListHasFocus());
}

TEST_F(EndOfAnEdit, WithoutTheFocusCommitsNothing)
{
    SetFocus(grid.list.Handle());
    grid.Sounds();
    TextBox(1).PutText(OLESTR("8"));
    grid.list.EndEdit();
    EXPECT_EQ(grid.ValueOf(1), OLESTR("0"));
    EXPECT_THAT(grid.Sounds(), IsEmpty());
}

TEST_F(EndOfAnEdit, ByTheEndOfTheWindowCommits)
{
    TypeOver(L"2.5");
    grid.list.Destroy();
    EXPECT_EQ(grid.ValueOf(1), OLESTR("2.5"));
}

TEST_F(EndOfAnEdit, ByClearCommits)
{
    TypeOver(L"2.5");
    grid.list.Clear();
    EXPECT_EQ(grid.ValueOf(1), OLESTR("2.5"));
}

TEST_F(EndOfAnEdit, ByHidingTheRowCommits)
{
    TypeOver(L"2.5");
    SetVisible(1, false);
    EXPECT_THAT(Rows(), ElementsAre(2));
    EXPECT_EQ(grid.ValueOf(1), OLESTR("2.5"));
}

TEST_F(EndOfAnEdit, ByTheKeyboardAloneGoesRoundTheWholeList)
{
    PressKey(VK_RETURN);
    PressKey(VK_DOWN);
    EXPECT_EQ(Selected(), 2);
    PressKey(VK_RIGHT);
    ASSERT_TRUE(TextBox(2).HasFocus());
    TypeCharacters(L"31");
    PressKey(VK_RETURN);
    EXPECT_EQ(grid.ValueOf(2), OLESTR("31"));
    PressKey(VK_UP);
    EXPECT_EQ(Selected(), 1);
}
