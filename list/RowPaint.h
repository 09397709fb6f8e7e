// Painting of one row as strokes on a canvas: the indent column, the ground with its grid lines, name and data.
#pragma once

#include "list/DrawSettings.h"
#include "list/Metrics.h"
#include "list/RowLayout.h"
#include "platform/draw/Canvas.h"

#include <vector>

/// State pictures by their place in the image list.
enum StateImage : int { kErrorImage = 0, kWarningImage = 1 };

/// Connector lines of a tree list.
struct Connectors {
    COLORREF colour = 0;
    bool firstRow = false;
    bool lastVisibleChild = false;
    std::vector<bool> laterSiblings = {}; ///< for each ancestor, nearest first: it has a later sibling
};

/// What the indent column of an item shows.
struct IndentLook {
    int unit = kListMetrics.rowUnit;
    bool hasChildren = false;
    bool collapsed = true;
    bool invalid = false;
    bool warning = false;
    bool childInvalid = false;
    const Connectors* connectors = nullptr; ///< null in a property list
};

/// @param look  null paints the empty column
void PaintIndentColumn(Canvas& canvas, const Rect& indent, const IndentLook* look, const SqorLBDrawSettings& settings);

/// Fills name and data and draws the grid lines. Only the name column shows the selection.
void PaintRowGround(Canvas& canvas, const Rect& name, const Rect& data, const RowState& state,
                    const SqorLBDrawSettings& settings);

/// Name in the selected font, shortened to its column.
void PaintName(Canvas& canvas, const Rect& cell, TextView name, const RowState& state,
               const SqorLBDrawSettings& settings);

/// Data text; cut off at the cell, never shortened.
void PaintData(Canvas& canvas, const Rect& cell, TextView data, VerticalPlace place, const RowState& state,
               const SqorLBDrawSettings& settings);
