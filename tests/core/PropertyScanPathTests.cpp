// The scan path of a property through its interface.
#include "tests/core/ModelFixture.h"

#include <limits>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class PropertyScanPath : public ModelTest {
protected:
    CComPtr<IqorProperty> property = Add(1, E_PROP_DT_SCAN_PATH_LIST);

    /// Sets a point; its transaction must be open. @return whether it tells of a change.
    bool Put(LONG index, SprpPosition point, VARIANT_BOOL suppress = VARIANT_FALSE)
    {
        VARIANT_BOOL changed = 7;
        EXPECT_EQ(property->SetScanPathPointAt(index, {point}, suppress, &changed), S_OK);
        EXPECT_TRUE(changed == VARIANT_TRUE || changed == VARIANT_FALSE);
        return changed == VARIANT_TRUE;
    }
    void Initialise(TextView text) { EXPECT_EQ(property->InitialiseScanPathFromString(Bstr(text)), S_OK); }
    /// The points as text; its transaction must be open.
    Text Points()
    {
        CComBSTR text;
        EXPECT_EQ(property->GetScanPathString(&text), S_OK);
        EXPECT_NE(text.m_str, nullptr);
        return Text(text.View());
    }
    LONG Count()
    {
        LONG count = -7;
        EXPECT_EQ(property->GetScanPathListCount(&count), S_OK);
        return count;
    }
    SprpPosition At(LONG index)
    {
        SprgScanPathPoint point{{7, 7, 7}};
        EXPECT_EQ(property->GetScanPathPointAt(index, &point), S_OK);
        return point.Position;
    }
    void ExpectAt(LONG index, double x, double y, double z)
    {
        const SprpPosition position = At(index);
        EXPECT_EQ(position.X, x) << index;
        EXPECT_EQ(position.Y, y) << index;
        EXPECT_EQ(position.Z, z) << index;
    }
    void ExpectPointsOf(TextView text, TextView points)
    {
        Initialise(text);
        EXPECT_EQ(Points(), points);
    }
};

} // namespace

TEST_F(PropertyScanPath, ReportsNullPointersAndAUsedOutString)
{
    InTransaction([&] {
        ExpectNullPointer(property->GetScanPathListCount(nullptr), OLESTR("CprpProperty::GetScanPathListCount"),
                          OLESTR("pnCount"));
        ExpectNullPointer(property->SetScanPathPointAt(0, {}, VARIANT_FALSE, nullptr),
                          OLESTR("CprpProperty::SetScanPathPointAt"), OLESTR("pvbDataChanged"));
        ExpectNullPointer(property->GetScanPathPointAt(5, nullptr), OLESTR("CprpProperty::GetScanPathPointAt"),
                          OLESTR("PropertyString"));
        ExpectNullPointer(property->GetScanPathString(nullptr), OLESTR("CprpProperty::GetScanPathString"),
                          OLESTR("PropertyString"));
        CComBSTR used = Bstr(OLESTR("used"));
        ExpectBstrNotNull(property->GetScanPathString(&used), OLESTR("CprpProperty::GetScanPathString"),
                          OLESTR("PropertyString"));
        EXPECT_EQ(Count(), 0);
    });
}

TEST_F(PropertyScanPath, NeedsATransactionForAllButReadingAPoint)
{
    LONG count = 0;
    VARIANT_BOOL changed = 7;
    CComBSTR text;
    ExpectNoTransaction(property->GetScanPathListCount(&count));
    ExpectNoTransaction(property->SetScanPathPointAt(0, {}, VARIANT_TRUE, &changed));
    EXPECT_EQ(changed, 7);
    ExpectNoTransaction(property->GetScanPathString(&text));
    ExpectNoTransaction(property->InitialiseScanPathFromString(nullptr));
    ExpectNoTransaction(property->RemoveAllPathPoints());
    ExpectAt(0, 0, 0, 0);
}

TEST_F(PropertyScanPath, TestsTheTransactionAheadOfItsPointerWhenAPointIsSetAndBehindItElsewhere)
{
    ExpectNoTransaction(property->SetScanPathPointAt(0, {}, VARIANT_FALSE, nullptr));
    ExpectNullPointer(property->GetScanPathListCount(nullptr), OLESTR("CprpProperty::GetScanPathListCount"),
                      OLESTR("pnCount"));
    CComBSTR used = Bstr(OLESTR("used"));
    ExpectBstrNotNull(property->GetScanPathString(&used), OLESTR("CprpProperty::GetScanPathString"),
                      OLESTR("PropertyString"));
}

