// Rows of numbers: what they show, which characters they take, what becomes of the text that is committed.
#include "tests/list/windows/GridTest.h"

#include <limits>

namespace {

class NumberRow : public GridTest {
protected:
    void Commit(const std::wstring& text)
    {
        OpenEditor(1);
        TypeOver(text);
        PressKey(VK_RETURN);
    }
    void LimitTo(double limit, std::size_t collection = 0)
    {
        Transact(
            grid.collections[collection], [&] { EXPECT_EQ(grid.Collection(collection).SetMaxInputValue(limit), S_OK); },
            false);
        grid.Item(1).Refresh();
    }
    double Number()
    {
        double value = 0;
        Transact(
            grid.collections[0], [&] { value = DoubleOf(PropertyOf(grid.collections[0], 1)); }, false);
        return value;
    }
    Text Typed(const std::wstring& text)
    {
        OpenEditor(1);
        TypeOver(L"");
        TypeCharacters(text);
        return FocusedText();
    }
};

} // namespace

TEST_F(NumberRow, ShowsThePropertysText)
{
    ShowOne(E_PROP_DT_DOUBLE);
    SetValue(1, OLESTR("12.50"));
    EXPECT_EQ(grid.Item(1).m_strData, OLESTR("12.5"));
}

TEST_F(NumberRow, IsEmptyWhereCollectionsDiffer)
{
    grid.AddCollection();
    grid.AddCollection();
    ShowOne(E_PROP_DT_DOUBLE);
    SetValue(1, OLESTR("3"), 1);
    EXPECT_EQ(grid.Item(1).m_strData, OLESTR(""));
    SetValue(1, OLESTR("3"), 0);
    EXPECT_EQ(grid.Item(1).m_strData, OLESTR("3"));
}

TEST_F(NumberRow, WritesNothingForAnUntouchedEmptyCell)
{
    grid.AddCollection();
    grid.AddCollection();
    ShowOne(E_PROP_DT_DOUBLE);
    SetValue(1, OLESTR("3"), 1);
    OpenEditor(1);
    PressKey(VK_RETURN);
    EXPECT_THAT(grid.Sounds(), ElementsAre("InPlaceEditEnd"));
    EXPECT_EQ(grid.ValueOf(1, 0), OLESTR("0"));
    EXPECT_EQ(grid.ValueOf(1, 1), OLESTR("3"));
}

TEST_F(NumberRow, CommitsANumberAsItWasTyped)
{
    ShowOne(E_PROP_DT_DOUBLE);
    Commit(L"1.50");
    EXPECT_EQ(Number(), 1.5);
    EXPECT_EQ(grid.Item(1).m_strData, OLESTR("1.5")); // as the property tells it
}

TEST_F(NumberRow, TakesNonsenseAsTheLimit)
{
    ShowOne(E_PROP_DT_DOUBLE);
    LimitTo(1000);
    Commit(L"abc");
    EXPECT_EQ(Number(), 1000);
    Commit(L"-");
    EXPECT_EQ(Number(), 1000);
}

TEST_F(NumberRow, TakesAnEmptyTextAsTheLimit)
{
    ShowOne(E_PROP_DT_DOUBLE);
    LimitTo(1000);
    Commit(L"");
    EXPECT_EQ(Number(), 1000);
}

TEST_F(NumberRow, TakesNonsenseAsAPositiveNumberWithoutALimit)
{
    ShowOne(E_PROP_DT_DOUBLE);
    ASSERT_EQ(grid.Item(1).m_dbMaxInputValue, std::numeric_limits<double>::max());
    Commit(L"abc");
    EXPECT_GT(Number(), 0);
}

TEST_F(NumberRow, HoldsNumbersWithinTheLimitOnBothSides)
{
    ShowOne(E_PROP_DT_DOUBLE);
    LimitTo(1000);
    Commit(L"1000.5");
    EXPECT_EQ(Number(), 1000);
    Commit(L"-1000.5");
    EXPECT_EQ(Number(), -1000);
    Commit(L"-999.5");
    EXPECT_EQ(Number(), -999.5);
}

