// Digits are read four at a time out of one 64-bit word. A number of at most 19 digits whose mantissa and power of
// ten are both exact doubles is one multiplication or division, and that is correctly rounded; every other one goes,
// brought into a plain form, through std::from_chars.
#include "frame/NumberScan.h"

#include "frame/TextTools.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace {

static_assert(std::endian::native == std::endian::little, "the first unit of a word stands in its lowest bits");

constexpr bool IsDigit(OLECHAR unit)
{
    return unit >= OLECHAR{'0'} && unit <= OLECHAR{'9'};
}

/// -1 for what is no hexadecimal digit.
constexpr int HexDigit(OLECHAR unit)
{
    if (IsDigit(unit))
        return unit - '0';
    const OLECHAR folded = FoldAscii(unit);
    return folded >= OLECHAR{'a'} && folded <= OLECHAR{'f'} ? folded - 'a' + 10 : -1;
}

/// The four units from `at` on, the first in the lowest bits. What lies behind the end reads as zero units.
std::uint64_t LoadFour(const OLECHAR* begin, const OLECHAR* at, const OLECHAR* end)
{
    std::uint64_t word = 0;
    if (end - at >= 4) {
        std::memcpy(&word, at, sizeof word);
    } else if (end - begin >= 4) {
        if (at == end)
            return 0;
        std::memcpy(&word, end - 4, sizeof word); // The last four units hold the ones asked for at their end.
        word >>= 16 * (4 - (end - at));
    } else {
        for (int shift = 0; at != end; ++at, shift += 16)
            word |= std::uint64_t{static_cast<std::uint16_t>(*at)} << shift;
    }
    return word;
}

/// Up to four digits at the start of a word of four units.
struct DigitGroup {
    std::uint32_t value; ///< 0 without digits.
    int count;
};

DigitGroup LeadingDigits(std::uint64_t units)
{
    constexpr std::uint64_t zeros = 0x0030'0030'0030'0030;
    constexpr std::uint64_t lift = 0x7FF6'7FF6'7FF6'7FF6; // Carries 10 and more into the top bit of its 16.
    constexpr std::uint64_t tops = 0x8000'8000'8000'8000;
    constexpr std::uint64_t weights = 0x03E8'0064'000A'0001; // 1000, 100, 10, 1

    std::uint64_t digits = units ^ zeros;
    // A unit that is no digit may disturb the units above it by its carry, never the ones below: the first is right.
    const int count = std::countr_zero(((digits + lift) | digits) & tops) / 16;
    if (count == 0)
        return {0, 0};
    digits <<= 16 * (4 - count); // Leading zeros make it four digits.
    return {static_cast<std::uint32_t>((digits * weights) >> 48), count};
}

constexpr std::uint32_t kPowersOfTen[] = {1, 10, 100, 1'000, 10'000};

/// Takes all digits from `at` on into `mantissa`, which wraps round beyond 19 digits, and moves `at` behind them.
void TakeDigits(const OLECHAR* begin, const OLECHAR*& at, const OLECHAR* end, std::uint64_t& mantissa)
{
    for (;;) {
        const DigitGroup group = LeadingDigits(LoadFour(begin, at, end));
        mantissa = mantissa * kPowersOfTen[group.count] + group.value;
        at += group.count;
        if (group.count < 4)
            return;
    }
}

/// Skips white space and takes a sign. Returns whether it was a minus.
bool TakeSign(const OLECHAR*& at, const OLECHAR* end)
{
    while (at != end && IsWhiteSpace(*at))
        ++at;
    if (at == end || (*at != OLECHAR{'-'} && *at != OLECHAR{'+'}))
        return false;
    return *at++ == OLECHAR{'-'};
}

/// The parts of a decimal number's text.
struct DecimalText {
    TextView whole;
    TextView fraction;
    std::uint64_t mantissa = 0; ///< All digits of both as one number; meaningless beyond 19 of them.
    std::int64_t exponent = 0;  ///< Far too large ones stop at kExponentLimit, which no text can make up for.
};

constexpr std::int64_t kExponentLimit = std::int64_t{1} << 56;

/// Takes "e", a sign and digits if all of it is there; otherwise nothing.
void TakeExponent(const OLECHAR*& at, const OLECHAR* end, std::int64_t& exponent)
{
    const OLECHAR* next = at;
    if (next == end || FoldAscii(*next) != OLECHAR{'e'})
        return;
    ++next;
    bool negative = false;
    if (next != end && (*next == OLECHAR{'-'} || *next == OLECHAR{'+'}))
        negative = *next++ == OLECHAR{'-'};
    if (next == end || !IsDigit(*next))
        return;
    for (; next != end && IsDigit(*next); ++next) {
        if (exponent < kExponentLimit / 16)
            exponent = exponent * 10 + (*next - '0');
    }
    exponent = negative ? -exponent : exponent;
    at = next;
}

/// Takes digits with an optional point and an exponent. False without a digit.
bool TakeDecimal(const OLECHAR* begin, const OLECHAR*& at, const OLECHAR* end, DecimalText& number)
{
    const auto between = [](const OLECHAR* from, const OLECHAR* to) {
        return TextView(from, static_cast<std::size_t>(to - from));
    };
    const OLECHAR* start = at;
    TakeDigits(begin, at, end, number.mantissa);
    number.whole = between(start, at);
    if (at != end && *at == OLECHAR{'.'}) {
        start = ++at;
        TakeDigits(begin, at, end, number.mantissa);
        number.fraction = between(start, at);
    }
    if (number.whole.empty() && number.fraction.empty())
        return false;
    TakeExponent(at, end, number.exponent);
    return true;
}

