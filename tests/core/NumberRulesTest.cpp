#include "core/NumberRules.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kLargest = std::numeric_limits<double>::max();

TEST(NumberRules, PowerTakesTheReciprocalForNegativeExponents)
{
    EXPECT_EQ(Power(10, 0), 1.0);
    EXPECT_EQ(Power(10, 4), 10000.0);
    EXPECT_EQ(Power(10, 22), 1e22);
    EXPECT_EQ(Power(10, -4), 1.0 / 10000.0);
    EXPECT_EQ(Power(2, -1), 0.5);
    EXPECT_EQ(Power(10, 400), kInfinity);
    EXPECT_EQ(Power(10, std::numeric_limits<int>::min()), 0.0);
}

TEST(NumberRules, HalvesRoundAwayFromZero)
{
    EXPECT_EQ(RoundTo(2.5, 0), 3.0);
    EXPECT_EQ(RoundTo(-2.5, 0), -3.0);
    EXPECT_EQ(RoundTo(2.4999, 0), 2.0);
    EXPECT_EQ(RoundTo(0.5, 0), 1.0);
    EXPECT_EQ(RoundTo(-0.4, 0), 0.0);
    EXPECT_EQ(RoundTo(1.23456, 4), 12346 * (1.0 / 10000));
}

TEST(NumberRules, RoundingMultipliesByTheReciprocalOfThePower)
{
    EXPECT_EQ(RoundTo(0.3, 1), 3 * 0.1); // Not 0.3: the reciprocal is not exact.
    EXPECT_NE(RoundTo(0.3, 1), 0.3);
}

TEST(NumberRules, DecimalsOutsideZeroToTwentyCountAsTen)
{
    EXPECT_EQ(RoundTo(1.00000000004, 25), RoundTo(1.00000000004, 10));
    EXPECT_EQ(RoundTo(1.00000000004, 21), RoundTo(1.00000000004, 10));
    EXPECT_EQ(RoundTo(1.00000000004, -1), RoundTo(1.00000000004, 10));
    EXPECT_EQ(RoundTo(1.00000000004, 10), 1.0);
    EXPECT_NE(RoundTo(1.00000000004, 11), 1.0);
    EXPECT_EQ(RoundTo(0.5, 20), 0.5);
}

TEST(NumberRules, GreaterMeansByMoreThanHalfAStep)
{
    EXPECT_TRUE(IsGreaterAt(1.0001, 1, 4));
    EXPECT_FALSE(IsGreaterAt(1.00004, 1, 4));
    EXPECT_TRUE(IsGreaterAt(1.00005001, 1, 4));
    EXPECT_FALSE(IsGreaterAt(1, 1.0001, 4));
    EXPECT_FALSE(IsGreaterAt(kNotANumber, 1, 4));
    EXPECT_FALSE(IsGreaterAt(1.00001, 1, 4));
    EXPECT_TRUE(IsGreaterAt(1.00001, 1, 5));
}

TEST(NumberRules, DecimalsFollowTheKindAndTheMode)
{
    for (const auto kind : {NumberKind::Plain, NumberKind::Coordinate, static_cast<NumberKind>(9)}) {
        EXPECT_EQ(DecimalsFor(kind, false), 4);
        EXPECT_EQ(DecimalsFor(kind, true), 5);
    }
    for (const bool imperial : {false, true}) {
        EXPECT_EQ(DecimalsFor(NumberKind::Angle, imperial), 4);
        EXPECT_EQ(DecimalsFor(NumberKind::Precise, imperial), 6);
    }
}

TEST(NumberRules, ADifferenceAtTheThresholdIsAChange)
{
    EXPECT_FALSE(NearlyEqual(0.0001, kMetricThreshold));
    EXPECT_FALSE(NearlyEqual(0.0001 - 5e-16, kMetricThreshold));
    EXPECT_TRUE(NearlyEqual(0.0001 - 5e-15, kMetricThreshold));
    EXPECT_FALSE(NearlyEqual(0.00011, kMetricThreshold));
    EXPECT_TRUE(NearlyEqual(0.00005, kMetricThreshold));
    EXPECT_TRUE(NearlyEqual(0, kMetricThreshold));
    EXPECT_FALSE(NearlyEqual(kNotANumber, kMetricThreshold));
    EXPECT_FALSE(NearlyEqual(0.00002, kImperialThreshold));
    EXPECT_TRUE(NearlyEqual(0.000005, kImperialThreshold));
}

TEST(NumberRules, TheDifferenceCountsAsComputed)
{
    EXPECT_FALSE(NearlyEqual(std::fabs(0 - 0.0001), kMetricThreshold));
    EXPECT_TRUE(NearlyEqual(std::fabs(1000 - 1000.0001), kMetricThreshold)); // 9.999999997489795e-05
}

