// What is refused, in which words, and what stays.
#include "tests/suite/stream/StreamFixture.h"

#include <cstring>

namespace {

class MisusedStream : public testing::Test, public NewStreamUser {
protected:
    static Text NullText(TextView method, TextView parameter)
    {
        return Text(OLESTR("Invalid pointer passed to the function 'CqorStream::"))
            .append(method)
            .append(OLESTR("'. Parameter '"))
            .append(parameter)
            .append(OLESTR("' is NULL."));
    }
    static Text NotNullText(TextView method, TextView parameter)
    {
        return Text(OLESTR("The BSTR parameter '"))
            .append(parameter)
            .append(OLESTR("' passed to the function 'CqorStream::"))
            .append(method)
            .append(OLESTR("' is not NULL, memory leaks may occur."));
    }
    static Text UnknownValueText(TextView method, TextView parameter, TextView value)
    {
        return Text(OLESTR("The parameter '"))
            .append(parameter)
            .append(OLESTR("' passed to the function 'CqorStream::"))
            .append(method)
            .append(OLESTR("' has the unknown value "))
            .append(value)
            .append(OLESTR("."));
    }

    unsigned char byte = 7;
    LONG number = 42;
    EStreamError error = E_STREAM_ERROR_NONE;
    CComBSTR text;
    CComBSTR full{TextView(OLESTR("full"))};
};

/// A number that the enumeration lacks, as a caller in another language may pass it.
template <class Enumeration>
Enumeration FromOutside(LONG number)
{
    static_assert(sizeof(Enumeration) == sizeof number);
    Enumeration value;
    std::memcpy(&value, &number, sizeof number);
    return value;
}

constexpr TextView kNegative = OLESTR("A negative parameter has been passed. Please use positive or zero values.");
constexpr TextView kReadOnly = OLESTR("The stream is read-only and can't be changed.");

TEST_F(MisusedStream, EveryNullPointerIsReportedByItsName)
{
    ExpectRefusal(stream->Write(nullptr, 1), NullText(OLESTR("Write"), OLESTR("pData")));
    ExpectRefusal(stream->Read(nullptr, 1, &number, &error), NullText(OLESTR("Read"), OLESTR("pBuffer")));
    ExpectRefusal(stream->Read(&byte, 1, nullptr, &error), NullText(OLESTR("Read"), OLESTR("pnBytesRead")));
    ExpectRefusal(stream->Read(&byte, 1, &number, nullptr), NullText(OLESTR("Read"), OLESTR("peStreamError")));
    ExpectRefusal(stream->Seek(0, E_STREAM_ORIGIN_START, nullptr), NullText(OLESTR("Seek"), OLESTR("peStreamError")));
    ExpectRefusal(stream->ReadString(nullptr, &number, &error), NullText(OLESTR("ReadString"), OLESTR("pbstrString")));
    ExpectRefusal(stream->ReadString(&text, nullptr, &error), NullText(OLESTR("ReadString"), OLESTR("pnLength")));
    ExpectRefusal(stream->ReadString(&text, &number, nullptr), NullText(OLESTR("ReadString"), OLESTR("peStreamError")));
    ExpectRefusal(stream->OpenFile(full, E_STREAM_MODE_TEXT, E_STREAM_OPEN_APPEND, VARIANT_FALSE, nullptr),
                  NullText(OLESTR("OpenFile"), OLESTR("peStreamError")));
    ExpectRefusal(stream->SaveToByteArray(nullptr, 1, &number, &error),
                  NullText(OLESTR("SaveToByteArray"), OLESTR("pByteArray")));
    ExpectRefusal(stream->SaveToByteArray(&byte, 1, nullptr, &error),
                  NullText(OLESTR("SaveToByteArray"), OLESTR("pnBytesWritten")));
    ExpectRefusal(stream->SaveToByteArray(&byte, 1, &number, nullptr),
                  NullText(OLESTR("SaveToByteArray"), OLESTR("peStreamError")));
    ExpectRefusal(stream->LoadFromByteArray(nullptr, 1, &error),
                  NullText(OLESTR("LoadFromByteArray"), OLESTR("pByteArray")));
    ExpectRefusal(stream->LoadFromByteArray(&byte, 1, nullptr),
                  NullText(OLESTR("LoadFromByteArray"), OLESTR("peStreamError")));
    ExpectRefusal(stream->Append(nullptr), NullText(OLESTR("Append"), OLESTR("pIStream")));
    ExpectRefusal(stream->LoadFromSafeArray(nullptr, 1, &error),
                  NullText(OLESTR("LoadFromSafeArray"), OLESTR("pArray")));
    ExpectRefusal(stream->GetItemCount(nullptr), NullText(OLESTR("GetItemCount"), OLESTR("pnItemCount")));
    ExpectRefusal(stream->GetStreamSize(nullptr), NullText(OLESTR("GetStreamSize"), OLESTR("pnByteCount")));
    ExpectRefusal(stream->GetStreamMode(nullptr), NullText(OLESTR("GetStreamMode"), OLESTR("peStreamMode")));
    ExpectRefusal(stream->GetStreamType(nullptr), NullText(OLESTR("GetStreamType"), OLESTR("peStreamType")));
    ExpectRefusal(stream->IsReadOnly(nullptr), NullText(OLESTR("IsReadOnly"), OLESTR("pbReadOnly")));
    ExpectRefusal(stream->GetDelimiter(nullptr), NullText(OLESTR("GetDelimiter"), OLESTR("pbstrDelimiterString")));
    ExpectRefusal(stream->GetStreamContentsAsString(nullptr),
                  NullText(OLESTR("GetStreamContentsAsString"), OLESTR("pbstrStreamContents")));
    ExpectRefusal(stream->GetLastStreamError(nullptr),
                  NullText(OLESTR("GetLastStreamError"), OLESTR("peLastStreamError")));
    ExpectRefusal(stream->GetSeekPos(nullptr), NullText(OLESTR("GetSeekPos"), OLESTR("pnSeekPos")));
    ExpectRefusal(stream->GetCodePage(nullptr), NullText(OLESTR("GetCodePage"), OLESTR("pnCodePage")));
}

TEST_F(MisusedStream, AnOutTextThatIsNotNullIsReportedAndKept)
{
    ExpectRefusal(stream->ReadString(&full, &number, &error), NotNullText(OLESTR("ReadString"), OLESTR("pbstrString")));
    ExpectRefusal(stream->GetDelimiter(&full), NotNullText(OLESTR("GetDelimiter"), OLESTR("pbstrDelimiterString")));
    ExpectRefusal(stream->GetStreamContentsAsString(&full),
                  NotNullText(OLESTR("GetStreamContentsAsString"), OLESTR("pbstrStreamContents")));
    EXPECT_EQ(full.View(), OLESTR("full"));
}

TEST_F(MisusedStream, NegativeSizesAndPositionsAreRefused)
{
    Write({1, 2});
    ExpectRefusal(stream->Write(&byte, -1), kNegative);
    ExpectRefusal(stream->Read(&byte, -1, &number, &error), kNegative);
    ExpectRefusal(stream->SaveToByteArray(&byte, -1, &number, &error), kNegative);
    ExpectRefusal(stream->LoadFromByteArray(&byte, -1, &error), kNegative);
    ExpectRefusal(stream->SetSeekPos(-1), kNegative);
    SAFEARRAY array{};
    ExpectRefusal(stream->LoadFromSafeArray(&array, -1, &error), kNegative);
    EXPECT_EQ(number, 42);
    EXPECT_EQ(Content(), (Bytes{1, 2}));
}

TEST_F(MisusedStream, ValuesThatNoEnumerationHasAreRefused)
{
    ExpectRefusal(stream->SetStreamMode(FromOutside<EStreamMode>(2)),
                  UnknownValueText(OLESTR("SetStreamMode"), OLESTR("eStreamMode"), OLESTR("2")));
    ExpectRefusal(stream->Seek(0, FromOutside<EStreamOrigin>(1), &error),
                  UnknownValueText(OLESTR("Seek"), OLESTR("eOrigin"), OLESTR("1")));
    ExpectRefusal(stream->SetCodePage(437),
                  UnknownValueText(OLESTR("SetCodePage"), OLESTR("nCodePage"), OLESTR("437")));
    ExpectRefusal(stream->SetCodePage(-1), UnknownValueText(OLESTR("SetCodePage"), OLESTR("nCodePage"), OLESTR("-1")));
    ExpectRefusal(stream->OpenFile(full, FromOutside<EStreamMode>(7), E_STREAM_OPEN_APPEND, VARIANT_FALSE, &error),
                  UnknownValueText(OLESTR("OpenFile"), OLESTR("eFileMode"), OLESTR("7")));
    ExpectRefusal(stream->OpenFile(full, E_STREAM_MODE_TEXT, FromOutside<EStreamOpenOptions>(2), VARIANT_FALSE, &error),
                  UnknownValueText(OLESTR("OpenFile"), OLESTR("eOptions"), OLESTR("2")));
    EXPECT_EQ(Mode(), E_STREAM_MODE_NOT_SET);
    EXPECT_EQ(CodePage(), 1200);
}

TEST_F(MisusedStream, APositionBehindTheEndIsRefusedWithTheSize)
{
    Write({1, 2, 3});
    Seek(1);
    ExpectRefusal(stream->SetSeekPos(4), OLESTR("The position 4 lies outside the stream, which has 3 bytes."));
    EXPECT_EQ(Position(), 1);
    EXPECT_EQ(LastError(), E_STREAM_ERROR_END_OF_FILE);
    EXPECT_EQ(stream->SetSeekPos(3), S_OK);
}

TEST_F(MisusedStream, AReadOnlyStreamRefusesEveryChange)
{
    Write({1, 2});
    EXPECT_EQ(stream->SetReadOnly(VARIANT_TRUE), S_OK);
    EXPECT_EQ(ReadOnly(), VARIANT_TRUE);

    ExpectRefusal(stream->Write(&byte, 1), kReadOnly);
    EXPECT_EQ(LastError(), E_STREAM_ERROR_OPEN_FILE_READ_ONLY);
    ExpectRefusal(stream->WriteString(full, VARIANT_TRUE), kReadOnly);
    ExpectRefusal(stream->ClearStream(), kReadOnly);
    ExpectRefusal(stream->Truncate(), kReadOnly);
    ExpectRefusal(stream->Append(NewStream()), kReadOnly);
    EXPECT_EQ(Load({9}), E_STREAM_ERROR_OPEN_FILE_READ_ONLY);
    SAFEARRAY array{};
    EXPECT_EQ(stream->LoadFromSafeArray(&array, 0, &error), S_OK);
    EXPECT_EQ(error, E_STREAM_ERROR_OPEN_FILE_READ_ONLY);

    EXPECT_EQ(Content(), (Bytes{1, 2}));
    EXPECT_EQ(Items(), 1);
    EXPECT_EQ(Read(5), (Bytes{1, 2}));
}

TEST_F(MisusedStream, AReadOnlyMemoryStreamMayBeAllowedToChangeAgain)
{
    EXPECT_EQ(stream->SetReadOnly(1), S_OK);
    EXPECT_EQ(ReadOnly(), VARIANT_TRUE);
    EXPECT_EQ(stream->SetReadOnly(VARIANT_FALSE), S_OK);
    EXPECT_EQ(ReadOnly(), VARIANT_FALSE);
    Write({1});
}

TEST_F(MisusedStream, ARefusalDescribesItsClassAndTheNextSuccessClearsIt)
{
    EXPECT_TRUE(FAILED(stream->Write(nullptr, 0)));
    CComPtr<IErrorInfo> info;
    ASSERT_EQ(GetErrorInfo(0, &info), S_OK);
    GUID interfaceId{};
    EXPECT_EQ(info->GetGUID(&interfaceId), S_OK);
    EXPECT_TRUE(IsEqualGUID(interfaceId, IID_IqorStream));

    EXPECT_TRUE(FAILED(stream->Write(nullptr, 0)));
    Write({1});
    EXPECT_EQ(LastErrorText(), Text());
}

/// A stream of somebody else that tells a size and can't deliver it.
class BrokenStream : public CComObjectRootEx<CComMultiThreadModel>, public IqorStream {
public:
    using Interfaces = InterfaceList<IqorStream>;

