// The list's mouse: the divider, selection, the expand box, and the tips of rows.
#include "list/qorODListBox.h"

#include "list/Divider.h"
#include "list/GridMessages.h"
#include "list/TipText.h"
#include "list/WindowIds.h"
#include "platform/win/Rectangles.h"

#include "frame/Raise.h"

#include <algorithm>
#include <utility>

Point CqorODListBox::Corrected(Point client) const
{
    if ((GetWindowLongPtrW(Handle(), GWL_STYLE) & WS_HSCROLL) != 0)
        client.x += GetScrollPos(Handle(), SB_HORZ);
    return client;
}

bool CqorODListBox::IsOverDivider(Point corrected) const
{
    if (!IsOnDivider(corrected.x, m_nDividerPos))
        return false;
    const int row = RowFromPoint(corrected).row;
    return row >= 0 && corrected.y <= RowRect(row).bottom;
}

RowPart CqorODListBox::HitTest(Point client) const
{
    const int row = RowFromPoint(client).row;
    const CqorLBItem* const item = ItemAt(row);
    if (!item)
        return RowPart::Outside;
    return HitTestRow(Corrected(client), RowRect(row), ColumnsOf(*item), item->HasChildren());
}

LRESULT CqorODListBox::OnMouseMove(Point client, WPARAM wParam, LPARAM lParam)
{
    if (!m_bMouseTracked) {
        TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, Handle(), 0};
        m_bMouseTracked = TrackMouseEvent(&track) != FALSE;
    }
    if (IsPropertyList()) {
        const Point p = Corrected(client);
        if (m_bDividerDrag) {
            if (p.x != m_nDividerPos) {
                m_nDividerPos = p.x;
                EndEdit();
                HideToolTip();
                Invalidate(true);
            }
            return 0;
        }
        if (IsOverDivider(p)) {
            SetClassCursor(m_hCursorSizeWE);
            HideToolTip();
            return 0;
        }
        SetClassCursor(m_hClassCursor);
    } else if (StartTreeDrag(client, wParam)) {
        return 0;
    }
    const LRESULT result = Default(WM_MOUSEMOVE, wParam, lParam);
    ShowTipFor(client);
    return result;
}

LRESULT CqorODListBox::OnMouseLeave()
{
    m_bMouseTracked = false;
    SetClassCursor(m_hCursorArrow);
    return 0;
}

LRESULT CqorODListBox::OnLeftDown(Point client, WPARAM wParam, LPARAM lParam)
{
    if (IsPropertyList() && IsOverDivider(Corrected(client))) {
        StartDividerDrag();
        return 0;
    }
    CqorLBItem* const item = ItemAt(RowFromPoint(client).row);
    if (item && HitTest(client) == RowPart::ExpandBox) {
        ExpandCollapse(*item);
        if (!item->IsRetired())
            PostToggled(*item);
        return 0;
    }
    if (IsTreeList())
        return OnTreeLeftDown(client, wParam, lParam);
    const LRESULT result = Default(WM_LBUTTONDOWN, wParam, lParam);
    if (!item || !IsPropertyList())
        return result;
    // Taking the focus may have committed an edit and moved the row that was pressed.
    const int row = item->IsRetired() ? RowFromPoint(client).row : FindRow(*item);
    if (row >= 0) {
        SetCurSel(row);
        RaiseSelectionChanged();
    }
    return result;
}

LRESULT CqorODListBox::OnLeftUp(Point client, WPARAM wParam, LPARAM lParam)
{
    if (IsTreeList())
        return OnTreeLeftUp(client, wParam, lParam);
    if (m_bDividerDrag) {
        StopDividerDrag();
        m_nDividerPos = Corrected(client).x;
        Invalidate(true);
        return 0;
    }
    const LRESULT result = Default(WM_LBUTTONUP, wParam, lParam);
    if (std::exchange(m_bDividerDoubleClicked, false))
        Invalidate(true);
    return result;
}

LRESULT CqorODListBox::OnDoubleClick(Point client, WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = Default(WM_LBUTTONDBLCLK, wParam, lParam);
    const Point p = Corrected(client);
    if (IsPropertyList() && IsOverDivider(p)) {
        AutoFitDivider();
        m_bDividerDoubleClicked = true;
        return result;
    }
    const int row = GetCurSel();
    CqorLBItem* const item = ItemAt(row);
    if (!item || !RowRect(row).Contains(p))
        return result;
    if (IsTreeList())
        item->OnDoubleClick();
    // No notification on this path: hosts hear of toggles by the expand box and by keys only.
    if (!item->IsRetired() && item->HasChildren())
        ExpandCollapse(*item);
    return result;
}

