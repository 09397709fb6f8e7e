#include "list/RowLayout.h"

#include <gtest/gtest.h>

namespace {

constexpr Rect kRow{0, 36, 300, 54};

} // namespace

TEST(RowLayout, SplitsAPropertyRowAtTheUnitAndTheDivider)
{
    const RowRects r = SplitRow(kRow, {});
    EXPECT_EQ(r.indent, (Rect{0, 36, 15, 54}));
    EXPECT_EQ(r.name, (Rect{15, 36, 100, 54}));
    EXPECT_EQ(r.data, (Rect{100, 36, 300, 54}));
}

TEST(RowLayout, IndentsLevelsOnlyWhenAskedTo)
{
    EXPECT_EQ(SplitRow(kRow, {.level = 3}).indent.right, 15);
    EXPECT_EQ(SplitRow(kRow, {.level = 3, .singleIndent = false}).indent.right, 45);
    EXPECT_EQ(SplitRow(kRow, {.level = 3, .singleIndent = false}).name, (Rect{45, 36, 100, 54}));
}

TEST(RowLayout, TakesColumnEdgesAsClientPixelsWhateverTheRowsLeftEdge)
{
    const RowRects r = SplitRow({7, 0, 300, 18}, {});
    EXPECT_EQ(r.indent, (Rect{7, 0, 15, 18}));
    EXPECT_EQ(r.name.right, 100);
}

TEST(RowLayout, GivesATreeRowAnIconColumnAndTheRest)
{
    const RowRects r = SplitRow(kRow, {.type = ListType::TreeList, .level = 2});
    EXPECT_EQ(r.indent, (Rect{0, 36, 30, 54}));
    EXPECT_EQ(r.name, (Rect{30, 36, 45, 54}));
    EXPECT_EQ(r.data, (Rect{45, 36, 300, 54}));
}

TEST(HitTest, FindsEachPartOfARow)
{
    EXPECT_EQ(HitTestRow({3, 40}, kRow, {}, false), RowPart::Indent);
    EXPECT_EQ(HitTestRow({3, 40}, kRow, {}, true), RowPart::ExpandBox);
    EXPECT_EQ(HitTestRow({15, 40}, kRow, {}, true), RowPart::Name);
    EXPECT_EQ(HitTestRow({99, 40}, kRow, {}, true), RowPart::Name);
    EXPECT_EQ(HitTestRow({100, 40}, kRow, {}, true), RowPart::Data);
    EXPECT_EQ(HitTestRow({299, 53}, kRow, {}, true), RowPart::Data);
}

TEST(HitTest, IsOutsideBeyondTheRow)
{
    EXPECT_EQ(HitTestRow({300, 40}, kRow, {}, true), RowPart::Outside);
    EXPECT_EQ(HitTestRow({3, 54}, kRow, {}, true), RowPart::Outside);
    EXPECT_EQ(HitTestRow({3, 35}, kRow, {}, true), RowPart::Outside);
    EXPECT_EQ(HitTestRow({-1, 40}, kRow, {}, true), RowPart::Outside);
}

TEST(HitTest, TakesOnlyTheLastUnitOfADeepIndentAsTheExpandBox)
{
    constexpr RowColumns deep{.level = 3, .singleIndent = false};
    EXPECT_EQ(HitTestRow({29, 40}, kRow, deep, true), RowPart::Indent);
    EXPECT_EQ(HitTestRow({30, 40}, kRow, deep, true), RowPart::ExpandBox);
    EXPECT_EQ(HitTestRow({44, 40}, kRow, deep, false), RowPart::Indent);
}

TEST(HitTest, LetsTheIndentWinOverADividerLeftOfIt)
{
    constexpr RowColumns narrow{.divider = 5};
    EXPECT_EQ(HitTestRow({10, 40}, kRow, narrow, true), RowPart::ExpandBox);
    EXPECT_EQ(HitTestRow({16, 40}, kRow, narrow, true), RowPart::Data);
}

