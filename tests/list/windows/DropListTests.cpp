// Rows of enumerations and their drop lists.
#include "tests/list/windows/GridTest.h"

namespace {

constexpr LONG kWithButton = E_PROP_EDIT_VALUE | E_PROP_EDIT_SHOW_EXTENDED_INFO;

class DropList : public GridTest {
protected:
    struct Entry {
        LONG value;
        Text text;
        bool shown = true;
    };
    void AddEntries(const std::vector<Entry>& entries, LONG editFlags = E_PROP_EDIT_VALUE)
    {
        grid.Add(1, E_PROP_DT_ENUM, E_PROP_ID_TOP_LEVEL, editFlags);
        grid.Add(2, E_PROP_DT_DOUBLE);
        for (std::size_t i = 0; i < grid.collections.size(); ++i) {
            grid.Change(
                1,
                [&](IqorProperty* property) {
                    LONG index = 0;
                    for (const Entry& entry : entries) {
                        SprpEnumItem item{entry.value, 0, entry.shown ? VARIANT_TRUE : VARIANT_FALSE};
                        EXPECT_EQ(property->AddEnumItem(index, &item), S_OK);
                        EXPECT_EQ(property->AddEnumItemString(index, Bstr(entry.text)), S_OK);
                        ++index;
                    }
                },
                i);
        }
    }
    void ShowColours(LONG editFlags = E_PROP_EDIT_VALUE)
    {
        AddEntries({{3, OLESTR("Red")}, {5, OLESTR("Hidden"), false}, {7, OLESTR("Green")}, {9, OLESTR("Blue")}},
                   editFlags);
        grid.Show();
        SetEnum(3);
    }
    void SetEnum(LONG value, std::size_t collection = 0)
    {
        grid.Change(
            1, [&](IqorProperty* property) { SetLong(property, value); }, collection);
    }
    LONG Value(std::size_t collection = 0)
    {
        LONG value = 0;
        Transact(
            grid.collections[collection], [&] { value = LongOf(PropertyOf(grid.collections[collection], 1)); }, false);
        return value;
    }
    HWND Combo() { return GetDlgItem(grid.list.Handle(), 505); }
    HWND Button() { return GetDlgItem(grid.list.Handle(), 506); }
    LRESULT Ask(UINT message, WPARAM wParam = 0) { return SendMessageW(Combo(), message, wParam, 0); }
    Text EntryText(int entry)
    {
        OLECHAR text[64] = {};
        SendMessageW(Combo(), CB_GETLBTEXT, static_cast<WPARAM>(entry), reinterpret_cast<LPARAM>(text));
        return text;
    }
    Text ShownText()
    {
        const LRESULT entry = Ask(CB_GETCURSEL);
        return entry < 0 ? Text(OLESTR("(none)")) : EntryText(static_cast<int>(entry));
    }
    /// Chooses an entry of the open or closed list as the user does: the arrow keys up to it.
    void Choose(const Text& text)
    {
        SetFocus(Combo());
        const LRESULT count = Ask(CB_GETCOUNT);
        for (LRESULT i = 0; i < count && ShownText() != text; ++i)
            SendMessageW(Combo(), CB_SETCURSEL, static_cast<WPARAM>(i), 0);
        ASSERT_EQ(ShownText(), text);
    }
    /// The colours that the list gives a window.
    std::pair<COLORREF, COLORREF> ColoursOf(UINT message, HWND window)
    {
        const WindowDc dc(window);
        grid.list.Send(message, reinterpret_cast<WPARAM>(static_cast<HDC>(dc)), reinterpret_cast<LPARAM>(window));
        return {GetTextColor(dc), GetBkColor(dc)};
    }
};

} // namespace

TEST_F(DropList, ShowsTheTextOfItsValue)
{
    ShowColours();
    EXPECT_EQ(grid.Item(1).m_strData, OLESTR("Red"));
    SetEnum(7);
    EXPECT_EQ(grid.Item(1).m_strData, OLESTR("Green"));
}

TEST_F(DropList, ShowsNothingForAValueWithoutAnEntry)
{
    ShowColours();
    SetEnum(42);
    EXPECT_EQ(grid.Item(1).m_strData, OLESTR(""));
    grid.Click(1);
    EXPECT_EQ(Ask(CB_GETCURSEL), CB_ERR);
}

