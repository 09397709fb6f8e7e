// Points and rectangles of client pixels. Plain values: layouts are computed and tested without a window.
#pragma once

struct Point {
    int x = 0;
    int y = 0;

    friend constexpr bool operator==(const Point&, const Point&) = default;
};

/// Right and bottom edges are exclusive, as everywhere on the platform.
struct Rect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    constexpr int Width() const { return right - left; }
    constexpr int Height() const { return bottom - top; }
    constexpr bool IsEmpty() const { return right <= left || bottom <= top; }
    constexpr bool Contains(Point p) const { return p.x >= left && p.x < right && p.y >= top && p.y < bottom; }

    friend constexpr bool operator==(const Rect&, const Rect&) = default;
};

/// Grows each side by its own number of pixels; negative numbers shrink.
constexpr Rect Grow(Rect r, int left, int top, int right, int bottom)
{
    return {r.left - left, r.top - top, r.right + right, r.bottom + bottom};
}
constexpr Rect Grow(Rect r, int by)
{
    return Grow(r, by, by, by, by);
}
constexpr Rect Move(Rect r, int dx, int dy)
{
    return {r.left + dx, r.top + dy, r.right + dx, r.bottom + dy};
}
