// A parent window for the small controls under test that hands messages back to its children, as the list does.
#pragma once

#include "platform/win/HandleOwners.h"
#include "platform/win/Reflection.h"
#include "tests/support/windows/WindowTools.h"

#include <commctrl.h>

class ToolkitWindow {
public:
    ToolkitWindow()
    {
        WNDCLASSW windowClass{};
        windowClass.lpfnWndProc = &Procedure;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
        windowClass.lpszClassName = L"ToolkitWindow";
        RegisterClassW(&windowClass);
        handle = CreateWindowW(windowClass.lpszClassName, L"", WS_POPUP | WS_CLIPCHILDREN, 40, 40, 320, 240, nullptr,
                               nullptr, windowClass.hInstance, nullptr);
        ShowWindow(handle, SW_SHOW);
        SetForegroundWindow(handle);
        Pump();
    }
    ~ToolkitWindow() { DestroyWindow(handle); }
    ToolkitWindow(const ToolkitWindow&) = delete;
    ToolkitWindow& operator=(const ToolkitWindow&) = delete;

    HWND handle = nullptr;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
    {
        if (const auto answer = ReflectToChild(window, message, wParam, lParam))
            return *answer;
        return DefWindowProcW(window, message, wParam, lParam);
    }
};
