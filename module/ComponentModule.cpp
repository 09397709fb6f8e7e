#include "module/ComponentModule.h"

#include "core/prpEventHelper.h"
#include "frame/LanguageStrings.h"
#include "platform/atl/Module.h"
#include "platform/atl/windows/ModuleRegistration.h"
#include "platform/com/ClassTable.h"
#include "platform/system/ModuleStrings.h"
#include "platform/win/UserMessages.h"

#include <filesystem>
#include <vector>

CLV_prpPropCollectionModule g_module;

namespace {

constexpr UINT kClassScripts[] = {102, 103, 104, 105, 106, 107, 108, 109, 110};

constexpr ModuleRegistration kRegistration{
    .appId = OLESTR("{6EAA343A-2AF1-40A7-B0AA-2280C796179B}"),
    .oleMisc = OLESTR("131473"), // recompose on resize, no link inside, inside out, activate when visible, site first
    .applicationScript = 101,
    .classScripts = kClassScripts,
};

/// The server's own resources in front for as long as scripts are run, so that none is sought in a language library.
class OwnResources {
public:
    explicit OwnResources(const LanguageResources& language) : m_language(language)
    {
        if (m_language.OwnInstance())
            SetLanguageModule(0);
    }
    ~OwnResources()
    {
        if (m_language.Library())
            SetLanguageModule(m_language.Library());
    }
    OwnResources(const OwnResources&) = delete;
    OwnResources& operator=(const OwnResources&) = delete;

private:
    const LanguageResources& m_language;
};

std::filesystem::path OwnFolder()
{
    std::vector<OLECHAR> path(32768);
    const DWORD length =
        GetModuleFileNameW(reinterpret_cast<HMODULE>(OwnModuleHandle()), path.data(), static_cast<DWORD>(path.size()));
    return std::filesystem::path(Text(path.data(), length)).parent_path();
}

} // namespace

HRESULT CLV_prpPropCollectionApp::CreateSettings(IqorSettings** settings)
{
    return CoCreateInstance(CLSID_setSettings, nullptr, CLSCTX_INPROC_SERVER, IID_IqorSettings,
                            reinterpret_cast<void**>(settings));
}

void CLV_prpPropCollectionApp::Beep()
{
    g_userMessages.beep(MB_ICONEXCLAMATION);
}

void CLV_prpPropCollectionApp::ShowMessage(const Text& message)
{
    g_userMessages.showBox(nullptr, message.c_str(), kLanguageMessageCaption, kLanguageMessageFlags);
}

LONG_PTR CLV_prpPropCollectionApp::LoadLibraryNamed(const Text& name)
{
    if (name.empty())
        return 0;
    HMODULE library = nullptr;
    if (!std::filesystem::path(name).has_parent_path())
        library = LoadLibraryExW((OwnFolder() / name).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (!library)
        library = LoadLibraryW(name.c_str());
    return reinterpret_cast<LONG_PTR>(library);
}

LONG_PTR CLV_prpPropCollectionApp::CurrentResourceHandle()
{
    return LanguageModule();
}

void CLV_prpPropCollectionApp::SetResourceHandle(LONG_PTR module)
{
    SetLanguageModule(module);
}

HRESULT CLV_prpPropCollectionModule::GetClassObject(REFCLSID clsid, REFIID iid, void** out)
{
    if (!out)
        return E_POINTER;
    *out = nullptr;
    m_language.LoadLanguageResources();
    const RegisteredClass* entry = RegisteredClass::Find(clsid);
    return entry ? entry->GetClassObject(iid, out) : CLASS_E_CLASSNOTAVAILABLE;
}

HRESULT CLV_prpPropCollectionModule::CanUnloadNow() const
{
    return Module::LockCount() == 0 && !g_EventHelperList.HasHelperOnAnotherThread() ? S_OK : S_FALSE;
}

HRESULT CLV_prpPropCollectionModule::RegisterServer()
{
    const OwnResources own(m_language);
    return RegisterModule(kRegistration);
}

HRESULT CLV_prpPropCollectionModule::UnregisterServer()
{
    const OwnResources own(m_language);
    return UnregisterModule(kRegistration);
}
