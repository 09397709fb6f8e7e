// The bytes of whole event streams, one setter after the other: what each of them queues, and which queue nothing. The
// expected bytes are put together here from their numbers, with no help from the records of the interface.
#include "tests/core/HostRule.h"
#include "tests/core/ModelFixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr LONG kId = 0x01020304;
constexpr LONG kOtherId = 0x11;
constexpr LONG kCollectionId = 0x0A0B;

using Bytes = std::vector<unsigned char>;

/// An event stream as it must be, built record by record.
class Trace {
public:
    Trace& State(bool visibilityChanged = false) { return Record(1, kId, -1, visibilityChanged, false); }
    /// A value edit and the text that the value had: the number of its bytes, then its units.
    Trace& Value(TextView oldText)
    {
        Record(1, kId, -1, false, true);
        Put32(static_cast<LONG>(2 * oldText.size()));
        for (const OLECHAR unit : oldText)
            Put16(unit);
        return *this;
    }
    Trace& Added(LONG id, LONG parent) { return Record(2, id, parent, false, false); }
    Trace& Deleted(LONG id) { return Record(3, id, -1, false, false); }
    Trace& Loaded() { return Record(4, -1, -1, true, false); }

    const Bytes& Whole() const { return m_bytes; }

private:
    Trace& Record(LONG type, LONG id, LONG long1, bool visibilityChanged, bool dataChanged)
    {
        Put32(type);
        Put32(id);
        Put32(kCollectionId);
        Put32(long1);
        Put16(visibilityChanged ? 0xFFFF : 0);
        Put16(dataChanged ? 0xFFFF : 0);
        return *this;
    }
    void Put16(unsigned value)
    {
        m_bytes.push_back(static_cast<unsigned char>(value));
        m_bytes.push_back(static_cast<unsigned char>(value >> 8));
    }
    void Put32(LONG value)
    {
        Put16(static_cast<uint32_t>(value) & 0xFFFF);
        Put16(static_cast<uint32_t>(value) >> 16);
    }

    Bytes m_bytes;
};

Bytes BytesOf(IqorStream* stream)
{
    LONG size = 0;
    EXPECT_EQ(stream->GetStreamSize(&size), S_OK);
    Bytes bytes(static_cast<std::size_t>(size));
    LONG read = 0;
    EStreamError error = E_STREAM_ERROR_NONE;
    EXPECT_EQ(stream->Seek(0, E_STREAM_ORIGIN_START, &error), S_OK);
    EXPECT_EQ(stream->Read(bytes.data(), size, &read, &error), S_OK);
    EXPECT_EQ(read, size);
    return bytes;
}

/// What a case works on: one property of the collection.
struct Stage {
    IqorPropertyCollection* collection;
    IqorProperty* property;
};

struct TraceCase {
    const char* name;
    EprpPropDataType type;
    void (*before)(const Stage&); ///< in a transaction of its own; null for none
    void (*act)(const Stage&);
    Trace expected; ///< empty: nothing is published at all
};

void Error(const Stage& stage, TextView text)
{
    EXPECT_EQ(stage.property->SetErrorString(Bstr(text)), S_OK);
}
void Warning(const Stage& stage, TextView text)
{
    EXPECT_EQ(stage.property->SetWarningString(Bstr(text)), S_OK);
}
void Item(const Stage& stage, SprpEnumItem item)
{
    EXPECT_EQ(stage.property->AddEnumItem(1, &item), S_OK);
}
void ItemText(const Stage& stage, TextView text)
{
    EXPECT_EQ(stage.property->AddEnumItemString(1, Bstr(text)), S_OK);
}
void Position(const Stage& stage, double x, bool force)
{
    EXPECT_EQ(stage.property->SetPropertyPosition({x, 2, 3}, force ? VARIANT_TRUE : VARIANT_FALSE), S_OK);
}
void Point(const Stage& stage, LONG index, double x, bool suppressed = false)
{
    VARIANT_BOOL changed = VARIANT_FALSE;
    EXPECT_EQ(stage.property->SetScanPathPointAt(index, SprgScanPathPoint{{x, 2, 3}},
                                                 suppressed ? VARIANT_TRUE : VARIANT_FALSE, &changed),
              S_OK);
}
void Tolerance(const Stage& stage, double nominal, double unselected = 0)
{
    SprpTolerance tolerance{};
    tolerance.eTolType = E_TOL_TYPE_LINEAR;
    tolerance.LinearTolInfo_X.dbNominalValue = nominal;
    tolerance.LinearTolInfo_Y.dbNominalValue = unselected;
    EXPECT_EQ(stage.property->SetPropertyTolerance(&tolerance), S_OK);
}
void WrongType(HRESULT hr, EprpPropError error)
{
    EXPECT_EQ(hr, S_OK);
    EXPECT_EQ(error, E_PROP_ERROR_WRONG_DATA_TYPE);
}