TEST_F(PropertyScanPath, FillsTheGapToAFarPointWithCopiesOfIt)
{
    InTransaction([&] {
        EXPECT_TRUE(Put(3, {1, 2, 3}));
        EXPECT_EQ(Count(), 4);
        for (LONG index = 0; index < 4; ++index)
            ExpectAt(index, 1, 2, 3);
    });
}

TEST_F(PropertyScanPath, AnnouncesAPointWithTheOldCountText)
{
    EXPECT_THAT(EventsOf([&] {
                    Put(0, {1, 2, 3});
                    Put(1, {4, 5, 6});
                    Put(1, {4, 5, 7});
                }),
                ElementsAre(ValueEdit(1, OLESTR("0 path points")), ValueEdit(1, OLESTR("1 path points")),
                            ValueEdit(1, OLESTR("2 path points"))));
}

TEST_F(PropertyScanPath, TellsOfAChangeThatItDoesNotAnnounce)
{
    EXPECT_THAT(EventsOf([&] { EXPECT_TRUE(Put(0, {1, 2, 3}, 1)); }), IsEmpty());
    EXPECT_THAT(EventsOf([&] { EXPECT_FALSE(Put(0, {1, 2, 3}, 1)); }), IsEmpty());
}

TEST_F(PropertyScanPath, KeepsAPointThatIsCloserThanTheThreshold)
{
    InTransaction([&] { Put(0, {1, 2, 3}); });
    EXPECT_THAT(EventsOf([&] { EXPECT_FALSE(Put(0, {1.00005, 2.00005, 2.99995})); }), IsEmpty());
    ExpectAt(0, 1, 2, 3);
}

TEST_F(PropertyScanPath, OverwritesTheWholePointWhenOneCoordinateChanged)
{
    InTransaction([&] {
        Put(0, {0, 0, 0});
        EXPECT_TRUE(Put(0, {0.00005, 0.00005, 0.0001}));
    });
    ExpectAt(0, 0.00005, 0.00005, 0.0001);
}

TEST_F(PropertyScanPath, HasTheTighterThresholdInEveryModeButMetric)
{
    for (const LONG mode : {LONG{E_IMPERIAL}, LONG{3}}) {
        EXPECT_EQ(collection->SetUnitMode(static_cast<EprpUnitMode>(mode)), S_OK);
        InTransaction([&] {
            Put(0, {0, 0, 0});
            EXPECT_FALSE(Put(0, {0.000005, 0, 0}));
            EXPECT_TRUE(Put(0, {0.00005, 0, 0}));
        });
    }
}

TEST_F(PropertyScanPath, IsEmptiedByIndexMinusOneWhichAlwaysCountsAsAChange)
{
    InTransaction([&] { Put(1, {1, 2, 3}); });
    EXPECT_THAT(EventsOf([&] { EXPECT_TRUE(Put(-1, {1, 2, 3})); }), ElementsAre(ValueEdit(1, OLESTR("2 path points"))));
    EXPECT_THAT(EventsOf([&] { EXPECT_TRUE(Put(-1, {1, 2, 3})); }), ElementsAre(ValueEdit(1, OLESTR("0 path points"))));
    EXPECT_THAT(EventsOf([&] { EXPECT_TRUE(Put(-1, {1, 2, 3}, VARIANT_TRUE)); }), IsEmpty());
    InTransaction([&] { EXPECT_EQ(Count(), 0); });
}

TEST_F(PropertyScanPath, FailsForMorePointsThanAListMayHaveAndStaysAsItWas)
{
    InTransaction([&] { Put(1, {1, 2, 3}); });
    EXPECT_THAT(EventsOf([&] {
                    for (const LONG index : {LONG{-2}, LONG{178956970}, (std::numeric_limits<LONG>::max)(),
                                             (std::numeric_limits<LONG>::min)()}) {
                        VARIANT_BOOL changed = 7;
                        EXPECT_EQ(property->SetScanPathPointAt(index, {}, VARIANT_FALSE, &changed), kInternalErrorCode);
                        EXPECT_EQ(changed, VARIANT_FALSE);
                    }
                }),
                IsEmpty());
    InTransaction([&] { EXPECT_EQ(Count(), 2); });
    ExpectAt(1, 1, 2, 3);
}

