// The choices of an enumerated property, its bounds and the characters that its editors refuse.
#include "tests/core/ModelFixture.h"
#include "tests/support/TestStrings.h"

#include <limits>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr HRESULT kInvalidArgument = static_cast<HRESULT>(0x80070057);

class PropertyEnums : public ModelTest {
protected:
    CComPtr<IqorProperty> property = Add({.id = 1, .type = E_PROP_DT_ENUM, .module = ModuleWithStrings()});

    HRESULT AddItem(LONG index, LONG value, LONG resId = 0, VARIANT_BOOL show = VARIANT_TRUE)
    {
        SprpEnumItem item{value, resId, show};
        return property->AddEnumItem(index, &item);
    }
    /// Adds an item with a literal text.
    void AddNamed(LONG index, LONG value, TextView text, VARIANT_BOOL show = VARIANT_TRUE)
    {
        EXPECT_EQ(AddItem(index, value, 0, show), S_OK);
        EXPECT_EQ(property->AddEnumItemString(index, Bstr(text)), S_OK);
    }

    /// What GetEnumByIndex gives; its transaction must be open.
    struct Found {
        LONG index;
        LONG value;
        std::optional<Text> text;
        bool operator==(const Found&) const = default;
        friend std::ostream& operator<<(std::ostream& out, const Found& found)
        {
            out << "{index " << found.index << ", value " << found.value << ", ";
            if (found.text)
                out << "'" << std::string(found.text->begin(), found.text->end()) << "'}";
            else
                out << "null}";
            return out;
        }
    };
    Found ByIndex(LONG index, VARIANT_BOOL hiddenToo = VARIANT_FALSE)
    {
        Found found{index, 77, {}};
        CComBSTR text;
        EXPECT_EQ(property->GetEnumByIndex(&found.index, &found.value, &text, hiddenToo), S_OK);
        if (text.m_str)
            found.text = Text(text.View());
        return found;
    }
    /// Values in the order of a walk over the visible items.
    std::vector<LONG> Walk()
    {
        std::vector<LONG> values;
        for (Found found = ByIndex(0); found.value != -1; found = ByIndex(found.index + 1))
            values.push_back(found.value);
        return values;
    }
};

} // namespace

TEST_F(PropertyEnums, CheckTheirArgumentsForAWalkInTheirOwnOrder)
{
    LONG index = -1;
    LONG value = 77;
    CComBSTR used = Bstr(OLESTR("used"));
    CComBSTR text;
    const TextView method = OLESTR("CprpProperty::GetEnumByIndex");
    ExpectNullPointer(property->GetEnumByIndex(nullptr, nullptr, &used, VARIANT_FALSE), method, OLESTR("pnIndex"));
    ExpectNegative(property->GetEnumByIndex(&index, nullptr, &used, VARIANT_FALSE));
    index = 0;
    ExpectBstrNotNull(property->GetEnumByIndex(&index, nullptr, &used, VARIANT_FALSE), method,
                      OLESTR("pbstrEnumString"));
    ExpectNullPointer(property->GetEnumByIndex(&index, nullptr, nullptr, VARIANT_FALSE), method,
                      OLESTR("pbstrEnumString"));
    ExpectNullPointer(property->GetEnumByIndex(&index, nullptr, &text, VARIANT_FALSE), method, OLESTR("pnValue"));
    ExpectNoTransaction(property->GetEnumByIndex(&index, &value, &text, VARIANT_FALSE));
    EXPECT_EQ(value, 77);
}

TEST_F(PropertyEnums, CheckTheirArgumentsForAnItemInOrder)
{
    SprpEnumItem item{};
    ExpectNullPointer(property->AddEnumItem(-1, nullptr), OLESTR("CprpProperty::AddEnumItem"), OLESTR("pEnumItem"));
    ExpectNoTransaction(property->AddEnumItem(-1, &item));
    ExpectNoTransaction(property->AddEnumItemString(-1, nullptr));
    ExpectNoTransaction(property->ShowEnumItem(-1, VARIANT_TRUE));
    InTransaction([&] {
        ExpectNegative(property->AddEnumItem(-1, &item));
        ExpectNegative(property->AddEnumItemString(-1, nullptr));
        ExpectNegative(property->ShowEnumItem(-1, VARIANT_TRUE));
    });
}

