// Every pixel constant of the property list, its rows and their editors, in one record with its defaults.
// Pixels at 96 dots per inch; the list does not scale by resolution.
#pragma once

struct ListMetrics {
    // Columns
    int rowUnit = 15;            ///< width of one tree level and of the column of the expand box
    int dividerStart = 100;      ///< divider position of a new list
    int dividerReach = 5;        ///< the pointer is on the divider within this distance, both ends included
    int dividerMinimum = 40;     ///< keys never take the divider nearer to the left edge
    int dividerRightMargin = 40; ///< nor nearer to the right edge of the window
    int dividerStep = 2;         ///< one key step
    int dragLeftMargin = 30;     ///< beside the unit: left edge of the pointer's cage while the divider is dragged
    int dragScrolledMargin = 10; ///< the same in a list scrolled further than that
    int dragRightMargin = 40;    ///< right edge of the cage

    // Expand box, marks
    int boxReach = 4;    ///< the box covers this many pixels on each side of its centre
    int minusReach = 2;  ///< so do the strokes in it
    int boxFrameGap = 2; ///< the frame of a collapsed row with errors stands this far outside the box
    int markSize = 12;   ///< error and warning picture, square
    int crossReach = 3;  ///< the cross that stands in for the error picture
    int crossWidth = 2;

    // Cells
    int textLeft = 5; ///< from the cell's left edge to its text
    int textTop = 1;
    int textRight = 1;
    int textBottom = 1;
    int namePadding = 8;       ///< added to the width of a name
    int dataPadding = 4;       ///< added to the width of a data text
    int rowHeightPercent = 40; ///< of the text height, added to it, truncated
    int shortNameMinimum = 4;  ///< names are not cut further before the dots replace their tail
    int shortNameDots = 3;     ///< characters that give way to the dots

    // Editors
    int editLeft = 1; ///< from the data cell's left edge to an editor
    int editBottom = 1;
    int editMargin = 4;          ///< white space inside the text box, each side
    int dropListDepth = 100;     ///< height of the opened drop list
    int measuredEditWidth = 100; ///< an editor that is made only to be measured

    // Font heights of zoom
    int zoomSmallest = -11;
    int zoomLargest = -21;
    int zoomStep = 2;
    int highestRow = 255; ///< the platform list refuses higher rows

    // Tips
    double tipWidthFactor = 0.75; ///< widest tip over the width of the list, truncated
    int tipShowTime = 30000;      ///< milliseconds
};

inline constexpr ListMetrics kListMetrics{};