// clang-format off
const TraceCase kFlagTraces[] = {
    {"Valid", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { s.property->SetValid(VARIANT_FALSE); }, Trace().State()},
    {"ValidAsItWas", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { s.property->SetValid(1); }, {}},
    {"Warning", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { s.property->SetWarning(1); }, Trace().State()},
    {"WarningAsItWas", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { s.property->SetWarning(0); }, {}},
    {"Visible", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { s.property->SetVisible(0); }, Trace().State(true)},
    {"VisibleAsItWas", E_PROP_DT_LINEAR,
     [](const Stage& s) { s.property->SetVisibleForPostProc(0); },
     [](const Stage& s) { s.property->SetVisible(1); }, {}},
    {"VisibleForPostProc", E_PROP_DT_LINEAR, nullptr,
     [](const Stage& s) { s.property->SetVisibleForPostProc(0); }, Trace().State(true)},
    {"VisibleForPostProcAsItWas", E_PROP_DT_LINEAR,
     [](const Stage& s) { s.property->SetVisible(0); }, // takes both flags
     [](const Stage& s) { s.property->SetVisibleForPostProc(0); }, {}},
    {"ReadOnly", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { s.property->SetReadOnly(1); }, Trace().State()},
    {"ReadOnlyAsItWas", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { s.property->SetReadOnly(0); }, {}},
    {"LinkedProperty", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { s.property->SetLinkedProperty(9); }, Trace().State()},
    {"LinkedPropertyAsItWas", E_PROP_DT_LINEAR,
     [](const Stage& s) { s.property->SetLinkedProperty(9); },
     [](const Stage& s) { s.property->SetLinkedProperty(9); }, {}},
    {"AlwaysSave", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { s.property->SetAlwaysSave(0); }, Trace().State()},
    {"AlwaysSaveAsItWas", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { s.property->SetAlwaysSave(2); }, {}},
    {"ResModule", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { s.property->SetHResModule(9); }, Trace().State()},
    {"ResModuleAsItWas", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { s.property->SetHResModule(0); }, {}},
    {"EditFlags", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { s.property->SetEditFlags(-1); }, Trace().State()},
    {"EditFlagsAsTheyWere", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { s.property->SetEditFlags(0); }, {}},
    {"DetailsOfVisibility", E_PROP_DT_LINEAR, nullptr,
     [](const Stage& s) { s.property->SetDisplayDetails(1, 0, 0); }, Trace().State(true)},
    {"DetailsWithoutVisibility", E_PROP_DT_LINEAR, nullptr,
     [](const Stage& s) { s.property->SetDisplayDetails(0, 1, 1); }, Trace().State()},
    {"DetailsAsTheyWere", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { s.property->SetDisplayDetails(1, 1, 0); }, {}},
};

