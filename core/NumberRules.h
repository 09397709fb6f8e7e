// How numbers are rounded, compared and limited throughout the server, and the constants that depend on the unit
// mode. All of it is plain double arithmetic in the order written here; the order is behaviour, since overflow and
// rounding of the steps show in the results.
#pragma once

/// Factors of a conversion between the unit modes. The second is the double nearest to 1/25.4.
inline constexpr double kFactorToMetric = 25.4;
inline constexpr double kFactorToImperial = 0.03937007874015748;

/// Ceiling of a value that a setter stores. There is no floor.
inline constexpr double kValueLimit = 1e14;

/// Differences of lengths from which on they count as a change, by unit mode; tolerances take the metric one always.
inline constexpr double kMetricThreshold = 0.0001;
inline constexpr double kImperialThreshold = kMetricThreshold / 10;
inline constexpr double kToleranceThreshold = 0.0001;

/// What a number means, as far as it decides its decimals.
enum class NumberKind {
    Plain = 0,
    Angle = 1,
    Coordinate = 2,
    Precise = 3,
};

/// base^n by repeated squaring; the reciprocal of base^|n| for a negative n.
constexpr double Power(double base, int n)
{
    double result = 1;
    for (unsigned rest = n < 0 ? 0U - static_cast<unsigned>(n) : static_cast<unsigned>(n); rest != 0; rest >>= 1) {
        if (rest & 1)
            result *= base;
        base *= base;
    }
    return n < 0 ? 1 / result : result;
}

/// Rounds half away from zero. Decimals outside 0 to 20 count as 10. Overflows to infinity with values that leave no
/// room for the scaling.
double RoundTo(double value, int decimals);

/// a is above b by more than half a step of the last decimal, both rounded.
bool IsGreaterAt(double a, double b, int decimals);

/// 4 for angles, 6 for precise values; otherwise 4, in imperial mode 5.
constexpr int DecimalsFor(NumberKind kind, bool imperial)
{
    switch (kind) {
    case NumberKind::Angle: return 4;
    case NumberKind::Precise: return 6;
    default: return imperial ? 5 : 4;
    }
}

/// Whether two numbers with this difference (not negative) are the same under the threshold. A difference that
/// equals the threshold to within 1e-15 is a change. The difference is taken as computed, not rounded first.
bool NearlyEqual(double difference, double threshold);

/// lower <= value <= upper, compared at the decimals of the kind; a bound itself is always in range.
bool IsInRange(double value, double lower, double upper, NumberKind kind, bool imperial);

/// The value if it lies within -limit and limit, else the limit that it passed. A value that cannot be compared,
/// because rounding it overflows, ends at -limit.
double ClampToLimit(double value, double limit, bool imperial);

/// The value, or kValueLimit where the value is greater at these decimals.
double ClampToCeiling(double value, int decimals);
