// The tolerance of a property through its interface.
#include "tests/core/ModelFixture.h"
#include "tests/core/ToleranceRecord.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class PropertyTolerance : public ModelTest {
protected:
    CComPtr<IqorProperty> property = Add(1, E_PROP_DT_TOLERANCE);

    /// Sets a record and gives the events of it.
    std::vector<EventSeen> EventsOfSetting(ToleranceRecord& record)
    {
        return EventsOf([&] { EXPECT_EQ(property->SetPropertyTolerance(&record), S_OK); });
    }
    Text Shown()
    {
        Text text;
        InTransaction([&] { text = StringOf(property); });
        return text;
    }
    double NominalX()
    {
        ToleranceRecord record;
        EXPECT_EQ(property->GetPropertyTolerance(&record), S_OK);
        return record.LinearTolInfo_X.dbNominalValue;
    }
};

void FillLinear(ToleranceRecord& record, double nominal)
{
    record.eTolType = E_TOL_TYPE_LINEAR;
    record.LinearTolInfo_X.bActive = VARIANT_TRUE;
    record.LinearTolInfo_X.bAbsoluteBounds = VARIANT_TRUE;
    record.LinearTolInfo_X.nEditFlags = 1;
    record.LinearTolInfo_X.dbNominalValue = nominal;
    record.LinearTolInfo_X.dbUpperBound = 0.1;
    record.LinearTolInfo_X.dbLowerBound = -0.1;
}

} // namespace

TEST_F(PropertyTolerance, ReportsANullPointer)
{
    ExpectNullPointer(property->GetPropertyTolerance(nullptr), OLESTR("CprpProperty::GetPropertyTolerance"),
                      OLESTR("pTolerance"));
    ExpectNullPointer(property->SetPropertyTolerance(nullptr), OLESTR("CprpProperty::SetPropertyTolerance"),
                      OLESTR("pTolerance"));
}

TEST_F(PropertyTolerance, IsTheZeroRecordOnAPropertyOfAnotherType)
{
    const auto linear = Add(2, E_PROP_DT_LINEAR);
    ToleranceRecord record;
    record.eTolType = E_TOL_TYPE_ANGULAR;
    record.bMarkAsNone = VARIANT_TRUE;
    EXPECT_EQ(linear->GetPropertyTolerance(&record), S_OK);
    EXPECT_EQ(record.eTolType, E_TOL_TYPE_NONE);
    EXPECT_EQ(record.bMarkAsNone, VARIANT_FALSE);
    ASSERT_NE(record.GDTInfo_Z.bstrDatumPlane3, nullptr);
    EXPECT_EQ(SysStringLen(record.GDTInfo_Z.bstrDatumPlane3), 0U);
}

TEST_F(PropertyTolerance, AnnouncesAChangeWithTheOldText)
{
    ToleranceRecord record;
    FillLinear(record, 10);
    EXPECT_THAT(EventsOfSetting(record), ElementsAre(ValueEdit(1, OLESTR("0"))));
    EXPECT_EQ(Shown(), OLESTR("1#3\u00AC1\u00AC10\u00AC0.1\u00AC-0.1"));

    record.LinearTolInfo_X.dbNominalValue = 11;
    EXPECT_THAT(EventsOfSetting(record), ElementsAre(ValueEdit(1, OLESTR("1#3\u00AC1\u00AC10\u00AC0.1\u00AC-0.1"))));
}

TEST_F(PropertyTolerance, NeedsATransactionOnlyForAChange)
{
    ToleranceRecord record;
    EXPECT_EQ(property->SetPropertyTolerance(&record), S_OK);
    EXPECT_EQ(property->GetPropertyTolerance(&record), S_OK);
    FillLinear(record, 10);
    ExpectNoTransaction(property->SetPropertyTolerance(&record));
    EXPECT_EQ(Shown(), OLESTR("0"));
}

TEST_F(PropertyTolerance, RefusesATypeThatIsNoneBeforeAnythingElse)
{
    for (const LONG type : {-1, 6, 256}) {
        ToleranceRecord record(static_cast<EprpToleranceType>(type));
        EXPECT_EQ(property->SetPropertyTolerance(&record), kInternalErrorCode);
        EXPECT_EQ(LastErrorText().substr(0, 37), OLESTR("Internal error in prpTolerance, line "));
    }
    EXPECT_EQ(Shown(), OLESTR("0"));
}

TEST_F(PropertyTolerance, IgnoresAChangeInAPartThatTheTypeDoesNotSelect)
{
    ToleranceRecord record;
    FillLinear(record, 10);
    EventsOfSetting(record);
    record.LinearTolInfo_Y.dbNominalValue = 5;
    record.FormTolInfo.dbError = 5;
    EXPECT_THAT(EventsOfSetting(record), IsEmpty());
    ToleranceRecord back;
    EXPECT_EQ(property->GetPropertyTolerance(&back), S_OK);
    EXPECT_EQ(back.LinearTolInfo_Y.dbNominalValue, 0);
    EXPECT_EQ(back.FormTolInfo.dbError, 0);
}

TEST_F(PropertyTolerance, TakesUnselectedPartsAlongWithAChangeThatCounts)
{
    ToleranceRecord record;
    FillLinear(record, 10);
    record.LinearTolInfo_Y.dbNominalValue = 5;
    record.FormTolInfo.dbError = 6;
    EventsOfSetting(record);
    ToleranceRecord back;
    EXPECT_EQ(property->GetPropertyTolerance(&back), S_OK);
    EXPECT_EQ(back.LinearTolInfo_Y.dbNominalValue, 5);
    EXPECT_EQ(back.FormTolInfo.dbError, 6);
}

