#include "samples/host/ShotTools.h"

#include "samples/host/Picture.h"
#include "tools/lvprop/ToolError.h"

#include <filesystem>

namespace {

constexpr ULONGLONG kPatience = 10000; // milliseconds

std::filesystem::path PathOf(const std::string& name)
{
    return std::filesystem::path(std::u8string(name.begin(), name.end()));
}

LPARAM PackedPoint(Point at)
{
    return MAKELPARAM(at.x, at.y);
}

} // namespace

Stage::Stage(MainWindow& window, std::string folder) : m_window(window), m_folder(std::move(folder))
{
    std::error_code error;
    std::filesystem::create_directories(PathOf(m_folder), error);
    if (!std::filesystem::is_directory(PathOf(m_folder), error))
        RefuseInput(m_folder + ": this folder cannot be made");
    SetForegroundWindow(m_window.Window());
}

void Stage::Settle()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        m_window.Dispatch(message);
    RedrawWindow(m_window.Window(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void Stage::Await(const std::function<bool()>& holds, const char* what)
{
    const ULONGLONG end = GetTickCount64() + kPatience;
    for (;;) {
        Settle();
        if (holds())
            return;
        if (GetTickCount64() > end)
            throw ToolError(ExitStatus::DataHasFaults, std::string("pictures: waited in vain for ") + what);
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
    }
}

/// By way of the queue, so that the control and the window's keys see it first.
void Stage::Press(WORD key)
{
    const LPARAM scan = static_cast<LPARAM>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC)) << 16;
    PostMessageW(GetFocus(), WM_KEYDOWN, key, 1 | scan);
    Settle();
    PostMessageW(GetFocus(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001u) | scan);
    Settle();
}

void Stage::Type(std::wstring_view text)
{
    for (const wchar_t character : text)
        SendMessageW(GetFocus(), WM_CHAR, character, 1);
    Settle();
}

void Stage::ClickRows(Point at)
{
    const HWND rows = TheGrid().RowsWindow();
    SendMessageW(rows, WM_LBUTTONDOWN, MK_LBUTTON, PackedPoint(at));
    SendMessageW(rows, WM_LBUTTONUP, 0, PackedPoint(at));
    Settle();
}

void Stage::FocusGrid()
{
    TheGrid().TakeFocus();
    Await([this] { return TheGrid().HasFocus(); }, "the focus in the grid");
}

void Stage::FocusEvents()
{
    SetFocus(m_window.Events().Window());
    Await([this] { return GetFocus() == m_window.Events().Window(); }, "the focus in the events");
}

void Stage::Take(const std::string& name)
{
    Settle();
    SavePicture(m_window.Window(), m_folder + "/" + name + ".bmp");
}
