#include "list/RowPaint.h"
#include "tests/fakes/RecordingCanvas.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace {

constexpr Rect kIndent{0, 0, 15, 18};
constexpr Rect kName{15, 0, 100, 18};
constexpr Rect kData{100, 0, 300, 18};

class RowPaint : public testing::Test {
protected:
    RecordingCanvas canvas;
    SqorLBDrawSettings settings;

    RowPaint()
    {
        settings.m_crBackground = 0xB;
        settings.m_crItemHighlight = 0x1;
        settings.m_crNormalText = 0x2;
        settings.m_crInvalidText = 0x3;
        settings.m_crInvalidDataItem = 0x4;
        settings.m_crHighlightedText = 0x5;
        settings.m_crGridLine = 0x6;
        settings.m_crInactiveItemHighlight = 0x7;
        settings.m_crInactiveHighlightedText = 0x8;
        settings.m_crReadOnlyData = 0x9;
    }
    const std::vector<std::string>& Indent(const IndentLook& look)
    {
        canvas.strokes.clear();
        PaintIndentColumn(canvas, kIndent, &look, settings);
        return canvas.strokes;
    }
};

} // namespace

TEST_F(RowPaint, OfAnEmptyIndentIsTheBackgroundAlone)
{
    PaintIndentColumn(canvas, kIndent, nullptr, settings);
    EXPECT_THAT(canvas.strokes, ElementsAre("fill 0,0,15,18 B"));
    EXPECT_THAT(Indent({}), ElementsAre("fill 0,0,15,18 B"));
}

TEST_F(RowPaint, OfAnExpandedRowIsABoxWithAMinus)
{
    EXPECT_THAT(Indent({.hasChildren = true, .collapsed = false}),
                ElementsAre("fill 0,0,15,18 B", "fill 3,4,12,13 FFFFFF", "frame 3,4,12,13 0", "fill 5,8,10,9 0"));
}

TEST_F(RowPaint, OfACollapsedRowAddsTheVerticalStroke)
{
    EXPECT_THAT(Indent({.hasChildren = true}), Contains("fill 7,6,8,11 0"));
}

TEST_F(RowPaint, FramesACollapsedBoxWithErrorsOrWarningsInside)
{
    const std::string frame = "frame 1,2,14,15 4";
    EXPECT_THAT(Indent({.hasChildren = true, .invalid = true}), Contains(frame));
    EXPECT_THAT(Indent({.hasChildren = true, .warning = true}), Contains(frame));
    EXPECT_THAT(Indent({.hasChildren = true, .childInvalid = true}), Contains(frame));
    EXPECT_THAT(Indent({.hasChildren = true}), Not(Contains(frame)));
}

TEST_F(RowPaint, NeverFramesAnExpandedBox)
{
    const IndentLook look{
        .hasChildren = true, .collapsed = false, .invalid = true, .warning = true, .childInvalid = true};
    EXPECT_THAT(Indent(look), Not(Contains("frame 1,2,14,15 4")));
}

TEST_F(RowPaint, ShowsTheErrorMarkOrTheWarningMarkNeverBoth)
{
    EXPECT_THAT(Indent({.invalid = true}), ElementsAre("fill 0,0,15,18 B", "image 0 at 1,2"));
    EXPECT_THAT(Indent({.warning = true}), ElementsAre("fill 0,0,15,18 B", "image 1 at 1,2"));
    EXPECT_THAT(Indent({.invalid = true, .warning = true}), ElementsAre("fill 0,0,15,18 B", "image 0 at 1,2"));
}

TEST_F(RowPaint, DrawsACrossForTheErrorMarkWithoutPicturesButNothingForAWarning)
{
    canvas.hasImages = false;
    EXPECT_THAT(Indent({.invalid = true}),
                ElementsAre("fill 0,0,15,18 B", "line 4,5 to 10,11 width 2 4", "line 4,11 to 10,5 width 2 4"));
    EXPECT_THAT(Indent({.warning = true}), ElementsAre("fill 0,0,15,18 B"));
}

TEST_F(RowPaint, ConnectsTheRowsOfATree)
{
    Connectors lines{.colour = 0xC, .laterSiblings = {true, false}};
    PaintIndentColumn(canvas, {0, 0, 45, 18}, std::data({IndentLook{.connectors = &lines}}), settings);
    EXPECT_THAT(canvas.strokes,
                ElementsAre("fill 0,0,45,18 B", "dots 37,0 to 37,18 C", "dots 37,8 to 45,8 C", "dots 22,0 to 22,18 C"));
}

