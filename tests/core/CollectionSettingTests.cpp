// Settings of a collection, unit conversion, clones, and the help of a property in a state.
#include "tests/core/HostRule.h"
#include "tests/core/ModelFixture.h"

#include <limits>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr double kInchPerMillimetre = 0.03937007874015748;

class CollectionSettings : public ModelTest {
protected:
    void Convert(EprpUnitMode mode) { EXPECT_EQ(collection->ConvertUnit(mode), S_OK); }
    EprpUnitMode Mode(IqorPropertyCollection* of)
    {
        EprpUnitMode mode = E_UNITMODE_NONE;
        EXPECT_EQ(of->GetUnitMode(&mode), S_OK);
        return mode;
    }
    Text Name(const OLECHAR* method) { return Text(OLESTR("CprpPropertyCollection::")).append(method); }
};

class Clones : public CollectionSettings {
protected:
    CComPtr<IqorPropertyCollection> CloneOf(LONG id = 5)
    {
        CComPtr<IqorPropertyCollection> clone;
        EXPECT_EQ(collection->Clone(id, &clone), S_OK);
        return clone;
    }
};

class PropertyHelp : public ModelTest {
protected:
    CComPtr<IprpHelpInfo> help = MakeObject<IprpHelpInfo>(CLSID_prpHelpInfo);

    struct Picture {
        LONG id = 77;
        LONG_PTR module = 88;
        VARIANT_BOOL success = 9;
    };
    Picture PictureOf(LONG id)
    {
        Picture picture;
        EXPECT_EQ(collection->GetPictureResource(id, &picture.id, &picture.module, &picture.success), S_OK);
        return picture;
    }
};

} // namespace

TEST_F(CollectionSettings, StartFromTheirDefaults)
{
    LONG precision = 0;
    EXPECT_EQ(collection->get_Precision(&precision), S_OK);
    EXPECT_EQ(precision, 4);
    double limit = 0;
    EXPECT_EQ(collection->GetMaxInputValue(&limit), S_OK);
    EXPECT_EQ(limit, std::numeric_limits<double>::max());
    EXPECT_EQ(Mode(collection), E_METRIC);
    VARIANT_BOOL flag = 0;
    EXPECT_EQ(collection->get_SaveEditFlags(&flag), S_OK);
    EXPECT_EQ(flag, VARIANT_TRUE);
    EXPECT_EQ(collection->get_SaveReadOnlyStates(&flag), S_OK);
    EXPECT_EQ(flag, VARIANT_TRUE);
    LONG id = 0;
    EXPECT_EQ(collection->GetMismatchedSaveDataCategoryID(&id), S_OK);
    EXPECT_EQ(id, -1);
    InTransaction([&] {
        EXPECT_EQ(collection->GetCollectionID(&id), S_OK);
        EXPECT_EQ(id, 0);
    });
}

TEST_F(CollectionSettings, RefuseACollectionIdBelowOneByTheMessageOnNegativeParameters)
{
    ExpectNoTransaction(collection->SetCollectionID(0));
    InTransaction([&] {
        ExpectNegative(collection->SetCollectionID(0));
        ExpectNegative(collection->SetCollectionID(std::numeric_limits<LONG>::min()));
        EXPECT_EQ(collection->SetCollectionID(std::numeric_limits<LONG>::max()), S_OK);
    });
}

TEST_F(CollectionSettings, RefuseANullDefaultModuleByTheStringResourceWithAZero)
{
    ExpectNoTransaction(collection->SetDefaultResourceInstance(0));
    InTransaction([&] {
        EXPECT_EQ(collection->SetDefaultResourceInstance(0), static_cast<HRESULT>(0x80047D0F));
        EXPECT_EQ(LastErrorText(), OLESTR("0 path points"));
    });
}

TEST_F(CollectionSettings, RefuseTheModeNoneAndTwoNullPointersAsInternalErrors)
{
    ExpectInternal(collection->SetUnitMode(E_UNITMODE_NONE));
    ExpectInternal(collection->GetUnitMode(nullptr));
    ExpectInternal(collection->get_Precision(nullptr));
}

