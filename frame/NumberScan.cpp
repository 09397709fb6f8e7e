// Nearly every number is plain: a sign, a few digits, a point. It takes one loop and one division of two exact doubles,
// which is rounded correctly. Reading several digits at a time was measured and gains nothing on so few. Exponents and
// more digits take a second road, still exact while mantissa and power of ten are; what remains goes, brought into a
// tame form, through std::from_chars.
#include "frame/NumberScan.h"

#include "frame/TextTools.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>

namespace {

constexpr bool IsDigit(OLECHAR unit)
{
    return unit >= OLECHAR{'0'} && unit <= OLECHAR{'9'};
}

/// The value of each ASCII unit as a hexadecimal digit; -1 for what is none.
constexpr auto kHexValues = [] {
    std::array<std::int8_t, 128> values{};
    values.fill(-1);
    for (int digit = 0; digit < 16; ++digit) {
        const auto at = static_cast<std::size_t>(digit < 10 ? '0' + digit : 'a' + digit - 10);
        values[at] = static_cast<std::int8_t>(digit);
        if (digit >= 10)
            values[at - ('a' - 'A')] = static_cast<std::int8_t>(digit);
    }
    return values;
}();

/// -1 for what is no hexadecimal digit.
constexpr int HexDigit(OLECHAR unit)
{
    return unit < kHexValues.size() ? kHexValues[unit] : -1;
}

/// Takes all hexadecimal digits into `number`, which keeps the last eight, and moves `at` behind them.
inline void TakeHexDigits(const OLECHAR*& at, const OLECHAR* end, std::uint32_t& number)
{
    for (int digit; at != end && (digit = HexDigit(*at)) >= 0; ++at)
        number = number << 4 | static_cast<std::uint32_t>(digit);
}

/// Every power of ten that a double holds exactly.
constexpr double kExactPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                        1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// Takes all digits from `at` on into `number`, which wraps round beyond 19 digits, and moves `at` behind them.
inline void TakeDigits(const OLECHAR*& at, const OLECHAR* end, std::uint64_t& number)
{
    for (; at != end && IsDigit(*at); ++at)
        number = number * 10 + static_cast<std::uint64_t>(*at - '0');
}

/// Skips white space and takes a sign. Returns whether it was a minus.
inline bool TakeSign(const OLECHAR*& at, const OLECHAR* end)
{
    while (at != end && IsWhiteSpace(*at))
        ++at;
    if (at == end)
        return false;
    const bool minus = *at == OLECHAR{'-'};
    at += minus | (*at == OLECHAR{'+'});
    return minus;
}

constexpr std::ptrdiff_t kMostPlainDigits = 15; // Any so many are an exact double.

/// The number of at most kMostPlainDigits digits, `decimals` of them behind the point.
inline double PlainNumber(bool negative, std::uint64_t digits, std::ptrdiff_t decimals)
{
    const double magnitude = static_cast<double>(static_cast<std::int64_t>(digits)) / kExactPowersOfTen[decimals];
    // The sign bit is set without a branch: signs of measured values follow no pattern.
    return std::bit_cast<double>(std::bit_cast<std::uint64_t>(magnitude) | std::uint64_t{negative} << 63);
}

/// Reads a plain number of at most 15 digits. Returns where it ends; null, with nothing read, for every other number.
const OLECHAR* ReadPlain(const OLECHAR* at, const OLECHAR* end, double& value)
{
    const bool negative = TakeSign(at, end);
    std::uint64_t mantissa = 0;
    const OLECHAR* const whole = at;
    TakeDigits(at, end, mantissa);
    std::ptrdiff_t digits = at - whole;
    std::ptrdiff_t decimals = 0;
    if (at != end && *at == OLECHAR{'.'}) {
        const OLECHAR* const fraction = ++at;
        TakeDigits(at, end, mantissa);
        decimals = at - fraction;
        digits += decimals;
    }
    if (digits == 0 || digits > kMostPlainDigits || (at != end && FoldAscii(*at) == OLECHAR{'e'}))
        return nullptr;
    value = PlainNumber(negative, mantissa, decimals);
    return at;
}

/// Takes the digits of a whole number without zeros ahead. False for none, for more than `most`, and for a zero ahead
/// of others.
inline bool TakeWrittenDigits(const OLECHAR*& at, const OLECHAR* end, std::ptrdiff_t most, std::uint64_t& number)
{
    const OLECHAR* const first = at;
    TakeDigits(at, end, number);
    const std::ptrdiff_t digits = at - first;
    return digits != 0 && digits <= most && (digits == 1 || *first != OLECHAR{'0'});
}

/// Digits of the largest whole number of 32 bits.
constexpr std::ptrdiff_t kMostWholeDigits = 10;

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
bool TakeDecimal(const OLECHAR*& at, const OLECHAR* end, DecimalText& number)
{
    const auto between = [](const OLECHAR* from, const OLECHAR* to) {
        return TextView(from, static_cast<std::size_t>(to - from));
    };
    const OLECHAR* start = at;
    TakeDigits(at, end, number.mantissa);
    number.whole = between(start, at);
    if (at != end && *at == OLECHAR{'.'}) {
        start = ++at;
        TakeDigits(at, end, number.mantissa);
        number.fraction = between(start, at);
    }
    if (number.whole.empty() && number.fraction.empty())
        return false;
    TakeExponent(at, end, number.exponent);
    return true;
}

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

/// Hands a correctly rounded number on as it is.
bool TryNarrow(double wide, double& value)
{
    value = wide;
    return true;
}

/// The single-precision number where the road through double rounds as the text would; false where it may not.
bool TryNarrow(double wide, float& value)
{
    // Rounding twice goes wrong only if the first result is a tie of the second, or falls among the subnormals.
    constexpr std::uint64_t cutBits = (std::uint64_t{1} << 29) - 1;
    constexpr std::uint64_t tie = std::uint64_t{1} << 28;
    const bool isTie = (std::bit_cast<std::uint64_t>(wide) & cutBits) == tie;
    const double magnitude = std::fabs(wide);
    const bool inRange = magnitude == 0 || (magnitude >= (std::numeric_limits<float>::min)() && magnitude < 1e38);
    if (isTie || !inRange)
        return false;
    value = static_cast<float>(wide);
    return true;
}

TextView WithoutLeadingZeros(TextView digits)
{
    digits.remove_prefix((std::min)(digits.find_first_not_of(OLECHAR{'0'}), digits.size()));
    return digits;
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
    const auto take = [&](TextView digits) {
        const std::size_t room = static_cast<std::size_t>(buffer + mostDigits - end);
        for (const OLECHAR digit : digits.substr(0, room))
            *end++ = static_cast<char>(digit);
        more = more || (digits.size() > room && digits.find_first_not_of(OLECHAR{'0'}, room) != TextView::npos);
    };

    const TextView whole = WithoutLeadingZeros(number.whole);
    const TextView fraction = whole.empty() ? WithoutLeadingZeros(number.fraction) : number.fraction;
    take(whole);
    take(fraction);
    // The number is 0.ddd * 10^magnitude, its first d not zero.
    const std::int64_t magnitude = number.exponent + static_cast<std::int64_t>(whole.size()) -
                                   static_cast<std::int64_t>(number.fraction.size() - fraction.size());
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
    double wide;
    if (const OLECHAR* end = ReadPlain(m_at, m_end, wide); end && TryNarrow(wide, value)) {
        m_at = end;
        return true;
    }

    const OLECHAR* at = m_at;
    const bool negative = TakeSign(at, m_end);
    DecimalText number;
    if (!TakeDecimal(at, m_end, number))
        return false;
    Float magnitude;
    if (!TryExact(number, wide) || !TryNarrow(wide, magnitude))
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
    const OLECHAR* const first = at;
    std::uint32_t number = 0;
    TakeHexDigits(at, m_end, number);
    any = any || at != first;
    if (!any)
        return false;
    bits = negative ? 0U - number : number;
    m_at = at;
    return true;
}

bool TextScanner::ReadBareHex(std::uint32_t& value)
{
    const OLECHAR* at = m_at;
    std::uint32_t number = 0;
    TakeHexDigits(at, m_end, number);
    if (at == m_at)
        return false;
    value = number;
    m_at = at;
    return true;
}

bool TextScanner::ReadDecimalBits(std::uint32_t& bits)
{
    const OLECHAR* at = m_at;
    const bool negative = TakeSign(at, m_end);
    const OLECHAR* start = at;
    std::uint64_t number = 0; // Wraps round modulo 2^64, which keeps the low 32 bits right.
    TakeDigits(at, m_end, number);
    if (at == start)
        return false;
    bits = static_cast<std::uint32_t>(negative ? 0U - number : number);
    m_at = at;
    return true;
}

// Why the same text comes back: with w digits ahead of the point and w + decimals <= 15 the value is below 10^w, so the
// double nearest to the text is off by less than half a unit of the last decimal. Rounding it to that many decimals
// finds the digits of the text again, and cutting zeros leaves them, for the text ends in none.
bool TextScanner::ReadWrittenNumber(int decimals, double& value)
{
    const OLECHAR* at = m_at;
    const bool negative = at != m_end && *at == OLECHAR{'-'};
    at += negative;
    std::uint64_t digits = 0;
    if (decimals < 0 || !TakeWrittenDigits(at, m_end, kMostPlainDigits - decimals, digits))
        return false;
    std::ptrdiff_t found = 0;
    if (at != m_end && *at == OLECHAR{'.'}) {
        const OLECHAR* const fraction = ++at;
        TakeDigits(at, m_end, digits);
        found = at - fraction;
        if (found == 0 || found > decimals || at[-1] == OLECHAR{'0'})
            return false;
    }
    if (at != m_end && FoldAscii(*at) == OLECHAR{'e'})
        return false;
    value = PlainNumber(negative, digits, found);
    m_at = at;
    return true;
}

bool TextScanner::ReadWrittenSigned(std::int32_t& value)
{
    constexpr std::uint64_t most = std::numeric_limits<std::int32_t>::max();
    const OLECHAR* at = m_at;
    const bool negative = at != m_end && *at == OLECHAR{'-'};
    at += negative;
    std::uint64_t number = 0;
    if (!TakeWrittenDigits(at, m_end, kMostWholeDigits, number) || number > most + negative ||
        (negative && number == 0))
        return false;
    value = static_cast<std::int32_t>(negative ? 0 - number : number);
    m_at = at;
    return true;
}

bool TextScanner::ReadWrittenUnsigned(std::uint32_t& value)
{
    const OLECHAR* at = m_at;
    std::uint64_t number = 0;
    if (!TakeWrittenDigits(at, m_end, kMostWholeDigits, number) || number > std::numeric_limits<std::uint32_t>::max())
        return false;
    value = static_cast<std::uint32_t>(number);
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
