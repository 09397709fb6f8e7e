// The table of the theme library's functions, with and without a library behind it.
#include "toolkit/ThemeLibrary.h"

#include <gtest/gtest.h>

namespace {

const HTHEME kTheme = reinterpret_cast<HTHEME>(0x1234);

ThemeLibrary::Functions Stubs()
{
    ThemeLibrary::Functions f;
    f.openThemeData = [](HWND, LPCWSTR) -> HTHEME { return kTheme; };
    f.closeThemeData = [](HTHEME theme) -> HRESULT { return theme == kTheme ? S_OK : E_HANDLE; };
    f.drawThemeBackground = [](HTHEME, HDC, int part, int state, const RECT*, const RECT*) -> HRESULT {
        return part * 16 + state;
    };
    f.drawThemeParentBackground = [](HWND, HDC, const RECT*) -> HRESULT { return S_FALSE; };
    f.getThemeColor = [](HTHEME, int, int, int, COLORREF* colour) -> HRESULT { return *colour = 0x123456, S_OK; };
    f.isThemeActive = []() -> BOOL { return TRUE; };
    f.isAppThemed = []() -> BOOL { return 7; };
    return f;
}

} // namespace

TEST(ThemeLibrary, WithoutALibraryFailsInEveryCall)
{
    const ThemeLibrary none{ThemeLibrary::Functions{}};
    COLORREF colour = 0;
    EXPECT_EQ(none.OpenThemeData(nullptr, OLESTR("Button")), nullptr);
    EXPECT_EQ(none.CloseThemeData(kTheme), E_FAIL);
    EXPECT_EQ(none.DrawThemeBackground(kTheme, nullptr, 4, 1, {}, nullptr), E_FAIL);
    EXPECT_EQ(none.DrawThemeParentBackground(nullptr, nullptr, nullptr), E_FAIL);
    EXPECT_EQ(none.GetThemeColor(kTheme, 4, 1, 3803, &colour), E_FAIL);
    EXPECT_FALSE(none.IsThemeActive());
    EXPECT_FALSE(none.IsAppThemed());
}

TEST(ThemeLibrary, PassesCallsOn)
{
    const ThemeLibrary library{Stubs()};
    COLORREF colour = 0;
    EXPECT_EQ(library.OpenThemeData(nullptr, OLESTR("Button")), kTheme);
    EXPECT_EQ(library.CloseThemeData(kTheme), S_OK);
    EXPECT_EQ(library.DrawThemeBackground(kTheme, nullptr, 4, 1, {}, nullptr), 65);
    EXPECT_EQ(library.DrawThemeParentBackground(nullptr, nullptr, nullptr), S_FALSE);
    EXPECT_EQ(library.GetThemeColor(kTheme, 4, 1, 3803, &colour), S_OK);
    EXPECT_EQ(colour, COLORREF{0x123456});
    EXPECT_TRUE(library.IsThemeActive());
    EXPECT_TRUE(library.IsAppThemed());
}

TEST(ThemeLibrary, OfThePlatformFindsItsFunctions)
{
    const ThemeLibrary library;
    EXPECT_EQ(library.CloseThemeData(nullptr), E_HANDLE); // the platform's own answer
}
