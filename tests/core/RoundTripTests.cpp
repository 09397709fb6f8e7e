// Generated trees: what was saved and loaded into a tree built again is saved as the very same text.
#include "tests/core/ModelFixture.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
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

namespace {

// Numbers as the C library prints them and reads them again.
double Fixed(int decimals, double value)
{
    char text[400];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return std::strtod(text, nullptr);
}
double SixDigits(double value)
{
    char text[40];
    std::snprintf(text, sizeof text, "%g", value);
    return std::strtod(text, nullptr);
}

/// A coordinate of a path: single precision on its way to the text and on its way back.
double Narrowed(int decimals, double value)
{
    char text[400];
    std::snprintf(text, sizeof text, "%.*f", decimals, static_cast<double>(static_cast<float>(value)));
    return std::strtof(text, nullptr);
}

/// Numbers of every size that a host may set, halves and thirds among them.
double AnyNumber(std::mt19937_64& random)
{
    switch (random() % 4) {
    case 0: return static_cast<double>(static_cast<int>(random() % 2000001) - 1000000) / 32;
    case 1: return static_cast<double>(static_cast<int>(random() % 2000001) - 1000000) / 3e5;
    case 2: return std::ldexp(1 + static_cast<double>(random() % 100000) / 7e4, static_cast<int>(random() % 60) - 20);
    default: return -std::ldexp(1 + static_cast<double>(random() % 100000) / 7e4, static_cast<int>(random() % 50) - 25);
    }
}

/// The same tree twice: one whose values are set, one that loads them.
class Losses : public testing::Test {
protected:
    static constexpr EprpPropDataType kNumbers[] = {E_PROP_DT_ANGLE, E_PROP_DT_LINEAR, E_PROP_DT_DOUBLE, E_PROP_DT_FORM,
                                                    E_PROP_DT_FULL_PRECISION};
    static constexpr LONG kPlace = 20, kTolerance = 21, kPath = 22;

    static CComPtr<IqorPropertyCollection> Build(LONG precision, EprpUnitMode mode)
    {
        const auto collection = MakeObject<IqorPropertyCollection>(CLSID_prpPropertyCollection);
        EXPECT_EQ(collection->put_LoadVersion(1), S_OK);
        EXPECT_EQ(collection->put_Precision(precision), S_OK);
        EXPECT_EQ(collection->SetUnitMode(mode), S_OK);
        Transact(collection, [&] {
            for (const EprpPropDataType type : kNumbers)
                EXPECT_EQ(AddTo(collection, {.id = static_cast<LONG>(type), .type = type}), S_OK);
            EXPECT_EQ(AddTo(collection, {.id = kPlace, .type = E_PROP_DT_POSITION}), S_OK);
            EXPECT_EQ(AddTo(collection, {.id = kTolerance, .type = E_PROP_DT_TOLERANCE}), S_OK);
            EXPECT_EQ(AddTo(collection, {.id = kPath, .type = E_PROP_DT_SCAN_PATH_LIST}), S_OK);
        });
        return collection;
    }
    static SprpTolerance ToleranceOf(IqorPropertyCollection* collection)
    {
        SprpTolerance tolerance{};
        EXPECT_EQ(PropertyOf(collection, kTolerance)->GetPropertyTolerance(&tolerance), S_OK);
        for (SprpGDTInfo* part : {&tolerance.GDTInfo_X, &tolerance.GDTInfo_Y, &tolerance.GDTInfo_Z})
            for (BSTR* name : {&part->bstrDatumPlane1, &part->bstrDatumPlane2, &part->bstrDatumPlane3}) {
                SysFreeString(*name);
                *name = nullptr;
            }
        return tolerance;
    }
};

} // namespace

