// Saved texts as they must be, letter by letter: orders, unit modes, tolerances, line ends, and the two categories of
// kept data from one save to the next.
#include "tests/core/PersistenceFixture.h"

namespace {

using GoldenTexts = Persistence;

/// Two collections that one host builds alike, one for each of its sessions.
class HostTree {
public:
    HostTree()
    {
        Transact(
            collection,
            [&] {
                EXPECT_EQ(AddTo(collection, {.id = 0x401, .type = E_PROP_DT_LONG}), S_OK);
                EXPECT_EQ(AddTo(collection, {.id = 0x402, .type = E_PROP_DT_LINEAR, .editFlags = 3}), S_OK);
                EXPECT_EQ(collection->put_LoadVersion(1), S_OK);
            },
            false);
    }
    /// Loads a text and gives what is saved then.
    Text SavedAfter(TextView text, bool& success)
    {
        Text saved;
        Transact(collection, [&] {
            VARIANT_BOOL loaded = 9;
            EXPECT_EQ(collection->LoadFromStream(MakeStream(text), nullptr, &loaded), S_OK);
            success = loaded == VARIANT_TRUE;
            saved = SavedTextOf(collection);
        });
        return saved;
    }

    CComPtr<IqorPropertyCollection> collection = MakeObject<IqorPropertyCollection>(CLSID_prpPropertyCollection);
};

/// A tolerance text as it is given and as it is saved.
struct ToleranceGolden {
    const char* name;
    const OLECHAR* given;
    const OLECHAR* record;
};

const ToleranceGolden kTolerances[] = {
    {"None", OLESTR("300"), OLESTR("~1al0|7300")},
    {"Linear",
     OLESTR("1#3\xAC"
            "1\xAC"
            "10\xAC"
            "0.1\xAC"
            "-0.1"),
     OLESTR("~1al0|71#3\xAC"
            "1\xAC"
            "10\xAC"
            "0.1\xAC"
            "-0.1")},
    {"Angular",
     OLESTR("102#1\xAC"
            "FF\xAC"
            "12.3456789\xAC"
            "1e-7\xAC"
            "-1e15"),
     OLESTR("~1al0|7102#1\xAC"
            "FF\xAC"
            "12.3457\xAC"
            "1e-07\xAC"
            "-1e+15")},
    {"Rectangular",
     OLESTR("3#1\xAC"
            "0\xAC"
            "1\xAC"
            "2\xAC"
            "3#0\xAC"
            "0\xAC"
            "4\xAC"
            "5\xAC"
            "6#2\xAC"
            "7\xAC"
            "7\xAC"
            "8\xAC"
            "9"),
     OLESTR("~1al0|73#1\xAC"
            "0\xAC"
            "1\xAC"
            "2\xAC"
            "3#0\xAC"
            "0\xAC"
            "4\xAC"
            "5\xAC"
            "6#2\xAC"
            "7\xAC"
            "7\xAC"
            "8\xAC"
            "9")},
    {"Geometric",
     OLESTR("204#30D02E7\xAC"
            "0.05\xAC"
            "A|B\xAC"
            "B~\xAC"
            "C"),
     OLESTR("~1al0|7204#30D02E7\xAC"
            "0.05\xAC"
            "A\\&B\xAC"
            "B\\$\xAC"
            "C")},
    {"GeometricRectangular",
     OLESTR("5#101\xAC"
            "0.05#3\xAC"
            "1.5#20801\xAC"
            "7"),
     OLESTR("~1al0|75#101\xAC"
            "0.05#3\xAC"
            "1.5#20801\xAC"
            "7")},
    // The third section is missing, the first ends early, the second announces a name that is not there.
    {"Broken",
     OLESTR("5#101#21\xAC"
            "2"),
     OLESTR("~1al0|75#101\xAC"
            "0#1\xAC"
            "2#0\xAC"
            "0")},
};

class EachTolerance : public Persistence, public testing::WithParamInterface<ToleranceGolden> {};

} // namespace

