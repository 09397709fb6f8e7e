// The group box that paints itself in given colours.
#include "tests/toolkit/ToolkitWindow.h"

#include "toolkit/prpColorGroup.h"

namespace {

constexpr COLORREF kGround = 0x30C0F0;
constexpr COLORREF kInk = 0x800040;

class ColorGroup : public testing::Test {
protected:
    ToolkitWindow parent;
    CprpColorGroup group;

    void Show(const OLECHAR* title)
    {
        ASSERT_TRUE(group.Create(
            {WC_BUTTONW, title, WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, Rect{10, 10, 210, 110}, parent.handle, 7}));
        group.SetBackgroundColour(kGround);
        group.SetTextColour(kInk);
    }
    Picture Look()
    {
        UpdateWindow(group.Handle());
        return Picture(group.Handle());
    }
    /// Size of the title as the platform measures it centred in an empty rectangle.
    SIZE TitleSize(const Text& title)
    {
        const WindowDc dc(group.Handle());
        RECT measured{};
        DrawTextW(dc, title.c_str(), static_cast<int>(title.size()), &measured,
                  DT_CALCRECT | DT_SINGLELINE | DT_VCENTER | DT_CENTER);
        return {measured.right - measured.left, measured.bottom - measured.top};
    }
};

} // namespace

TEST_F(ColorGroup, FillsItselfWithItsGround)
{
    Show(OLESTR("Limits"));
    const Picture look = Look();
    EXPECT_EQ(look.At(1, 0), kGround);
    EXPECT_TRUE(look.IsFilled({20, 40, 180, 80}, kGround));
}

TEST_F(ColorGroup, DrawsItsFrameFromHalfTheTitlesHeight)
{
    Show(OLESTR("Limits"));
    const int top = TitleSize(OLESTR("Limits")).cy / 2;
    const Picture look = Look();
    EXPECT_TRUE(look.IsFilled({0, 0, 6, top}, kGround));
    EXPECT_NE(look.At(2, top), kGround);
    EXPECT_NE(look.At(150, top), kGround);
    EXPECT_NE(look.At(0, 60), kGround);
    EXPECT_NE(look.At(199, 60), kGround);
    EXPECT_NE(look.At(100, 99), kGround);
}

TEST_F(ColorGroup, BreaksItsFrameForTheTitle)
{
    Show(OLESTR("Limits"));
    const SIZE title = TitleSize(OLESTR("Limits"));
    const int top = title.cy / 2;
    const Picture look = Look();
    const Rect gap{6, top, 6 + static_cast<int>(title.cx) + 4, top + 1};
    EXPECT_NE(look.At(gap.left - 1, top), kGround);
    EXPECT_NE(look.At(gap.right, top), kGround);
    EXPECT_EQ(look.At(gap.left, top), kGround);
    EXPECT_EQ(look.At(gap.right - 1, top), kGround);
    EXPECT_TRUE(look.Shows({gap.left, 0, gap.right, static_cast<int>(title.cy) + 2}, kInk));
}

TEST_F(ColorGroup, HasNoGapWithoutATitle)
{
    Show(OLESTR(""));
    const Picture look = Look();
    int top = 0;
    while (top < 50 && look.At(100, top) == kGround)
        ++top;
    ASSERT_LT(top, 50);
    for (int x = 0; x < 200; ++x)
        EXPECT_NE(look.At(x, top), kGround) << x;
    EXPECT_TRUE(look.IsFilled({20, 40, 180, 80}, kGround));
}

TEST_F(ColorGroup, TranslatesSystemColoursAndRepaints)
{
    Show(OLESTR("Limits"));
    Look();
    group.SetBackgroundColour(0x80000000 | COLOR_HIGHLIGHT);
    EXPECT_TRUE(GetUpdateRect(group.Handle(), nullptr, FALSE));
    EXPECT_EQ(Look().At(100, 60), GetSysColor(COLOR_HIGHLIGHT));
    group.SetTextColour(0x80000000 | COLOR_GRAYTEXT);
    EXPECT_TRUE(GetUpdateRect(group.Handle(), nullptr, FALSE));
    EXPECT_TRUE(Look().Shows({6, 0, 60, 16}, GetSysColor(COLOR_GRAYTEXT)));
}

TEST_F(ColorGroup, DrawsOnlyWhenItIsToDrawAll)
{
    Show(OLESTR("Limits"));
    Look();
    const WindowDc dc(group.Handle());
    const RECT all{0, 0, 200, 100};
    FillRect(dc, &all, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    DRAWITEMSTRUCT draw{};
    draw.itemAction = ODA_FOCUS;
    draw.hDC = dc;
    draw.rcItem = all;
    group.Send(WM_DRAWITEM + kReflected, 0, reinterpret_cast<LPARAM>(&draw));
    EXPECT_EQ(Picture(group.Handle()).At(100, 60), COLORREF{0});
    draw.itemAction = ODA_DRAWENTIRE | ODA_FOCUS;
    group.Send(WM_DRAWITEM + kReflected, 0, reinterpret_cast<LPARAM>(&draw));
    EXPECT_EQ(Picture(group.Handle()).At(100, 60), kGround);
}

TEST_F(ColorGroup, LeavesTheDeviceContextAsItWas)
{
    Show(OLESTR("Limits"));
    const WindowDc dc(group.Handle());
    SetTextColor(dc, 0x112233);
    SetBkColor(dc, 0x445566);
    DRAWITEMSTRUCT draw{};
    draw.itemAction = ODA_DRAWENTIRE;
    draw.hDC = dc;
    draw.rcItem = {0, 0, 200, 100};
    group.Send(WM_DRAWITEM + kReflected, 0, reinterpret_cast<LPARAM>(&draw));
    EXPECT_EQ(GetTextColor(dc), COLORREF{0x112233});
    EXPECT_EQ(GetBkColor(dc), COLORREF{0x445566});
}