    STDMETHODIMP Write(void*, LONG) override { return E_NOTIMPL; }
    STDMETHODIMP Read(void*, LONG, LONG*, EStreamError*) override { return E_NOTIMPL; }
    STDMETHODIMP Seek(LONG, EStreamOrigin, EStreamError*) override { return E_NOTIMPL; }
    STDMETHODIMP WriteString(BSTR, VARIANT_BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP ReadString(BSTR*, LONG*, EStreamError*) override { return E_NOTIMPL; }
    STDMETHODIMP OpenFile(BSTR, EStreamMode, EStreamOpenOptions, VARIANT_BOOL, EStreamError*) override
    {
        return E_NOTIMPL;
    }
    STDMETHODIMP CloseFile() override { return E_NOTIMPL; }
    STDMETHODIMP ClearStream() override { return E_NOTIMPL; }
    STDMETHODIMP GetItemCount(LONG* count) override
    {
        *count = 1;
        return S_OK;
    }
    STDMETHODIMP GetStreamSize(LONG* count) override
    {
        *count = size;
        return sizeResult;
    }
    STDMETHODIMP GetStreamMode(EStreamMode*) override { return E_NOTIMPL; }
    STDMETHODIMP SetStreamMode(EStreamMode) override { return E_NOTIMPL; }
    STDMETHODIMP GetStreamType(EStreamType*) override { return E_NOTIMPL; }
    STDMETHODIMP SaveToByteArray(unsigned char*, LONG, LONG* written, EStreamError* error) override
    {
        *written = delivered;
        *error = outcome;
        return S_OK;
    }
    STDMETHODIMP LoadFromByteArray(unsigned char*, LONG, EStreamError*) override { return E_NOTIMPL; }
    STDMETHODIMP Append(IqorStream*) override { return E_NOTIMPL; }
    STDMETHODIMP SetReadOnly(VARIANT_BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP IsReadOnly(VARIANT_BOOL*) override { return E_NOTIMPL; }
    STDMETHODIMP SetDelimiter(BSTR) override { return E_NOTIMPL; }
    STDMETHODIMP GetDelimiter(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP GetStreamContentsAsString(BSTR*) override { return E_NOTIMPL; }
    STDMETHODIMP GetLastStreamError(EStreamError*) override { return E_NOTIMPL; }
    STDMETHODIMP GetSeekPos(LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP SetSeekPos(LONG) override { return E_NOTIMPL; }
    STDMETHODIMP Truncate() override { return E_NOTIMPL; }
    STDMETHODIMP GetCodePage(LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP SetCodePage(LONG) override { return E_NOTIMPL; }
    STDMETHODIMP LoadFromSafeArray(SAFEARRAY*, LONG, EStreamError*) override { return E_NOTIMPL; }

    LONG size = 4;
    HRESULT sizeResult = S_OK;
    LONG delivered = 4;
    EStreamError outcome = E_STREAM_ERROR_NONE;
};

TEST_F(MisusedStream, AForeignStreamThatFailsIsNotAppended)
{
    CComObject<BrokenStream>* broken = nullptr;
    ASSERT_EQ(CComObject<BrokenStream>::CreateInstance(&broken), S_OK);
    CComPtr<IqorStream> owner;
    owner.Attach(broken);
    Write({1});

    broken->delivered = 3;
    ExpectRefusal(stream->Append(broken), OLESTR("The stream to append can't be read."));
    EXPECT_EQ(LastError(), E_STREAM_ERROR_UNKNOWN_ERROR);
    broken->outcome = E_STREAM_ERROR_BUFFER_TOO_SMALL;
    broken->delivered = 4;
    ExpectRefusal(stream->Append(broken), OLESTR("The stream to append can't be read."));
    broken->sizeResult = E_ACCESSDENIED;
    EXPECT_EQ(stream->Append(broken), E_ACCESSDENIED);

    EXPECT_EQ(Content(), (Bytes{1}));
    EXPECT_EQ(Items(), 1);
}

} // namespace
