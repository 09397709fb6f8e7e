// Keeping a colour apart from the ground that it stands on.
#pragma once

#include "platform/com/Ole.h"

#include <cmath>

/// Moves a colour away from a background that it is too near to, by the distance of their red, green and blue bytes.
/// Both are plain colours, translated from their OLE forms.
/// @param minDistance  0 to 255; a colour at just this distance stands
inline COLORREF EnsureContrast(COLORREF colour, COLORREF background, int minDistance)
{
    constexpr int kByte = 0xFF;
    constexpr int kMiddle = 128;
    float squares = 0;
    for (int shift = 0; shift <= 16; shift += 8) {
        const float apart = static_cast<float>(static_cast<int>(colour >> shift & kByte) -
                                               static_cast<int>(background >> shift & kByte));
        squares += apart * apart;
    }
    if (!(std::sqrt(squares) < static_cast<float>(minDistance)))
        return colour;
    COLORREF moved = 0;
    for (int shift = 0; shift <= 16; shift += 8) {
        const int part = static_cast<int>(colour >> shift & kByte);
        const int replaced = part < kMiddle ? minDistance : kByte + 1 - minDistance;
        moved |= static_cast<COLORREF>(replaced & kByte) << shift;
    }
    return moved;
}
