// Generated trees: what was saved and loaded into a tree built again is saved as the very same text.
#include "tests/core/ModelFixture.h"

#include <algorithm>
#include <iterator>
#include <random>

namespace {

/// A tree as a host's code would build it twice, and the values that a user gave.
class GeneratedTree {
public:
    explicit GeneratedTree(std::uint32_t seed) : m_random(seed)
    {
        const LONG count = Below(40) + 1;
        for (LONG i = 0; i < count; ++i) {
            NewProperty property;
            do
                property.id = Below(3) == 0 ? Below(1 << 20) + 1 : i * (Below(3) + 1) + 1;
            while (Knows(property.id));
            property.type = kTypes[static_cast<std::size_t>(Below(LONG{std::size(kTypes)}))];
            if (!m_properties.empty() && Below(3) != 0)
                property.parent = m_properties[static_cast<std::size_t>(Below(LONG(m_properties.size())))].id;
            property.editFlags = Below(4) == 0 ? Below(0x7FFFFFFF) : Below(4);
            property.visible = Below(4) != 0 ? VARIANT_TRUE : VARIANT_FALSE;
            property.readOnly = Below(4) == 0 ? VARIANT_TRUE : VARIANT_FALSE;
            property.alwaysSave = Below(8) != 0 ? VARIANT_TRUE : VARIANT_FALSE;
            m_properties.push_back(property);
        }
    }

    void Build(IqorPropertyCollection* collection) const
    {
        for (const NewProperty& property : m_properties)
            ASSERT_EQ(AddTo(collection, property), S_OK);
    }
    void GiveValues(IqorPropertyCollection* collection)
    {
        for (const NewProperty& property : m_properties)
            SetString(PropertyOf(collection, property.id), Value(property.type));
    }

private:
    // Empty values of the other text types do not come back, so the generator gives those a text.
    static constexpr EprpPropDataType kTypes[] = {
        E_PROP_DT_ANGLE,     E_PROP_DT_LINEAR,     E_PROP_DT_LONG,           E_PROP_DT_DOUBLE,
        E_PROP_DT_TOLERANCE, E_PROP_DT_POSITION,   E_PROP_DT_VECTOR,         E_PROP_DT_STRING_ANSI,
        E_PROP_DT_ENUM,      E_PROP_DT_DATE,       E_PROP_DT_FORM,           E_PROP_DT_MULTI_STRING_UNICODE,
        E_PROP_DT_STATEMENT, E_PROP_DT_DWORD,      E_PROP_DT_FULL_PRECISION, E_PROP_DT_SCAN_PATH_LIST,
        E_PROP_DT_CATEGORY,  E_PROP_DT_POINTS_LIST};

    LONG Below(LONG limit) { return static_cast<LONG>(m_random() % static_cast<std::uint32_t>(limit)); }
    bool Knows(LONG id) const
    {
        return std::any_of(m_properties.begin(), m_properties.end(), [&](const auto& each) { return each.id == id; });
    }

