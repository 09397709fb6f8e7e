#include "frame/NumberScan.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double kLargest = std::numeric_limits<double>::max();
constexpr float kLargestFloat = std::numeric_limits<float>::max();

/// What one read gave: whether it read, the value, and the text behind it.
template <class T>
struct Read {
    bool done;
    T value;
    Text rest;

    bool operator==(const Read&) const = default;
};

template <class T>
void PrintTo(const Read<T>& read, std::ostream* out)
{
    *out << (read.done ? "read " : "nothing ") << read.value << " then '"
         << std::string(read.rest.begin(), read.rest.end()) << '\'';
}

constexpr LONG kUntouched = 77;

template <class T, class Method>
Read<T> ReadWith(TextView text, Method method)
{
    TextScanner scanner(text);
    T value = kUntouched;
    const bool done = (scanner.*method)(value);
    return {done, value, Text(scanner.Rest())};
}

Read<LONG> Long(TextView text)
{
    return ReadWith<LONG>(text, &TextScanner::ReadDecimal<LONG>);
}
Read<DWORD> Dword(TextView text)
{
    return ReadWith<DWORD>(text, &TextScanner::ReadDecimal<DWORD>);
}
Read<DWORD> Hex(TextView text)
{
    return ReadWith<DWORD>(text, &TextScanner::ReadHex<DWORD>);
}
Read<double> Double(TextView text)
{
    return ReadWith<double>(text, &TextScanner::ReadDouble);
}
Read<float> Float(TextView text)
{
    return ReadWith<float>(text, &TextScanner::ReadFloat);
}

Read<double> Written(TextView text, int decimals)
{
    TextScanner scanner(text);
    double value = kUntouched;
    const bool done = scanner.ReadWrittenNumber(decimals, value);
    return {done, value, Text(scanner.Rest())};
}

template <class T>
Read<T> Nothing(TextView text)
{
    return {false, static_cast<T>(kUntouched), Text(text)};
}

TEST(NumberScan, WhiteSpaceAndOneSignGoAheadOfEveryNumber)
{
    EXPECT_EQ(Long(OLESTR(" \t\r\n\v\f+12")), (Read<LONG>{true, 12, {}}));
    EXPECT_EQ(Long(OLESTR("  -12")), (Read<LONG>{true, -12, {}}));
    EXPECT_EQ(Dword(OLESTR(" -1")), (Read<DWORD>{true, 0xFFFFFFFF, {}}));
    EXPECT_EQ(Hex(OLESTR("\n-1")), (Read<DWORD>{true, 0xFFFFFFFF, {}}));
    EXPECT_EQ(Hex(OLESTR("+1a")), (Read<DWORD>{true, 0x1A, {}}));
    EXPECT_EQ(Double(OLESTR(" +1.5")), (Read<double>{true, 1.5, {}}));
    EXPECT_EQ(Float(OLESTR("\t-1.5")), (Read<float>{true, -1.5F, {}}));
}

TEST(NumberScan, WhatIsNoNumberReadsNothingAndMovesNothing)
{
    for (const TextView text :
         {TextView(OLESTR("")), TextView(OLESTR("  ")), TextView(OLESTR("+")), TextView(OLESTR(" -")),
          TextView(OLESTR("+-5")), TextView(OLESTR("- 5")), TextView(OLESTR("g1")),
          TextView(OLESTR("\x00A0"
                          "1"))}) {
        EXPECT_EQ(Long(text), Nothing<LONG>(text));
        EXPECT_EQ(Hex(text), Nothing<DWORD>(text));
        EXPECT_EQ(Double(text), Nothing<double>(text));
        EXPECT_EQ(Float(text), Nothing<float>(text));
    }
}

TEST(NumberScan, AnEmptyViewWithoutAPointerIsAnEmptyText)
{
    EXPECT_EQ(Double(TextView{}), Nothing<double>({}));
    EXPECT_EQ(Long(TextView{}), Nothing<LONG>({}));
    EXPECT_TRUE(TextScanner(TextView{}).AtEnd());
}

