// CprpColorGroup, a group box that paints itself in given colours.
#pragma once

#include "platform/draw/Rect.h"
#include "platform/win/Controls.h"

#include <olectl.h>

class CprpColorGroup : public CButton {
public:
    /// OLE colours; what they stand for is taken now.
    void SetBackgroundColour(OLE_COLOR colour);
    void SetTextColour(OLE_COLOR colour);

protected:
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void DrawItem(const DRAWITEMSTRUCT& item) const;

    COLORREF m_clrBackground = 0;
    COLORREF m_clrText = 0;
};

/// Where the frame and the title of a group box stand.
struct GroupBoxLayout {
    Rect frame;
    Rect title;
};

/// The frame starts at half the title's height; the title breaks its upper line.
/// @param title  as measured, at 0,0
constexpr GroupBoxLayout LayOutGroupBox(const Rect& item, const Rect& title)
{
    return {{item.left, item.top + title.Height() / 2, item.right, item.bottom},
            {title.left + 6, title.top - 2, title.right + 4 + 6, title.bottom + 4 - 2}};
}