TEST(NumberRules, TheImperialThresholdIsATenthOfTheMetricOne)
{
    EXPECT_EQ(kImperialThreshold, 0.00001);
    EXPECT_EQ(kFactorToImperial, 1 / 25.4);
}

bool InRange(double value, double lower, double upper)
{
    return IsInRange(value, lower, upper, NumberKind::Plain, false);
}

TEST(NumberRules, BothBoundsAreInRange)
{
    EXPECT_TRUE(InRange(1, 1, 2));
    EXPECT_TRUE(InRange(2, 1, 2));
    EXPECT_TRUE(InRange(1.5, 1, 2));
    EXPECT_FALSE(InRange(0.9999, 1, 2));
    EXPECT_FALSE(InRange(2.0001, 1, 2));
    EXPECT_FALSE(InRange(kNotANumber, 1, 2));
}

TEST(NumberRules, WhatRoundsToABoundIsInRange)
{
    EXPECT_TRUE(InRange(0.99996, 1, 2));
    EXPECT_TRUE(InRange(2.00004, 1, 2));
    EXPECT_FALSE(IsInRange(2.00004, 1, 2, NumberKind::Plain, true));
    EXPECT_TRUE(IsInRange(2.00004, 1, 2, NumberKind::Angle, true));
    EXPECT_FALSE(IsInRange(2.00004, 1, 2, NumberKind::Precise, false));
}

TEST(NumberRules, ALimitThatOverflowsTheRoundingIsStillInItsOwnRange)
{
    EXPECT_TRUE(InRange(kLargest, -kLargest, kLargest));
    EXPECT_TRUE(InRange(-kLargest, -kLargest, kLargest));
    EXPECT_TRUE(InRange(12.5, -kLargest, kLargest));
}

TEST(NumberRules, AValueBeyondTheLimitBecomesTheLimitThatItPassed)
{
    EXPECT_EQ(ClampToLimit(50, 100, false), 50);
    EXPECT_EQ(ClampToLimit(100.00004, 100, false), 100.00004);
    EXPECT_EQ(ClampToLimit(100.001, 100, false), 100);
    EXPECT_EQ(ClampToLimit(-100.001, 100, false), -100);
    EXPECT_EQ(ClampToLimit(kLargest, kLargest, false), kLargest);
    EXPECT_EQ(ClampToLimit(-kLargest, kLargest, false), -kLargest);
}

TEST(NumberRules, TheCeilingHasNoFloorBesideIt)
{
    EXPECT_EQ(ClampToCeiling(1e15, 4), 1e14);
    EXPECT_EQ(ClampToCeiling(-1e15, 4), -1e15);
    EXPECT_EQ(ClampToCeiling(1e14, 4), 1e14);
    EXPECT_EQ(ClampToCeiling(kInfinity, 4), 1e14);
    EXPECT_EQ(ClampToCeiling(-kInfinity, 4), -kInfinity);
    EXPECT_TRUE(std::isnan(ClampToCeiling(kNotANumber, 4)));
    EXPECT_EQ(ClampToCeiling(kLargest, 4), 1e14);
}

TEST(NumberRules, AValueLessThanHalfAStepAboveTheCeilingStays)
{
    const double justAbove = 1e14 + 0.00001; // Rounds to the ceiling itself.
    EXPECT_EQ(ClampToCeiling(justAbove, 4), justAbove);
    const double next = std::nextafter(1e14, kInfinity); // 0.015625 above
    EXPECT_EQ(ClampToCeiling(next, 4), 1e14);
}

TEST(NumberRules, GreaterIsDecidedByTheRoundedNumbersAlone)
{
    std::mt19937_64 random(1);
    for (int count = 0; count < 200'000; ++count) {
        const int decimals = static_cast<int>(random() % 21);
        const double step = Power(10, -decimals);
        // Every bit pattern without a sign, NaN among them, or a few halves of the last step.
        const double a =
            random() & 1 ? std::bit_cast<double>(random() >> 1) : static_cast<double>(random() % 1'000'000) * step / 2;
        const double b = random() & 1 ? a + step * static_cast<double>(random() % 5) / 4 - step / 2 : a * 0.999;
        for (const double sign : {1.0, -1.0}) {
            const bool greater = RoundTo(sign * a, decimals) - RoundTo(sign * b, decimals) > step / 2;
            ASSERT_EQ(IsGreaterAt(sign * a, sign * b, decimals), greater) << a << ' ' << b << ' ' << decimals;
        }
    }
}

} // namespace
