// The keyboard on the rows. -2 means that the list has done everything, -1 that the platform's list box acts too.
#include "tests/list/windows/GridTest.h"

namespace {

constexpr LRESULT kHandled = -2;
constexpr LRESULT kPlatformActs = -1;
constexpr UINT kNavigation[] = {VK_PRIOR, VK_NEXT, VK_HOME, VK_END, VK_UP, VK_DOWN};

/// The keys that collapse, each with the one that expands.
constexpr std::pair<UINT, UINT> kToggling[] = {{VK_LEFT, VK_RIGHT}, {VK_SUBTRACT, VK_ADD}, {VK_OEM_MINUS, VK_OEM_PLUS}};

class Keys : public GridTest {};
class ShiftedKeys : public GridTest {
protected:
    void SetUp() override
    {
        ShowNumbers(3);
        grid.Click(2);
        grid.Sounds();
    }
    HeldKey shift{VK_SHIFT};
};

} // namespace

TEST_F(Keys, OfNavigationTellTheParentAndLetThePlatformMove)
{
    ShowNumbers(3);
    Select(2);
    for (const UINT key : kNavigation) {
        EXPECT_EQ(AnswerTo(key), kPlatformActs) << key;
        EXPECT_THAT(grid.Sounds(), ElementsAre("Select 2")) << key; // asked for alone, nothing has moved
    }
}

TEST_F(Keys, TellTheParentOfTheRowThatThePlatformHasMovedTo)
{
    ShowNumbers(3);
    SetFocus(grid.list.Handle());
    PressKey(VK_DOWN);
    EXPECT_THAT(grid.Sounds(), ElementsAre("Select 2"));
    PressKey(VK_END);
    EXPECT_THAT(grid.Sounds(), ElementsAre("Select 3"));
    PressKey(VK_DOWN); // moves nothing, and is told all the same
    EXPECT_THAT(grid.Sounds(), ElementsAre("Select 3"));
    PressKey(VK_HOME);
    EXPECT_THAT(grid.Sounds(), ElementsAre("Select 1"));
}

TEST_F(Keys, ReachEveryRow)
{
    ShowCategories();
    SetFocus(grid.list.Handle());
    std::vector<LONG> reached{Selected()};
    for (int i = 1; i < 7; ++i) {
        PressKey(VK_DOWN);
        reached.push_back(Selected());
    }
    EXPECT_THAT(reached, ElementsAre(10, 11, 12, 15, 20, 21, 22));
}

TEST_F(Keys, ReturnAndTabGoToTheParentFirstAndThenToThePlatform)
{
    ShowNumbers(1);
    EXPECT_EQ(AnswerTo(VK_RETURN), kPlatformActs);
    EXPECT_EQ(AnswerTo(VK_TAB), kPlatformActs);
    EXPECT_THAT(grid.heard, ElementsAre("Return", "Tab"));
}

TEST_F(Keys, DeleteGoesToTheParentAlone)
{
    ShowNumbers(1);
    EXPECT_EQ(AnswerTo(VK_DELETE), kHandled);
    EXPECT_THAT(grid.heard, ElementsAre("Delete"));
}

TEST_F(Keys, AppsAsksTheParentForAMenuAtThePointer)
{
    ShowNumbers(1);
    SetCursorPos(77, 66);
    EXPECT_EQ(AnswerTo(VK_APPS), kHandled);
    EXPECT_THAT(grid.heard, ElementsAre("RightDown"));
    POINT pointer{77, 66};
    ScreenToClient(grid.list.Handle(), &pointer);
    EXPECT_EQ(grid.rightDownAt, (Point{static_cast<int>(pointer.x), static_cast<int>(pointer.y)}));
    SetCursorPos(0, 0);
}

