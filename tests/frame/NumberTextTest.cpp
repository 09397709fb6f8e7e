#include "frame/NumberText.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kLargest = std::numeric_limits<double>::max();

TEST(NumberText, TrailingZerosAndThePointAreCut)
{
    EXPECT_EQ(FormatNumber(12.5, 4), OLESTR("12.5"));
    EXPECT_EQ(FormatNumber(3, 4), OLESTR("3"));
    EXPECT_EQ(FormatNumber(20, 4), OLESTR("20"));
    EXPECT_EQ(FormatNumber(0, 4), OLESTR("0"));
    EXPECT_EQ(FormatNumber(100, 1), OLESTR("100"));
    EXPECT_EQ(FormatNumber(0.000000001, 9), OLESTR("0.000000001"));
    EXPECT_EQ(FormatNumber(0.00000001, 9), OLESTR("0.00000001"));
    EXPECT_EQ(FormatNumber(0.1, 9), OLESTR("0.1"));
    EXPECT_EQ(FormatNumber(0.12345, 5), OLESTR("0.12345"));
    EXPECT_EQ(FormatNumber(0.12340, 5), OLESTR("0.1234"));
}

TEST(NumberText, WithoutDecimalsNoZeroIsCut)
{
    EXPECT_EQ(FormatNumber(20, 0), OLESTR("20"));
    EXPECT_EQ(FormatNumber(0, 0), OLESTR("0"));
    EXPECT_EQ(FormatNumber(1e22, 0), OLESTR("10000000000000000000000"));
}

TEST(NumberText, ASmallNegativeValueKeepsItsSign)
{
    EXPECT_EQ(FormatNumber(-0.00001, 4), OLESTR("-0"));
    EXPECT_EQ(FormatNumber(-0.0, 4), OLESTR("-0"));
    EXPECT_EQ(FormatNumber(-0.0, 0), OLESTR("-0"));
}

TEST(NumberText, ValuesAreRoundedAsTheyAreStored)
{
    EXPECT_EQ(FormatNumber(1.23456789, 4), OLESTR("1.2346"));
    EXPECT_EQ(FormatNumber(2.675, 2), OLESTR("2.67")); // The double lies below its text.
    EXPECT_EQ(FormatNumber(1.005, 2), OLESTR("1"));
    EXPECT_EQ(FormatNumber(0.99999, 4), OLESTR("1"));
    EXPECT_EQ(FormatNumber(-9999.99999, 4), OLESTR("-10000"));
    EXPECT_EQ(FormatNumber(99999999.99999, 4), OLESTR("100000000"));
}

TEST(NumberText, TiesGoToTheEvenDigit)
{
    EXPECT_EQ(FormatFixed(0.5, 0), OLESTR("0"));
    EXPECT_EQ(FormatFixed(1.5, 0), OLESTR("2"));
    EXPECT_EQ(FormatFixed(2.5, 0), OLESTR("2"));
    EXPECT_EQ(FormatFixed(-3.5, 0), OLESTR("-4"));
    EXPECT_EQ(FormatFixed(0.125, 2), OLESTR("0.12"));
    EXPECT_EQ(FormatFixed(0.375, 2), OLESTR("0.38"));
    EXPECT_EQ(FormatFixed(1048576.5, 0), OLESTR("1048576"));
    EXPECT_EQ(FormatFixed(1048577.5, 0), OLESTR("1048578"));
    EXPECT_EQ(FormatFixed(4503599627370495.5, 0), OLESTR("4503599627370496"));
    EXPECT_EQ(FormatFixed(4503599627370494.5, 0), OLESTR("4503599627370494"));
    EXPECT_EQ(FormatFixed(0.000244140625, 11), OLESTR("0.00024414062"));
}

TEST(NumberText, FewerDecimalsThanNonePrintSixWithTheirZeros)
{
    EXPECT_EQ(FormatNumber(12.5, -1), OLESTR("12.500000"));
    EXPECT_EQ(FormatNumber(12.5, std::numeric_limits<int>::min()), OLESTR("12.500000"));
    EXPECT_EQ(FormatFixed(12.5, -3), OLESTR("12.500000"));
}

