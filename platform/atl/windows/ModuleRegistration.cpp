#include "platform/atl/windows/ModuleRegistration.h"

#include "platform/atl/windows/Registrar.h"
#include "platform/system/ModuleStrings.h"

namespace {

/// The system's default locale for the calling thread, put back at the end.
class SystemLocale {
public:
    SystemLocale() : m_before(GetThreadLocale()) { SetThreadLocale(LOCALE_SYSTEM_DEFAULT); }
    ~SystemLocale() { SetThreadLocale(m_before); }
    SystemLocale(const SystemLocale&) = delete;
    SystemLocale& operator=(const SystemLocale&) = delete;

private:
    const LCID m_before;
};

void AddReplacements(Registrar& registrar, const ModuleRegistration& registration)
{
    if (registration.appId)
        registrar.Replace(OLESTR("APPID"), registration.appId);
    if (registration.oleMisc)
        registrar.Replace(OLESTR("OLEMISC"), registration.oleMisc);
}

HRESULT RegisterOwnTypeLibrary(const Text& path)
{
    CComPtr<ITypeLib> library;
    return LoadTypeLibEx(path.c_str(), REGKIND_REGISTER, &library);
}

HRESULT UnregisterOwnTypeLibrary(const Text& path)
{
    CComPtr<ITypeLib> library;
    HRESULT hr = LoadTypeLibEx(path.c_str(), REGKIND_NONE, &library);
    if (FAILED(hr))
        return hr;
    TLIBATTR* attributes = nullptr;
    hr = library->GetLibAttr(&attributes);
    if (FAILED(hr))
        return hr;
    // A library that is not there is no failure, but systems differ in the code that they would give for it.
    BSTR registered = nullptr;
    if (SUCCEEDED(QueryPathOfRegTypeLib(attributes->guid, attributes->wMajorVerNum, attributes->wMinorVerNum,
                                        attributes->lcid, &registered)))
        hr = UnRegisterTypeLib(attributes->guid, attributes->wMajorVerNum, attributes->wMinorVerNum, attributes->lcid,
                               attributes->syskind);
    SysFreeString(registered);
    library->ReleaseTLibAttr(attributes);
    return hr;
}

/// Runs a step of the removal and keeps the first failure.
void Then(HRESULT& result, HRESULT step)
{
    if (SUCCEEDED(result) && FAILED(step))
        result = step;
}

} // namespace

HRESULT RegisterModule(const ModuleRegistration& registration)
{
    const SystemLocale locale;
    Registrar registrar(reinterpret_cast<HMODULE>(OwnModuleHandle()));
    AddReplacements(registrar, registration);

    HRESULT hr = registrar.State();
    if (SUCCEEDED(hr) && registration.applicationScript)
        hr = registrar.Register(registration.applicationScript);
    for (const UINT script : registration.classScripts) {
        if (SUCCEEDED(hr))
            hr = registrar.Register(script);
    }
    if (SUCCEEDED(hr))
        hr = RegisterOwnTypeLibrary(registrar.ModulePath());
    if (SUCCEEDED(hr) && registration.extraStep)
        hr = registration.extraStep(true);
    return hr;
}

HRESULT UnregisterModule(const ModuleRegistration& registration)
{
    const SystemLocale locale;
    Registrar registrar(reinterpret_cast<HMODULE>(OwnModuleHandle()));
    AddReplacements(registrar, registration);

    HRESULT hr = registrar.State();
    if (registration.extraStep)
        Then(hr, registration.extraStep(false));
    for (const UINT script : registration.classScripts)
        Then(hr, registrar.Unregister(script));
    Then(hr, UnregisterOwnTypeLibrary(registrar.ModulePath()));
    if (registration.applicationScript)
        Then(hr, registrar.Unregister(registration.applicationScript));
    return hr;
}