TEST_F(PropertyEnums, CheckTheirArgumentsForASearchInOrder)
{
    SprpEnumItem item{};
    VARIANT_BOOL success = 7;
    CComBSTR used = Bstr(OLESTR("used"));
    CComBSTR text;
    const TextView method = OLESTR("CprpProperty::GetEnumInfo");
    ExpectNullPointer(property->GetEnumInfo(nullptr, nullptr, nullptr), method, OLESTR("pEnumItem"));
    ExpectNullPointer(property->GetEnumInfo(&item, nullptr, nullptr), method, OLESTR("pvbSuccess"));
    ExpectNullPointer(property->GetEnumInfo(&item, nullptr, &success), method, OLESTR("pbstrValueAsString"));
    ExpectBstrNotNull(property->GetEnumInfo(&item, &used, &success), method, OLESTR("pbstrValueAsString"));
    ExpectNoTransaction(property->GetEnumInfo(&item, &text, &success));
    EXPECT_EQ(success, 7);
}

TEST_F(PropertyEnums, FailAsAnInvalidArgumentPastTheEnd)
{
    EXPECT_THAT(EventsOf([&] {
                    EXPECT_EQ(AddItem(1, 5), S_OK);
                    sink->Clear();
                    EXPECT_EQ(property->ShowEnumItem(2, VARIANT_TRUE), kInvalidArgument);
                    EXPECT_FALSE(LastErrorText().empty());
                    EXPECT_EQ(property->AddEnumItemString(2, Bstr(OLESTR("two"))), kInvalidArgument);
                    EXPECT_FALSE(LastErrorText().empty());
                }),
                ElementsAre(StateEdit(1))); // the item's own
}

TEST_F(PropertyEnums, GrowToAFarIndexWithHiddenItemsOfValueZero)
{
    InTransaction([&] {
        AddNamed(5, 42, OLESTR("Far"));
        EXPECT_EQ(property->AddEnumItemString(0, Bstr(OLESTR("Gap"))), S_OK);
        for (LONG index = 0; index < 5; ++index) {
            EXPECT_EQ(ByIndex(index, VARIANT_TRUE), (Found{index, 0, OLESTR("Gap")}));
            EXPECT_EQ(ByIndex(index), (Found{5, 42, OLESTR("Far")}));
        }
        EXPECT_EQ(ByIndex(6), (Found{6, -1, {}}));
    });
}

TEST_F(PropertyEnums, AnnounceAnItemAndATextButNoVisibility)
{
    EXPECT_THAT(EventsOf([&] { EXPECT_EQ(AddItem(0, 5), S_OK); }), ElementsAre(StateEdit(1)));
    EXPECT_THAT(EventsOf([&] { EXPECT_EQ(property->AddEnumItemString(0, Bstr(OLESTR("five"))), S_OK); }),
                ElementsAre(StateEdit(1)));
    EXPECT_THAT(EventsOf([&] { EXPECT_EQ(property->AddEnumItemString(0, Bstr(OLESTR("five"))), S_OK); }),
                ElementsAre(StateEdit(1)));
    EXPECT_THAT(EventsOf([&] { EXPECT_EQ(property->ShowEnumItem(0, VARIANT_FALSE), S_OK); }), IsEmpty());
}

TEST_F(PropertyEnums, AnnounceNothingForAnItemThatIsEqualInItsThreeFields)
{
    InTransaction([&] { EXPECT_EQ(AddItem(0, 5, kItemString), S_OK); });
    EXPECT_THAT(EventsOf([&] { EXPECT_EQ(AddItem(0, 5, kItemString), S_OK); }), IsEmpty());
    EXPECT_THAT(EventsOf([&] { EXPECT_EQ(AddItem(0, 5, kItemString, 1), S_OK); }), IsEmpty());
    EXPECT_THAT(EventsOf([&] { EXPECT_EQ(AddItem(0, 5, kItemString, VARIANT_FALSE), S_OK); }),
                ElementsAre(StateEdit(1)));
    EXPECT_THAT(EventsOf([&] { EXPECT_EQ(AddItem(0, 6, kItemString, VARIANT_FALSE), S_OK); }),
                ElementsAre(StateEdit(1)));
    EXPECT_THAT(EventsOf([&] { EXPECT_EQ(AddItem(0, 6, 0, VARIANT_FALSE), S_OK); }), ElementsAre(StateEdit(1)));
}

