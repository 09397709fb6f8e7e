// Native bodies of the SAFEARRAY functions for the one kind that interfaces here carry: one dimension of unsigned
// char. Descriptor and elements stand in one block.
#include "platform/com/Ole.h"

#include <cstdlib>
#include <limits>

namespace {

constexpr std::size_t kElementsAt = (sizeof(SAFEARRAY) + 15) / 16 * 16;

bool IsFirstDimension(const SAFEARRAY* array, UINT dimension, const LONG* out)
{
    return array && out && dimension == 1;
}

} // namespace

/// Null for any element type but VT_UI1, for other than one dimension, and without memory. Elements start as 0.
SAFEARRAY* WINAPI SafeArrayCreate(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bound)
{
    if (type != VT_UI1 || dimensions != 1 || !bound)
        return nullptr;
    void* const block = std::calloc(1, kElementsAt + bound->cElements);
    if (!block)
        return nullptr;
    SAFEARRAY* const array = static_cast<SAFEARRAY*>(block);
    array->cDims = 1;
    array->fFeatures = FADF_HAVEVARTYPE;
    array->cbElements = 1;
    array->pvData = static_cast<unsigned char*>(block) + kElementsAt;
    array->rgsabound[0] = *bound;
    return array;
}

SAFEARRAY* WINAPI SafeArrayCreateVector(VARTYPE type, LONG lowerBound, ULONG elements)
{
    SAFEARRAYBOUND bound{elements, lowerBound};
    return SafeArrayCreate(type, 1, &bound);
}

HRESULT WINAPI SafeArrayDestroy(SAFEARRAY* array)
{
    if (array && array->cLocks != 0)
        return DISP_E_ARRAYISLOCKED;
    std::free(array);
    return S_OK;
}

HRESULT WINAPI SafeArrayLock(SAFEARRAY* array)
{
    if (!array)
        return E_INVALIDARG;
    if (array->cLocks == std::numeric_limits<USHORT>::max())
        return E_UNEXPECTED;
    ++array->cLocks;
    return S_OK;
}

HRESULT WINAPI SafeArrayUnlock(SAFEARRAY* array)
{
    if (!array)
        return E_INVALIDARG;
    if (array->cLocks == 0)
        return E_UNEXPECTED;
    --array->cLocks;
    return S_OK;
}

HRESULT WINAPI SafeArrayAccessData(SAFEARRAY* array, void** out)
{
    if (!array || !out)
        return E_INVALIDARG;
    const HRESULT hr = SafeArrayLock(array);
    *out = SUCCEEDED(hr) ? array->pvData : nullptr;
    return hr;
}

HRESULT WINAPI SafeArrayUnaccessData(SAFEARRAY* array)
{
    return SafeArrayUnlock(array);
}

UINT WINAPI SafeArrayGetDim(SAFEARRAY* array)
{
    return array ? array->cDims : 0;
}

UINT WINAPI SafeArrayGetElemsize(SAFEARRAY* array)
{
    return array ? array->cbElements : 0;
}

HRESULT WINAPI SafeArrayGetVartype(SAFEARRAY* array, VARTYPE* out)
{
    if (!array || !out)
        return E_INVALIDARG;
    *out = VT_UI1;
    return S_OK;
}

HRESULT WINAPI SafeArrayGetLBound(SAFEARRAY* array, UINT dimension, LONG* out)
{
    if (!IsFirstDimension(array, dimension, out))
        return array && out ? DISP_E_BADINDEX : E_INVALIDARG;
    *out = array->rgsabound[0].lLbound;
    return S_OK;
}

/// One below the lower bound for an empty array.
HRESULT WINAPI SafeArrayGetUBound(SAFEARRAY* array, UINT dimension, LONG* out)
{
    const HRESULT hr = SafeArrayGetLBound(array, dimension, out);
    if (SUCCEEDED(hr))
        *out += static_cast<LONG>(array->rgsabound[0].cElements) - 1;
    return hr;
}
