// Where the parts of the window stand. Client pixels; values in, values out.
#pragma once

#include "platform/draw/Rect.h"

#include <algorithm>

struct HostMetrics {
    int splitter = 5;       ///< width of the bar between grid and events
    int smallestPart = 120; ///< neither side of it gets narrower while the window has room for both
};

inline constexpr HostMetrics kHostMetrics{};

struct HostParts {
    Rect grid;
    Rect splitter;
    Rect events;
};

/// @param client  without the status line.
/// @param eventsWidth  as the user wants it.
constexpr HostParts SplitHost(Rect client, int eventsWidth)
{
    const int most = client.Width() - kHostMetrics.splitter - kHostMetrics.smallestPart;
    const int width =
        std::clamp(eventsWidth, std::min(kHostMetrics.smallestPart, std::max(most, 0)), std::max(most, 0));
    const int middle = std::max(client.right - width - kHostMetrics.splitter, client.left);
    HostParts parts{client, client, client};
    parts.grid.right = parts.splitter.left = middle;
    parts.splitter.right = parts.events.left = std::min(middle + kHostMetrics.splitter, client.right);
    return parts;
}

/// Width of the events when the splitter is dragged to x.
constexpr int EventsWidthAt(Rect client, int x)
{
    return client.right - x - kHostMetrics.splitter;
}

static_assert(SplitHost({0, 0, 805, 600}, 300).grid == Rect{0, 0, 500, 600});
static_assert(SplitHost({0, 0, 805, 600}, 300).events == Rect{505, 0, 805, 600});
static_assert(SplitHost({0, 0, 805, 600}, 10).events.Width() == kHostMetrics.smallestPart);
static_assert(SplitHost({0, 0, 805, 600}, 10000).grid.Width() == kHostMetrics.smallestPart);
static_assert(SplitHost({0, 0, 805, 600}, EventsWidthAt({0, 0, 805, 600}, 321)).splitter.left == 321);
static_assert(SplitHost({0, 0, 3, 600}, 300).grid == Rect{0, 0, 0, 600});
