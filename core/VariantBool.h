// Truth values at an interface: any non-zero value coming in is true, and true going out is -1.
#pragma once

#include "platform/com/Ole.h"

constexpr bool In(VARIANT_BOOL flag)
{
    return flag != VARIANT_FALSE;
}

constexpr VARIANT_BOOL Out(bool flag)
{
    return flag ? VARIANT_TRUE : VARIANT_FALSE;
}
