// On Windows the classes come from the registry, or from the DLLs beside the program where nothing is registered.
#include "idl/SuiteClasses.h"
#include "tools/lvprop/ComSession.h"

namespace {

using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);

struct ServedClass {
    const wchar_t* dll;
    const CLSID& id;
};

bool IsRegistered(REFCLSID id)
{
    lumevor::Ref<IUnknown> factory;
    return SUCCEEDED(CoGetClassObject(id, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, factory.PutVoid()));
}

/// The full path keeps a DLL of that name in the current folder out.
std::wstring PathBesideProgram(const wchar_t* dll)
{
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.find_last_of(L"\\/") + 1) + dll;
}

GetClassObject EntryOf(const wchar_t* dll)
{
    const HMODULE module = LoadLibraryW(PathBesideProgram(dll).c_str());
    const FARPROC entry = module ? GetProcAddress(module, "DllGetClassObject") : nullptr;
    if (!entry)
        RefuseInput("the component is neither registered nor beside this program: " + lumevor::ToUtf8(dll));
    return reinterpret_cast<GetClassObject>(reinterpret_cast<void*>(entry));
}

} // namespace

ComSession::ComSession()
{
    lumevor::Check(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
    const ServedClass classes[] = {
        {L"LV_strStream.dll", CLSID_qorStream},
        {L"LV_prpPropCollection.dll", __uuidof(prpPropertyCollection)},
        {L"LV_prpPropCollection.dll", __uuidof(prpHelpInfo)},
        {L"LV_prpPropCollection.dll", __uuidof(prpVisibilityInfo)},
    };
    for (const ServedClass& served : classes) {
        if (IsRegistered(served.id))
            continue;
        lumevor::Ref<IUnknown> factory;
        lumevor::Check(EntryOf(served.dll)(served.id, IID_IClassFactory, factory.PutVoid()));
        DWORD registration = 0;
        lumevor::Check(
            CoRegisterClassObject(served.id, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration));
        m_registrations.push_back(registration);
    }
}

ComSession::~ComSession()
{
    for (const DWORD registration : m_registrations)
        CoRevokeClassObject(registration);
    CoUninitialize();
}
