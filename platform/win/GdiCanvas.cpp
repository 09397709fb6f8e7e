#include "platform/win/GdiCanvas.h"

#include "platform/win/Rectangles.h"

#include <algorithm>

GdiCanvas::GdiCanvas(HDC dc, HIMAGELIST images)
    : m_dc(dc), m_images(images), m_textBefore(GetTextColor(dc)), m_groundBefore(GetBkColor(dc))
{
}

GdiCanvas::~GdiCanvas()
{
    SetTextColor(m_dc, m_textBefore);
    SetBkColor(m_dc, m_groundBefore);
}

/// An empty opaque text: the quickest fill, it needs no brush.
void GdiCanvas::Fill(const Rect& area, COLORREF colour)
{
    if (area.IsEmpty())
        return;
    const RECT r = ToPlatform(area);
    SetBkColor(m_dc, colour);
    ExtTextOutW(m_dc, 0, 0, ETO_OPAQUE, &r, nullptr, 0, nullptr);
}

void GdiCanvas::Frame(const Rect& r, COLORREF colour)
{
    Fill({r.left, r.top, r.right, r.top + 1}, colour);
    Fill({r.left, r.bottom - 1, r.right, r.bottom}, colour);
    Fill({r.left, r.top, r.left + 1, r.bottom}, colour);
    Fill({r.right - 1, r.top, r.right, r.bottom}, colour);
}

void GdiCanvas::Line(Point from, Point to, int width, COLORREF colour)
{
    Stroke(PenOwner(CreatePen(PS_SOLID, width, colour)), from, to);
}

/// A geometric pen as first choice; platforms that know the style for cosmetic pens alone give that.
void GdiCanvas::AlternateLine(Point from, Point to, COLORREF colour)
{
    const LOGBRUSH brush{BS_SOLID, colour, 0};
    HPEN pen = ExtCreatePen(PS_GEOMETRIC | PS_ALTERNATE, 1, &brush, 0, nullptr);
    if (!pen)
        pen = ExtCreatePen(PS_COSMETIC | PS_ALTERNATE, 1, &brush, 0, nullptr);
    if (!pen)
        pen = CreatePen(PS_SOLID, 1, colour);
    Stroke(PenOwner(pen), from, to);
}

void GdiCanvas::Stroke(const PenOwner& pen, Point from, Point to)
{
    const SelectionScope selected(m_dc, pen.Get());
    MoveToEx(m_dc, from.x, from.y, nullptr);
    LineTo(m_dc, to.x, to.y);
}

void GdiCanvas::TextLine(const Rect& box, TextView text, TextColours colours, VerticalPlace place)
{
    RECT r = ToPlatform(box);
    SetTextColor(m_dc, colours.text);
    SetBkColor(m_dc, colours.ground);
    const UINT format = DT_SINGLELINE | DT_NOPREFIX | (place == VerticalPlace::Centre ? DT_VCENTER : 0U);
    DrawTextW(m_dc, text.data(), static_cast<int>(text.size()), &r, format);
}

void GdiCanvas::StateImage(int index, Point at)
{
    ImageList_DrawEx(m_images, index, m_dc, at.x, at.y, 0, 0, CLR_NONE, CLR_DEFAULT, ILD_TRANSPARENT);
}

std::size_t GdiCanvas::FittingCharacters(TextView text, int width)
{
    int fitting = 0;
    SIZE extent{};
    if (text.empty() || width <= 0)
        return 0;
    GetTextExtentExPointW(m_dc, text.data(), static_cast<int>(text.size()), width, &fitting, nullptr, &extent);
    return static_cast<std::size_t>(fitting);
}

SIZE TextExtent(HDC dc, TextView text)
{
    SIZE extent{};
    GetTextExtentPoint32W(dc, text.data(), static_cast<int>(text.size()), &extent);
    return extent;
}
