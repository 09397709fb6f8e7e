// A canvas that writes down what is painted, one stroke to a line; every character is ten pixels wide.
#pragma once

#include "platform/draw/Canvas.h"

#include <sstream>
#include <string>
#include <vector>

class RecordingCanvas final : public Canvas {
public:
    static constexpr int kCharacterWidth = 10;

    std::vector<std::string> strokes;
    bool hasImages = true;

    void Fill(const Rect& area, COLORREF colour) override { Note("fill ", area, colour); }
    void Frame(const Rect& area, COLORREF colour) override { Note("frame ", area, colour); }
    void Line(Point from, Point to, int width, COLORREF colour) override
    {
        std::ostringstream out;
        out << "line " << from.x << ',' << from.y << " to " << to.x << ',' << to.y << " width " << width
            << Colour(colour);
        strokes.push_back(out.str());
    }
    void AlternateLine(Point from, Point to, COLORREF colour) override
    {
        std::ostringstream out;
        out << "dots " << from.x << ',' << from.y << " to " << to.x << ',' << to.y << Colour(colour);
        strokes.push_back(out.str());
    }
    void TextLine(const Rect& box, TextView text, TextColours colours, VerticalPlace place) override
    {
        std::ostringstream out;
        out << "text '" << std::string(text.begin(), text.end()) << "' in " << Area(box)
            << (place == VerticalPlace::Centre ? " centred" : " top") << Colour(colours.text) << " on"
            << Colour(colours.ground);
        strokes.push_back(out.str());
    }
    bool HasStateImages() const override { return hasImages; }
    void StateImage(int index, Point at) override
    {
        strokes.push_back("image " + std::to_string(index) + " at " + std::to_string(at.x) + "," +
                          std::to_string(at.y));
    }
    std::size_t FittingCharacters(TextView text, int width) override
    {
        const int fitting = width < 0 ? 0 : width / kCharacterWidth;
        return std::min(text.size(), static_cast<std::size_t>(fitting));
    }

private:
    static std::string Area(const Rect& r)
    {
        std::ostringstream out;
        out << r.left << ',' << r.top << ',' << r.right << ',' << r.bottom;
        return out.str();
    }
    static std::string Colour(COLORREF colour)
    {
        std::ostringstream out;
        out << ' ' << std::hex << std::uppercase << colour;
        return out.str();
    }
    void Note(const char* stroke, const Rect& area, COLORREF colour)
    {
        strokes.push_back(stroke + Area(area) + Colour(colour));
    }
};
