// The four exported functions of the settings DLL.
#include "platform/atl/windows/ModuleRegistration.h"
#include "suite/settings/qorSettings.h"

namespace {

constexpr UINT kClassScripts[] = {101};
constexpr ModuleRegistration kRegistration{.classScripts = kClassScripts};

} // namespace

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** out)
{
    if (!out)
        return E_POINTER;
    *out = nullptr;
    return clsid == CLSID_setSettings ? ClassFactory<CqorSettings>::Get(iid, out) : CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow()
{
    return Module::LockCount() == 0 ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer()
{
    return RegisterModule(kRegistration);
}

STDAPI DllUnregisterServer()
{
    return UnregisterModule(kRegistration);
}
