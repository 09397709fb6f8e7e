// The four functions that the library exports.
#include "module/ComponentModule.h"

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** out)
{
    return g_module.GetClassObject(clsid, iid, out);
}

STDAPI DllCanUnloadNow()
{
    return g_module.CanUnloadNow();
}

STDAPI DllRegisterServer()
{
    return g_module.RegisterServer();
}

STDAPI DllUnregisterServer()
{
    return g_module.UnregisterServer();
}
