// Loading at the edges of the format: letters, escapes and numbers that mean something else than they seem, raises in
// the middle of a load, and what becomes of kept data that stands in its own way.
#include "tests/core/PersistenceFixture.h"

#include <thread>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class LoadEdges : public Persistence {
protected:
    /// A load that raises in its middle. @return its result.
    HRESULT LoadRaising(TextView text)
    {
        VARIANT_BOOL success = 9;
        const HRESULT hr = collection->LoadFromStream(MakeStream(text), nullptr, &success);
        EXPECT_EQ(success, 9) << "a load that raises says nothing about its success";
        return hr;
    }
    bool Exists(LONG id)
    {
        VARIANT_BOOL exists = 9;
        EXPECT_EQ(collection->PropertyExists(id, &exists), S_OK);
        return exists == VARIANT_TRUE;
    }
    LONG ParentOf(LONG id)
    {
        LONG parent = 0;
        EXPECT_EQ(PropertyOf(collection, id)->GetParentProperty(&parent), S_OK);
        return parent;
    }
    LONG EditFlagsOf(LONG id)
    {
        LONG flags = 0;
        EXPECT_EQ(PropertyOf(collection, id)->GetEditFlags(&flags), S_OK);
        return flags;
    }
};

} // namespace

TEST_F(LoadEdges, ReadTheThreeLowBitsOfAFlagLetter)
{
    InTransaction([&] {
        SetVersion(1);
        const auto property = AddOpen({.id = 1, .type = E_PROP_DT_LONG});
        EXPECT_TRUE(Load(OLESTR("~1o35")).success); // 8: none of the three
        EXPECT_FALSE(FlagOf(property, &IqorProperty::IsVisible));
        EXPECT_FALSE(FlagOf(property, &IqorProperty::IsReadOnly));
        EXPECT_TRUE(Load(OLESTR("~1Z36")).success); // 19: visible and read-only
        EXPECT_TRUE(FlagOf(property, &IqorProperty::IsVisible));
        EXPECT_TRUE(FlagOf(property, &IqorProperty::IsReadOnly));
        EXPECT_TRUE(Load(OLESTR("~1s7|38")).success); // 12: edit flags follow
        EXPECT_EQ(EditFlagsOf(1), 7);
        EXPECT_EQ(LongOf(property), 8);
    });
}

TEST_F(LoadEdges, TakeALetterForATypeBelowTenToo)
{
    InTransaction([&] {
        SetVersion(1);
        const auto number = AddOpen({.id = 1, .type = E_PROP_DT_LONG});
        const auto direction = AddOpen({.id = 2, .type = E_PROP_DT_VECTOR});
        EXPECT_TRUE(Load(OLESTR("~1hd5~2hJ0;0;1")).success);
        EXPECT_EQ(LongOf(number), 5);
        EXPECT_EQ(StringOf(direction), OLESTR("0;0;1"));
    });
}

TEST_F(LoadEdges, TakeTheXOfAHexadecimalPrefixForAFlagLetter)
{
    InTransaction([&] {
        SetVersion(1);
        AddOpen({.id = 0x1A, .type = E_PROP_DT_ANGLE});
        ExpectInvalidId(LoadRaising(OLESTR("~0x1ah35"))); // the unknown property 0 of type 1 with the value "ah35"
        EXPECT_EQ(DoubleOf(PropertyOf(collection, 0x1A)), 0);
    });
}

TEST_F(LoadEdges, ScanIdsLikeAnyNumber)
{
    InTransaction([&] {
        SetVersion(1);
        const auto property = AddOpen({.id = 0x1A, .type = E_PROP_DT_LONG});
        LONG expected = 0;
        for (const TextView id : {OLESTR(" 1a"), OLESTR("+1A"), OLESTR("\t\r\n1a"), OLESTR("10000001a"), OLESTR("1a!"),
                                  OLESTR("0001a"), OLESTR("-ffffffe6")}) {
            const std::string value = std::to_string(++expected);
            EXPECT_TRUE(Load(Text(OLESTR("~")) + Text(id) + OLESTR("h3") + Text(value.begin(), value.end())).success);
            EXPECT_EQ(LongOf(property), expected);
        }
    });
}