const TraceCase kTextTraces[] = {
    {"ErrorText", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { Error(s, OLESTR("Bad")); }, Trace().State()},
    {"ErrorTextOfOtherCase", E_PROP_DT_LINEAR,
     [](const Stage& s) { Error(s, OLESTR("Bad")); s.property->SetValid(1); },
     [](const Stage& s) { Error(s, OLESTR("BAD")); }, {}}, // although it makes the property invalid again
    {"ErrorTextOfNothingWhereThereIsNone", E_PROP_DT_LINEAR,
     [](const Stage& s) { s.property->SetValid(0); },
     [](const Stage& s) { EXPECT_EQ(s.property->SetErrorString(nullptr), S_OK); }, {}},
    {"WarningText", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { Warning(s, OLESTR("Near")); }, Trace().State()},
    {"WarningTextOfOtherCase", E_PROP_DT_LINEAR,
     [](const Stage& s) { Warning(s, OLESTR("Near")); },
     [](const Stage& s) { Warning(s, OLESTR("near")); }, {}},
    {"WarningTextTakenAway", E_PROP_DT_LINEAR,
     [](const Stage& s) { Warning(s, OLESTR("Near")); },
     [](const Stage& s) { EXPECT_EQ(s.property->SetWarningString(nullptr), S_OK); }, Trace().State()},
    {"EnumItem", E_PROP_DT_ENUM, nullptr, [](const Stage& s) { Item(s, {3, 0, VARIANT_TRUE}); }, Trace().State()},
    {"EnumItemAsItWas", E_PROP_DT_ENUM,
     [](const Stage& s) { Item(s, {3, 0, VARIANT_TRUE}); },
     [](const Stage& s) { Item(s, {3, 0, VARIANT_TRUE}); }, {}},
    {"EnumItemText", E_PROP_DT_ENUM,
     [](const Stage& s) { Item(s, {3, 0, VARIANT_TRUE}); },
     [](const Stage& s) { ItemText(s, OLESTR("Three")); ItemText(s, OLESTR("Three")); }, Trace().State().State()},
};

const TraceCase kNumberTraces[] = {
    {"Long", E_PROP_DT_LONG, [](const Stage& s) { SetLong(s.property, -7); },
     [](const Stage& s) { SetLong(s.property, 8); }, Trace().Value(OLESTR("-7"))},
    {"LongOfADword", E_PROP_DT_DWORD, [](const Stage& s) { SetLong(s.property, -1); },
     [](const Stage& s) { SetLong(s.property, 8); }, Trace().Value(OLESTR("4294967295"))},
    {"LongAsItWas", E_PROP_DT_ENUM, [](const Stage& s) { SetLong(s.property, 4); },
     [](const Stage& s) { SetLong(s.property, 4); }, {}},
    {"LongOfAnotherType", E_PROP_DT_DOUBLE, nullptr,
     [](const Stage& s) { EprpPropError e{}; const HRESULT hr = s.property->SetPropertyLong(8, &e); WrongType(hr, e); }, {}},
    {"Double", E_PROP_DT_LINEAR, [](const Stage& s) { SetDouble(s.property, 0.25); },
     [](const Stage& s) { SetDouble(s.property, 8); SetDouble(s.property, 9); },
     Trace().Value(OLESTR("0.25")).Value(OLESTR("8"))},
    {"DoubleOfAnAngle", E_PROP_DT_ANGLE, [](const Stage& s) { s.collection->put_Precision(1); SetDouble(s.property, 1.23456); },
     [](const Stage& s) { SetDouble(s.property, 8); }, Trace().Value(OLESTR("1.2346"))},
    {"DoubleCloserThanTheThreshold", E_PROP_DT_LINEAR, [](const Stage& s) { SetDouble(s.property, 1); },
     [](const Stage& s) { SetDouble(s.property, 1.00005); }, {}},
    {"DoubleOfAnotherType", E_PROP_DT_LONG, nullptr,
     [](const Stage& s) { EprpPropError e{}; const HRESULT hr = s.property->SetPropertyDouble(8, &e); WrongType(hr, e); }, {}},
    {"DoubleOfADateAboveTheLimit", E_PROP_DT_DATE, [](const Stage& s) { SetString(s.property, OLESTR("today")); },
     [](const Stage& s) { SetDouble(s.property, 2e14); }, Trace().Value(OLESTR("1e+14"))},
    {"Position", E_PROP_DT_POSITION, [](const Stage& s) { Position(s, 1, false); },
     [](const Stage& s) { Position(s, 4.5, false); }, Trace().Value(OLESTR("1;2;3"))},
    {"PositionForcedAsItWas", E_PROP_DT_POSITION, [](const Stage& s) { Position(s, 1, false); },
     [](const Stage& s) { Position(s, 1, true); }, {}},
    {"PositionTooCloseToShow", E_PROP_DT_VECTOR, [](const Stage& s) { s.collection->put_Precision(1); Position(s, 1, false); },
     [](const Stage& s) { Position(s, 1.001, false); }, {}},
    {"PositionOfANumber", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { Position(s, 1, true); }, {}},
    {"Tolerance", E_PROP_DT_TOLERANCE, [](const Stage& s) { Tolerance(s, 10); },
     [](const Stage& s) { Tolerance(s, 11); }, Trace().Value(OLESTR("1#0\xAC" "0\xAC" "10\xAC" "0\xAC" "0"))},
    {"ToleranceWithAChangeNobodySelects", E_PROP_DT_TOLERANCE, [](const Stage& s) { Tolerance(s, 10); },
     [](const Stage& s) { Tolerance(s, 10, 5); }, {}},
    {"ScanPathPoint", E_PROP_DT_SCAN_PATH_LIST, [](const Stage& s) { Point(s, 1, 1, true); },
     [](const Stage& s) { Point(s, 0, 5); }, Trace().Value(OLESTR("2 path points"))},
    {"ScanPathPointSuppressed", E_PROP_DT_SCAN_PATH_LIST, nullptr, [](const Stage& s) { Point(s, 0, 5, true); }, {}},
    {"ScanPathPointAsItWas", E_PROP_DT_SCAN_PATH_LIST, [](const Stage& s) { Point(s, 0, 5); },
     [](const Stage& s) { Point(s, 0, 5.00005); }, {}},
    {"ScanPathText", E_PROP_DT_SCAN_PATH_LIST, [](const Stage& s) { Point(s, 1, 1, true); },
     [](const Stage& s) { EXPECT_EQ(s.property->InitialiseScanPathFromString(Bstr(OLESTR("4,5,6"))), S_OK); },
     Trace().Value(OLESTR("    1.0000,    2.0000,    3.0000\r\n    1.0000,    2.0000,    3.0000"))},
    {"ScanPathRemovedWhereThereIsNone", E_PROP_DT_SCAN_PATH_LIST, nullptr,
     [](const Stage& s) { EXPECT_EQ(s.property->RemoveAllPathPoints(), S_OK); }, Trace().Value({})},
};

