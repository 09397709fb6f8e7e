// Saving a collection as one line of text, and loading it back into a tree built anew.
#include "tests/core/PersistenceFixture.h"
#include "tests/support/PlainStream.h"

#include <random>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class EachType : public Persistence, public testing::WithParamInterface<Golden> {};

} // namespace

TEST_P(EachType, HasItsGoldenRecord)
{
    InTransaction([&] {
        const auto property = AddOpen({.id = 26, .type = GetParam().type});
        SetString(property, GetParam().value);
        EXPECT_EQ(SavedTextOf(collection), GetParam().record);
    });
}

TEST_P(EachType, SavesAgainWhatItLoadedIntoATreeBuiltAnew)
{
    if (GetParam().type == E_PROP_DT_NONE)
        return; // a record of no type is refused by every load
    Text saved;
    InTransaction([&] {
        SetString(AddOpen({.id = 26, .type = GetParam().type, .editFlags = 0x2B}), GetParam().value);
        saved = SavedTextOf(collection);
    });
    const auto second = MakeObject<IqorPropertyCollection>(CLSID_prpPropertyCollection);
    Transact(second, [&] {
        EXPECT_EQ(AddTo(second, {.id = 26, .type = GetParam().type, .readOnly = VARIANT_TRUE}), S_OK);
        EXPECT_EQ(second->put_LoadVersion(1), S_OK);
        VARIANT_BOOL success = VARIANT_FALSE;
        EXPECT_EQ(second->LoadFromStream(MakeStream(saved), nullptr, &success), S_OK);
        EXPECT_EQ(success, VARIANT_TRUE);
        EXPECT_EQ(SavedTextOf(second), saved);
    });
}

INSTANTIATE_TEST_SUITE_P(Records, EachType, testing::ValuesIn(kGolden),
                         [](const auto& each) { return "Type" + std::to_string(each.param.type); });

TEST_F(Persistence, WritesTheExampleOfAnInteger)
{
    InTransaction([&] {
        SetLong(AddOpen({.id = 26, .type = E_PROP_DT_LONG, .editFlags = 1}), 5);
        EXPECT_EQ(SavedTextOf(collection), OLESTR("~1al1|35"));
    });
}

TEST_F(Persistence, WritesFlagsForVisibleAndReadOnlyAndLeavesOutWhatIsSwitchedOff)
{
    InTransaction([&] {
        AddOpen({.id = 1, .type = E_PROP_DT_LONG, .editFlags = 0xAB, .readOnly = VARIANT_TRUE});
        AddOpen({.id = 2, .type = E_PROP_DT_LONG, .visible = VARIANT_FALSE});
        AddOpen({.id = 3, .type = E_PROP_DT_LONG, .alwaysSave = VARIANT_FALSE});
        EXPECT_EQ(SavedTextOf(collection), OLESTR("~2k0|30~1nAB|30"));
        EXPECT_EQ(collection->put_SaveReadOnlyStates(VARIANT_FALSE), S_OK);
        EXPECT_EQ(SavedTextOf(collection), OLESTR("~2k0|30~1lAB|30"));
        EXPECT_EQ(collection->put_SaveEditFlags(VARIANT_FALSE), S_OK);
        EXPECT_EQ(SavedTextOf(collection), OLESTR("~2g30~1h30"));
    });
}

TEST_F(Persistence, WritesBucketsAscendingAndTheNewestOfABucketFirst)
{
    // Buckets are (id / 16) mod 17: 16 is in bucket 1, 17 too; 288 is in bucket 1 as well; 272 is in bucket 0.
    InTransaction([&] {
        EXPECT_EQ(collection->put_SaveEditFlags(VARIANT_FALSE), S_OK);
        for (const LONG id : {16, 1, 17, 288, 272, 271, 32})
            AddOpen({.id = id, .type = E_PROP_DT_LONG});
        EXPECT_EQ(SavedTextOf(collection), OLESTR("~110h30~1h30~120h30~11h30~10h30~20h30~10fh30"));
    });
}

