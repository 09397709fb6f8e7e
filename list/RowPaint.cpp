#include "list/RowPaint.h"

#include "list/ShortName.h"

namespace {

constexpr COLORREF kBoxGround = 0xFFFFFF;
constexpr COLORREF kBoxInk = 0;

void PaintConnectors(Canvas& canvas, const Rect& indent, Point centre, int unit, const Connectors& lines)
{
    const int top = lines.firstRow ? centre.y : indent.top;
    const int bottom = lines.lastVisibleChild ? centre.y : indent.bottom;
    canvas.AlternateLine({centre.x, top}, {centre.x, bottom}, lines.colour);
    canvas.AlternateLine(centre, {indent.right, centre.y}, lines.colour);
    int x = centre.x;
    for (const bool later : lines.laterSiblings) {
        x -= unit;
        if (later)
            canvas.AlternateLine({x, indent.top}, {x, indent.bottom}, lines.colour);
    }
}

void PaintCross(Canvas& canvas, Point centre, COLORREF colour)
{
    const int reach = kListMetrics.crossReach;
    const int width = kListMetrics.crossWidth;
    canvas.Line({centre.x - reach, centre.y - reach}, {centre.x + reach, centre.y + reach}, width, colour);
    canvas.Line({centre.x - reach, centre.y + reach}, {centre.x + reach, centre.y - reach}, width, colour);
}

/// The error mark goes before the warning mark; only the error mark has a substitute for a missing picture.
void PaintStateMark(Canvas& canvas, Point centre, const IndentLook& look, const SqorLBDrawSettings& settings)
{
    if (look.invalid) {
        if (canvas.HasStateImages())
            canvas.StateImage(kErrorImage, MarkCorner(centre));
        else
            PaintCross(canvas, centre, settings.m_crInvalidDataItem);
    } else if (look.warning && canvas.HasStateImages()) {
        canvas.StateImage(kWarningImage, MarkCorner(centre));
    }
}

void PaintExpandBox(Canvas& canvas, Point centre, const IndentLook& look, const SqorLBDrawSettings& settings)
{
    const ExpandBox shape = ExpandBoxAt(centre);
    canvas.Fill(shape.box, kBoxGround);
    canvas.Frame(shape.box, kBoxInk);
    canvas.Fill(shape.minus, kBoxInk);
    if (!look.collapsed)
        return;
    canvas.Fill(shape.stroke, kBoxInk);
    if (look.invalid || look.warning || look.childInvalid)
        canvas.Frame(shape.errorFrame, settings.m_crInvalidDataItem);
}

} // namespace

void PaintIndentColumn(Canvas& canvas, const Rect& indent, const IndentLook* look, const SqorLBDrawSettings& settings)
{
    canvas.Fill(indent, settings.m_crBackground);
    if (!look)
        return;
    const Point centre = MarkCentre(indent, look->unit);
    if (look->connectors)
        PaintConnectors(canvas, indent, centre, look->unit, *look->connectors);
    if (look->hasChildren)
        PaintExpandBox(canvas, centre, *look, settings);
    else if (!look->connectors)
        PaintStateMark(canvas, centre, *look, settings);
}

void PaintRowGround(Canvas& canvas, const Rect& name, const Rect& data, const RowState& state,
                    const SqorLBDrawSettings& settings)
{
    canvas.Fill(name, NameColours(state, settings).ground);
    canvas.Fill(data, settings.m_crBackground);
    const GridLines lines = GridLinesOf(name, data);
    canvas.Fill(lines.left, settings.m_crGridLine);
    canvas.Fill(lines.bottom, settings.m_crGridLine);
    canvas.Fill(lines.divider, settings.m_crGridLine);
}

void PaintName(Canvas& canvas, const Rect& cell, TextView name, const RowState& state,
               const SqorLBDrawSettings& settings)
{
    const Rect box = CellText(cell);
    const std::size_t fitting = canvas.FittingCharacters(name, box.Width());
    const TextColours colours = NameColours(state, settings);
    if (fitting >= name.size())
        canvas.TextLine(box, name, colours, VerticalPlace::Centre);
    else
        canvas.TextLine(box, ShortenName(name, fitting), colours, VerticalPlace::Centre);
}

void PaintData(Canvas& canvas, const Rect& cell, TextView data, VerticalPlace place, const RowState& state,
               const SqorLBDrawSettings& settings)
{
    if (!data.empty())
        canvas.TextLine(CellText(cell), data, DataColours(state, settings), place);
}
