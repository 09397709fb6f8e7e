#include "list/EditKeys.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

constexpr EditType kAllTypes[] = {EditType::Free,
                                  EditType::SignedInteger,
                                  EditType::UnsignedInteger,
                                  EditType::FloatingPoint,
                                  EditType::AnsiString,
                                  EditType::UnicodeString,
                                  EditType(6)};
constexpr EditSelection kCaretAtEnd{2, 2};

KeyAction Typed(EditType type, OLECHAR c, EditSelection selection = kCaretAtEnd, TextView refused = {})
{
    return ActionOfCharacter(type, c, selection, refused);
}

} // namespace

TEST(EditKeys, EachKindHasItsOwnTextLimit)
{
    EXPECT_EQ(TextLimitOf(EditType::Free), 500);
    EXPECT_EQ(TextLimitOf(EditType::SignedInteger), 9);
    EXPECT_EQ(TextLimitOf(EditType::UnsignedInteger), 9);
    EXPECT_EQ(TextLimitOf(EditType::FloatingPoint), 15);
    EXPECT_EQ(TextLimitOf(EditType::AnsiString), 500);
    EXPECT_EQ(TextLimitOf(EditType::UnicodeString), 500);
}

TEST(EditKeys, TheFiveEditCommandsPassInEveryKindEvenWhenRefused)
{
    const Text all{1, 3, 22, 24, 26};
    for (const EditType type : kAllTypes) {
        for (const OLECHAR c : all)
            EXPECT_EQ(Typed(type, c, kCaretAtEnd, all), KeyAction::PassOn) << int(type) << ' ' << int(c);
    }
}

TEST(EditKeys, DigitsAndBackspacePassInEveryNumber)
{
    for (const EditType type : {EditType::SignedInteger, EditType::UnsignedInteger, EditType::FloatingPoint}) {
        for (OLECHAR c = OLECHAR('0'); c <= OLECHAR('9'); ++c)
            EXPECT_EQ(Typed(type, c), KeyAction::PassOn);
        EXPECT_EQ(Typed(type, 8), KeyAction::PassOn);
        EXPECT_EQ(Typed(type, OLECHAR('/')), KeyAction::Drop);
        EXPECT_EQ(Typed(type, OLECHAR(':')), KeyAction::Drop);
    }
}

TEST(EditKeys, OnlyARealNumberTakesAPoint)
{
    EXPECT_EQ(Typed(EditType::FloatingPoint, OLECHAR('.')), KeyAction::PassOn);
    EXPECT_EQ(Typed(EditType::SignedInteger, OLECHAR('.')), KeyAction::Drop);
    EXPECT_EQ(Typed(EditType::FloatingPoint, OLECHAR(',')), KeyAction::Drop);
}

TEST(EditKeys, AnUnsignedNumberDropsSignsAndPointsWithoutABeep)
{
    for (const OLECHAR c : {OLECHAR('-'), OLECHAR('.'), OLECHAR('~'), OLECHAR('m')})
        EXPECT_EQ(Typed(EditType::UnsignedInteger, c), KeyAction::Drop);
}

TEST(EditKeys, NumbersDropOtherControlCharactersInSilence)
{
    for (const EditType type : {EditType::SignedInteger, EditType::UnsignedInteger, EditType::FloatingPoint}) {
        for (const OLECHAR c : {OLECHAR(9), OLECHAR(13), OLECHAR(27), OLECHAR(127)})
            EXPECT_EQ(Typed(type, c), KeyAction::Drop);
    }
}

TEST(EditKeys, MinusTogglesTheSignUnlessItReplacesTheFront)
{
    for (const EditType type : {EditType::SignedInteger, EditType::FloatingPoint}) {
        EXPECT_EQ(Typed(type, OLECHAR('-'), {2, 2}), KeyAction::ToggleSign);
        EXPECT_EQ(Typed(type, OLECHAR('-'), {0, 0}), KeyAction::ToggleSign);
        EXPECT_EQ(Typed(type, OLECHAR('-'), {1, 2}), KeyAction::ToggleSign);
        EXPECT_EQ(Typed(type, OLECHAR('-'), {0, 2}), KeyAction::PassOn);
    }
}

TEST(EditKeys, TildeAlwaysTogglesTheSign)
{
    EXPECT_EQ(Typed(EditType::FloatingPoint, OLECHAR('~'), {0, 2}), KeyAction::ToggleSign);
    EXPECT_EQ(Typed(EditType::SignedInteger, OLECHAR('~'), {0, 0}), KeyAction::ToggleSign);
}

TEST(EditKeys, AnsiTextBeepsFromCharacter128OnAndAtRefusedOnes)
{
    EXPECT_EQ(Typed(EditType::AnsiString, 127), KeyAction::PassOn);
    EXPECT_EQ(Typed(EditType::AnsiString, 128), KeyAction::Beep);
    EXPECT_EQ(Typed(EditType::AnsiString, OLECHAR('#'), kCaretAtEnd, OLESTR("#~")), KeyAction::Beep);
    EXPECT_EQ(Typed(EditType::AnsiString, OLECHAR('-'), kCaretAtEnd, OLESTR("#~")), KeyAction::PassOn);
}

TEST(EditKeys, UnicodeTextBeepsAtRefusedCharactersOnly)
{
    EXPECT_EQ(Typed(EditType::UnicodeString, 0x3B1), KeyAction::PassOn);
    EXPECT_EQ(Typed(EditType::UnicodeString, 0x3B1, kCaretAtEnd, OLESTR("\x3B1")), KeyAction::Beep);
}