TEST_F(Persistence, PutsAnIdThatIsAddedAgainAtTheHeadOfItsBucket)
{
    InTransaction([&] {
        EXPECT_EQ(collection->put_SaveEditFlags(VARIANT_FALSE), S_OK);
        AddOpen({.id = 1, .type = E_PROP_DT_LONG});
        AddOpen({.id = 2, .type = E_PROP_DT_LONG});
        EprpPropError error = E_PROP_ERROR_NONE;
        EXPECT_EQ(collection->RemoveProperty(1, &error), S_OK);
        AddOpen({.id = 1, .type = E_PROP_DT_LONG});
        EXPECT_EQ(SavedTextOf(collection), OLESTR("~1h30~2h30"));
    });
}

TEST_F(Persistence, SavesARemovedPropertyThatAHostHolds)
{
    InTransaction([&] {
        const auto held = AddOpen({.id = 1, .type = E_PROP_DT_LONG});
        EprpPropError error = E_PROP_ERROR_NONE;
        EXPECT_EQ(collection->RemoveProperty(1, &error), S_OK);
        EXPECT_EQ(SavedTextOf(collection), OLESTR("~1l0|30"));
    });
}

TEST_F(Persistence, RefusesToSaveAWideStringWithNothingWritten)
{
    InTransaction([&] {
        AddOpen({.id = 1, .type = E_PROP_DT_STRING_UNICODE});
        CComPtr<IqorStream> stream = MakeStream();
        VARIANT_BOOL success = VARIANT_TRUE;
        ExpectInternal(collection->SaveToStream(stream, &success));
        EXPECT_EQ(success, VARIANT_FALSE);
        LONG items = 7;
        EXPECT_EQ(stream->GetItemCount(&items), S_OK);
        EXPECT_EQ(items, 0);
    });
}

TEST_F(Persistence, SavesAnEmptyCollectionAsAnEmptyLineThatLoadsAsAnEmptyStream)
{
    InTransaction([&] {
        EXPECT_EQ(SavedTextOf(collection), OLESTR(""));
        SetVersion(1);
        EXPECT_EQ(FaultOf(OLESTR("")), OLESTR("The stream is empty!"));
    });
    EXPECT_THAT(sink->Records(), IsEmpty());
}

TEST_F(Persistence, LoadsWithoutErrorStreamAndWithoutSuccess)
{
    InTransaction([&] {
        const auto property = AddOpen({.id = 1, .type = E_PROP_DT_LONG});
        SetVersion(1);
        EXPECT_EQ(collection->LoadFromStream(MakeStream(OLESTR("~1h35~zz")), nullptr, nullptr), S_OK);
        EXPECT_EQ(LongOf(property), 5);
    });
}

TEST_F(Persistence, AnnouncesALoadByOneEventHoweverMuchChanged)
{
    Add(1, E_PROP_DT_LONG);
    Add(2, E_PROP_DT_LINEAR);
    const auto events = EventsOf([&] {
        SetVersion(1);
        EXPECT_TRUE(Load(OLESTR("~1i37~2i22.5")).success);
    });
    const EventSeen loaded{E_PROP_EVENT_COLLECTION_LOADED, -1, 0, -1, true, false, {}};
    EXPECT_THAT(events, ElementsAre(loaded));
}

TEST_F(Persistence, AnnouncesNoLoadThatHasAFault)
{
    Add(1, E_PROP_DT_LONG);
    const auto events = EventsOf([&] {
        SetVersion(1);
        EXPECT_FALSE(Load(OLESTR("~1h37~1h")).success);
    });
    EXPECT_THAT(events, IsEmpty());
}

TEST_F(Persistence, TakesATextOfMarkersAloneAsALoadOfNoRecords)
{
    const auto events = EventsOf([&] {
        SetVersion(1);
        EXPECT_TRUE(Load(OLESTR("~~~")).success);
    });
    EXPECT_EQ(events.size(), 1U);
}

TEST_F(Persistence, TakesTextAheadOfTheFirstMarkerAsARecord)
{
    InTransaction([&] {
        const auto property = AddOpen({.id = 1, .type = E_PROP_DT_LONG});
        SetVersion(1);
        EXPECT_TRUE(Load(OLESTR("1h35")).success);
        EXPECT_EQ(LongOf(property), 5);
    });
}