TEST_F(PropertyEnums, AnnounceAnItemOfZerosInANewPlace)
{
    EXPECT_THAT(EventsOf([&] { EXPECT_EQ(AddItem(0, 0, 0, VARIANT_FALSE), S_OK); }), ElementsAre(StateEdit(1)));
}

TEST_F(PropertyEnums, FailForMoreItemsThanThereIsRoomFor)
{
    EXPECT_THAT(EventsOf([&] {
                    AddNamed(0, 5, OLESTR("five"));
                    EXPECT_EQ(AddItem(178956970, 6), kInternalErrorCode);
                    EXPECT_EQ(AddItem((std::numeric_limits<LONG>::max)(), 6), kInternalErrorCode);
                    EXPECT_THAT(Walk(), ElementsAre(5));
                }),
                ElementsAre(StateEdit(1), StateEdit(1)));
}

TEST_F(PropertyEnums, AreWalkedByTheIndexGivenBackPlusOne)
{
    InTransaction([&] {
        AddNamed(0, 10, OLESTR("ten"));
        AddNamed(1, 20, OLESTR("twenty"), VARIANT_FALSE);
        AddNamed(2, 30, OLESTR("thirty"));
        EXPECT_THAT(Walk(), ElementsAre(10, 30));
        EXPECT_EQ(ByIndex(0), (Found{0, 10, OLESTR("ten")}));
        EXPECT_EQ(ByIndex(1), (Found{2, 30, OLESTR("thirty")}));
        EXPECT_EQ(ByIndex(1, VARIANT_TRUE), (Found{1, 20, OLESTR("twenty")}));
        EXPECT_EQ(ByIndex(1, 1), (Found{1, 20, OLESTR("twenty")}));
        EXPECT_EQ(ByIndex(3), (Found{3, -1, {}}));
        EXPECT_EQ(ByIndex((std::numeric_limits<LONG>::max)()), (Found{(std::numeric_limits<LONG>::max)(), -1, {}}));
    });
}

TEST_F(PropertyEnums, AreSkippedOnceHiddenAndFoundOnceShown)
{
    InTransaction([&] {
        AddNamed(0, 10, OLESTR("ten"));
        AddNamed(1, 20, OLESTR("twenty"));
        AddNamed(2, 30, OLESTR("thirty"));
        EXPECT_EQ(property->ShowEnumItem(1, VARIANT_FALSE), S_OK);
        EXPECT_EQ(ByIndex(1), (Found{2, 30, OLESTR("thirty")}));
        EXPECT_EQ(property->ShowEnumItem(1, 1), S_OK);
        EXPECT_EQ(ByIndex(1), (Found{1, 20, OLESTR("twenty")}));
    });
}

TEST_F(PropertyEnums, LeaveTheIndexWhereOnlyHiddenItemsFollow)
{
    InTransaction([&] {
        AddNamed(0, 10, OLESTR("ten"));
        AddNamed(1, 20, OLESTR("twenty"), VARIANT_FALSE);
        AddNamed(2, 30, OLESTR("thirty"), VARIANT_FALSE);
        EXPECT_EQ(ByIndex(1), (Found{1, -1, {}}));
        EXPECT_EQ(ByIndex(2), (Found{2, -1, {}}));
    });
}

TEST_F(PropertyEnums, EndAWalkAtAnItemWithoutAText)
{
    InTransaction([&] {
        AddNamed(0, 10, OLESTR("ten"));
        EXPECT_EQ(AddItem(1, 20, 0, VARIANT_FALSE), S_OK);
        EXPECT_EQ(AddItem(2, 30, kMissingString), S_OK);
        AddNamed(3, 40, OLESTR(""));
        AddNamed(4, 50, OLESTR("fifty"));
        EXPECT_THAT(Walk(), ElementsAre(10));
        EXPECT_EQ(ByIndex(1), (Found{2, -1, {}})); // the index moved all the same
        EXPECT_EQ(ByIndex(3), (Found{3, -1, {}}));
    });
}

