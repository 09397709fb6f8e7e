#include "core/NumberRules.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace {

constexpr int kDecimalsEnd = 21;
constexpr int kDecimalsOtherwise = 10;
constexpr double kEqualityMargin = 1e-15;

/// The results of Power for the decimals that RoundTo knows, made once.
template <int Sign>
constexpr auto kPowersOfTen = [] {
    std::array<double, kDecimalsEnd> powers{};
    for (int n = 0; n < kDecimalsEnd; ++n)
        powers[static_cast<std::size_t>(n)] = Power(10, Sign * n);
    return powers;
}();

constexpr bool HasPower(int decimals)
{
    return decimals >= 0 && decimals < kDecimalsEnd;
}

/// Half of the last decimal's step. Decimals are not replaced here as RoundTo replaces them.
double HalfStep(int decimals)
{
    return (HasPower(decimals) ? kPowersOfTen<-1>[static_cast<std::size_t>(decimals)] : Power(10, -decimals)) / 2;
}

/// The rounded difference is zero, or far enough below half a step.
bool IsEqualAt(double difference, int decimals)
{
    return NearlyEqual(std::fabs(difference), HalfStep(decimals));
}

/// The operands' own equality counts ahead of the rounding, which overflows with the largest limits.
bool IsAtOrAbove(double value, double bound, int decimals)
{
    return value == bound || IsGreaterAt(value, bound, decimals) ||
           IsEqualAt(RoundTo(value, decimals) - RoundTo(bound, decimals), decimals);
}

} // namespace

double RoundTo(double value, int decimals)
{
    const auto n = static_cast<std::size_t>(HasPower(decimals) ? decimals : kDecimalsOtherwise);
    const double scaled = value * kPowersOfTen<1>[n];
    const double rounded = scaled < 0 ? std::ceil(scaled - 0.5) : std::floor(scaled + 0.5);
    return rounded * kPowersOfTen<-1>[n];
}

bool IsGreaterAt(double a, double b, int decimals)
{
    if (!(a > b)) // Rounding keeps the order, so what is not greater is not greater when rounded. Nor is a NaN.
        return false;
    return RoundTo(a, decimals) - RoundTo(b, decimals) > HalfStep(decimals);
}

bool NearlyEqual(double difference, double threshold)
{
    if (std::fabs(difference - threshold) < kEqualityMargin)
        return false;
    return threshold > difference;
}

bool IsInRange(double value, double lower, double upper, NumberKind kind, bool imperial)
{
    const int decimals = DecimalsFor(kind, imperial);
    return IsAtOrAbove(value, lower, decimals) && IsAtOrAbove(upper, value, decimals);
}

double ClampToLimit(double value, double limit, bool imperial)
{
    if (IsInRange(value, -limit, limit, NumberKind::Plain, imperial))
        return value;
    return IsGreaterAt(value, limit, DecimalsFor(NumberKind::Plain, imperial)) ? limit : -limit;
}

double ClampToCeiling(double value, int decimals)
{
    return IsGreaterAt(value, kValueLimit, decimals) ? kValueLimit : value;
}
