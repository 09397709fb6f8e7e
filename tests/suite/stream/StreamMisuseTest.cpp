// What is refused, in which words, and what stays.
#include "tests/suite/stream/StreamFixture.h"

#include <cstring>

namespace {

class MisusedStream : public testing::Test, public NewStreamUser {
protected:
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

constexpr TextView kReadOnly = OLESTR("The stream is read-only and can't be changed.");

TEST_F(MisusedStream, EveryNullPointerIsReportedByItsName)
{
    ExpectNullPointer(stream->Write(nullptr, 1), OLESTR("CqorStream::Write"), OLESTR("pData"));
    ExpectNullPointer(stream->Read(nullptr, 1, &number, &error), OLESTR("CqorStream::Read"), OLESTR("pBuffer"));
    ExpectNullPointer(stream->Read(&byte, 1, nullptr, &error), OLESTR("CqorStream::Read"), OLESTR("pnBytesRead"));
    ExpectNullPointer(stream->Read(&byte, 1, &number, nullptr), OLESTR("CqorStream::Read"), OLESTR("peStreamError"));
    ExpectNullPointer(stream->Seek(0, E_STREAM_ORIGIN_START, nullptr), OLESTR("CqorStream::Seek"),
                      OLESTR("peStreamError"));
    ExpectNullPointer(stream->ReadString(nullptr, &number, &error), OLESTR("CqorStream::ReadString"),
                      OLESTR("pbstrString"));
    ExpectNullPointer(stream->ReadString(&text, nullptr, &error), OLESTR("CqorStream::ReadString"), OLESTR("pnLength"));
    ExpectNullPointer(stream->ReadString(&text, &number, nullptr), OLESTR("CqorStream::ReadString"),
                      OLESTR("peStreamError"));
    ExpectNullPointer(stream->OpenFile(full, E_STREAM_MODE_TEXT, E_STREAM_OPEN_APPEND, VARIANT_FALSE, nullptr),
                      OLESTR("CqorStream::OpenFile"), OLESTR("peStreamError"));
    ExpectNullPointer(stream->SaveToByteArray(nullptr, 1, &number, &error), OLESTR("CqorStream::SaveToByteArray"),
                      OLESTR("pByteArray"));
    ExpectNullPointer(stream->SaveToByteArray(&byte, 1, nullptr, &error), OLESTR("CqorStream::SaveToByteArray"),
                      OLESTR("pnBytesWritten"));
    ExpectNullPointer(stream->SaveToByteArray(&byte, 1, &number, nullptr), OLESTR("CqorStream::SaveToByteArray"),
                      OLESTR("peStreamError"));
    ExpectNullPointer(stream->LoadFromByteArray(nullptr, 1, &error), OLESTR("CqorStream::LoadFromByteArray"),
                      OLESTR("pByteArray"));
    ExpectNullPointer(stream->LoadFromByteArray(&byte, 1, nullptr), OLESTR("CqorStream::LoadFromByteArray"),
                      OLESTR("peStreamError"));
    ExpectNullPointer(stream->Append(nullptr), OLESTR("CqorStream::Append"), OLESTR("pIStream"));
    ExpectNullPointer(stream->LoadFromSafeArray(nullptr, 1, &error), OLESTR("CqorStream::LoadFromSafeArray"),
                      OLESTR("pArray"));
    SAFEARRAY array{};
    ExpectNullPointer(stream->LoadFromSafeArray(&array, 1, nullptr), OLESTR("CqorStream::LoadFromSafeArray"),
                      OLESTR("peStreamError"));
    ExpectNullPointer(stream->GetItemCount(nullptr), OLESTR("CqorStream::GetItemCount"), OLESTR("pnItemCount"));
    ExpectNullPointer(stream->GetStreamSize(nullptr), OLESTR("CqorStream::GetStreamSize"), OLESTR("pnByteCount"));
    ExpectNullPointer(stream->GetStreamMode(nullptr), OLESTR("CqorStream::GetStreamMode"), OLESTR("peStreamMode"));
    ExpectNullPointer(stream->GetStreamType(nullptr), OLESTR("CqorStream::GetStreamType"), OLESTR("peStreamType"));
    ExpectNullPointer(stream->IsReadOnly(nullptr), OLESTR("CqorStream::IsReadOnly"), OLESTR("pbReadOnly"));
    ExpectNullPointer(stream->GetDelimiter(nullptr), OLESTR("CqorStream::GetDelimiter"),
                      OLESTR("pbstrDelimiterString"));
    ExpectNullPointer(stream->GetStreamContentsAsString(nullptr), OLESTR("CqorStream::GetStreamContentsAsString"),
                      OLESTR("pbstrStreamContents"));
    ExpectNullPointer(stream->GetLastStreamError(nullptr), OLESTR("CqorStream::GetLastStreamError"),
                      OLESTR("peLastStreamError"));
    ExpectNullPointer(stream->GetSeekPos(nullptr), OLESTR("CqorStream::GetSeekPos"), OLESTR("pnSeekPos"));
    ExpectNullPointer(stream->GetCodePage(nullptr), OLESTR("CqorStream::GetCodePage"), OLESTR("pnCodePage"));
}

TEST_F(MisusedStream, AnOutTextThatIsNotNullIsReportedAndKept)
{
    ExpectBstrNotNull(stream->ReadString(&full, &number, &error), OLESTR("CqorStream::ReadString"),
                      OLESTR("pbstrString"));
    ExpectBstrNotNull(stream->GetDelimiter(&full), OLESTR("CqorStream::GetDelimiter"), OLESTR("pbstrDelimiterString"));
    ExpectBstrNotNull(stream->GetStreamContentsAsString(&full), OLESTR("CqorStream::GetStreamContentsAsString"),
                      OLESTR("pbstrStreamContents"));
    EXPECT_EQ(full.View(), OLESTR("full"));
}

TEST_F(MisusedStream, NegativeSizesAndPositionsAreRefused)
{
    Write({1, 2});
    ExpectNegative(stream->Write(&byte, -1));
    ExpectNegative(stream->Read(&byte, -1, &number, &error));
    ExpectNegative(stream->SaveToByteArray(&byte, -1, &number, &error));
    ExpectNegative(stream->LoadFromByteArray(&byte, -1, &error));
    ExpectNegative(stream->SetSeekPos(-1));
    SAFEARRAY array{};
    ExpectNegative(stream->LoadFromSafeArray(&array, -1, &error));
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
