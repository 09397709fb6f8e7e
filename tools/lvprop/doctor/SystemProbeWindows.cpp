// The registry, the loader and activation contexts.
#include "platform/com/SystemText.h"
#include "platform/system/Utf8.h"
#include "tools/lvprop/doctor/FolderProbe.h"
#include "tools/lvprop/doctor/SystemProbe.h"
#include "tools/lvprop/doctor/Trial.h"

#include <lumevor/Apartment.h>

#include <filesystem>

namespace {

std::string WordsForError(DWORD error)
{
    std::string words = Utf8From(SystemText(static_cast<HRESULT>(error)));
    words.erase(std::min(words.find_last_not_of("\r\n. ") + 1, words.size()));
    return words + " (error " + std::to_string(error) + ")";
}

/// The library that a view of the registry gives for a class; empty when it gives none.
std::wstring RegisteredServer(const SuiteClass& suiteClass, DWORD view)
{
    const std::wstring key = L"CLSID\\" + TextFromUtf8(suiteClass.IdText()) + L"\\InprocServer32";
    HKEY opened = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, key.c_str(), 0, KEY_READ | view, &opened) != ERROR_SUCCESS)
        return {};
    std::wstring path(32768, L'\0');
    DWORD bytes = static_cast<DWORD>(path.size() * sizeof(wchar_t));
    const LSTATUS status = RegGetValueW(opened, nullptr, nullptr, RRF_RT_REG_SZ, nullptr, path.data(), &bytes);
    RegCloseKey(opened);
    path.resize(status == ERROR_SUCCESS ? bytes / sizeof(wchar_t) - 1 : 0);
    return path;
}

bool NameLeadsTo(const SuiteClass& suiteClass)
{
    CLSID found{};
    return SUCCEEDED(CLSIDFromProgID(TextFromUtf8(suiteClass.ProgId()).c_str(), &found)) && found == suiteClass.id;
}

/// A manifest in force for this thread.
class ManifestContext {
public:
    explicit ManifestContext(const std::wstring& manifest)
    {
        ACTCTXW context{};
        context.cbSize = sizeof context;
        context.lpSource = manifest.c_str();
        m_context = CreateActCtxW(&context);
        if (m_context == INVALID_HANDLE_VALUE || !ActivateActCtx(m_context, &m_cookie))
            m_error = GetLastError();
    }
    ~ManifestContext()
    {
        if (m_error == ERROR_SUCCESS)
            DeactivateActCtx(0, m_cookie);
        if (m_context != INVALID_HANDLE_VALUE)
            ReleaseActCtx(m_context);
    }
    ManifestContext(const ManifestContext&) = delete;
    ManifestContext& operator=(const ManifestContext&) = delete;

    DWORD Error() const { return m_error; }

private:
    HANDLE m_context = INVALID_HANDLE_VALUE;
    ULONG_PTR m_cookie = 0;
    DWORD m_error = ERROR_SUCCESS;
};

/// Classes of the folder that others of it make: only one manifest is in force at a time, so they are served to the
/// whole process.
class ServedClasses {
public:
    ServedClasses() = default;
    ~ServedClasses()
    {
        for (const DWORD registration : m_registrations)
            CoRevokeClassObject(registration);
    }
    ServedClasses(const ServedClasses&) = delete;
    ServedClasses& operator=(const ServedClasses&) = delete;

    void Serve(REFCLSID id)
    {
        lumevor::Ref<IUnknown> factory;
        DWORD registration = 0;
        if (SUCCEEDED(CoGetClassObject(id, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory, factory.PutVoid())) &&
            SUCCEEDED(
                CoRegisterClassObject(id, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registration)))
            m_registrations.push_back(registration);
    }

private:
    std::vector<DWORD> m_registrations;
};

std::wstring FullPath(const std::string& path)
{
    return std::filesystem::absolute(std::filesystem::path(TextFromUtf8(path))).make_preferred().wstring();
}

} // namespace

std::string LoadRefusal(const std::string& path)
{
    const HMODULE library = LoadLibraryExW(FullPath(path).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (!library)
        return WordsForError(GetLastError());
    FreeLibrary(library);
    return {};
}

std::vector<RegistrationFacts> ReadRegistrations()
{
    std::vector<RegistrationFacts> registrations;
    for (const SuiteModule& module : SuiteModules()) {
        for (const SuiteClass& suiteClass : module.classes) {
            RegistrationFacts facts;
            facts.module = &module;
            facts.suiteClass = &suiteClass;
            const std::wstring server = RegisteredServer(suiteClass, KEY_WOW64_64KEY);
            facts.isRegistered = !server.empty();
            facts.isRegisteredFor32Bit = !RegisteredServer(suiteClass, KEY_WOW64_32KEY).empty();
            facts.nameLeadsHere = NameLeadsTo(suiteClass);
            if (facts.isRegistered)
                facts.library = LookAtLibrary(Utf8From(server));
            registrations.push_back(std::move(facts));
        }
    }
    return registrations;
}

TrialFacts TryRegistered(const std::vector<std::string>& languages)
{
    const lumevor::Apartment apartment;
    TrialFacts trial;
    for (const SuiteModule& module : SuiteModules())
        MakeClasses(module, languages, trial);
    return trial;
}

TrialFacts TryFolder(const FolderFacts& folder, const std::vector<std::string>& languages)
{
    const lumevor::Apartment apartment;
    ServedClasses served;
    TrialFacts trial;
    for (const ModuleFacts& facts : folder.modules) {
        const ManifestContext context(FullPath(folder.path + "/" + facts.manifest.name));
        if (context.Error() != ERROR_SUCCESS) {
            trial.refusedManifest = facts.manifest.name;
            trial.refusal = WordsForError(context.Error());
            return trial;
        }
        MakeClasses(*facts.module, languages, trial);
        if (facts.module->assembly != kServerAssembly)
            served.Serve(facts.module->classes.front().id);
    }
    return trial;
}