TEST_F(PropertyScanPath, RefusesToReadOutsideTheListButLetsTheCountItselfThrough)
{
    InTransaction([&] { Put(2, {1, 2, 3}); });
    ExpectAt(3, 0, 0, 0);
    SprgScanPathPoint point{{7, 7, 7}};
    ExpectRefusal(property->GetScanPathPointAt(4, &point),
                  OLESTR("The index (4) passeed to CprpProperty::GetScanPathPointAt is out of bounds (0 to 2)"));
    ExpectRefusal(property->GetScanPathPointAt(-1, &point),
                  OLESTR("The index (-1) passeed to CprpProperty::GetScanPathPointAt is out of bounds (0 to 2)"));
    EXPECT_EQ(point.Position.X, 7);
}

TEST_F(PropertyScanPath, OfNoPointsNamesMinusOneAsItsLimit)
{
    SprgScanPathPoint point{};
    ExpectRefusal(property->GetScanPathPointAt(1, &point),
                  OLESTR("The index (1) passeed to CprpProperty::GetScanPathPointAt is out of bounds (0 to -1)"));
}

TEST_F(PropertyScanPath, IsWrittenInColumnsOfFourDecimalsInMetricMode)
{
    InTransaction([&] {
        EXPECT_EQ(Points(), OLESTR(""));
        Put(0, {1, 2, 3});
        EXPECT_EQ(Points(), OLESTR("    1.0000,    2.0000,    3.0000"));
        Put(1, {0.1, -0.1, 123456.5});
        EXPECT_EQ(Points(), OLESTR("    1.0000,    2.0000,    3.0000\r\n    0.1000,   -0.1000, 123456.5000"));
    });
}

TEST_F(PropertyScanPath, IsWrittenInColumnsOfFiveDecimalsInEveryOtherMode)
{
    InTransaction([&] { Put(0, {1, -2, 0.123456789}); });
    for (const LONG mode : {LONG{E_IMPERIAL}, LONG{3}}) {
        EXPECT_EQ(collection->SetUnitMode(static_cast<EprpUnitMode>(mode)), S_OK);
        InTransaction([&] { EXPECT_EQ(Points(), OLESTR("   1.00000,  -2.00000,   0.12346")); });
    }
}

TEST_F(PropertyScanPath, PassesThroughSinglePrecisionOnItsWayToText)
{
    InTransaction([&] {
        Put(0, {16777217, 0.1, -0.00001});
        EXPECT_EQ(Points(), OLESTR(" 16777216.0000,    0.1000,   -0.0000"));
        ExpectAt(0, 16777217, 0.1, -0.00001);
    });
}

TEST_F(PropertyScanPath, PassesThroughSinglePrecisionOnItsWayFromText)
{
    InTransaction([&] {
        Initialise(OLESTR("0.1,16777217,2"));
        ExpectAt(0, 0.1F, 16777216, 2);
        EXPECT_NE(At(0).X, 0.1);
    });
}

TEST_F(PropertyScanPath, IsReadFromLinesOfThreeNumbers)
{
    InTransaction([&] {
        ExpectPointsOf(OLESTR("1,2,3\r\n4,5,6"),
                       OLESTR("    1.0000,    2.0000,    3.0000\r\n    4.0000,    5.0000,    6.0000"));
        ExpectPointsOf(OLESTR("\n\n  1, 2,\t3  \n\r\r\n"), OLESTR("    1.0000,    2.0000,    3.0000"));
        ExpectPointsOf(OLESTR("1,2,3,4 and more"), OLESTR("    1.0000,    2.0000,    3.0000"));
        ExpectPointsOf(OLESTR(""), OLESTR(""));
    });
}

TEST_F(PropertyScanPath, SkipsALineThatCannotBeReadWithoutGivingItAnIndex)
{
    InTransaction([&] {
        for (const TextView bad :
             {TextView(OLESTR("x")), TextView(OLESTR("1,2")), TextView(OLESTR("1 ,2,3")), TextView(OLESTR("1;2;3")),
              TextView(OLESTR("nan,1,2")), TextView(OLESTR("1,2,")), TextView(OLESTR("  "))}) {
            Initialise(Text(OLESTR("1,2,3\r\n")).append(bad).append(OLESTR("\r\n4,5,6")));
            EXPECT_EQ(Count(), 2);
            ExpectAt(1, 4, 5, 6);
        }
    });
}

