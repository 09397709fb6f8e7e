// Values and their texts: what each data type writes and reads, and what is announced with which old text.
#include "tests/core/ModelFixture.h"

#include <limits>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ValueTexts : public ModelTest {
protected:
    CComPtr<IqorProperty> Make(EprpPropDataType type) { return Add(m_nextId++, type); }

    /// What a text becomes in a property of a type, in the open transaction.
    Text After(IqorProperty* property, TextView text)
    {
        SetString(property, text);
        return StringOf(property);
    }

private:
    LONG m_nextId = 1;
};

} // namespace

TEST_F(ValueTexts, WriteAnglesWithFourDecimalsWhateverThePrecision)
{
    const auto angle = Make(E_PROP_DT_ANGLE);
    InTransaction([&] {
        EXPECT_EQ(collection->put_Precision(1), S_OK);
        EXPECT_EQ(After(angle, OLESTR("1.23456789")), OLESTR("1.2346"));
    });
}

TEST_F(ValueTexts, WriteFullPrecisionWithSixDecimalsWhateverThePrecision)
{
    const auto number = Make(E_PROP_DT_FULL_PRECISION);
    InTransaction([&] {
        EXPECT_EQ(collection->put_Precision(12), S_OK);
        EXPECT_EQ(After(number, OLESTR("1.23456789")), OLESTR("1.234568"));
    });
}

TEST_F(ValueTexts, CutZerosFromOneDecimalOnOnly)
{
    const auto length = Make(E_PROP_DT_LINEAR);
    InTransaction([&] {
        SetDouble(length, 20);
        EXPECT_EQ(StringOf(length), OLESTR("20"));
        EXPECT_EQ(collection->put_Precision(0), S_OK);
        EXPECT_EQ(StringOf(length), OLESTR("20"));
        EXPECT_EQ(collection->put_Precision(-1), S_OK);
        EXPECT_EQ(StringOf(length), OLESTR("20.000000"));
        EXPECT_EQ(collection->put_Precision(4), S_OK);
        EXPECT_EQ(After(length, OLESTR("-0.00001")), OLESTR("-0"));
    });
}

TEST_F(ValueTexts, ShowTheSameBitsSignedAndUnsigned)
{
    const auto whole = Make(E_PROP_DT_LONG);
    const auto word = Make(E_PROP_DT_DWORD);
    InTransaction([&] {
        SetLong(whole, -1);
        SetLong(word, -1);
        EXPECT_EQ(StringOf(whole), OLESTR("-1"));
        EXPECT_EQ(StringOf(word), OLESTR("4294967295"));
        EXPECT_EQ(After(word, OLESTR("0x1F")), OLESTR("0"));
        EXPECT_EQ(After(whole, OLESTR("12.7")), OLESTR("12"));
        EXPECT_EQ(After(whole, OLESTR("4294967295")), OLESTR("-1"));
    });
}

TEST_F(ValueTexts, ShowTheNumberOfAnEnumerationAndNotItsText)
{
    const auto choice = Make(E_PROP_DT_ENUM);
    InTransaction([&] {
        SprpEnumItem item{3, 0, VARIANT_TRUE};
        EXPECT_EQ(choice->AddEnumItem(0, &item), S_OK);
        EXPECT_EQ(choice->AddEnumItemString(0, Bstr(OLESTR("Inner"))), S_OK);
        SetLong(choice, 3);
        EXPECT_EQ(StringOf(choice), OLESTR("3"));
    });
}

TEST_F(ValueTexts, ReadAPrefixOfATextAndStoreIt)
{
    const auto length = Make(E_PROP_DT_LINEAR);
    InTransaction([&] {
        EXPECT_EQ(After(length, OLESTR("12abc")), OLESTR("12"));
        EXPECT_EQ(After(length, OLESTR(" .5")), OLESTR("0.5"));
        EXPECT_EQ(After(length, OLESTR("1e")), OLESTR("1"));
        EXPECT_EQ(After(length, OLESTR("1,5")), OLESTR("1"));
        EXPECT_EQ(After(length, OLESTR("2d3")), OLESTR("2"));
        EXPECT_EQ(After(length, OLESTR("0x10")), OLESTR("0"));
    });
}