const TraceCase kValueTextTraces[] = {
    {"String", E_PROP_DT_STRING_UNICODE, [](const Stage& s) { SetString(s.property, OLESTR("Gr\xFC\xDF" "e \x20AC\xD83D\xDE00")); },
     [](const Stage& s) { SetString(s.property, OLESTR("new")); }, Trace().Value(OLESTR("Gr\xFC\xDF" "e \x20AC\xD83D\xDE00"))},
    {"StringOverAnEmptyOne", E_PROP_DT_STATEMENT, nullptr,
     [](const Stage& s) { SetString(s.property, OLESTR("a")); SetString(s.property, OLESTR("")); },
     Trace().Value({}).Value(OLESTR("a"))},
    {"StringThatComesOutAsItWas", E_PROP_DT_STRING_ANSI, [](const Stage& s) { SetString(s.property, OLESTR("Grose")); },
     [](const Stage& s) { SetString(s.property, OLESTR("Gr\xF6\xDF" "e")); }, Trace().Value(OLESTR("Grose"))},
    {"StringAsItWas", E_PROP_DT_LINEAR, [](const Stage& s) { SetDouble(s.property, 1.5); Error(s, OLESTR("Bad")); },
     [](const Stage& s) { SetString(s.property, OLESTR("1.5")); }, {}},
    {"StringThatClearsAnError", E_PROP_DT_LINEAR, [](const Stage& s) { SetDouble(s.property, 1.5); Error(s, OLESTR("Bad")); },
     [](const Stage& s) { SetString(s.property, OLESTR("1.50")); }, Trace().State().Value(OLESTR("1.5"))},
    {"StringWithoutANumber", E_PROP_DT_LONG, [](const Stage& s) { SetLong(s.property, 5); },
     [](const Stage& s) { SetString(s.property, OLESTR("x")); }, Trace().Value(OLESTR("5"))},
    {"StringThatIsEmptyForANumber", E_PROP_DT_ANGLE, [](const Stage& s) { SetDouble(s.property, 5); Error(s, OLESTR("Bad")); },
     [](const Stage& s) { SetString(s.property, OLESTR("")); }, Trace().Value(OLESTR("5"))},
    {"StringOfAScanPath", E_PROP_DT_SCAN_PATH_LIST, nullptr, [](const Stage& s) { SetString(s.property, OLESTR("1,2,3")); },
     Trace().Value({}).Value(OLESTR("0 path points"))},
    {"StringOfAPropertyWithoutAType", E_PROP_DT_NONE, [](const Stage& s) { Error(s, OLESTR("Bad")); },
     [](const Stage& s) { ExpectInternal(s.property->SetPropertyString(Bstr(OLESTR("x")))); }, Trace().State()},
    {"EverySetterInTurn", E_PROP_DT_LINEAR, nullptr,
     [](const Stage& s) {
         SetDouble(s.property, 1.5);
         s.property->SetVisible(0);
         Error(s, OLESTR("Bad"));
         SetString(s.property, OLESTR("2.5"));
         s.property->SetReadOnly(1);
     },
     Trace().Value(OLESTR("0")).State(true).State().State().Value(OLESTR("1.5")).State()},
};