TEST(NumberScan, TheLongestPrefixIsTakenAndTheRestIsLeft)
{
    EXPECT_EQ(Long(OLESTR("12abc")), (Read<LONG>{true, 12, OLESTR("abc")}));
    EXPECT_EQ(Long(OLESTR("12.7")), (Read<LONG>{true, 12, OLESTR(".7")}));
    EXPECT_EQ(Long(OLESTR("0x1F")), (Read<LONG>{true, 0, OLESTR("x1F")}));
    EXPECT_EQ(Hex(OLESTR("1ag")), (Read<DWORD>{true, 0x1A, OLESTR("g")}));
    EXPECT_EQ(Double(OLESTR("12abc")), (Read<double>{true, 12, OLESTR("abc")}));
    EXPECT_EQ(Double(OLESTR("1.2.3")), (Read<double>{true, 1.2, OLESTR(".3")}));
    EXPECT_EQ(Double(OLESTR("1,5")), (Read<double>{true, 1, OLESTR(",5")}));
}

TEST(NumberScan, HexadecimalTakesEitherCaseAndAPrefix)
{
    EXPECT_EQ(Hex(OLESTR("deadBEEF")), (Read<DWORD>{true, 0xDEADBEEF, {}}));
    EXPECT_EQ(Hex(OLESTR("0x1f")), (Read<DWORD>{true, 0x1F, {}}));
    EXPECT_EQ(Hex(OLESTR("0X1F")), (Read<DWORD>{true, 0x1F, {}}));
    EXPECT_EQ(Hex(OLESTR("-0x10")), (Read<DWORD>{true, 0xFFFFFFF0, {}}));
    EXPECT_EQ(Hex(OLESTR("0")), (Read<DWORD>{true, 0, {}}));
    EXPECT_EQ(Hex(OLESTR("x1")), Nothing<DWORD>(OLESTR("x1")));
}

TEST(NumberScan, APrefixAloneIsAZeroAndReadingGoesOnBehindIt)
{
    EXPECT_EQ(Hex(OLESTR("0x")), (Read<DWORD>{true, 0, {}}));
    EXPECT_EQ(Hex(OLESTR("0xg5")), (Read<DWORD>{true, 0, OLESTR("g5")}));
    TextScanner scanner(OLESTR("0x,3"));
    LONG id = 7;
    LONG flags = 7;
    EXPECT_TRUE(scanner.ReadHex(id) && scanner.ReadLiteral(OLECHAR{','}) && scanner.ReadHex(flags));
    EXPECT_EQ(id, 0);
    EXPECT_EQ(flags, 3);
}

TEST(NumberScan, IntegersKeepTheirLowestThirtyTwoBits)
{
    EXPECT_EQ(Long(OLESTR("4294967295")), (Read<LONG>{true, -1, {}}));
    EXPECT_EQ(Long(OLESTR("-4294967297")), (Read<LONG>{true, -1, {}}));
    EXPECT_EQ(Long(OLESTR("2147483648")), (Read<LONG>{true, std::numeric_limits<LONG>::min(), {}}));
    EXPECT_EQ(Dword(OLESTR("4294967296")), (Read<DWORD>{true, 0, {}}));
    EXPECT_EQ(Hex(OLESTR("123456789")), (Read<DWORD>{true, 0x23456789, {}}));
    // 10^40 is 2^40 * 5^40; 10^40 + 5 has the low bits of 5.
    EXPECT_EQ(Long(OLESTR("10000000000000000000000000000000000000005")), (Read<LONG>{true, 5, {}}));
}

TEST(NumberScan, DecimalNotationMayLackDigitsOnOneSideOfThePoint)
{
    EXPECT_EQ(Double(OLESTR(".5")), (Read<double>{true, 0.5, {}}));
    EXPECT_EQ(Double(OLESTR("5.")), (Read<double>{true, 5, {}}));
    EXPECT_EQ(Double(OLESTR("-.25e1")), (Read<double>{true, -2.5, {}}));
    EXPECT_EQ(Double(OLESTR(".")), Nothing<double>(OLESTR(".")));
    EXPECT_EQ(Double(OLESTR("-.e5")), Nothing<double>(OLESTR("-.e5")));
    EXPECT_EQ(Double(OLESTR("e5")), Nothing<double>(OLESTR("e5")));
}