TEST_F(NumberRow, WritesTheLimitWithSixDecimals)
{
    ShowOne(E_PROP_DT_DOUBLE);
    LimitTo(1000);
    Text written;
    grid.reactions["MultiEditStart"] = [&] { written = grid.Item(1).m_strData; };
    Commit(L"5000");
    EXPECT_EQ(written, OLESTR("1000.000000"));
}

TEST_F(NumberRow, KeepsTheSmallestLimitOfItsCollections)
{
    grid.AddCollection();
    grid.AddCollection();
    ShowOne(E_PROP_DT_DOUBLE);
    LimitTo(500, 0);
    LimitTo(200, 1);
    EXPECT_EQ(grid.Item(1).m_dbMaxInputValue, 200);
    LimitTo(800, 1);
    EXPECT_EQ(grid.Item(1).m_dbMaxInputValue, 500);
    LimitTo(499.99995, 1); // the same number in metric
    EXPECT_EQ(grid.Item(1).m_dbMaxInputValue, 500);
}

TEST_F(NumberRow, TakesNoChangeOfLetterCaseForAnEdit)
{
    ShowOne(E_PROP_DT_DOUBLE);
    SetValue(1, OLESTR("1"));
    grid.Click(1);
    grid.Item(1).m_strData = OLESTR("1E3");
    SetFocus(TextBox().Handle());
    TypeOver(L"1e3");
    grid.Sounds();
    PressKey(VK_RETURN);
    EXPECT_THAT(grid.Sounds(), ElementsAre("InPlaceEditEnd"));
    EXPECT_EQ(Number(), 1);
}

TEST_F(NumberRow, CommitsAnyOtherSpellingOfTheSameNumber)
{
    ShowOne(E_PROP_DT_DOUBLE);
    SetValue(1, OLESTR("4"));
    OpenEditor(1);
    TypeOver(L"4.0");
    PressKey(VK_RETURN);
    EXPECT_THAT(grid.Sounds(), Contains("MultiEditStart"));
    EXPECT_EQ(grid.ValueOf(1), OLESTR("4"));
}

TEST_F(NumberRow, OfARealNumberTakesDigitsPointAndSigns)
{
    for (const auto type :
         {E_PROP_DT_LINEAR, E_PROP_DT_ANGLE, E_PROP_DT_DOUBLE, E_PROP_DT_FORM, E_PROP_DT_FULL_PRECISION}) {
        TestGrid other;
        other.Add(1, type);
        other.Show();
        other.Click(1);
        other.list.EditSelectedRow();
        SendMessageW(GetFocus(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L""));
        TypeCharacters(L"1a2.5e,-");
        EXPECT_EQ(other.Item(1).m_edit.WindowText(), OLESTR("-12.5")) << type;
    }
}

TEST_F(NumberRow, OfASignedIntegerTakesDigitsAndSigns)
{
    ShowOne(E_PROP_DT_LONG);
    EXPECT_EQ(Typed(L"1.2mM~"), OLESTR("-12"));
}

TEST_F(NumberRow, OfAnUnsignedIntegerTakesDigitsInSilence)
{
    const RecordedAlerts alerts;
    ShowOne(E_PROP_DT_DWORD);
    EXPECT_EQ(Typed(L"1-2.~3"), OLESTR("123"));
    EXPECT_THAT(alerts.Beeps(), IsEmpty());
}

TEST_F(NumberRow, DropsTabAndReturnCharactersInSilence)
{
    const RecordedAlerts alerts;
    ShowOne(E_PROP_DT_DOUBLE);
    EXPECT_EQ(Typed(L"1\t2\r3"), OLESTR("123"));
    EXPECT_EQ(Typed(L"12\b3"), OLESTR("13"));
    EXPECT_THAT(alerts.Beeps(), IsEmpty());
}

TEST_F(NumberRow, CommitsAnInteger)
{
    ShowOne(E_PROP_DT_LONG);
    Commit(L"-42");
    EXPECT_EQ(grid.ValueOf(1), OLESTR("-42"));
}
