// Saved texts that are cut, random or out of all size: nothing breaks, and what a text does not reach stays as it was.
#include "tests/core/PersistenceFixture.h"

#include <map>
#include <random>

namespace {

constexpr LONG kFirstId = 0x400;

/// A tree with one property of each type under a text of its own.
class TypedTree {
public:
    explicit TypedTree(bool withValues)
    {
        EXPECT_EQ(collection->put_LoadVersion(1), S_OK);
        Transact(
            collection,
            [&] {
                for (const Golden& golden : kGolden) {
                    const LONG id = kFirstId + golden.type;
                    EXPECT_EQ(AddTo(collection, {.id = id, .type = golden.type, .editFlags = 1}), S_OK);
                    if (withValues && golden.type != E_PROP_DT_NONE)
                        SetString(PropertyOf(collection, id), golden.value);
                }
            },
            false);
    }

    Text Saved() const
    {
        Text saved;
        Transact(collection, [&] { saved = SavedTextOf(collection); });
        return saved;
    }
    /// Everything that a load may change, by id.
    std::map<LONG, Text> State() const
    {
        std::map<LONG, Text> state;
        Transact(collection, [&] {
            for (const Golden& golden : kGolden) {
                const auto property = PropertyOf(collection, kFirstId + golden.type);
                CComBSTR points;
                EXPECT_EQ(property->GetScanPathString(&points), S_OK);
                Text text = StringOf(property).append(points.View());
                text += FlagOf(property, &IqorProperty::IsVisible) ? OLESTR('v') : OLESTR('-');
                text += FlagOf(property, &IqorProperty::IsReadOnly) ? OLESTR('r') : OLESTR('-');
                state[kFirstId + golden.type] = text;
            }
        });
        return state;
    }
    HRESULT Load(TextView text) const
    {
        HRESULT hr = E_FAIL;
        Transact(collection, [&] { hr = collection->LoadFromStream(MakeStream(text), nullptr, nullptr); });
        return hr;
    }

    CComPtr<IqorPropertyCollection> collection = MakeObject<IqorPropertyCollection>(CLSID_prpPropertyCollection);
};

class BadTexts : public Persistence {
protected:
    /// Loads a value of a mebibyte into a property of the type.
    void LoadLong(EprpPropDataType type, const OLECHAR* typeLetter, TextView piece)
    {
        collection = MakeObject<IqorPropertyCollection>(CLSID_prpPropertyCollection);
        InTransaction([&] {
            const auto property = AddOpen({.id = 1, .type = type});
            SetVersion(1);
            value.clear();
            while (value.size() < std::size_t{1} << 20)
                value += piece;
            EXPECT_TRUE(Load(Text(OLESTR("~1h")) + typeLetter + value).success);
            shown = StringOf(property);
        });
    }

    Text value; ///< that was loaded last
    Text shown; ///< what the property made of it
};

} // namespace

TEST_F(BadTexts, CutAnywhereLeaveAlonePropertiesThatTheyDoNotReach)
{
    const Text saved = TypedTree(true).Saved();
    const auto before = TypedTree(false).State();
    for (std::size_t length = 0; length <= saved.size(); ++length) {
        const TypedTree tree(false);
        const TextView cut = TextView(saved).substr(0, length);
        const HRESULT hr = tree.Load(cut);
        EXPECT_TRUE(hr == S_OK || FAILED(hr));
        if (FAILED(hr))
            continue; // an id cut to one that is not there may end the load; what is behind it was not reached at all
        const auto after = tree.State();
        for (const auto& [id, text] : before) {
            Text head = OLESTR("~400l1|");
            head[3] = OLESTR("0123456789abcdef")[id & 15];
            head[2] = OLESTR("0123456789abcdef")[(id >> 4) & 15];
            if (cut.find(head) == cut.npos) {
                EXPECT_EQ(after.at(id), text) << id << " at " << length;
            }
        }
    }
}

TEST_F(BadTexts, OfRandomUnitsChangeNoPropertyWhoseIdTheyDoNotHold)
{
    const auto before = TypedTree(false).State();
    std::mt19937 random(3);
    for (int round = 0; round < 200; ++round) {
        Text text;
        for (std::size_t length = random() % 400; length > 0; --length)
            text += static_cast<OLECHAR>(random() % 64 == 0 ? '~' : random());
        const TypedTree tree(false);
        EXPECT_EQ(tree.collection->put_LoadVersion(round % 2), S_OK);
        const HRESULT hr = tree.Load(text);
        EXPECT_TRUE(hr == S_OK || FAILED(hr));
        if (SUCCEEDED(hr)) {
            EXPECT_EQ(tree.State(), before) << "round " << round;
        }
    }
}

