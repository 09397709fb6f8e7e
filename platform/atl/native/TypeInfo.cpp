// Natively there is no type library service: late binding is not to be had, and says so.
#include "platform/atl/Dispatch.h"

HRESULT TypeInfoOf(REFIID, ITypeInfo** out)
{
    *out = nullptr;
    return E_NOTIMPL;
}
