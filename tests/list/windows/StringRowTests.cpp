// Rows of strings: exact comparison, refused characters, the two character sets.
#include "tests/list/windows/GridTest.h"

namespace {

class StringRow : public GridTest {
protected:
    void Refuse(TextView characters, std::size_t collection = 0)
    {
        grid.Change(
            1, [&](IqorProperty* property) { EXPECT_EQ(property->SetInvalidCharacters(Bstr(characters)), S_OK); },
            collection);
        grid.Item(1).Refresh();
    }
    Text Typed(const std::wstring& text)
    {
        OpenEditor(1);
        TypeOver(L"");
        TypeCharacters(text);
        return FocusedText();
    }
    RecordedAlerts alerts;
};

} // namespace

TEST_F(StringRow, WritesAChangeOfLetterCase)
{
    ShowOne(E_PROP_DT_STRING_UNICODE);
    SetValue(1, OLESTR("Bore"));
    OpenEditor(1);
    TypeOver(L"BORE");
    PressKey(VK_RETURN);
    EXPECT_THAT(grid.Sounds(), Contains("MultiEditStart"));
}

TEST_F(StringRow, WritesNothingWithoutAChange)
{
    ShowOne(E_PROP_DT_STRING_UNICODE);
    SetValue(1, OLESTR("Bore"));
    OpenEditor(1);
    TypeOver(L"Bore");
    PressKey(VK_RETURN);
    EXPECT_THAT(grid.Sounds(), ElementsAre("InPlaceEditEnd"));
}

TEST_F(StringRow, CommitsAnyText)
{
    ShowOne(E_PROP_DT_STRING_UNICODE);
    for (const wchar_t* text : {L"abc", L"12e5000", L""}) {
        OpenEditor(1);
        TypeOver(text);
        PressKey(VK_RETURN);
        EXPECT_EQ(grid.ValueOf(1), text);
    }
}

TEST_F(StringRow, OfUnicodeTakesEveryCharacterThatIsNotRefused)
{
    ShowOne(E_PROP_DT_STRING_UNICODE);
    Refuse(OLESTR("#'"));
    EXPECT_EQ(Typed(L"a#\u00E9'\u4E2D\u03B1-~m"), OLESTR("a\u00E9\u4E2D\u03B1-~m"));
    EXPECT_EQ(alerts.Beeps(), (std::vector<UINT>{MB_ICONEXCLAMATION, MB_ICONEXCLAMATION}));
}

TEST_F(StringRow, OfAnsiRefusesCharactersFrom128On)
{
    for (const auto type : {E_PROP_DT_STRING_ANSI, E_PROP_DT_STATEMENT}) {
        TestGrid other;
        other.Add(1, type);
        other.Show();
        other.Click(1);
        other.list.EditSelectedRow();
        SendMessageW(GetFocus(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L""));
        const std::size_t beeps = alerts.Beeps().size();
        TypeCharacters(L"a\u007F\u0080b\u00E9");
        EXPECT_EQ(other.Item(1).m_edit.WindowText().substr(0, 1), OLESTR("a"));
        EXPECT_EQ(other.Item(1).m_edit.WindowText().back(), OLECHAR('b'));
        EXPECT_EQ(alerts.Beeps().size() - beeps, 2u) << type;
    }
}

TEST_F(StringRow, RefusesListedControlCharactersAloud)
{
    ShowOne(E_PROP_DT_STRING_ANSI);
    Refuse(OLESTR("\t"));
    EXPECT_EQ(Typed(L"a\tb"), OLESTR("ab"));
    EXPECT_EQ(alerts.Beeps().size(), 1u);
}

TEST_F(StringRow, LetsTheEditCommandsThroughEvenWhenTheyAreRefused)
{
    ShowOne(E_PROP_DT_STRING_ANSI);
    Refuse(OLESTR("\x01\x03\x16\x18\x1A"));
    Typed(L"a\x01\x03\x18\x1A");
    EXPECT_THAT(alerts.Beeps(), IsEmpty());
}

TEST_F(StringRow, OfCollectionsThatRefuseDifferentCharactersTakesThemAll)
{
    grid.AddCollection();
    grid.AddCollection();
    ShowOne(E_PROP_DT_STRING_UNICODE);
    Refuse(OLESTR("#"), 0);
    Refuse(OLESTR("#"), 1);
    EXPECT_EQ(Typed(L"a#b"), OLESTR("ab"));
    PressKey(VK_ESCAPE);
    Refuse(OLESTR("'"), 1);
    EXPECT_EQ(grid.Item(1).m_strInvalidChars, OLESTR(""));
    EXPECT_EQ(Typed(L"a#'b"), OLESTR("a#'b"));
}

TEST_F(StringRow, IsEmptyWhereCollectionsDifferInLetterCaseAlone)
{
    grid.AddCollection();
    grid.AddCollection();
    ShowOne(E_PROP_DT_STRING_UNICODE);
    SetValue(1, OLESTR("Bore"), 0);
    SetValue(1, OLESTR("other"), 1);
    SetValue(1, OLESTR("BORE"), 1);
    EXPECT_EQ(grid.Item(1).m_strData, OLESTR(""));
}

TEST_F(StringRow, BringsTheEditorsLetterCaseUpToDateAtARefreshOnly)
{
    ShowOne(E_PROP_DT_STRING_UNICODE);
    SetValue(1, OLESTR("Bore"));
    grid.Click(1);
    SetFocus(grid.list.Handle());
    TextBox().PutText(OLESTR("bORE"));
    grid.Look();
    EXPECT_EQ(TextBox().WindowText(), OLESTR("bORE")); // painting looks past the case
    grid.Item(1).Refresh();
    EXPECT_EQ(TextBox().WindowText(), OLESTR("Bore"));
}

TEST_F(StringRow, TakesAMinusWhereItIsTyped)
{
    ShowOne(E_PROP_DT_STRING_UNICODE);
    EXPECT_EQ(Typed(L"a-b"), OLESTR("a-b"));
}
