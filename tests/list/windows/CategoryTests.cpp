// Category rows: states and summaries of their children, their own ground, no editor.
#include "tests/list/windows/GridTest.h"

namespace {

class Category : public GridTest {
protected:
    CprpPropItem& Row(LONG id) { return grid.Item(id); }
    void Toggle(LONG id) { grid.list.ExpandCollapse(grid.Item(id)); }
};

constexpr const OLECHAR* kErrors = OLESTR("Category contains properties that are in error");
constexpr const OLECHAR* kWarnings = OLESTR("Category contains properties that have warnings.");

} // namespace

TEST_F(Category, StartsExpanded)
{
    ShowCategories();
    EXPECT_FALSE(Row(10).m_bCollapsed);
    EXPECT_TRUE(Row(15).m_bCollapsed);
}

TEST_F(Category, WithoutAVisibleChildIsNotShown)
{
    grid.Add(1, E_PROP_DT_CATEGORY);
    grid.Add(2, E_PROP_DT_CATEGORY);
    grid.Add(3, E_PROP_DT_DOUBLE, 2);
    grid.Show();
    EXPECT_THAT(Rows(), ElementsAre(2, 3));
    SetVisible(3, false);
    EXPECT_THAT(Rows(), IsEmpty());
    SetVisible(3, true);
    EXPECT_THAT(Rows(), ElementsAre(2, 3));
}

TEST_F(Category, ShowsWhileSomeNestedChildIsVisible)
{
    grid.Add(1, E_PROP_DT_CATEGORY);
    grid.Add(2, E_PROP_DT_CATEGORY, 1);
    grid.Add(3, E_PROP_DT_DOUBLE, 2);
    grid.Show();
    SetVisible(3, false);
    EXPECT_THAT(Rows(), IsEmpty());
    SetVisible(3, true); // all missing ancestors come first
    EXPECT_THAT(Rows(), ElementsAre(1, 2, 3));
}

TEST_F(Category, TakesItsStatesFromItsChildrenAlone)
{
    ShowCategories();
    SetInvalid(10, OLESTR("own"));
    EXPECT_FALSE(Row(10).IsInvalid());
    SetInvalid(11, OLESTR("bad"));
    EXPECT_TRUE(Row(10).IsInvalid());
    EXPECT_FALSE(Row(20).IsInvalid());
    SetWarning(21, OLESTR("look"));
    EXPECT_TRUE(Row(20).IsInWarning());
    EXPECT_FALSE(Row(10).IsInWarning());
}

TEST_F(Category, SumsErrorsUpWhileItIsCollapsed)
{
    ShowCategories();
    SetInvalid(11, OLESTR("bad"));
    EXPECT_EQ(Row(10).m_strData, OLESTR(""));
    Toggle(10);
    EXPECT_EQ(Row(10).m_strData, kErrors);
    EXPECT_EQ(Row(10).m_strError, kErrors);
    Toggle(10);
    EXPECT_EQ(Row(10).m_strData, OLESTR(""));
    EXPECT_EQ(Row(10).m_strError, OLESTR(""));
}

TEST_F(Category, SumsWarningsUpUnlessThereAreErrors)
{
    ShowCategories();
    SetWarning(11, OLESTR("look"));
    Toggle(10);
    EXPECT_EQ(Row(10).m_strData, kWarnings);
    EXPECT_EQ(Row(10).m_strError, kWarnings);
    SetInvalid(12, OLESTR("bad"));
    Row(10).Refresh();
    EXPECT_EQ(Row(10).m_strData, kErrors);
}

TEST_F(Category, ReachesThroughNestedCategories)
{
    grid.Add(1, E_PROP_DT_CATEGORY);
    grid.Add(2, E_PROP_DT_CATEGORY, 1);
    grid.Add(3, E_PROP_DT_DOUBLE, 2);
    grid.Show();
    SetInvalid(3, OLESTR("bad"));
    Toggle(1);
    EXPECT_EQ(Row(1).m_strData, kErrors);
}