const TraceCase kSilentTraces[] = {
    {"ParentProperty", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { EXPECT_EQ(s.property->SetParentProperty(99), S_OK); }, {}},
    {"DataType", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { EXPECT_EQ(s.property->SetDataType(E_PROP_DT_LONG), S_OK); }, {}},
    {"NoUnitConvert", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { EXPECT_EQ(s.property->SetNoUnitConvert(1), S_OK); }, {}},
    {"PropertyName", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { EXPECT_EQ(s.property->SetPropertyName(Bstr(OLESTR("a"))), S_OK); }, {}},
    {"PropertyNameResID", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { EXPECT_EQ(s.property->SetPropertyNameResID(5), S_OK); }, {}},
    {"ShownEnumItem", E_PROP_DT_ENUM, [](const Stage& s) { Item(s, {3, 0, VARIANT_TRUE}); },
     [](const Stage& s) { EXPECT_EQ(s.property->ShowEnumItem(1, VARIANT_FALSE), S_OK); }, {}},
    {"Bounds", E_PROP_DT_LINEAR, nullptr,
     [](const Stage& s) { SprpBoundsInfo b{}; b.nUpperBound = 5; EXPECT_EQ(s.property->SetPropertyBounds(&b), S_OK); }, {}},
    {"InvalidCharacters", E_PROP_DT_LINEAR, nullptr,
     [](const Stage& s) { EXPECT_EQ(s.property->SetInvalidCharacters(Bstr(OLESTR("~"))), S_OK); }, {}},
    {"ClearedVisibilityRule", E_PROP_DT_LINEAR,
     [](const Stage& s) { EXPECT_EQ(s.property->SetVisibilityInfo(MakeHostRule()), S_OK); },
     [](const Stage& s) { EXPECT_EQ(s.property->ClearVisibilityInfo(), S_OK); }, {}},
    {"Units", E_PROP_DT_LINEAR, [](const Stage& s) { SetDouble(s.property, 5); },
     [](const Stage& s) {
         EXPECT_EQ(s.collection->ConvertUnit(E_IMPERIAL), S_OK);
         EXPECT_EQ(s.collection->SetUnitMode(E_METRIC), S_OK);
         EXPECT_EQ(s.collection->put_Precision(1), S_OK);
         EXPECT_EQ(s.collection->SetMaxInputValue(1), S_OK);
         EXPECT_EQ(s.collection->SetState(1), S_OK);
         EXPECT_EQ(s.collection->put_SaveEditFlags(0), S_OK);
     }, {}},
};