TEST_F(Keys, F5ReadsAllPropertiesAnewAndRedraws)
{
    ShowNumbers(1);
    Transact(
        grid.collections[0], [&] { SetString(PropertyOf(grid.collections[0], 1), OLESTR("3")); }, false);
    EXPECT_EQ(grid.Item(1).m_strData, OLESTR("0"));
    const Picture before(grid.list.Handle());
    EXPECT_EQ(AnswerTo(VK_F5), kHandled);
    EXPECT_EQ(grid.Item(1).m_strData, OLESTR("3"));
    EXPECT_FALSE(Picture(grid.list.Handle()).SameIn(grid.Rects(1).data, before));
}

TEST_F(Keys, OfOtherKindsAreLeftToThePlatform)
{
    ShowNumbers(1);
    for (const UINT key : {UINT{'A'}, UINT{'7'}, UINT{VK_F2}, UINT{VK_ESCAPE}, UINT{VK_SPACE}})
        EXPECT_EQ(AnswerTo(key), kPlatformActs) << key;
    EXPECT_THAT(grid.Sounds(), IsEmpty());
}

TEST_F(Keys, NeverSelectByTheirCharacter)
{
    ShowNumbers(3);
    EXPECT_EQ(
        SendMessageW(grid.window, WM_CHARTOITEM, MAKEWPARAM('I', 0), reinterpret_cast<LPARAM>(grid.list.Handle())),
        kHandled);
}

TEST_F(Keys, CollapseAndExpandByEachKeyOfTheirGroups)
{
    ShowCategories();
    Select(10);
    for (const auto& [collapse, expand] : kToggling) {
        EXPECT_EQ(AnswerTo(collapse), kHandled);
        EXPECT_THAT(Rows(), ElementsAre(10, 15, 20, 21, 22));
        EXPECT_THAT(grid.Sounds(), ElementsAre("Toggle 10 collapsed"));
        EXPECT_EQ(AnswerTo(expand), kHandled);
        EXPECT_THAT(Rows(), ElementsAre(10, 11, 12, 15, 20, 21, 22));
        EXPECT_THAT(grid.Sounds(), ElementsAre("Toggle 10 expanded"));
        EXPECT_EQ(Selected(), 10);
    }
}

TEST_F(Keys, LeftOnALeafOrACollapsedRowIsThePlatformsUp)
{
    ShowCategories();
    SetFocus(grid.list.Handle());
    Select(12);
    EXPECT_EQ(AnswerTo(VK_LEFT), kPlatformActs);
    EXPECT_THAT(grid.Sounds(), ElementsAre("Select 12"));
    PressKey(VK_LEFT);
    EXPECT_THAT(grid.Sounds(), ElementsAre("Select 11"));
    grid.list.ExpandCollapse(grid.Item(20));
    Select(20);
    PressKey(VK_LEFT);
    EXPECT_THAT(grid.Sounds(), ElementsAre("Select 15"));
    EXPECT_TRUE(grid.Item(20).m_bCollapsed);
}

TEST_F(Keys, RightOnALeafOpensItsEditor)
{
    ShowNumbers(2);
    SetFocus(grid.list.Handle());
    Select(2); // not painted yet: the editor is made on the way
    EXPECT_EQ(AnswerTo(VK_RIGHT), kHandled);
    EXPECT_TRUE(TextBox(2).HasFocus());
    EXPECT_THAT(grid.Sounds(), ElementsAre("InPlaceEditStart"));
}

TEST_F(Keys, RightOnAnExpandedCategoryDoesNothing)
{
    ShowCategories();
    Select(10);
    EXPECT_EQ(AnswerTo(VK_RIGHT), kHandled);
    EXPECT_THAT(Rows(), ElementsAre(10, 11, 12, 15, 20, 21, 22));
    EXPECT_THAT(grid.Sounds(), IsEmpty());
}

TEST_F(Keys, WithoutASelectionLeftTellsTheParentAndRightDoesNothing)
{
    ShowNumbers(2);
    ASSERT_EQ(grid.list.GetCurSel(), -1);
    EXPECT_EQ(AnswerTo(VK_LEFT), kPlatformActs);
    EXPECT_THAT(grid.Sounds(), ElementsAre("Select -1"));
    EXPECT_EQ(AnswerTo(VK_RIGHT), kPlatformActs);
    EXPECT_THAT(grid.Sounds(), IsEmpty());
}

