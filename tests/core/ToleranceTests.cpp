// The tolerance record inside a property: copying, equality, text and unit conversion.
#include "core/ToleranceParts.h"
#include "core/prpTolerance.h"
#include "frame/LVErrorInfo.h"
#include "frame/Raise.h"
#include "tests/core/ToleranceRecord.h"

#include <gmock/gmock.h>

#include <limits>
#include <random>

namespace {

Text TextOf(const CprpTolerance& tolerance)
{
    Text text;
    tolerance.AppendTo(text);
    return text;
}

CprpTolerance OfType(LONG type)
{
    CprpTolerance tolerance;
    tolerance.eTolType = type;
    return tolerance;
}

/// Runs something that must raise an internal error and gives its message.
template <class Body>
Text InternalErrorOf(Body&& body)
{
    try {
        body();
    } catch (const LVErrorInfo& error) {
        EXPECT_EQ(error.m_hr, kInternalError);
        EXPECT_FALSE(error.m_bHasLocation);
        return error.m_szMessage;
    }
    ADD_FAILURE() << "nothing was raised";
    return {};
}

CprpLinearTol SomeLinear()
{
    CprpLinearTol linear;
    linear.bActive = true;
    linear.bAbsoluteBounds = true;
    linear.nEditFlags = E_LTV_EDIT_NOMINAL;
    linear.dbNominalValue = 10;
    linear.dbUpperBound = 0.1;
    linear.dbLowerBound = -0.1;
    return linear;
}

CprpTolerance SomeOfType(LONG type)
{
    CprpTolerance tolerance = OfType(type);
    tolerance.linear.fill(SomeLinear());
    for (CprpGDTTol& gdt : tolerance.gdt) {
        gdt.bActive = true;
        gdt.eType = E_GDT_TYPE_FLATNESS;
        gdt.dbToleranceValue = 0.05;
        gdt.datums = {OLESTR("A"), OLESTR("B"), OLESTR("C")};
        gdt.datumActive = {true, false, true};
    }
    return tolerance;
}

/// Whether a change to a record of some type counts.
template <class Change>
bool Differs(LONG type, Change&& change)
{
    const CprpTolerance before = SomeOfType(type);
    CprpTolerance after = before;
    change(after);
    EXPECT_EQ(before.Equals(after), after.Equals(before));
    return !before.Equals(after);
}

} // namespace

TEST(TolerancePartsTable, HoldsEveryTypeOnceInItsPlace)
{
    ASSERT_EQ(std::size(kPartsRules), 6U);
    for (LONG type = E_TOL_TYPE_NONE; type <= E_TOL_TYPE_GDT_RECTANGULAR; ++type) {
        EXPECT_EQ(PartsOf(type).type, type);
        EXPECT_LE(PartsOf(type).linear, kAxes);
        EXPECT_LE(PartsOf(type).gdt, kAxes);
    }
}

TEST(ToleranceType, OutsideTheEnumerationIsAnInternalErrorThatNamesItsSource)
{
    for (const LONG type :
         {LONG{-1}, LONG{6}, LONG{255}, std::numeric_limits<LONG>::min(), std::numeric_limits<LONG>::max()}) {
        const Text message = InternalErrorOf([&] { CprpTolerance::RequireType(type); });
        EXPECT_EQ(message.substr(0, 37), OLESTR("Internal error in prpTolerance, line ")) << type;
        InternalErrorOf([&] { TextOf(OfType(type)); });
        InternalErrorOf([&] { (void)OfType(type).Equals(OfType(type)); });
        InternalErrorOf([&] { OfType(type).Convert(2); });
    }
}

TEST(ToleranceType, InABadRecordLeavesTheToleranceAsItWas)
{
    ToleranceRecord record;
    record.eTolType = static_cast<EprpToleranceType>(6);
    record.bMarkAsNone = VARIANT_TRUE;
    CprpTolerance tolerance = SomeOfType(E_TOL_TYPE_LINEAR);
    InternalErrorOf([&] { tolerance.Set(record); });
    EXPECT_EQ(tolerance.eTolType, E_TOL_TYPE_LINEAR);
    EXPECT_FALSE(tolerance.bMarkAsNone);
}