TEST_F(Losses, AreTheDigitsThatTheFormatsCutAndNoOthers)
{
    std::mt19937_64 random(17);
    for (int round = 0; round < 1000; ++round) {
        const LONG precision = static_cast<LONG>(random() % 9);
        const EprpUnitMode mode = random() % 2 ? E_METRIC : E_IMPERIAL;
        const auto first = Build(precision, mode);
        const auto second = Build(precision, mode);
        double numbers[std::size(kNumbers)];
        SprpPosition place{AnyNumber(random), AnyNumber(random), AnyNumber(random)};
        SprpPosition point{AnyNumber(random), AnyNumber(random), AnyNumber(random)};
        SprpTolerance tolerance{};
        tolerance.eTolType = E_TOL_TYPE_LINEAR;
        tolerance.LinearTolInfo_X = {E_TOL_STATUS_IN_TOL, VARIANT_TRUE,      AnyNumber(random),
                                     AnyNumber(random),   AnyNumber(random), AnyNumber(random),
                                     AnyNumber(random),   VARIANT_FALSE,     7};
        Text saved;
        Transact(first, [&] {
            for (std::size_t i = 0; i < std::size(kNumbers); ++i) {
                SetDouble(PropertyOf(first, kNumbers[i]), AnyNumber(random));
                numbers[i] = DoubleOf(PropertyOf(first, kNumbers[i]));
            }
            EXPECT_EQ(PropertyOf(first, kPlace)->SetPropertyPosition(place, VARIANT_TRUE), S_OK);
            EXPECT_EQ(PropertyOf(first, kTolerance)->SetPropertyTolerance(&tolerance), S_OK);
            VARIANT_BOOL changed = VARIANT_FALSE;
            EXPECT_EQ(PropertyOf(first, kPath)->SetScanPathPointAt(0, SprgScanPathPoint{point}, VARIANT_TRUE, &changed),
                      S_OK);
            saved = SavedTextOf(first);
        });
        Transact(second, [&] {
            VARIANT_BOOL success = VARIANT_FALSE;
            ASSERT_EQ(second->LoadFromStream(MakeStream(saved), nullptr, &success), S_OK);
            ASSERT_EQ(success, VARIANT_TRUE);
            for (std::size_t i = 0; i < std::size(kNumbers); ++i) {
                const int decimals = kNumbers[i] == E_PROP_DT_ANGLE            ? 4
                                     : kNumbers[i] == E_PROP_DT_FULL_PRECISION ? 6
                                                                               : static_cast<int>(precision);
                ASSERT_EQ(DoubleOf(PropertyOf(second, kNumbers[i])), Fixed(decimals, numbers[i]));
            }
            const SprpPosition loaded = PositionOf(PropertyOf(second, kPlace));
            ASSERT_EQ(loaded.X, Fixed(static_cast<int>(precision), place.X));
            ASSERT_EQ(loaded.Y, Fixed(static_cast<int>(precision), place.Y));
            ASSERT_EQ(loaded.Z, Fixed(static_cast<int>(precision), place.Z));

            const SprpTolerance read = ToleranceOf(second);
            const SprpLinearTolInfo& given = tolerance.LinearTolInfo_X;
            ASSERT_EQ(read.LinearTolInfo_X.dbNominalValue, SixDigits(given.dbNominalValue));
            ASSERT_EQ(read.LinearTolInfo_X.dbUpperBound, SixDigits(given.dbUpperBound));
            ASSERT_EQ(read.LinearTolInfo_X.dbLowerBound, SixDigits(given.dbLowerBound));
            ASSERT_EQ(read.LinearTolInfo_X.eTolStatus, E_TOL_STATUS_NOT_CALCULATED);
            ASSERT_EQ(read.LinearTolInfo_X.dbCalculatedValue, 0);
            ASSERT_EQ(read.LinearTolInfo_X.dbError, 0);
            ASSERT_EQ(read.LinearTolInfo_X.nEditFlags, 7);

            SprgScanPathPoint back{};
            ASSERT_EQ(PropertyOf(second, kPath)->GetScanPathPointAt(0, &back), S_OK);
            const int decimals = mode == E_METRIC ? 4 : 5;
            ASSERT_EQ(back.Position.X, Narrowed(decimals, point.X));
            ASSERT_EQ(back.Position.Y, Narrowed(decimals, point.Y));
            ASSERT_EQ(back.Position.Z, Narrowed(decimals, point.Z));
            ASSERT_EQ(SavedTextOf(second), saved);
        });
    }
}