TEST_F(LoadEdges, FindNoTypeWhereARecordEndsAheadOfIt)
{
    InTransaction([&] {
        SetVersion(1);
        AddOpen({.id = 1, .type = E_PROP_DT_LONG});
        EXPECT_EQ(FaultOf(OLESTR("~1l5|")), Message(OLESTR("Value not found - token 1l5|."), OLESTR("~1l5|")));
        EXPECT_EQ(FaultOf(OLESTR("~1l")), Message(OLESTR("Invalid data type"), OLESTR("~1l")));
        EXPECT_EQ(EditFlagsOf(1), 0);
    });
}

TEST_F(LoadEdges, TakeAllBitsOfTheEditFlags)
{
    InTransaction([&] {
        SetVersion(1);
        AddOpen({.id = 1, .type = E_PROP_DT_LONG});
        EXPECT_TRUE(Load(OLESTR("~1lFFFFFFFF|35")).success);
        EXPECT_EQ(EditFlagsOf(1), -1);
        EXPECT_TRUE(Load(OLESTR("~1l 1f rest|35")).success);
        EXPECT_EQ(EditFlagsOf(1), 0x1F);
        EXPECT_TRUE(Load(OLESTR("~1h36")).success); // says nothing about them
        EXPECT_EQ(EditFlagsOf(1), 0x1F);
    });
}

TEST_F(LoadEdges, UndoEscapesOfTheWholeRecordBeforeTheyReadIt)
{
    InTransaction([&] {
        SetVersion(1);
        const auto property = AddOpen({.id = 1, .type = E_PROP_DT_STATEMENT});
        EXPECT_TRUE(Load(OLESTR("~1l5\\&nx\\\\$y")).success); // an escaped bar ends the edit flags as well
        EXPECT_EQ(EditFlagsOf(1), 5);
        EXPECT_EQ(StringOf(property), OLESTR("x\\~y"));
    });
}

TEST_F(LoadEdges, QuoteTheRecordWithoutItsEscapesAndTheTextWithThem)
{
    InTransaction([&] {
        SetVersion(0);
        AddOpen({.id = 1, .type = E_PROP_DT_LINEAR});
        constexpr TextView kLine = OLESTR("~~1\\$,1|");
        EXPECT_EQ(FaultOf(kLine), Message(OLESTR("Value not found - token 1~,1|."), kLine));
    });
}

TEST_F(LoadEdges, LetFiveTypesAloneComeEmpty)
{
    InTransaction([&] {
        EXPECT_EQ(collection->put_SaveEditFlags(VARIANT_FALSE), S_OK);
        for (const Golden& golden : kGolden)
            AddOpen({.id = 0x400 + golden.type, .type = golden.type});
        AddOpen({.id = 0x400 + E_PROP_DT_STRING_UNICODE, .type = E_PROP_DT_STRING_UNICODE});
        SetVersion(1);
        EXPECT_TRUE(Load(OLESTR("~405h5~406h6~40bhl~40fhp~412hs")).success);
        for (const TextView record :
             {OLESTR("401h1"), OLESTR("402h2"), OLESTR("403h3"), OLESTR("404h4"), OLESTR("407h7"), OLESTR("408h8"),
              OLESTR("409h9"), OLESTR("40ahk"), OLESTR("40chm"), OLESTR("40dhn"), OLESTR("40eho"), OLESTR("410hq"),
              OLESTR("411hr"), OLESTR("413ht")}) {
            const Text line = Text(OLESTR("~")) + Text(record);
            EXPECT_EQ(FaultOf(line),
                      Message(Text(OLESTR("Value not found - token ")) + Text(record) + OLESTR("."), line));
        }
    });
}

TEST_F(LoadEdges, LetTheSameFiveTypesComeEmptyFromTheOldFormat)
{
    InTransaction([&] {
        AddOpen({.id = 1, .type = E_PROP_DT_MULTI_STRING_UNICODE});
        AddOpen({.id = 2, .type = E_PROP_DT_STATEMENT});
        AddOpen({.id = 3, .type = E_PROP_DT_CATEGORY});
        SetVersion(0);
        EXPECT_TRUE(Load(OLESTR("~1,1|~3,1|")).success);
        EXPECT_EQ(FaultOf(OLESTR("~2,1|")), Message(OLESTR("Value not found - token 2,1|."), OLESTR("~2,1|")));
    });
}