TEST_P(EachTolerance, HasItsGoldenRecordAndComesBackFromIt)
{
    InTransaction([&] {
        const auto property = AddOpen({.id = 26, .type = E_PROP_DT_TOLERANCE});
        SetString(property, GetParam().given);
        EXPECT_EQ(SavedTextOf(collection), GetParam().record);
        SetString(property, OLESTR("1"));
        SetVersion(1);
        EXPECT_TRUE(Load(GetParam().record).success);
        EXPECT_EQ(SavedTextOf(collection), GetParam().record);
    });
}
INSTANTIATE_TEST_SUITE_P(Records, EachTolerance, testing::ValuesIn(kTolerances),
                         [](const auto& each) { return std::string(each.param.name); });

TEST_F(GoldenTexts, HoldTheIdsOfAllSeventeenBucketsAscendingAndTheNewestOfEachFirst)
{
    // One id at least for each bucket; several for 0x10 to 0x1f and its kind, for 0x40, 0x70 and 0x100.
    constexpr LONG kIds[] = {0x7FFFFFFF, 209, 157, 4610, 289, 162, 68, 204, 110, 63,  305419896, 89,
                             251,        42,  23,  21,   115, 230, 3,  256, 564, 183, 136,       31};
    InTransaction([&] {
        EXPECT_EQ(collection->put_SaveEditFlags(VARIANT_FALSE), S_OK);
        EXPECT_EQ(collection->put_SaveReadOnlyStates(VARIANT_FALSE), S_OK);
        LONG parent = E_PROP_ID_TOP_LEVEL;
        for (const LONG id : kIds) {
            AddOpen({.id = id, .type = E_PROP_DT_LONG, .parent = parent, .readOnly = VARIANT_TRUE});
            parent = id % 2 ? id : LONG{E_PROP_ID_TOP_LEVEL}; // the depth is of no account
        }
        EXPECT_EQ(SavedTextOf(collection),
                  OLESTR("~3h30~1fh30~234h30~15h30~17h30~121h30~2ah30~3fh30~12345678h30~44h30~59h30~6eh30~73h30"
                         "~7fffffffh30~88h30~9dh30~a2h30~b7h30~cch30~d1h30~e6h30~fbh30~100h30~1202h30"));
    });
}

TEST_F(GoldenTexts, ShowPathsWithTheDecimalsOfTheUnitMode)
{
    InTransaction([&] {
        SetString(AddOpen({.id = 26, .type = E_PROP_DT_SCAN_PATH_LIST}), OLESTR("1,-2.5,0.1\r\n123456.5,-1e-9,0"));
        EXPECT_EQ(SavedTextOf(collection), OLESTR("~1al0|r    1.0000,   -2.5000,    0.1000"
                                                  "# 123456.5000,   -0.0000,    0.0000"));
        EXPECT_EQ(collection->SetUnitMode(E_IMPERIAL), S_OK);
        EXPECT_EQ(SavedTextOf(collection), OLESTR("~1al0|r   1.00000,  -2.50000,   0.10000"
                                                  "# 123456.50000,  -0.00000,   0.00000"));
        EXPECT_EQ(collection->ConvertUnit(E_UNITMODE_NONE), S_OK); // no mode reads as imperial, factor included
        EXPECT_EQ(SavedTextOf(collection), OLESTR("~1al0|r   0.03937,  -0.09843,   0.00394"
                                                  "# 4860.49219,  -0.00000,   0.00000"));
    });
}

