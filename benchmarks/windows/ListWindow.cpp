#include "benchmarks/windows/ListWindow.h"

#include <cwchar>
#include <utility>

ParentWindow::ParentWindow(std::function<bool(UINT, WPARAM, LPARAM, LRESULT&)> onMessage)
    : m_onMessage(std::move(onMessage))
{
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = &Procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = L"GridBenchmark";
    RegisterClassW(&windowClass);
    m_window = CreateWindowW(windowClass.lpszClassName, L"", WS_POPUP | WS_CLIPCHILDREN, 10, 10, kGridWidth + 20,
                             kGridHeight + 20, nullptr, nullptr, windowClass.hInstance, nullptr);
    SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    ShowWindow(m_window, SW_SHOW);
    UpdateWindow(m_window);
}

ParentWindow::~ParentWindow()
{
    DestroyWindow(m_window);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&message);
}

LRESULT CALLBACK ParentWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    const auto* const self = reinterpret_cast<ParentWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    LRESULT answer = 0;
    if (self && self->m_onMessage(message, wParam, lParam, answer))
        return answer;
    return DefWindowProcW(window, message, wParam, lParam);
}

void RepaintList(HWND list)
{
    RedrawWindow(list, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    GdiFlush();
}

int RowsInSight(HWND list)
{
    RECT client{};
    GetClientRect(list, &client);
    const auto top = static_cast<int>(SendMessageW(list, LB_GETTOPINDEX, 0, 0));
    const auto count = static_cast<int>(SendMessageW(list, LB_GETCOUNT, 0, 0));
    int row = top;
    for (RECT r{}; row < count; ++row) {
        SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&r));
        if (r.top >= client.bottom)
            break;
    }
    return row - top;
}

LOGFONTW GridFont()
{
    LOGFONTW font{};
    font.lfHeight = -11;
    std::wcscpy(font.lfFaceName, L"MS Shell Dlg");
    return font;
}
