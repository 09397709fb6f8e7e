// The strokes that painting consists of. Painters draw what a layout says on a Canvas; the platform's canvas draws
// it on a device context, the tests' canvas writes it down.
#pragma once

#include "platform/com/Ole.h"
#include "platform/draw/Rect.h"

/// Text and the ground that it stands on, 0x00BBGGRR.
struct TextColours {
    COLORREF text = 0;
    COLORREF ground = 0;

    friend constexpr bool operator==(const TextColours&, const TextColours&) = default;
};

/// Where a line of text stands in its box.
enum class VerticalPlace { Top, Centre };

class Canvas {
public:
    virtual void Fill(const Rect& area, COLORREF colour) = 0;
    /// One pixel wide, inside the area.
    virtual void Frame(const Rect& area, COLORREF colour) = 0;
    /// Straight line without its last point.
    virtual void Line(Point from, Point to, int width, COLORREF colour) = 0;
    /// One line of text in the selected font from the left edge of the box, cut off at the box.
    virtual void TextLine(const Rect& box, TextView text, TextColours colours, VerticalPlace place) = 0;
    /// Straight line of every other pixel, where the platform can; without its last point.
    virtual void AlternateLine(Point from, Point to, COLORREF colour) = 0;
    virtual bool HasStateImages() const = 0;
    /// One picture of the state images, transparent.
    virtual void StateImage(int index, Point at) = 0;
    /// How many leading characters fit into a width in the selected font.
    virtual std::size_t FittingCharacters(TextView text, int width) = 0;

protected:
    Canvas() = default;
    ~Canvas() = default;
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
};
