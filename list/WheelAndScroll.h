// Rules of the mouse wheel, of zooming and of the vertical scroll bar.
#pragma once

#include "list/Metrics.h"

#include <algorithm>
#include <cstdint>

/// Lines of a wheel turn: whole notches, the rest is dropped, so that half a notch down counts as 0.
constexpr int WheelNotches(int16_t turn)
{
    return turn / 120;
}

/// Font height after a turn with Ctrl held. Even heights overshoot the limits by one; they are never clamped.
constexpr int ZoomedFontHeight(int height, int notches, const ListMetrics& m = kListMetrics)
{
    if (notches < 0 && height < m.zoomSmallest)
        return height + m.zoomStep;
    if (notches > 0 && height > m.zoomLargest)
        return height - m.zoomStep;
    return height;
}

/// The codes of a vertical scroll message, by their numbers on the platform.
enum class ScrollCode : int {
    LineUp = 0,
    LineDown = 1,
    PageUp = 2,
    PageDown = 3,
    ThumbPosition = 4,
    ThumbTrack = 5,
    Top = 6,
    Bottom = 7,
    End = 8,
};

/// Last position of a scroll bar.
constexpr int ScrollLimit(int maximum, int page)
{
    return maximum - std::max(page - 1, 0);
}

/// False for a scroll that can change nothing; such a message is swallowed whole, and edits stay open.
constexpr bool ScrollActs(ScrollCode code, int position, int limit)
{
    switch (code) {
    case ScrollCode::LineUp:
    case ScrollCode::PageUp:
    case ScrollCode::Top: return position != 0;
    case ScrollCode::LineDown:
    case ScrollCode::PageDown:
    case ScrollCode::Bottom: return position != limit;
    case ScrollCode::End: return false;
    default: return true;
    }
}