TEST(ToleranceCopy, TakesAllPartsWhateverTheType)
{
    ToleranceRecord record(E_TOL_TYPE_NONE);
    record.FormTolInfo = {E_TOL_STATUS_IN_TOL, VARIANT_TRUE, 1, 2, 3, VARIANT_TRUE};
    record.LinearTolInfo_Z = {E_TOL_STATUS_OUT_OF_TOL, VARIANT_TRUE, 1, 2, 3, 4, 5, VARIANT_TRUE, 7};
    record.GDTInfo_Y.eType = E_GDT_TYPE_RUNOUT;
    record.GDTInfo_Y.eMaterialModifier = E_GDT_MAT_MOD_RFS;
    record.GDTInfo_Y.nEditFlags = E_GDT_EDIT_ALL;
    record.GDTInfo_Y.bDatum2Active = VARIANT_TRUE;
    SetName(record.GDTInfo_Y.bstrDatumPlane3, OLESTR("Base"));

    CprpTolerance tolerance;
    tolerance.Set(record);
    ToleranceRecord back;
    tolerance.Get(back);

    EXPECT_EQ(back.FormTolInfo.eTolStatus, E_TOL_STATUS_IN_TOL);
    EXPECT_EQ(back.FormTolInfo.bActive, VARIANT_TRUE);
    EXPECT_EQ(back.FormTolInfo.dbNominalValue, 1);
    EXPECT_EQ(back.FormTolInfo.dbCalculatedValue, 2);
    EXPECT_EQ(back.FormTolInfo.dbError, 3);
    EXPECT_EQ(back.FormTolInfo.bAllowEdit, VARIANT_TRUE);
    EXPECT_EQ(back.LinearTolInfo_Z.eTolStatus, E_TOL_STATUS_OUT_OF_TOL);
    EXPECT_EQ(back.LinearTolInfo_Z.dbNominalValue, 1);
    EXPECT_EQ(back.LinearTolInfo_Z.dbUpperBound, 2);
    EXPECT_EQ(back.LinearTolInfo_Z.dbLowerBound, 3);
    EXPECT_EQ(back.LinearTolInfo_Z.dbCalculatedValue, 4);
    EXPECT_EQ(back.LinearTolInfo_Z.dbError, 5);
    EXPECT_EQ(back.LinearTolInfo_Z.bAbsoluteBounds, VARIANT_TRUE);
    EXPECT_EQ(back.LinearTolInfo_Z.nEditFlags, 7);
    EXPECT_EQ(back.GDTInfo_Y.eType, E_GDT_TYPE_RUNOUT);
    EXPECT_EQ(back.GDTInfo_Y.eMaterialModifier, E_GDT_MAT_MOD_RFS);
    EXPECT_EQ(back.GDTInfo_Y.nEditFlags, E_GDT_EDIT_ALL);
    EXPECT_EQ(back.GDTInfo_Y.bDatum1Active, VARIANT_FALSE);
    EXPECT_EQ(back.GDTInfo_Y.bDatum2Active, VARIANT_TRUE);
    EXPECT_EQ(TextView(back.GDTInfo_Y.bstrDatumPlane3), OLESTR("Base"));
}

TEST(ToleranceCopy, MakesEveryNonZeroFlagMinusOne)
{
    ToleranceRecord record;
    record.bMarkAsDefault = 1;
    record.bMarkAsNone = 256;
    record.FormTolInfo.bActive = 2;
    record.LinearTolInfo_X.bAbsoluteBounds = 5;
    record.GDTInfo_X.bRadial = 1;
    record.GDTInfo_X.bDatum3Active = 0x100;

    CprpTolerance tolerance;
    tolerance.Set(record);
    ToleranceRecord back;
    tolerance.Get(back);

    EXPECT_EQ(back.bMarkAsDefault, VARIANT_TRUE);
    EXPECT_EQ(back.bMarkAsNone, VARIANT_TRUE);
    EXPECT_EQ(back.FormTolInfo.bActive, VARIANT_TRUE);
    EXPECT_EQ(back.LinearTolInfo_X.bAbsoluteBounds, VARIANT_TRUE);
    EXPECT_EQ(back.GDTInfo_X.bRadial, VARIANT_TRUE);
    EXPECT_EQ(back.GDTInfo_X.bDatum3Active, VARIANT_TRUE);
    EXPECT_EQ(back.GDTInfo_X.bActive, VARIANT_FALSE);
}

