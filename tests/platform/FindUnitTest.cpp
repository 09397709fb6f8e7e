#include "platform/memory/FindUnit.h"

#include <gtest/gtest.h>

namespace {

std::size_t PlaceOf(TextView text, OLECHAR unit)
{
    return static_cast<std::size_t>(FindUnit(text.data(), text.data() + text.size(), unit) - text.data());
}

TEST(FindingAUnit, GivesItsPlaceAtEveryLengthAndPlace)
{
    for (std::size_t length = 0; length <= 40; ++length) {
        for (std::size_t place = 0; place < length; ++place) {
            Text text(length, OLECHAR{'a'});
            text[place] = OLECHAR{'~'};
            EXPECT_EQ(PlaceOf(text, OLECHAR{'~'}), place) << length;
        }
        EXPECT_EQ(PlaceOf(Text(length, OLECHAR{'a'}), OLECHAR{'~'}), length);
    }
}

TEST(FindingAUnit, GivesTheFirstOfSeveral)
{
    EXPECT_EQ(PlaceOf(OLESTR("0123456~~~~89012~"), OLECHAR{'~'}), 7U);
}

TEST(FindingAUnit, LooksAtNothingBehindTheEnd)
{
    const Text text = OLESTR("aaaaaaaaaaaa~aaa");
    EXPECT_EQ(PlaceOf(TextView(text).substr(0, 12), OLECHAR{'~'}), 12U);
    EXPECT_EQ(PlaceOf(TextView(text).substr(1, 9), OLECHAR{'~'}), 9U);
}

TEST(FindingAUnit, ComparesWholeUnitsAndNotTheirBytes)
{
    Text text(16, OLECHAR{0x7E7E}); // each byte is that of the unit looked for
    text[11] = OLECHAR{0x007E};
    EXPECT_EQ(PlaceOf(text, OLECHAR{0x007E}), 11U);
    const Text straddling(16, OLECHAR{0x7E00});
    EXPECT_EQ(PlaceOf(straddling, OLECHAR{0x007E}), 16U);
    EXPECT_EQ(PlaceOf(OLESTR("\xFFFFwxyz\xFFFF\x8000zzz"), OLECHAR{0x8000}), 6U);
}

TEST(FindingAUnit, FindsNothingInAViewWithoutAPointer)
{
    EXPECT_FALSE(Contains({}, OLECHAR{'a'}));
    EXPECT_FALSE(Contains(OLESTR("bcd"), OLECHAR{'a'}));
    EXPECT_TRUE(Contains(OLESTR("bcda"), OLECHAR{'a'}));
}

} // namespace
