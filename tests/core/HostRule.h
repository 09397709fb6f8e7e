// A visibility rule as a host may write one of its own.
#pragma once

#include "LV_prpPropCollection.h"
#include "platform/atl/ComPtr.h"

#include <gtest/gtest.h>

/// A rule of a host: answers as it is told and counts its references and calls.
class HostRule : public IprpVisibilityInfo {
public:
    virtual ~HostRule() = default;

    VARIANT_BOOL visible = VARIANT_TRUE;
    HRESULT result = S_OK;
    LONG references = 1;
    LONG calls = 0;

    STDMETHODIMP QueryInterface(REFIID, void** out) override { return *out = nullptr, E_NOINTERFACE; }
    STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references); }
    STDMETHODIMP_(ULONG) Release() override
    {
        const LONG left = --references;
        if (left == 0)
            delete this;
        return static_cast<ULONG>(left);
    }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override
    {
        return E_NOTIMPL;
    }
    STDMETHODIMP IsVisible(IqorPropertyCollection* collection, VARIANT_BOOL* out) override
    {
        EXPECT_NE(collection, nullptr);
        ++calls;
        *out = visible;
        return result;
    }
    STDMETHODIMP AddControlProperties(LONG*, LONG) override { return E_NOTIMPL; }
    STDMETHODIMP AddCtrlPropValues(LONG*, LONG) override { return E_NOTIMPL; }
};

template <class Rule = HostRule>
CComPtr<Rule> MakeHostRule()
{
    CComPtr<Rule> rule;
    rule.Attach(new Rule);
    return rule;
}
