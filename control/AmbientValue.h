// What a container tells the controls in it: its ambient properties.
#pragma once

#include "platform/atl/ComPtr.h"
#include "platform/atl/ComVariant.h"

/// False, with `out` empty, when there is no site or it does not offer the value.
bool ReadAmbient(IOleClientSite* site, DISPID id, CComVariant& out);