TEST_F(ValueTexts, KeepTheValueAndAnnounceItWhenATextHoldsNoNumber)
{
    const auto length = Make(E_PROP_DT_LINEAR);
    InTransaction([&] { SetDouble(length, 2.5); });
    const auto events = EventsOf([&] {
        for (const TextView text : {OLESTR("abc"), OLESTR("nan"), OLESTR("inf"), OLESTR("  "), OLESTR("-")})
            EXPECT_EQ(After(length, text), OLESTR("2.5"));
    });
    EXPECT_EQ(events, std::vector<EventSeen>(5, ValueEdit(1, OLESTR("2.5"))));
}

TEST_F(ValueTexts, KeepANumberAndItsErrorAtAnEmptyTextAndAnnounceItAllTheSame)
{
    for (const EprpPropDataType type :
         {E_PROP_DT_ANGLE, E_PROP_DT_LINEAR, E_PROP_DT_LONG, E_PROP_DT_DOUBLE, E_PROP_DT_POSITION, E_PROP_DT_VECTOR,
          E_PROP_DT_ENUM, E_PROP_DT_FORM, E_PROP_DT_FULL_PRECISION, E_PROP_DT_DWORD}) {
        const auto property = Make(type);
        LONG id = 0;
        EXPECT_EQ(property->GetPropertyID(&id), S_OK);
        Text before;
        InTransaction([&] {
            before = StringOf(property);
            SetErrorText(property, OLESTR("Bad"));
        });
        const auto events = EventsOf([&] {
            EXPECT_EQ(property->SetPropertyString(nullptr), S_OK);
            EXPECT_EQ(StringOf(property), before);
            EXPECT_EQ(ErrorTextOf(property), OLESTR("Bad"));
        });
        EXPECT_THAT(events, ElementsAre(ValueEdit(id, before))) << "type " << type;
    }
}

TEST_F(ValueTexts, ClearTheErrorByAnyOtherTextAheadOfTheValueEdit)
{
    const auto length = Make(E_PROP_DT_LINEAR);
    InTransaction([&] { SetErrorText(length, OLESTR("Bad")); });
    const auto events = EventsOf([&] {
        SetString(length, OLESTR("abc"));
        EXPECT_TRUE(FlagOf(length, &IqorProperty::IsValid));
    });
    EXPECT_THAT(events, ElementsAre(StateEdit(1), ValueEdit(1, OLESTR("0"))));
}

