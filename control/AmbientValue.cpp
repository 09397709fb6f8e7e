#include "control/AmbientValue.h"

bool ReadAmbient(IOleClientSite* site, DISPID id, CComVariant& out)
{
    CComPtr<IDispatch> container;
    if (!site || FAILED(site->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&container))))
        return false;
    DISPPARAMS none{};
    return SUCCEEDED(
        container->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &out, nullptr, nullptr));
}