TEST_F(LoadEdges, ReadTheOldFormatByTheTypeOfTheProperty)
{
    InTransaction([&] {
        SetVersion(0);
        const auto choice = AddOpen({.id = 1, .type = E_PROP_DT_ENUM});
        const auto path = AddOpen({.id = 2, .type = E_PROP_DT_SCAN_PATH_LIST});
        EXPECT_TRUE(Load(OLESTR("~1,1|fffff~2,3|1,2,3#4,5,6")).success);
        EXPECT_EQ(LongOf(choice), 0xFFFF);
        EXPECT_EQ(StringOf(path), OLESTR("2 path points"));
        // A blank ahead of the comma ends the scan, so that the flags are 0.
        EXPECT_TRUE(Load(OLESTR("~2 ,3|1,2,3")).success);
        EXPECT_FALSE(FlagOf(path, &IqorProperty::IsReadOnly));
        EXPECT_FALSE(FlagOf(path, &IqorProperty::IsVisible));
    });
}

TEST_F(LoadEdges, ConvertNothingAndHoldNoBound)
{
    InTransaction([&] {
        EXPECT_EQ(collection->SetUnitMode(E_IMPERIAL), S_OK);
        const auto property = AddOpen({.id = 1, .type = E_PROP_DT_LINEAR});
        SprpBoundsInfo bounds{};
        bounds.eUpperType = E_BOUND_CUSTOM;
        bounds.dbUpperBound = 1;
        EXPECT_EQ(property->SetPropertyBounds(&bounds), S_OK);
        SetVersion(1);
        EXPECT_TRUE(Load(OLESTR("~1h22e20")).success);
        EXPECT_EQ(DoubleOf(property), 2e20); // nor the limit of the number setter
    });
}

TEST_F(LoadEdges, EndAtARaiseWithWhatWasReadAheadOfIt)
{
    const auto number = Add(1, E_PROP_DT_LONG);
    const auto tolerance = Add(2, E_PROP_DT_TOLERANCE);
    const auto behind = Add(3, E_PROP_DT_LONG);
    const auto events = EventsOf([&] {
        SetVersion(1);
        EXPECT_EQ(LoadRaising(OLESTR("~1h35~63h37~2h76~3h38")), kInternalErrorCode);
        EXPECT_EQ(LongOf(number), 5);
        EXPECT_EQ(LongOf(behind), 0);
        EXPECT_FALSE(Exists(0x63)) << "nothing is kept by a load that does not come to its end";
        EXPECT_EQ(UnusedCategory(), -1);
        EXPECT_EQ(StringOf(tolerance), OLESTR("0"));

        // Events stay switched off: the value edit and the addition that switches them on again are lost.
        SetLong(number, 6);
        AddOpen({.id = 4, .type = E_PROP_DT_LONG});
        SetLong(number, 7);
    });
    EXPECT_THAT(events, ElementsAre(ValueEdit(1, OLESTR("6"))));
}

TEST_F(LoadEdges, AnnounceThemselvesWhileEventsAreSwitchedOff)
{
    Add(2, E_PROP_DT_TOLERANCE);
    const auto events = EventsOf([&] {
        SetVersion(1);
        EXPECT_EQ(LoadRaising(OLESTR("~2h76")), kInternalErrorCode);
        EprpPropError error = E_PROP_ERROR_NONE;
        EXPECT_EQ(collection->RemoveProperty(2, &error), S_OK); // unannounced
        EXPECT_TRUE(Load(OLESTR("~~")).success);
    });
    EXPECT_THAT(events, ElementsAre(EventSeen{E_PROP_EVENT_COLLECTION_LOADED, -1, 0, -1, true, false, {}}));
}

TEST_F(LoadEdges, RaiseForATextOfTheOldFormatWhereTheTypeIsNotSet)
{
    InTransaction([&] {
        SetVersion(0);
        AddOpen({.id = 1, .type = E_PROP_DT_NONE});
        ExpectInternal(LoadRaising(OLESTR("~1,1|x")));
    });
}

