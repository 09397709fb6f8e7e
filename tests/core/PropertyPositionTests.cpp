// The position of a property through its interface.
#include "tests/core/ModelFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class PropertyPosition : public ModelTest {
protected:
    CComPtr<IqorProperty> property = Add(1, E_PROP_DT_POSITION);

    std::vector<EventSeen> EventsOfSetting(SprpPosition position, VARIANT_BOOL force = VARIANT_FALSE)
    {
        return EventsOf([&] { EXPECT_EQ(property->SetPropertyPosition(position, force), S_OK); });
    }
    void ExpectAt(double x, double y, double z)
    {
        const SprpPosition position = PositionOf(property);
        EXPECT_EQ(position.X, x);
        EXPECT_EQ(position.Y, y);
        EXPECT_EQ(position.Z, z);
    }
};

} // namespace

TEST_F(PropertyPosition, WithANullPointerIsAnInternalError)
{
    ExpectInternal(property->GetPropertyPosition(nullptr));
}

TEST_F(PropertyPosition, AnnouncesAVisibleChangeWithTheOldText)
{
    EXPECT_THAT(EventsOfSetting({1, 2, 3}), ElementsAre(ValueEdit(1, OLESTR("0;0;0"))));
    ExpectAt(1, 2, 3);
    EXPECT_THAT(EventsOfSetting({1, 2, 3.5}), ElementsAre(ValueEdit(1, OLESTR("1;2;3"))));
}

TEST_F(PropertyPosition, CloserThanTheThresholdStaysAsItWas)
{
    EXPECT_THAT(EventsOfSetting({0.00005, -0.00005, 0.00009}), IsEmpty());
    ExpectAt(0, 0, 0);
}

TEST_F(PropertyPosition, TakesAllThreeCoordinatesWhenOneOfThemChanged)
{
    EventsOfSetting({0.00005, 0.0001, 0});
    ExpectAt(0.00005, 0.0001, 0);
}

TEST_F(PropertyPosition, HasATighterThresholdInImperialMode)
{
    EXPECT_EQ(collection->SetUnitMode(E_IMPERIAL), S_OK);
    EventsOfSetting({0.000005, 0, 0});
    ExpectAt(0, 0, 0);
    EventsOfSetting({0.00002, 0, 0});
    ExpectAt(0.00002, 0, 0);
}

TEST_F(PropertyPosition, TooSmallAChangeToShowIsStoredSilently)
{
    EXPECT_EQ(collection->put_Precision(2), S_OK);
    EXPECT_THAT(EventsOfSetting({0.001, 0, 0}), IsEmpty());
    ExpectAt(0.001, 0, 0);
}

TEST_F(PropertyPosition, ForcedIsStoredWithoutATestAndAnnouncedOnlyWhenVisible)
{
    EXPECT_THAT(EventsOfSetting({0.00001, 0, 0}, VARIANT_TRUE), IsEmpty());
    ExpectAt(0.00001, 0, 0);
    EXPECT_THAT(EventsOfSetting({0.00001, 0, 0}, VARIANT_TRUE), IsEmpty());
    EXPECT_THAT(EventsOfSetting({0.00006, 0, 0}, 1), ElementsAre(ValueEdit(1, OLESTR("0;0;0"))));
    ExpectAt(0.00006, 0, 0);
}

TEST_F(PropertyPosition, IsClampedFromAboveAlone)
{
    EventsOfSetting({2e14, -1e15, 1e14});
    ExpectAt(1e14, -1e15, 1e14);
}

TEST_F(PropertyPosition, NeedsATransactionOnlyForWhatIsStored)
{
    EXPECT_EQ(property->SetPropertyPosition({0, 0, 0}, VARIANT_FALSE), S_OK);
    ExpectNoTransaction(property->SetPropertyPosition({0, 0, 0}, VARIANT_TRUE));
    ExpectNoTransaction(property->SetPropertyPosition({1, 0, 0}, VARIANT_FALSE));
    ExpectAt(0, 0, 0);
}

TEST_F(PropertyPosition, IsAnInternalErrorInAnUnknownUnitModeEvenWhenEqual)
{
    EXPECT_EQ(collection->SetUnitMode(static_cast<EprpUnitMode>(3)), S_OK);
    ExpectInternal(property->SetPropertyPosition({0, 0, 0}, VARIANT_FALSE));
    EXPECT_EQ(collection->ConvertUnit(E_UNITMODE_NONE), S_OK);
    ExpectInternal(property->SetPropertyPosition({0, 0, 0}, VARIANT_FALSE));
}

TEST_F(PropertyPosition, OfANumberIsStoredAndNeverAnnounced)
{
    property = Add(2, E_PROP_DT_LINEAR);
    EXPECT_THAT(EventsOfSetting({1, 2, 3}), IsEmpty());
    ExpectAt(1, 2, 3);
}

TEST_F(PropertyPosition, DoesNotClearTheErrorText)
{
    InTransaction([&] { SetErrorText(property, OLESTR("Out of range")); });
    EventsOfSetting({1, 2, 3});
    InTransaction([&] { EXPECT_EQ(ErrorTextOf(property), OLESTR("Out of range")); });
}