TEST_F(Persistence, FailsEachRecordWhenNoVersionWasSet)
{
    InTransaction([&] {
        AddOpen({.id = 1, .type = E_PROP_DT_LONG});
        const Loaded loaded = Load(OLESTR("~1h35~1h36"));
        const Text message = Message(OLESTR("Unknown property version"), OLESTR("~1h35~1h36"));
        EXPECT_THAT(loaded.messages, ElementsAre(message, message));
    });
}

TEST_F(Persistence, ReportsEachFaultOfARecordInItsOwnWords)
{
    InTransaction([&] {
        SetVersion(1);
        AddOpen({.id = 1, .type = E_PROP_DT_LONG});
        AddOpen({.id = 2, .type = E_PROP_DT_NONE});
        const auto expectFault = [&](TextView line, TextView fault) { EXPECT_EQ(FaultOf(line), Message(fault, line)); };
        expectFault(OLESTR("~h35"), OLESTR("Invalid property string"));
        expectFault(OLESTR("~1"), OLESTR("Invalid property string"));
        expectFault(OLESTR("~?h35"), OLESTR("Propertyid failed"));
        expectFault(OLESTR("~?"), OLESTR("Propertyid failed"));
        expectFault(OLESTR("~1h3"), OLESTR("Value not found - token 1h3."));
        expectFault(OLESTR("~1h"), OLESTR("Value not found - token 1h."));
        expectFault(OLESTR("~1h05"), OLESTR("Invalid data type"));
        expectFault(OLESTR("~1ha5"), OLESTR("Invalid data type"));
        expectFault(OLESTR("~1l35"), OLESTR("Invalid data type"));
        expectFault(OLESTR("~1lx|35"), OLESTR("Invalid data type"));
        expectFault(OLESTR("~2h35"), OLESTR("Invalid data type"));
    });
}

TEST_F(Persistence, FindsAnEmptyValueBeforeItMissesTheProperty)
{
    InTransaction([&] {
        SetVersion(1);
        EXPECT_EQ(FaultOf(OLESTR("~63hn")), Message(OLESTR("Value not found - token 63hn."), OLESTR("~63hn")));
        EXPECT_EQ(UnusedCategory(), -1);
    });
}

TEST_F(Persistence, ReadsLettersOfEitherCase)
{
    InTransaction([&] {
        const auto property = AddOpen({.id = 0x1A, .type = E_PROP_DT_ENUM, .readOnly = VARIANT_TRUE});
        SetVersion(1);
        EXPECT_TRUE(Load(OLESTR("~1AKab|K1F")).success);
        EXPECT_EQ(LongOf(property), 0x1F);
        EXPECT_FALSE(FlagOf(property, &IqorProperty::IsVisible));
        EXPECT_FALSE(FlagOf(property, &IqorProperty::IsReadOnly));
        LONG flags = 0;
        EXPECT_EQ(property->GetEditFlags(&flags), S_OK);
        EXPECT_EQ(flags, 0xAB);
    });
}

TEST_F(Persistence, CutsEnumerationValuesTo16BitsAndKeepsTheValueWhenNothingIsRead)
{
    InTransaction([&] {
        const auto property = AddOpen({.id = 1, .type = E_PROP_DT_ENUM});
        SetVersion(1);
        EXPECT_TRUE(Load(OLESTR("~1hkffffffff")).success);
        EXPECT_EQ(LongOf(property), 65535);
        EXPECT_TRUE(Load(OLESTR("~1hk?")).success);
        EXPECT_EQ(LongOf(property), 65535);
    });
}

TEST_F(Persistence, TakesNegativeEditFlagsAsTheirBits)
{
    InTransaction([&] {
        AddOpen({.id = 1, .type = E_PROP_DT_LONG});
        SetVersion(1);
        EXPECT_TRUE(Load(OLESTR("~1l-1|35")).success);
        EXPECT_EQ(SavedTextOf(collection), OLESTR("~1lFFFFFFFF|35"));
    });
}

