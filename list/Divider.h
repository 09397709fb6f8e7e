// Arithmetic of the divider between names and data: the pointer on it, its cage while dragged, its key steps.
#pragma once

#include "list/Metrics.h"
#include "platform/draw/Rect.h"

/// True when the pointer is near enough to take the divider.
/// @param x  client pixels, scroll offset included
constexpr bool IsOnDivider(int x, int divider, const ListMetrics& m = kListMetrics)
{
    return x >= divider - m.dividerReach && x <= divider + m.dividerReach;
}

/// Where the pointer may go while it drags the divider. It alone limits the drag; positions are stored unclamped.
/// @param window  screen pixels
constexpr Rect DividerCage(Rect window, int scrollPosition, int unit, const ListMetrics& m = kListMetrics)
{
    const int margin = unit + m.dragLeftMargin;
    window.left += scrollPosition < margin ? margin - scrollPosition : m.dragScrolledMargin;
    window.right -= m.dragRightMargin;
    return window;
}

/// Result of a key step: the new position, and whether edits end and the list repaints for it.
struct DividerStep {
    int position = 0;
    bool repaints = false;

    friend constexpr bool operator==(const DividerStep&, const DividerStep&) = default;
};

/// A step that would pass the limit stores the limit and does nothing else.
constexpr DividerStep DividerStepLeft(int divider, const ListMetrics& m = kListMetrics)
{
    const int to = divider - m.dividerStep;
    return to < m.dividerMinimum ? DividerStep{m.dividerMinimum, false} : DividerStep{to, true};
}

/// @param windowWidth  of the whole window, borders included
constexpr DividerStep DividerStepRight(int divider, int windowWidth, const ListMetrics& m = kListMetrics)
{
    const int limit = windowWidth - m.dividerRightMargin;
    const int to = divider + m.dividerStep;
    return to > limit ? DividerStep{limit, false} : DividerStep{to, true};
}
