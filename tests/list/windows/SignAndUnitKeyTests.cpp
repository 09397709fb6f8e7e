// The keys that change the number in a text box as a whole: the sign and the units.
#include "tests/list/windows/GridTest.h"

namespace {

class NumberKeys : public GridTest {
protected:
    void Open(const std::wstring& text, int start, int end)
    {
        if (!grid.HasItem(1))
            ShowOne(E_PROP_DT_DOUBLE);
        OpenEditor(1);
        TypeOver(text);
        TextBox().SetSel(start, end);
    }
    std::pair<int, int> Selection() { return TextBox().GetSel(); }
};
class SignKey : public NumberKeys {};
class UnitKeys : public NumberKeys {
protected:
    void ShowValue(double value, EprpPropDataType type = E_PROP_DT_DOUBLE)
    {
        ShowOne(type);
        grid.Change(1, [&](IqorProperty* property) { SetDouble(property, value); });
        OpenEditor(1);
    }
    double Value(std::size_t collection = 0)
    {
        double value = 0;
        Transact(
            grid.collections[collection], [&] { value = DoubleOf(PropertyOf(grid.collections[collection], 1)); },
            false);
        return value;
    }
};

} // namespace

TEST_F(SignKey, PutsAMinusAheadAndMovesTheCaretAlong)
{
    Open(L"12", 2, 2);
    TypeCharacters(L"-");
    EXPECT_EQ(FocusedText(), OLESTR("-12"));
    EXPECT_EQ(Selection(), std::pair(3, 3));
    TypeCharacters(L"-");
    EXPECT_EQ(FocusedText(), OLESTR("12"));
    EXPECT_EQ(Selection(), std::pair(2, 2));
}

TEST_F(SignKey, ReplacesASelectionAtTheFront)
{
    Open(L"12", 0, 2);
    TypeCharacters(L"-");
    EXPECT_EQ(FocusedText(), OLESTR("-"));
    Open(L"123", 0, 1);
    TypeCharacters(L"-");
    EXPECT_EQ(FocusedText(), OLESTR("-23"));
}

TEST_F(SignKey, TogglesOverASelectionElsewhere)
{
    Open(L"123", 1, 3);
    TypeCharacters(L"-");
    EXPECT_EQ(FocusedText(), OLESTR("-123"));
    EXPECT_EQ(Selection(), std::pair(2, 4));
}

TEST_F(SignKey, TogglesWithTheCaretAtTheFront)
{
    Open(L"123", 0, 0);
    TypeCharacters(L"-");
    EXPECT_EQ(FocusedText(), OLESTR("-123"));
    EXPECT_EQ(Selection(), std::pair(1, 1));
}

TEST_F(SignKey, TildeTogglesOverAnySelectionAndNeverAppears)
{
    Open(L"12", 0, 2);
    TypeCharacters(L"~");
    EXPECT_EQ(FocusedText(), OLESTR("-12"));
    EXPECT_EQ(Selection(), std::pair(1, 3));
    TypeCharacters(L"~");
    EXPECT_EQ(FocusedText(), OLESTR("12"));
}

TEST_F(SignKey, RemovesEveryMinus)
{
    Open(L"-1-2-", 5, 5);
    TypeCharacters(L"~");
    EXPECT_EQ(FocusedText(), OLESTR("12"));
}

TEST_F(SignKey, DropsASelectionThatWouldStartAheadOfTheText)
{
    Open(L"-12", 0, 2);
    TypeCharacters(L"~");
    EXPECT_EQ(FocusedText(), OLESTR("12"));
    EXPECT_EQ(Selection().first, Selection().second);
}

TEST_F(SignKey, MakesALoneMinusOutOfNothing)
{
    Open(L"", 0, 0);
    TypeCharacters(L"-");
    EXPECT_EQ(FocusedText(), OLESTR("-"));
}

TEST_F(SignKey, IsPartOfTheEditThatIsCommitted)
{
    Open(L"12", 2, 2);
    TypeCharacters(L"~");
    PressKey(VK_RETURN);
    EXPECT_EQ(grid.ValueOf(1), OLESTR("-12"));
}

TEST_F(UnitKeys, MultiplyByTheInchAndBack)
{
    ShowValue(2);
    TypeCharacters(L"m");
    EXPECT_EQ(FocusedText(), OLESTR("50.8"));
    EXPECT_EQ(Value(), 50.8);
    TypeCharacters(L"i");
    EXPECT_NEAR(Value(), 2, 1e-12);
}

TEST_F(UnitKeys, ReadThePropertyNotTheText)
{
    ShowValue(2);
    TypeOver(L"9999");
    TypeCharacters(L"M");
    EXPECT_EQ(FocusedText(), OLESTR("50.8"));
}

TEST_F(UnitKeys, WriteSixteenDigits)
{
    ShowValue(1);
    TypeCharacters(L"I");
    EXPECT_EQ(FocusedText(), OLESTR("0.03937007874015748"));
}

