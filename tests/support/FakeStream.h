// A stream whose answers a test writes down beforehand.
#pragma once

#include "LV_prpPropCollection.h"
#include "platform/atl/ComObject.h"
#include "platform/atl/ComPtr.h"

#include <algorithm>
#include <cstring>
#include <deque>
#include <string>

class FakeStream : public CComObjectRootEx<CComMultiThreadModel>, public IqorStream {
public:
    using Interfaces = InterfaceList<IqorStream>;

    /// One answer to Read.
    struct Answer {
        std::string bytes;
        EStreamError error = E_STREAM_ERROR_NONE;
        HRESULT hr = S_OK;
    };
    std::deque<Answer> answers; ///< behind the last one the end of the stream is reported
    HRESULT seek = S_OK;
    int seeks = 0;

    STDMETHODIMP Read(void* Buffer, LONG BytesToRead, LONG* BytesRead, EStreamError* StreamError) override
    {
        Answer answer{{}, E_STREAM_ERROR_END_OF_FILE, S_OK};
        if (!answers.empty()) {
            answer = answers.front();
            answers.pop_front();
        }
        const std::size_t count = std::min(answer.bytes.size(), static_cast<std::size_t>(BytesToRead));
        std::memcpy(Buffer, answer.bytes.data(), count);
        *BytesRead = static_cast<LONG>(count);
        *StreamError = answer.error;
        return answer.hr;
    }
    STDMETHODIMP Seek(LONG, EStreamOrigin, EStreamError* StreamError) override
    {
        ++seeks;
        *StreamError = E_STREAM_ERROR_NONE;
        return seek;
    }
    STDMETHODIMP GetStreamMode(EStreamMode* StreamMode) override
    {
        *StreamMode = E_STREAM_MODE_BINARY;
        return S_OK;
    }

    STDMETHODIMP Write(void*, LONG) override { return E_NOTIMPL; }
    STDMETHODIMP WriteString(BSTR, VARIANT_BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP ReadString(BSTR*, LONG*, EStreamError*) override { return E_NOTIMPL; }
    STDMETHODIMP OpenFile(BSTR, EStreamMode, EStreamOpenOptions, VARIANT_BOOL, EStreamError*) override
    {
        return E_NOTIMPL;
    }
    STDMETHODIMP CloseFile() override { return E_NOTIMPL; }
    STDMETHODIMP ClearStream() override { return E_NOTIMPL; }
    STDMETHODIMP GetItemCount(LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP GetStreamSize(LONG*) override { return E_NOTIMPL; }
    STDMETHODIMP SetStreamMode(EStreamMode) override { return E_NOTIMPL; }
    STDMETHODIMP GetStreamType(EStreamType*) override { return E_NOTIMPL; }
    STDMETHODIMP SaveToByteArray(unsigned char*, LONG, LONG*, EStreamError*) override { return E_NOTIMPL; }
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
};

/// A fake stream that lives for one test.
class OwnFakeStream {
public:
    OwnFakeStream()
    {
        CComObjectNoLock<FakeStream>::CreateInstance(&m_object);
        m_reference.Attach(m_object);
    }
    FakeStream* operator->() const { return m_object; }
    IqorStream& operator*() const { return *m_object; }
    operator IqorStream*() const { return m_object; }

private:
    CComObjectNoLock<FakeStream>* m_object = nullptr;
    CComPtr<IqorStream> m_reference;
};