TEST_F(CollectionSettings, ReportNullPointersOfTheGetters)
{
    ExpectNullPointer(collection->GetMaxInputValue(nullptr), Name(OLESTR("GetMaxInputValue")), OLESTR("pdbMaxValue"));
    ExpectNullPointer(collection->get_StartMarker(nullptr), Name(OLESTR("get_StartMarker")),
                      OLESTR("pbstrStartMarker"));
    ExpectNullPointer(collection->get_SaveEditFlags(nullptr), Name(OLESTR("get_SaveEditFlags")),
                      OLESTR("pbSaveEditFlags"));
    ExpectNullPointer(collection->get_SaveReadOnlyStates(nullptr), Name(OLESTR("get_SaveReadOnlyStates")),
                      OLESTR("pbSaveReadOnlyStates"));
    ExpectNullPointer(collection->GetUnusedSaveDataCategoryID(nullptr), Name(OLESTR("GetUnusedSaveDataCategoryID")),
                      OLESTR("pnUnusedCategoryID"));
    ExpectNullPointer(collection->GetMismatchedSaveDataCategoryID(nullptr),
                      Name(OLESTR("GetMismatchedSaveDataCategoryID")), OLESTR("pnMismatchedCategoryID"));
    ExpectNullPointer(collection->GetHelpInfo(nullptr), Name(OLESTR("GetHelpInfo")), OLESTR("ppHelpInfo"));
    ExpectNullPointer(collection->AttachHelpInfo(nullptr), Name(OLESTR("AttachHelpInfo")), OLESTR("pIHelpInfo"));
    ExpectNullPointer(collection->GetCollectionID(nullptr), Name(OLESTR("GetCollectionID")),
                      OLESTR("pnPropCollectionID"));
}

TEST_F(CollectionSettings, MultiplyLengthsByTheFactorOfTheTargetAloneWithoutAnEvent)
{
    const auto length = Add(1, E_PROP_DT_LINEAR);
    const auto angle = Add(2, E_PROP_DT_ANGLE);
    const auto real = Add(3, E_PROP_DT_DOUBLE);
    InTransaction([&] {
        SetDouble(length, 1);
        SetDouble(angle, 1);
        SetDouble(real, 1);
    });
    sink->Clear();
    Convert(E_METRIC);
    EXPECT_EQ(DoubleOf(length), 25.4);
    Convert(E_METRIC); // again, although it is the present mode
    EXPECT_EQ(DoubleOf(length), 25.4 * 25.4);
    Convert(E_IMPERIAL);
    EXPECT_EQ(DoubleOf(length), 25.4 * 25.4 * kInchPerMillimetre);
    EXPECT_EQ(Mode(collection), E_IMPERIAL);
    EXPECT_EQ(DoubleOf(angle), 1);
    EXPECT_EQ(DoubleOf(real), 1);
    InTransaction([] {});
    EXPECT_THAT(sink->streams, IsEmpty());
}

TEST_F(CollectionSettings, ConvertPositionsBoundsAndScanPathsButNoIntegerBound)
{
    const auto position = Add(1, E_PROP_DT_POSITION);
    const auto path = Add(2, E_PROP_DT_SCAN_PATH_LIST);
    SprpBoundsInfo bounds{E_BOUND_CUSTOM, E_BOUND_NONE, 3, 4, 1.0, 2.0, E_PRP_BOUND_LOGIC_GE, E_PRP_BOUND_LOGIC_LE};
    EXPECT_EQ(position->SetPropertyBounds(&bounds), S_OK);
    InTransaction([&] {
        EXPECT_EQ(position->SetPropertyPosition({1, 2, 3}, VARIANT_FALSE), S_OK);
        SetString(path, OLESTR("1,2,3"));
    });
    Convert(E_METRIC);
    const SprpPosition converted = PositionOf(position);
    EXPECT_EQ(converted.X, 25.4);
    EXPECT_EQ(converted.Y, 50.8);
    EXPECT_EQ(converted.Z, 3 * 25.4);
    EXPECT_EQ(position->GetPropertyBounds(&bounds), S_OK);
    EXPECT_EQ(bounds.dbLowerBound, 25.4); // its side has a custom bound
    EXPECT_EQ(bounds.dbUpperBound, 2.0);
    EXPECT_EQ(bounds.nLowerBound, 3);
    EXPECT_EQ(bounds.nUpperBound, 4);
    SprgScanPathPoint point{};
    EXPECT_EQ(path->GetScanPathPointAt(0, &point), S_OK);
    EXPECT_EQ(point.Position.Y, 50.8);
}

