// The clipboard and the text box of a row, and the messages by which an Edit menu asks what the text box can do.
#include "tests/list/windows/GridTest.h"

#include "toolkit/EditMessages.h"

#include <thread>

namespace {

class Paste : public GridTest {
protected:
    void Open(EprpPropDataType type)
    {
        ShowOne(type);
        OpenEditor(1);
        TypeOver(L"");
    }
    LRESULT PasteIntoTextBox() { return SendMessageW(GetFocus(), WM_PASTE, 0, 0); }
    LRESULT Ask(UINT message) { return SendMessageW(GetFocus(), message, 0, 0); }
    RecordedAlerts alerts;
    const EditMessages& messages = RegisteredEditMessages();
};

/// Another window of another thread that holds the clipboard open.
class HeldClipboard {
public:
    HeldClipboard()
    {
        const HDESK desktop = GetThreadDesktop(GetCurrentThreadId());
        m_thread = std::thread([this, desktop] {
            SetThreadDesktop(desktop);
            const HWND window = CreateWindowW(L"Static", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
            EXPECT_TRUE(OpenClipboard(window));
            SetEvent(m_opened);
            WaitForSingleObject(m_done, 60000);
            CloseClipboard();
            DestroyWindow(window);
        });
        WaitForSingleObject(m_opened, 60000);
    }
    ~HeldClipboard()
    {
        SetEvent(m_done);
        m_thread.join();
        CloseHandle(m_opened);
        CloseHandle(m_done);
    }

private:
    HANDLE m_opened = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HANDLE m_done = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::thread m_thread;
};

} // namespace

TEST_F(Paste, IntoUnicodeTextIsUnchanged)
{
    Open(E_PROP_DT_STRING_UNICODE);
    PutOnClipboard<wchar_t>(CF_UNICODETEXT, L"\u00C4\u4E2D@ok");
    EXPECT_EQ(PasteIntoTextBox(), 1);
    EXPECT_EQ(FocusedText(), OLESTR("\u00C4\u4E2D@ok"));
}

TEST_F(Paste, OfNothingIntoUnicodeTextReplacesTheSelectionInSilence)
{
    Open(E_PROP_DT_STRING_UNICODE);
    TypeOver(L"gone");
    SendMessageW(GetFocus(), EM_SETSEL, 0, -1);
    PutOnClipboard<wchar_t>(CF_UNICODETEXT, L"");
    EXPECT_EQ(PasteIntoTextBox(), 1);
    EXPECT_EQ(FocusedText(), OLESTR(""));
    EXPECT_THAT(alerts.Beeps(), IsEmpty());
}

TEST_F(Paste, IntoAnsiTextIsMappedToItsBaseLetters)
{
    Open(E_PROP_DT_STRING_ANSI);
    PutOnClipboard<wchar_t>(CF_UNICODETEXT, L"\u00C4\u4E2D\u00FF\u00DF@\t\u00D7");
    EXPECT_EQ(PasteIntoTextBox(), 1);
    EXPECT_EQ(FocusedText(), OLESTR("Ays@"));
}

TEST_F(Paste, BringsCharactersIntoANumberThatTypingRefuses)
{
    Open(E_PROP_DT_DOUBLE);
    PutOnClipboard<wchar_t>(CF_UNICODETEXT, L"12 mm");
    EXPECT_EQ(PasteIntoTextBox(), 1);
    EXPECT_EQ(FocusedText(), OLESTR("12 mm"));
    PressKey(VK_RETURN);
    EXPECT_EQ(grid.ValueOf(1), OLESTR("12"));
}

TEST_F(Paste, IgnoresRefusedCharacters)
{
    ShowOne(E_PROP_DT_STRING_UNICODE);
    grid.Change(1, [](IqorProperty* p) { EXPECT_EQ(p->SetInvalidCharacters(Bstr(OLESTR("#"))), S_OK); });
    grid.Item(1).Refresh();
    OpenEditor(1);
    PutOnClipboard<wchar_t>(CF_UNICODETEXT, L"a#b");
    PasteIntoTextBox();
    EXPECT_EQ(FocusedText(), OLESTR("a#b"));
    EXPECT_THAT(alerts.Beeps(), IsEmpty());
}

TEST_F(Paste, OfControlCharactersAloneBeepsAndChangesNothing)
{
    Open(E_PROP_DT_DOUBLE);
    TypeOver(L"5");
    SendMessageW(GetFocus(), EM_SETSEL, 0, -1);
    PutOnClipboard<wchar_t>(CF_UNICODETEXT, L"\t\r\n");
    EXPECT_EQ(PasteIntoTextBox(), 1);
    EXPECT_EQ(FocusedText(), OLESTR("5"));
    EXPECT_EQ(alerts.Beeps(), std::vector<UINT>{MB_ICONEXCLAMATION});
}

TEST_F(Paste, ReplacesTheSelectionAndCanBeUndone)
{
    Open(E_PROP_DT_DOUBLE);
    TypeOver(L"1234");
    SendMessageW(GetFocus(), EM_SETSEL, 1, 3);
    PutOnClipboard<wchar_t>(CF_UNICODETEXT, L"9");
    PasteIntoTextBox();
    EXPECT_EQ(FocusedText(), OLESTR("194"));
    SendMessageW(GetFocus(), WM_UNDO, 0, 0);
    EXPECT_EQ(FocusedText(), OLESTR("1234"));
}

TEST_F(Paste, SetsTheTextLimitFirst)
{
    Open(E_PROP_DT_LONG);
    PutOnClipboard<wchar_t>(CF_UNICODETEXT, L"123");
    PasteIntoTextBox();
    EXPECT_EQ(SendMessageW(GetFocus(), EM_GETLIMITTEXT, 0, 0), 9);
}

TEST_F(Paste, OfAnEmptyClipboardDoesNothing)
{
    Open(E_PROP_DT_DOUBLE);
    TypeOver(L"5");
    EmptyTheClipboard();
    EXPECT_EQ(PasteIntoTextBox(), 1);
    EXPECT_EQ(FocusedText(), OLESTR("5"));
    EXPECT_THAT(alerts.Beeps(), IsEmpty());
}

TEST_F(Paste, FromAClipboardThatAnotherHoldsIsRefused)
{
    Open(E_PROP_DT_DOUBLE);
    PutOnClipboard<wchar_t>(CF_UNICODETEXT, L"7");
    {
        const HeldClipboard held;
        EXPECT_EQ(PasteIntoTextBox(), 0);
        EXPECT_EQ(FocusedText(), OLESTR(""));
    }
    EXPECT_EQ(PasteIntoTextBox(), 1);
    EXPECT_EQ(FocusedText(), OLESTR("7"));
}

TEST_F(Paste, ByTheKeyboardTakesTheSameWay)
{
    Open(E_PROP_DT_STRING_ANSI);
    PutOnClipboard<wchar_t>(CF_UNICODETEXT, L"\u00C4");
    TypeCharacters(L"\x16");
    EXPECT_EQ(FocusedText(), OLESTR("A"));
}

TEST_F(Paste, CanBeAskedFor)
{
    Open(E_PROP_DT_DOUBLE);
    PutOnClipboard<wchar_t>(CF_UNICODETEXT, L"7");
    EXPECT_EQ(Ask(messages.canPaste), 1);
    EmptyTheClipboard();
    EXPECT_EQ(Ask(messages.canPaste), -1);
}

TEST_F(Paste, NeedsASelectionForCutAndCopy)
{
    Open(E_PROP_DT_DOUBLE);
    TypeOver(L"123");
    SendMessageW(GetFocus(), EM_SETSEL, 1, 2);
    EXPECT_EQ(Ask(messages.canCut), 1);
    EXPECT_EQ(Ask(messages.canCopy), 1);
    SendMessageW(GetFocus(), EM_SETSEL, 2, 2);
    EXPECT_EQ(Ask(messages.canCut), -1);
    EXPECT_EQ(Ask(messages.canCopy), -1);
}

TEST_F(Paste, HasItsQuestionsUnderTheirRegisteredNames)
{
    EXPECT_EQ(messages.canCut, RegisterWindowMessageW(L"LVRegWinMsg_CanCut"));
    EXPECT_EQ(messages.canCopy, RegisterWindowMessageW(L"LVRegWinMsg_CanCopy"));
    EXPECT_EQ(messages.canPaste, RegisterWindowMessageW(L"LVRegWinMsg_CanPaste"));
}

TEST_F(Paste, CutAndCopyAreTheTextBoxsOwn)
{
    Open(E_PROP_DT_STRING_UNICODE);
    TypeOver(L"word");
    SendMessageW(GetFocus(), EM_SETSEL, 0, -1);
    SendMessageW(GetFocus(), WM_CUT, 0, 0);
    EXPECT_EQ(FocusedText(), OLESTR(""));
    EXPECT_EQ(PasteIntoTextBox(), 1);
    EXPECT_EQ(FocusedText(), OLESTR("word"));
}