TEST_F(ValueTexts, ChangeNothingByTheVeryTextThatIsShown)
{
    const auto length = Make(E_PROP_DT_LINEAR);
    InTransaction([&] {
        SetDouble(length, 1.5);
        SetErrorText(length, OLESTR("Bad"));
    });
    const auto events = EventsOf([&] {
        SetString(length, OLESTR("1.5"));
        EXPECT_EQ(ErrorTextOf(length), OLESTR("Bad"));
    });
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(ValueTexts, TakeATextThatDiffersInRenderingAsAChange)
{
    const auto length = Make(E_PROP_DT_LINEAR);
    InTransaction([&] { SetDouble(length, 1.5); });
    const auto events = EventsOf([&] { SetString(length, OLESTR("1.50")); });
    EXPECT_THAT(events, ElementsAre(ValueEdit(1, OLESTR("1.5"))));
}

TEST_F(ValueTexts, KeepTheTypedTextUntilTheNextRenderingAsAChangeOfTypeShows)
{
    const auto property = Make(E_PROP_DT_LINEAR);
    InTransaction([&] {
        SetString(property, OLESTR("1.50"));
        EXPECT_EQ(property->SetDataType(E_PROP_DT_STATEMENT), S_OK);
        EXPECT_EQ(StringOf(property), OLESTR("1.50"));
        EXPECT_EQ(property->SetDataType(E_PROP_DT_LINEAR), S_OK);
        EXPECT_EQ(StringOf(property), OLESTR("1.5"));
        EXPECT_EQ(property->SetDataType(E_PROP_DT_STATEMENT), S_OK);
        EXPECT_EQ(StringOf(property), OLESTR("1.5"));
    });
}

TEST_F(ValueTexts, LeaveTheLastRenderingBehindANumberThatWasSet)
{
    const auto property = Make(E_PROP_DT_LINEAR);
    InTransaction([&] {
        SetDouble(property, 1.5);
        SetDouble(property, 2.5); // renders 1.5 for its event
        EXPECT_EQ(property->SetDataType(E_PROP_DT_STATEMENT), S_OK);
        EXPECT_EQ(StringOf(property), OLESTR("1.5"));
    });
}

TEST_F(ValueTexts, ReadPositionsInEveryKindOfBrackets)
{
    const auto position = Make(E_PROP_DT_POSITION);
    InTransaction([&] {
        for (const TextView text : {OLESTR("1;2;3"), OLESTR("(1 2 3)"), OLESTR("[1; 2; 3]"), OLESTR("{1;2;3}")}) {
            SetString(position, OLESTR("9;9;9"));
            EXPECT_EQ(After(position, text), OLESTR("1;2;3"));
        }
    });
}

TEST_F(ValueTexts, KeepCoordinatesReadAheadOfABadOne)
{
    const auto position = Make(E_PROP_DT_POSITION);
    const auto events = EventsOf([&] {
        EXPECT_EQ(After(position, OLESTR("1,2,3")), OLESTR("1;0;0"));
        EXPECT_EQ(After(position, OLESTR("4;x;6")), OLESTR("4;0;0"));
        EXPECT_EQ(After(position, OLESTR("5;6")), OLESTR("5;6;0"));
        EXPECT_EQ(After(position, OLESTR("1;2;3;4")), OLESTR("1;2;3"));
        EXPECT_EQ(After(position, OLESTR("7\t8 9")), OLESTR("7;9;3"));
    });
    EXPECT_EQ(events.size(), 5U);
    EXPECT_EQ(events.front(), ValueEdit(1, OLESTR("0;0;0")));
}

TEST_F(ValueTexts, BringAnsiTextsToAsciiOnceTheyHoldACharacterBeyondIt)
{
    const auto ansi = Make(E_PROP_DT_STRING_ANSI);
    InTransaction([&] {
        EXPECT_EQ(After(ansi, OLESTR("Gr\x00F6\x00DF\x0391"
                                     "e\r\n@")),
                  OLESTR("Grose@"));
        EXPECT_EQ(After(ansi, OLESTR("plain\r\n")), OLESTR("plain\r\n"));
    });
}

TEST_F(ValueTexts, TakeOtherTextsAsTheyAre)
{
    for (const EprpPropDataType type : {E_PROP_DT_MULTI_STRING_UNICODE, E_PROP_DT_DATE, E_PROP_DT_STATEMENT,
                                        E_PROP_DT_STRING_UNICODE, E_PROP_DT_CATEGORY, E_PROP_DT_POINTS_LIST}) {
        const auto property = Make(type);
        InTransaction([&] {
            EXPECT_EQ(After(property, OLESTR("Gr\x00F6\x0391\r\n")), OLESTR("Gr\x00F6\x0391\r\n"));
            EXPECT_EQ(After(property, OLESTR("")), OLESTR(""));
        });
    }
}

TEST_F(ValueTexts, RefuseATextForAPropertyWithoutATypeWithTheErrorAlreadyCleared)
{
    for (const EprpPropDataType type : {E_PROP_DT_NONE, static_cast<EprpPropDataType>(20)}) {
        const auto property = Make(type);
        InTransaction([&] {
            SetErrorText(property, OLESTR("Bad"));
            EXPECT_EQ(property->SetPropertyString(Bstr(OLESTR(""))), S_OK); // as shown
            ExpectInternal(property->SetPropertyString(Bstr(OLESTR("x"))));
            EXPECT_EQ(ErrorTextOf(property), OLESTR(""));
        });
    }
}

TEST_F(ValueTexts, ShowAScanPathAsACountAndReadItAsPoints)
{
    const auto path = Make(E_PROP_DT_SCAN_PATH_LIST);
    const auto events = EventsOf([&] {
        EXPECT_EQ(StringOf(path), OLESTR("0 path points"));
        EXPECT_EQ(After(path, OLESTR("1,2,3\r\n4,5,6")), OLESTR("2 path points"));
    });
    // Its own event carries the points, the one of the text the count.
    EXPECT_THAT(events, ElementsAre(ValueEdit(1, OLESTR("")), ValueEdit(1, OLESTR("0 path points"))));
}

TEST_F(ValueTexts, ClampAtTheValueLimitFromHalfAStepOn)
{
    const auto length = Make(E_PROP_DT_LINEAR);
    InTransaction([&] {
        SetDouble(length, 2e14);
        EXPECT_EQ(DoubleOf(length), 1e14);
        SetDouble(length, -1e15);
        EXPECT_EQ(DoubleOf(length), -1e15);
        SetDouble(length, std::numeric_limits<double>::infinity());
        EXPECT_EQ(DoubleOf(length), 1e14);
        EXPECT_EQ(After(length, OLESTR("3e14")), OLESTR("300000000000000")); // texts are not clamped
    });
}

TEST_F(ValueTexts, TakeDifferencesBelowTheThresholdOfTheModeForEqual)
{
    const auto length = Make(E_PROP_DT_LINEAR);
    InTransaction([&] {
        SetDouble(length, 0.00005);
        EXPECT_EQ(DoubleOf(length), 0);
        SetDouble(length, 0.0001); // as far as the threshold is a change
        EXPECT_EQ(DoubleOf(length), 0.0001);
        SetDouble(length, 1000);
        SetDouble(length, 1000.0001); // a little nearer than it looks
        EXPECT_EQ(DoubleOf(length), 1000);
        EXPECT_EQ(collection->SetUnitMode(E_IMPERIAL), S_OK);
        SetDouble(length, 1000.00002);
        EXPECT_EQ(DoubleOf(length), 1000.00002);
        SetDouble(length, 1000.000025);
        EXPECT_EQ(DoubleOf(length), 1000.00002);
    });
}

TEST_F(ValueTexts, RefuseNumbersInAModeThatIsNone)
{
    const auto length = Make(E_PROP_DT_LINEAR);
    EXPECT_EQ(collection->ConvertUnit(E_UNITMODE_NONE), S_OK);
    EprpPropError error = E_PROP_ERROR_NONE;
    ExpectInternal(length->SetPropertyDouble(0, &error));
    EprpUnitMode mode = E_METRIC;
    EXPECT_EQ(collection->GetUnitMode(&mode), S_OK);
    EXPECT_EQ(mode, E_UNITMODE_NONE);
}

TEST_F(ValueTexts, WriteADateAsANumberAndReadItNotAsOne)
{
    const auto date = Make(E_PROP_DT_DATE);
    InTransaction([&] {
        EprpPropError error = E_PROP_ERROR_NO_ACTUALS;
        EXPECT_EQ(date->SetPropertyDouble(2.5, &error), S_OK);
        EXPECT_EQ(error, E_PROP_ERROR_NO_ACTUALS); // untouched on success
        EXPECT_EQ(StringOf(date), OLESTR("2.5"));
        double value = 7;
        EXPECT_EQ(date->GetPropertyDouble(&error, &value), S_OK);
        EXPECT_EQ(error, E_PROP_ERROR_WRONG_DATA_TYPE);
        EXPECT_EQ(value, 7);
    });
}

TEST_F(ValueTexts, ShowTheClampOfADateAheadOfTheComparison)
{
    const auto date = Make(E_PROP_DT_DATE);
    InTransaction([&] { SetDouble(date, 1e14); });
    const auto events = EventsOf([&] {
        SetString(date, OLESTR("today"));
        SetDouble(date, 2e14); // an equal number once clamped
        EXPECT_EQ(StringOf(date), OLESTR("1e+14"));
        SetDouble(date, 5);
    });
    EXPECT_THAT(events, ElementsAre(ValueEdit(1, OLESTR("1e+14")), ValueEdit(1, OLESTR("1e+14"))));
}

TEST_F(ValueTexts, ReportTheWrongTypeInTheOutParameter)
{
    const auto number = Make(E_PROP_DT_DOUBLE);
    const auto whole = Make(E_PROP_DT_LONG);
    EprpPropError error = E_PROP_ERROR_NONE;
    LONG value = 7;
    EXPECT_EQ(number->SetPropertyLong(5, &error), S_OK);
    EXPECT_EQ(error, E_PROP_ERROR_WRONG_DATA_TYPE);
    error = E_PROP_ERROR_NONE;
    EXPECT_EQ(number->GetPropertyLong(&error, &value), S_OK);
    EXPECT_EQ(error, E_PROP_ERROR_WRONG_DATA_TYPE);
    EXPECT_EQ(value, 7);
    error = E_PROP_ERROR_NONE;
    EXPECT_EQ(whole->SetPropertyDouble(5, &error), S_OK);
    EXPECT_EQ(error, E_PROP_ERROR_WRONG_DATA_TYPE);
    EXPECT_EQ(whole->SetPropertyLong(0, &error), S_OK);
    EXPECT_EQ(error, E_PROP_ERROR_NONE); // this one writes it first
}

TEST_F(ValueTexts, NeedATransactionOnlyForANumberThatDiffers)
{
    const auto number = Make(E_PROP_DT_DOUBLE);
    const auto whole = Make(E_PROP_DT_LONG);
    EprpPropError error = E_PROP_ERROR_NONE;
    EXPECT_EQ(number->SetPropertyDouble(0, &error), S_OK);
    EXPECT_EQ(whole->SetPropertyLong(0, &error), S_OK);
    ExpectNoTransaction(number->SetPropertyDouble(1, &error));
    ExpectNoTransaction(whole->SetPropertyLong(1, &error));
    EXPECT_EQ(DoubleOf(number), 0);
    EXPECT_EQ(LongOf(whole), 0);
}

TEST_F(ValueTexts, CheckPointersThenTransaction)
{
    const auto number = Make(E_PROP_DT_DOUBLE);
    LONG whole = 0;
    double real = 0;
    EprpPropError error = E_PROP_ERROR_NONE;
    ExpectNullPointer(number->GetPropertyLong(nullptr, &whole), OLESTR("CprpProperty::GetPropertyLong"),
                      OLESTR("pePropError"));
    ExpectNullPointer(number->GetPropertyLong(&error, nullptr), OLESTR("CprpProperty::GetPropertyLong"),
                      OLESTR("pnLongData"));
    ExpectNullPointer(number->SetPropertyLong(1, nullptr), OLESTR("CprpProperty::SetPropertyLong"),
                      OLESTR("pePropError"));
    ExpectNullPointer(number->GetPropertyDouble(nullptr, &real), OLESTR("CprpProperty::GetPropertyDouble"),
                      OLESTR("pePropError"));
    ExpectNullPointer(number->GetPropertyDouble(&error, nullptr), OLESTR("CprpProperty::GetPropertyDouble"),
                      OLESTR("pdbDoubleData"));
    ExpectNullPointer(number->SetPropertyDouble(1, nullptr), OLESTR("CprpProperty::SetPropertyDouble"),
                      OLESTR("pePropError"));
    ExpectNullPointer(number->GetPropertyString(nullptr), OLESTR("CprpProperty::GetPropertyString"),
                      OLESTR("pbstrPropString"));
    CComBSTR text = Bstr(OLESTR("x"));
    ExpectBstrNotNull(number->GetPropertyString(&text), OLESTR("CprpProperty::GetPropertyString"),
                      OLESTR("pbstrPropString"));
    BSTR none = nullptr;
    ExpectNoTransaction(number->GetPropertyString(&none));
    ExpectNoTransaction(number->SetPropertyString(nullptr));
}