TEST_F(DropList, IsAComboBoxOverTheCell)
{
    ShowColours();
    grid.Click(1);
    ASSERT_NE(Combo(), nullptr);
    OLECHAR name[16] = {};
    GetClassNameW(Combo(), name, 16);
    EXPECT_EQ(CompareStringOrdinal(name, -1, L"ComboBox", -1, TRUE), CSTR_EQUAL);
    const auto style = static_cast<DWORD>(GetWindowLongPtrW(Combo(), GWL_STYLE));
    // The platform hands the scroll bar on to the list that drops down.
    const DWORD expected = WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST | CBS_NOINTEGRALHEIGHT;
    EXPECT_EQ(style & expected, expected);
    const Rect data = grid.Rects(1).data;
    const Rect place = PlaceInList(Combo());
    EXPECT_EQ(place.left, data.left + 1);
    EXPECT_EQ(place.top, data.top);
    EXPECT_EQ(place.right, data.right);
    EXPECT_EQ(place.bottom, data.bottom - 1);
    EXPECT_EQ(grid.Item(1).GetEditWindow(), nullptr);
}

TEST_F(DropList, LeavesRoomForAButton)
{
    ShowColours(kWithButton);
    grid.Click(1);
    const Rect data = grid.Rects(1).data;
    EXPECT_EQ(PlaceInList(Combo()).right, data.right - data.Height());
    EXPECT_EQ(PlaceInList(Button()), (Rect{data.right - data.Height(), data.top, data.right, data.bottom}));
}

TEST_F(DropList, GivesWayToAButtonAloneWhereTheValueIsNotEdited)
{
    ShowColours(E_PROP_EDIT_SHOW_EXTENDED_INFO);
    grid.Click(1);
    EXPECT_EQ(Combo(), nullptr);
    ASSERT_NE(Button(), nullptr);
    grid.Sounds();
    PressKey(VK_RETURN);
    EXPECT_THAT(grid.Sounds(), ElementsAre("Return", "Button 1"));
}

TEST_F(DropList, HoldsTheShownEntriesWithTheirValues)
{
    ShowColours();
    grid.Click(1);
    ASSERT_EQ(Ask(CB_GETCOUNT), 3);
    EXPECT_EQ(EntryText(0), OLESTR("Red"));
    EXPECT_EQ(EntryText(1), OLESTR("Green"));
    EXPECT_EQ(EntryText(2), OLESTR("Blue"));
    EXPECT_EQ(Ask(CB_GETITEMDATA, 1), 7);
    EXPECT_EQ(ShownText(), OLESTR("Red"));
}

TEST_F(DropList, EndsAtAnEntryWithoutAText)
{
    AddEntries({{3, OLESTR("Red")}, {5, OLESTR("")}, {7, OLESTR("Green")}});
    grid.Show();
    grid.Click(1);
    EXPECT_EQ(Ask(CB_GETCOUNT), 1);
}

TEST_F(DropList, SelectsTheWholeTextAheadOfOneThatBeginsWithIt)
{
    AddEntries({{3, OLESTR("Redder")}, {5, OLESTR("Red")}, {7, OLESTR("Reddest")}});
    grid.Show();
    SetEnum(5);
    grid.Click(1);
    EXPECT_EQ(ShownText(), OLESTR("Red"));
    grid.Click(2); // loses the focus it may have had
    EXPECT_EQ(Value(), 5);
}

TEST_F(DropList, FollowsItsValueWhileItIsOpen)
{
    ShowColours();
    grid.Click(1);
    SetEnum(9);
    EXPECT_EQ(ShownText(), OLESTR("Blue"));
    EXPECT_EQ(grid.Item(1).m_strData, OLESTR("Blue"));
}

TEST_F(DropList, DoesNotFollowEntriesThatAreShownLater)
{
    ShowColours();
    grid.Click(1);
    grid.Change(1, [](IqorProperty* property) { EXPECT_EQ(property->ShowEnumItem(1, VARIANT_TRUE), S_OK); });
    EXPECT_EQ(Ask(CB_GETCOUNT), 3);
    grid.Click(2);
    grid.Click(1);
    EXPECT_EQ(Ask(CB_GETCOUNT), 4);
}

