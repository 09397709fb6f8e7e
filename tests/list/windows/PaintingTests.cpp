// Pixels of the rows: grounds and texts of each state, grid lines, marks, boxes, shortened names.
#include "tests/list/windows/GridTest.h"

namespace {

class Painting : public GridTest {
protected:
    Rect NameOf(LONG id) { return Grow(grid.Rects(id).name, -1, 0, 0, -1); } // inside of the grid lines
    Rect DataOf(LONG id) { return Grow(grid.Rects(id).data, -1, 0, 0, -1); }
    /// First line of an area that shows a colour, from the area's top; -1 for none.
    static int TopOf(const Picture& look, const Rect& area, COLORREF colour)
    {
        for (int y = area.top; y < area.bottom; ++y) {
            if (look.Shows({area.left, y, area.right, y + 1}, colour))
                return y - area.top;
        }
        return -1;
    }
    /// Rows that show their data as text, since their editors would cover it.
    void ForbidEditing() { grid.list.m_bAllowEditing = false; }
};

} // namespace

TEST_F(Painting, OfAPlainRowIsNormalTextOnTheBackground)
{
    ShowNumbers(2);
    const Picture look = grid.Look();
    EXPECT_TRUE(look.Shows(NameOf(1), TestColours::normalText));
    EXPECT_TRUE(look.Shows(DataOf(1), TestColours::normalText));
    EXPECT_EQ(look.At(NameOf(1).left, NameOf(1).top), TestColours::background);
    EXPECT_EQ(look.At(DataOf(1).right - 1, DataOf(1).top), TestColours::background);
}

TEST_F(Painting, OfTheSelectionFillsTheNameAlone)
{
    ForbidEditing();
    ShowNumbers(2);
    SetFocus(grid.list.Handle());
    Select(2);
    const Picture look = grid.Look();
    EXPECT_EQ(look.At(NameOf(2).left, NameOf(2).top), TestColours::highlight);
    EXPECT_TRUE(look.Shows(NameOf(2), TestColours::highlightedText));
    EXPECT_FALSE(look.Shows(NameOf(2), TestColours::normalText));
    EXPECT_FALSE(look.Shows(grid.Rects(2).data, TestColours::highlight));
    EXPECT_TRUE(look.IsFilled({0, grid.Rects(2).indent.top, 15, grid.Rects(2).indent.bottom}, TestColours::background));
    EXPECT_FALSE(look.Shows(NameOf(1), TestColours::highlight));
}

TEST_F(Painting, OfTheSelectionPalesWithoutTheFocus)
{
    ForbidEditing();
    ShowNumbers(2);
    SetFocus(grid.list.Handle());
    Select(2);
    grid.Look();
    SetFocus(grid.window);
    UpdateWindow(grid.list.Handle()); // the loss of focus has asked for the paint
    const Picture look(grid.list.Handle());
    EXPECT_EQ(look.At(NameOf(2).left, NameOf(2).top), TestColours::inactiveHighlight);
    EXPECT_TRUE(look.Shows(NameOf(2), TestColours::inactiveHighlightedText));
    SetFocus(grid.list.Handle());
    UpdateWindow(grid.list.Handle());
    EXPECT_EQ(Picture(grid.list.Handle()).At(NameOf(2).left, NameOf(2).top), TestColours::highlight);
}

TEST_F(Painting, OfTheSelectionPalesWhileItsEditorHasTheFocus)
{
    ShowNumbers(2);
    OpenEditor(2);
    ASSERT_TRUE(TextBox(2).HasFocus());
    EXPECT_EQ(grid.Look().At(NameOf(2).left, NameOf(2).top), TestColours::inactiveHighlight);
}

TEST_F(Painting, OfDataInErrorIsColoured)
{
    ShowNumbers(2);
    SetInvalid(2, OLESTR("bad"));
    const Picture look = grid.Look();
    EXPECT_TRUE(look.Shows(DataOf(2), TestColours::invalidText));
    EXPECT_FALSE(look.Shows(DataOf(2), TestColours::normalText));
    EXPECT_TRUE(look.Shows(NameOf(2), TestColours::normalText));
}

TEST_F(Painting, OfReadOnlyDataIsGreyEvenInError)
{
    ShowNumbers(2);
    SetReadOnly(2);
    SetInvalid(2, OLESTR("bad"));
    const Picture look = grid.Look();
    EXPECT_TRUE(look.Shows(DataOf(2), TestColours::readOnlyData));
    EXPECT_FALSE(look.Shows(DataOf(2), TestColours::invalidText));
    EXPECT_TRUE(look.Shows(NameOf(2), TestColours::normalText));
}

