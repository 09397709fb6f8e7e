#include "toolkit/prpColorGroup.h"

#include "platform/win/GdiCanvas.h"
#include "platform/win/Rectangles.h"
#include "platform/win/Reflection.h"

namespace {

COLORREF Translate(OLE_COLOR colour)
{
    COLORREF translated = 0;
    OleTranslateColor(colour, nullptr, &translated);
    return translated;
}

} // namespace

void CprpColorGroup::SetBackgroundColour(OLE_COLOR colour)
{
    m_clrBackground = Translate(colour);
    Invalidate(true);
}

void CprpColorGroup::SetTextColour(OLE_COLOR colour)
{
    m_clrText = Translate(colour);
    Invalidate(true);
}

LRESULT CprpColorGroup::OnMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message != WM_DRAWITEM + kReflected)
        return CButton::OnMessage(message, wParam, lParam);
    DrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    return TRUE;
}

void CprpColorGroup::DrawItem(const DRAWITEMSTRUCT& item) const
{
    if ((item.itemAction & ODA_DRAWENTIRE) == 0)
        return;
    constexpr UINT kTitleFormat = DT_SINGLELINE | DT_VCENTER | DT_CENTER;
    const HDC dc = item.hDC;
    const int saved = SaveDC(dc);
    const Text title = WindowText();
    SetBkColor(dc, m_clrBackground);
    SetTextColor(dc, m_clrText);

    RECT measured{};
    DrawTextW(dc, title.data(), static_cast<int>(title.size()), &measured, kTitleFormat | DT_CALCRECT);
    const GroupBoxLayout layout = LayOutGroupBox(FromPlatform(item.rcItem), FromPlatform(measured));
    GdiCanvas(dc).Fill(FromPlatform(item.rcItem), m_clrBackground);
    RECT frame = ToPlatform(layout.frame);
    DrawEdge(dc, &frame, EDGE_ETCHED, BF_RECT);
    if (!title.empty()) { // an empty title leaves no gap in the frame
        GdiCanvas(dc).Fill(layout.title, m_clrBackground);
        RECT text = ToPlatform(layout.title);
        DrawTextW(dc, title.data(), static_cast<int>(title.size()), &text, kTitleFormat);
    }
    RestoreDC(dc, saved);
}
