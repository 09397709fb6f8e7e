// Category states and visibility overrides in their streams, byte by byte.
#include "tests/core/ModelFixture.h"
#include "tests/support/FakeStream.h"
#include "tests/support/Framed.h"
#include "viewer/StateStreams.h"

#include <gmock/gmock.h>

#include <string>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

using namespace std::string_literals;

constexpr const OLECHAR* kWrongStream =
    OLESTR("The stream mode is invalid. Please use a binary stream for initializing the category state map");

CComPtr<IqorStream> BinaryStream(std::string bytes = {})
{
    CComPtr<IqorStream> stream = MakeStream();
    EXPECT_EQ(stream->SetStreamMode(E_STREAM_MODE_BINARY), S_OK);
    if (!bytes.empty()) {
        EXPECT_EQ(stream->Write(bytes.data(), static_cast<LONG>(bytes.size())), S_OK);
    }
    return stream;
}

std::string BytesOf(IqorStream* stream)
{
    EStreamError error = E_STREAM_ERROR_NONE;
    EXPECT_EQ(stream->Seek(0, E_STREAM_ORIGIN_START, &error), S_OK);
    std::string bytes(256, '\0');
    LONG read = 0;
    EXPECT_EQ(stream->Read(bytes.data(), static_cast<LONG>(bytes.size()), &read, &error), S_OK);
    bytes.resize(static_cast<std::size_t>(read));
    return bytes;
}

} // namespace

TEST(CategoryStream, IsReadFromACountOfFourBytes)
{
    CategoryStates states{{7, BYTE{1}}};
    ReadCategoryStates(*BinaryStream("\2\0\0\0"
                                     "\12\0\0\0"
                                     "\1"
                                     "\13\0\0\0"
                                     "\0"s),
                       states);
    EXPECT_THAT(states, ElementsAre(Pair(10, 1), Pair(11, 0)));
}

TEST(CategoryStream, IsReadFromItsStartWhereverItStands)
{
    CategoryStates states;
    const auto stream = BinaryStream("\1\0\0\0"
                                     "\5\0\0\0"
                                     "\1"s);
    EStreamError error = E_STREAM_ERROR_NONE;
    EXPECT_EQ(stream->Seek(3, E_STREAM_ORIGIN_START, &error), S_OK);
    ReadCategoryStates(*stream, states);
    EXPECT_THAT(states, ElementsAre(Pair(5, 1)));
}

TEST(CategoryStream, LeavesTheMapWithoutAWholeCount)
{
    for (const std::string& bytes : {""s, "\1\0\0"s}) {
        CategoryStates states{{7, BYTE{1}}};
        ReadCategoryStates(*BinaryStream(bytes), states);
        EXPECT_THAT(states, ElementsAre(Pair(7, 1)));
    }
}

TEST(CategoryStream, EmptiesTheMapForACountOfZeroOrLess)
{
    for (const std::string& bytes : {"\0\0\0\0"s, "\xFF\xFF\xFF\xFF"s}) {
        CategoryStates states{{7, BYTE{1}}};
        ReadCategoryStates(*BinaryStream(bytes), states);
        EXPECT_THAT(states, IsEmpty());
    }
}

TEST(CategoryStream, TakesShortReadsForAnEntryOfItsStartingValues)
{
    CategoryStates states;
    ReadCategoryStates(*BinaryStream("\3\0\0\0"
                                     "\5\0\0\0"
                                     "\1"
                                     "\6\0"s),
                       states);
    EXPECT_THAT(states, ElementsAre(Pair(static_cast<LONG>(0xFFFF0006), 0), Pair(-1, 0), Pair(5, 1)));
}

TEST(CategoryStream, OfAHugeCountEndsWithTheStream)
{
    CategoryStates states;
    ReadCategoryStates(*BinaryStream("\xFF\xFF\xFF\x7F"
                                     "\5\0\0\0"
                                     "\1"s),
                       states);
    EXPECT_THAT(states, ElementsAre(Pair(-1, 0), Pair(5, 1)));
}

