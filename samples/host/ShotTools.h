// Driving the window as a user does, and taking its picture: real keys, clicks and wheel turns, and messages pumped
// until the window has come to rest.
#pragma once

#include "samples/host/MainWindow.h"

#include <functional>
#include <string>
#include <string_view>

class Stage {
public:
    /// @param folder  of the pictures, in UTF-8; made when it is missing.
    Stage(MainWindow& window, std::string folder);

    MainWindow& Window() { return m_window; }
    Grid& TheGrid() { return m_window.TheGrid(); }

    /// Messages until nothing is left to paint.
    void Settle();
    /// Throws ToolError when something does not hold within a few seconds.
    void Await(const std::function<bool()>& holds, const char* what);

    /// A key pressed and let go in the window with the focus.
    void Press(WORD key);
    void Type(std::wstring_view text);
    /// A click on a place in the rows' window.
    void ClickRows(Point at);
    void FocusGrid();
    void FocusEvents();

    /// Writes the window as it is now to NAME.bmp.
    void Take(const std::string& name);

private:
    MainWindow& m_window;
    std::string m_folder;
};