TEST_F(Persistence, CountsANumberThatCannotBeReadAsTakenAndAppliesItsFlags)
{
    InTransaction([&] {
        const auto property = AddOpen({.id = 1, .type = E_PROP_DT_LINEAR});
        SetDouble(property, 2.5);
        SetVersion(1);
        EXPECT_TRUE(Load(OLESTR("~1g2abc")).success);
        EXPECT_EQ(DoubleOf(property), 2.5);
        EXPECT_FALSE(FlagOf(property, &IqorProperty::IsVisible));
    });
}

TEST_F(Persistence, ClearsReadOnlyStatesByATextSavedWithoutThem)
{
    InTransaction([&] {
        const auto property = AddOpen({.id = 1, .type = E_PROP_DT_LONG, .editFlags = 5, .readOnly = VARIANT_TRUE});
        EXPECT_EQ(collection->put_SaveReadOnlyStates(VARIANT_FALSE), S_OK);
        EXPECT_EQ(collection->put_SaveEditFlags(VARIANT_FALSE), S_OK);
        const Text saved = SavedTextOf(collection);
        SetVersion(1);
        EXPECT_TRUE(Load(saved).success);
        EXPECT_FALSE(FlagOf(property, &IqorProperty::IsReadOnly));
        LONG flags = 0;
        EXPECT_EQ(property->GetEditFlags(&flags), S_OK);
        EXPECT_EQ(flags, 5);
    });
}

TEST_F(Persistence, KeepsTextsWithMarkersAndBarsButNotTheEscapesThemselves)
{
    InTransaction([&] {
        const auto property = AddOpen({.id = 1, .type = E_PROP_DT_STRING_ANSI});
        SetVersion(1);
        for (const auto& [text, back] : std::vector<std::pair<TextView, TextView>>{
                 {OLESTR("a~b|c"), OLESTR("a~b|c")}, {OLESTR("a\\$b"), OLESTR("a~b")}, {OLESTR("\\"), OLESTR("\\")}}) {
            SetString(property, text);
            const Text saved = SavedTextOf(collection);
            SetString(property, OLESTR("other"));
            EXPECT_TRUE(Load(saved).success);
            EXPECT_EQ(StringOf(property), back);
        }
    });
}

TEST_F(Persistence, LeavesPropertiesThatTheTextDoesNotMentionAsTheyWere)
{
    InTransaction([&] {
        const auto mentioned = AddOpen({.id = 1, .type = E_PROP_DT_LONG});
        const auto other = AddOpen({.id = 2, .type = E_PROP_DT_LONG});
        SetLong(other, 9);
        SetVersion(1);
        EXPECT_TRUE(Load(OLESTR("~1h35")).success);
        EXPECT_EQ(LongOf(mentioned), 5);
        EXPECT_EQ(LongOf(other), 9);
    });
}

TEST_F(Persistence, KeepsAnUnknownRecordUnderItsCategoryAndSavesItAgain)
{
    InTransaction([&] {
        SetVersion(1);
        EXPECT_EQ(UnusedCategory(), -1);
        EXPECT_EQ(FaultOf(OLESTR("~7e8h5text\\$with")),
                  Message(OLESTR("Property not found"), OLESTR("~7e8h5text\\$with")));
        EXPECT_EQ(UnusedCategory(), 190);
        EXPECT_EQ(MismatchedCategory(), -1);
        const auto kept = PropertyOf(collection, 0x7E8);
        EXPECT_EQ(StringOf(kept), OLESTR("text~with"));
        EXPECT_EQ(NameOf(kept), OLESTR("string"));
        EXPECT_TRUE(FlagOf(kept, &IqorProperty::IsReadOnly));
        LONG parent = 0;
        EXPECT_EQ(kept->GetParentProperty(&parent), S_OK);
        EXPECT_EQ(parent, 190);
        EXPECT_EQ(NameOf(PropertyOf(collection, 190)), OLESTR("Unused saved data"));
        EXPECT_EQ(SavedTextOf(collection), OLESTR("~7e8n0|5text\\$with"));

        // The second round finds the kept property with the right type.
        EXPECT_TRUE(Load(SavedTextOf(collection)).success);
        EXPECT_EQ(SavedTextOf(collection), OLESTR("~7e8n0|5text\\$with"));
    });
}