TEST(CategoryStream, MustBeBinaryToBeRead)
{
    CategoryStates states{{7, BYTE{1}}};
    const CComPtr<IqorStream> text = MakeStream();
    EXPECT_EQ(text->SetStreamMode(E_STREAM_MODE_TEXT), S_OK);
    const HRESULT hr = Framed([&] { ReadCategoryStates(*text, states); });
    ExpectRefusal(hr, kWrongStream);
    EXPECT_EQ(hr & 0xFFFF, 468);
    EXPECT_THAT(states, ElementsAre(Pair(7, 1)));
}

TEST(CategoryStream, RaisesAFailingRead)
{
    CategoryStates states;
    OwnFakeStream stream;
    stream->answers = {{"\2\0\0\0"s}, {{}, E_STREAM_ERROR_NONE, E_ACCESSDENIED}};
    EXPECT_EQ(Framed([&] { ReadCategoryStates(*stream, states); }), E_ACCESSDENIED);
    EXPECT_THAT(states, IsEmpty());
}

TEST(CategoryStream, OfAnEmptyMapIsEightZeroBytes)
{
    const auto stream = BinaryStream("old");
    WriteCategoryStates(*stream, {});
    EXPECT_EQ(BytesOf(stream), std::string(8, '\0'));
}

TEST(CategoryStream, IsWrittenWithACountOfEightBytes)
{
    const auto stream = BinaryStream();
    WriteCategoryStates(*stream, {{11, BYTE{0}}, {10, BYTE{1}}});
    EXPECT_EQ(BytesOf(stream), "\2\0\0\0\0\0\0\0"
                               "\12\0\0\0"
                               "\1"
                               "\13\0\0\0"
                               "\0"s);
}

TEST(CategoryStream, ComesBackShiftedByItsLongerCount)
{
    const auto stream = BinaryStream();
    WriteCategoryStates(*stream, {{10, BYTE{1}}});
    CategoryStates states;
    ReadCategoryStates(*stream, states);
    EXPECT_THAT(states, ElementsAre(Pair(0, 10))); // the upper half of the count, the first byte of the id
}

TEST(CategoryStream, MayBeTextInMemoryToBeWritten)
{
    const CComPtr<IqorStream> text = MakeStream();
    EXPECT_EQ(text->SetStreamMode(E_STREAM_MODE_TEXT), S_OK);
    EXPECT_EQ(Framed([&] { WriteCategoryStates(*text, {}); }), S_OK);
}

TEST(OverrideStream, HoldsRecordsOfEightBytes)
{
    const auto overrides = ReadVisibilityOverrides(*BinaryStream("\5\0\0\0"
                                                                 "\xFF\xFF"
                                                                 "\x7E\x7E"
                                                                 "\6\0\0\0"
                                                                 "\0\0"
                                                                 "\0\0"
                                                                 "\7\0\0\0"
                                                                 "\1\0"
                                                                 "\0\0"s));
    EXPECT_THAT(overrides, ElementsAre(Pair(5, 1), Pair(6, 0), Pair(7, 1)));
}

TEST(OverrideStream, EndsAtARecordThatIsNotWhole)
{
    EXPECT_THAT(ReadVisibilityOverrides(*BinaryStream("\5\0\0\0"
                                                      "\1\0"
                                                      "\0\0"
                                                      "\6\0\0\0"s)),
                ElementsAre(Pair(5, 1)));
}

TEST(OverrideStream, EndsInSilenceAtAnyReport)
{
    OwnFakeStream stream;
    stream->answers = {{"\5\0\0\0\1\0\0\0"s}, {"\6\0\0\0\1\0\0\0"s, E_STREAM_ERROR_UNKNOWN_ERROR}};
    EXPECT_THAT(ReadVisibilityOverrides(*stream), ElementsAre(Pair(5, 1)));
    EXPECT_EQ(stream->seeks, 1);
}
