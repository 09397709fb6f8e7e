#include "list/Divider.h"

#include <gtest/gtest.h>

TEST(Divider, IsUnderThePointerUpToFivePixelsOnEitherSide)
{
    EXPECT_FALSE(IsOnDivider(94, 100));
    EXPECT_TRUE(IsOnDivider(95, 100));
    EXPECT_TRUE(IsOnDivider(105, 100));
    EXPECT_FALSE(IsOnDivider(106, 100));
}

TEST(Divider, CagesThePointerRightOfTheIndentColumn)
{
    EXPECT_EQ(DividerCage({100, 50, 500, 400}, 0, 15), (Rect{145, 50, 460, 400}));
}

TEST(Divider, CageGivesWayToTheScrollPosition)
{
    EXPECT_EQ(DividerCage({100, 50, 500, 400}, 44, 15).left, 101);
    EXPECT_EQ(DividerCage({100, 50, 500, 400}, 45, 15).left, 110);
    EXPECT_EQ(DividerCage({100, 50, 500, 400}, 200, 15).left, 110);
}

TEST(Divider, StepsLeftByTwoDownToForty)
{
    EXPECT_EQ(DividerStepLeft(100), (DividerStep{98, true}));
    EXPECT_EQ(DividerStepLeft(42), (DividerStep{40, true}));
}

TEST(Divider, StoresFortyWithoutARepaintBelowIt)
{
    EXPECT_EQ(DividerStepLeft(41), (DividerStep{40, false}));
    EXPECT_EQ(DividerStepLeft(40), (DividerStep{40, false}));
    EXPECT_EQ(DividerStepLeft(-7), (DividerStep{40, false}));
}

TEST(Divider, StepsRightByTwoUpToTheWindowWidthLessForty)
{
    EXPECT_EQ(DividerStepRight(100, 300), (DividerStep{102, true}));
    EXPECT_EQ(DividerStepRight(258, 300), (DividerStep{260, true}));
}

TEST(Divider, StoresTheRightLimitWithoutARepaintAboveIt)
{
    EXPECT_EQ(DividerStepRight(259, 300), (DividerStep{260, false}));
    EXPECT_EQ(DividerStepRight(400, 300), (DividerStep{260, false}));
}
