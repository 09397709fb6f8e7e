#include "list/ShortName.h"

#include <gtest/gtest.h>

TEST(ShortName, KeepsANameThatFits)
{
    EXPECT_EQ(ShortenName(OLESTR("Diameter"), 8), OLESTR("Diameter"));
    EXPECT_EQ(ShortenName(TextView(), 0), Text());
}

TEST(ShortName, GivesThreeOfTheFittingCharactersForTheDots)
{
    EXPECT_EQ(ShortenName(OLESTR("Diameter"), 7), OLESTR("Diam..."));
    EXPECT_EQ(ShortenName(OLESTR("Diameter"), 5), OLESTR("Di..."));
}

TEST(ShortName, NeverMeasuresBelowFourCharacters)
{
    EXPECT_EQ(ShortenName(OLESTR("Diameter"), 4), OLESTR("D..."));
    EXPECT_EQ(ShortenName(OLESTR("Diameter"), 0), OLESTR("D..."));
}

TEST(ShortName, LeavesOneCharacterOfAShortName)
{
    EXPECT_EQ(ShortenName(OLESTR("Grid"), 3), OLESTR("G..."));
    EXPECT_EQ(ShortenName(OLESTR("Axis"), 0), OLESTR("A..."));
    EXPECT_EQ(ShortenName(OLESTR("X"), 0), OLESTR("X..."));
}