TEST_F(LoadEdges, AnnounceTheSecondCategoryButNotTheFirst)
{
    Add(0x401, E_PROP_DT_LONG);
    const auto events = EventsOf([&] {
        SetVersion(1);
        EXPECT_FALSE(Load(OLESTR("~401h21.5~7e8h35")).success);
    });
    EXPECT_THAT(events, ElementsAre(Added(0x7E8, 190), ValueEdit(0x7E8, OLESTR("0")), Added(191), Deleted(0x401),
                                    Added(0x401, 191), ValueEdit(0x401, OLESTR("0"))));
}

TEST_F(LoadEdges, MakeCategoriesThatAreShownReadOnlyAndNotSaved)
{
    InTransaction([&] {
        SetVersion(1);
        EXPECT_FALSE(Load(OLESTR("~7e8h35")).success);
        const auto category = PropertyOf(collection, 190);
        EXPECT_TRUE(FlagOf(category, &IqorProperty::IsVisible));
        EXPECT_TRUE(FlagOf(category, &IqorProperty::IsReadOnly));
        EXPECT_FALSE(FlagOf(category, &IqorProperty::GetAlwaysSave));
        EXPECT_EQ(EditFlagsOf(190), 0);
        EXPECT_EQ(ParentOf(190), E_PROP_ID_TOP_LEVEL);
        EprpPropDataType type = E_PROP_DT_NONE;
        EXPECT_EQ(category->GetDataType(&type), S_OK);
        EXPECT_EQ(type, E_PROP_DT_CATEGORY);
        LONG_PTR module = 0;
        EXPECT_EQ(category->GetHResModule(&module), S_OK);
        EXPECT_NE(module, 0);
        EXPECT_EQ(EditFlagsOf(0x7E8), 0);
    });
}

TEST_F(LoadEdges, UseAPropertyOfTheHostAsACategoryWhateverItsType)
{
    InTransaction([&] {
        SetVersion(1);
        const auto own = AddOpen({.id = 190, .type = E_PROP_DT_LONG});
        SetLong(own, 3);
        EXPECT_FALSE(Load(OLESTR("~7e8h35")).success);
        EXPECT_EQ(ParentOf(0x7E8), 190);
        EXPECT_EQ(LongOf(own), 3);
        EXPECT_EQ(UnusedCategory(), 190);
    });
}

TEST_F(LoadEdges, LoseACategoryThatIsToKeepARecordOfItsOwnId)
{
    InTransaction([&] {
        SetVersion(1);
        ExpectRefusal(LoadRaising(OLESTR("~beh35")), OLESTR("Invalid property ID passed in parameter \"nParentPropID\" "
                                                            "to the function \"CprpPropertyCollection::AddProperty\""));
        EXPECT_FALSE(Exists(190));
        EXPECT_EQ(UnusedCategory(), 190);

        AddOpen({.id = 191, .type = E_PROP_DT_LONG});
        EXPECT_TRUE(FAILED(LoadRaising(OLESTR("~bfh21.5"))));
        EXPECT_FALSE(Exists(191));
        EXPECT_EQ(MismatchedCategory(), 191);
    });
}

TEST_F(LoadEdges, KeepTheUnusedCategorysIdOfAnotherTypeAsAnyMismatch)
{
    InTransaction([&] {
        SetVersion(1);
        AddOpen({.id = 190, .type = E_PROP_DT_LONG});
        EXPECT_FALSE(Load(OLESTR("~beh21.5")).success);
        EXPECT_EQ(ParentOf(190), 191);
        EXPECT_EQ(DoubleOf(PropertyOf(collection, 190)), 1.5);
        EXPECT_EQ(UnusedCategory(), -1);
    });
}

TEST_F(LoadEdges, ReplaceTheFirstOfTwoKeptRecordsOfOneId)
{
    const auto help = MakeObject<IprpHelpInfo>(CLSID_prpHelpInfo);
    EXPECT_EQ(collection->AttachHelpInfo(help), S_OK);
    InTransaction([&] {
        SetVersion(1);
        EXPECT_FALSE(Load(OLESTR("~7e8h35~7e8h21.5")).success);
        EXPECT_EQ(DoubleOf(PropertyOf(collection, 0x7E8)), 1.5);
        EXPECT_EQ(SavedTextOf(collection), OLESTR("~7e8n0|21.5"));
        CComBSTR text;
        VARIANT_BOOL found = VARIANT_FALSE;
        EXPECT_EQ(help->GetHelpString(0, 0x7E8, &text, &found), S_OK);
        EXPECT_EQ(text.View(), OLESTR("Property 1000 expected data type is 'long' (saved data type is 'linear')"));
    });
}