TEST_F(Painting, OfAListWithoutEditingIsGreyInAllData)
{
    ForbidEditing();
    ShowNumbers(2);
    SetInvalid(2, OLESTR("bad"));
    const Picture look = grid.Look();
    EXPECT_TRUE(look.Shows(DataOf(1), TestColours::readOnlyData));
    EXPECT_TRUE(look.Shows(DataOf(2), TestColours::readOnlyData));
}

TEST_F(Painting, RulesTheCellsButNotTheIndent)
{
    ShowNumbers(2);
    const Picture look = grid.Look();
    const Rect row = grid.list.RowRect(0);
    EXPECT_TRUE(look.IsFilled({15, row.top, 16, row.bottom}, TestColours::gridLine));
    EXPECT_TRUE(look.IsFilled({15, row.bottom - 1, row.right, row.bottom}, TestColours::gridLine));
    EXPECT_TRUE(look.IsFilled({100, row.top, 101, row.bottom}, TestColours::gridLine));
    EXPECT_TRUE(look.IsFilled({0, row.top, 15, row.bottom}, TestColours::background));
    EXPECT_NE(look.At(99, row.top + 1), TestColours::gridLine);
    EXPECT_NE(look.At(101, row.top + 1), TestColours::gridLine);
    EXPECT_NE(look.At(200, row.top), TestColours::gridLine);
}

TEST_F(Painting, FollowsTheDividerAndTheIndentOfLevels)
{
    ShowCategories();
    grid.list.m_nDividerPos = 140;
    grid.list.m_bSingleLevelIndent = false;
    const Picture look = grid.Look();
    const Rect child = grid.list.RowRect(1);
    EXPECT_TRUE(look.IsFilled({140, child.top, 141, child.bottom}, TestColours::gridLine));
    EXPECT_TRUE(look.IsFilled({30, child.top, 31, child.bottom}, TestColours::gridLine));
    EXPECT_TRUE(look.IsFilled({0, child.top, 30, child.bottom}, TestColours::background));
}

TEST_F(Painting, PutsAMinusIntoTheBoxOfAnExpandedRow)
{
    ShowCategories();
    const Picture look = grid.Look();
    const int y = grid.BoxPoint(10).y;
    EXPECT_EQ(grid.BoxPoint(10).x, 7);
    EXPECT_EQ(y % 2, 0);
    const COLORREF black = 0;
    const COLORREF white = 0xFFFFFF;
    EXPECT_TRUE(look.IsFilled({3, y - 4, 12, y - 3}, black));
    EXPECT_TRUE(look.IsFilled({3, y + 4, 12, y + 5}, black));
    EXPECT_TRUE(look.IsFilled({3, y - 4, 4, y + 5}, black));
    EXPECT_TRUE(look.IsFilled({11, y - 4, 12, y + 5}, black));
    EXPECT_TRUE(look.IsFilled({5, y, 10, y + 1}, black));
    EXPECT_TRUE(look.IsFilled({4, y - 3, 11, y}, white));
    EXPECT_TRUE(look.IsFilled({4, y + 1, 11, y + 4}, white));
    EXPECT_EQ(look.At(4, y), white);
    EXPECT_EQ(look.At(10, y), white);
    EXPECT_EQ(look.At(2, y), TestColours::background);
    EXPECT_EQ(look.At(12, y), TestColours::background);
}

TEST_F(Painting, AddsAVerticalStrokeToTheBoxOfACollapsedRow)
{
    ShowCategories();
    grid.list.ExpandCollapse(grid.Item(10));
    const Picture look = grid.Look();
    const int y = grid.BoxPoint(10).y;
    EXPECT_TRUE(look.IsFilled({7, y - 2, 8, y + 3}, 0));
    EXPECT_EQ(look.At(7, y - 3), COLORREF{0xFFFFFF});
    EXPECT_EQ(look.At(7, y + 3), COLORREF{0xFFFFFF});
}

