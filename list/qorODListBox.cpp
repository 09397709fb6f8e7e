// The list's window: creation and end, messages, scrolling, zoom, editors, the rows of the platform list box.
#include "list/qorODListBox.h"

#include "list/EditorOwner.h"
#include "list/GridMessages.h"
#include "list/TipText.h"
#include "list/WheelAndScroll.h"
#include "list/WindowIds.h"
#include "list/prpPropItem.h"
#include "platform/win/Rectangles.h"
#include "platform/win/Reflection.h"
#include "toolkit/EditMessages.h"
#include "toolkit/FailureReport.h"

namespace {

constexpr int kTopRowStep = 1000;
constexpr int kTopRowFrom = 1500;

UINT DoubleClickTimeAndMore()
{
    const UINT time = GetDoubleClickTime();
    return time + time * 4 / 10;
}

} // namespace

CqorODListBox::CqorODListBox()
    : m_hCursorWait(LoadCursorW(nullptr, IDC_WAIT)), m_hCursorArrow(LoadCursorW(nullptr, IDC_ARROW)),
      m_hCursorSizeWE(LoadCursorW(nullptr, IDC_SIZEWE)), m_hCursorNo(LoadCursorW(nullptr, IDC_NO)),
      m_nEditDelay(DoubleClickTimeAndMore()), m_rcDragStart{0, 0, 4 * GetSystemMetrics(SM_CXDRAG),
                                                            4 * GetSystemMetrics(SM_CYDRAG)}
{
}

CqorODListBox::~CqorODListBox()
{
    Destroy();
    ForgetRows();
    TakeOutAll();
}

bool CqorODListBox::Create(DWORD style, const Rect& place, HWND parent, UINT id, GridHost* host)
{
    m_pHost = host;
    m_bRedrawOff = false; // of a window before this one, as are the pictures
    m_pImageList = nullptr;
    const Rect atOrigin{0, 0, place.Width(), place.Height()};
    if (!CListBox::Create({OLESTR("ListBox"), OLESTR("Tolvarin List Box"), style, atOrigin, parent, id}))
        return false;
    m_hClassCursor = reinterpret_cast<HCURSOR>(GetClassLongPtrW(Handle(), GCLP_HCURSOR));
    CreateToolTip(place.Width());
    return true;
}

void CqorODListBox::EnterMessage() noexcept
{
    if (m_pHost)
        m_pHost->AddGridReference();
    EnterBusy();
}

/// The last reference of the control may go here, and the list with it.
void CqorODListBox::LeaveMessage() noexcept
{
    GridHost* const host = m_pHost;
    LeaveBusy();
    if (host)
        host->ReleaseGridReference();
}

LRESULT CqorODListBox::OnMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message >= kReflected)
        return message < 0xC000                        ? OnReflected(message - kReflected, wParam, lParam)
               : RegisteredEditMessages().Has(message) ? SendToParent(message, wParam, lParam)
                                                       : Default(message, wParam, lParam);
    switch (message) {
    case WM_MOUSEMOVE: return OnMouseMove(PointOf(lParam), wParam, lParam);
    case WM_MOUSELEAVE: return OnMouseLeave();
    case WM_LBUTTONDOWN: return OnLeftDown(PointOf(lParam), wParam, lParam);
    case WM_LBUTTONUP: return OnLeftUp(PointOf(lParam), wParam, lParam);
    case WM_LBUTTONDBLCLK: return OnDoubleClick(PointOf(lParam), wParam, lParam);
    case WM_RBUTTONDOWN: return OnRightDown(lParam);
    case WM_CAPTURECHANGED:
        if (m_bDividerDrag && reinterpret_cast<HWND>(lParam) != Handle())
            StopDividerDrag();
        return Default(message, wParam, lParam);
    case WM_MOUSEWHEEL: return OnWheel(wParam);
    case WM_HSCROLL: StopPendingEdit(); return Default(message, wParam, lParam);
    case WM_VSCROLL: return OnScroll(wParam, lParam);
    case WM_TIMER:
        if (wParam != kPendingEditTimer)
            return Default(message, wParam, lParam);
        OnPendingEdit();
        return 0;
    case WM_PAINT: return OnPaint(message, wParam, lParam);
    case WM_ERASEBKGND: return OnEraseBackground(reinterpret_cast<HDC>(wParam));
    case WM_SETREDRAW: m_bRedrawOff = wParam == FALSE; return Default(message, wParam, lParam);
    case WM_SETFOCUS: return OnSetFocus(message, wParam, lParam);
    case WM_KILLFOCUS: {
        const LRESULT result = Default(message, wParam, lParam);
        Invalidate(true);
        return result;
    }
    case WM_SIZE:
        SendMessageW(m_hToolTip, TTM_SETMAXTIPWIDTH, 0, MaxTipWidth(LOWORD(lParam)));
        return Default(message, wParam, lParam);
    case WM_CTLCOLORBTN:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORSTATIC:
        return OnControlColour(message, reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam));
    case WM_COMMAND:
    case WM_DRAWITEM:
    case WM_MEASUREITEM:
        if (const auto answer = ReflectToChild(Handle(), message, wParam, lParam))
            return *answer;
        return Default(message, wParam, lParam);
    case WM_CUT:
    case WM_COPY:
    case WM_PASTE: return SendToParent(message, wParam, lParam);
    case WM_DESTROY: return OnDestroy(message);
    default: return Default(message, wParam, lParam);
    }
}