TEST_F(RowPaint, ConnectorsEndAtTheFirstAndLastRow)
{
    Connectors first{.colour = 0xC, .firstRow = true};
    EXPECT_THAT(Indent({.connectors = &first}), Contains("dots 7,8 to 7,18 C"));
    Connectors last{.colour = 0xC, .lastVisibleChild = true};
    EXPECT_THAT(Indent({.connectors = &last}), Contains("dots 7,0 to 7,8 C"));
}

TEST_F(RowPaint, MarksNoStatesInATree)
{
    Connectors lines;
    EXPECT_THAT(Indent({.invalid = true, .connectors = &lines}), Not(Contains("image 0 at 1,2")));
}

TEST_F(RowPaint, FillsBothCellsAndRulesThemInOrder)
{
    PaintRowGround(canvas, kName, kData, {}, settings);
    EXPECT_THAT(canvas.strokes, ElementsAre("fill 15,0,100,18 B", "fill 100,0,300,18 B", "fill 15,0,16,17 6",
                                            "fill 15,17,301,18 6", "fill 100,0,101,18 6"));
}

TEST_F(RowPaint, ShowsTheSelectionInTheNameCellAlone)
{
    PaintRowGround(canvas, kName, kData, {.selected = true, .listHasFocus = true}, settings);
    EXPECT_EQ(canvas.strokes[0], "fill 15,0,100,18 1");
    EXPECT_EQ(canvas.strokes[1], "fill 100,0,300,18 B");
}

TEST_F(RowPaint, PalesTheSelectionWithoutFocus)
{
    PaintRowGround(canvas, kName, kData, {.selected = true}, settings);
    EXPECT_EQ(canvas.strokes[0], "fill 15,0,100,18 7");
}

TEST_F(RowPaint, TakesTheColoursOfANameFromSelectionAndFocus)
{
    const RowState states[] = {{}, {.selected = true, .listHasFocus = true}, {.selected = true}};
    for (const RowState& state : states)
        PaintName(canvas, kName, OLESTR("Depth"), state, settings);
    EXPECT_THAT(canvas.strokes,
                ElementsAre("text 'Depth' in 20,1,99,17 centred 2 on B", "text 'Depth' in 20,1,99,17 centred 5 on 1",
                            "text 'Depth' in 20,1,99,17 centred 8 on 7"));
}

TEST_F(RowPaint, ShortensANameWiderThanItsColumn)
{
    PaintName(canvas, kName, OLESTR("Probe depth"), {}, settings); // 79 pixels hold seven characters
    EXPECT_THAT(canvas.strokes, ElementsAre("text 'Prob...' in 20,1,99,17 centred 2 on B"));
}

TEST_F(RowPaint, ShortensANameInAColumnWithoutWidth)
{
    PaintName(canvas, {15, 0, 10, 18}, OLESTR("Axis"), {}, settings);
    EXPECT_THAT(canvas.strokes, ElementsAre("text 'A...' in 20,1,9,17 centred 2 on B"));
}

TEST_F(RowPaint, TakesTheColourOfDataFromWhatMayBeDoneWithIt)
{
    const RowState states[] = {{},
                               {.invalid = true},
                               {.readOnly = true},
                               {.invalid = true, .readOnly = true},
                               {.invalid = true, .allowEditing = false}};
    for (const RowState& state : states)
        PaintData(canvas, kData, OLESTR("1"), VerticalPlace::Top, state, settings);
    EXPECT_THAT(canvas.strokes,
                ElementsAre("text '1' in 105,1,299,17 top 2 on B", "text '1' in 105,1,299,17 top 3 on B",
                            "text '1' in 105,1,299,17 top 9 on B", "text '1' in 105,1,299,17 top 9 on B",
                            "text '1' in 105,1,299,17 top 9 on B"));
}

TEST_F(RowPaint, NeverShortensData)
{
    PaintData(canvas, {100, 0, 110, 18}, OLESTR("123456789"), VerticalPlace::Centre, {}, settings);
    EXPECT_THAT(canvas.strokes, ElementsAre("text '123456789' in 105,1,109,17 centred 2 on B"));
}

TEST_F(RowPaint, ColoursAnEditorByValidityFirst)
{
    EXPECT_EQ(EditorColours({.invalid = true, .allowEditing = false}, settings), (TextColours{3, 0xB}));
    EXPECT_EQ(EditorColours({.allowEditing = false}, settings), (TextColours{9, 0xB}));
    EXPECT_EQ(EditorColours({}, settings), (TextColours{2, 0xB}));
}