TEST_F(DropList, OpensByReturn)
{
    ShowColours();
    SetFocus(grid.list.Handle());
    Select(1);
    PressKey(VK_RETURN);
    EXPECT_EQ(GetFocus(), Combo());
    EXPECT_TRUE(Ask(CB_GETDROPPEDSTATE));
    EXPECT_EQ(ShownText(), OLESTR("Red"));
    EXPECT_THAT(grid.Sounds(), Not(Contains("InPlaceEditStart")));
}

TEST_F(DropList, IsNotOpenedOnAReadOnlyRow)
{
    ShowColours(kWithButton);
    SetReadOnly(1);
    SetFocus(grid.list.Handle());
    Select(1);
    grid.Sounds();
    PressKey(VK_RETURN);
    EXPECT_EQ(Combo(), nullptr);
    EXPECT_THAT(grid.Sounds(), ElementsAre("Return"));
}

TEST_F(DropList, CommitsAChosenEntryOnce)
{
    ShowColours();
    OpenEditor(1);
    PressKey(VK_DOWN);
    PressKey(VK_RETURN);
    EXPECT_EQ(Value(), 7);
    EXPECT_THAT(grid.Sounds(), ElementsAre("MultiEditStart", "Stream", "MultiEditEnd"));
    EXPECT_TRUE(ListHasFocus());
    SetFocus(grid.window);
    EXPECT_THAT(grid.Sounds(), IsEmpty());
}

TEST_F(DropList, CommitsItsEntryWhenItLosesTheFocus)
{
    ShowColours();
    grid.Click(1);
    Choose(OLESTR("Blue"));
    grid.Sounds();
    SetFocus(grid.window);
    EXPECT_EQ(Value(), 9);
    EXPECT_THAT(grid.Sounds(), ElementsAre("MultiEditStart", "Stream", "MultiEditEnd"));
}

TEST_F(DropList, WritesNothingForTheEntryThatStands)
{
    ShowColours();
    OpenEditor(1);
    PressKey(VK_RETURN);
    EXPECT_THAT(grid.Sounds(), IsEmpty());
    EXPECT_EQ(Value(), 3);
}

TEST_F(DropList, WritesTheValueToEveryCollection)
{
    grid.AddCollection();
    grid.AddCollection();
    ShowColours();
    SetEnum(3, 1);
    grid.Click(1);
    Choose(OLESTR("Green"));
    SetFocus(grid.list.Handle());
    EXPECT_EQ(Value(0), 7);
    EXPECT_EQ(Value(1), 7);
}

TEST_F(DropList, ShowsNoEntryWhereCollectionsDiffer)
{
    grid.AddCollection();
    grid.AddCollection();
    ShowColours();
    SetEnum(9, 1);
    EXPECT_EQ(grid.Item(1).m_strData, OLESTR(""));
    grid.Click(1);
    EXPECT_EQ(Ask(CB_GETCURSEL), CB_ERR);
    OpenEditor(1);
    EXPECT_EQ(Ask(CB_GETCURSEL), CB_ERR);
    SetFocus(grid.window); // nothing is chosen, nothing is written
    EXPECT_EQ(Value(0), 3);
    EXPECT_EQ(Value(1), 9);
}

TEST_F(DropList, LosesItsEntryWhenCollectionsBeginToDiffer)
{
    grid.AddCollection();
    grid.AddCollection();
    ShowColours();
    SetEnum(3, 1);
    grid.Click(1);
    EXPECT_EQ(ShownText(), OLESTR("Red"));
    SetEnum(9, 1);
    EXPECT_EQ(ShownText(), OLESTR("(none)"));
}

TEST_F(DropList, HasNoCancel)
{
    ShowColours();
    grid.Click(1);
    Choose(OLESTR("Blue"));
    grid.list.CancelEdit(); // destroys it, which takes the focus, which commits
    EXPECT_EQ(Combo(), nullptr);
    EXPECT_EQ(Value(), 9);
}

TEST_F(DropList, GivesTheFocusBackToTheListByEscape)
{
    ShowColours();
    OpenEditor(1);
    ASSERT_TRUE(Ask(CB_GETDROPPEDSTATE));
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(ListHasFocus());
    EXPECT_EQ(Value(), 3);
}