TEST_F(CollectionSettings, ShieldAWholeSubtreeFromConversion)
{
    Add(1, E_PROP_DT_CATEGORY);
    const auto shield = Add(2, E_PROP_DT_LINEAR, 1);
    const auto child = Add(3, E_PROP_DT_LINEAR, 2);
    const auto sibling = Add(4, E_PROP_DT_LINEAR, 1);
    InTransaction([&] {
        for (const auto& property : {shield, child, sibling})
            SetDouble(property, 1);
        EXPECT_EQ(shield->SetNoUnitConvert(VARIANT_TRUE), S_OK);
    });
    Convert(E_METRIC);
    EXPECT_EQ(DoubleOf(shield), 1);
    EXPECT_EQ(DoubleOf(child), 1);
    EXPECT_EQ(DoubleOf(sibling), 25.4); // through the category, which converts nothing itself
}

TEST_F(CollectionSettings, EmptyTheErrorOfFullPrecisionAloneAndLeaveItInvalid)
{
    const auto precise = Add(1, E_PROP_DT_FULL_PRECISION);
    const auto length = Add(2, E_PROP_DT_LINEAR);
    InTransaction([&] {
        SetErrorText(precise, OLESTR("Bad"));
        SetErrorText(length, OLESTR("Bad"));
    });
    Convert(E_METRIC);
    InTransaction([&] {
        EXPECT_EQ(ErrorTextOf(precise), OLESTR(""));
        EXPECT_FALSE(FlagOf(precise, &IqorProperty::IsValid));
        EXPECT_EQ(ErrorTextOf(length), OLESTR("Bad"));
    });
}

TEST_F(CollectionSettings, ReadAModeThatIsNeitherAsImperialForPathsAndTakeNoNumbersInIt)
{
    const auto length = Add(1, E_PROP_DT_LINEAR);
    const auto path = Add(2, E_PROP_DT_SCAN_PATH_LIST);
    EXPECT_EQ(collection->SetUnitMode(static_cast<EprpUnitMode>(3)), S_OK);
    InTransaction([&] {
        EprpPropError error = E_PROP_ERROR_NONE;
        ExpectInternal(length->SetPropertyDouble(0, &error)); // although it is equal
        ExpectInternal(length->SetPropertyPosition({}, VARIANT_FALSE));
        SetString(length, OLESTR("2.5")); // texts ask for no mode
        EXPECT_EQ(DoubleOf(length), 2.5);

        VARIANT_BOOL changed = VARIANT_FALSE;
        EXPECT_EQ(path->SetScanPathPointAt(0, SprgScanPathPoint{{1, 2, 3}}, VARIANT_TRUE, &changed), S_OK);
        EXPECT_EQ(path->SetScanPathPointAt(0, SprgScanPathPoint{{1.00002, 2, 3}}, VARIANT_TRUE, &changed), S_OK);
        EXPECT_EQ(changed, VARIANT_TRUE);
        CComBSTR points;
        EXPECT_EQ(path->GetScanPathString(&points), S_OK);
        EXPECT_EQ(points.View(), OLESTR("   1.00002,   2.00000,   3.00000"));
    });
}

TEST_F(CollectionSettings, ConvertTheNumbersOfSomeTypesAlone)
{
    LONG id = 0;
    for (const auto& [type, converted] : {std::pair{E_PROP_DT_ANGLE, false},
                                          {E_PROP_DT_LINEAR, true},
                                          {E_PROP_DT_DOUBLE, false},
                                          {E_PROP_DT_FORM, false},
                                          {E_PROP_DT_FULL_PRECISION, true}}) {
        const auto property = Add(++id, type);
        SprpBoundsInfo bounds{};
        bounds.eLowerType = bounds.eUpperType = E_BOUND_CUSTOM;
        bounds.dbLowerBound = 1;
        bounds.dbUpperBound = 3;
        EXPECT_EQ(property->SetPropertyBounds(&bounds), S_OK);
        InTransaction([&] { SetDouble(property, 2); });
        Convert(E_METRIC);
        EXPECT_EQ(DoubleOf(property), converted ? 50.8 : 2) << "type " << type;
        EXPECT_EQ(property->GetPropertyBounds(&bounds), S_OK);
        EXPECT_EQ(bounds.dbLowerBound, type == E_PROP_DT_LINEAR ? 25.4 : 1) << "type " << type;
        EXPECT_EQ(bounds.dbUpperBound, type == E_PROP_DT_LINEAR ? 3 * 25.4 : 3) << "type " << type;
        InTransaction([&] {
            EprpPropError error = E_PROP_ERROR_NONE;
            EXPECT_EQ(collection->RemoveProperty(id, &error), S_OK);
        });
    }
}