TEST(ToleranceCopy, HandsOutNineNewNamesEmptyOnesIncludedAndFreesTheCallers)
{
    ToleranceRecord record;
    SetName(record.GDTInfo_X.bstrDatumPlane1, OLESTR("to be freed"));
    SetName(record.GDTInfo_Z.bstrDatumPlane3, OLESTR("this too"));
    CprpTolerance().Get(record);
    for (const SprpGDTInfo* gdt : {&record.GDTInfo_X, &record.GDTInfo_Y, &record.GDTInfo_Z}) {
        for (BSTR name : {gdt->bstrDatumPlane1, gdt->bstrDatumPlane2, gdt->bstrDatumPlane3}) {
            ASSERT_NE(name, nullptr);
            EXPECT_EQ(SysStringLen(name), 0U);
        }
    }
}

TEST(ToleranceCopy, KeepsANameByItsLengthPrefix)
{
    ToleranceRecord record;
    SetName(record.GDTInfo_X.bstrDatumPlane1, TextView(OLESTR("A\0B"), 3));
    CprpTolerance tolerance;
    tolerance.Set(record);
    ToleranceRecord back;
    tolerance.Get(back);
    EXPECT_EQ(SysStringLen(back.GDTInfo_X.bstrDatumPlane1), 3U);
}

TEST(ToleranceEquality, LooksAtTypeAndMarks)
{
    EXPECT_TRUE(Differs(E_TOL_TYPE_NONE, [](CprpTolerance& t) { t.eTolType = E_TOL_TYPE_LINEAR; }));
    EXPECT_TRUE(Differs(E_TOL_TYPE_NONE, [](CprpTolerance& t) { t.bMarkAsDefault = true; }));
    EXPECT_TRUE(Differs(E_TOL_TYPE_NONE, [](CprpTolerance& t) { t.bMarkAsNone = true; }));
}

TEST(ToleranceEquality, LooksOnlyAtThePartsThatTheTypeSelects)
{
    for (const PartsRule& rule : kPartsRules) {
        for (std::size_t i = 0; i < kAxes; ++i) {
            EXPECT_EQ(Differs(rule.type, [i](CprpTolerance& t) { t.linear[i].nEditFlags = 99; }), i < rule.linear)
                << "type " << rule.type << ", linear part " << i;
            EXPECT_EQ(Differs(rule.type, [i](CprpTolerance& t) { t.gdt[i].nEditFlags = 99; }), i < rule.gdt)
                << "type " << rule.type << ", geometric part " << i;
        }
        EXPECT_FALSE(Differs(rule.type, [](CprpTolerance& t) {
            t.form.bActive = !t.form.bActive;
            t.form.dbError = 5;
        }));
    }
}

TEST(ToleranceEquality, SeesEveryFieldOfALinearPart)
{
    using Change = void (*)(CprpLinearTol&);
    const Change changes[] = {
        [](CprpLinearTol& l) { l.bAbsoluteBounds = false; },
        [](CprpLinearTol& l) { l.dbNominalValue += 0.001; },
        [](CprpLinearTol& l) { l.dbUpperBound += 0.001; },
        [](CprpLinearTol& l) { l.dbLowerBound += 0.001; },
        [](CprpLinearTol& l) { l.bActive = false; },
        [](CprpLinearTol& l) { l.eTolStatus = E_TOL_STATUS_IN_TOL; },
        [](CprpLinearTol& l) { l.nEditFlags = 0; },
    };
    for (const Change change : changes)
        EXPECT_TRUE(Differs(E_TOL_TYPE_LINEAR, [&](CprpTolerance& t) { change(t.linear[0]); }));
}

TEST(ToleranceEquality, SeesEveryFieldOfAGeometricPart)
{
    using Change = void (*)(CprpGDTTol&);
    const Change changes[] = {
        [](CprpGDTTol& g) { g.datumActive[0] = false; },
        [](CprpGDTTol& g) { g.datumActive[1] = true; },
        [](CprpGDTTol& g) { g.datumActive[2] = false; },
        [](CprpGDTTol& g) { g.eType = E_GDT_TYPE_RUNOUT; },
        [](CprpGDTTol& g) { g.eMaterialModifier = E_GDT_MAT_MOD_MMC; },
        [](CprpGDTTol& g) { g.bRadial = true; },
        [](CprpGDTTol& g) { g.bActive = false; },
        [](CprpGDTTol& g) { g.eTolStatus = E_TOL_STATUS_IN_TOL; },
        [](CprpGDTTol& g) { g.nEditFlags = 1; },
        [](CprpGDTTol& g) { g.dbToleranceValue += 0.001; },
        [](CprpGDTTol& g) { g.datums[0] = OLESTR("X"); },
        [](CprpGDTTol& g) { g.datums[1] = OLESTR("X"); },
        [](CprpGDTTol& g) { g.datums[2].clear(); },
    };
    for (const Change change : changes)
        EXPECT_TRUE(Differs(E_TOL_TYPE_GDT_LINEAR, [&](CprpTolerance& t) { change(t.gdt[0]); }));
}