TEST_F(GoldenTexts, FollowThePrecisionWhereTheTypeDoes)
{
    InTransaction([&] {
        LONG id = 0;
        for (const EprpPropDataType type :
             {E_PROP_DT_ANGLE, E_PROP_DT_LINEAR, E_PROP_DT_DOUBLE, E_PROP_DT_FORM, E_PROP_DT_FULL_PRECISION})
            SetDouble(AddOpen({.id = ++id * 16, .type = type}), 12.3456789);
        SetString(AddOpen({.id = 96, .type = E_PROP_DT_POSITION}), OLESTR("1.05;20;-0.04"));
        EXPECT_EQ(collection->put_SaveEditFlags(VARIANT_FALSE), S_OK);
        EXPECT_EQ(collection->put_Precision(1), S_OK);
        EXPECT_EQ(SavedTextOf(collection),
                  OLESTR("~10h112.3457~20h212.3~30h412.3~40hm12.3~50ho12.345679~60h81.1;20;-0"));
        EXPECT_EQ(collection->put_Precision(0), S_OK);
        EXPECT_EQ(SavedTextOf(collection), OLESTR("~10h112.3457~20h212~30h412~40hm12~50ho12.345679~60h81;20;-0"));
        EXPECT_EQ(collection->put_Precision(-1), S_OK); // six decimals, none of them cut
        EXPECT_EQ(SavedTextOf(collection), OLESTR("~10h112.3457~20h212.345679~30h412.345679~40hm12.345679~50ho12.345679"
                                                  "~60h81.050000;20.000000;-0.040000"));
    });
}

TEST_F(GoldenTexts, WriteLineEndsAsSignsInTwoTypesOnly)
{
    InTransaction([&] {
        EXPECT_EQ(collection->put_SaveEditFlags(VARIANT_FALSE), S_OK);
        for (const EprpPropDataType type : {E_PROP_DT_STRING_ANSI, E_PROP_DT_MULTI_STRING_UNICODE, E_PROP_DT_DATE,
                                            E_PROP_DT_STATEMENT, E_PROP_DT_CATEGORY, E_PROP_DT_POINTS_LIST})
            SetString(AddOpen({.id = type * 16, .type = type}), OLESTR("a\r\nb\nc\rd#"));
        const Text saved = SavedTextOf(collection);
        EXPECT_EQ(saved, OLESTR("~120hsa\r\nb\nc\rd#"
                                "~130hta\r\nb\nc\rd#"
                                "~50h5a\r\nb\nc\rd#"
                                "~60h6a#b\nc\rd#"
                                "~b0hla\r\nb\nc\rd#"
                                "~d0hna\r\nb\nc\rd#"));
        SetVersion(1);
        EXPECT_TRUE(Load(saved).success);
        EXPECT_EQ(StringOf(PropertyOf(collection, 0x50)), OLESTR("a\r\nb\nc\rd#"));
        EXPECT_EQ(StringOf(PropertyOf(collection, 0x60)), OLESTR("a\r\nb\nc\rd\r\n"));
    });
}

TEST_F(GoldenTexts, KeepBothCategoriesOverTwoRounds)
{
    constexpr TextView kSaved = OLESTR("~7e8h5text\\$with\\&~401l5|21.5~402l1|22.5~7e9gk1F");
    constexpr TextView kKept = OLESTR("~7e9m0|k1f~7e8n0|5text\\$with\\&~401n0|21.5~402l1|22.5");
    bool success = true;
    // The first session keeps what its tree does not know, or knows otherwise.
    EXPECT_EQ(HostTree().SavedAfter(kSaved, success), kKept);
    EXPECT_FALSE(success);
    // The next one builds the same tree and keeps the same; what came last stands first in its bucket.
    constexpr TextView kKeptAgain = OLESTR("~7e8n0|5text\\$with\\&~7e9m0|k1f~401n0|21.5~402l1|22.5");
    HostTree next;
    EXPECT_EQ(next.SavedAfter(kKept, success), kKeptAgain);
    EXPECT_FALSE(success);
    // Within a session the kept properties are properties like any other.
    EXPECT_EQ(next.SavedAfter(kKept, success), kKeptAgain);
    EXPECT_TRUE(success);
    EXPECT_EQ(HostTree().SavedAfter(kKeptAgain, success), kKept);
}