TEST_F(CollectionSettings, ConvertVectorsLikePositionsAndTolerancesInTheirSelectedParts)
{
    const auto direction = Add(1, E_PROP_DT_VECTOR);
    const auto linear = Add(2, E_PROP_DT_TOLERANCE);
    const auto angular = Add(3, E_PROP_DT_TOLERANCE);
    const auto geometric = Add(4, E_PROP_DT_TOLERANCE);
    InTransaction([&] {
        SetString(direction, OLESTR("0;0;1"));
        SetString(linear, OLESTR("1#3\xAC"
                                 "1\xAC"
                                 "10\xAC"
                                 "1\xAC"
                                 "-1"));
        SetString(angular, OLESTR("2#3\xAC"
                                  "1\xAC"
                                  "10\xAC"
                                  "1\xAC"
                                  "-1"));
        SetString(geometric, OLESTR("4#101\xAC"
                                    "0.5"));
    });
    Convert(E_METRIC);
    InTransaction([&] {
        EXPECT_EQ(StringOf(direction), OLESTR("0;0;25.4"));
        EXPECT_EQ(StringOf(linear), OLESTR("1#3\xAC"
                                           "1\xAC"
                                           "254\xAC"
                                           "25.4\xAC"
                                           "-25.4"));
        EXPECT_EQ(StringOf(angular), OLESTR("2#3\xAC"
                                            "1\xAC"
                                            "10\xAC"
                                            "1\xAC"
                                            "-1"));
        EXPECT_EQ(StringOf(geometric), OLESTR("4#101\xAC"
                                              "12.7"));
    });
}

TEST_F(CollectionSettings, ConvertToNoModeByTheImperialFactorAndStoreIt)
{
    const auto length = Add(1, E_PROP_DT_LINEAR);
    InTransaction([&] { SetDouble(length, 25.4); });
    Convert(E_UNITMODE_NONE);
    EXPECT_EQ(DoubleOf(length), 25.4 * kInchPerMillimetre);
    EXPECT_EQ(Mode(collection), E_UNITMODE_NONE);
}

TEST_F(Clones, CopyTheTreeWithItsValuesAndTheFourSettingsThatAreTheirs)
{
    Add(1, E_PROP_DT_CATEGORY);
    const auto length = Add({.id = 2, .type = E_PROP_DT_LINEAR, .parent = 1, .linked = 7, .editFlags = 3});
    const auto help = MakeObject<IprpHelpInfo>(CLSID_prpHelpInfo);
    EXPECT_EQ(collection->AttachHelpInfo(help), S_OK);
    EXPECT_EQ(collection->SetUnitMode(E_IMPERIAL), S_OK);
    EXPECT_EQ(collection->put_Precision(2), S_OK);
    EXPECT_EQ(collection->SetMaxInputValue(5), S_OK);
    EXPECT_EQ(collection->put_SaveEditFlags(VARIANT_FALSE), S_OK);
    CComPtr<IqorPropertyCollection> clone;
    InTransaction([&] {
        SetDouble(length, 1.5);
        EXPECT_EQ(length->SetPropertyName(Bstr(OLESTR("Depth (mm)"))), S_OK);
        clone = CloneOf();
    });
    Transact(clone, [&] {
        LONG id = 0;
        EXPECT_EQ(clone->GetCollectionID(&id), S_OK);
        EXPECT_EQ(id, 5);
        const auto copy = PropertyOf(clone, 2);
        EXPECT_NE(copy.p, length.p);
        EXPECT_EQ(DoubleOf(copy), 1.5);
        EXPECT_EQ(NameOf(copy, E_PRP_PROP_NAME_STYLE_STRIPPED), OLESTR("Depth"));
        EXPECT_EQ(copy->GetParentProperty(&id), S_OK);
        EXPECT_EQ(id, 1);
        EXPECT_EQ(copy->GetLinkedProperty(&id), S_OK);
        EXPECT_EQ(id, 7);
        EXPECT_EQ(SavedTextOf(clone), OLESTR("~2l3|21.5~1l0|s"));
        SetDouble(copy, 9);
    });
    EXPECT_EQ(DoubleOf(length), 1.5);
    EXPECT_EQ(Mode(clone), E_IMPERIAL);
    LONG precision = 0;
    EXPECT_EQ(clone->get_Precision(&precision), S_OK);
    EXPECT_EQ(precision, 2);
    CComPtr<IprpHelpInfo> shared;
    EXPECT_EQ(clone->GetHelpInfo(&shared), S_OK);
    EXPECT_EQ(shared.p, help.p);
    double limit = 0;
    EXPECT_EQ(clone->GetMaxInputValue(&limit), S_OK);
    EXPECT_EQ(limit, std::numeric_limits<double>::max());
    VARIANT_BOOL flag = VARIANT_FALSE;
    EXPECT_EQ(clone->get_SaveEditFlags(&flag), S_OK);
    EXPECT_EQ(flag, VARIANT_TRUE);
}