TEST(NumberScan, ADanglingExponentIsLeftOut)
{
    EXPECT_EQ(Double(OLESTR("1e")), (Read<double>{true, 1, OLESTR("e")}));
    EXPECT_EQ(Double(OLESTR("1e+")), (Read<double>{true, 1, OLESTR("e+")}));
    EXPECT_EQ(Double(OLESTR("1.5E-x")), (Read<double>{true, 1.5, OLESTR("E-x")}));
    EXPECT_EQ(Double(OLESTR("1e5")), (Read<double>{true, 1e5, {}}));
    EXPECT_EQ(Double(OLESTR("1E+05z")), (Read<double>{true, 1e5, OLESTR("z")}));
    EXPECT_EQ(Double(OLESTR("1e-3")), (Read<double>{true, 1e-3, {}}));
    EXPECT_EQ(Double(OLESTR("1d3")), (Read<double>{true, 1, OLESTR("d3")}));
}

TEST(NumberScan, NamesAndHexadecimalFloatsAreNoNumbers)
{
    EXPECT_EQ(Double(OLESTR("inf")), Nothing<double>(OLESTR("inf")));
    EXPECT_EQ(Double(OLESTR("-infinity")), Nothing<double>(OLESTR("-infinity")));
    EXPECT_EQ(Double(OLESTR("nan")), Nothing<double>(OLESTR("nan")));
    EXPECT_EQ(Double(OLESTR("0x10")), (Read<double>{true, 0, OLESTR("x10")}));
}

TEST(NumberScan, AnOverflowGivesTheLargestFiniteNumber)
{
    EXPECT_EQ(Double(OLESTR("1e309")).value, kLargest);
    EXPECT_EQ(Double(OLESTR("-1e309")).value, -kLargest);
    EXPECT_EQ(Double(OLESTR("1.7976931348623159e308")).value, kLargest);
    EXPECT_EQ(Double(OLESTR("1e99999999999999999999999")).value, kLargest);
    EXPECT_EQ(Double(Text(400, OLECHAR{'9'})).value, kLargest);
    EXPECT_EQ(Float(OLESTR("1e39")).value, kLargestFloat);
    EXPECT_EQ(Float(OLESTR("-3.5e38")).value, -kLargestFloat);
    EXPECT_EQ(Float(OLESTR("-1e400")).value, -kLargestFloat);
    EXPECT_EQ(Float(OLESTR("3.4028235e38")).value, kLargestFloat);
}

