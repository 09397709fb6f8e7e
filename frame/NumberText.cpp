// The fast road: value = mantissa / 2^shift is cut into its whole part and the rest; rest * 10^decimals / 2^shift is
// formed exactly and rounded, ties to even. With at most nine decimals and a shift split at 32 bits no product
// exceeds 64 bits. Digits are made four at a time, as four 16-bit units in one 64-bit word.
#include "frame/NumberText.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>

namespace {

static_assert(std::endian::native == std::endian::little, "the first unit of a word stands in its lowest bits");

constexpr std::uint64_t kFourZeros = 0x0030'0030'0030'0030;
constexpr int kMaxFastDecimals = 9;
constexpr std::uint32_t kPowersOfTen[] = {1,       10,        100,        1'000,       10'000,
                                          100'000, 1'000'000, 10'000'000, 100'000'000, 1'000'000'000};

void StoreFour(OLECHAR* out, std::uint64_t units)
{
    std::memcpy(out, &units, sizeof units);
}

/// The four decimal digits of a number below 10000, one to each 16 bits, the first in the lowest.
constexpr std::uint64_t FourDigits(std::uint32_t number)
{
    const std::uint64_t pairs = number / 100 | std::uint64_t{number % 100} << 32;
    const std::uint64_t tens = (pairs * 103 >> 10) & 0x0000'000F'0000'000F; // 103/1024 is a tenth for 0 to 99.
    return tens | (pairs - 10 * tens) << 16;
}
static_assert(FourDigits(9075) == 0x0005'0007'0000'0009);

OLECHAR* WriteFour(OLECHAR* out, std::uint32_t number)
{
    StoreFour(out, FourDigits(number) | kFourZeros);
    return out + 4;
}

OLECHAR* WriteEight(OLECHAR* out, std::uint32_t number)
{
    return WriteFour(WriteFour(out, number / 10'000), number % 10'000);
}

/// A number below 10000 without leading zeros; "0" for none.
OLECHAR* WriteUpToFour(OLECHAR* out, std::uint32_t number)
{
    constexpr std::uint64_t lastDigit = std::uint64_t{1} << 48; // The last digit stays, be it zero.
    const std::uint64_t digits = FourDigits(number);
    const int zeros = std::countr_zero(digits | lastDigit) / 16;
    StoreFour(out, (digits | kFourZeros) >> (16 * zeros));
    return out + (4 - zeros);
}

OLECHAR* WriteWhole(OLECHAR* out, std::uint64_t number)
{
    if (number < 10'000)
        return WriteUpToFour(out, static_cast<std::uint32_t>(number));
    if (number < 100'000'000) {
        const auto lower = static_cast<std::uint32_t>(number);
        return WriteFour(WriteUpToFour(out, lower / 10'000), lower % 10'000);
    }
    const std::uint64_t upper = number / 100'000'000;
    return WriteEight(WriteWhole(out, upper), static_cast<std::uint32_t>(number - upper * 100'000'000));
}

/// A magnitude rounded to some decimals: whole + fraction / 10^decimals.
struct Rounded {
    std::uint64_t whole;
    std::uint32_t fraction;
};

/// Divides by 2^shift and rounds ties so that `wholeParity` plus the result is even. `more` tells of a remainder
/// that was cut off below the dividend already.
constexpr std::uint64_t ShiftRounded(std::uint64_t dividend, int shift, bool more, std::uint64_t wholeParity)
{
    const std::uint64_t quotient = dividend >> shift;
    const std::uint64_t rest = dividend & ((std::uint64_t{1} << shift) - 1);
    const std::uint64_t half = std::uint64_t{1} << (shift - 1);
    const bool up = rest > half || (rest == half && (more || ((quotient + wholeParity) & 1) != 0));
    return quotient + (up ? 1 : 0);
}

/// False for a magnitude of 2^53 or more, infinities and NaN included. `decimals` is 0 to kMaxFastDecimals.
bool RoundMagnitude(std::uint64_t bits, int decimals, Rounded& rounded)
{
    constexpr std::uint64_t implicitBit = std::uint64_t{1} << 52;
    constexpr int negligible = 1023 - 32; // Below 2^-32 all decimals are zero: half of the ninth is about 2^-31.

    const int exponent = static_cast<int>(bits >> 52 & 0x7FF);
    const std::uint64_t mantissa = (bits & (implicitBit - 1)) | implicitBit;
    const int shift = 1075 - exponent; // The magnitude is mantissa / 2^shift.
    if (shift <= 0) {
        rounded = {mantissa, 0};
        return shift == 0;
    }
    if (exponent < negligible) {
        rounded = {0, 0};
        return true;
    }

    const std::uint32_t scale = kPowersOfTen[decimals];
    const std::uint64_t whole = shift < 64 ? mantissa >> shift : 0;
    const std::uint64_t rest = shift < 64 ? mantissa & ((std::uint64_t{1} << shift) - 1) : mantissa;
    const std::uint64_t parity = decimals == 0 ? whole : 0; // With decimals the whole part counts as even.
    std::uint64_t fraction;
    if (shift <= 32) {
        fraction = ShiftRounded(rest * scale, shift, false, parity);
    } else {
        const std::uint64_t lower = (rest & 0xFFFF'FFFF) * scale;
        const std::uint64_t upper = (rest >> 32) * scale + (lower >> 32);
        fraction = ShiftRounded(upper, shift - 32, (lower & 0xFFFF'FFFF) != 0, parity);
    }
    const bool carry = fraction == scale;
    rounded = {whole + (carry ? 1 : 0), carry ? 0 : static_cast<std::uint32_t>(fraction)};
    return true;
}

/// Writes the point and exactly `decimals` digits, 1 to kMaxFastDecimals.
OLECHAR* WriteFraction(OLECHAR* out, std::uint32_t fraction, int decimals)
{
    *out++ = OLECHAR{'.'};
    if (decimals <= 4) {
        WriteFour(out, fraction * kPowersOfTen[4 - decimals]);
    } else if (decimals <= 8) {
        WriteEight(out, fraction * kPowersOfTen[8 - decimals]);
    } else {
        WriteEight(out, fraction / 10);
        out[8] = static_cast<OLECHAR>('0' + fraction % 10);
    }
    return out + decimals;
}

/// Writes the point and the digits up to the last that is not zero; nothing at all for a fraction of zero.
OLECHAR* WriteTrimmedFraction(OLECHAR* out, std::uint32_t fraction, int decimals)
{
    const auto significant = [](std::uint64_t digits) { return 4 - std::countl_zero(digits) / 16; };
    if (fraction == 0)
        return out;
    *out++ = OLECHAR{'.'};
    if (decimals <= 4) {
        const std::uint64_t digits = FourDigits(fraction * kPowersOfTen[4 - decimals]);
        StoreFour(out, digits | kFourZeros);
        return out + significant(digits);
    }
    const bool ninth = decimals > 8;
    const std::uint32_t eight = ninth ? fraction / 10 : fraction * kPowersOfTen[8 - decimals];
    const std::uint64_t first = FourDigits(eight / 10'000);
    const std::uint64_t second = FourDigits(eight % 10'000);
    StoreFour(out, first | kFourZeros);
    StoreFour(out + 4, second | kFourZeros);
    if (ninth && fraction % 10 != 0) {
        out[8] = static_cast<OLECHAR>('0' + fraction % 10);
        return out + 9;
    }
    return second != 0 ? out + 4 + significant(second) : out + significant(first);
}

enum class Zeros { Keep, Trim };

OLECHAR* TryWriteFixed(OLECHAR* out, double value, int decimals, Zeros zeros)
{
    if (decimals < 0 || decimals > kMaxFastDecimals)
        return nullptr;
    const auto bits = std::bit_cast<std::uint64_t>(value);
    Rounded rounded;
    if (!RoundMagnitude(bits, decimals, rounded))
        return nullptr;
    *out = OLECHAR{'-'};
    out = WriteWhole(out + (bits >> 63), rounded.whole);
    if (decimals == 0)
        return out;
    return zeros == Zeros::Trim ? WriteTrimmedFraction(out, rounded.fraction, decimals)
                                : WriteFraction(out, rounded.fraction, decimals);
}

void AppendAscii(Text& out, const char* first, const char* last)
{
    out.append(first, last); // Unit by unit: ASCII is the same in both.
}

/// Prints the values that are no numbers; false for finite ones.
bool AppendNonFinite(Text& out, double value)
{
    if (std::isfinite(value))
        return false;
    out.append(std::isnan(value) ? OLESTR("nan") : std::signbit(value) ? OLESTR("-inf") : OLESTR("inf"));
    return true;
}

/// The long road: any finite value, any number of decimals from 0 on.
void AppendFixedExactly(Text& out, double value, int decimals, Zeros zeros)
{
    constexpr int mostDecimals = 1074; // The last decimal of the smallest double; behind it stand zeros only.
    constexpr std::size_t longest = 1 + 309 + 1 + mostDecimals;
    const int printed = decimals < mostDecimals ? decimals : mostDecimals;
    char buffer[longest];
    const char* end = std::to_chars(buffer, buffer + longest, value, std::chars_format::fixed, printed).ptr;
    if (zeros == Zeros::Trim && decimals > 0) {
        while (end[-1] == '0')
            --end;
        if (end[-1] == '.')
            --end;
    }
    AppendAscii(out, buffer, end);
    if (zeros == Zeros::Keep)
        out.append(static_cast<std::size_t>(decimals - printed), OLECHAR{'0'});
}

void AppendRounded(Text& out, double value, int decimals, Zeros zeros)
{
    OLECHAR buffer[kMaxFastNumber];
    if (const OLECHAR* end = TryWriteFixed(buffer, value, decimals, zeros))
        out.append(buffer, static_cast<std::size_t>(end - buffer));
    else if (!AppendNonFinite(out, value))
        AppendFixedExactly(out, value, decimals, zeros);
}

constexpr int kDecimalsForNegative = 6; // What the C library takes for a negative precision.

} // namespace

OLECHAR* WriteUnsigned(OLECHAR* out, std::uint32_t value) noexcept
{
    return WriteWhole(out, value);
}

OLECHAR* WriteSigned(OLECHAR* out, std::int32_t value) noexcept
{
    const auto bits = static_cast<std::uint32_t>(value);
    *out = OLECHAR{'-'};
    return value < 0 ? WriteWhole(out + 1, 0U - bits) : WriteWhole(out, bits);
}

OLECHAR* WriteHex(OLECHAR* out, std::uint32_t value, HexCase letters) noexcept
{
    const char* digits = letters == HexCase::Upper ? "0123456789ABCDEF" : "0123456789abcdef";
    if (value < 16) { // as flags and small enumerations are
        *out = static_cast<OLECHAR>(digits[value]);
        return out + 1;
    }
    const int length = (std::bit_width(value) + 3) / 4;
    for (int at = length - 1; at >= 0; --at, value >>= 4)
        out[at] = static_cast<OLECHAR>(digits[value & 15]);
    return out + length;
}

OLECHAR* TryWriteNumber(OLECHAR* out, double value, int decimals) noexcept
{
    return TryWriteFixed(out, value, decimals, Zeros::Trim);
}

void AppendNumber(Text& out, double value, int decimals)
{
    if (decimals < 0)
        AppendFixed(out, value, kDecimalsForNegative); // On purpose: the zeros are cut for one decimal or more only.
    else
        AppendRounded(out, value, decimals, Zeros::Trim);
}

Text FormatNumber(double value, int decimals)
{
    Text out;
    AppendNumber(out, value, decimals);
    return out;
}

void AppendFixed(Text& out, double value, int decimals)
{
    AppendRounded(out, value, decimals < 0 ? kDecimalsForNegative : decimals, Zeros::Keep);
}

Text FormatFixed(double value, int decimals)
{
    Text out;
    AppendFixed(out, value, decimals);
    return out;
}

void AppendGeneral(Text& out, double value, int digits)
{
    if (AppendNonFinite(out, value))
        return;
    constexpr int mostDigits = 767; // No double has more significant digits; %g prints no zeros behind them.
    constexpr std::size_t longest = 1 + mostDigits + 1 + 350; // Sign, digits, point; zeros or an exponent.
    char buffer[longest];
    const int printed = digits < mostDigits ? digits : mostDigits;
    AppendAscii(out, buffer, std::to_chars(buffer, buffer + longest, value, std::chars_format::general, printed).ptr);
}

Text FormatGeneral(double value, int digits)
{
    Text out;
    AppendGeneral(out, value, digits);
    return out;
}

void AppendColumn(Text& out, double value, int decimals)
{
    constexpr std::size_t columns = 10;
    const std::size_t start = out.size();
    AppendFixed(out, value, decimals);
    const std::size_t length = out.size() - start;
    const std::size_t blanks = length < columns ? columns - length : out[start] == OLECHAR{'-'} ? 0 : 1;
    out.insert(start, blanks, OLECHAR{' '});
}

void AppendSigned(Text& out, std::int32_t value)
{
    OLECHAR buffer[kMaxFastNumber];
    out.append(buffer, static_cast<std::size_t>(WriteSigned(buffer, value) - buffer));
}

void AppendUnsigned(Text& out, std::uint32_t value)
{
    OLECHAR buffer[kMaxFastNumber];
    out.append(buffer, static_cast<std::size_t>(WriteUnsigned(buffer, value) - buffer));
}

void AppendHex(Text& out, std::uint32_t value, HexCase letters)
{
    OLECHAR buffer[kMaxFastNumber];
    out.append(buffer, static_cast<std::size_t>(WriteHex(buffer, value, letters) - buffer));
}