TEST_F(Clones, FollowTheListsAndNotTheParentsThatWereReported)
{
    Add(1, E_PROP_DT_CATEGORY);
    const auto child = Add(2, E_PROP_DT_CATEGORY, 1);
    const auto grandchild = Add(3, E_PROP_DT_LINEAR, 2);
    const auto last = Add(4, E_PROP_DT_LINEAR);
    InTransaction([&] {
        EXPECT_EQ(child->SetParentProperty(4), S_OK);
        EXPECT_EQ(grandchild->SetParentProperty(1), S_OK);
        EXPECT_EQ(last->SetParentProperty(3), S_OK);
        const auto clone = CloneOf();
        Transact(clone, [&] {
            for (const auto& [id, parent] : std::initializer_list<std::pair<LONG, LONG>>{
                     {1, E_PROP_ID_TOP_LEVEL}, {2, 1}, {3, 2}, {4, E_PROP_ID_TOP_LEVEL}}) {
                LONG reported = 0;
                EXPECT_EQ(PropertyOf(clone, id)->GetParentProperty(&reported), S_OK);
                EXPECT_EQ(reported, parent) << id;
            }
        });
    });
}

TEST_F(Clones, SaveInTheOrderInWhichTheyWereMade)
{
    Add(1, E_PROP_DT_LONG);
    Add(2, E_PROP_DT_LONG);
    Add(3, E_PROP_DT_LONG, 1);
    InTransaction([&] {
        EXPECT_EQ(SavedTextOf(collection), OLESTR("~3l0|30~2l0|30~1l0|30"));
        const auto clone = CloneOf();
        Transact(clone, [&] { EXPECT_EQ(SavedTextOf(clone), OLESTR("~2l0|30~3l0|30~1l0|30")); });
    });
}

TEST_F(Clones, KeepTheEventsOfTheirRulesForTheirFirstTransactionThatFires)
{
    const auto property = Add(20, E_PROP_DT_LINEAR);
    const auto rule = MakeHostRule();
    CComPtr<IqorPropertyCollection> clone;
    InTransaction([&] {
        EXPECT_EQ(property->SetVisibilityInfo(rule), S_OK);
        rule->visible = VARIANT_FALSE; // not asked again until the transaction of the clone ends
        clone = CloneOf();
        rule->visible = VARIANT_TRUE;
        EXPECT_EQ(property->ClearVisibilityInfo(), S_OK);
    });
    ConnectedSink cloneSink{clone};
    Transact(clone, [&] { EXPECT_FALSE(FlagOf(PropertyOf(clone, 20), &IqorProperty::IsVisible)); });
    EXPECT_THAT(cloneSink->Records(), ElementsAre(StateEdit(20, true, 5), StateEdit(20, true, 5)));
    EXPECT_THAT(sink->Records(), IsEmpty());
}