TEST_F(PropertyScanPath, ReadsBackWhatItWrote)
{
    InTransaction([&] {
        for (LONG index = 0; index < 100; ++index)
            Put(index, {index * 1.25, -index * 0.5, 1e6 / (index + 1)}, VARIANT_TRUE);
        const Text written = Points();
        Initialise(written);
        EXPECT_EQ(Count(), 100);
        EXPECT_EQ(Points(), written);
    });
}

TEST_F(PropertyScanPath, AnnouncesOneChangeWithTheOldPointsForAnyText)
{
    EXPECT_THAT(EventsOf([&] { Initialise(OLESTR("1,2,3\r\n4,5,6")); }), ElementsAre(ValueEdit(1, OLESTR(""))));
    const Text points = OLESTR("    1.0000,    2.0000,    3.0000\r\n    4.0000,    5.0000,    6.0000");
    EXPECT_THAT(EventsOf([&] { Initialise(points); }), ElementsAre(ValueEdit(1, points)));
    EXPECT_THAT(EventsOf([&] { EXPECT_EQ(property->InitialiseScanPathFromString(nullptr), S_OK); }),
                ElementsAre(ValueEdit(1, points)));
}

TEST_F(PropertyScanPath, AnnouncesTheRemovalOfNoPoints)
{
    EXPECT_THAT(EventsOf([&] { EXPECT_EQ(property->RemoveAllPathPoints(), S_OK); }),
                ElementsAre(ValueEdit(1, OLESTR(""))));
}

TEST_F(PropertyScanPath, LosesAllPointsByRemoval)
{
    InTransaction([&] {
        Put(5, {1, 2, 3});
        EXPECT_EQ(property->RemoveAllPathPoints(), S_OK);
        EXPECT_EQ(Count(), 0);
    });
}

TEST_F(PropertyScanPath, SetByItsValueTextAnnouncesThePointsAndThenTheCount)
{
    InTransaction([&] { Put(0, {1, 2, 3}); });
    EXPECT_THAT(
        EventsOf([&] { SetString(property, OLESTR("4,5,6\r\n7,8,9")); }),
        ElementsAre(ValueEdit(1, OLESTR("    1.0000,    2.0000,    3.0000")), ValueEdit(1, OLESTR("1 path points"))));
    InTransaction([&] {
        EXPECT_EQ(StringOf(property), OLESTR("2 path points"));
        EXPECT_EQ(Count(), 2);
    });
}

TEST_F(PropertyScanPath, StaysWhenItsValueTextIsSetToTheCountText)
{
    InTransaction([&] { Put(0, {1, 2, 3}); });
    EXPECT_THAT(EventsOf([&] { SetString(property, OLESTR("1 path points")); }), IsEmpty());
    InTransaction([&] { EXPECT_EQ(Count(), 1); });
}

TEST_F(PropertyScanPath, IsEmptiedByAnEmptyValueText)
{
    InTransaction([&] {
        Put(0, {1, 2, 3});
        SetString(property, {});
        EXPECT_EQ(Count(), 0);
    });
}

TEST_F(PropertyScanPath, BelongsToAPropertyOfAnyTypeWhoseTextItsEventsCarry)
{
    property = Add(2, E_PROP_DT_LONG);
    InTransaction([&] { SetLong(property, 42); });
    EXPECT_THAT(EventsOf([&] { Put(0, {1, 2, 3}); }), ElementsAre(ValueEdit(2, OLESTR("42"))));
    InTransaction([&] { EXPECT_EQ(Count(), 1); });
}

TEST_F(PropertyScanPath, IsNotConvertedByReadingAndWritingButByTheCollection)
{
    InTransaction([&] { Put(0, {1, 2, 3}); });
    EXPECT_EQ(collection->SetUnitMode(E_IMPERIAL), S_OK);
    ExpectAt(0, 1, 2, 3);
    EXPECT_EQ(collection->ConvertUnit(E_METRIC), S_OK);
    ExpectAt(0, 25.4, 50.8, 3 * 25.4);
}
