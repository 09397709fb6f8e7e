#include "list/WheelAndScroll.h"

#include <gtest/gtest.h>

TEST(Wheel, CountsWholeNotchesTowardZero)
{
    EXPECT_EQ(WheelNotches(120), 1);
    EXPECT_EQ(WheelNotches(-120), -1);
    EXPECT_EQ(WheelNotches(-60), 0);
    EXPECT_EQ(WheelNotches(119), 0);
    EXPECT_EQ(WheelNotches(-241), -2);
}

TEST(Zoom, StepsByTwoBetweenItsLimits)
{
    EXPECT_EQ(ZoomedFontHeight(-11, 1), -13);
    EXPECT_EQ(ZoomedFontHeight(-19, 1), -21);
    EXPECT_EQ(ZoomedFontHeight(-13, -1), -11);
    EXPECT_EQ(ZoomedFontHeight(-15, 5), -17);
}

TEST(Zoom, StopsAtItsLimits)
{
    EXPECT_EQ(ZoomedFontHeight(-21, 1), -21);
    EXPECT_EQ(ZoomedFontHeight(-11, -1), -11);
    EXPECT_EQ(ZoomedFontHeight(-15, 0), -15);
}

TEST(Zoom, OvershootsByOneFromEvenHeights)
{
    EXPECT_EQ(ZoomedFontHeight(-12, -1), -10);
    EXPECT_EQ(ZoomedFontHeight(-10, -1), -10);
    EXPECT_EQ(ZoomedFontHeight(-20, 1), -22);
    EXPECT_EQ(ZoomedFontHeight(-22, 1), -22);
}

TEST(Scroll, LimitIsThePositionOfTheLastPage)
{
    EXPECT_EQ(ScrollLimit(99, 10), 90);
    EXPECT_EQ(ScrollLimit(99, 1), 99);
    EXPECT_EQ(ScrollLimit(0, 0), 0);
}

TEST(Scroll, UpwardCodesActOffTheTopOnly)
{
    for (const ScrollCode code : {ScrollCode::LineUp, ScrollCode::PageUp, ScrollCode::Top}) {
        EXPECT_FALSE(ScrollActs(code, 0, 90));
        EXPECT_TRUE(ScrollActs(code, 1, 90));
    }
}

TEST(Scroll, DownwardCodesActOffTheLimitOnly)
{
    for (const ScrollCode code : {ScrollCode::LineDown, ScrollCode::PageDown, ScrollCode::Bottom}) {
        EXPECT_FALSE(ScrollActs(code, 90, 90));
        EXPECT_TRUE(ScrollActs(code, 89, 90));
        EXPECT_FALSE(ScrollActs(code, 0, 0));
    }
}

TEST(Scroll, EndNeverActsAndAllOthersAlways)
{
    EXPECT_FALSE(ScrollActs(ScrollCode::End, 5, 90));
    EXPECT_TRUE(ScrollActs(ScrollCode::ThumbPosition, 0, 0));
    EXPECT_TRUE(ScrollActs(ScrollCode::ThumbTrack, 0, 0));
    EXPECT_TRUE(ScrollActs(ScrollCode(9), 0, 0));
}
