// Making, placing and driving the window; what its commands do stands in MainWindowCommands.cpp.
#include "samples/host/MainWindow.h"

#include "platform/win/Rectangles.h"
#include "samples/host/Dialogs.h"
#include "samples/host/HostLayout.h"
#include "samples/host/Languages.h"

#include <commctrl.h>
#include <windowsx.h>

namespace {

constexpr wchar_t kClass[] = L"LumevorSampleHost";
constexpr Rect kClientArea{0, 0, 1000, 560}; ///< of a new window
constexpr DWORD kStyle = WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN;

enum ChildId : UINT { kGridId = 1, kEventsId = 2, kStatusId = 3 };

void RegisterWindowClass(WNDPROC procedure)
{
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    windowClass.lpszClassName = kClass;
    RegisterClassExW(&windowClass);
}

} // namespace

MainWindow::MainWindow() : m_accelerators(MakeAccelerators()), m_language(ChosenLanguage())
{
    RegisterWindowClass(&Procedure);
    RECT frame = ToPlatform(kClientArea);
    AdjustWindowRect(&frame, kStyle, TRUE);
    CreateWindowExW(0, kClass, L"lvhost", kStyle, CW_USEDEFAULT, CW_USEDEFAULT, frame.right - frame.left,
                    frame.bottom - frame.top, nullptr, MakeMenu(), GetModuleHandleW(nullptr), this);
    MakeParts();
    PlaceParts();
    ShowState();
}

MainWindow::~MainWindow()
{
    DestroyParts();
    if (m_window)
        DestroyWindow(m_window);
    DestroyAcceleratorTable(m_accelerators);
}

void MainWindow::MakeParts()
{
    m_grid = std::make_unique<Grid>(m_window, kGridId, static_cast<GridListener&>(*this));
    m_events = std::make_unique<EventPane>(m_window, kEventsId, m_log);
    m_status =
        CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0, 0, 0, m_window,
                        reinterpret_cast<HMENU>(static_cast<UINT_PTR>(kStatusId)), GetModuleHandleW(nullptr), nullptr);
}

/// Ends what calls back first: the events of the collection, then those of the grid.
void MainWindow::DestroyParts()
{
    m_subscription.reset();
    m_grid.reset();
    m_document.reset();
    m_events.reset();
}

LRESULT CALLBACK MainWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE) {
        auto* const made = static_cast<MainWindow*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        made->m_window = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
    }
    auto* const self = reinterpret_cast<MainWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self)
        return DefWindowProcW(window, message, wParam, lParam);
    try {
        return self->OnMessage(message, wParam, lParam);
    } catch (const std::exception& error) { // no exception passes the edge of a window procedure
        TellFault(window, error.what());
        return 0;
    }
}

LRESULT MainWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_SIZE: PlaceParts(); return 0;
    case WM_SETFOCUS: MoveFocus(); return 0;
    case WM_ACTIVATE:
        if (LOWORD(wParam) == WA_INACTIVE)
            m_lastFocus = GetFocus();
        break;
    case WM_SETCURSOR: return OnSetCursor(wParam, lParam);
    case WM_LBUTTONDOWN: OnSplitterDown(PointOf(lParam)); return 0;
    case WM_MOUSEMOVE: OnSplitterMove(PointOf(lParam)); return 0;
    case WM_LBUTTONUP: ReleaseCapture(); return 0;
    case WM_CAPTURECHANGED: m_isDragging = false; return 0;
    case WM_COMMAND:
        if (lParam != 0) // from a child, not from the menu or a key
            break;
        Run(static_cast<Command>(LOWORD(wParam)));
        return 0;
    case WM_NOTIFY:
        if (m_events && m_events->OnNotify(*reinterpret_cast<NMHDR*>(lParam)))
            return 0;
        break;
    case WM_CLOSE:
        if (MayLeave())
            DestroyWindow(m_window);
        return 0;
    case WM_DESTROY:
        DestroyParts();
        PostQuitMessage(0);
        return 0;
    case WM_NCDESTROY: SetWindowLongPtrW(std::exchange(m_window, nullptr), GWLP_USERDATA, 0); return 0;
    default: break;
    }
    return DefWindowProcW(m_window, message, wParam, lParam);
}

Rect MainWindow::ClientAboveStatus() const
{
    Rect client = ClientRectOf(m_window);
    if (m_status)
        client.bottom = std::max(client.top, client.bottom - WindowRectOf(m_status).Height());
    return client;
}

void MainWindow::PlaceParts()
{
    if (!m_status || !m_grid) // while the parts are being made, and once they are gone
        return;
    SendMessageW(m_status, WM_SIZE, 0, 0);
    const Rect client = ClientAboveStatus();
    const int edges[] = {client.right - 260, client.right - 130, -1};
    SendMessageW(m_status, SB_SETPARTS, std::size(edges), reinterpret_cast<LPARAM>(edges));
    const HostParts parts = SplitHost(client, m_eventsWidth);
    MoveWindow(m_grid->Window(), parts.grid.left, parts.grid.top, parts.grid.Width(), parts.grid.Height(), TRUE);
    m_events->Place(parts.events);
}

LRESULT MainWindow::OnSetCursor(WPARAM wParam, LPARAM lParam)
{
    POINT at{};
    GetCursorPos(&at);
    ScreenToClient(m_window, &at);
    const bool isOverSplitter = reinterpret_cast<HWND>(wParam) == m_window && LOWORD(lParam) == HTCLIENT &&
                                SplitHost(ClientAboveStatus(), m_eventsWidth).splitter.Contains({at.x, at.y});
    if (!isOverSplitter)
        return DefWindowProcW(m_window, WM_SETCURSOR, wParam, lParam);
    SetCursor(LoadCursorW(nullptr, IDC_SIZEWE));
    return TRUE;
}

void MainWindow::OnSplitterDown(Point at)
{
    if (!SplitHost(ClientAboveStatus(), m_eventsWidth).splitter.Contains(at))
        return;
    m_isDragging = true;
    SetCapture(m_window);
}

void MainWindow::OnSplitterMove(Point at)
{
    if (!m_isDragging)
        return;
    const Rect client = ClientAboveStatus();
    m_eventsWidth = SplitHost(client, EventsWidthAt(client, at.x)).events.Width();
    PlaceParts();
}

/// The window itself never keeps the focus: it goes back to where it was, at first to the grid.
void MainWindow::MoveFocus()
{
    if (m_lastFocus && m_lastFocus != m_window && IsChild(m_window, m_lastFocus))
        SetFocus(m_lastFocus);
    else if (m_grid)
        m_grid->TakeFocus();
}

void MainWindow::Dispatch(MSG& message)
{
    if (m_grid && m_grid->Translate(message))
        return;
    if (m_window && TranslateAcceleratorW(m_window, m_accelerators, &message))
        return;
    // In the grid the tabulator key opens the editor of a row; in the events it leads back to the grid.
    const bool isTab = message.message == WM_KEYDOWN && message.wParam == VK_TAB;
    if (isTab && m_events && message.hwnd == m_events->Window()) {
        Run(Command::NextPart);
        return;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
}

int MainWindow::Loop()
{
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        Dispatch(message);
    return static_cast<int>(message.wParam);
}

void MainWindow::SetStatus(int part, const std::wstring& text)
{
    SendMessageW(m_status, SB_SETTEXTW, static_cast<WPARAM>(part), reinterpret_cast<LPARAM>(text.c_str()));
}