TEST(ExpandBox, StandsEightPixelsLeftOfTheName)
{
    EXPECT_EQ(MarkCentre({0, 0, 15, 18}, 15), (Point{7, 8}));
    EXPECT_EQ(MarkCentre({0, 100, 45, 118}, 15), (Point{37, 108}));
}

TEST(ExpandBox, StandsOnAnEvenLineBelowTheRowsTop)
{
    EXPECT_EQ(MarkCentre({0, 0, 15, 16}, 15).y, 8);
    EXPECT_EQ(MarkCentre({0, 0, 15, 17}, 15).y, 8);
    EXPECT_EQ(MarkCentre({0, 0, 15, 18}, 15).y, 8);
    EXPECT_EQ(MarkCentre({0, 0, 15, 19}, 15).y, 8);
    EXPECT_EQ(MarkCentre({0, 0, 15, 20}, 15).y, 10);
}

TEST(ExpandBox, CoversNineByNinePixelsWithStrokesOfFive)
{
    const ExpandBox box = ExpandBoxAt({7, 8});
    EXPECT_EQ(box.box, (Rect{3, 4, 12, 13}));
    EXPECT_EQ(box.minus, (Rect{5, 8, 10, 9}));
    EXPECT_EQ(box.stroke, (Rect{7, 6, 8, 11}));
    EXPECT_EQ(box.errorFrame, (Rect{1, 2, 14, 15}));
}

TEST(StateMark, IsTwelvePixelsAroundTheCentre)
{
    EXPECT_EQ(MarkCorner({7, 8}), (Point{1, 2}));
}

TEST(GridLines, LeaveTheIndentColumnFree)
{
    const GridLines lines = GridLinesOf({15, 36, 100, 54}, {100, 36, 300, 54});
    EXPECT_EQ(lines.left, (Rect{15, 36, 16, 53}));
    EXPECT_EQ(lines.bottom, (Rect{15, 53, 301, 54}));
    EXPECT_EQ(lines.divider, (Rect{100, 36, 101, 54}));
}

TEST(Editors, LeaveRoomForAButtonAsWideAsTheCellIsHigh)
{
    constexpr Rect data{100, 36, 300, 54};
    EXPECT_EQ(ButtonPlace(data), (Rect{282, 36, 300, 54}));
    EXPECT_EQ(LeftOfButton(data, true), (Rect{100, 36, 282, 54}));
    EXPECT_EQ(LeftOfButton(data, false), data);
}

TEST(Editors, TextBoxSinksByHalfTheRoomAboveItsLine)
{
    EXPECT_EQ(TextBoxPlace({100, 36, 300, 54}, 13), (Rect{101, 38, 300, 53}));
    EXPECT_EQ(TextBoxPlace({100, 36, 300, 52}, 12), (Rect{101, 38, 300, 51}));
}

TEST(Editors, TextBoxHalvesTowardZeroInACellLowerThanItsText)
{
    EXPECT_EQ(TextBoxPlace({0, 10, 50, 25}, 16).top, 10);
    EXPECT_EQ(TextBoxPlace({0, 10, 50, 23}, 16).top, 9);
}

TEST(Editors, DropListReachesAHundredPixelsBelowTheCell)
{
    constexpr Rect data{100, 36, 300, 54};
    EXPECT_EQ(DropListPlace(data, false), (Rect{101, 36, 300, 154}));
    EXPECT_EQ(DropListPlace(data, true), (Rect{101, 36, 282, 154}));
}

TEST(RowHeight, IsFourTenthsAboveTheTextHeight)
{
    EXPECT_EQ(RowHeightFor(0), 0);
    EXPECT_EQ(RowHeightFor(12), 16);
    EXPECT_EQ(RowHeightFor(13), 18);
    EXPECT_EQ(RowHeightFor(15), 21);
    EXPECT_EQ(RowHeightFor(45), 63);
}
