// Native bodies of the thread's error object: SetErrorInfo, GetErrorInfo, CreateErrorInfo. Each thread has one slot,
// which owns a reference and is released when the thread ends.
#include "platform/com/Ole.h"

#include <atomic>
#include <new>
#include <utility>

namespace {

// A plain pointer: clearing an empty slot, which every interface method does at its entry, is one load and a test.
constinit thread_local IErrorInfo* t_pErrorInfo = nullptr;

struct ReleaseAtThreadEnd {
    ~ReleaseAtThreadEnd() { SetErrorInfo(0, nullptr); }
    void Arm() const {}
};

/// Only threads that ever report an error pay for the release at their end.
void ArmReleaseAtThreadEnd()
{
    thread_local const ReleaseAtThreadEnd atEnd;
    atEnd.Arm();
}

/// Kept out of line: the usual call of SetErrorInfo then needs no stack of its own.
[[gnu::noinline]] void PutInSlot(IErrorInfo* pErrorInfo)
{
    if (pErrorInfo) {
        ArmReleaseAtThreadEnd();
        pErrorInfo->AddRef();
    }
    if (IErrorInfo* const old = std::exchange(t_pErrorInfo, pErrorInfo))
        old->Release();
}

HRESULT Replace(BSTR& field, const OLECHAR* text)
{
    BSTR const copy = SysAllocString(text);
    if (text && !copy)
        return E_OUTOFMEMORY;
    SysFreeString(std::exchange(field, copy));
    return S_OK;
}

HRESULT CopyOut(BSTR field, BSTR* out)
{
    if (!out)
        return E_POINTER;
    *out = field ? SysAllocStringLen(field, SysStringLen(field)) : nullptr;
    return field && !*out ? E_OUTOFMEMORY : S_OK;
}

/// What went wrong, told once through ICreateErrorInfo and read through IErrorInfo, on any thread.
class ErrorObject final : public ICreateErrorInfo, public IErrorInfo {
public:
    ErrorObject() = default;
    ErrorObject(const ErrorObject&) = delete;
    ErrorObject& operator=(const ErrorObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** out) override
    {
        if (!out)
            return E_POINTER;
        *out = nullptr;
        if (iid == IID_IUnknown || iid == IID_ICreateErrorInfo)
            *out = static_cast<ICreateErrorInfo*>(this);
        else if (iid == IID_IErrorInfo)
            *out = static_cast<IErrorInfo*>(this);
        else
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_nReferences; }
    STDMETHODIMP_(ULONG) Release() override
    {
        const ULONG left = --m_nReferences;
        if (left == 0)
            delete this;
        return left;
    }

    STDMETHODIMP SetGUID(REFGUID guid) override
    {
        m_guid = guid;
        return S_OK;
    }
    STDMETHODIMP SetSource(LPOLESTR source) override { return Replace(m_bstrSource, source); }
    STDMETHODIMP SetDescription(LPOLESTR description) override { return Replace(m_bstrDescription, description); }
    STDMETHODIMP SetHelpFile(LPOLESTR file) override { return Replace(m_bstrHelpFile, file); }
    STDMETHODIMP SetHelpContext(DWORD context) override
    {
        m_dwHelpContext = context;
        return S_OK;
    }

    STDMETHODIMP GetGUID(GUID* out) override
    {
        if (!out)
            return E_POINTER;
        *out = m_guid;
        return S_OK;
    }
    STDMETHODIMP GetSource(BSTR* out) override { return CopyOut(m_bstrSource, out); }
    STDMETHODIMP GetDescription(BSTR* out) override { return CopyOut(m_bstrDescription, out); }
    STDMETHODIMP GetHelpFile(BSTR* out) override { return CopyOut(m_bstrHelpFile, out); }
    STDMETHODIMP GetHelpContext(DWORD* out) override
    {
        if (!out)
            return E_POINTER;
        *out = m_dwHelpContext;
        return S_OK;
    }

private:
    ~ErrorObject()
    {
        SysFreeString(m_bstrSource);
        SysFreeString(m_bstrDescription);
        SysFreeString(m_bstrHelpFile);
    }

    std::atomic<ULONG> m_nReferences{1};
    GUID m_guid{};
    BSTR m_bstrSource = nullptr;
    BSTR m_bstrDescription = nullptr;
    BSTR m_bstrHelpFile = nullptr;
    DWORD m_dwHelpContext = 0;
};

} // namespace

HRESULT WINAPI SetErrorInfo(ULONG reserved, IErrorInfo* pErrorInfo)
{
    if (reserved != 0)
        return E_INVALIDARG;
    if (pErrorInfo || t_pErrorInfo) [[unlikely]]
        PutInSlot(pErrorInfo);
    return S_OK;
}

/// The slot's reference goes to the caller; the slot is empty afterwards.
HRESULT WINAPI GetErrorInfo(ULONG reserved, IErrorInfo** out)
{
    if (reserved != 0 || !out)
        return E_INVALIDARG;
    *out = std::exchange(t_pErrorInfo, nullptr);
    return *out ? S_OK : S_FALSE;
}

HRESULT WINAPI CreateErrorInfo(ICreateErrorInfo** out)
{
    if (!out)
        return E_INVALIDARG;
    *out = new (std::nothrow) ErrorObject;
    return *out ? S_OK : E_OUTOFMEMORY;
}