TEST(NumberText, NonFiniteValuesPrintTheirNamesUntrimmed)
{
    for (const int decimals : {-1, 0, 4, 100}) {
        EXPECT_EQ(FormatNumber(kInfinity, decimals), OLESTR("inf"));
        EXPECT_EQ(FormatNumber(-kInfinity, decimals), OLESTR("-inf"));
        EXPECT_EQ(FormatNumber(kNotANumber, decimals), OLESTR("nan"));
        EXPECT_EQ(FormatNumber(-kNotANumber, decimals), OLESTR("nan"));
    }
    EXPECT_EQ(FormatGeneral(-kInfinity), OLESTR("-inf"));
    EXPECT_EQ(FormatGeneral(-kNotANumber), OLESTR("nan"));
}

TEST(NumberText, HugeValuesPrintAllTheirDigits)
{
    EXPECT_EQ(FormatNumber(9007199254740991.0, 4), OLESTR("9007199254740991"));
    EXPECT_EQ(FormatNumber(9007199254740992.0, 4), OLESTR("9007199254740992"));
    EXPECT_EQ(FormatNumber(1e14, 4), OLESTR("100000000000000"));
    EXPECT_EQ(FormatNumber(-1e23, 4), OLESTR("-99999999999999991611392"));
    const Text largest = FormatFixed(kLargest, 6);
    EXPECT_EQ(largest.size(), 309U + 7U);
    EXPECT_TRUE(largest.starts_with(OLESTR("179769313486231570814527423731704356798070567525844996598917")));
    EXPECT_TRUE(largest.ends_with(OLESTR("858368.000000")));
}

TEST(NumberText, DecimalsAreNotCutAtSeventeenDigits)
{
    EXPECT_EQ(FormatNumber(0.1, 20), OLESTR("0.10000000000000000555"));
    EXPECT_EQ(FormatNumber(0.1, 55), OLESTR("0.1000000000000000055511151231257827021181583404541015625"));
    EXPECT_EQ(FormatNumber(0.1, std::numeric_limits<int>::max()), FormatNumber(0.1, 55));
    EXPECT_EQ(FormatFixed(0.5, 1500), Text(OLESTR("0.5")) + Text(1499, OLECHAR{'0'}));
    const Text smallest = FormatNumber(std::numeric_limits<double>::denorm_min(), 2000);
    EXPECT_EQ(smallest.size(), 2U + 1074U);
    EXPECT_TRUE(smallest.ends_with(OLESTR("19718265533447265625")));
}

TEST(NumberText, TheFastFormSaysWhenItCannot)
{
    OLECHAR buffer[kMaxFastNumber];
    EXPECT_EQ(TryWriteNumber(buffer, 9007199254740992.0, 4), nullptr);
    EXPECT_EQ(TryWriteNumber(buffer, -kInfinity, 4), nullptr);
    EXPECT_EQ(TryWriteNumber(buffer, kNotANumber, 4), nullptr);
    EXPECT_EQ(TryWriteNumber(buffer, 1, 10), nullptr);
    EXPECT_EQ(TryWriteNumber(buffer, 1, -1), nullptr);
}

TEST(NumberText, TheFastFormStaysInItsBufferWithTheLongestNumber)
{
    OLECHAR buffer[kMaxFastNumber + 1];
    buffer[kMaxFastNumber] = OLECHAR{'#'};
    const OLECHAR* end = TryWriteNumber(buffer, -8388607.999999999, 9);
    ASSERT_NE(end, nullptr);
    EXPECT_EQ(TextView(buffer, static_cast<std::size_t>(end - buffer)), OLESTR("-8388607.999999999"));
    end = TryWriteNumber(buffer, -4503599627370495.5, 9);
    ASSERT_NE(end, nullptr);
    EXPECT_EQ(TextView(buffer, static_cast<std::size_t>(end - buffer)), OLESTR("-4503599627370495.5"));
    EXPECT_EQ(buffer[kMaxFastNumber], OLECHAR{'#'});
}

TEST(NumberText, GeneralTextHasSixDigitsAndAnExponentOfTwo)
{
    EXPECT_EQ(FormatGeneral(12.34567), OLESTR("12.3457"));
    EXPECT_EQ(FormatGeneral(10), OLESTR("10"));
    EXPECT_EQ(FormatGeneral(-0.1), OLESTR("-0.1"));
    EXPECT_EQ(FormatGeneral(0.05), OLESTR("0.05"));
    EXPECT_EQ(FormatGeneral(1e14), OLESTR("1e+14"));
    EXPECT_EQ(FormatGeneral(123456), OLESTR("123456"));
    EXPECT_EQ(FormatGeneral(1234567), OLESTR("1.23457e+06"));
    EXPECT_EQ(FormatGeneral(0.0001), OLESTR("0.0001"));
    EXPECT_EQ(FormatGeneral(0.00001), OLESTR("1e-05"));
    EXPECT_EQ(FormatGeneral(1e300), OLESTR("1e+300"));
    EXPECT_EQ(FormatGeneral(-0.0), OLESTR("-0"));
}