TEST_F(PropertyEnums, MayHaveTheValueMinusOne)
{
    InTransaction([&] {
        AddNamed(0, -1, OLESTR("none"));
        EXPECT_EQ(ByIndex(0), (Found{0, -1, OLESTR("none")}));
    });
}

TEST_F(PropertyEnums, PreferAResourceInItsFullFormToALiteralText)
{
    InTransaction([&] {
        EXPECT_EQ(AddItem(0, 10, kItemString), S_OK);
        EXPECT_EQ(AddItem(1, 20, kMacroReportString), S_OK);
        EXPECT_EQ(property->AddEnumItemString(0, Bstr(OLESTR("literal"))), S_OK);
        EXPECT_EQ(ByIndex(0).text, OLESTR("Metric (mm)"));
        EXPECT_EQ(ByIndex(1).text, OLESTR("Bore X-dim : Size"));
    });
}

TEST_F(PropertyEnums, TakeALiteralTextWhereTheResourceIsMissingOrBroken)
{
    InTransaction([&] {
        AddNamed(0, 10, OLESTR("literal"));
        EXPECT_EQ(AddItem(0, 10, kMissingString), S_OK);
        EXPECT_EQ(ByIndex(0).text, OLESTR("literal"));
        EXPECT_EQ(AddItem(0, 10, kBrokenNoteString), S_OK);
        EXPECT_EQ(ByIndex(0).text, OLESTR("literal"));
        EXPECT_EQ(AddItem(0, 10, -1), S_OK);
        EXPECT_EQ(ByIndex(0).text, OLESTR("literal"));
    });
}

TEST_F(PropertyEnums, HaveNoTextWhereTheResourceIsAMarkerAlone)
{
    InTransaction([&] {
        AddNamed(0, 10, OLESTR("literal"));
        EXPECT_EQ(AddItem(0, 10, kMarkerOnlyString), S_OK);
        EXPECT_EQ(ByIndex(0), (Found{0, -1, {}}));
    });
}

TEST_F(PropertyEnums, LeaveTheNameOfThePropertyAlone)
{
    InTransaction([&] {
        EXPECT_EQ(property->SetPropertyName(Bstr(OLESTR("Unit (of length)"))), S_OK);
        EXPECT_EQ(AddItem(0, 10, kMacroReportString), S_OK);
        EXPECT_EQ(AddItem(1, 20, kBrokenNoteString), S_OK);
        ByIndex(0);
        ByIndex(1);
        EXPECT_EQ(NameOf(property, E_PRP_PROP_NAME_STYLE_FULL), OLESTR("Unit (of length)"));
        EXPECT_EQ(NameOf(property, E_PRP_PROP_NAME_STYLE_MACRO_POST), OLESTR("Unit"));
        EXPECT_FALSE(FlagOf(property, &IqorProperty::IsMacroReportProperty));
    });
}

TEST_F(PropertyEnums, OfTheSameValueShareOneLiteralTextThatOutlivesThem)
{
    InTransaction([&] {
        AddNamed(0, 10, OLESTR("first"));
        AddNamed(1, 10, OLESTR("second"));
        EXPECT_EQ(ByIndex(0).text, OLESTR("second"));
        EXPECT_EQ(AddItem(0, 11), S_OK);
        EXPECT_EQ(AddItem(1, 12), S_OK);
        EXPECT_EQ(ByIndex(0).text, std::nullopt);
        EXPECT_EQ(AddItem(1, 10), S_OK);
        EXPECT_EQ(ByIndex(1).text, OLESTR("second"));
    });
}

TEST_F(PropertyEnums, AreFoundByTheirValueTheFirstOfItWins)
{
    InTransaction([&] {
        EXPECT_EQ(AddItem(0, 5, kItemString, VARIANT_FALSE), S_OK);
        EXPECT_EQ(AddItem(1, 5, kPlainString), S_OK);
        SprpEnumItem item{5, 77, 77};
        CComBSTR text;
        VARIANT_BOOL success = 7;
        EXPECT_EQ(property->GetEnumInfo(&item, &text, &success), S_OK);
        EXPECT_EQ(success, VARIANT_TRUE);
        EXPECT_EQ(item.StringResID, kItemString);
        EXPECT_EQ(item.bShow, VARIANT_FALSE);
        EXPECT_EQ(text.View(), OLESTR("Metric (mm)"));
    });
}