TEST_F(Persistence, ReplacesAPropertyOfAnotherTypeByTheKeptOne)
{
    InTransaction([&] {
        AddOpen({.id = 0x401, .type = E_PROP_DT_LONG});
        SetVersion(1);
        EXPECT_EQ(FaultOf(OLESTR("~401h21.5")), Message(OLESTR("Data type mismatch"), OLESTR("~401h21.5")));
        EXPECT_EQ(MismatchedCategory(), 191);
        const auto kept = PropertyOf(collection, 0x401);
        EXPECT_EQ(DoubleOf(kept), 1.5);
        EXPECT_EQ(NameOf(kept), OLESTR("linear"));
        EXPECT_EQ(NameOf(PropertyOf(collection, 191)), OLESTR("Mismatched saved data"));
    });
}

TEST_F(Persistence, ExplainsKeptDataThroughTheHelpObject)
{
    const auto help = MakeObject<IprpHelpInfo>(CLSID_prpHelpInfo);
    EXPECT_EQ(collection->AttachHelpInfo(help), S_OK);
    InTransaction([&] {
        AddOpen({.id = 0x401, .type = E_PROP_DT_LONG});
        AddOpen({.id = 5, .type = E_PROP_DT_LONG});
        SetVersion(1);
        EXPECT_FALSE(Load(OLESTR("~401h21.5~5h21~402h35~6h35")).success);
        const auto helpOf = [&](LONG id) {
            CComBSTR text;
            VARIANT_BOOL found = VARIANT_FALSE;
            EXPECT_EQ(help->GetHelpString(77, id, &text, &found), S_OK);
            return Text(text.View());
        };
        EXPECT_EQ(helpOf(0x401), OLESTR("Property 1 expected data type is 'long' (saved data type is 'linear')"));
        EXPECT_EQ(helpOf(5), OLESTR("Property 5 expected data type is 'long' (saved data type is 'linear')"));
        EXPECT_EQ(helpOf(0x402), OLESTR("Property 2 is no longer in use (saved data type is 'long')"));
        EXPECT_EQ(helpOf(6), OLESTR("Property -1018 is no longer in use (saved data type is 'long')"));
    });
}

TEST_F(Persistence, TakesPropertiesAwayThatAreLinkedToAKeptOne)
{
    InTransaction([&] {
        AddOpen({.id = 0x401, .type = E_PROP_DT_LONG});
        AddOpen({.id = 0x402, .type = E_PROP_DT_LONG, .linked = 0x401});
        AddOpen({.id = 0x403, .type = E_PROP_DT_LONG});
        SetVersion(1);
        EXPECT_FALSE(Load(OLESTR("~401h21.5")).success);
        VARIANT_BOOL exists = VARIANT_TRUE;
        EXPECT_EQ(collection->PropertyExists(0x402, &exists), S_OK);
        EXPECT_EQ(exists, VARIANT_FALSE);
        EXPECT_EQ(collection->PropertyExists(0x403, &exists), S_OK);
        EXPECT_EQ(exists, VARIANT_TRUE);
    });
}

TEST_F(Persistence, EndsALoadThatMustKeepARecordWithAnInvalidIdByARaise)
{
    InTransaction([&] {
        SetVersion(1);
        VARIANT_BOOL success = 9;
        ExpectInvalidId(collection->LoadFromStream(MakeStream(OLESTR("~0h35")), nullptr, &success));
        EXPECT_EQ(success, 9);
        EXPECT_EQ(UnusedCategory(), 190);
    });
}

TEST_F(Persistence, EndsALoadOfATypeBelowZeroByTheMessageOnNegativeParameters)
{
    InTransaction([&] {
        SetVersion(1);
        ExpectNegative(collection->LoadFromStream(MakeStream(OLESTR("~7e8h?x")), nullptr, nullptr));
    });
}

TEST_F(Persistence, QueuesEventsFromTheFirstCategoryMadeOn)
{
    const auto events = EventsOf([&] {
        SetVersion(1);
        EXPECT_FALSE(Load(OLESTR("~7e8h35")).success);
    });
    // The category's own event is lost, the kept property's are not.
    EXPECT_THAT(events, ElementsAre(Added(0x7E8, 190), ValueEdit(0x7E8, OLESTR("0"))));
}