/// What the parent hands back.
LRESULT CqorODListBox::OnReflected(UINT message, WPARAM wParam, LPARAM lParam)
{
    constexpr LRESULT kHandled = -2;
    switch (message) {
    case WM_DRAWITEM: return OnDrawItem(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    case WM_MEASUREITEM: return OnMeasureItem(*reinterpret_cast<MEASUREITEMSTRUCT*>(lParam));
    case WM_VKEYTOITEM: return OnKey(LOWORD(wParam));
    case WM_CHARTOITEM: return kHandled;
    default: return 0;
    }
}

void CqorODListBox::OnException() noexcept
{
    ReportWindowFailure(Handle());
}

LRESULT CqorODListBox::OnDestroy(UINT message)
{
    EndEdit();
    HideToolTip();
    StopDividerDrag();
    if (m_hToolTip) {
        SendMessageW(m_hToolTip, WM_DESTROY, 0, 0);
        DestroyWindow(std::exchange(m_hToolTip, nullptr)); // its owner, the top-level window, would keep it
    }
    SetClassCursor(m_hClassCursor); // all list boxes of the process share it
    return Default(message);
}

LRESULT CqorODListBox::OnSetFocus(UINT message, WPARAM wParam, LPARAM lParam)
{
    const LRESULT result = Default(message, wParam, lParam);
    if (IsPropertyList() && GetCurSel() < 0 && GetCount() > 0)
        SetCurSel(0); // no notification: hosts hear of a selection that the user made
    Invalidate(false);
    return result;
}

LRESULT CqorODListBox::OnScroll(WPARAM wParam, LPARAM lParam)
{
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_POS | SIF_RANGE | SIF_PAGE;
    GetScrollInfo(Handle(), SB_VERT, &info);
    const int limit = ScrollLimit(info.nMax, static_cast<int>(info.nPage));
    if (!ScrollActs(static_cast<ScrollCode>(LOWORD(wParam)), info.nPos, limit))
        return 0;
    EndEdit();
    HideToolTip();
    const LRESULT result = Default(WM_VSCROLL, wParam, lParam);
    Redraw();
    return result;
}

LRESULT CqorODListBox::OnWheel(WPARAM wParam)
{
    const int notches = WheelNotches(static_cast<int16_t>(HIWORD(wParam)));
    if ((LOWORD(wParam) & MK_CONTROL) != 0) {
        Zoom(notches);
    } else {
        Send(WM_VSCROLL, notches < 0 ? SB_LINEDOWN : SB_LINEUP);
        Send(WM_VSCROLL, SB_ENDSCROLL);
    }
    return 0;
}

void CqorODListBox::Zoom(int notches)
{
    LOGFONTW font = m_settings.m_lfFont;
    font.lfHeight = ZoomedFontHeight(font.lfHeight, notches);
    if (font.lfHeight == m_settings.m_lfFont.lfHeight)
        return;
    SetListFont(font);
    EndEdit();
    MeasureAllRows();
    Redraw();
}

void CqorODListBox::CloseEditors(bool commit)
{
    const BusyScope busy(*this);
    if (IsTreeList()) {
        StopPendingEdit();
        for (const int row : SelectedRows()) {
            if (CqorLBItem* const item = ItemAt(row))
                item->EndEdit(commit);
        }
    } else if (CqorLBItem* const item = SelectedItem()) {
        item->EndEdit(commit);
    }
}

void CqorODListBox::EditSelectedRow()
{
    const BusyScope busy(*this);
    UpdateWindow(Handle()); // painting makes the editor
    const int row = GetCurSel();
    if (CqorLBItem* const item = ItemAt(row)) {
        const RowRects rects = RectsOf(row);
        item->Edit(rects.data, RowRect(row), rects.indent);
    }
}

/// The list is redrawn with the state of before; the event is handled when the platform has moved the selection.
void CqorODListBox::RaiseSelectionChanged()
{
    Redraw();
    if (Exists())
        PostMessageW(Parent(), WM_COMMAND, MAKEWPARAM(Id(), LBN_SELCHANGE), reinterpret_cast<LPARAM>(Handle()));
}

void CqorODListBox::PostToggled(CqorLBItem& item)
{
    PostMessageW(Parent(), kItemToggledMessage, reinterpret_cast<WPARAM>(&item), item.m_bCollapsed);
}

void CqorODListBox::Redraw() const
{
    if (Exists())
        RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

LRESULT CqorODListBox::SendToParent(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return SendMessageW(Parent(), message, wParam, lParam);
}

void CqorODListBox::ExpandCollapse(CqorLBItem& item)
{
    const BusyScope busy(*this);
    EndEdit();
    HideToolTip();
    if (item.IsRetired())
        return;
    const int position = GetScrollPos(Handle(), SB_VERT);
    CqorLBItem* const caret = IsTreeList() ? ItemAt(GetCaretIndex()) : nullptr;
    {
        const RedrawHold hold(*this);
        if (item.m_bCollapsed)
            Expand(item);
        else
            Collapse(item, true);
    }
    if (!Exists())
        return;
    Send(WM_VSCROLL, MAKEWPARAM(SB_THUMBPOSITION, position));
    Send(WM_VSCROLL, SB_ENDSCROLL);
    if (caret) {
        const int row = caret->IsRetired() ? -1 : FindRow(*caret);
        SetCaretIndex(row >= 0 ? row : FindRow(item));
        OnItemShown();
    }
}

void CqorODListBox::DropItem(CqorLBItem& item)
{
    const BusyScope busy(*this);
    item.m_bVisible = false; // so that a collapsed parent goes with its last child
    RemoveItem(item);
    if (!item.IsRetired())
        TakeOut(item);
}

void CqorODListBox::Clear()
{
    const BusyScope busy(*this);
    if (Exists()) {
        EndEdit();
        HideToolTip();
        ForgetRows();
        ResetContent();
    }
    ForgetRows();
    TakeOutAll();
}

void CqorODListBox::OnItemTakenOut(CqorLBItem& item)
{
    if (auto* const owner = dynamic_cast<EditorOwner*>(&item))
        owner->AbandonEditors();
}

void CqorODListBox::InsertRow(int row, CqorLBItem& item)
{
    CListBox::InsertRow(row, &item);
    // The platform may add up the heights of all rows from the top row to the new one: the top row moves along.
    if (m_bFilling && row >= kTopRowFrom && row % kTopRowStep == 0)
        SetTopIndex(row);
}

RowFacts CqorODListBox::FactsOf(int row) const
{
    const CqorLBItem* const item = ItemAt(row);
    if (!item)
        return {};
    const auto* const property = dynamic_cast<const CprpPropItem*>(item);
    RowFacts facts;
    facts.name = item->m_strName;
    facts.data = property ? property->m_strData : Text();
    facts.row = RowRect(row);
    facts.level = item->Level();
    facts.hasChildren = item->HasChildren();
    facts.collapsed = item->m_bCollapsed;
    facts.selected = IsTreeList() ? GetSel(row) : row == GetCurSel();
    facts.readOnly = item->m_bReadOnly;
    facts.invalid = item->IsInvalid();
    facts.warning = item->IsInWarning();
    return facts;
}

CqorODListBox::RedrawHold::RedrawHold(CqorODListBox& list) : m_list(list.m_bRedrawOff ? nullptr : &list)
{
    if (m_list)
        m_list->Deliver(WM_SETREDRAW, FALSE, 0);
}

CqorODListBox::RedrawHold::~RedrawHold()
{
    if (!m_list || !m_list->Exists())
        return;
    m_list->Deliver(WM_SETREDRAW, TRUE, 0);
    m_list->Invalidate(true);
}

CqorODListBox::FillScope::FillScope(CqorODListBox& list) : m_list(list)
{
    m_list.Deliver(WM_SETREDRAW, FALSE, 0);
    m_list.m_bFilling = true;
}

CqorODListBox::FillScope::~FillScope()
{
    m_list.m_bFilling = false;
    if (!m_list.Exists())
        return;
    if (m_list.RowCount() > kTopRowFrom)
        m_list.SetTopIndex(0);
    m_list.Deliver(WM_SETREDRAW, TRUE, 0);
    RedrawWindow(m_list.Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
}