LRESULT CqorODListBox::OnRightDown(LPARAM lParam)
{
    if (IsTreeList())
        SendToParent(WM_RBUTTONDOWN, 0, lParam);
    return 0;
}

void CqorODListBox::StartDividerDrag()
{
    SetCursor(m_hCursorSizeWE);
    const RECT cage = ToPlatform(DividerCage(WindowRectOf(Handle()), GetScrollPos(Handle(), SB_HORZ), m_nRowUnit));
    ClipCursor(&cage);
    m_bDividerDrag = true;
    SetCapture(Handle());
    EndEdit();
}

void CqorODListBox::StopDividerDrag()
{
    if (!std::exchange(m_bDividerDrag, false))
        return;
    if (GetCapture() == Handle())
        ReleaseCapture();
    ClipCursor(nullptr);
}

void CqorODListBox::SetClassCursor(HCURSOR cursor)
{
    if (reinterpret_cast<HCURSOR>(GetClassLongPtrW(Handle(), GCLP_HCURSOR)) != cursor)
        SetClassLongPtrW(Handle(), GCLP_HCURSOR, reinterpret_cast<LONG_PTR>(cursor));
}

TOOLINFOW CqorODListBox::Tool() const
{
    TOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE; // every version of the common controls takes this one
    tool.hwnd = Handle();
    tool.uId = kTipToolId;
    return tool;
}

void CqorODListBox::CreateToolTip(int width)
{
    m_hToolTip = CreateWindowExW(0, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT,
                                 CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, Handle(), nullptr,
                                 GetModuleHandleW(nullptr), nullptr);
    SendMessageW(m_hToolTip, TTM_SETMAXTIPWIDTH, 0, MaxTipWidth(width));
    SendMessageW(m_hToolTip, TTM_SETDELAYTIME, TTDT_AUTOPOP, kListMetrics.tipShowTime);
    SendMessageW(m_hToolTip, TTM_ACTIVATE, FALSE, 0);
    OLECHAR noText[] = OLESTR("");
    TOOLINFOW tool = Tool();
    tool.uFlags = TTF_SUBCLASS;
    tool.lpszText = noText;
    SendMessageW(m_hToolTip, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void CqorODListBox::HideToolTip()
{
    SendMessageW(m_hToolTip, TTM_POP, 0, 0);
    SendMessageW(m_hToolTip, TTM_ACTIVATE, FALSE, 0);
    m_nTipItem = -1;
}

namespace {

constexpr std::size_t kPlatformTipText = 80; // the least room that the platform asks for

Text TipOf(const CqorLBItem& item, ListType type, const Text& warningPrefix)
{
    return TipTextOf({item.m_strError, item.m_strWarning, item.m_strHelp, item.m_strFallbackTip}, type, warningPrefix);
}

} // namespace

void CqorODListBox::ShowTipFor(Point client)
{
    const NearestRow nearest = RowFromPoint(client);
    const CqorLBItem* const item = ItemAt(nearest.row);
    if (!item || !nearest.inside || nearest.row == m_nTipItem)
        return;
    HideToolTip();
    m_nTipItem = nearest.row;
    SendMessageW(m_hToolTip, TTM_ACTIVATE, TRUE, 0);
    Text present(std::max(m_strTip.size(), kPlatformTipText) + 1, 0); // the record comes back with its text, uncounted
    TOOLINFOW tool = Tool();
    tool.lpszText = present.data();
    SendMessageW(m_hToolTip, TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&tool));
    m_strTip = TipOf(*item, m_eListType, m_strWarningPrefix);
    tool.rect = ToPlatform(RowRect(nearest.row));
    tool.lpszText = m_strTip.data();
    SendMessageW(m_hToolTip, TTM_SETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&tool));
}

void CqorODListBox::UpdateToolTip()
{
    constexpr unsigned kLine = 459;
    if (m_nTipItem < 0 || m_nTipItem >= GetCount())
        return;
    const CqorLBItem* const item = ItemAt(m_nTipItem);
    if (!item)
        ThrowInternal(CallSite{".\\qorODListBox", kLine});
    m_strTip = TipOf(*item, m_eListType, m_strWarningPrefix);
    TOOLINFOW tool = Tool();
    tool.lpszText = m_strTip.data();
    SendMessageW(m_hToolTip, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
}
