// What a tree list does beyond a property list: selections of many rows by hand, editing after a pause, drags,
// connector lines, the horizontal extent.
#include "list/qorODListBox.h"

#include "list/GridMessages.h"
#include "list/RowPaint.h"
#include "list/WindowIds.h"
#include "platform/win/Rectangles.h"

#include <algorithm>
#include <utility>

namespace {

constexpr LRESULT kHandled = -2;
constexpr LRESULT kPlatformActs = -1;

bool HasLaterVisibleSibling(const CqorLBItem& item, const ItemList& siblings)
{
    const auto at =
        std::find_if(siblings.begin(), siblings.end(), [&](const auto& each) { return each.get() == &item; });
    return at != siblings.end() &&
           std::any_of(std::next(at), siblings.end(), [](const auto& each) { return each->IsVisible(); });
}

} // namespace

Connectors CqorODListBox::ConnectorsOf(const CqorLBItem& item, int row) const
{
    const auto siblingsOf = [this](const CqorLBItem& of) -> const ItemList& {
        return of.m_pParent ? of.m_pParent->m_listChildren : Roots();
    };
    Connectors lines;
    lines.colour = m_crTreeLine;
    lines.firstRow = row == 0;
    lines.lastVisibleChild = !HasLaterVisibleSibling(item, siblingsOf(item));
    for (const CqorLBItem* ancestor = item.m_pParent; ancestor; ancestor = ancestor->m_pParent)
        lines.laterSiblings.push_back(HasLaterVisibleSibling(*ancestor, siblingsOf(*ancestor)));
    return lines;
}

std::vector<int> CqorODListBox::SelectedRows() const
{
    std::vector<int> rows(static_cast<std::size_t>(std::max(GetSelCount(), 0)));
    if (!rows.empty())
        Default(LB_GETSELITEMS, rows.size(), reinterpret_cast<LPARAM>(rows.data()));
    return rows;
}

void CqorODListBox::SelectTreeRange(int from, int to)
{
    const auto [first, last] = std::minmax(from, to); // the other way round the message takes the range out
    SetSel(-1, false);
    Default(LB_SELITEMRANGEEX, static_cast<WPARAM>(first), last);
}

void CqorODListBox::StopPendingEdit()
{
    if (m_nEditPendingItem >= 0)
        KillTimer(Handle(), kPendingEditTimer);
    m_nEditPendingItem = -1;
}

void CqorODListBox::OnPendingEdit()
{
    const int row = m_nEditPendingItem;
    StopPendingEdit();
    if (CqorLBItem* const item = ItemAt(row)) {
        const RowRects rects = RectsOf(row);
        item->Edit(rects.data, RowRect(row), rects.indent);
    }
}

LRESULT CqorODListBox::OnTreeKey(UINT key, int row)
{
    StopPendingEdit();
    if (key == 'A') {
        SetSel(-1, true);
        RaiseSelectionChanged();
        return kPlatformActs;
    }
    const int height = RowCount() > 0 ? GetRowHeight(0) : 0;
    if (height < 1)
        return kPlatformActs;
    const int page = WindowRectOf(Handle()).Height() / height;
    const int last = RowCount() - 1;
    int to = std::max(row, 0);
    switch (key) {
    case VK_UP: to -= 1; break;
    case VK_DOWN: to += 1; break;
    case VK_PRIOR: to -= page; break;
    case VK_NEXT: to += page; break;
    case VK_HOME: to = 0; break;
    default: to = last; break;
    }
    to = std::clamp(to, 0, last);
    if (GetKeyState(VK_SHIFT) < 0) {
        SelectTreeRange(std::max(GetAnchorIndex(), 0), to);
        SetCaretIndex(to);
    } else {
        if (GetKeyState(VK_CONTROL) >= 0) {
            SelectTreeRange(to, to);
            SetAnchorIndex(to);
        }
        SetCaretIndex(to);
    }
    RaiseSelectionChanged();
    return kHandled;
}

LRESULT CqorODListBox::OnTreeLeftDown(Point client, WPARAM wParam, LPARAM lParam)
{
    const int row = RowFromPoint(client).row;
    const RowPart part = HitTest(client);
    if (part != RowPart::Name && part != RowPart::Data) {
        SetSel(-1, false);
        return Default(WM_LBUTTONDOWN, wParam, lParam);
    }
    const bool hadFocus = HasFocus();
    EndEdit();
    StopPendingEdit();
    if (m_bDragEnabled) {
        m_ptDragStart = client;
        m_rcDragStart = Move({0, 0, m_rcDragStart.Width(), m_rcDragStart.Height()},
                             client.x - m_rcDragStart.Width() / 2, client.y - m_rcDragStart.Height() / 2);
        m_bDragArmed = true;
    }
    SetFocus(Handle());
    if ((wParam & MK_CONTROL) != 0) {
        m_nPressedRow = row; // the button-up toggles it
        return 0;
    }
    if ((wParam & MK_SHIFT) != 0) {
        SelectTreeRange(std::max(GetAnchorIndex(), 0), row);
    } else if (!GetSel(row)) {
        SelectTreeRange(row, row);
        SetAnchorIndex(row);
    } else if (GetSelCount() == 1 && hadFocus) {
        m_nEditPendingItem = row;
        SetTimer(Handle(), kPendingEditTimer, m_nEditDelay, nullptr);
    }
    SetCaretIndex(row);
    RaiseSelectionChanged();
    return 0;
}

LRESULT CqorODListBox::OnTreeLeftUp(Point, WPARAM wParam, LPARAM lParam)
{
    m_bDragArmed = false;
    m_bDragging = false;
    const int row = std::exchange(m_nPressedRow, -1);
    if (row < 0 || row >= RowCount())
        return Default(WM_LBUTTONUP, wParam, lParam);
    SetSel(row, !GetSel(row));
    SetAnchorIndex(row);
    SetCaretIndex(row);
    RaiseSelectionChanged();
    return 0;
}

/// @return true when the move belongs to a drag
bool CqorODListBox::StartTreeDrag(Point client, WPARAM wParam)
{
    if (m_bDragging) {
        SetCursor(m_hCursorNo); // rows are not dropped on their own list
        return true;
    }
    if (!m_bDragArmed || (wParam & MK_LBUTTON) == 0 || m_rcDragStart.Contains(client))
        return false;
    StopPendingEdit();
    HideToolTip();
    m_bDragArmed = false;
    m_bDragging = true;
    m_nPressedRow = -1;
    SendToParent(kDragBeginsMessage);
    return true;
}

void CqorODListBox::OnItemShown()
{
    if (IsTreeList() && !m_bHoldExtent)
        UpdateHorizontalExtent();
}

void CqorODListBox::SetHoldExtent(bool hold, bool update)
{
    m_bHoldExtent = hold;
    if (update)
        UpdateHorizontalExtent();
}

/// The widest row decides how far the list scrolls sideways; property lists never do.
void CqorODListBox::UpdateHorizontalExtent()
{
    if (!IsTreeList())
        return;
    int widest = 0;
    for (int row = 0; row < RowCount(); ++row) {
        CqorLBItem& item = *ItemAt(row);
        const int left = SplitRow({}, ColumnsOf(item)).data.left;
        widest = std::max(widest, left + item.GetDataWidth(MeasuringDc(), m_settings));
    }
    SetHorizontalExtent(widest);
}