TEST_F(Keys, CollapsingDoesNotScroll)
{
    for (LONG id = 1; id <= 30; ++id)
        grid.Add(id, E_PROP_DT_DOUBLE);
    grid.Add(40, E_PROP_DT_CATEGORY);
    grid.Add(41, E_PROP_DT_DOUBLE, 40);
    grid.Show();
    Select(40);
    const int top = grid.list.GetTopIndex();
    AnswerTo(VK_LEFT);
    EXPECT_EQ(grid.list.GetTopIndex(), top);
}

TEST_F(ShiftedKeys, MoveTheDividerByTwo)
{
    EXPECT_EQ(AnswerTo(VK_LEFT), kHandled);
    EXPECT_EQ(grid.list.m_nDividerPos, 98);
    EXPECT_EQ(AnswerTo(VK_ADD), kHandled);
    EXPECT_EQ(AnswerTo(VK_OEM_PLUS), kHandled);
    EXPECT_EQ(grid.list.m_nDividerPos, 102);
    EXPECT_EQ(AnswerTo(VK_SUBTRACT), kHandled);
    EXPECT_EQ(grid.list.m_nDividerPos, 100);
    EXPECT_THAT(grid.Sounds(), IsEmpty());
}

TEST_F(ShiftedKeys, EndTheEditAndTheTip)
{
    grid.list.Send(WM_MOUSEMOVE, 0, At(grid.NamePoint(1)));
    ASSERT_NE(grid.list.m_nTipItem, -1);
    ASSERT_TRUE(TextBox(2).Exists());
    AnswerTo(VK_LEFT);
    EXPECT_FALSE(TextBox(2).Exists());
    EXPECT_EQ(grid.list.m_nTipItem, -1);
    UpdateWindow(grid.list.Handle());
    EXPECT_EQ(PlaceInList(TextBox(2).Handle()).left, 99);
}

TEST_F(ShiftedKeys, NeverTakeTheDividerBelowForty)
{
    grid.list.m_nDividerPos = 42;
    AnswerTo(VK_LEFT);
    EXPECT_EQ(grid.list.m_nDividerPos, 40);
    EXPECT_FALSE(TextBox(2).Exists()); // repainted
    grid.Look();
    for (const int start : {41, 40}) {
        grid.list.m_nDividerPos = start;
        EXPECT_EQ(AnswerTo(VK_LEFT), kHandled);
        EXPECT_EQ(grid.list.m_nDividerPos, 40);
        EXPECT_TRUE(TextBox(2).Exists()) << start; // not repainted
        EXPECT_FALSE(GetUpdateRect(grid.list.Handle(), nullptr, FALSE)) << start;
    }
}

TEST_F(ShiftedKeys, NeverTakeTheDividerBeyondTheWindowWidthLessForty)
{
    grid.list.m_nDividerPos = 258;
    AnswerTo(VK_RIGHT);
    EXPECT_EQ(grid.list.m_nDividerPos, 260);
    EXPECT_FALSE(TextBox(2).Exists());
    grid.Look();
    for (const int start : {259, 260}) {
        grid.list.m_nDividerPos = start;
        EXPECT_EQ(AnswerTo(VK_RIGHT), kHandled);
        EXPECT_EQ(grid.list.m_nDividerPos, 260);
        EXPECT_TRUE(TextBox(2).Exists()) << start;
    }
}

TEST_F(ShiftedKeys, LeaveAnExpandedRowOpen)
{
    grid.Clear();
    grid.collections.clear();
    ShowCategories();
    Select(10);
    EXPECT_EQ(AnswerTo(VK_LEFT), kHandled);
    EXPECT_FALSE(grid.Item(10).m_bCollapsed);
    EXPECT_EQ(grid.list.m_nDividerPos, 98);
}