TEST(ToleranceEquality, IgnoresTheCaseOfDatumNamesForAsciiLettersAlone)
{
    EXPECT_FALSE(Differs(E_TOL_TYPE_GDT_LINEAR, [](CprpTolerance& t) { t.gdt[0].datums[0] = OLESTR("a"); }));
    CprpTolerance upper = OfType(E_TOL_TYPE_GDT_LINEAR);
    upper.gdt[0].datums[0] = OLESTR("\u00C4");
    CprpTolerance lower = upper;
    lower.gdt[0].datums[0] = OLESTR("\u00E4");
    EXPECT_FALSE(upper.Equals(lower));
}

TEST(ToleranceEquality, IgnoresResultsWhileNothingIsCalculated)
{
    EXPECT_FALSE(Differs(E_TOL_TYPE_LINEAR, [](CprpTolerance& t) { t.linear[0].dbError = 5; }));
    EXPECT_FALSE(Differs(E_TOL_TYPE_GDT_LINEAR, [](CprpTolerance& t) { t.gdt[0].dbCalculatedValue = 5; }));
}

TEST(ToleranceEquality, ComparesResultsOnceTheyAreCalculated)
{
    for (const LONG status : {E_TOL_STATUS_IN_TOL, E_TOL_STATUS_OUT_OF_TOL}) {
        CprpTolerance left = SomeOfType(E_TOL_TYPE_LINEAR);
        left.linear[0].eTolStatus = status;
        CprpTolerance right = left;
        right.linear[0].dbError = 0.00005;
        EXPECT_TRUE(left.Equals(right));
        right.linear[0].dbError = 1;
        EXPECT_FALSE(left.Equals(right));
        right = left;
        right.linear[0].dbCalculatedValue = 1;
        EXPECT_FALSE(left.Equals(right));

        left = SomeOfType(E_TOL_TYPE_GDT_LINEAR);
        left.gdt[0].eTolStatus = status;
        right = left;
        right.gdt[0].dbError = 1;
        EXPECT_FALSE(left.Equals(right));
    }
}

TEST(ToleranceEquality, TakesANominalCloserThanTheThresholdForTheSameAndTheThresholdItselfForAChange)
{
    const auto nominal = [](double value) {
        CprpTolerance tolerance = OfType(E_TOL_TYPE_LINEAR);
        tolerance.linear[0].dbNominalValue = value;
        return tolerance;
    };
    EXPECT_TRUE(nominal(0).Equals(nominal(0.00005)));
    EXPECT_TRUE(nominal(0.00005).Equals(nominal(0)));
    EXPECT_FALSE(nominal(0).Equals(nominal(0.0001)));
    EXPECT_FALSE(nominal(0).Equals(nominal(-0.0001)));
    EXPECT_TRUE(nominal(1000).Equals(nominal(1000.0001))); // this difference is below the threshold as computed
    EXPECT_FALSE(nominal(0).Equals(nominal(std::numeric_limits<double>::quiet_NaN())));
}

TEST(ToleranceText, OfATypeWithoutPartsIsItsMarks)
{
    CprpTolerance tolerance;
    EXPECT_EQ(TextOf(tolerance), OLESTR("0"));
    tolerance.bMarkAsDefault = true;
    EXPECT_EQ(TextOf(tolerance), OLESTR("100"));
    tolerance.bMarkAsNone = true;
    EXPECT_EQ(TextOf(tolerance), OLESTR("300"));
    tolerance.bMarkAsDefault = false;
    EXPECT_EQ(TextOf(tolerance), OLESTR("200"));
}

