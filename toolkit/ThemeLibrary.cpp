#include "toolkit/ThemeLibrary.h"

namespace {

template <class Function>
void Find(HMODULE module, const char* name, Function& function)
{
    // Through a plain function pointer: the compiler rightly objects to a direct change of the signature.
    function = reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(module, name)));
}

} // namespace

ThemeLibrary::ThemeLibrary() : m_hModule(LoadLibraryW(OLESTR("uxtheme.dll")))
{
    if (!m_hModule)
        return;
    Find(m_hModule, "OpenThemeData", m_functions.openThemeData);
    Find(m_hModule, "CloseThemeData", m_functions.closeThemeData);
    Find(m_hModule, "DrawThemeBackground", m_functions.drawThemeBackground);
    Find(m_hModule, "DrawThemeParentBackground", m_functions.drawThemeParentBackground);
    Find(m_hModule, "GetThemeColor", m_functions.getThemeColor);
    Find(m_hModule, "IsThemeActive", m_functions.isThemeActive);
    Find(m_hModule, "IsAppThemed", m_functions.isAppThemed);
}

ThemeLibrary::~ThemeLibrary()
{
    if (m_hModule)
        FreeLibrary(m_hModule);
}

HTHEME ThemeLibrary::OpenThemeData(HWND window, const OLECHAR* classes) const
{
    return m_functions.openThemeData ? m_functions.openThemeData(window, classes) : nullptr;
}

HRESULT ThemeLibrary::CloseThemeData(HTHEME theme) const
{
    return m_functions.closeThemeData ? m_functions.closeThemeData(theme) : E_FAIL;
}

HRESULT ThemeLibrary::DrawThemeBackground(HTHEME theme, HDC dc, int part, int state, const RECT& area,
                                          const RECT* clip) const
{
    return m_functions.drawThemeBackground ? m_functions.drawThemeBackground(theme, dc, part, state, &area, clip)
                                           : E_FAIL;
}

HRESULT ThemeLibrary::DrawThemeParentBackground(HWND window, HDC dc, const RECT* area) const
{
    return m_functions.drawThemeParentBackground ? m_functions.drawThemeParentBackground(window, dc, area) : E_FAIL;
}

HRESULT ThemeLibrary::GetThemeColor(HTHEME theme, int part, int state, int property, COLORREF* colour) const
{
    return m_functions.getThemeColor ? m_functions.getThemeColor(theme, part, state, property, colour) : E_FAIL;
}

bool ThemeLibrary::IsThemeActive() const
{
    return m_functions.isThemeActive && m_functions.isThemeActive();
}

bool ThemeLibrary::IsAppThemed() const
{
    return m_functions.isAppThemed && m_functions.isAppThemed();
}