TEST_F(LoadEdges, RefuseToReplaceAPropertyThatAHostHolds)
{
    InTransaction([&] {
        SetVersion(1);
        const auto held = AddOpen({.id = 0x401, .type = E_PROP_DT_LONG});
        ExpectInternal(LoadRaising(OLESTR("~401h21.5")));
        EXPECT_TRUE(Exists(0x401)); // removed, and still there while it is held
        EXPECT_EQ(MismatchedCategory(), 191);
    });
}

TEST_F(LoadEdges, KeepAWideStringThatNoSaveCanWrite)
{
    InTransaction([&] {
        SetVersion(1);
        EXPECT_FALSE(Load(OLESTR("~7e8hptext")).success);
        EXPECT_EQ(StringOf(PropertyOf(collection, 0x7E8)), OLESTR("text"));
        VARIANT_BOOL success = VARIANT_FALSE;
        ExpectInternal(collection->SaveToStream(MakeStream(), &success));
    });
}

TEST_F(LoadEdges, TakeTheReadOnlyStateOfKeptDataFromTheNextText)
{
    InTransaction([&] {
        SetVersion(1);
        EXPECT_FALSE(Load(OLESTR("~7e8h35")).success);
        const auto kept = PropertyOf(collection, 0x7E8);
        EXPECT_TRUE(FlagOf(kept, &IqorProperty::IsReadOnly));
        EXPECT_TRUE(Load(OLESTR("~7e8h36")).success);
        EXPECT_FALSE(FlagOf(kept, &IqorProperty::IsReadOnly));
    });
}

TEST_F(LoadEdges, RaiseForATypeOutsideTheEnumerationWithItsPropertyMade)
{
    InTransaction([&] {
        SetVersion(1);
        ExpectInternal(LoadRaising(OLESTR("~7e8hzx")));
        EXPECT_TRUE(Exists(0x7E8));
        EprpPropDataType type = E_PROP_DT_NONE;
        EXPECT_EQ(PropertyOf(collection, 0x7E8)->GetDataType(&type), S_OK);
        EXPECT_EQ(static_cast<LONG>(type), 25);
    });
}

TEST_F(LoadEdges, KeepNothingOnAnotherThread)
{
    Add(1, E_PROP_DT_LONG);
    SetVersion(1);
    HRESULT known = E_FAIL, unknown = S_OK;
    std::thread([&] {
        EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
        EXPECT_EQ(collection->StartTransaction(-1), S_OK);
        known = collection->LoadFromStream(MakeStream(OLESTR("~1h35")), nullptr, nullptr);
        unknown = collection->LoadFromStream(MakeStream(OLESTR("~7e8h35")), nullptr, nullptr);
        EXPECT_EQ(collection->EndTransaction(VARIANT_FALSE), S_OK);
        CoUninitialize();
    }).join();
    EXPECT_EQ(known, S_OK);
    EXPECT_EQ(unknown, kInternalErrorCode);
    EXPECT_FALSE(Exists(190));
    EXPECT_EQ(UnusedCategory(), 190);
}

TEST_F(LoadEdges, ReadNoStreamThatHasNothingToRead)
{
    InTransaction([&] {
        SetVersion(1);
        const CComPtr<IqorStream> stream = MakeStream(OLESTR("~1h35"));
        ReadStrings(stream); // to its end
        CComPtr<IqorStream> errors = MakeStream();
        VARIANT_BOOL success = VARIANT_TRUE;
        EXPECT_EQ(collection->LoadFromStream(stream, errors, &success), S_OK);
        EXPECT_EQ(success, VARIANT_FALSE);
        EXPECT_THAT(ReadStrings(errors), ElementsAre(OLESTR("The stream is empty!")));
    });
    EXPECT_THAT(sink->Records(), IsEmpty());
}