TEST_F(PropertyEnums, HandOutTheirVisibilityAsMinusOne)
{
    InTransaction([&] {
        EXPECT_EQ(AddItem(0, 5, 0, 1), S_OK);
        SprpEnumItem item{5, 77, 77};
        CComBSTR text;
        VARIANT_BOOL success = 7;
        EXPECT_EQ(property->GetEnumInfo(&item, &text, &success), S_OK);
        EXPECT_EQ(item.bShow, VARIANT_TRUE);
    });
}

TEST_F(PropertyEnums, AreFoundAlsoWithoutAText)
{
    InTransaction([&] {
        EXPECT_EQ(AddItem(0, 5, kMissingString), S_OK);
        SprpEnumItem item{5, 0, 0};
        CComBSTR text;
        VARIANT_BOOL success = 7;
        EXPECT_EQ(property->GetEnumInfo(&item, &text, &success), S_OK);
        EXPECT_EQ(success, VARIANT_TRUE);
        EXPECT_EQ(item.StringResID, kMissingString);
        EXPECT_EQ(text.m_str, nullptr);
    });
}

TEST_F(PropertyEnums, ThatAreNotFoundLeaveTheRecordAsItWas)
{
    InTransaction([&] {
        AddNamed(0, 5, OLESTR("five"));
        SprpEnumItem item{6, 77, 76};
        CComBSTR text;
        VARIANT_BOOL success = VARIANT_TRUE;
        EXPECT_EQ(property->GetEnumInfo(&item, &text, &success), S_OK);
        EXPECT_EQ(success, VARIANT_FALSE);
        EXPECT_EQ(item.StringResID, 77);
        EXPECT_EQ(item.bShow, 76);
        EXPECT_EQ(text.m_str, nullptr);
    });
}

TEST_F(PropertyEnums, BelongToAPropertyOfAnyType)
{
    property = Add(2, E_PROP_DT_LINEAR);
    InTransaction([&] {
        AddNamed(0, 5, OLESTR("five"));
        EXPECT_THAT(Walk(), ElementsAre(5));
    });
}

TEST_F(PropertyEnums, GoWithAClone)
{
    InTransaction([&] {
        AddNamed(0, 5, OLESTR("five"));
        AddNamed(1, 6, OLESTR("six"), VARIANT_FALSE);
        CComPtr<IqorPropertyCollection> clone;
        ASSERT_EQ(collection->Clone(2, &clone), S_OK);
        Transact(clone, [&] {
            property = PropertyOf(clone, 1);
            EXPECT_EQ(ByIndex(0), (Found{0, 5, OLESTR("five")}));
            EXPECT_EQ(ByIndex(1, VARIANT_TRUE), (Found{1, 6, OLESTR("six")}));
        });
    });
}

namespace {

class PropertyBounds : public ModelTest {
protected:
    CComPtr<IqorProperty> property = Add(1, E_PROP_DT_LONG);
};

SprpBoundsInfo SomeBounds()
{
    return {E_BOUND_CUSTOM, E_BOUND_NONE, 1, 2, 3.5, 4.5, E_PRP_BOUND_LOGIC_GE, E_PRP_BOUND_LOGIC_LT};
}

} // namespace

TEST_F(PropertyBounds, ReportANullPointer)
{
    ExpectNullPointer(property->SetPropertyBounds(nullptr), OLESTR("CprpProperty::SetPropertyBounds"),
                      OLESTR("psBoundsInfo"));
    ExpectNullPointer(property->GetPropertyBounds(nullptr), OLESTR("CprpProperty::GetPropertyBounds"),
                      OLESTR("psBoundsInfo"));
}

TEST_F(PropertyBounds, AreZeroAtFirst)
{
    SprpBoundsInfo bounds = SomeBounds();
    EXPECT_EQ(property->GetPropertyBounds(&bounds), S_OK);
    EXPECT_EQ(bounds.eLowerType, E_BOUND_NONE);
    EXPECT_EQ(bounds.nUpperBound, 0);
    EXPECT_EQ(bounds.dbUpperBound, 0);
    EXPECT_EQ(bounds.eUpperBoundLogic, E_PRP_BOUND_LOGIC_NONE);
}