TEST_F(UnitKeys, TellNobodyAndKeepTheEditOpen)
{
    ShowValue(2);
    TypeCharacters(L"m");
    EXPECT_THAT(grid.Sounds(), IsEmpty());
    EXPECT_TRUE(TextBox().HasFocus());
    EXPECT_EQ(grid.Item(1).m_strData, OLESTR("2"));
}

TEST_F(UnitKeys, AreFollowedByACommit)
{
    ShowValue(2);
    TypeCharacters(L"m");
    PressKey(VK_RETURN);
    EXPECT_THAT(grid.Sounds(), Contains("MultiEditStart"));
    EXPECT_EQ(Value(), 50.8);
    EXPECT_EQ(grid.ValueOf(1), OLESTR("50.8"));
}

TEST_F(UnitKeys, ActOnTheFirstCollectionUntilTheCommit)
{
    grid.AddCollection();
    grid.AddCollection();
    ShowOne(E_PROP_DT_DOUBLE);
    SetValue(1, OLESTR("2"), 0);
    SetValue(1, OLESTR("2"), 1);
    OpenEditor(1);
    TypeCharacters(L"m");
    EXPECT_EQ(Value(0), 50.8);
    EXPECT_EQ(Value(1), 2);
    PressKey(VK_RETURN);
    EXPECT_EQ(Value(1), 50.8);
}

TEST_F(UnitKeys, OfSmallLettersStayWithinTheirRange)
{
    ShowValue(1e13);
    ASSERT_EQ(Value(), 1e13);
    TypeCharacters(L"m");
    EXPECT_EQ(FocusedText(), OLESTR("254000000000000"));
    TestGrid other;
    other.Add(1, E_PROP_DT_DOUBLE);
    other.Show();
    other.Change(1, [](IqorProperty* property) { SetDouble(property, 6e13); });
    other.Click(1);
    other.list.EditSelectedRow();
    const Text before = other.Item(1).m_edit.WindowText();
    TypeCharacters(L"m");
    EXPECT_EQ(other.Item(1).m_edit.WindowText(), before);
    TypeCharacters(L"M");
    EXPECT_EQ(other.Item(1).m_edit.WindowText(), OLESTR("1524000000000000"));
}

TEST_F(UnitKeys, OfSmallLettersDoNothingToZeroWhichCapitalsWrite)
{
    ShowValue(0);
    TypeOver(L"7");
    TypeCharacters(L"m");
    TypeCharacters(L"i");
    EXPECT_EQ(FocusedText(), OLESTR("7"));
    TypeCharacters(L"M");
    EXPECT_EQ(FocusedText(), OLESTR("0"));
}

TEST_F(UnitKeys, ShowMoreThanThePropertyStores)
{
    ShowValue(1e14);
    TypeCharacters(L"M");
    EXPECT_EQ(FocusedText(), OLESTR("2540000000000000"));
    EXPECT_EQ(Value(), 1e14);
    TypeCharacters(L"M"); // starts from the property again
    EXPECT_EQ(FocusedText(), OLESTR("2540000000000000"));
}

TEST_F(UnitKeys, AreDroppedByThePropertyBelowItsThreshold)
{
    ShowValue(5);
    grid.Change(1, [](IqorProperty* property) { SetDouble(property, 0.000003); });
    ASSERT_EQ(Value(), 0.000003);
    TypeCharacters(L"M");
    EXPECT_EQ(FocusedText().substr(0, 3), OLESTR("7.6"));
    EXPECT_EQ(Value(), 0.000003);
}

TEST_F(UnitKeys, AreIgnoredByAngles)
{
    ShowValue(2, E_PROP_DT_ANGLE);
    const Text before = FocusedText();
    TypeCharacters(L"mMiI");
    EXPECT_EQ(FocusedText(), before);
    EXPECT_EQ(Value(), 2);
}

TEST_F(UnitKeys, AreNoCharactersOfANumber)
{
    ShowValue(2);
    TypeCharacters(L"kKxX");
    EXPECT_EQ(FocusedText(), OLESTR("2"));
}

TEST_F(UnitKeys, OfAPropertyThatIsGoneDoNothing)
{
    ShowValue(2);
    Transact(
        grid.collections[0],
        [&] {
            EprpPropError error = E_PROP_ERROR_NONE;
            EXPECT_EQ(grid.Collection().RemoveProperty(1, &error), S_OK);
        },
        false);
    const RecordedAlerts alerts;
    TypeCharacters(L"M");
    EXPECT_EQ(FocusedText(), OLESTR("2"));
    EXPECT_THAT(alerts.Boxes(), IsEmpty());
}

TEST_F(UnitKeys, InsideAHostsTransactionAreReported)
{
    ShowValue(2);
    const RecordedAlerts alerts;
    ASSERT_EQ(grid.Collection().StartTransaction(-1), S_OK);
    TypeCharacters(L"M");
    EXPECT_EQ(alerts.Boxes().size(), 1u);
    EXPECT_EQ(grid.Collection().EndTransaction(VARIANT_TRUE), S_OK);
}
