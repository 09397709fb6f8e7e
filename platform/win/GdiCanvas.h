// Strokes on a device context, in the font that is selected there.
#pragma once

#include "platform/draw/Canvas.h"
#include "platform/win/HandleOwners.h"

/// Lives within one paint; puts the context's colours back at the end.
class GdiCanvas final : public Canvas {
public:
    /// @param images  state images, or null; not owned
    explicit GdiCanvas(HDC dc, HIMAGELIST images = nullptr);
    ~GdiCanvas();

    void Fill(const Rect& area, COLORREF colour) override;
    void Frame(const Rect& area, COLORREF colour) override;
    void Line(Point from, Point to, int width, COLORREF colour) override;
    void AlternateLine(Point from, Point to, COLORREF colour) override;
    void TextLine(const Rect& box, TextView text, TextColours colours, VerticalPlace place) override;
    bool HasStateImages() const override { return m_images != nullptr; }
    void StateImage(int index, Point at) override;
    std::size_t FittingCharacters(TextView text, int width) override;

private:
    void Stroke(const PenOwner& pen, Point from, Point to);

    HDC m_dc;
    HIMAGELIST m_images;
    COLORREF m_textBefore;
    COLORREF m_groundBefore;
};

/// Extent of one line in the selected font.
SIZE TextExtent(HDC dc, TextView text);