TEST(NumberText, GeneralTextTakesOtherNumbersOfDigits)
{
    EXPECT_EQ(FormatGeneral(1e20, 16), OLESTR("1e+20"));
    EXPECT_EQ(FormatGeneral(25.4 * 0.1, 16), OLESTR("2.54"));
    EXPECT_EQ(FormatGeneral(0.1, 17), OLESTR("0.10000000000000001"));
    EXPECT_EQ(FormatGeneral(0.5, 5000), OLESTR("0.5"));
    EXPECT_EQ(FormatGeneral(kLargest, 5000), FormatFixed(kLargest, 0));
}

Text Column(double value, int decimals)
{
    Text out;
    AppendColumn(out, value, decimals);
    return out;
}

TEST(NumberText, AColumnIsTenWideWithABlankForTheMissingSign)
{
    EXPECT_EQ(Column(1, 4), OLESTR("    1.0000"));
    EXPECT_EQ(Column(-1, 4), OLESTR("   -1.0000"));
    EXPECT_EQ(Column(2, 5), OLESTR("   2.00000"));
    EXPECT_EQ(Column(-0.0, 4), OLESTR("   -0.0000"));
    EXPECT_EQ(Column(1234.5678, 4), OLESTR(" 1234.5678"));
    EXPECT_EQ(Column(-1234.5678, 4), OLESTR("-1234.5678"));
    EXPECT_EQ(Column(12345.6789, 4), OLESTR(" 12345.6789"));
    EXPECT_EQ(Column(-12345.6789, 4), OLESTR("-12345.6789"));
    EXPECT_EQ(Column(kInfinity, 4), OLESTR("       inf"));
    EXPECT_EQ(Column(-kInfinity, 4), OLESTR("      -inf"));
}

TEST(NumberText, AColumnIsAppendedBehindWhatStandsThere)
{
    Text line = OLESTR("12345678901234,");
    AppendColumn(line, 3, 4);
    EXPECT_EQ(line, OLESTR("12345678901234,    3.0000"));
}

template <class Append>
Text Appended(Append append)
{
    Text out = OLESTR(":");
    append(out);
    return out;
}

TEST(NumberText, IntegersPrintLikeTheFormatsOfTheCLibrary)
{
    EXPECT_EQ(Appended([](Text& out) { AppendSigned(out, -1); }), OLESTR(":-1"));
    EXPECT_EQ(Appended([](Text& out) { AppendSigned(out, INT32_MIN); }), OLESTR(":-2147483648"));
    EXPECT_EQ(Appended([](Text& out) { AppendSigned(out, INT32_MAX); }), OLESTR(":2147483647"));
    EXPECT_EQ(Appended([](Text& out) { AppendUnsigned(out, 0); }), OLESTR(":0"));
    EXPECT_EQ(Appended([](Text& out) { AppendUnsigned(out, 0xFFFFFFFF); }), OLESTR(":4294967295"));
    EXPECT_EQ(Appended([](Text& out) { AppendHex(out, 0, HexCase::Lower); }), OLESTR(":0"));
    EXPECT_EQ(Appended([](Text& out) { AppendHex(out, 0x1a, HexCase::Lower); }), OLESTR(":1a"));
    EXPECT_EQ(Appended([](Text& out) { AppendHex(out, 0xFFFFFFFF, HexCase::Upper); }), OLESTR(":FFFFFFFF"));
    EXPECT_EQ(Appended([](Text& out) { AppendHex(out, 0x10000000, HexCase::Upper); }), OLESTR(":10000000"));
}

TEST(NumberText, IntegersOfEveryLengthHaveTheirDigits)
{
    std::string nines;
    for (std::uint32_t power = 1; nines.size() < 9; power *= 10) {
        EXPECT_EQ(Appended([=](Text& out) { AppendUnsigned(out, power); }),
                  OLESTR(":1") + Text(nines.size(), OLECHAR{'0'}));
        nines += '9';
        EXPECT_EQ(Appended([=](Text& out) { AppendUnsigned(out, power * 10 - 1); }),
                  OLESTR(":") + Text(nines.begin(), nines.end()));
    }
}

} // namespace
