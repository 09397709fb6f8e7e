// The direct access: what it writes and reads is what the given interface would have written and read.
#include "tests/suite/stream/StreamFixture.h"

#include <cstring>

using testing::ElementsAre;

namespace {

/// Renders a number as that many letters; counts its work.
class Letters : public CComObjectRootEx<CComMultiThreadModel>, public IqorTextRenderer {
public:
    using Interfaces = InterfaceList<IqorTextRenderer>;

    STDMETHODIMP RenderText(const unsigned char* value, LONG valueBytes, OLECHAR* buffer, LONG capacity,
                            LONG* length) override
    {
        ++rendered;
        if (FAILED(result))
            return result;
        EXPECT_EQ(valueBytes, static_cast<LONG>(sizeof(LONG)));
        std::memcpy(length, value, sizeof(LONG));
        if (*length > capacity)
            return S_FALSE;
        for (LONG i = 0; i < *length; ++i)
            buffer[i] = static_cast<OLECHAR>(OLESTR('a') + i % 26);
        return S_OK;
    }

    int rendered = 0;
    HRESULT result = S_OK;
};

/// Owns a text and tells when it is let go.
class Owner : public CComObjectRootEx<CComMultiThreadModel>, public IqorTextOwner {
public:
    using Interfaces = InterfaceList<IqorTextOwner>;

    STDMETHODIMP GetText(const OLECHAR** out, LONG* length) override
    {
        *out = text.data();
        *length = static_cast<LONG>(text.size());
        return S_OK;
    }
    void FinalRelease() { *gone = true; }

    Text text;
    bool* gone = nullptr;
};

Text LettersOf(LONG count)
{
    Text text;
    for (LONG i = 0; i < count; ++i)
        text += static_cast<OLECHAR>(OLESTR('a') + i % 26);
    return text;
}

class DirectStream : public testing::Test, public NewStreamUser {
protected:
    DirectStream()
    {
        EXPECT_EQ(stream.QueryInterface(&direct), S_OK);
        EXPECT_EQ(CComObject<Letters>::CreateInstance(&letters), S_OK);
        renderer.Attach(letters);
        SetMode(E_STREAM_MODE_BINARY);
    }

    void AppendDeferred(LONG count)
    {
        EXPECT_EQ(direct->AppendDeferredText(reinterpret_cast<const unsigned char*>(&count), sizeof count, renderer),
                  S_OK);
    }
    void AppendItems(const Bytes& bytes, LONG items)
    {
        EXPECT_EQ(direct->AppendItems(bytes.data(), static_cast<LONG>(bytes.size()), items), S_OK);
    }
    /// Lends `text` to the stream.
    void Adopt(TextView text)
    {
        CComObject<Owner>* owner = nullptr;
        ASSERT_EQ(CComObject<Owner>::CreateInstance(&owner), S_OK);
        CComPtr<IqorTextOwner> reference;
        reference.Attach(owner);
        owner->text = text;
        owner->gone = &ownerGone;
        lent = owner->text.data();
        EXPECT_EQ(direct->AdoptText(owner), S_OK);
    }
    HRESULT Peek(Text& text)
    {
        const OLECHAR* units = nullptr;
        LONG length = -1;
        const HRESULT hr = direct->PeekString(&units, &length);
        peeked = units;
        text.assign(units, static_cast<std::size_t>(length));
        return hr;
    }
    Text Peeked()
    {
        Text text;
        EXPECT_EQ(Peek(text), S_OK);
        return text;
    }