const TraceCase kCollectionTraces[] = {
    {"AddedProperty", E_PROP_DT_LINEAR, nullptr,
     [](const Stage& s) {
         EXPECT_EQ(AddTo(s.collection, {.id = kOtherId, .parent = kId, .linked = 5, .module = 6, .editFlags = 7,
                                        .visible = 0, .readOnly = 1, .alwaysSave = 0}), S_OK);
     },
     Trace().Added(kOtherId, kId)},
    {"AddedAtTheTop", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { EXPECT_EQ(AddTo(s.collection, {.id = kOtherId}), S_OK); },
     Trace().Added(kOtherId, -2)},
    {"RemovedProperty", E_PROP_DT_LINEAR, [](const Stage& s) { EXPECT_EQ(AddTo(s.collection, {.id = kOtherId, .parent = kId}), S_OK); },
     [](const Stage& s) { EprpPropError e{}; EXPECT_EQ(s.collection->RemoveProperty(kOtherId, &e), S_OK); },
     Trace().Deleted(kOtherId)},
    {"Load", E_PROP_DT_LINEAR, nullptr,
     [](const Stage& s) {
         EXPECT_EQ(s.collection->put_LoadVersion(1), S_OK);
         EXPECT_EQ(s.collection->LoadFromStream(MakeStream(OLESTR("~1020304n3|25~1020304g26")), nullptr, nullptr), S_OK);
     },
     Trace().Loaded()},
    {"Save", E_PROP_DT_LINEAR, nullptr, [](const Stage& s) { SavedTextOf(s.collection); }, {}},
    {"VisibilityRule", E_PROP_DT_LINEAR, nullptr,
     [](const Stage& s) {
         const auto rule = MakeHostRule();
         rule->visible = VARIANT_FALSE;
         EXPECT_EQ(s.property->SetVisibilityInfo(rule), S_OK);
     },
     Trace().State(true)},
    {"RuleAtTheEnd", E_PROP_DT_LINEAR,
     [](const Stage& s) { EXPECT_EQ(s.property->SetPostProcVisibilityInfo(MakeObject<IprpVisibilityInfo>(CLSID_prpVisibilityInfo)), S_OK); },
     [](const Stage& s) {
         EXPECT_EQ(s.property->SetVisible(VARIANT_FALSE), S_OK); // takes the flag that the rule then gives back
     },
     Trace().State(true).State(true)},
};
// clang-format on

class EventTraces : public ModelTest, public testing::WithParamInterface<TraceCase> {
protected:
    EventTraces()
    {
        sink->onStream = [this](IqorStream* stream) { traces.push_back(BytesOf(stream)); };
    }
    std::vector<Bytes> traces;
};

} // namespace

TEST_P(EventTraces, HoldTheseBytesAndNoOthers)
{
    const TraceCase& trace = GetParam();
    const auto property = Add(kId, trace.type);
    const Stage stage{collection, property};
    Transact(
        collection,
        [&] {
            EXPECT_EQ(collection->SetCollectionID(kCollectionId), S_OK);
            if (trace.before)
                trace.before(stage);
        },
        false);

    InTransaction([&] { trace.act(stage); });

    if (trace.expected.Whole().empty())
        EXPECT_THAT(traces, IsEmpty());
    else
        EXPECT_THAT(traces, ElementsAre(trace.expected.Whole()));
}

const auto kTraceName = [](const auto& each) { return std::string(each.param.name); };
INSTANTIATE_TEST_SUITE_P(OfFlags, EventTraces, testing::ValuesIn(kFlagTraces), kTraceName);
INSTANTIATE_TEST_SUITE_P(OfTexts, EventTraces, testing::ValuesIn(kTextTraces), kTraceName);
INSTANTIATE_TEST_SUITE_P(OfNumbers, EventTraces, testing::ValuesIn(kNumberTraces), kTraceName);
INSTANTIATE_TEST_SUITE_P(OfValueTexts, EventTraces, testing::ValuesIn(kValueTextTraces), kTraceName);
INSTANTIATE_TEST_SUITE_P(OfWhatAnnouncesNothing, EventTraces, testing::ValuesIn(kSilentTraces), kTraceName);
INSTANTIATE_TEST_SUITE_P(OfTheCollection, EventTraces, testing::ValuesIn(kCollectionTraces), kTraceName);