TEST(EditKeys, TextsPassTabAndReturnUnlessTheyAreRefused)
{
    for (const EditType type : {EditType::AnsiString, EditType::UnicodeString}) {
        EXPECT_EQ(Typed(type, 9), KeyAction::PassOn);
        EXPECT_EQ(Typed(type, 13), KeyAction::PassOn);
        EXPECT_EQ(Typed(type, 13, kCaretAtEnd, OLESTR("\r")), KeyAction::Beep);
    }
}

TEST(EditKeys, FreeTextAndUnknownKindsPassEverything)
{
    for (const EditType type : {EditType::Free, EditType(6), EditType(-1)}) {
        for (const OLECHAR c : {OLECHAR('-'), OLECHAR('#'), OLECHAR(0x3B1), OLECHAR(9)})
            EXPECT_EQ(Typed(type, c, {0, 2}, OLESTR("#")), KeyAction::PassOn);
    }
}

TEST(SignToggle, PutsAMinusAheadAndMovesTheCaretAlong)
{
    const EditedText result = ToggleSign(OLESTR("12"), {2, 2});
    EXPECT_EQ(result.text, OLESTR("-12"));
    EXPECT_EQ(result.selection, (EditSelection{3, 3}));
}

TEST(SignToggle, TakesAMinusAwayAgain)
{
    const EditedText result = ToggleSign(OLESTR("-12"), {1, 3});
    EXPECT_EQ(result.text, OLESTR("12"));
    EXPECT_EQ(result.selection, (EditSelection{0, 2}));
}

TEST(SignToggle, RemovesEveryMinusButMovesTheSelectionByOne)
{
    const EditedText result = ToggleSign(OLESTR("-1-2-"), {5, 5});
    EXPECT_EQ(result.text, OLESTR("12"));
    EXPECT_EQ(result.selection, (EditSelection{4, 4}));
}

TEST(SignToggle, MayTakeTheSelectionAheadOfTheText)
{
    EXPECT_EQ(ToggleSign(OLESTR("-12"), {0, 0}).selection, (EditSelection{-1, -1}));
}

TEST(SignToggle, MakesALoneMinusOutOfNothing)
{
    const EditedText result = ToggleSign(TextView(), {0, 0});
    EXPECT_EQ(result.text, OLESTR("-"));
    EXPECT_EQ(result.selection, (EditSelection{1, 1}));
}

TEST(UnitKeys, ConvertByTheInchInBothDirections)
{
    EXPECT_EQ(UnitKeyOf(OLECHAR('m'))->factor, 25.4);
    EXPECT_EQ(UnitKeyOf(OLECHAR('M'))->factor, 25.4);
    EXPECT_EQ(UnitKeyOf(OLECHAR('i'))->factor, 0.03937007874015748);
    EXPECT_EQ(UnitKeyOf(OLECHAR('I'))->factor, 0.03937007874015748);
    EXPECT_FALSE(UnitKeyOf(OLECHAR('n')));
}

TEST(UnitKeys, SmallLettersActWithinTheirRangeOnly)
{
    const UnitKey m = *UnitKeyOf(OLECHAR('m'));
    EXPECT_FALSE(m.ActsOn(1e20));
    EXPECT_FALSE(m.ActsOn(39370078740158.0));
    EXPECT_TRUE(m.ActsOn(39370078740157.0));
    EXPECT_TRUE(m.ActsOn(-39370078740157.0));
    EXPECT_FALSE(m.ActsOn(9.9999999999999e-15));
    EXPECT_TRUE(m.ActsOn(1e-14));
    EXPECT_FALSE(m.ActsOn(0));

    const UnitKey i = *UnitKeyOf(OLECHAR('i'));
    EXPECT_FALSE(i.ActsOn(1e15));
    EXPECT_TRUE(i.ActsOn(-9e14));
    EXPECT_FALSE(i.ActsOn(2.5399999999999e-13));
    EXPECT_TRUE(i.ActsOn(2.54e-13));
    EXPECT_FALSE(i.ActsOn(0));
}

TEST(UnitKeys, CapitalsActOnEverything)
{
    for (const double value : {0.0, 1e20, -1e300, 5e-324}) {
        EXPECT_TRUE(UnitKeyOf(OLECHAR('M'))->ActsOn(value));
        EXPECT_TRUE(UnitKeyOf(OLECHAR('I'))->ActsOn(value));
    }
}

TEST(UnitKeys, AreKeysOfRealNumbersOnly)
{
    for (const OLECHAR c : {OLECHAR('m'), OLECHAR('M'), OLECHAR('i'), OLECHAR('I')}) {
        EXPECT_EQ(Typed(EditType::FloatingPoint, c), KeyAction::ConvertUnit);
        EXPECT_EQ(Typed(EditType::SignedInteger, c), KeyAction::Drop);
        EXPECT_EQ(Typed(EditType::AnsiString, c), KeyAction::PassOn);
    }
}

TEST(UnitKeys, WriteSixteenDigitsAndAnExponentOfTwo)
{
    EXPECT_EQ(UnitKeyText(25.4), OLESTR("25.4"));
    EXPECT_EQ(UnitKeyText(1e20 * 25.4), OLESTR("2.54e+21"));
    EXPECT_EQ(UnitKeyText(0.1 * 0.03937007874015748), OLESTR("0.003937007874015748"));
    EXPECT_EQ(UnitKeyText(1e-5), OLESTR("1e-05"));
    EXPECT_EQ(UnitKeyText(0), OLESTR("0"));
    EXPECT_EQ(UnitKeyText(-1.0 / 3), OLESTR("-0.3333333333333333"));
}
