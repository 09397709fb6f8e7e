#include "frame/TextBuffer.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

TEST(TextBuffers, StartEmptyAndWithoutMemory)
{
    const TextBuffer buffer;
    EXPECT_EQ(buffer.Size(), 0U);
    EXPECT_EQ(buffer.Capacity(), 0U);
    EXPECT_TRUE(buffer.View().empty());
}

TEST(TextBuffers, TakeInWhatAWriterPutIntoTheRoom)
{
    TextBuffer buffer;
    OLECHAR* at = buffer.Room(10);
    *at++ = OLECHAR{'a'};
    *at++ = OLECHAR{'b'};
    buffer.EndAt(at);
    buffer.Append(OLECHAR{'c'});
    buffer.Append(OLESTR("de"));
    EXPECT_EQ(buffer.View(), OLESTR("abcde"));
}

TEST(TextBuffers, LeaveOutWhatAWriterDidNotEnd)
{
    TextBuffer buffer;
    buffer.Append(OLESTR("kept"));
    *buffer.Room(1) = OLECHAR{'x'};
    EXPECT_EQ(buffer.View(), OLESTR("kept"));
}

TEST(TextBuffers, KeepTheirTextWhileTheyGrow)
{
    TextBuffer buffer;
    Text expected;
    for (int i = 0; i < 20000; ++i) {
        const Text piece(static_cast<std::size_t>(i % 7), static_cast<OLECHAR>('a' + i % 26));
        buffer.Append(piece);
        expected += piece;
    }
    EXPECT_EQ(buffer.View(), expected);
}

TEST(TextBuffers, DoNotMoveWithinTheRoomThatWasReserved)
{
    TextBuffer buffer;
    buffer.Reserve(1000);
    buffer.Append(OLECHAR{'a'});
    const OLECHAR* const first = buffer.View().data();
    buffer.Append(Text(999, OLECHAR{'b'}));
    EXPECT_EQ(buffer.View().data(), first);
    EXPECT_EQ(buffer.Capacity(), 1000U);
}

TEST(TextBuffers, GiveRoomForAPieceLargerThanTwiceTheText)
{
    TextBuffer buffer;
    buffer.Append(OLESTR("ab"));
    const Text piece(5000, OLECHAR{'x'});
    buffer.Append(piece);
    EXPECT_EQ(buffer.View(), OLESTR("ab") + piece);
}

TEST(TextBuffers, CutWhatStandsBehindAPlace)
{
    TextBuffer buffer;
    buffer.Append(OLESTR("abcdef"));
    buffer.Cut(2);
    buffer.Append(OLECHAR{'z'});
    EXPECT_EQ(buffer.View(), OLESTR("abz"));
}

TEST(TextBuffers, HandTheirTextOverByMoving)
{
    TextBuffer first;
    first.Append(OLESTR("text"));
    const OLECHAR* const units = first.View().data();
    TextBuffer second(std::move(first));
    EXPECT_EQ(second.View().data(), units);
    TextBuffer third;
    third.Append(OLESTR("other"));
    third = std::move(second);
    EXPECT_EQ(third.View(), OLESTR("text"));
    EXPECT_EQ(third.View().data(), units);
}

TEST(GrowingBuffers, HoldElementsOfAnySize)
{
    struct Pair {
        std::uint32_t first;
        std::uint64_t second;
    };
    GrowingBuffer<Pair> pairs;
    for (std::uint32_t i = 0; i < 3000; ++i)
        pairs.Append({i, std::uint64_t{i} << 32});
    ASSERT_EQ(pairs.Size(), 3000U);
    for (std::uint32_t i = 0; i < 3000; ++i) {
        EXPECT_EQ(pairs.Data()[i].first, i);
        EXPECT_EQ(pairs.Data()[i].second, std::uint64_t{i} << 32);
    }
    pairs.Cut(0);
    EXPECT_EQ(pairs.Size(), 0U);
    EXPECT_GE(pairs.Capacity(), 3000U);
}

} // namespace
