// The button that tells a target, and the edit field without an input method.
#include "tests/toolkit/ToolkitWindow.h"

#include "toolkit/prpExtendedButton.h"
#include "toolkit/qorNoIMEEdit.h"

#include <imm.h>

namespace {

class CountingTarget : public ExtendedButtonTarget {
public:
    void OnExtendedButton() override { ++clicks; }
    int clicks = 0;
};

class ExtendedButton : public testing::Test {
protected:
    ToolkitWindow parent;
    CprpExtendedButton button;
    CountingTarget target;

    void SetUp() override
    {
        ASSERT_TRUE(button.Create(
            {WC_BUTTONW, OLESTR("..."), WS_CHILD | WS_VISIBLE, Rect{10, 10, 30, 30}, parent.handle, 506}));
    }
};

class EditField : public testing::Test {
protected:
    ToolkitWindow parent;
    CqorNoIMEEdit edit;

    void SetUp() override
    {
        ASSERT_TRUE(
            edit.Create({WC_EDITW, OLESTR("text"), WS_CHILD | WS_VISIBLE, Rect{10, 10, 100, 30}, parent.handle, 507}));
    }
    bool HasInputContext()
    {
        const HIMC context = ImmGetContext(edit.Handle());
        ImmReleaseContext(edit.Handle(), context);
        return context != nullptr;
    }
};

} // namespace

TEST_F(ExtendedButton, TellsItsTargetOfAClick)
{
    button.SetTarget(&target);
    ClickAt(button.Handle(), {5, 5});
    EXPECT_EQ(target.clicks, 1);
}

TEST_F(ExtendedButton, TellsOfNothingButClicks)
{
    button.SetTarget(&target);
    for (const int code : {BN_SETFOCUS, BN_KILLFOCUS, BN_DOUBLECLICKED, BN_PAINT})
        SendMessageW(parent.handle, WM_COMMAND, MAKEWPARAM(506, code), reinterpret_cast<LPARAM>(button.Handle()));
    EXPECT_EQ(target.clicks, 0);
    SendMessageW(parent.handle, WM_COMMAND, MAKEWPARAM(506, BN_CLICKED), reinterpret_cast<LPARAM>(button.Handle()));
    EXPECT_EQ(target.clicks, 1);
}

TEST_F(ExtendedButton, HearsOfItsCommandAsAReflectedMessage)
{
    button.SetTarget(&target);
    button.Send(0xBD11, MAKEWPARAM(506, BN_CLICKED), reinterpret_cast<LPARAM>(button.Handle()));
    EXPECT_EQ(target.clicks, 1);
}

TEST_F(ExtendedButton, KeepsItsTargetWhenNoneIsGiven)
{
    ClickAt(button.Handle(), {5, 5}); // without any target
    button.SetTarget(&target);
    button.SetTarget(nullptr);
    ClickAt(button.Handle(), {5, 5});
    EXPECT_EQ(target.clicks, 1);
}

TEST_F(ExtendedButton, OwnsItsFontUntilItGoes)
{
    const int before = LivingHandles::Count();
    LOGFONTW font{};
    font.lfHeight = -17;
    button.SetFont(font, false);
    LOGFONTW used{};
    GetObjectW(reinterpret_cast<HFONT>(button.Send(WM_GETFONT)), sizeof used, &used);
    EXPECT_EQ(used.lfHeight, -17);
    font.lfHeight = -19;
    button.SetFont(font, true);
    EXPECT_EQ(LivingHandles::Count(), before + 1);
    button.Destroy();
    EXPECT_EQ(LivingHandles::Count(), before);
}

TEST_F(EditField, HasNoInputMethodWithTheFocus)
{
    SetFocus(edit.Handle());
    EXPECT_EQ(GetFocus(), edit.Handle());
    EXPECT_FALSE(HasInputContext());
}

TEST_F(EditField, GetsTheFocusAsUsualWithoutAnInputMethod)
{
    ImmAssociateContext(edit.Handle(), nullptr);
    ASSERT_FALSE(HasInputContext());
    SetFocus(edit.Handle());
    EXPECT_EQ(GetFocus(), edit.Handle());
    TypeCharacters(L"!");
    EXPECT_EQ(edit.WindowText(), OLESTR("!text"));
}

TEST_F(EditField, DoesNotGiveTheInputMethodBack)
{
    SetFocus(edit.Handle());
    SetFocus(parent.handle);
    EXPECT_FALSE(HasInputContext());
}
