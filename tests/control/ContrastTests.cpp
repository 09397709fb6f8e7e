// Colours moved away from the ground that they stand on.
#include "control/Contrast.h"

#include <gtest/gtest.h>

TEST(Contrast, LeavesAColourThatIsFarEnoughAway)
{
    EXPECT_EQ(EnsureContrast(0xDCDCDC, 0xFFFFFF, 60), 0xDCDCDCU); // 60.62 away
    EXPECT_EQ(EnsureContrast(0x0000FF, 0xFFFFFF, 128), 0x0000FFU);
    EXPECT_EQ(EnsureContrast(0x787878, 0xFFFFFF, 128), 0x787878U);
    EXPECT_EQ(EnsureContrast(0xFFF5F5, 0x000000, 128), 0xFFF5F5U);
}

TEST(Contrast, MovesEachByteOfAColourThatIsTooNear)
{
    EXPECT_EQ(EnsureContrast(0xDCDCDC, 0xFEFEFE, 60), 0xC4C4C4U); // 58.89 away; 256 less 60
    EXPECT_EQ(EnsureContrast(0x10207F, 0x000000, 200), 0xC8C8C8U);
    EXPECT_EQ(EnsureContrast(0x80017F, 0x80017F, 60), 0xC43C3CU);
}

TEST(Contrast, IsKeptAtJustTheDistance)
{
    EXPECT_EQ(EnsureContrast(0x00003C, 0x000000, 60), 0x00003CU);
    EXPECT_EQ(EnsureContrast(0x00003B, 0x000000, 60), 0x3C3C3CU);
    EXPECT_EQ(EnsureContrast(0x123456, 0x123456, 0), 0x123456U);
}

TEST(Contrast, StaysWithinAByte)
{
    EXPECT_EQ(EnsureContrast(0xFF00FF, 0xFF00FF, 255), 0x01FF01U);
}
