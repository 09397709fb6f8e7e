// From the layout's values to the platform's and back.
#pragma once

#include "platform/com/Ole.h"
#include "platform/draw/Rect.h"

constexpr RECT ToPlatform(const Rect& r)
{
    return {r.left, r.top, r.right, r.bottom};
}
constexpr Rect FromPlatform(const RECT& r)
{
    return {r.left, r.top, r.right, r.bottom};
}
constexpr POINT ToPlatform(Point p)
{
    return {p.x, p.y};
}
/// Signed coordinates of a mouse message.
inline Point PointOf(LPARAM lParam)
{
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}
inline Rect ClientRectOf(HWND window)
{
    RECT r{};
    GetClientRect(window, &r);
    return FromPlatform(r);
}
inline Rect WindowRectOf(HWND window)
{
    RECT r{};
    GetWindowRect(window, &r);
    return FromPlatform(r);
}
