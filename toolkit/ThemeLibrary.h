// Visual styles, as far as the platform has them: the theme library's functions in a table of pointers.
#pragma once

#include "platform/com/Ole.h"

#include <uxtheme.h>

/// A call returns E_FAIL, null or FALSE when the library is not there.
class ThemeLibrary {
public:
    /// The functions that are used; null where the library has none.
    struct Functions {
        HTHEME(WINAPI* openThemeData)(HWND, LPCWSTR) = nullptr;
        HRESULT(WINAPI* closeThemeData)(HTHEME) = nullptr;
        HRESULT(WINAPI* drawThemeBackground)(HTHEME, HDC, int, int, const RECT*, const RECT*) = nullptr;
        HRESULT(WINAPI* drawThemeParentBackground)(HWND, HDC, const RECT*) = nullptr;
        HRESULT(WINAPI* getThemeColor)(HTHEME, int, int, int, COLORREF*) = nullptr;
        BOOL(WINAPI* isThemeActive)() = nullptr;
        BOOL(WINAPI* isAppThemed)() = nullptr;
    };

    /// Loads the library for as long as the object lives.
    ThemeLibrary();
    /// Takes given functions in place of the library's.
    explicit ThemeLibrary(const Functions& functions) : m_functions(functions) {}
    ~ThemeLibrary();
    ThemeLibrary(const ThemeLibrary&) = delete;
    ThemeLibrary& operator=(const ThemeLibrary&) = delete;

    HTHEME OpenThemeData(HWND window, const OLECHAR* classes) const;
    HRESULT CloseThemeData(HTHEME theme) const;
    HRESULT DrawThemeBackground(HTHEME theme, HDC dc, int part, int state, const RECT& area, const RECT* clip) const;
    HRESULT DrawThemeParentBackground(HWND window, HDC dc, const RECT* area) const;
    HRESULT GetThemeColor(HTHEME theme, int part, int state, int property, COLORREF* colour) const;
    bool IsThemeActive() const;
    bool IsAppThemed() const;

private:
    HMODULE m_hModule = nullptr;
    Functions m_functions;
};