    CComPtr<IqorStreamDirect> direct;
    CComObject<Letters>* letters = nullptr;
    CComPtr<IqorTextRenderer> renderer;
    bool ownerGone = false;
    const OLECHAR* lent = nullptr;
    const OLECHAR* peeked = nullptr;
};

TEST_F(DirectStream, BytesOfManyItemsReadLikeManyWrites)
{
    AppendItems({1, 2, 3, 4}, 2);
    EXPECT_EQ(Items(), 2);
    EXPECT_THAT(Read(2), ElementsAre(1, 2));
    EXPECT_THAT(Read(2), ElementsAre(3, 4));
}

TEST_F(DirectStream, EveryWayOfWritingATextGivesTheSameStream)
{
    NewStreamUser plain;
    plain.SetMode(E_STREAM_MODE_BINARY);
    for (const LONG count : {0, 1, 63, 64, 65, 3000}) {
        plain.Write({1, 2, 3});
        plain.WriteString(LettersOf(count));
        plain.WriteString(LettersOf(count));
        AppendItems({1, 2, 3}, 1);
        AppendDeferred(count);
        Adopt(LettersOf(count));
    }
    EXPECT_EQ(Items(), plain.Items());
    for (const LONG count : {0, 1, 63, 64, 65, 3000}) {
        EXPECT_THAT(Read(3), ElementsAre(1, 2, 3));
        EXPECT_EQ(ReadString(), Line(LettersOf(count)));
        EXPECT_EQ(ReadString(), Line(LettersOf(count)));
    }
    EXPECT_EQ(ReadString(), kNothingLeft);
    EXPECT_EQ(Size(), plain.Size());
    EXPECT_EQ(Content(), plain.Content());
    EXPECT_EQ(Position(), plain.Size());
}

TEST_F(DirectStream, ABatchReadsLikeItsItemsAndTextsOneByOne)
{
    const unsigned char bytes[] = {1, 2, 3, 4, 5};
    const LONG values[] = {3, 70, 0};
    const SqorDeferredText texts[] = {{0, 0, 4}, {2, 4, 4}, {2, 8, 4}, {5, 0, 4}};
    for (const EStreamMode mode : {E_STREAM_MODE_BINARY, E_STREAM_MODE_TEXT}) {
        Clear();
        SetMode(mode);
        EXPECT_EQ(direct->AppendBatch(bytes, 5, 2, reinterpret_cast<const unsigned char*>(values), sizeof values, texts,
                                      4, renderer),
                  S_OK);
        NewStreamUser plain;
        plain.SetMode(mode);
        plain.WriteString(LettersOf(3));
        plain.Write({1, 2});
        plain.WriteString(LettersOf(70));
        plain.WriteString({});
        plain.Write({3, 4, 5});
        plain.WriteString(LettersOf(3));
        EXPECT_EQ(Items(), plain.Items());
        EXPECT_EQ(Content(), plain.Content());
    }
}

TEST_F(DirectStream, ABatchGoesBehindWhatIsThere)
{
    const unsigned char bytes[] = {7, 8};
    const LONG values[] = {2, 1};
    const SqorDeferredText texts[] = {{1, 4, 4}};
    AppendItems({1}, 1);
    AppendDeferred(3);
    EXPECT_EQ(direct->AppendBatch(bytes, 2, 1, reinterpret_cast<const unsigned char*>(values), sizeof values, texts, 1,
                                  renderer),
              S_OK);
    EXPECT_EQ(direct->AppendBatch(nullptr, 0, 0, nullptr, 0, nullptr, 0, renderer), S_OK);
    EXPECT_EQ(Items(), 4);
    EXPECT_THAT(Read(1), ElementsAre(1));
    EXPECT_EQ(ReadString(), Line(OLESTR("abc")));
    EXPECT_THAT(Read(1), ElementsAre(7));
    EXPECT_EQ(ReadString(), Line(OLESTR("a")));
    EXPECT_THAT(Read(1), ElementsAre(8));
}

TEST_F(DirectStream, ABatchWithTextsOutsideIsRefusedWhole)
{
    const unsigned char bytes[] = {1, 2, 3};
    const auto append = [&](std::vector<SqorDeferredText> texts) {
        return direct->AppendBatch(bytes, 3, 1, bytes, 3, texts.data(), static_cast<LONG>(texts.size()), renderer);
    };
    EXPECT_EQ(append({{4, 0, 1}}), E_INVALIDARG);
    EXPECT_EQ(append({{2, 0, 1}, {1, 0, 1}}), E_INVALIDARG);
    EXPECT_EQ(append({{0, 4, 0}}), E_INVALIDARG);
    EXPECT_EQ(append({{0, 3, 1}}), E_INVALIDARG);
    EXPECT_EQ(append({{0, 1, 0xFFFFFFFF}}), E_INVALIDARG);
    EXPECT_EQ(direct->AppendBatch(bytes, 3, 1, bytes, 3, nullptr, 1, renderer), E_POINTER);
    EXPECT_EQ(direct->AppendBatch(bytes, 3, 1, bytes, 3, nullptr, 0, nullptr), E_POINTER);
    EXPECT_EQ(direct->AppendBatch(bytes, -1, 1, bytes, 3, nullptr, 0, renderer), E_INVALIDARG);
    EXPECT_EQ(Items(), 0);
    EXPECT_EQ(Size(), 0);
}

TEST_F(DirectStream, EveryQuestionAboutBytesIsAnsweredAsIfTheTextsWereWritten)
{
    const auto fill = [this] {
        Clear();
        AppendItems({1}, 1);
        AppendDeferred(3);
        Adopt(OLESTR("xy"));
    };
    constexpr LONG kSize = 1 + (4 + 6) + (4 + 4);

    fill();
    EXPECT_EQ(Size(), kSize);
    fill();
    EXPECT_EQ(Content().size(), static_cast<std::size_t>(kSize));
    fill();
    EXPECT_EQ(Seek(0, E_STREAM_ORIGIN_END), E_STREAM_ERROR_NONE);
    EXPECT_EQ(Position(), kSize);
    fill();
    Read(1);
    EXPECT_THAT(Read(5), ElementsAre(6, 0, 0, 0, 'a'));
    fill();
    EXPECT_EQ(stream->SetSeekPos(11), S_OK);
    EXPECT_EQ(ReadString(), Line(OLESTR("xy")));
    fill();
    Read(1);
    ReadString();
    EXPECT_EQ(stream->Truncate(), S_OK);
    EXPECT_EQ(Size(), 11);
    fill();
    CComBSTR content;
    EXPECT_EQ(stream->GetStreamContentsAsString(&content), S_OK);
    EXPECT_EQ(SysStringByteLen(content), static_cast<UINT>(kSize));
    fill();
    NewStreamUser other;
    EXPECT_EQ(other.stream->Append(stream), S_OK);
    EXPECT_EQ(other.Size(), kSize);
    EXPECT_EQ(other.Items(), 3);
}

TEST_F(DirectStream, ADeferredTextIsNotRenderedUntilSomebodyReadsIt)
{
    AppendItems({1}, 1);
    AppendDeferred(3);
    AppendItems({2}, 1);
    Read(1);
    EXPECT_EQ(direct->SkipString(), S_OK);
    EXPECT_THAT(Read(1), ElementsAre(2));
    Read(1, E_STREAM_ERROR_END_OF_FILE);
    EXPECT_EQ(Items(), 3);
    Clear();
    EXPECT_EQ(letters->rendered, 0);
}

TEST_F(DirectStream, AReaderOfTheGivenInterfaceMayReadADeferredTextAgain)
{
    AppendDeferred(3);
    EXPECT_EQ(ReadString(), Line(OLESTR("abc")));
    Seek(0);
    EXPECT_EQ(ReadString(), Line(OLESTR("abc")));
}

TEST_F(DirectStream, ATextStreamTakesDeferredAndLentTextsAsLines)
{
    SetMode(E_STREAM_MODE_TEXT);
    AppendDeferred(3);
    Adopt(OLESTR("lent"));
    EXPECT_EQ(letters->rendered, 1);
    EXPECT_TRUE(ownerGone);
    EXPECT_EQ(ReadString(), Line(OLESTR("abc")));
    EXPECT_EQ(ReadString(), Line(OLESTR("lent")));
    EXPECT_EQ(ReadString(), kNothingLeft);
}

TEST_F(DirectStream, ALentTextIsReadInPlaceAndKeptUntilTheStreamLetsGo)
{
    Adopt(OLESTR("a text that nobody copies"));
    EXPECT_FALSE(ownerGone);
    EXPECT_EQ(Peeked(), OLESTR("a text that nobody copies"));
    EXPECT_EQ(peeked, lent);
    Clear();
    EXPECT_TRUE(ownerGone);
}

TEST_F(DirectStream, PeekingReadsEveryKindOfText)
{
    WriteString(OLESTR("written"));
    AppendDeferred(100);
    Adopt(OLESTR("lent"));
    Write({1});
    WriteString(OLESTR("at an odd place"));
    EXPECT_EQ(Peeked(), OLESTR("written"));
    EXPECT_EQ(Peeked(), LettersOf(100));
    EXPECT_EQ(Peeked(), OLESTR("lent"));
    Read(1);
    EXPECT_EQ(Peeked(), OLESTR("at an odd place"));

    Text text;
    EXPECT_EQ(Peek(text), S_FALSE);
    EXPECT_EQ(text, Text());
    EXPECT_EQ(LastError(), E_STREAM_ERROR_END_OF_FILE);
}

TEST_F(DirectStream, SkippingPassesOverEveryKindOfText)
{
    WriteString(OLESTR("written"));
    AppendDeferred(100);
    Adopt(OLESTR("lent"));
    Write({1});
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(direct->SkipString(), S_OK);
    EXPECT_THAT(Read(1), ElementsAre(1));
    EXPECT_EQ(direct->SkipString(), S_FALSE);

    Clear();
    SetMode(E_STREAM_MODE_TEXT);
    WriteString(OLESTR("one"));
    WriteString(OLESTR("two"));
    EXPECT_EQ(direct->SkipString(), S_OK);
    EXPECT_EQ(ReadString(), Line(OLESTR("two")));
}

TEST_F(DirectStream, WhereNoTextCanBeginPeekingAndSkippingFail)
{
    Load({1, 2, 3});
    Text text;
    EXPECT_EQ(Peek(text), S_FALSE);
    EXPECT_EQ(LastError(), E_STREAM_ERROR_UNKNOWN_ERROR);
    Seek(0);
    EXPECT_EQ(direct->SkipString(), S_FALSE);
    EXPECT_EQ(LastError(), E_STREAM_ERROR_UNKNOWN_ERROR);
}

TEST_F(DirectStream, AFailingRendererFailsTheReadAndLosesNothing)
{
    AppendDeferred(3);
    letters->result = E_ACCESSDENIED;
    CComBSTR text;
    LONG length = 0;
    EStreamError error = E_STREAM_ERROR_NONE;
    EXPECT_EQ(stream->ReadString(&text, &length, &error), E_ACCESSDENIED);
    EXPECT_EQ(text.m_str, nullptr);
    const OLECHAR* units = nullptr;
    EXPECT_EQ(direct->PeekString(&units, &length), E_ACCESSDENIED);
    LONG size = -1;
    EXPECT_EQ(stream->GetStreamSize(&size), E_ACCESSDENIED);
    EXPECT_EQ(size, -1);

    letters->result = S_OK;
    EXPECT_EQ(ReadString(), Line(OLESTR("abc")));
    EXPECT_EQ(Size(), 10);
}

TEST_F(DirectStream, MisuseIsRefused)
{
    const unsigned char byte = 0;
    const OLECHAR* units = nullptr;
    LONG length = 0;
    EXPECT_EQ(direct->AppendItems(nullptr, 1, 1), E_POINTER);
    EXPECT_EQ(direct->AppendItems(&byte, -1, 1), E_INVALIDARG);
    EXPECT_EQ(direct->AppendItems(&byte, 1, -1), E_INVALIDARG);
    EXPECT_EQ(direct->AppendDeferredText(nullptr, 1, renderer), E_POINTER);
    EXPECT_EQ(direct->AppendDeferredText(&byte, 1, nullptr), E_POINTER);
    EXPECT_EQ(direct->AppendDeferredText(&byte, -1, renderer), E_INVALIDARG);
    EXPECT_EQ(direct->AdoptText(nullptr), E_POINTER);
    EXPECT_EQ(direct->PeekString(nullptr, &length), E_POINTER);
    EXPECT_EQ(direct->PeekString(&units, nullptr), E_POINTER);
    EXPECT_EQ(Items(), 0);
}

TEST_F(DirectStream, AReadOnlyStreamRefusesDirectWritingToo)
{
    EXPECT_EQ(stream->SetReadOnly(VARIANT_TRUE), S_OK);
    const unsigned char byte = 0;
    const TextView message = OLESTR("The stream is read-only and can't be changed.");
    ExpectRefusal(direct->AppendItems(&byte, 1, 1), message);
    ExpectRefusal(direct->AppendDeferredText(&byte, 1, renderer), message);
    EXPECT_EQ(LastError(), E_STREAM_ERROR_OPEN_FILE_READ_ONLY);
}

TEST_F(DirectStream, ADirectSuccessLeavesTheThreadsErrorObject)
{
    ExpectRefusal(stream->SetSeekPos(5), OLESTR("The position 5 lies outside the stream, which has 0 bytes."));
    EXPECT_TRUE(FAILED(stream->SetSeekPos(5)));
    AppendItems({1}, 1);
    EXPECT_NE(LastErrorText(), Text());
}

} // namespace
