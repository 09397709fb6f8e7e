// A stream of another maker: it offers IqorStream alone and passes every call on to a stream component of the suite.
#pragma once

#include "LV_prpPropCollection.h"
#include "platform/atl/ComObject.h"
#include "platform/atl/ComPtr.h"

class PlainStream : public CComObjectRootEx<CComSingleThreadModel>, public IqorStream {
public:
    using Interfaces = InterfaceList<IqorStream>;

    CComPtr<IqorStream> inner;

    static CComPtr<IqorStream> Around(IqorStream* stream)
    {
        CComObject<PlainStream>* object = nullptr;
        CComPtr<IqorStream> plain;
        if (SUCCEEDED(CComObject<PlainStream>::CreateInstance(&object))) {
            object->inner = stream;
            plain.Attach(object);
        }
        return plain;
    }

    STDMETHODIMP Write(void* data, LONG bytes) override { return inner->Write(data, bytes); }
    STDMETHODIMP Read(void* data, LONG bytes, LONG* read, EStreamError* error) override
    {
        return inner->Read(data, bytes, read, error);
    }
    STDMETHODIMP Seek(LONG offset, EStreamOrigin origin, EStreamError* error) override
    {
        return inner->Seek(offset, origin, error);
    }
    STDMETHODIMP WriteString(BSTR text, VARIANT_BOOL newLine) override { return inner->WriteString(text, newLine); }
    STDMETHODIMP ReadString(BSTR* text, LONG* length, EStreamError* error) override
    {
        return inner->ReadString(text, length, error);
    }
    STDMETHODIMP OpenFile(BSTR name, EStreamMode mode, EStreamOpenOptions options, VARIANT_BOOL readOnly,
                          EStreamError* error) override
    {
        return inner->OpenFile(name, mode, options, readOnly, error);
    }
    STDMETHODIMP CloseFile() override { return inner->CloseFile(); }
    STDMETHODIMP ClearStream() override { return inner->ClearStream(); }
    STDMETHODIMP GetItemCount(LONG* count) override { return inner->GetItemCount(count); }
    STDMETHODIMP GetStreamSize(LONG* bytes) override { return inner->GetStreamSize(bytes); }
    STDMETHODIMP GetStreamMode(EStreamMode* mode) override { return inner->GetStreamMode(mode); }
    STDMETHODIMP SetStreamMode(EStreamMode mode) override { return inner->SetStreamMode(mode); }
    STDMETHODIMP GetStreamType(EStreamType* type) override { return inner->GetStreamType(type); }
    STDMETHODIMP SaveToByteArray(unsigned char* bytes, LONG size, LONG* written, EStreamError* error) override
    {
        return inner->SaveToByteArray(bytes, size, written, error);
    }
    STDMETHODIMP LoadFromByteArray(unsigned char* bytes, LONG size, EStreamError* error) override
    {
        return inner->LoadFromByteArray(bytes, size, error);
    }
    STDMETHODIMP Append(IqorStream* other) override { return inner->Append(other); }
    STDMETHODIMP SetReadOnly(VARIANT_BOOL readOnly) override { return inner->SetReadOnly(readOnly); }
    STDMETHODIMP IsReadOnly(VARIANT_BOOL* readOnly) override { return inner->IsReadOnly(readOnly); }
    STDMETHODIMP SetDelimiter(BSTR delimiter) override { return inner->SetDelimiter(delimiter); }
    STDMETHODIMP GetDelimiter(BSTR* delimiter) override { return inner->GetDelimiter(delimiter); }
    STDMETHODIMP GetStreamContentsAsString(BSTR* text) override { return inner->GetStreamContentsAsString(text); }
    STDMETHODIMP GetLastStreamError(EStreamError* error) override { return inner->GetLastStreamError(error); }
    STDMETHODIMP GetSeekPos(LONG* position) override { return inner->GetSeekPos(position); }
    STDMETHODIMP SetSeekPos(LONG position) override { return inner->SetSeekPos(position); }
    STDMETHODIMP Truncate() override { return inner->Truncate(); }
    STDMETHODIMP GetCodePage(LONG* codePage) override { return inner->GetCodePage(codePage); }
    STDMETHODIMP SetCodePage(LONG codePage) override { return inner->SetCodePage(codePage); }
    STDMETHODIMP LoadFromSafeArray(SAFEARRAY* bytes, LONG size, EStreamError* error) override
    {
        return inner->LoadFromSafeArray(bytes, size, error);
    }
};
