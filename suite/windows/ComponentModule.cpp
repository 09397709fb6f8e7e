// The four exported functions of a DLL that brings one component: its class stands in the class table, its
// registration script is resource 101.
#include "platform/atl/Module.h"
#include "platform/atl/windows/ModuleRegistration.h"
#include "platform/com/ClassTable.h"

namespace {

constexpr UINT kClassScripts[] = {101};
constexpr ModuleRegistration kRegistration{.classScripts = kClassScripts};

} // namespace

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** out)
{
    if (!out)
        return E_POINTER;
    *out = nullptr;
    const RegisteredClass* const entry = RegisteredClass::Find(clsid);
    return entry ? entry->GetClassObject(iid, out) : CLASS_E_CLASSNOTAVAILABLE;
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