TEST_F(Persistence, ReadsTheOldFormat)
{
    InTransaction([&] {
        SetVersion(0);
        const auto number = AddOpen({.id = 0x1A, .type = E_PROP_DT_LINEAR});
        const auto choice = AddOpen({.id = 2, .type = E_PROP_DT_ENUM});
        const auto lines = AddOpen({.id = 3, .type = E_PROP_DT_MULTI_STRING_UNICODE});
        EXPECT_TRUE(Load(OLESTR("~1001A,3|12.5~2,1|10002~3,1|a#b")).success);
        EXPECT_EQ(DoubleOf(number), 12.5);
        EXPECT_TRUE(FlagOf(number, &IqorProperty::IsReadOnly));
        EXPECT_EQ(LongOf(choice), 2);
        EXPECT_EQ(StringOf(lines), OLESTR("a\r\nb"));
    });
}

TEST_F(Persistence, ReportsFaultsOfTheOldFormatWithTheCutIdAndKeepsNothing)
{
    InTransaction([&] {
        SetVersion(0);
        const auto property = AddOpen({.id = 1, .type = E_PROP_DT_LINEAR});
        const auto expectFault = [&](TextView line, TextView fault) { EXPECT_EQ(FaultOf(line), Message(fault, line)); };
        expectFault(OLESTR("~1,1"), OLESTR("PropertyID -1 was not found in the collection."));
        expectFault(OLESTR("~?,1|5"), OLESTR("PropertyID -1 was not found in the collection."));
        expectFault(OLESTR("~|5"), OLESTR("PropertyID -1 was not found in the collection."));
        expectFault(OLESTR("~10002,1|5"), OLESTR("PropertyID 2 was not found in the collection."));
        expectFault(OLESTR("~2,1|"), OLESTR("PropertyID 2 was not found in the collection."));
        expectFault(OLESTR("~1,1|"), OLESTR("Value not found - token 1,1|."));
        EXPECT_EQ(UnusedCategory(), -1);
        EXPECT_TRUE(Load(OLESTR("~1|5")).success); // a lone id has no flags: hidden
        EXPECT_FALSE(FlagOf(property, &IqorProperty::IsVisible));
    });
}

TEST_F(Persistence, RefusesALoadVersionThatIsNoneAndGivesTheMarker)
{
    ExpectInternal(collection->put_LoadVersion(-1));
    ExpectInternal(collection->put_LoadVersion(2));
    CComBSTR marker;
    EXPECT_EQ(collection->get_StartMarker(&marker), S_OK);
    EXPECT_EQ(marker.View(), OLESTR("~"));
    ExpectBstrNotNull(collection->get_StartMarker(&marker), OLESTR("CprpPropertyCollection::get_StartMarker"),
                      OLESTR("pbstrStartMarker"));
}

TEST_F(Persistence, ChecksPointersAndTransactionInTheirOrder)
{
    CComPtr<IqorStream> stream = MakeStream();
    ExpectNullPointer(collection->SaveToStream(nullptr, nullptr), OLESTR("CprpPropertyCollection::SaveToStream"),
                      OLESTR("pIStream"));
    ExpectNullPointer(collection->SaveToStream(stream, nullptr), OLESTR("CprpPropertyCollection::SaveToStream"),
                      OLESTR("pbSuccess"));
    VARIANT_BOOL success = VARIANT_FALSE;
    ExpectNoTransaction(collection->SaveToStream(stream, &success));
    ExpectNoTransaction(collection->LoadFromStream(nullptr, nullptr, nullptr));
    InTransaction([&] {
        ExpectNullPointer(collection->LoadFromStream(nullptr, nullptr, nullptr),
                          OLESTR("CprpPropertyCollection::LoadFromStream"), OLESTR("pIStream"));
    });
}