TEST_F(Clones, CopyEveryOtherFieldOfAProperty)
{
    const auto property = Add({.id = 1,
                               .type = E_PROP_DT_STATEMENT,
                               .linked = 7,
                               .module = 9,
                               .editFlags = 5,
                               .visible = VARIANT_FALSE,
                               .readOnly = VARIANT_TRUE,
                               .alwaysSave = VARIANT_FALSE});
    InTransaction([&] {
        SetString(property, OLESTR("x = 1"));
        EXPECT_EQ(property->SetPropertyPosition({1, 2, 3}, VARIANT_TRUE), S_OK);
        SprpTolerance tolerance{};
        tolerance.eTolType = E_TOL_TYPE_LINEAR;
        tolerance.LinearTolInfo_X.dbNominalValue = 10;
        tolerance.FormTolInfo.dbError = 4;
        EXPECT_EQ(property->SetPropertyTolerance(&tolerance), S_OK);
        SprpBoundsInfo bounds{E_BOUND_CUSTOM, E_BOUND_NONE, 3, 4, 1.0, 2.0, E_PRP_BOUND_LOGIC_GE, E_PRP_BOUND_LOGIC_NE};
        EXPECT_EQ(property->SetPropertyBounds(&bounds), S_OK);
        EXPECT_EQ(property->SetInvalidCharacters(Bstr(OLESTR("~|"))), S_OK);
        EXPECT_EQ(property->SetPropertyName(Bstr(OLESTR("[MACRO REPORT PROP]Bore | Size"))), S_OK);
        EXPECT_EQ(property->InitialiseScanPathFromString(Bstr(OLESTR("4,5,6"))), S_OK);
        SetErrorText(property, OLESTR("Bad"));
        EXPECT_EQ(property->SetValid(VARIANT_FALSE), S_OK);

        const auto clone = CloneOf();
        const auto copy = [&] {
            CComPtr<IqorProperty> found;
            Transact(
                clone, [&] { found = PropertyOf(clone, 1); }, false);
            return found;
        }();
        Transact(clone, [&] {
            EXPECT_EQ(StringOf(copy), OLESTR("x = 1"));
            EXPECT_EQ(PositionOf(copy).Z, 3);
            EXPECT_EQ(ErrorTextOf(copy), OLESTR("Bad"));
            EXPECT_FALSE(FlagOf(copy, &IqorProperty::IsVisible));
            EXPECT_TRUE(FlagOf(copy, &IqorProperty::IsReadOnly));
            EXPECT_FALSE(FlagOf(copy, &IqorProperty::GetAlwaysSave));
            EXPECT_FALSE(FlagOf(copy, &IqorProperty::IsValid));
            EXPECT_TRUE(FlagOf(copy, &IqorProperty::IsMacroReportProperty));
            EXPECT_EQ(NameOf(copy, E_PRP_PROP_NAME_STYLE_OXBEL_PLUGIN_REPORT), OLESTR("Size"));
            LONG number = 0;
            EXPECT_EQ(copy->GetPropertyNameResID(&number), S_OK);
            EXPECT_EQ(number, -1);
            EXPECT_EQ(copy->GetLinkedProperty(&number), S_OK);
            EXPECT_EQ(number, 7);
            EXPECT_EQ(copy->GetEditFlags(&number), S_OK);
            EXPECT_EQ(number, 5);
            LONG_PTR module = 0;
            EXPECT_EQ(copy->GetHResModule(&module), S_OK);
            EXPECT_EQ(module, 9);
            SprgScanPathPoint point{};
            EXPECT_EQ(copy->GetScanPathPointAt(0, &point), S_OK);
            EXPECT_EQ(point.Position.Y, 5);
            CComBSTR characters;
            EXPECT_EQ(copy->GetInvalidCharacters(&characters), S_OK);
            EXPECT_EQ(characters.View(), OLESTR("~|"));
            SprpBoundsInfo copied{};
            EXPECT_EQ(copy->GetPropertyBounds(&copied), S_OK);
            EXPECT_EQ(copied.nUpperBound, 4);
            EXPECT_EQ(copied.eUpperBoundLogic, E_PRP_BOUND_LOGIC_NE);
            EXPECT_EQ(copy->SetDataType(E_PROP_DT_TOLERANCE), S_OK);
            EXPECT_EQ(StringOf(copy), OLESTR("1#0\xAC"
                                             "0\xAC"
                                             "10\xAC"
                                             "0\xAC"
                                             "0"));
        });
    });
}

