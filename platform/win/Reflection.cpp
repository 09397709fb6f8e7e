#include "platform/win/Reflection.h"

#include "platform/win/SubclassedWindow.h"

namespace {

/// The hooked child that a message came from, null when there is none.
SubclassedWindow* SenderOf(HWND parent, UINT message, LPARAM lParam)
{
    switch (message) {
    case WM_COMMAND:
    case WM_VKEYTOITEM:
    case WM_CHARTOITEM:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORSCROLLBAR:
    case WM_CTLCOLORSTATIC: return SubclassedWindow::FromHandle(reinterpret_cast<HWND>(lParam));
    case WM_DRAWITEM: return SubclassedWindow::FromHandle(reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)->hwndItem);
    case WM_COMPAREITEM:
        return SubclassedWindow::FromHandle(reinterpret_cast<const COMPAREITEMSTRUCT*>(lParam)->hwndItem);
    case WM_DELETEITEM:
        return SubclassedWindow::FromHandle(reinterpret_cast<const DELETEITEMSTRUCT*>(lParam)->hwndItem);
    case WM_MEASUREITEM:
        // The one that names its sender by id alone.
        return SubclassedWindow::FindChild(parent, reinterpret_cast<const MEASUREITEMSTRUCT*>(lParam)->CtlID);
    default: return nullptr;
    }
}

} // namespace

std::optional<LRESULT> ReflectToChild(HWND parent, UINT message, WPARAM wParam, LPARAM lParam)
{
    SubclassedWindow* const child = SenderOf(parent, message, lParam);
    if (!child)
        return std::nullopt;
    return child->Deliver(message + kReflected, wParam, lParam);
}
