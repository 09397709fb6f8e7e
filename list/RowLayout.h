// Geometry of one row: its columns, what lies under a point, the expand box, the grid lines, the places of editors.
// Values in, values out; halving is integer division that truncates toward zero.
#pragma once

#include "list/Metrics.h"
#include "platform/draw/Rect.h"

/// The two looks of the list. The numbers are those that a list is configured with.
enum class ListType : int {
    NotChosen = 0,
    PropertyList = 1, ///< indent, name, divider, data; one selected row
    TreeList = 2,     ///< connector lines, icon, text; a selection of many rows
};

/// What decides the columns of a row besides its rectangle.
struct RowColumns {
    ListType type = ListType::PropertyList;
    int unit = kListMetrics.rowUnit;
    int divider = kListMetrics.dividerStart; ///< pixels from the left edge of the list
    int level = 1;                           ///< 1 for a root, one more for each ancestor
    bool singleIndent = true;                ///< one indent for all levels
};

struct RowRects {
    Rect indent;
    Rect name;
    Rect data;

    friend constexpr bool operator==(const RowRects&, const RowRects&) = default;
};

/// Splits one row into its three columns. The data column keeps the row's right edge, whatever its text.
constexpr RowRects SplitRow(const Rect& row, const RowColumns& columns)
{
    RowRects r{row, row, row};
    if (columns.type == ListType::TreeList) {
        r.indent.right = columns.level * columns.unit;
        r.name.left = r.indent.right;
        r.name.right = r.name.left + columns.unit;
    } else {
        r.indent.right = columns.singleIndent ? columns.unit : columns.level * columns.unit;
        r.name.left = r.indent.right;
        r.name.right = columns.divider;
    }
    r.data.left = r.name.right;
    return r;
}

/// What lies under a point. The numbers are the results of the list's hit test.
enum class RowPart : int { Indent = 0, ExpandBox = 1, Name = 2, Data = 3, Outside = 4 };

/// The order of the tests is behaviour: with a divider left of the indent column the indent column wins.
constexpr RowPart HitTestRow(Point p, const Rect& row, const RowColumns& columns, bool hasChildren)
{
    if (!row.Contains(p))
        return RowPart::Outside;
    const RowRects parts = SplitRow(row, columns);
    if (parts.indent.Contains(p))
        return hasChildren && p.x >= parts.indent.right - columns.unit ? RowPart::ExpandBox : RowPart::Indent;
    if (parts.data.Contains(p))
        return RowPart::Data;
    return parts.name.Contains(p) ? RowPart::Name : RowPart::Outside;
}

/// Centre of the expand box and of the state marks.
constexpr Point MarkCentre(const Rect& indent, int unit)
{
    const int half = indent.Height() / 2;
    return {indent.right - (unit + 1) / 2, indent.top + half - (half % 2 != 0 ? 1 : 0)};
}

/// The expand box: a framed square with a minus in it, a vertical stroke besides when the row is collapsed.
struct ExpandBox {
    Rect box;
    Rect minus;
    Rect stroke;
    Rect errorFrame; ///< one pixel, outside of the box

    friend constexpr bool operator==(const ExpandBox&, const ExpandBox&) = default;
};

constexpr ExpandBox ExpandBoxAt(Point centre, const ListMetrics& m = kListMetrics)
{
    const Rect pixel{centre.x, centre.y, centre.x + 1, centre.y + 1};
    const Rect box = Grow(pixel, m.boxReach);
    return {box, Grow(pixel, m.minusReach, 0, m.minusReach, 0), Grow(pixel, 0, m.minusReach, 0, m.minusReach),
            Grow(box, m.boxFrameGap)};
}

/// Top left corner of a state picture.
constexpr Point MarkCorner(Point centre, const ListMetrics& m = kListMetrics)
{
    return {centre.x - m.markSize / 2, centre.y - m.markSize / 2};
}

/// The grid lines of a row as areas of one pixel's width. The indent column has no line.
struct GridLines {
    Rect left;    ///< left edge of the name, down to the bottom line
    Rect bottom;  ///< under name and data, one pixel longer than the data column
    Rect divider; ///< left edge of the data
};

constexpr GridLines GridLinesOf(const Rect& name, const Rect& data)
{
    return {{name.left, name.top, name.left + 1, name.bottom - 1},
            {name.left, name.bottom - 1, data.right + 1, name.bottom},
            {name.right, name.top, name.right + 1, name.bottom}};
}

/// Where the text of a name or data cell stands.
constexpr Rect CellText(const Rect& cell, const ListMetrics& m = kListMetrics)
{
    return Grow(cell, -m.textLeft, -m.textTop, -m.textRight, -m.textBottom);
}

/// The button at the right end of a data cell, as wide as the cell is high.
constexpr Rect ButtonPlace(const Rect& data)
{
    return {data.right - data.Height(), data.top, data.right, data.bottom};
}

/// What a button leaves of a data cell.
constexpr Rect LeftOfButton(const Rect& data, bool button)
{
    return {data.left, data.top, button ? ButtonPlace(data).left : data.right, data.bottom};
}

/// The text box in a cell: its top stands half the difference between cell and text lower than the cell's.
constexpr Rect TextBoxPlace(const Rect& cell, int textHeight, const ListMetrics& m = kListMetrics)
{
    return {cell.left + m.editLeft, cell.top + (cell.Height() - textHeight) / 2, cell.right,
            cell.bottom - m.editBottom};
}

/// The drop list in a cell; its window is as deep as the opened list.
constexpr Rect DropListPlace(const Rect& data, bool button, const ListMetrics& m = kListMetrics)
{
    return {data.left + m.editLeft, data.top, button ? data.right - data.Height() : data.right,
            data.bottom + m.dropListDepth};
}

/// Height of a row for a text height.
constexpr int RowHeightFor(int textHeight, const ListMetrics& m = kListMetrics)
{
    return textHeight + textHeight * m.rowHeightPercent / 100;
}

static_assert(SplitRow({0, 0, 300, 18}, {.level = 3}).name == Rect{15, 0, 100, 18});
static_assert(MarkCentre({0, 0, 15, 18}, 15) == Point{7, 8});
