// Native bodies of VariantInit, VariantClear and VariantCopy for scalars, texts, interface pointers and references to
// any of these. Arrays and records are refused with DISP_E_BADVARTYPE.
#include "platform/com/Ole.h"

namespace {

bool IsSupported(VARTYPE type)
{
    switch (type & ~VT_BYREF) {
    case VT_EMPTY:
    case VT_NULL: return !(type & VT_BYREF);
    case VT_I1:
    case VT_UI1:
    case VT_I2:
    case VT_UI2:
    case VT_I4:
    case VT_UI4:
    case VT_I8:
    case VT_UI8:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_ERROR:
    case VT_BOOL:
    case VT_UNKNOWN:
    case VT_DECIMAL: return true;
    case VT_VARIANT: return type & VT_BYREF; // a variant holds another one by reference only
    default: return false;
    }
}

/// IDispatch and IUnknown share one field of the union, since a dispatch pointer is an unknown pointer.
bool IsInterface(VARTYPE type)
{
    return type == VT_UNKNOWN || type == VT_DISPATCH;
}

} // namespace

void WINAPI VariantInit(VARIANTARG* variant)
{
    V_VT(variant) = VT_EMPTY;
}

HRESULT WINAPI VariantClear(VARIANTARG* variant)
{
    if (!variant)
        return E_INVALIDARG;
    if (!IsSupported(V_VT(variant)))
        return DISP_E_BADVARTYPE;
    const VARIANTARG old = *variant;
    V_VT(variant) = VT_EMPTY; // before the release, which may come back to this variant
    if (V_VT(&old) == VT_BSTR)
        SysFreeString(V_BSTR(&old));
    else if (IsInterface(V_VT(&old)) && V_UNKNOWN(&old))
        V_UNKNOWN(&old)->Release();
    return S_OK;
}

HRESULT WINAPI VariantCopy(VARIANTARG* target, const VARIANTARG* source)
{
    if (!target || !source)
        return E_INVALIDARG;
    if (!IsSupported(V_VT(source)))
        return DISP_E_BADVARTYPE;
    if (target == source)
        return S_OK;
    VARIANTARG copy = *source;
    if (V_VT(source) == VT_BSTR && V_BSTR(source)) {
        // By bytes: a text may hold an odd number of them.
        V_BSTR(&copy) =
            SysAllocStringByteLen(reinterpret_cast<LPCSTR>(V_BSTR(source)), SysStringByteLen(V_BSTR(source)));
        if (!V_BSTR(&copy))
            return E_OUTOFMEMORY;
    } else if (IsInterface(V_VT(source)) && V_UNKNOWN(source)) {
        V_UNKNOWN(source)->AddRef();
    }
    const HRESULT hr = VariantClear(target);
    if (FAILED(hr)) {
        VariantClear(&copy);
        return hr;
    }
    *target = copy;
    return S_OK;
}