TEST_F(BadTexts, TakeIdsByTheirLow32Bits)
{
    InTransaction([&] {
        SetVersion(1);
        const auto first = AddOpen({.id = 1, .type = E_PROP_DT_LONG});
        const auto last = AddOpen({.id = 0x7FFFFFFF, .type = E_PROP_DT_LONG});
        EXPECT_TRUE(Load(OLESTR("~100000001h35~ffffffff7fffffffh36")).success);
        EXPECT_EQ(LongOf(first), 5);
        EXPECT_EQ(LongOf(last), 6);
        for (const TextView text : {OLESTR("~0h35"), OLESTR("~80000000h35"), OLESTR("~ffffffffh35"), OLESTR("~-1h35"),
                                    OLESTR("~100000000h35")})
            ExpectInvalidId(collection->LoadFromStream(MakeStream(text), nullptr, nullptr));
        EXPECT_EQ(LongOf(first), 5);
        EXPECT_EQ(LongOf(last), 6);
    });
}

TEST_F(BadTexts, TakeIdsOfTheOldFormatByTheirLow16Bits)
{
    InTransaction([&] {
        SetVersion(0);
        const auto property = AddOpen({.id = 0xFFFF, .type = E_PROP_DT_LONG});
        EXPECT_TRUE(Load(OLESTR("~ffffffff,1|5")).success);
        EXPECT_EQ(LongOf(property), 5);
        EXPECT_EQ(FaultOf(OLESTR("~80000000,1|5")),
                  Message(OLESTR("PropertyID 0 was not found in the collection."), OLESTR("~80000000,1|5")));
    });
}

TEST_F(BadTexts, OfAMebibyteAreTakenByEveryKindOfValue)
{
    LoadLong(E_PROP_DT_LINEAR, OLESTR("2"), OLESTR("9"));
    EXPECT_EQ(shown.substr(0, 10), OLESTR("1797693134")) << "the largest number there is";
    EXPECT_EQ(shown.size(), 309U);
    LoadLong(E_PROP_DT_LINEAR, OLESTR("20."), OLESTR("3"));
    EXPECT_EQ(shown, OLESTR("0.3333"));
    LoadLong(E_PROP_DT_LONG, OLESTR("3"), OLESTR("0"));
    EXPECT_EQ(shown, OLESTR("0"));
    LoadLong(E_PROP_DT_ENUM, OLESTR("k"), OLESTR("12345678"));
    EXPECT_EQ(shown, OLESTR("22136")); // the low 16 bits
    LoadLong(E_PROP_DT_POSITION, OLESTR("8"), OLESTR("1;2;"));
    EXPECT_EQ(shown, OLESTR("1;2;1"));
    LoadLong(E_PROP_DT_STRING_ANSI, OLESTR("5"), OLESTR("\xFC\x0394"));
    EXPECT_EQ(shown, Text(value.size() / 2, OLECHAR{'u'}));
    LoadLong(E_PROP_DT_MULTI_STRING_UNICODE, OLESTR("6"), OLESTR("#"));
    EXPECT_EQ(shown.size(), 2 * value.size());
    LoadLong(E_PROP_DT_STATEMENT, OLESTR("n"), OLESTR("\\$\\&"));
    EXPECT_EQ(shown.size(), value.size() / 2);
    LoadLong(E_PROP_DT_SCAN_PATH_LIST, OLESTR("r"), OLESTR("1,2,3#"));
    EXPECT_EQ(shown, OLESTR("174763 path points"));
    LoadLong(E_PROP_DT_TOLERANCE, OLESTR("7"),
             OLESTR("4#21\xAC"
                    "2\xAC"
                    "x"));
    EXPECT_EQ(shown.substr(0, 9), OLESTR("4#21\xAC"
                                         "2\xAC"
                                         "x4"));
}

TEST_F(BadTexts, OfAMebibyteOfIdOrFlagsAreTakenOrReported)
{
    InTransaction([&] {
        SetVersion(1);
        const auto property = AddOpen({.id = 1, .type = E_PROP_DT_LONG});
        const Text zeros(std::size_t{1} << 20, OLECHAR{'0'});
        EXPECT_TRUE(Load(Text(OLESTR("~")) + zeros + OLESTR("1h35")).success);
        EXPECT_EQ(LongOf(property), 5);
        EXPECT_TRUE(Load(Text(OLESTR("~1l")) + zeros + OLESTR("7|36")).success);
        EXPECT_EQ(LongOf(property), 6);
        const Text line = Text(OLESTR("~")) + zeros;
        EXPECT_EQ(FaultOf(line), Message(OLESTR("Invalid property string"), line));
        EXPECT_TRUE(Load(Text(std::size_t{1} << 20, OLECHAR{'~'})).success);
    });
}