TEST_F(PropertyBounds, AreCarriedAlongWithoutATransaction)
{
    SprpBoundsInfo bounds = SomeBounds();
    EXPECT_EQ(property->SetPropertyBounds(&bounds), S_OK);
    bounds = {};
    EXPECT_EQ(property->GetPropertyBounds(&bounds), S_OK);
    EXPECT_EQ(bounds.eLowerType, E_BOUND_CUSTOM);
    EXPECT_EQ(bounds.eUpperType, E_BOUND_NONE);
    EXPECT_EQ(bounds.nLowerBound, 1);
    EXPECT_EQ(bounds.nUpperBound, 2);
    EXPECT_EQ(bounds.dbLowerBound, 3.5);
    EXPECT_EQ(bounds.dbUpperBound, 4.5);
    EXPECT_EQ(bounds.eLowerBoundLogic, E_PRP_BOUND_LOGIC_GE);
    EXPECT_EQ(bounds.eUpperBoundLogic, E_PRP_BOUND_LOGIC_LT);
}

TEST_F(PropertyBounds, AnnounceNothingAndLimitNoSetter)
{
    SprpBoundsInfo bounds = SomeBounds();
    bounds.eUpperType = E_BOUND_CUSTOM;
    EXPECT_THAT(EventsOf([&] { EXPECT_EQ(property->SetPropertyBounds(&bounds), S_OK); }), IsEmpty());
    const auto real = Add(2, E_PROP_DT_LINEAR);
    EXPECT_EQ(real->SetPropertyBounds(&bounds), S_OK);
    InTransaction([&] {
        SetLong(property, 1000);
        EXPECT_EQ(LongOf(property), 1000);
        SetString(property, OLESTR("-1000"));
        EXPECT_EQ(LongOf(property), -1000);
        SetDouble(real, 1000);
        EXPECT_EQ(DoubleOf(real), 1000);
    });
}

namespace {

class InvalidCharacters : public ModelTest {
protected:
    CComPtr<IqorProperty> property = Add(1, E_PROP_DT_STRING_UNICODE);
};

} // namespace

TEST_F(InvalidCharacters, AreReportedWhenNull)
{
    ExpectNullPointer(property->SetInvalidCharacters(nullptr), OLESTR("CprpProperty::SetInvalidCharacters"),
                      OLESTR("bstrInvalidCharacters"));
    ExpectNullPointer(property->GetInvalidCharacters(nullptr), OLESTR("CprpProperty::GetInvalidCharacters"),
                      OLESTR("bstrInvalidCharacters"));
    CComBSTR used = Bstr(OLESTR("used"));
    ExpectBstrNotNull(property->GetInvalidCharacters(&used), OLESTR("CprpProperty::GetInvalidCharacters"),
                      OLESTR("pbstrInvalidCharacters"));
}

TEST_F(InvalidCharacters, AreNullUntilTheyAreGivenAndEmptyWhenGivenAsNone)
{
    CComBSTR characters;
    EXPECT_EQ(property->GetInvalidCharacters(&characters), S_OK);
    EXPECT_EQ(characters.m_str, nullptr);
    EXPECT_EQ(property->SetInvalidCharacters(Bstr({})), S_OK);
    EXPECT_EQ(property->GetInvalidCharacters(&characters), S_OK);
    ASSERT_NE(characters.m_str, nullptr);
    EXPECT_EQ(SysStringLen(characters), 0U);
}

TEST_F(InvalidCharacters, AreCopiedBothWaysAndBindNoSetter)
{
    EXPECT_THAT(EventsOf([&] { EXPECT_EQ(property->SetInvalidCharacters(Bstr(OLESTR("/\\:"))), S_OK); }), IsEmpty());
    CComBSTR characters;
    EXPECT_EQ(property->GetInvalidCharacters(&characters), S_OK);
    EXPECT_EQ(characters.View(), OLESTR("/\\:"));
    characters.m_str[0] = 'x';
    CComBSTR again;
    EXPECT_EQ(property->GetInvalidCharacters(&again), S_OK);
    EXPECT_EQ(again.View(), OLESTR("/\\:"));
    InTransaction([&] {
        SetString(property, OLESTR("a/b"));
        EXPECT_EQ(StringOf(property), OLESTR("a/b"));
    });
}