TEST(ToleranceText, OfALinearToleranceHoldsItsFiveFields)
{
    EXPECT_EQ(TextOf(SomeOfType(E_TOL_TYPE_LINEAR)), OLESTR("1#3\u00AC1\u00AC10\u00AC0.1\u00AC-0.1"));
    EXPECT_EQ(TextOf(SomeOfType(E_TOL_TYPE_ANGULAR)), OLESTR("2#3\u00AC1\u00AC10\u00AC0.1\u00AC-0.1"));
}

TEST(ToleranceText, OfARectangularToleranceHoldsThreeSections)
{
    CprpTolerance tolerance = OfType(E_TOL_TYPE_RECTANGULAR);
    tolerance.linear[0].bActive = true;
    tolerance.linear[1].bAbsoluteBounds = true;
    tolerance.linear[2].nEditFlags = -1;
    EXPECT_EQ(TextOf(tolerance), OLESTR("3#1\u00AC0\u00AC0\u00AC0\u00AC0#2\u00AC0\u00AC0\u00AC0\u00AC0"
                                        "#0\u00ACFFFFFFFF\u00AC0\u00AC0\u00AC0"));
}

TEST(ToleranceText, OfAGeometricTolerancePacksItsFlags)
{
    CprpTolerance tolerance = OfType(E_TOL_TYPE_GDT_LINEAR);
    tolerance.gdt[0].eType = E_GDT_TYPE_TRUE_POSITION;
    tolerance.gdt[0].bActive = true;
    tolerance.gdt[0].dbToleranceValue = 0.05;
    EXPECT_EQ(TextOf(tolerance), OLESTR("4#101\u00AC0.05"));

    tolerance.gdt[0].eMaterialModifier = E_GDT_MAT_MOD_LMC;
    tolerance.gdt[0].nEditFlags = 0x11F; // only the low byte has a place
    tolerance.gdt[0].bRadial = true;
    tolerance.gdt[0].datumActive = {true, true, true};
    EXPECT_EQ(TextOf(tolerance), OLESTR("4#21F011F\u00AC0.05"));
}

TEST(ToleranceText, HoldsTheNamesThatAreNotEmptyInOrderActiveOrNot)
{
    CprpTolerance tolerance = OfType(E_TOL_TYPE_GDT_RECTANGULAR);
    tolerance.gdt[0].datums = {OLESTR("A"), OLESTR(""), OLESTR("C c")};
    tolerance.gdt[1].datums = {OLESTR(""), OLESTR("B"), OLESTR("")};
    tolerance.gdt[1].datumActive = {true, false, false};
    EXPECT_EQ(TextOf(tolerance), OLESTR("5#A0\u00AC0\u00ACA\u00ACC c#44\u00AC0\u00ACB#0\u00AC0"));
}

TEST(ToleranceText, WritesSixSignificantDigitsAndTwoDigitExponents)
{
    CprpTolerance tolerance = OfType(E_TOL_TYPE_LINEAR);
    tolerance.linear[0].dbNominalValue = 12.34567;
    tolerance.linear[0].dbUpperBound = 1e14;
    tolerance.linear[0].dbLowerBound = -1.5e-7;
    EXPECT_EQ(TextOf(tolerance), OLESTR("1#0\u00AC0\u00AC12.3457\u00AC1e+14\u00AC-1.5e-07"));
}

TEST(ToleranceText, ReadsBackWhatItWrote)
{
    for (const PartsRule& rule : kPartsRules) {
        CprpTolerance tolerance = SomeOfType(rule.type);
        tolerance.bMarkAsNone = true;
        tolerance.gdt[1].datums = {OLESTR(""), OLESTR("only the second"), OLESTR("")};
        const Text text = TextOf(tolerance);
        const CprpTolerance back = CprpTolerance::Parse(text);
        EXPECT_TRUE(back.Equals(tolerance)) << rule.type;
        EXPECT_EQ(TextOf(back), text) << rule.type;
    }
}

TEST(ToleranceText, ReadsIntoAFreshRecordWithoutResults)
{
    const CprpTolerance tolerance = CprpTolerance::Parse(OLESTR("1#1\u00AC0\u00AC2\u00AC3\u00AC4"));
    EXPECT_EQ(tolerance.linear[0].dbNominalValue, 2);
    EXPECT_EQ(tolerance.linear[0].dbUpperBound, 3);
    EXPECT_EQ(tolerance.linear[0].dbLowerBound, 4);
    EXPECT_EQ(tolerance.linear[0].eTolStatus, E_TOL_STATUS_NOT_CALCULATED);
    EXPECT_EQ(tolerance.linear[0].dbError, 0);
    EXPECT_EQ(tolerance.linear[1].dbNominalValue, 0);
    EXPECT_TRUE(tolerance.gdt[0].datums[0].empty());
}

