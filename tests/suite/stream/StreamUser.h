// The plain words in which tests use a stream, whoever made it.
#pragma once

#include "LV_prpPropCollection.h"
#include "LV_suiteStream.h"
#include "platform/atl/ComPtr.h"
#include "tests/support/Errors.h"

#include <gmock/gmock.h>

#include <vector>

using Bytes = std::vector<unsigned char>;

/// What a read of a text gave.
struct ReadText {
    Text text;
    LONG length;
    EStreamError error;

    bool operator==(const ReadText&) const = default;
};

/// One stream, called through its interface. Every call must succeed unless a test says otherwise.
class StreamUser {
public:
    explicit StreamUser(CComPtr<IqorStream> target) : stream(std::move(target)) {}

    void Write(const Bytes& bytes)
    {
        unsigned char none = 0;
        EXPECT_EQ(stream->Write(bytes.empty() ? &none : const_cast<unsigned char*>(bytes.data()),
                                static_cast<LONG>(bytes.size())),
                  S_OK);
    }
    void WriteString(TextView text, VARIANT_BOOL newLine = VARIANT_TRUE)
    {
        EXPECT_EQ(stream->WriteString(CComBSTR(text), newLine), S_OK);
    }
    Bytes Read(LONG count, EStreamError expected = E_STREAM_ERROR_NONE)
    {
        Bytes bytes(static_cast<std::size_t>(count) + 1);
        LONG read = -1;
        EStreamError error = E_STREAM_ERROR_UNKNOWN_ERROR;
        EXPECT_EQ(stream->Read(bytes.data(), count, &read, &error), S_OK);
        EXPECT_EQ(error, expected);
        bytes.resize(static_cast<std::size_t>(read));
        return bytes;
    }
    ReadText ReadString()
    {
        CComBSTR text;
        ReadText result{{}, -1, E_STREAM_ERROR_UNKNOWN_ERROR};
        EXPECT_EQ(stream->ReadString(&text, &result.length, &result.error), S_OK);
        EXPECT_NE(text.m_str, nullptr);
        result.text = Text(text.View());
        return result;
    }
    EStreamError Seek(LONG offset, EStreamOrigin origin = E_STREAM_ORIGIN_START)
    {
        EStreamError error = E_STREAM_ERROR_UNKNOWN_ERROR;
        EXPECT_EQ(stream->Seek(offset, origin, &error), S_OK);
        return error;
    }
    void SetMode(EStreamMode mode) { EXPECT_EQ(stream->SetStreamMode(mode), S_OK); }
    void SetCodePage(LONG codePage) { EXPECT_EQ(stream->SetCodePage(codePage), S_OK); }
    void SetDelimiter(TextView delimiter) { EXPECT_EQ(stream->SetDelimiter(CComBSTR(delimiter)), S_OK); }
    void Clear() { EXPECT_EQ(stream->ClearStream(), S_OK); }

    LONG Items() { return Get<LONG>(&IqorStream::GetItemCount); }
    LONG Size() { return Get<LONG>(&IqorStream::GetStreamSize); }
    LONG Position() { return Get<LONG>(&IqorStream::GetSeekPos); }
    LONG CodePage() { return Get<LONG>(&IqorStream::GetCodePage); }
    EStreamMode Mode() { return Get<EStreamMode>(&IqorStream::GetStreamMode); }
    EStreamType Type() { return Get<EStreamType>(&IqorStream::GetStreamType); }
    EStreamError LastError() { return Get<EStreamError>(&IqorStream::GetLastStreamError); }
    VARIANT_BOOL ReadOnly() { return Get<VARIANT_BOOL>(&IqorStream::IsReadOnly); }

    /// The whole content, read position untouched.
    Bytes Content()
    {
        Bytes bytes(static_cast<std::size_t>(Size()) + 1);
        LONG written = -1;
        EStreamError error = E_STREAM_ERROR_UNKNOWN_ERROR;
        EXPECT_EQ(stream->SaveToByteArray(bytes.data(), static_cast<LONG>(bytes.size()), &written, &error), S_OK);
        EXPECT_EQ(error, E_STREAM_ERROR_NONE);
        bytes.resize(static_cast<std::size_t>(written));
        return bytes;
    }
    EStreamError Load(Bytes bytes)
    {
        EStreamError error = E_STREAM_ERROR_UNKNOWN_ERROR;
        const auto size = static_cast<LONG>(bytes.size());
        bytes.push_back(0); // an array of no bytes has an address too
        EXPECT_EQ(stream->LoadFromByteArray(bytes.data(), size, &error), S_OK);
        return error;
    }

    CComPtr<IqorStream> stream;

private:
    template <class Value>
    Value Get(HRESULT (STDMETHODCALLTYPE IqorStream::*getter)(Value*))
    {
        Value value{};
        EXPECT_EQ((stream.p->*getter)(&value), S_OK);
        return value;
    }
};

inline ReadText Line(TextView text)
{
    return {Text(text), static_cast<LONG>(text.size()), E_STREAM_ERROR_NONE};
}
inline const ReadText kNothingLeft{{}, 0, E_STREAM_ERROR_END_OF_FILE};
inline const ReadText kNoTextHere{{}, 0, E_STREAM_ERROR_UNKNOWN_ERROR};
