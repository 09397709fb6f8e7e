#include "control/ControlFont.h"

#include "control/AmbientValue.h"

#include <olectl.h>

CComPtr<IFontDisp> CloneAmbientFont(IOleClientSite* site)
{
    CComVariant value;
    if (!ReadAmbient(site, DISPID_AMBIENT_FONT, value) || V_VT(&value) != VT_DISPATCH || !V_DISPATCH(&value))
        return nullptr;
    CComPtr<IFont> font;
    CComPtr<IFont> copy;
    CComPtr<IFontDisp> own;
    if (FAILED(V_DISPATCH(&value)->QueryInterface(IID_IFont, reinterpret_cast<void**>(&font))) ||
        FAILED(font->Clone(&copy)) || FAILED(copy->QueryInterface(IID_IFontDisp, reinterpret_cast<void**>(&own))))
        return nullptr;
    return own;
}

CComPtr<IFontDisp> MakeFont(const DefaultFont& font)
{
    constexpr LONGLONG kUnitsPerPoint = 10000;
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = const_cast<OLECHAR*>(font.face); // the record knows no const
    description.cySize.int64 = font.points * kUnitsPerPoint;
    description.sWeight = font.weight;
    description.sCharset = DEFAULT_CHARSET;
    description.fItalic = font.italic;
    CComPtr<IFontDisp> made;
    OleCreateFontIndirect(&description, IID_IFontDisp, reinterpret_cast<void**>(&made));
    return made;
}

bool ReadLogFont(IFontDisp* font, LOGFONTW& out)
{
    CComPtr<IFont> face;
    HFONT handle = nullptr;
    return font && SUCCEEDED(font->QueryInterface(IID_IFont, reinterpret_cast<void**>(&face))) &&
           SUCCEEDED(face->get_hFont(&handle)) && GetObjectW(handle, sizeof out, &out) == sizeof out;
}