TEST_F(DropList, DoesNotTakeTheFocusBackFromAnotherWindow)
{
    ShowColours();
    OpenEditor(1);
    SetFocus(grid.window);
    EXPECT_EQ(GetFocus(), grid.window);
}

TEST_F(DropList, TakesItsButtonAlong)
{
    ShowColours(kWithButton);
    grid.Click(1);
    ASSERT_NE(Button(), nullptr);
    grid.list.EndEdit();
    EXPECT_EQ(Combo(), nullptr);
    EXPECT_EQ(Button(), nullptr);
}

TEST_F(DropList, MovesWithTheDividerAndSelectsItsTextAgain)
{
    ShowColours();
    grid.Click(1);
    SendMessageW(Combo(), CB_SETCURSEL, 2, 0);
    grid.Look();
    EXPECT_EQ(ShownText(), OLESTR("Blue")); // it has not moved
    grid.list.m_nDividerPos = 130;
    grid.Look();
    EXPECT_EQ(PlaceInList(Combo()).left, 131);
    EXPECT_EQ(ShownText(), OLESTR("Red"));
}

TEST_F(DropList, IsColouredByTheStateOfItsRow)
{
    ShowColours();
    grid.Click(1);
    using Colours = std::pair<COLORREF, COLORREF>;
    EXPECT_EQ(ColoursOf(WM_CTLCOLOREDIT, Combo()), Colours(TestColours::normalText, TestColours::background));
    SetInvalid(1, OLESTR("bad"));
    EXPECT_EQ(ColoursOf(WM_CTLCOLOREDIT, Combo()), Colours(TestColours::invalidText, TestColours::background));
}

TEST_F(DropList, OfARowInErrorKeepsItsOpenedListPlain)
{
    ShowColours();
    SetInvalid(1, OLESTR("bad"));
    OpenEditor(1);
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    ASSERT_TRUE(GetComboBoxInfo(Combo(), &info));
    ASSERT_TRUE(Ask(CB_GETDROPPEDSTATE));
    EXPECT_EQ(ColoursOf(WM_CTLCOLORLISTBOX, info.hwndList).first, TestColours::normalText);
    EXPECT_EQ(ColoursOf(WM_CTLCOLOREDIT, Combo()).first, TestColours::invalidText);
    Ask(CB_SHOWDROPDOWN, FALSE);
    EXPECT_EQ(ColoursOf(WM_CTLCOLORLISTBOX, info.hwndList).first, TestColours::invalidText);
}

TEST_F(DropList, CentresTheTextOfItsCell)
{
    ShowColours();
    grid.list.m_bAllowEditing = false;
    grid.list.SetRowHeight(0, 61);
    grid.list.SetRowHeight(1, 61);
    const Picture look = grid.Look();
    const Rect cell = grid.Rects(1).data;
    EXPECT_TRUE(look.IsFilled({cell.left + 1, cell.top, cell.right, cell.top + 20}, TestColours::background));
    EXPECT_TRUE(look.Shows({cell.left + 1, cell.top + 20, cell.right, cell.top + 40}, TestColours::readOnlyData));
}

TEST_F(DropList, SurvivesAHostThatHidesItsRowInItsCommit)
{
    ShowColours();
    grid.reactions["Stream"] = [this] {
        grid.reactions.clear();
        SetVisible(1, false);
    };
    OpenEditor(1);
    PressKey(VK_DOWN);
    PressKey(VK_RETURN);
    EXPECT_THAT(Rows(), ElementsAre(2));
    EXPECT_EQ(Combo(), nullptr);
    EXPECT_EQ(Value(), 7);
}

TEST_F(DropList, ComesBackAfterAnEndInItsCommit)
{
    ShowColours();
    grid.reactions["Stream"] = [this] { grid.list.EndEdit(); };
    OpenEditor(1);
    PressKey(VK_DOWN);
    PressKey(VK_RETURN);
    EXPECT_EQ(Value(), 7);
    grid.Look();
    ASSERT_NE(Combo(), nullptr);
    EXPECT_TRUE(IsWindowVisible(Combo()));
    EXPECT_EQ(ShownText(), OLESTR("Green"));
}
