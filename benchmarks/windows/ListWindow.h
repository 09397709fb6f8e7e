// What the lists under measure have in common: a parent that hands their messages on, size, repaint, painted rows.
#pragma once

#include "platform/com/Ole.h"

#include <functional>

inline constexpr int kGridWidth = 500;
inline constexpr int kGridHeight = 720;
inline constexpr DWORD kGridStyle = WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | WS_TABSTOP |
                                    LBS_OWNERDRAWVARIABLE | LBS_NOINTEGRALHEIGHT | LBS_WANTKEYBOARDINPUT;
inline constexpr UINT kGridId = 556;

/// A shown top-level window.
class ParentWindow {
public:
    /// @param onMessage  called ahead of the default procedure; true when it has answered
    explicit ParentWindow(std::function<bool(UINT, WPARAM, LPARAM, LRESULT&)> onMessage);
    ~ParentWindow();
    ParentWindow(const ParentWindow&) = delete;
    ParentWindow& operator=(const ParentWindow&) = delete;
    HWND Handle() const { return m_window; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    std::function<bool(UINT, WPARAM, LPARAM, LRESULT&)> m_onMessage;
    HWND m_window;
};

void RepaintList(HWND list);
/// Rows of a list box that are in sight, wholly or in part.
int RowsInSight(HWND list);
LOGFONTW GridFont();
