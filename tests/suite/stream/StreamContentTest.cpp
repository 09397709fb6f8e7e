// Binary content: records and texts, items, positions, arrays.
#include "tests/suite/stream/StreamFixture.h"

#include <numeric>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class BinaryStream : public testing::Test, public NewStreamUser {
protected:
    BinaryStream() { SetMode(E_STREAM_MODE_BINARY); }
};

TEST_F(BinaryStream, ARecordATextAndARecordReadBackInThatOrder)
{
    Write({1, 2, 3});
    WriteString(OLESTR("between"));
    Write({4, 5});

    EXPECT_THAT(Read(3), ElementsAre(1, 2, 3));
    EXPECT_EQ(ReadString(), Line(OLESTR("between")));
    EXPECT_THAT(Read(2), ElementsAre(4, 5));
    EXPECT_THAT(Read(1, E_STREAM_ERROR_END_OF_FILE), IsEmpty());
}

TEST_F(BinaryStream, ATextComesBackWholeWhateverItHolds)
{
    const Text texts[] = {
        OLESTR("line\r\nline\nline\r"), OLESTR("~1al1|35\\$"), Text(3, 0), Text{0xD800}, Text{0xFFFE}, OLESTR("")};
    for (const Text& text : texts)
        WriteString(text);
    for (const Text& text : texts)
        EXPECT_EQ(ReadString(), Line(text));
    EXPECT_EQ(ReadString(), kNothingLeft);
}

TEST_F(BinaryStream, ATextOfTenMillionCharactersIsOneItem)
{
    Text text(10'000'000, OLESTR('x'));
    text.back() = OLESTR('y');
    WriteString(text);
    EXPECT_EQ(Items(), 1);
    EXPECT_EQ(ReadString(), Line(text));
}

TEST_F(BinaryStream, NewLineHasNoEffectOnATextOrItsSize)
{
    WriteString(OLESTR("a"), VARIANT_FALSE);
    const LONG size = Size();
    WriteString(OLESTR("b"), VARIANT_TRUE);
    WriteString(OLESTR("c"), 1);
    EXPECT_EQ(Size(), 3 * size);
    EXPECT_EQ(ReadString(), Line(OLESTR("a")));
    EXPECT_EQ(ReadString(), Line(OLESTR("b")));
    EXPECT_EQ(ReadString(), Line(OLESTR("c")));
}

TEST_F(BinaryStream, CodePageAndDelimiterMeanNothingToABinaryText)
{
    SetCodePage(1252);
    SetDelimiter(OLESTR("|"));
    WriteString(OLESTR("\x0394|\x0394"));
    EXPECT_EQ(ReadString(), Line(OLESTR("\x0394|\x0394")));
}

TEST_F(BinaryStream, ANullTextIsAnEmptyOne)
{
    EXPECT_EQ(stream->WriteString(nullptr, VARIANT_TRUE), S_OK);
    EXPECT_EQ(Items(), 1);
    EXPECT_EQ(ReadString(), Line(OLESTR("")));
    EXPECT_EQ(ReadString(), kNothingLeft);
}

TEST(UnsetStream, WorksAsABinaryOne)
{
    NewStreamUser user;
    user.WriteString(OLESTR("one\r\ntwo"));
    EXPECT_EQ(user.ReadString(), Line(OLESTR("one\r\ntwo")));
    EXPECT_EQ(user.Mode(), E_STREAM_MODE_NOT_SET);
}

// ---- Items ----

TEST_F(BinaryStream, EveryWriteIsOneItem)
{
    Write({1});
    Write({});
    WriteString(OLESTR(""));
    WriteString(OLESTR("text"));
    EXPECT_EQ(Items(), 4);
}

TEST_F(BinaryStream, ClearingForgetsContentItemsAndPosition)
{
    Write({1, 2, 3});
    Read(2);
    Clear();
    EXPECT_EQ(Items(), 0);
    EXPECT_EQ(Size(), 0);
    EXPECT_EQ(Position(), 0);
    EXPECT_EQ(Mode(), E_STREAM_MODE_BINARY);

    Write({9});
    EXPECT_THAT(Read(10), ElementsAre(9));
    EXPECT_EQ(Items(), 1);
}

// ---- Reading and positions ----

TEST_F(BinaryStream, AReadGivesWhatIsLeftAndTheEndOnlyWhenNothingIs)
{
    Write({1, 2, 3});
    EXPECT_THAT(Read(20), ElementsAre(1, 2, 3));
    EXPECT_THAT(Read(20, E_STREAM_ERROR_END_OF_FILE), IsEmpty());
    EXPECT_THAT(Read(0, E_STREAM_ERROR_END_OF_FILE), IsEmpty());
}