constexpr double kExactPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                        1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// The number where one exact operation gives it; false where it takes more.
bool TryExact(const DecimalText& number, double& value)
{
    constexpr std::size_t mostDigits = 19; // They fit 64 bits.
    constexpr std::uint64_t mostMantissa = std::uint64_t{1} << 53;
    constexpr std::int64_t mostPower = 22;

    if (number.whole.size() + number.fraction.size() > mostDigits || number.mantissa > mostMantissa)
        return false;
    const std::int64_t power = number.exponent - static_cast<std::int64_t>(number.fraction.size());
    if (power < -mostPower || power > mostPower)
        return false;
    const auto mantissa = static_cast<double>(static_cast<std::int64_t>(number.mantissa));
    value = power < 0 ? mantissa / kExactPowersOfTen[-power] : mantissa * kExactPowersOfTen[power];
    return true;
}

/// The single-precision number where the road through double rounds as the text would; false where it may not.
bool TryExact(const DecimalText& number, float& value)
{
    double wide;
    if (!TryExact(number, wide))
        return false;
    // Rounding twice goes wrong only if the first result is a tie of the second, or falls among the subnormals.
    constexpr std::uint64_t cutBits = (std::uint64_t{1} << 29) - 1;
    constexpr std::uint64_t tie = std::uint64_t{1} << 28;
    const bool isTie = (std::bit_cast<std::uint64_t>(wide) & cutBits) == tie;
    const bool inRange = wide == 0 || (wide >= (std::numeric_limits<float>::min)() && wide < 1e38);
    if (isTie || !inRange)
        return false;
    value = static_cast<float>(wide);
    return true;
}

/// The number by std::from_chars, from a form in which length and exponent are tame: significant digits, exponent.
template <class Float>
Float ConvertDigits(const DecimalText& number)
{
    constexpr std::size_t mostDigits = 800; // Ties between doubles have at most 767 digits.
    constexpr std::int64_t mostMagnitude = 400;
    char buffer[mostDigits + 1 + 8];
    char* end = buffer;
    bool more = false;
    std::int64_t magnitude = number.exponent; // The number is 0.ddd * 10^magnitude, its first d not zero.

    const auto take = [&](TextView digits, bool beforePoint) {
        for (const OLECHAR digit : digits) {
            const bool leadingZero = digit == OLECHAR{'0'} && end == buffer;
            if (!leadingZero && end < buffer + mostDigits)
                *end++ = static_cast<char>(digit);
            else if (digit != OLECHAR{'0'})
                more = true;
            magnitude += beforePoint && !leadingZero ? 1 : !beforePoint && leadingZero ? -1 : 0;
        }
    };
    take(number.whole, true);
    take(number.fraction, false);
    if (end == buffer || magnitude < -mostMagnitude)
        return 0;
    if (magnitude > mostMagnitude)
        return (std::numeric_limits<Float>::max)();
    if (more)
        *end++ = '1'; // Anything behind the kept digits only has to break a tie.

    const auto power = static_cast<int>(magnitude) - static_cast<int>(end - buffer);
    *end++ = 'e';
    end = std::to_chars(end, buffer + sizeof buffer, power).ptr;
    Float value = 0;
    const std::errc error = std::from_chars(buffer, end, value).ec;
    if (error == std::errc::result_out_of_range)
        return magnitude > 0 ? (std::numeric_limits<Float>::max)() : 0;
    return std::isinf(value) ? (std::numeric_limits<Float>::max)() : value;
}

} // namespace

template <class Float>
bool TextScanner::ReadFloating(Float& value)
{
    const OLECHAR* at = m_at;
    const bool negative = TakeSign(at, m_end);
    DecimalText number;
    if (!TakeDecimal(m_begin, at, m_end, number))
        return false;
    Float magnitude;
    if (!TryExact(number, magnitude))
        magnitude = ConvertDigits<Float>(number);
    value = negative ? -magnitude : magnitude;
    m_at = at;
    return true;
}

bool TextScanner::ReadDouble(double& value)
{
    return ReadFloating(value);
}

bool TextScanner::ReadFloat(float& value)
{
    return ReadFloating(value);
}

bool TextScanner::ReadHexBits(std::uint32_t& bits)
{
    const OLECHAR* at = m_at;
    const bool negative = TakeSign(at, m_end);
    bool any = false;
    if (m_end - at >= 2 && at[0] == OLECHAR{'0'} && FoldAscii(at[1]) == OLECHAR{'x'}) {
        at += 2;
        any = true; // "0x" alone is a zero.
    }
    std::uint32_t number = 0;
    for (int digit; at != m_end && (digit = HexDigit(*at)) >= 0; ++at) {
        number = number << 4 | static_cast<std::uint32_t>(digit);
        any = true;
    }
    if (!any)
        return false;
    bits = negative ? 0U - number : number;
    m_at = at;
    return true;
}

bool TextScanner::ReadDecimalBits(std::uint32_t& bits)
{
    const OLECHAR* at = m_at;
    const bool negative = TakeSign(at, m_end);
    const OLECHAR* start = at;
    std::uint64_t number = 0; // Wraps round modulo 2^64, which keeps the low 32 bits right.
    TakeDigits(m_begin, at, m_end, number);
    if (at == start)
        return false;
    bits = static_cast<std::uint32_t>(negative ? 0U - number : number);
    m_at = at;
    return true;
}

bool TextScanner::ReadLiteral(OLECHAR unit)
{
    if (m_at == m_end || *m_at != unit)
        return false;
    ++m_at;
    return true;
}

bool TextScanner::ReadLiteral(TextView text)
{
    if (!Rest().starts_with(text))
        return false;
    m_at += text.size();
    return true;
}

void TextScanner::SkipWhiteSpace()
{
    while (m_at != m_end && IsWhiteSpace(*m_at))
        ++m_at;
}
