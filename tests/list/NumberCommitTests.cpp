#include "list/NumberCommit.h"

#include "frame/NumberText.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

constexpr double kLargest = std::numeric_limits<double>::max();
constexpr bool kMetric = false;
constexpr bool kImperial = true;

} // namespace

TEST(NumberCommit, KeepsANumberInRangeAsItWasTyped)
{
    for (const Text typed :
         {OLESTR("12.500"), OLESTR("1E3"), OLESTR("-0"), OLESTR(" 7"), OLESTR("1.2.3"), OLESTR("5.")})
        EXPECT_EQ(NumberToCommit(typed, kLargest, kMetric), typed);
}

TEST(NumberCommit, TakesNonsenseAsTheLimit)
{
    for (const Text typed : {OLESTR("abc"), OLESTR(""), OLESTR("-"), OLESTR("."), OLESTR("nan"), OLESTR("inf")})
        EXPECT_EQ(NumberToCommit(typed, 100, kMetric), OLESTR("100.000000"));
}

TEST(NumberCommit, TakesNonsenseAsTheLargestNumberByDefault)
{
    const Text text = NumberToCommit(OLESTR("abc"), kLargest, kMetric);
    EXPECT_EQ(text, FormatFixed(kLargest, 6));
    EXPECT_EQ(text.size(), 309u + 7u);
    EXPECT_EQ(text.front(), OLECHAR('1'));
}

TEST(NumberCommit, HoldsNumbersWithinTheLimitOnBothSides)
{
    EXPECT_EQ(NumberToCommit(OLESTR("100.001"), 100, kMetric), OLESTR("100.000000"));
    EXPECT_EQ(NumberToCommit(OLESTR("-100.001"), 100, kMetric), OLESTR("-100.000000"));
    EXPECT_EQ(NumberToCommit(OLESTR("100"), 100, kMetric), OLESTR("100"));
    EXPECT_EQ(NumberToCommit(OLESTR("-100"), 100, kMetric), OLESTR("-100"));
}

TEST(NumberCommit, ComparesAtFourDecimalsInMetricAndFiveInImperial)
{
    EXPECT_EQ(NumberToCommit(OLESTR("100.00004"), 100, kMetric), OLESTR("100.00004"));
    EXPECT_EQ(NumberToCommit(OLESTR("100.00004"), 100, kImperial), OLESTR("100.000000"));
}

TEST(NumberCommit, KeepsANumberBeyondTheLargestAsTyped)
{
    EXPECT_EQ(NumberToCommit(OLESTR("1e400"), kLargest, kMetric), OLESTR("1e400"));
    EXPECT_EQ(NumberToCommit(OLESTR("-1e400"), kLargest, kMetric), OLESTR("-1e400"));
}

TEST(NumberCommit, WithALimitOfZeroLeavesOnlyZero)
{
    EXPECT_EQ(NumberToCommit(OLESTR("0"), 0, kMetric), OLESTR("0"));
    EXPECT_EQ(NumberToCommit(OLESTR("3"), 0, kMetric), OLESTR("0.000000"));
}