TEST_F(Clones, StartWithoutALoadVersion)
{
    EXPECT_EQ(collection->put_LoadVersion(1), S_OK);
    InTransaction([&] {
        const auto clone = CloneOf();
        Transact(clone, [&] {
            CComPtr<IqorStream> errors = MakeStream();
            EXPECT_EQ(clone->LoadFromStream(MakeStream(OLESTR("~1h35")), errors, nullptr), S_OK);
            EXPECT_THAT(ReadStrings(errors), ElementsAre(OLESTR("A parsing error has occurred (Unknown property "
                                                                "version) at line: ~1h35")));
        });
    });
}

TEST_F(Clones, LeaveWarningsPostProcessingAndTheUnitShieldBehind)
{
    const auto property = Add(1, E_PROP_DT_LINEAR);
    InTransaction([&] {
        EXPECT_EQ(property->SetWarningString(Bstr(OLESTR("Near"))), S_OK);
        SetErrorText(property, OLESTR("Bad"));
        EXPECT_EQ(property->SetNoUnitConvert(VARIANT_TRUE), S_OK);
        EXPECT_EQ(property->SetVisibleForPostProc(VARIANT_FALSE), S_OK);
        const auto clone = CloneOf();
        Transact(clone, [&] {
            const auto copy = PropertyOf(clone, 1);
            EXPECT_FALSE(FlagOf(copy, &IqorProperty::IsInWarning));
            EXPECT_FALSE(FlagOf(copy, &IqorProperty::GetNoUnitConvert));
            EXPECT_TRUE(FlagOf(copy, &IqorProperty::IsVisibleForPostProc));
            EXPECT_EQ(ErrorTextOf(copy), OLESTR("Bad"));
            CComBSTR warning;
            EXPECT_EQ(copy->GetWarningString(&warning), S_OK);
            EXPECT_EQ(warning.View(), OLESTR(""));
        });
    });
}

TEST_F(Clones, CopyEnumerationTextsWhoseValueStillStandsInTheItems)
{
    const auto choice = Add(1, E_PROP_DT_ENUM);
    InTransaction([&] {
        SprpEnumItem item{3, 0, VARIANT_TRUE};
        EXPECT_EQ(choice->AddEnumItem(0, &item), S_OK);
        EXPECT_EQ(choice->AddEnumItemString(0, Bstr(OLESTR("Three"))), S_OK);
        item.eEnumValue = 4;
        EXPECT_EQ(choice->AddEnumItem(0, &item), S_OK); // 3 is gone from the items, its text is not
        EXPECT_EQ(choice->AddEnumItemString(0, Bstr(OLESTR("Four"))), S_OK);
        const auto clone = CloneOf();
        Transact(clone, [&] {
            const auto copy = PropertyOf(clone, 1);
            CComBSTR text;
            VARIANT_BOOL found = VARIANT_FALSE;
            EXPECT_EQ(copy->GetEnumInfo(&item, &text, &found), S_OK);
            EXPECT_EQ(text.View(), OLESTR("Four"));
        });
    });
}

TEST_F(Clones, CheckPointerThenTheNewIdThenTheSourcesTransaction)
{
    ExpectNullPointer(collection->Clone(0, nullptr), OLESTR("CprpPropertyCollection::Clone"), OLESTR("ppIClone"));
    CComPtr<IqorPropertyCollection> clone;
    ExpectNegative(collection->Clone(0, &clone));
    ExpectNoTransaction(collection->Clone(1, &clone));
    EXPECT_EQ(clone.p, nullptr);
}

TEST_F(PropertyHelp, GivesPicturesByStateAndFillsInTheModule)
{
    EXPECT_EQ(help->AddPictureResource(5, 7, 1, 0, 300), S_OK);
    EXPECT_EQ(collection->AttachHelpInfo(help), S_OK);
    const auto property = Add({.id = 1, .type = E_PROP_DT_LINEAR, .module = 42});
    EXPECT_EQ(collection->SetState(13), S_OK); // masks to 5
    InTransaction([&] {
        const Picture picture = PictureOf(1);
        EXPECT_EQ(picture.success, VARIANT_TRUE);
        EXPECT_EQ(picture.id, 300);
        EXPECT_EQ(picture.module, 42);
        EXPECT_EQ(property->SetHResModule(0), S_OK);
        EXPECT_EQ(collection->SetDefaultResourceInstance(43), S_OK);
        EXPECT_EQ(PictureOf(1).module, 43);
    });
}

