// The content rules by themselves, at the sizes and places where the interface can't look.
#include "suite/stream/StreamStorage.h"
#include "suite/CodePages.h"

#include <gmock/gmock.h>

#include <stdexcept>
#include <vector>

namespace {

constexpr unsigned char kRecord[] = {1, 2, 3, 4, 5};

/// Gives the value's bytes as characters, each one times `times`.
class RepeatedBytes final : public TextSource {
public:
    RepeatedBytes(std::size_t times, int& rendered) : m_times(times), m_rendered(rendered) {}
    TextView TextOf(ByteView value, Text& scratch) const override
    {
        ++m_rendered;
        scratch.clear();
        for (const unsigned char byte : value)
            scratch.append(m_times, static_cast<OLECHAR>(byte));
        return scratch;
    }

private:
    std::size_t m_times;
    int& m_rendered;
};

class StreamContent : public testing::Test {
protected:
    void AppendPending(ByteView value, std::size_t times = 1)
    {
        storage.AppendPending(this, value, [&] { return std::make_unique<RepeatedBytes>(times, rendered); });
    }
    Text ReadText()
    {
        TextView text;
        EXPECT_EQ(storage.ReadString(text), E_STREAM_ERROR_NONE);
        return Text(text);
    }
    std::size_t Read(std::size_t count)
    {
        std::vector<unsigned char> buffer(count + 1);
        std::size_t read = 0;
        lastError = storage.Read(buffer.data(), count, read);
        return read;
    }

    StreamStorage storage;
    int rendered = 0;
    EStreamError lastError = E_STREAM_ERROR_NONE;
};

TEST_F(StreamContent, APendingTextIsNotMadeWhileOnlyItsNeighboursAreRead)
{
    storage.Append(kRecord);
    AppendPending(kRecord);
    storage.Append(kRecord);

    EXPECT_EQ(Read(5), 5u);
    EXPECT_EQ(storage.SkipString(), E_STREAM_ERROR_NONE);
    EXPECT_EQ(Read(5), 5u);
    EXPECT_EQ(Read(5), 0u);
    EXPECT_EQ(lastError, E_STREAM_ERROR_END_OF_FILE);
    EXPECT_EQ(rendered, 0);
}

TEST_F(StreamContent, APendingTextIsMadeOncePerReading)
{
    AppendPending(kRecord);
    ReadText();
    EXPECT_EQ(rendered, 1);
    EXPECT_EQ(storage.Seek(0, E_STREAM_ORIGIN_START), E_STREAM_ERROR_NONE);
    ReadText();
    EXPECT_EQ(rendered, 2);
}

TEST_F(StreamContent, AskingForThePositionBehindAPendingTextGivesThatOfTheWrittenText)
{
    storage.Append(kRecord);
    AppendPending(kRecord);
    AppendPending(kRecord);
    Read(5);
    ReadText();

    EXPECT_EQ(storage.Position(), 5u + 4 + 10);
    EXPECT_EQ(ReadText(), OLESTR("\1\2\3\4\5"));
    EXPECT_EQ(storage.Position(), storage.Bytes().size());
}

TEST_F(StreamContent, AReadAcrossAPendingTextSeesItsFrame)
{
    AppendPending(ByteView(kRecord).first(1));
    EXPECT_EQ(Read(100), 6u);
}

TEST_F(StreamContent, AReadOfNoBytesBeforeAPendingTextIsNotTheEnd)
{
    AppendPending(kRecord);
    EXPECT_EQ(Read(0), 0u);
    EXPECT_EQ(lastError, E_STREAM_ERROR_NONE);
    EXPECT_EQ(rendered, 0);
}

TEST_F(StreamContent, BytesThatLookLikeALongFrameMayReachIntoAPendingText)
{
    // The head announces 14 bytes: the frame of the pending text that follows.
    constexpr unsigned char kHead[] = {14, 0, 0, 0};
    storage.Append(kHead);
    AppendPending(kRecord);

    EXPECT_EQ(ReadText(), (Text{10, 0, 1, 2, 3, 4, 5}));
    EXPECT_EQ(storage.Position(), 18u);
}

TEST_F(StreamContent, AChangeToTextModeWritesPendingTextsOut)
{
    AppendPending(kRecord);
    storage.SetMode(E_STREAM_MODE_TEXT);
    EXPECT_EQ(rendered, 1);
    EXPECT_EQ(storage.Bytes().size(), 14u);
}

TEST_F(StreamContent, ClearingForgetsPendingTextsUnmade)
{
    AppendPending(kRecord);
    storage.Clear();
    EXPECT_EQ(storage.Bytes().size(), 0u);
    EXPECT_EQ(storage.Items(), 0);
    EXPECT_EQ(rendered, 0);
}

TEST_F(StreamContent, ATextAtAnOddPlaceIsReadAsWell)
{
    storage.Append(ByteView(kRecord).first(1));
    storage.AppendString(OLESTR("odd"), true);
    EXPECT_EQ(Read(1), 1u);
    EXPECT_EQ(ReadText(), OLESTR("odd"));
}

TEST_F(StreamContent, AContentPastTheLargestSizeIsRefusedUnchanged)
{
    storage.Append(kRecord);
    // The bytes are never looked at: their number alone is too large.
    EXPECT_THROW(storage.Append({kRecord, StreamStorage::kMaxBytes - 4}), std::length_error);
    EXPECT_THROW(storage.AppendString({OLESTR(""), StreamStorage::kMaxBytes / 2}, true), std::length_error);
    EXPECT_EQ(storage.Bytes().size(), 5u);
    EXPECT_EQ(storage.Items(), 1);
}

TEST_F(StreamContent, TheNumberOfItemsStopsAtTheLargestNumber)
{
    storage.Append({}, 0xFFFFFFFF);
    storage.Append({}, 0xFFFFFFFF);
    EXPECT_EQ(storage.Items(), 0x7FFFFFFF);
}

TEST_F(StreamContent, ManyTextsOfTwoSourcesComeBackInOrder)
{
    constexpr unsigned char kLetter[] = {'a'};
    int other = 0;
    for (int i = 0; i < 1000; ++i) {
        storage.Append(kRecord);
        AppendPending(kLetter);
        storage.AppendPending(&other, kLetter, [&] { return std::make_unique<RepeatedBytes>(2, rendered); });
    }
    for (int i = 0; i < 1000; ++i) {
        ASSERT_EQ(Read(5), 5u);
        ASSERT_EQ(ReadText(), OLESTR("a"));
        ASSERT_EQ(ReadText(), OLESTR("aa"));
    }
    EXPECT_EQ(storage.Bytes().size(), 1000u * (5 + 6 + 8));
    EXPECT_EQ(storage.Position(), storage.Bytes().size());
}

} // namespace
