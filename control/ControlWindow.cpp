// The control's own window: its making and end, its procedure, the messages that all controls treat alike.
#include "control/ControlBase.h"
#include "platform/win/Rectangles.h"
#include "toolkit/FailureReport.h"

#include <atomic>

namespace {

std::atomic<int> g_livingWindows{0};

HINSTANCE OwnModule()
{
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const OLECHAR*>(&OwnModule), &module);
    return module;
}

/// The class carries the system's default procedure and each window is given its own one: a class that outlives this
/// module never calls into it.
void RegisterWindowClass(const OLECHAR* name)
{
    WNDCLASSW description{};
    description.style = CS_DBLCLKS;
    description.lpfnWndProc = DefWindowProcW;
    description.hInstance = OwnModule();
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.lpszClassName = name;
    RegisterClassW(&description); // fails harmlessly when it has been done before
}

} // namespace

int ControlBase::LivingWindows()
{
    return g_livingWindows;
}

bool ControlBase::CreateControlWindow(HWND parent, const Rect& place)
{
    RegisterWindowClass(m_facts.windowClass);
    const HWND window =
        CreateWindowExW(0, m_facts.windowClass, nullptr, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS,
                        place.left, place.top, place.Width(), place.Height(), parent, nullptr, OwnModule(), nullptr);
    if (!window)
        return false;
    m_hWnd = window;
    ++g_livingWindows;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure));
    try {
        OnWindowCreated();
    } catch (...) {
        ReportWindowFailure(window);
    }
    return m_hWnd == window;
}

/// The container may have destroyed the window on its own, by destroying its parent.
void ControlBase::DestroyControlWindow()
{
    if (m_hWnd)
        DestroyWindow(m_hWnd);
}

LRESULT CALLBACK ControlBase::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* const control = reinterpret_cast<ControlBase*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!control)
        return DefWindowProcW(window, message, wParam, lParam);
    const CComPtr<IOleObject> kept(control); // a host may give the last reference back in any message
    LRESULT result = 0;
    try {
        result = control->OnMessage(message, wParam, lParam);
    } catch (...) {
        ReportWindowFailure(window);
    }
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&DefWindowProcW));
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        control->m_hWnd = nullptr;
        --g_livingWindows;
    }
    return result;
}

LRESULT ControlBase::OnMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_PAINT: OnPaint(); return 0;
    case WM_ERASEBKGND: return 1; // OnDraw covers the ground
    case WM_SETFOCUS: {
        const LRESULT result = DefWindowProcW(m_hWnd, message, wParam, lParam);
        FocusGained();
        return result;
    }
    case WM_KILLFOCUS: {
        const LRESULT result = DefWindowProcW(m_hWnd, message, wParam, lParam);
        FocusLost();
        return result;
    }
    default: return DefWindowProcW(m_hWnd, message, wParam, lParam);
    }
}

void ControlBase::OnPaint()
{
    PAINTSTRUCT paint{};
    const HDC dc = BeginPaint(m_hWnd, &paint);
    const HWND window = m_hWnd;
    try {
        OnDraw(dc, ClientRectOf(window));
    } catch (...) {
        EndPaint(window, &paint); // ahead of the report, whose message box would find the window still to be painted
        throw;
    }
    EndPaint(window, &paint);
}