TEST_F(Painting, FramesTheBoxOfACollapsedCategoryWithErrorsOrWarnings)
{
    ShowCategories();
    SetInvalid(11, OLESTR("bad"));
    SetWarning(21, OLESTR("look"));
    for (const LONG id : {10, 20}) {
        const int open = grid.BoxPoint(id).y;
        EXPECT_EQ(grid.Look().At(1, open), TestColours::background) << "an expanded box has no frame";
        grid.list.ExpandCollapse(grid.Item(id));
        const Picture look = grid.Look();
        const int y = grid.BoxPoint(id).y;
        EXPECT_TRUE(look.IsFilled({1, y - 6, 14, y - 5}, TestColours::invalidItem));
        EXPECT_TRUE(look.IsFilled({1, y + 6, 14, y + 7}, TestColours::invalidItem));
        EXPECT_TRUE(look.IsFilled({1, y - 6, 2, y + 7}, TestColours::invalidItem));
        EXPECT_TRUE(look.IsFilled({13, y - 6, 14, y + 7}, TestColours::invalidItem));
        EXPECT_EQ(look.At(2, y - 5), TestColours::background);
    }
}

TEST_F(Painting, MarksAnErrorByACrossWithoutPicturesButNoWarning)
{
    ShowNumbers(3);
    SetInvalid(1, OLESTR("bad"));
    SetWarning(2, OLESTR("look"));
    const Picture look = grid.Look();
    const Point centre = grid.BoxPoint(1);
    EXPECT_EQ(look.At(centre.x, centre.y), TestColours::invalidItem);
    EXPECT_EQ(look.At(centre.x - 2, centre.y - 2), TestColours::invalidItem);
    EXPECT_EQ(look.At(centre.x + 1, centre.y - 1), TestColours::invalidItem);
    EXPECT_EQ(look.At(centre.x - 5, centre.y), TestColours::background);
    EXPECT_TRUE(look.IsFilled(grid.Rects(2).indent, TestColours::background));
}

TEST_F(Painting, MarksErrorsAndWarningsByTheirPictures)
{
    // Pictures of one colour each, with a transparent corner.
    const COLORREF mask = 0xFF00FF;
    const COLORREF colours[] = {0x00AA00, 0x00CCCC};
    const ImageListOwner images(ImageList_Create(12, 12, ILC_COLOR24 | ILC_MASK, 2, 0));
    for (const COLORREF colour : colours) {
        const WindowDc screen(nullptr);
        const MemoryDcOwner dc(CreateCompatibleDC(screen));
        const BitmapOwner bitmap(CreateCompatibleBitmap(screen, 12, 12));
        {
            const SelectionScope selected(dc.Get(), bitmap.Get());
            const BrushOwner brush(CreateSolidBrush(colour));
            const RECT all{0, 0, 12, 12};
            FillRect(dc.Get(), &all, brush.Get());
            SetPixel(dc.Get(), 0, 0, mask);
        }
        ImageList_AddMasked(images.Get(), bitmap.Get(), mask);
    }
    grid.list.SetImageList(images.Get());
    grid.list.SetImageList(nullptr); // ignored
    ShowNumbers(4);
    SetInvalid(1, OLESTR("bad"));
    SetWarning(2, OLESTR("look"));
    SetWarning(3, OLESTR("look"));
    SetInvalid(3, OLESTR("bad"));
    const Picture look = grid.Look();
    for (const auto& [id, colour] : {std::pair{1, colours[0]}, std::pair{2, colours[1]}, std::pair{3, colours[0]}}) {
        const Point c = grid.BoxPoint(id);
        EXPECT_TRUE(look.IsFilled({c.x - 5, c.y - 6, c.x + 6, c.y + 6}, colour)) << id;
        EXPECT_EQ(look.At(c.x - 6, c.y - 6), TestColours::background) << id;
        EXPECT_EQ(look.At(c.x - 6, c.y + 5), colour) << id;
        EXPECT_EQ(look.At(c.x + 6, c.y), TestColours::background) << id;
    }
    EXPECT_TRUE(look.IsFilled(grid.Rects(4).indent, TestColours::background));
    grid.Clear(); // the pictures go first
}