TEST_F(Persistence, SurvivesATextCutAtEveryPlace)
{
    Text saved;
    InTransaction([&] {
        LONG id = 0x400;
        for (const Golden& golden : kGolden) {
            const auto property = AddOpen({.id = ++id, .type = golden.type});
            if (golden.type != E_PROP_DT_NONE)
                SetString(property, golden.value);
        }
        saved = SavedTextOf(collection);
        SetVersion(1);
    });
    for (std::size_t length = 0; length <= saved.size(); ++length) {
        const auto cut = MakeObject<IqorPropertyCollection>(CLSID_prpPropertyCollection);
        Transact(cut, [&] {
            EXPECT_EQ(cut->put_LoadVersion(1), S_OK);
            EXPECT_EQ(AddTo(cut, {.id = 0x402, .type = E_PROP_DT_ANGLE}), S_OK);
            const HRESULT hr = cut->LoadFromStream(MakeStream(TextView(saved).substr(0, length)), nullptr, nullptr);
            EXPECT_TRUE(hr == S_OK || FAILED(hr));
            const double angle = DoubleOf(PropertyOf(cut, 0x402));
            EXPECT_TRUE(angle == 0 || (angle >= 1 && angle <= 1.2346)) << angle << " at " << length;
        });
    }
}

TEST_F(Persistence, LoadsARecordOfAMebibyte)
{
    InTransaction([&] {
        const auto property = AddOpen({.id = 1, .type = E_PROP_DT_STATEMENT});
        SetVersion(1);
        const Text value(std::size_t{1} << 20, OLECHAR{'x'});
        EXPECT_TRUE(Load(OLESTR("~1hn") + value).success);
        EXPECT_EQ(StringOf(property), value);
        EXPECT_EQ(SavedTextOf(collection), OLESTR("~1l0|n") + value);
    });
}

TEST_F(Persistence, TakesIdsUpToTheEndOf32BitsAndRefusesToKeepNegativeOnes)
{
    InTransaction([&] {
        const auto last = AddOpen({.id = 0x7FFFFFFF, .type = E_PROP_DT_LONG});
        SetVersion(1);
        EXPECT_TRUE(Load(OLESTR("~7fffffffh35")).success);
        EXPECT_EQ(LongOf(last), 5);
        ExpectInvalidId(collection->LoadFromStream(MakeStream(OLESTR("~80000000h35")), nullptr, nullptr));
        ExpectInvalidId(collection->LoadFromStream(MakeStream(OLESTR("~ffffffffh35")), nullptr, nullptr));
    });
}

TEST_F(Persistence, LeavesAPropertyAloneThatARandomTextDoesNotReach)
{
    std::mt19937 random(7);
    for (int round = 0; round < 3000; ++round) {
        const auto target = MakeObject<IqorPropertyCollection>(CLSID_prpPropertyCollection);
        Transact(target, [&] {
            EXPECT_EQ(target->put_LoadVersion(round % 2), S_OK);
            EXPECT_EQ(AddTo(target, {.id = 0x12345678, .type = E_PROP_DT_LINEAR}), S_OK);
            SetDouble(PropertyOf(target, 0x12345678), 2.5);
            static constexpr TextView kUnits = OLESTR("~|0123456789abcdefghijklmn,.;#\\$&gGkK");
            Text text;
            for (std::size_t length = random() % 200; length > 0; --length)
                text += random() % 16 == 0 ? static_cast<OLECHAR>(random()) : kUnits[random() % kUnits.size()];
            const HRESULT hr = target->LoadFromStream(MakeStream(text), nullptr, nullptr);
            EXPECT_TRUE(hr == S_OK || FAILED(hr));
            EXPECT_EQ(DoubleOf(PropertyOf(target, 0x12345678)), 2.5);
        });
    }
}

TEST_F(Persistence, TakesMessagesOnTheVeryStreamThatIsLoaded)
{
    InTransaction([&] {
        const auto property = AddOpen({.id = 1, .type = E_PROP_DT_LONG});
        SetVersion(1);
        Text line;
        std::vector<Text> messages;
        for (int i = 0; i < 300; ++i) // enough to move the content of any stream that grows
            line += OLESTR("~?h35");
        line += OLESTR("~1h37");
        const CComPtr<IqorStream> stream = MakeStream(line);
        EXPECT_EQ(collection->LoadFromStream(stream, stream, nullptr), S_OK);
        EXPECT_EQ(LongOf(property), 7);
        EXPECT_EQ(ReadStrings(stream), std::vector<Text>(300, Message(OLESTR("Propertyid failed"), line)));
    });
}

