// Runs a raising piece of code as the body of an interface method, so that a test looks at its code and description.
#pragma once

#include "LV_prpPropCollection.h"
#include "frame/MethodFrame.h"

template <class Body>
HRESULT Framed(const Body& body)
{
    return InFrame({CLSID_prpProperty, IID_IqorProperty}, OLESTR("Test::Method"), [&](const Checks&) { body(); });
}