TEST(ToleranceText, ReadsAnEmptyOrUnreadableHeadAsNoToleranceWithoutMarks)
{
    for (const TextView text : {TextView(), TextView(OLESTR("#")), TextView(OLESTR("zz")), TextView(OLESTR("   "))}) {
        const CprpTolerance tolerance = CprpTolerance::Parse(text);
        EXPECT_EQ(TextOf(tolerance), OLESTR("0"));
    }
}

TEST(ToleranceText, ReadsTheHeadsLowByteAsTheType)
{
    EXPECT_EQ(TextOf(CprpTolerance::Parse(OLESTR("FFFF0000"))), OLESTR("0"));
    EXPECT_EQ(TextOf(CprpTolerance::Parse(OLESTR(" 0x300"))), OLESTR("300"));
    InternalErrorOf([] { CprpTolerance::Parse(OLESTR("6")); });
    InternalErrorOf([] { CprpTolerance::Parse(OLESTR("-1")); });
    InternalErrorOf([] { CprpTolerance::Parse(OLESTR("1FF#1")); });
}

TEST(ToleranceText, SkipsLeadingAndRepeatedMarks)
{
    EXPECT_EQ(TextOf(CprpTolerance::Parse(OLESTR("##1##3\u00AC1\u00AC10\u00AC0\u00AC0##"))),
              OLESTR("1#3\u00AC1\u00AC10\u00AC0\u00AC0"));
    EXPECT_EQ(TextOf(CprpTolerance::Parse(OLESTR("4#\u00AC101\u00AC\u00AC0.05"))), OLESTR("4#101\u00AC0.05"));
}

TEST(ToleranceText, LeavesZerosWhereALinearSectionBreaksOff)
{
    EXPECT_EQ(TextOf(CprpTolerance::Parse(OLESTR("1#3\u00AC1\u00AC10"))), OLESTR("1#3\u00AC1\u00AC10\u00AC0\u00AC0"));
    EXPECT_EQ(TextOf(CprpTolerance::Parse(OLESTR("1#3\u00ACx\u00AC10\u00AC1\u00AC2"))),
              OLESTR("1#3\u00AC0\u00AC0\u00AC0\u00AC0"));
    // A mark must follow its number at once.
    EXPECT_EQ(TextOf(CprpTolerance::Parse(OLESTR("1#3 \u00AC1\u00AC10\u00AC1\u00AC2"))),
              OLESTR("1#3\u00AC0\u00AC0\u00AC0\u00AC0"));
    EXPECT_EQ(TextOf(CprpTolerance::Parse(OLESTR("1#x"))), OLESTR("1#0\u00AC0\u00AC0\u00AC0\u00AC0"));
    EXPECT_EQ(TextOf(CprpTolerance::Parse(OLESTR("3#1"))),
              OLESTR("3#1\u00AC0\u00AC0\u00AC0\u00AC0#0\u00AC0\u00AC0\u00AC0\u00AC0#0\u00AC0\u00AC0\u00AC0\u00AC0"));
}

TEST(ToleranceText, LeavesZerosAndEmptyNamesWhereAGeometricSectionBreaksOff)
{
    const CprpTolerance tolerance = CprpTolerance::Parse(OLESTR("4#E0\u00ACx\u00ACA\u00ACB"));
    EXPECT_EQ(tolerance.gdt[0].dbToleranceValue, 0);
    EXPECT_THAT(tolerance.gdt[0].datums, testing::ElementsAre(OLESTR("A"), OLESTR("B"), OLESTR("")));
}

TEST(ToleranceText, IgnoresNamesThatNoBitAnnounces)
{
    const CprpTolerance tolerance = CprpTolerance::Parse(OLESTR("4#40\u00AC1\u00ACA\u00ACB"));
    EXPECT_THAT(tolerance.gdt[0].datums, testing::ElementsAre(OLESTR(""), OLESTR("A"), OLESTR("")));
}