TEST_F(BinaryStream, AReadOfNothingMovesNothing)
{
    Write({1});
    EXPECT_THAT(Read(0), IsEmpty());
    EXPECT_EQ(Position(), 0);
}

TEST_F(BinaryStream, WritingAppendsAndLeavesTheReadPosition)
{
    Write({1, 2});
    EXPECT_THAT(Read(1), ElementsAre(1));
    Write({3});
    EXPECT_EQ(Position(), 1);
    EXPECT_THAT(Read(5), ElementsAre(2, 3));
    Write({4});
    EXPECT_THAT(Read(5), ElementsAre(4));
}

TEST_F(BinaryStream, ASecondReaderSeeksToTheStart)
{
    Write({1, 2});
    Read(2);
    EXPECT_EQ(Seek(0), E_STREAM_ERROR_NONE);
    EXPECT_THAT(Read(2), ElementsAre(1, 2));
}

TEST_F(BinaryStream, SeekCountsFromTheStartThePositionOrTheEnd)
{
    Write({0, 1, 2, 3, 4});
    EXPECT_EQ(Seek(3), E_STREAM_ERROR_NONE);
    EXPECT_EQ(Position(), 3);
    EXPECT_EQ(Seek(-2, E_STREAM_ORIGIN_CURRENT), E_STREAM_ERROR_NONE);
    EXPECT_EQ(Position(), 1);
    EXPECT_EQ(Seek(-1, E_STREAM_ORIGIN_END), E_STREAM_ERROR_NONE);
    EXPECT_THAT(Read(5), ElementsAre(4));
    EXPECT_EQ(Seek(0, E_STREAM_ORIGIN_END), E_STREAM_ERROR_NONE);
    EXPECT_EQ(Position(), 5);
}

TEST_F(BinaryStream, ASeekOutOfTheContentIsReportedAndMovesNothing)
{
    Write({0, 1, 2});
    Seek(1);
    EXPECT_EQ(Seek(-1), E_STREAM_ERROR_BEGINNING_OF_FILE);
    EXPECT_EQ(Seek(-2, E_STREAM_ORIGIN_CURRENT), E_STREAM_ERROR_BEGINNING_OF_FILE);
    EXPECT_EQ(Seek(-4, E_STREAM_ORIGIN_END), E_STREAM_ERROR_BEGINNING_OF_FILE);
    EXPECT_EQ(LastError(), E_STREAM_ERROR_BEGINNING_OF_FILE);
    EXPECT_EQ(Seek(4), E_STREAM_ERROR_END_OF_FILE);
    EXPECT_EQ(Seek(0x7FFFFFFF, E_STREAM_ORIGIN_CURRENT), E_STREAM_ERROR_END_OF_FILE);
    EXPECT_EQ(Seek(1, E_STREAM_ORIGIN_END), E_STREAM_ERROR_END_OF_FILE);
    EXPECT_EQ(LastError(), E_STREAM_ERROR_END_OF_FILE);
    EXPECT_EQ(Position(), 1);
}

TEST_F(BinaryStream, APositionThatWasTakenLeadsBackToItsText)
{
    WriteString(OLESTR("first"));
    WriteString(OLESTR("second"));
    ReadString();
    const LONG second = Position();
    ReadString();
    EXPECT_EQ(stream->SetSeekPos(second), S_OK);
    EXPECT_EQ(ReadString(), Line(OLESTR("second")));
}

TEST_F(BinaryStream, TheLastErrorIsThatOfTheLastOperation)
{
    Read(1, E_STREAM_ERROR_END_OF_FILE);
    EXPECT_EQ(LastError(), E_STREAM_ERROR_END_OF_FILE);
    EXPECT_EQ(Items(), 0);
    EXPECT_EQ(LastError(), E_STREAM_ERROR_END_OF_FILE);
    Write({1});
    EXPECT_EQ(LastError(), E_STREAM_ERROR_NONE);
}

// ---- Truncate ----

TEST_F(BinaryStream, TruncateCutsAtTheReadPosition)
{
    Write({1, 2, 3});
    Seek(2);
    EXPECT_EQ(stream->Truncate(), S_OK);
    EXPECT_THAT(Content(), ElementsAre(1, 2));
    EXPECT_EQ(Position(), 2);
    EXPECT_NE(Items(), 0);
    Write({9});
    EXPECT_THAT(Read(5), ElementsAre(9));
}