TEST(NumberScan, AnUnderflowGivesASignedZero)
{
    EXPECT_EQ(Double(OLESTR("1e-400")).value, 0);
    EXPECT_TRUE(std::signbit(Double(OLESTR("-1e-400")).value));
    EXPECT_EQ(Double(OLESTR("1e-99999999999999999999999")).value, 0);
    EXPECT_EQ(Double(OLESTR("0e99999999999999999999999")).value, 0);
    EXPECT_EQ(Double(OLESTR("4.9e-324")).value, std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(Float(OLESTR("1e-60")).value, 0);
    EXPECT_EQ(Float(OLESTR("1.4e-45")).value, std::numeric_limits<float>::denorm_min());
    EXPECT_TRUE(std::signbit(Double(OLESTR("-0")).value));
}

TEST(NumberScan, ZerosAheadAndBehindChangeNothing)
{
    const Text zeros(100'000, OLECHAR{'0'});
    EXPECT_EQ(Double(zeros + OLESTR("12.5") + zeros).value, 12.5);
    EXPECT_EQ(Double(OLESTR("0.") + zeros + OLESTR("25e100002")).value, 25.0);
    EXPECT_EQ(Double(OLESTR("1") + zeros + OLESTR("e-100000")).value, 1.0);
    EXPECT_EQ(Long(zeros + OLESTR("12")).value, 12);
}

TEST(NumberScan, ADigitFarBehindATieDecidesIt)
{
    const Text tie = OLESTR("9007199254740993"); // Halfway between two doubles.
    EXPECT_EQ(Double(tie).value, 9007199254740992.0);
    EXPECT_EQ(Double(tie + OLESTR(".") + Text(2000, OLECHAR{'0'})).value, 9007199254740992.0);
    EXPECT_EQ(Double(tie + OLESTR(".") + Text(2000, OLECHAR{'0'}) + OLESTR("1")).value, 9007199254740994.0);
}

TEST(NumberScan, SinglePrecisionIsRoundedOnce)
{
    // The text lies just above a tie of two floats, but its nearest double is that tie.
    EXPECT_EQ(Float(OLESTR("1.00000005960464477539062500000000001")).value, std::nextafter(1.0F, 2.0F));
    EXPECT_EQ(Float(OLESTR("1.000000059604644775390625")).value, 1.0F);
    EXPECT_EQ(Float(OLESTR("16777217")).value, 16777216.0F);
    EXPECT_EQ(Float(OLESTR("0.1")).value, 0.1F);
}

TEST(NumberScan, ALiteralStandsExactlyWhereItIsSought)
{
    TextScanner scanner(OLESTR("1 ,2,3"));
    float first = 0;
    EXPECT_TRUE(scanner.ReadFloat(first));
    EXPECT_FALSE(scanner.ReadLiteral(OLECHAR{','}));
    EXPECT_EQ(scanner.Rest(), OLESTR(" ,2,3"));
    scanner.SkipWhiteSpace();
    EXPECT_TRUE(scanner.ReadLiteral(OLESTR(",2")));
    EXPECT_FALSE(scanner.ReadLiteral(OLESTR(",3,4")));
    EXPECT_TRUE(scanner.ReadLiteral(OLECHAR{','}));
    EXPECT_FALSE(scanner.AtEnd());
}

TEST(NumberScan, ThreeNumbersOfALineMayHaveBlanksAheadOfEach)
{
    TextScanner scanner(OLESTR("    1.0000,   -2.5000, +3"));
    float x = 0;
    float y = 0;
    float z = 0;
    EXPECT_TRUE(scanner.ReadFloat(x) && scanner.ReadLiteral(OLECHAR{','}) && scanner.ReadFloat(y) &&
                scanner.ReadLiteral(OLECHAR{','}) && scanner.ReadFloat(z));
    scanner.SkipWhiteSpace();
    EXPECT_TRUE(scanner.AtEnd());
    EXPECT_EQ(x, 1.0F);
    EXPECT_EQ(y, -2.5F);
    EXPECT_EQ(z, 3.0F);
}

TEST(NumberScan, NothingBehindTheTextIsLookedAt)
{
    const Text all = OLESTR("12345678901234567890.5");
    for (std::size_t length = 1; length <= 9; ++length) {
        const TextView text = TextView(all).substr(0, length);
        LONG expected = 0;
        for (const OLECHAR digit : text)
            expected = expected * 10 + (digit - '0');
        EXPECT_EQ(Long(text), (Read<LONG>{true, expected, {}}));
        EXPECT_EQ(Double(text), (Read<double>{true, static_cast<double>(expected), {}}));
    }
}

TEST(NumberScan, UnitsThatOnlyResembleDigitsEndTheNumber)
{
    for (const OLECHAR unit :
         {OLECHAR{0}, OLECHAR{'/'}, OLECHAR{':'}, OLECHAR{0x0130}, OLECHAR{0xFF11}, OLECHAR{0xFFFF}, OLECHAR{0x8030}}) {
        for (std::size_t ahead = 1; ahead <= 5; ++ahead) {
            const Text rest = unit + Text(OLESTR("11111111"));
            const Text text = Text(ahead, OLECHAR{'1'}) + rest;
            EXPECT_EQ(Long(text).rest, rest) << ahead << ' ' << unsigned{unit};
            EXPECT_EQ(Double(text).rest, rest) << ahead << ' ' << unsigned{unit};
        }
    }
}

TEST(NumberScan, AWrittenNumberIsReadInItsOwnForm)
{
    EXPECT_EQ(Written(OLESTR("0"), 4), (Read<double>{true, 0, {}}));
    EXPECT_EQ(Written(OLESTR("10"), 0), (Read<double>{true, 10, {}}));
    EXPECT_EQ(Written(OLESTR("-12.5"), 4), (Read<double>{true, -12.5, {}}));
    EXPECT_EQ(Written(OLESTR("0.0625"), 4), (Read<double>{true, 0.0625, {}}));
    EXPECT_EQ(Written(OLESTR("100.0001;7"), 4), (Read<double>{true, 100.0001, OLESTR(";7")}));
    EXPECT_TRUE(std::signbit(Written(OLESTR("-0"), 4).value));
}

TEST(NumberScan, AnyOtherFormIsNoWrittenNumber)
{
    for (const TextView text : {OLESTR(""), OLESTR("-"), OLESTR("+1"), OLESTR(" 1"), OLESTR("- 1"), OLESTR("."),
                                OLESTR(".5"), OLESTR("5."), OLESTR("1.50"), OLESTR("1.0"), OLESTR("01"), OLESTR("-00"),
                                OLESTR("00.5"), OLESTR("1.23456"), OLESTR("1e3"), OLESTR("1.5E-2"), OLESTR("x")})
        EXPECT_EQ(Written(text, 4), Nothing<double>(text));
    EXPECT_EQ(Written(OLESTR("1.5"), 0), Nothing<double>(OLESTR("1.5")));
    EXPECT_EQ(Written(OLESTR("1.5"), -1), Nothing<double>(OLESTR("1.5")));
}

TEST(NumberScan, AWrittenNumberHasFifteenDigitsWithAllItsDecimals)
{
    EXPECT_TRUE(Written(OLESTR("12345678901.5"), 4).done);
    EXPECT_FALSE(Written(OLESTR("123456789012.5"), 4).done);
    EXPECT_TRUE(Written(OLESTR("123456789012345"), 0).done);
    EXPECT_FALSE(Written(OLESTR("1234567890123456"), 0).done);
    EXPECT_FALSE(Written(OLESTR("1"), 15).done);
}

TEST(NumberScan, AWrittenIntegerFitsItsTypeAndHasNoNeedlessUnit)
{
    const auto sign = [](TextView text) { return ReadWith<std::int32_t>(text, &TextScanner::ReadWrittenSigned); };
    const auto plain = [](TextView text) { return ReadWith<std::uint32_t>(text, &TextScanner::ReadWrittenUnsigned); };
    using Sign = Read<std::int32_t>;
    using Plain = Read<std::uint32_t>;
    EXPECT_EQ(sign(OLESTR("2147483647")), (Sign{true, 2147483647, {}}));
    EXPECT_EQ(sign(OLESTR("-2147483648")), (Sign{true, std::numeric_limits<std::int32_t>::min(), {}}));
    EXPECT_EQ(sign(OLESTR("0;")), (Sign{true, 0, OLESTR(";")}));
    EXPECT_EQ(plain(OLESTR("4294967295")), (Plain{true, 4294967295U, {}}));
    EXPECT_EQ(plain(OLESTR("0")), (Plain{true, 0, {}}));
    for (const TextView text : {OLESTR(""), OLESTR("-"), OLESTR("-0"), OLESTR("+1"), OLESTR("01"), OLESTR(" 1"),
                                OLESTR("2147483648"), OLESTR("-2147483649"), OLESTR("18446744073709551617")})
        EXPECT_EQ(sign(text), Nothing<std::int32_t>(text));
    for (const TextView text : {OLESTR(""), OLESTR("-1"), OLESTR("00"), OLESTR("4294967296"), OLESTR("x")})
        EXPECT_EQ(plain(text), Nothing<std::uint32_t>(text));
}

} // namespace
