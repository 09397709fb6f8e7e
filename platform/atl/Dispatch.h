// Late binding of a dual interface by the type library of the own module.
#pragma once

#include "platform/com/Ole.h"

/// Type description of an interface of this module's library, with a reference for the caller. Kept once found.
/// E_NOTIMPL where there is no type library service.
HRESULT TypeInfoOf(REFIID iid, ITypeInfo** out);

template <class Interface>
class IDispatchImpl : public Interface {
public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) override
    {
        if (!count)
            return E_POINTER;
        *count = 1;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** out) override
    {
        if (!out)
            return E_POINTER;
        *out = nullptr;
        return index == 0 ? TypeInfoOf(__uuidof(Interface), out) : DISP_E_BADINDEX;
    }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override
    {
        ITypeInfo* info = nullptr;
        HRESULT hr = TypeInfoOf(__uuidof(Interface), &info);
        if (SUCCEEDED(hr)) {
            hr = info->GetIDsOfNames(names, count, ids);
            info->Release();
        }
        return hr;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result, EXCEPINFO* exception,
                        UINT* argument) override
    {
        ITypeInfo* info = nullptr;
        HRESULT hr = TypeInfoOf(__uuidof(Interface), &info);
        if (SUCCEEDED(hr)) {
            hr = info->Invoke(static_cast<Interface*>(this), id, flags, params, result, exception, argument);
            info->Release();
        }
        return hr;
    }
};