TEST_F(Persistence, SavesToAndLoadsFromAStreamOfAnotherMaker)
{
    InTransaction([&] {
        const auto property = AddOpen({.id = 1, .type = E_PROP_DT_STRING_ANSI});
        SetString(property, OLESTR("saved ~ text"));
        const CComPtr<IqorStream> own = MakeStream();
        const CComPtr<IqorStream> stream = PlainStream::Around(own);
        VARIANT_BOOL success = VARIANT_FALSE;
        EXPECT_EQ(collection->SaveToStream(stream, &success), S_OK);
        EXPECT_EQ(success, VARIANT_TRUE);
        EXPECT_THAT(ReadStrings(own), ElementsAre(SavedTextOf(collection)));

        SetString(property, OLESTR("other"));
        SetVersion(1);
        EStreamError error = E_STREAM_ERROR_NONE;
        EXPECT_EQ(stream->Seek(0, E_STREAM_ORIGIN_START, &error), S_OK);
        EXPECT_EQ(collection->LoadFromStream(stream, nullptr, &success), S_OK);
        EXPECT_EQ(success, VARIANT_TRUE);
        EXPECT_EQ(StringOf(property), OLESTR("saved ~ text"));
    });
}

TEST_F(Persistence, LeavesASavedTextOnItsStreamWhateverBecomesOfTheCollection)
{
    const CComPtr<IqorStream> stream = MakeStream();
    auto shortLived = MakeObject<IqorPropertyCollection>(CLSID_prpPropertyCollection);
    Transact(shortLived, [&] {
        ASSERT_EQ(AddTo(shortLived, {.id = 1, .type = E_PROP_DT_LONG}), S_OK);
        for (const LONG value : {5, 6}) {
            SetLong(PropertyOf(shortLived, 1), value);
            VARIANT_BOOL success = VARIANT_FALSE;
            EXPECT_EQ(shortLived->SaveToStream(stream, &success), S_OK);
        }
    });
    shortLived.Release();
    EXPECT_THAT(ReadStrings(stream), ElementsAre(OLESTR("~1l0|35"), OLESTR("~1l0|36")));
}

TEST_F(Persistence, SavesIntoATextStreamAsALine)
{
    const CComPtr<IqorStream> stream = MakeStream();
    EXPECT_EQ(stream->SetStreamMode(E_STREAM_MODE_TEXT), S_OK);
    InTransaction([&] {
        SetLong(AddOpen({.id = 1, .type = E_PROP_DT_LONG}), 5);
        VARIANT_BOOL success = VARIANT_FALSE;
        EXPECT_EQ(collection->SaveToStream(stream, &success), S_OK);
        CComBSTR content;
        EXPECT_EQ(stream->GetStreamContentsAsString(&content), S_OK);
        EXPECT_EQ(content.View(), OLESTR("~1l0|35\r\n"));
    });
}

TEST_F(Persistence, KeepsTheTextOfALoadedNumberAsItWasForAChangeOfType)
{
    InTransaction([&] {
        SetVersion(1);
        LONG id = 0;
        for (const TextView text :
             {OLESTR("1.5"), OLESTR("1.50"), OLESTR("01.5"), OLESTR("1.23456789"), OLESTR("-0")}) {
            const auto property = AddOpen({.id = ++id, .type = E_PROP_DT_LINEAR});
            SetDouble(property, 77);
            const OLECHAR digit = static_cast<OLECHAR>('0' + id);
            EXPECT_TRUE(Load(Text(OLESTR("~")).append(1, digit).append(OLESTR("h2")).append(text)).success);
            EXPECT_EQ(collection->put_Precision(2), S_OK);
            EXPECT_EQ(property->SetDataType(E_PROP_DT_STRING_ANSI), S_OK);
            EXPECT_EQ(StringOf(property), text);
            EXPECT_EQ(collection->put_Precision(4), S_OK);
        }
    });
}