TEST(ToleranceText, LosesItsPlaceWhereANameHoldsAMark)
{
    CprpTolerance tolerance = OfType(E_TOL_TYPE_GDT_LINEAR);
    tolerance.gdt[0].datums = {OLESTR("A\u00ACB"), OLESTR("C"), OLESTR("")};
    const CprpTolerance back = CprpTolerance::Parse(TextOf(tolerance));
    EXPECT_THAT(back.gdt[0].datums, testing::ElementsAre(OLESTR("A"), OLESTR("B"), OLESTR("")));
    tolerance.gdt[0].datums = {OLESTR("A#B"), OLESTR(""), OLESTR("")};
    EXPECT_EQ(CprpTolerance::Parse(TextOf(tolerance)).gdt[0].datums[0], OLESTR("A"));
}

TEST(ToleranceText, OfRandomRecordsReadsBackToTheSameText)
{
    std::mt19937 random(20260);
    const auto number = [&] { return std::uniform_real_distribution<double>(-1e6, 1e6)(random); };
    const auto flag = [&] { return (random() & 1) != 0; };
    for (int round = 0; round < 2000; ++round) {
        CprpTolerance tolerance = OfType(static_cast<LONG>(random() % 6));
        tolerance.bMarkAsDefault = flag();
        tolerance.bMarkAsNone = flag();
        for (CprpLinearTol& linear : tolerance.linear) {
            linear = {0, flag(), number(), number(), number(), 0, 0, flag(), static_cast<LONG>(random())};
        }
        for (CprpGDTTol& gdt : tolerance.gdt) {
            gdt.bActive = flag();
            gdt.bRadial = flag();
            gdt.eType = static_cast<LONG>(random() % 256);
            gdt.eMaterialModifier = static_cast<LONG>(random() % 256);
            gdt.nEditFlags = static_cast<LONG>(random() % 256);
            gdt.dbToleranceValue = number();
            for (std::size_t i = 0; i < kDatums; ++i) {
                gdt.datumActive[i] = flag();
                gdt.datums[i].assign(random() % 3, static_cast<OLECHAR>('A' + random() % 26));
            }
        }
        const Text text = TextOf(tolerance);
        ASSERT_EQ(TextOf(CprpTolerance::Parse(text)), text) << round;
    }
}

TEST(ToleranceConversion, MultipliesTheLengthsOfTheSelectedPartsAlone)
{
    for (const PartsRule& rule : kPartsRules) {
        CprpTolerance tolerance = OfType(rule.type);
        tolerance.form = {0, true, 1, 1, 1, true};
        tolerance.linear.fill({0, true, 1, 2, 3, 4, 5, true, 7});
        for (CprpGDTTol& gdt : tolerance.gdt) {
            gdt.dbToleranceValue = 1;
            gdt.dbCalculatedValue = 2;
            gdt.dbError = 3;
        }
        tolerance.Convert(10);
        EXPECT_EQ(tolerance.form.dbNominalValue, 1);
        for (std::size_t i = 0; i < kAxes; ++i) {
            const double linear = rule.lengths && i < rule.linear ? 10 : 1;
            EXPECT_EQ(tolerance.linear[i].dbNominalValue, 1 * linear) << rule.type;
            EXPECT_EQ(tolerance.linear[i].dbUpperBound, 2 * linear);
            EXPECT_EQ(tolerance.linear[i].dbLowerBound, 3 * linear);
            EXPECT_EQ(tolerance.linear[i].dbCalculatedValue, 4 * linear);
            EXPECT_EQ(tolerance.linear[i].dbError, 5 * linear);
            EXPECT_EQ(tolerance.linear[i].nEditFlags, 7);
            const double gdt = i < rule.gdt ? 10 : 1;
            EXPECT_EQ(tolerance.gdt[i].dbToleranceValue, 1 * gdt) << rule.type;
            EXPECT_EQ(tolerance.gdt[i].dbCalculatedValue, 2 * gdt);
            EXPECT_EQ(tolerance.gdt[i].dbError, 3 * gdt);
        }
    }
}

TEST(ToleranceConversion, LeavesAnglesAlone)
{
    CprpTolerance tolerance = SomeOfType(E_TOL_TYPE_ANGULAR);
    tolerance.Convert(25.4);
    EXPECT_EQ(tolerance.linear[0].dbNominalValue, 10);
}
