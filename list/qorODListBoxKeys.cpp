// The list's keyboard. Results: -2 the key is done with, -1 the platform's list acts on it.
#include "list/qorODListBox.h"

#include "list/GridMessages.h"
#include "platform/win/Rectangles.h"

namespace {

constexpr LRESULT kHandled = -2;
constexpr LRESULT kPlatformActs = -1;

bool IsDown(int key)
{
    return GetKeyState(key) < 0;
}

} // namespace

LRESULT CqorODListBox::OnKey(UINT key)
{
    const int row = IsTreeList() ? GetCaretIndex() : GetCurSel();
    switch (key) {
    case VK_TAB: SendToParent(kTabKeyMessage); return kPlatformActs;
    case VK_RETURN: SendToParent(kReturnKeyMessage); return kPlatformActs;
    case VK_PRIOR:
    case VK_NEXT:
    case VK_HOME:
    case VK_END:
    case VK_UP:
    case VK_DOWN:
        if (IsTreeList())
            return OnTreeKey(key, row);
        RaiseSelectionChanged();
        return kPlatformActs;
    case VK_LEFT:
    case VK_SUBTRACT:
    case VK_OEM_MINUS: StopPendingEdit(); return OnLeftKey(row);
    case VK_RIGHT:
    case VK_ADD:
    case VK_OEM_PLUS: StopPendingEdit(); return OnRightKey(row);
    case VK_DELETE: SendToParent(kDeleteKeyMessage); return kHandled;
    case 'A': return IsTreeList() && IsDown(VK_CONTROL) ? OnTreeKey(key, row) : kPlatformActs;
    case VK_APPS: ShowContextMenu(); return kHandled;
    case VK_F5:
        RefreshAll();
        Redraw();
        return kHandled;
    default: return kPlatformActs;
    }
}

LRESULT CqorODListBox::OnLeftKey(int row)
{
    if (IsPropertyList() && IsDown(VK_SHIFT)) {
        TakeDividerStep(DividerStepLeft(m_nDividerPos));
        return kHandled;
    }
    CqorLBItem* const item = ItemAt(row);
    if (!item || item->m_bCollapsed || !item->HasChildren()) {
        RaiseSelectionChanged();
        return kPlatformActs; // the platform's Left is its Up
    }
    {
        const RedrawHold hold(*this);
        Collapse(*item, true);
    }
    if (!item->IsRetired())
        PostToggled(*item);
    return kHandled;
}

LRESULT CqorODListBox::OnRightKey(int row)
{
    if (IsPropertyList() && IsDown(VK_SHIFT)) {
        TakeDividerStep(DividerStepRight(m_nDividerPos, WindowRectOf(Handle()).Width()));
        return kHandled;
    }
    CqorLBItem* const item = ItemAt(row);
    if (!item)
        return kPlatformActs;
    if (!item->m_bCollapsed || !item->HasChildren()) {
        EditSelectedRow();
        return kHandled;
    }
    {
        const RedrawHold hold(*this);
        Expand(*item);
    }
    if (!item->IsRetired())
        PostToggled(*item);
    return kHandled;
}

void CqorODListBox::TakeDividerStep(DividerStep step)
{
    m_nDividerPos = step.position;
    if (!step.repaints)
        return;
    EndEdit();
    HideToolTip();
    Invalidate(true);
}

/// Asks the parent for a context menu at the pointer.
void CqorODListBox::ShowContextMenu() const
{
    POINT at{};
    GetCursorPos(&at);
    ScreenToClient(Handle(), &at);
    SendToParent(WM_RBUTTONDOWN, 0, MAKELPARAM(at.x, at.y));
}
