// Where the parts of the sample host stand.
#include "samples/host/HostLayout.h"

#include <gtest/gtest.h>

namespace {

constexpr Rect kClient{0, 0, 1000, 600};

} // namespace

TEST(HostLayout, GridSplitterAndEventsFillTheClientArea)
{
    const HostParts parts = SplitHost(kClient, 400);
    EXPECT_EQ(parts.grid.left, kClient.left);
    EXPECT_EQ(parts.grid.right, parts.splitter.left);
    EXPECT_EQ(parts.splitter.right, parts.events.left);
    EXPECT_EQ(parts.events.right, kClient.right);
    EXPECT_EQ(parts.events.Width(), 400);
    EXPECT_EQ(parts.splitter.Width(), kHostMetrics.splitter);
}

TEST(HostLayout, NeitherSideGetsNarrowerThanItsLeast)
{
    EXPECT_EQ(SplitHost(kClient, -5).events.Width(), kHostMetrics.smallestPart);
    EXPECT_EQ(SplitHost(kClient, 5000).grid.Width(), kHostMetrics.smallestPart);
}

TEST(HostLayout, ADraggedSplitterFollowsThePointer)
{
    for (const int x : {150, 400, 870})
        EXPECT_EQ(SplitHost(kClient, EventsWidthAt(kClient, x)).splitter.left, x);
}

TEST(HostLayout, NoPartOfATinyWindowIsInsideOut)
{
    for (int width = 0; width < 300; ++width) {
        const HostParts parts = SplitHost({0, 0, width, 100}, 400);
        EXPECT_GE(parts.grid.Width(), 0) << width;
        EXPECT_GE(parts.events.Width(), 0) << width;
        EXPECT_GE(parts.splitter.Width(), 0) << width;
        EXPECT_LE(parts.events.right, width) << width;
    }
}