TEST_F(PropertyTolerance, IgnoresResultsWhileNothingIsCalculated)
{
    ToleranceRecord record;
    FillLinear(record, 10);
    EventsOfSetting(record);
    record.LinearTolInfo_X.dbError = 5;
    EXPECT_THAT(EventsOfSetting(record), IsEmpty());
    record.LinearTolInfo_X.eTolStatus = E_TOL_STATUS_OUT_OF_TOL;
    EXPECT_EQ(EventsOfSetting(record).size(), 1U);
}

TEST_F(PropertyTolerance, ComparesByTheSameThresholdInBothUnitModes)
{
    for (const EprpUnitMode mode : {E_METRIC, E_IMPERIAL}) {
        EXPECT_EQ(collection->SetUnitMode(mode), S_OK);
        ToleranceRecord record;
        FillLinear(record, 0);
        EventsOfSetting(record);
        record.LinearTolInfo_X.dbNominalValue = 0.00005;
        EXPECT_THAT(EventsOfSetting(record), IsEmpty()) << mode;
        EXPECT_EQ(NominalX(), 0);
        record.LinearTolInfo_X.dbNominalValue = 0.0001;
        EXPECT_EQ(EventsOfSetting(record).size(), 1U) << mode;
        EXPECT_EQ(NominalX(), 0.0001);
    }
}

TEST_F(PropertyTolerance, IgnoresTheCaseOfDatumNames)
{
    ToleranceRecord record(E_TOL_TYPE_GDT_LINEAR);
    SetName(record.GDTInfo_X.bstrDatumPlane1, OLESTR("Base"));
    EventsOfSetting(record);
    SetName(record.GDTInfo_X.bstrDatumPlane1, OLESTR("BASE"));
    EXPECT_THAT(EventsOfSetting(record), IsEmpty());
    EXPECT_EQ(Shown(), OLESTR("4#20\u00AC0\u00ACBase"));
}

TEST_F(PropertyTolerance, OnAPropertyOfAnotherTypeCarriesThatTypesText)
{
    property = Add(2, E_PROP_DT_LINEAR);
    InTransaction([&] { SetDouble(property, 1.5); });
    ToleranceRecord record;
    FillLinear(record, 10);
    EXPECT_THAT(EventsOfSetting(record), ElementsAre(ValueEdit(2, OLESTR("1.5"))));
    EXPECT_EQ(NominalX(), 10);
}

TEST_F(PropertyTolerance, FreesTheNamesInTheCallersRecord)
{
    ToleranceRecord record(E_TOL_TYPE_GDT_LINEAR);
    SetName(record.GDTInfo_X.bstrDatumPlane1, OLESTR("A"));
    EventsOfSetting(record);
    // A leak of the names that stood here would show under the address sanitizer.
    EXPECT_EQ(property->GetPropertyTolerance(&record), S_OK);
    EXPECT_EQ(property->GetPropertyTolerance(&record), S_OK);
    EXPECT_EQ(TextView(record.GDTInfo_X.bstrDatumPlane1), OLESTR("A"));
}

TEST_F(PropertyTolerance, SetByTextLosesItsResultsAndItsForm)
{
    ToleranceRecord record;
    FillLinear(record, 12.34567);
    record.LinearTolInfo_X.eTolStatus = E_TOL_STATUS_IN_TOL;
    record.LinearTolInfo_X.dbCalculatedValue = 3;
    record.FormTolInfo.dbError = 4;
    EventsOfSetting(record);
    InTransaction([&] { SetString(property, StringOf(property) + OLESTR(" ")); });
    ToleranceRecord back;
    EXPECT_EQ(property->GetPropertyTolerance(&back), S_OK);
    EXPECT_EQ(back.LinearTolInfo_X.dbNominalValue, 12.3457);
    EXPECT_EQ(back.LinearTolInfo_X.eTolStatus, E_TOL_STATUS_NOT_CALCULATED);
    EXPECT_EQ(back.LinearTolInfo_X.dbCalculatedValue, 0);
    EXPECT_EQ(back.FormTolInfo.dbError, 0);
}

TEST_F(PropertyTolerance, SetByATextOfABadTypeStaysButLosesItsErrorText)
{
    ToleranceRecord record;
    FillLinear(record, 10);
    EventsOfSetting(record);
    InTransaction([&] {
        SetErrorText(property, OLESTR("Out of range"));
        ExpectInternal(property->SetPropertyString(Bstr(OLESTR("6#1"))));
        EXPECT_EQ(ErrorTextOf(property), OLESTR(""));
        EXPECT_EQ(StringOf(property), OLESTR("1#3\u00AC1\u00AC10\u00AC0.1\u00AC-0.1"));
    });
}

TEST_F(PropertyTolerance, SetByAnEmptyTextIsNoTolerance)
{
    ToleranceRecord record;
    FillLinear(record, 10);
    record.bMarkAsDefault = VARIANT_TRUE;
    EventsOfSetting(record);
    EXPECT_THAT(EventsOf([&] { SetString(property, {}); }),
                ElementsAre(ValueEdit(1, OLESTR("101#3\u00AC1\u00AC10\u00AC0.1\u00AC-0.1"))));
    EXPECT_EQ(Shown(), OLESTR("0"));
}