TEST_F(BinaryStream, TruncateAtTheStartLeavesNoItems)
{
    Write({1, 2, 3});
    EXPECT_EQ(stream->Truncate(), S_OK);
    EXPECT_EQ(Items(), 0);
    EXPECT_EQ(Size(), 0);
}

// ---- Arrays ----

TEST_F(BinaryStream, AByteArrayCarriesAStreamToAnother)
{
    Write({1, 2});
    WriteString(OLESTR("carried"));

    NewStreamUser other;
    EXPECT_EQ(other.Load(Content()), E_STREAM_ERROR_NONE);
    EXPECT_THAT(other.Read(2), ElementsAre(1, 2));
    EXPECT_EQ(other.ReadString(), Line(OLESTR("carried")));
    EXPECT_EQ(other.Items(), 1);
}

TEST_F(BinaryStream, AnArrayReplacesTheContentAndAnEmptyOneEmptiesIt)
{
    Write({1, 2, 3});
    Read(3);
    EXPECT_EQ(Load({7, 8}), E_STREAM_ERROR_NONE);
    EXPECT_THAT(Read(9), ElementsAre(7, 8));
    EXPECT_EQ(Load({}), E_STREAM_ERROR_NONE);
    EXPECT_EQ(Size(), 0);
    EXPECT_EQ(Items(), 0);
}

TEST_F(BinaryStream, AnArrayThatIsTooSmallGetsNothing)
{
    Write({1, 2, 3});
    unsigned char bytes[] = {9, 9, 9};
    LONG written = -1;
    EStreamError error = E_STREAM_ERROR_NONE;
    EXPECT_EQ(stream->SaveToByteArray(bytes, 2, &written, &error), S_OK);
    EXPECT_EQ(error, E_STREAM_ERROR_BUFFER_TOO_SMALL);
    EXPECT_EQ(written, 0);
    EXPECT_EQ(LastError(), E_STREAM_ERROR_BUFFER_TOO_SMALL);
    EXPECT_THAT(bytes, ElementsAre(9, 9, 9));

    EXPECT_EQ(stream->SaveToByteArray(bytes, 3, &written, &error), S_OK);
    EXPECT_EQ(error, E_STREAM_ERROR_NONE);
    EXPECT_EQ(written, 3);
    EXPECT_THAT(bytes, ElementsAre(1, 2, 3));
}

TEST_F(BinaryStream, SavingToAnArrayLeavesTheReadPosition)
{
    Write({1, 2, 3});
    Read(1);
    Content();
    EXPECT_EQ(Position(), 1);
}

/// Owns an array of `count` elements that hold their own number.
class SafeBytes {
public:
    explicit SafeBytes(ULONG count) : array(SafeArrayCreateVector(VT_UI1, 0, count))
    {
        void* elements = nullptr;
        EXPECT_EQ(SafeArrayAccessData(array, &elements), S_OK);
        std::iota(static_cast<unsigned char*>(elements), static_cast<unsigned char*>(elements) + count,
                  static_cast<unsigned char>(0));
        EXPECT_EQ(SafeArrayUnaccessData(array), S_OK);
    }
    SafeBytes(const SafeBytes&) = delete;
    SafeBytes& operator=(const SafeBytes&) = delete;
    ~SafeBytes() { SafeArrayDestroy(array); }

    SAFEARRAY* array;
};

TEST_F(BinaryStream, TheFirstElementsOfASafeArrayBecomeTheContent)
{
    SafeBytes bytes(5);
    EStreamError error = E_STREAM_ERROR_UNKNOWN_ERROR;
    EXPECT_EQ(stream->LoadFromSafeArray(bytes.array, 3, &error), S_OK);
    EXPECT_EQ(error, E_STREAM_ERROR_NONE);
    EXPECT_THAT(Content(), ElementsAre(0, 1, 2));
    EXPECT_EQ(Items(), 1);
    EXPECT_EQ(bytes.array->cLocks, 0u);
}

TEST_F(BinaryStream, ASafeArrayWithTooFewElementsChangesNothing)
{
    Write({9});
    SafeBytes bytes(5);
    EStreamError error = E_STREAM_ERROR_NONE;
    EXPECT_EQ(stream->LoadFromSafeArray(bytes.array, 6, &error), S_OK);
    EXPECT_EQ(error, E_STREAM_ERROR_BUFFER_TOO_SMALL);
    EXPECT_THAT(Content(), ElementsAre(9));
}