    Text Number()
    {
        static constexpr int kScales[] = {1, 10, 10000, 1000000};
        const std::string digits = std::to_string(double(Below(2000001) - 1000000) / kScales[Below(4)]);
        return Text(digits.begin(), digits.end());
    }
    /// Enumeration values come back with 16 bits.
    Text Whole()
    {
        const std::string digits = std::to_string(Below(65536));
        return Text(digits.begin(), digits.end());
    }
    Text Words()
    {
        static const TextView kPieces[] = {OLESTR("bore"),   OLESTR("~"),  OLESTR("|"),     OLESTR("\\$"),
                                           OLESTR("#"),      OLESTR("\\"), OLESTR(" "),     OLESTR("\r\n"),
                                           OLESTR("\\&"),    OLESTR("g"),  OLESTR("1a|"),   OLESTR("\n"),
                                           OLESTR("\x00D8"), OLESTR("\t"), OLESTR("\x0416")};
        Text text = OLESTR("x");
        for (LONG pieces = Below(6); pieces > 0; --pieces)
            text.append(kPieces[Below(LONG{std::size(kPieces)})]);
        return text;
    }
    Text Tolerance()
    {
        const Text separator(1, OLECHAR{0xAC});
        const auto linear = [&] {
            return Text(OLESTR("#3")) + separator + Whole() + separator + Number() + separator + Number() + separator +
                   Number();
        };
        const auto geometric = [&] {
            return Text(OLESTR("#10001FF")) + separator + Number() + separator + OLESTR("A") + separator + OLESTR("B") +
                   separator + OLESTR("C");
        };
        switch (Below(6)) {
        case 1: return OLESTR("101") + linear();
        case 2: return OLESTR("2") + linear();
        case 3: return OLESTR("203") + linear() + linear() + linear();
        case 4: return OLESTR("4") + geometric();
        case 5: return OLESTR("5") + geometric() + geometric() + geometric();
        default: return OLESTR("300");
        }
    }
    Text Value(EprpPropDataType type)
    {
        switch (type) {
        case E_PROP_DT_TOLERANCE: return Tolerance();
        case E_PROP_DT_POSITION:
        case E_PROP_DT_VECTOR: return Number() + OLESTR(";") + Number() + OLESTR(" ") + Number();
        case E_PROP_DT_LONG:
        case E_PROP_DT_DWORD:
        case E_PROP_DT_ENUM: return Below(2) == 0 ? Whole() : Text(OLESTR("65535"));
        case E_PROP_DT_SCAN_PATH_LIST: {
            Text points = OLESTR("0,0,0");
            for (LONG count = Below(5); count > 0; --count)
                points += OLESTR("\r\n") + Number() + OLESTR(",") + Number() + OLESTR(",") + Number();
            return points;
        }
        case E_PROP_DT_STRING_ANSI:
        case E_PROP_DT_DATE:
        case E_PROP_DT_MULTI_STRING_UNICODE:
        case E_PROP_DT_STATEMENT:
        case E_PROP_DT_CATEGORY:
        case E_PROP_DT_POINTS_LIST: return Words();
        default: return Number();
        }
    }

    std::mt19937 m_random;
    std::vector<NewProperty> m_properties;
};

CComPtr<IqorPropertyCollection> NewCollection(std::uint32_t seed)
{
    const auto collection = MakeObject<IqorPropertyCollection>(CLSID_prpPropertyCollection);
    EXPECT_EQ(collection->put_LoadVersion(1), S_OK);
    EXPECT_EQ(collection->put_Precision(static_cast<LONG>(seed % 8)), S_OK);
    EXPECT_EQ(collection->SetUnitMode(seed % 3 == 0 ? E_IMPERIAL : E_METRIC), S_OK);
    return collection;
}

class RoundTrips : public testing::TestWithParam<std::uint32_t> {};

} // namespace

TEST_P(RoundTrips, GiveTheSameTextAgain)
{
    constexpr std::uint32_t kTreesOfATest = 250;
    for (std::uint32_t seed = GetParam() * kTreesOfATest; seed < (GetParam() + 1) * kTreesOfATest; ++seed) {
        GeneratedTree tree(seed);
        const auto first = NewCollection(seed);
        const auto second = NewCollection(seed);
        Text saved;
        Transact(first, [&] {
            tree.Build(first);
            tree.GiveValues(first);
            saved = SavedTextOf(first);
        });
        Transact(second, [&] {
            tree.Build(second);
            VARIANT_BOOL success = VARIANT_FALSE;
            CComPtr<IqorStream> errors = MakeStream();
            ASSERT_EQ(second->LoadFromStream(MakeStream(saved), errors, &success), S_OK);
            EXPECT_TRUE(success == VARIANT_TRUE || saved.empty()) << "seed " << seed;
            ASSERT_EQ(SavedTextOf(second), saved) << "seed " << seed;
        });
    }
}

INSTANTIATE_TEST_SUITE_P(Generated, RoundTrips, testing::Range(0U, 12U));