TEST_F(Painting, ShortensANameToItsColumn)
{
    ShowNumbers(2);
    const Text name = OLESTR("Nominal diameter of the bore");
    SetName(1, name);
    // By the test's own measure: the longest part that fits without the dots, less three characters.
    const int room = grid.Rects(1).name.Width() - 6;
    const SelectionScope font(grid.list.MeasuringDc(), grid.list.ListFont());
    std::size_t fitting = name.size();
    for (SIZE size{};; --fitting) {
        GetTextExtentPoint32W(grid.list.MeasuringDc(), name.c_str(), static_cast<int>(fitting), &size);
        if (size.cx <= room)
            break;
    }
    ASSERT_GT(fitting, 6u);
    ASSERT_LT(fitting, name.size());
    const Picture shortened = grid.Look();
    SetName(1, name.substr(0, fitting - 3) + OLESTR("..."));
    EXPECT_TRUE(grid.Look().SameIn(grid.Rects(1).name, shortened));
    SetName(1, name.substr(0, fitting - 2) + OLESTR("..."));
    EXPECT_FALSE(grid.Look().SameIn(grid.Rects(1).name, shortened));
}

TEST_F(Painting, LeavesOneCharacterOfAShortNameInANarrowColumn)
{
    ShowNumbers(2);
    grid.list.m_nDividerPos = 38;
    SetName(1, OLESTR("Mmmm"));
    const Picture look = grid.Look();
    SetName(1, OLESTR("M"));
    const Picture letter = grid.Look();
    SetName(1, OLESTR("M..."));
    EXPECT_TRUE(grid.Look().SameIn(grid.Rects(1).name, look));
    EXPECT_FALSE(letter.SameIn(grid.Rects(1).name, look));
}

TEST_F(Painting, ShowsAmpersandsInNamesAndDataAsTheyAre)
{
    ForbidEditing();
    ShowOne(E_PROP_DT_STRING_UNICODE);
    SetName(1, OLESTR("a&b"));
    SetValue(1, OLESTR("c&d"));
    const Picture both = grid.Look();
    SetName(1, OLESTR("ab"));
    SetValue(1, OLESTR("cd"));
    const Picture without = grid.Look();
    EXPECT_FALSE(without.SameIn(grid.Rects(1).name, both));
    EXPECT_FALSE(without.SameIn(grid.Rects(1).data, both));
}

TEST_F(Painting, CentresNamesButNotTheDataOfNumbers)
{
    ForbidEditing();
    ShowOne(E_PROP_DT_DOUBLE);
    LOGFONTW font = grid.list.m_settings.m_lfFont;
    grid.list.SetRowHeight(0, 40);
    SetName(1, OLESTR("0"));
    const Picture look = grid.Look();
    const int centred = TopOf(look, NameOf(1), TestColours::normalText);
    const int atTop = TopOf(look, DataOf(1), TestColours::readOnlyData);
    ASSERT_GE(atTop, 0);
    EXPECT_EQ(centred - atTop, (40 - 2 - grid.list.TextHeight()) / 2);
    EXPECT_LT(atTop, -font.lfHeight);
}

TEST_F(Painting, CutsDataOffAtItsCellWithoutDots)
{
    ForbidEditing();
    ShowOne(E_PROP_DT_STRING_UNICODE);
    SetValue(1, Text(400, OLECHAR('W')));
    const Picture look = grid.Look();
    const Rect data = grid.Rects(1).data;
    EXPECT_TRUE(look.IsFilled({data.right - 1, data.top, data.right, data.bottom - 1}, TestColours::background));
    EXPECT_TRUE(look.Shows({data.right - 8, data.top, data.right - 1, data.bottom - 1}, TestColours::readOnlyData));
    SetValue(1, Text(60, OLECHAR('W')));
    EXPECT_TRUE(grid.Look().SameIn(data, look));
}

TEST_F(Painting, LeavesTheDataOfDifferentCollectionsEmpty)
{
    grid.AddCollection();
    grid.AddCollection();
    ShowNumbers(1);
    SetValue(1, OLESTR("4"), 1);
    EXPECT_TRUE(grid.Look().IsFilled(DataOf(1), TestColours::background));
}

TEST_F(Painting, OfARowInErrorUsesTheSameColoursInItsEditor)
{
    ShowNumbers(2);
    SetValue(1, OLESTR("888"));
    SetInvalid(1, OLESTR("bad"));
    grid.Click(1);
    const Rect editor = PlaceInList(TextBox(1).Handle());
    Picture look = grid.Look();
    EXPECT_TRUE(look.Shows(editor, TestColours::invalidText));
    EXPECT_EQ(look.At(editor.right - 2, editor.top + 2), TestColours::background);
    grid.Click(2);
    SetValue(2, OLESTR("888"));
    look = grid.Look();
    EXPECT_TRUE(look.Shows(PlaceInList(TextBox(2).Handle()), TestColours::normalText));
}