TEST_F(Category, KeepsItsSummaryUntilItsOwnRefreshButFramesItsBoxAtOnce)
{
    ShowCategories();
    Toggle(10);
    SetInvalid(11, OLESTR("bad"));
    EXPECT_EQ(Row(10).m_strData, OLESTR(""));
    EXPECT_EQ(grid.Look().At(1, grid.BoxPoint(10).y), TestColours::invalidItem);
    Row(10).Refresh();
    EXPECT_EQ(Row(10).m_strData, kErrors);
}

TEST_F(Category, ShowsNeitherItsValueNorItsHelp)
{
    grid.Add(1, E_PROP_DT_CATEGORY);
    grid.Add(2, E_PROP_DT_DOUBLE, 1);
    const auto help = MakeObject<IprpHelpInfo>(CLSID_prpHelpInfo);
    for (const LONG id : {1, 2})
        EXPECT_EQ(help->AddHelpString(0, id, Bstr(OLESTR("Helpful"))), S_OK);
    Transact(grid.collections[0], [&] { EXPECT_EQ(grid.Collection().AttachHelpInfo(help), S_OK); });
    grid.Show();
    EXPECT_EQ(Row(1).m_strError, OLESTR(""));
    EXPECT_EQ(Row(1).m_strData, OLESTR(""));
    EXPECT_EQ(Row(2).m_strError, OLESTR("Helpful"));
}

TEST_F(Category, HasNoEditor)
{
    grid.Add(1, E_PROP_DT_CATEGORY, E_PROP_ID_TOP_LEVEL, E_PROP_EDIT_VALUE | E_PROP_EDIT_SHOW_EXTENDED_INFO);
    grid.Add(2, E_PROP_DT_DOUBLE, 1);
    grid.Show();
    grid.Click(1);
    grid.Sounds();
    PressKey(VK_RETURN);
    EXPECT_FALSE(Row(1).m_edit.Exists());
    EXPECT_FALSE(Row(1).m_btnExtended.Exists());
    EXPECT_THAT(grid.Sounds(), ElementsAre("Return"));
    EXPECT_TRUE(ListHasFocus());
}

TEST_F(Category, PaintsNameAndDataOnItsOwnGround)
{
    ShowCategories();
    const Picture look = grid.Look();
    const RowRects rects = grid.Rects(10);
    EXPECT_EQ(look.At(rects.name.left + 2, rects.name.top), TestColours::category);
    EXPECT_TRUE(look.IsFilled({rects.data.left + 1, rects.data.top, rects.data.right, rects.data.bottom - 1},
                              TestColours::category));
    EXPECT_EQ(look.At(0, rects.indent.top), TestColours::background);
    EXPECT_EQ(look.At(14, rects.indent.bottom - 1), TestColours::background);
    EXPECT_EQ(look.At(grid.Rects(11).name.left + 2, grid.Rects(11).name.top), TestColours::background);
}

TEST_F(Category, ShowsTheSelectionAsOtherRowsDo)
{
    ShowCategories();
    SetFocus(grid.list.Handle());
    Select(10);
    const Picture look = grid.Look();
    const RowRects rects = grid.Rects(10);
    EXPECT_EQ(look.At(rects.name.left + 2, rects.name.top), TestColours::highlight);
    EXPECT_EQ(look.At(rects.data.right - 1, rects.data.top), TestColours::category);
}

TEST_F(Category, PaintsItsSummaryOnItsGround)
{
    ShowCategories();
    SetInvalid(11, OLESTR("bad"));
    Toggle(10);
    const Picture look = grid.Look();
    const RowRects rects = grid.Rects(10);
    EXPECT_TRUE(look.Shows(rects.data, TestColours::invalidText));
    EXPECT_FALSE(look.Shows(Grow(rects.data, -1, 0, 0, -1), TestColours::background));
}