TEST_F(PropertyHelp, LeavesTheCallersPictureWhereThereIsNoneButJudgesItsModule)
{
    EXPECT_EQ(collection->AttachHelpInfo(help), S_OK);
    Add(1, E_PROP_DT_LINEAR);
    EXPECT_EQ(collection->SetState(1), S_OK);
    InTransaction([&] {
        const Picture known = PictureOf(1);
        EXPECT_EQ(known.success, VARIANT_FALSE);
        EXPECT_EQ(known.id, 77);
        EXPECT_EQ(known.module, 88);
        EXPECT_EQ(PictureOf(99).module, 0); // an unknown property has none
    });
}

TEST_F(PropertyHelp, GivesNoPictureWithoutAHelpObjectAndDoesNotTouchTheModule)
{
    Add(1, E_PROP_DT_LINEAR);
    InTransaction([&] {
        const Picture picture = PictureOf(1);
        EXPECT_EQ(picture.success, VARIANT_FALSE);
        EXPECT_EQ(picture.id, 0);
        EXPECT_EQ(picture.module, 88);
    });
}

TEST_F(PropertyHelp, GivesATextThatWasAddedWithoutWritingTheId)
{
    EXPECT_EQ(help->AddHelpString(2, 1, Bstr(OLESTR("Depth of the bore"))), S_OK);
    EXPECT_EQ(collection->AttachHelpInfo(help), S_OK);
    EXPECT_EQ(collection->SetState(2), S_OK);
    InTransaction([&] {
        LONG id = 77;
        CComBSTR text;
        VARIANT_BOOL success = VARIANT_FALSE;
        EXPECT_EQ(collection->GetHelpStringResource(1, &id, &text, &success), S_OK);
        EXPECT_EQ(success, VARIANT_TRUE);
        EXPECT_EQ(text.View(), OLESTR("Depth of the bore"));
        EXPECT_EQ(id, 77);
    });
}

TEST_F(PropertyHelp, AsksForAStringResourceOnlyWhereTheIdIsWanted)
{
    EXPECT_EQ(help->AddHelpStringResource(2, -1, 1, 42, 300), S_OK);
    EXPECT_EQ(collection->AttachHelpInfo(help), S_OK);
    EXPECT_EQ(collection->SetState(2), S_OK);
    InTransaction([&] {
        BSTR text = nullptr;
        VARIANT_BOOL success = 9;
        EXPECT_EQ(collection->GetHelpStringResource(1, nullptr, &text, &success), S_OK);
        EXPECT_EQ(success, VARIANT_FALSE);
        LONG id = 0;
        EXPECT_EQ(collection->GetHelpStringResource(1, &id, &text, &success), S_OK);
        EXPECT_EQ(success, VARIANT_TRUE); // although its string cannot be loaded
        EXPECT_EQ(id, 300);
        EXPECT_EQ(text, nullptr);
        EXPECT_EQ(collection->GetHelpStringResource(1, nullptr, nullptr, &success), S_OK);
        EXPECT_EQ(success, VARIANT_TRUE);
    });
}

TEST_F(PropertyHelp, ChecksTransactionThenPointerThenOutStringThenId)
{
    CComBSTR text = Bstr(OLESTR("x"));
    VARIANT_BOOL success = VARIANT_FALSE;
    const Text method = OLESTR("CprpPropertyCollection::GetHelpStringResource");
    ExpectNoTransaction(collection->GetHelpStringResource(0, nullptr, &text, nullptr));
    InTransaction([&] {
        ExpectNullPointer(collection->GetHelpStringResource(0, nullptr, &text, nullptr), method, OLESTR("pbSuccess"));
        ExpectBstrNotNull(collection->GetHelpStringResource(0, nullptr, &text, &success), method,
                          OLESTR("pbstrResString"));
        ExpectInvalidId(collection->GetHelpStringResource(0, nullptr, nullptr, &success));
    });
}
