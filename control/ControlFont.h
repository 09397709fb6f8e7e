// Fonts of a control: the container's, a default one, and what a window needs of either.
#pragma once

#include "platform/atl/ComPtr.h"
#include "platform/com/Ole.h"

#include <ocidl.h>

/// The font of a control whose container offers none.
struct DefaultFont {
    const OLECHAR* face;
    int points;
    SHORT weight;
    bool italic;
};

/// A copy of the container's ambient font; null when it offers none.
CComPtr<IFontDisp> CloneAmbientFont(IOleClientSite* site);
/// Null when the platform refuses.
CComPtr<IFontDisp> MakeFont(const DefaultFont& font);
/// Description of the platform's font behind an OLE font. False when there is none.
bool ReadLogFont(IFontDisp* font, LOGFONTW& out);