TEST_F(BinaryStream, ASafeArrayThatIsNotOneRowOfBytesChangesNothing)
{
    Write({9});
    SafeBytes bytes(5);
    SAFEARRAY longs = *bytes.array;
    longs.cbElements = 4;
    SAFEARRAY table = *bytes.array;
    table.cDims = 2;
    for (SAFEARRAY* const array : {&longs, &table}) {
        EStreamError error = E_STREAM_ERROR_NONE;
        EXPECT_EQ(stream->LoadFromSafeArray(array, 3, &error), S_OK);
        EXPECT_EQ(error, E_STREAM_ERROR_UNKNOWN_ERROR);
    }
    EXPECT_THAT(Content(), ElementsAre(9));
}

// ---- Damaged content ----

TEST_F(BinaryStream, AHeadThatPromisesMoreThanThereIsIsNoText)
{
    Load({6, 0, 0, 0, 'a', 0, 'b', 0});
    EXPECT_EQ(ReadString(), kNoTextHere);
    EXPECT_EQ(LastError(), E_STREAM_ERROR_UNKNOWN_ERROR);
    EXPECT_EQ(ReadString(), kNothingLeft);
}

TEST_F(BinaryStream, ATextOfHalfCharactersOrAHeadCutOffIsNoText)
{
    Load({3, 0, 0, 0, 'a', 0, 'b'});
    EXPECT_EQ(ReadString(), kNoTextHere);
    Load({2, 0, 0});
    EXPECT_EQ(ReadString(), kNoTextHere);
    Load({0xFF, 0xFF, 0xFF, 0xFF, 0, 0});
    EXPECT_EQ(ReadString(), kNoTextHere);
    Load({0xFE, 0xFF, 0xFF, 0xFF, 0, 0});
    EXPECT_EQ(ReadString(), kNoTextHere);
}

TEST_F(BinaryStream, ReadingTextsFromAnyBytesComesToAnEnd)
{
    Bytes bytes(997);
    unsigned state = 1;
    for (int round = 0; round < 200; ++round) {
        for (unsigned char& byte : bytes)
            byte = static_cast<unsigned char>((state = state * 1103515245 + 12345) >> 29);
        Load(bytes);
        int reads = 0;
        while (ReadString().error != E_STREAM_ERROR_END_OF_FILE)
            ASSERT_LT(++reads, 1000);
    }
}

// ---- Append ----

TEST_F(BinaryStream, AppendAddsContentAndItemsAndLeavesTheOthersPosition)
{
    NewStreamUser other;
    other.Write({3});
    other.WriteString(OLESTR("x"));
    other.Read(1);
    Write({1, 2});

    EXPECT_EQ(stream->Append(other.stream), S_OK);
    EXPECT_EQ(Items(), 3);
    EXPECT_THAT(Read(3), ElementsAre(1, 2, 3));
    EXPECT_EQ(ReadString(), Line(OLESTR("x")));
    EXPECT_EQ(other.Position(), 1);
}

TEST_F(BinaryStream, AStreamAppendedToItselfIsThereTwice)
{
    Write({1, 2});
    EXPECT_EQ(stream->Append(stream), S_OK);
    EXPECT_THAT(Content(), ElementsAre(1, 2, 1, 2));
    EXPECT_EQ(Items(), 2);
}

TEST_F(BinaryStream, AppendingAnEmptyStreamAddsNothing)
{
    NewStreamUser other;
    EXPECT_EQ(stream->Append(other.stream), S_OK);
    EXPECT_EQ(Items(), 0);
    EXPECT_EQ(Size(), 0);
}

// ---- Content as text ----

TEST_F(BinaryStream, TheContentAsTextIsTheBytesThemselves)
{
    Write({'a', 0, 'b'});
    CComBSTR content;
    EXPECT_EQ(stream->GetStreamContentsAsString(&content), S_OK);
    EXPECT_EQ(SysStringByteLen(content), 3u);
    EXPECT_EQ(std::memcmp(content.m_str, "a\0b", 3), 0);
}

TEST_F(BinaryStream, TheContentOfAnEmptyStreamIsAnEmptyText)
{
    CComBSTR content;
    EXPECT_EQ(stream->GetStreamContentsAsString(&content), S_OK);
    EXPECT_NE(content.m_str, nullptr);
    EXPECT_EQ(SysStringByteLen(content), 0u);
}

} // namespace
