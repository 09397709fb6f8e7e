// Colours in their OLE form: plain, or the number of a system colour.
#pragma once

#include "platform/com/Ole.h"

#include <olectl.h>

constexpr OLE_COLOR OleSystemColour(int index)
{
    return 0x80000000U | static_cast<OLE_COLOR>(index);
}

/// The plain colour of now. A form that the platform does not know counts by its three bytes.
inline COLORREF Translated(OLE_COLOR colour)
{
    COLORREF plain = 0;
    return SUCCEEDED(OleTranslateColor(colour, nullptr, &plain)) ? plain : colour & 0xFFFFFF;
}
