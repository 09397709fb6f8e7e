// A small host, apart from the tests that start it: each command does one thing in a fresh process and prints what it
// saw, one fact to a line, in UTF-8. `--manifest <file>` works in the activation context of that file.
#include <lumevor/Lumevor.h>

#include "LV_setSettings.h"

#include <cstdio>
#include <cstring>
#include <thread>
#include <vector>

namespace {

using lumevor::Collection;
using lumevor::Property;
using lumevor::String;
using lumevor::Text;
using lumevor::ToUtf8;
using lumevor::Transaction;

constexpr const wchar_t* kServer = L"LV_prpPropCollection.dll";

void Print(const char* name, const Text& value)
{
    std::string line = ToUtf8(value);
    for (std::size_t at = line.find("\r\n"); at != std::string::npos; at = line.find("\r\n", at))
        line.replace(at, 2, " | ");
    std::printf("%s: %s\n", name, line.c_str());
}

/// Answers every message box of the thread and writes down what it said.
class MessageBoxes {
public:
    MessageBoxes() : m_hook(SetWindowsHookExW(WH_CBT, &OnHook, nullptr, GetCurrentThreadId())) {}
    ~MessageBoxes() { UnhookWindowsHookEx(m_hook); }
    MessageBoxes(const MessageBoxes&) = delete;
    MessageBoxes& operator=(const MessageBoxes&) = delete;

    static void PrintAll()
    {
        std::printf("boxes: %d\n", static_cast<int>(s_texts.size()));
        for (const Text& text : s_texts)
            Print("box", text);
    }

private:
    static LRESULT CALLBACK OnHook(int code, WPARAM wParam, LPARAM lParam)
    {
        wchar_t name[32] = {};
        const HWND window = reinterpret_cast<HWND>(wParam);
        if (code == HCBT_ACTIVATE && GetClassNameW(window, name, 32) && std::wcscmp(name, L"#32770") == 0) {
            constexpr int kTextOfMessageBox = 0xFFFF;
            wchar_t caption[256] = {};
            wchar_t text[1024] = {};
            GetWindowTextW(window, caption, 256);
            GetDlgItemTextW(window, kTextOfMessageBox, text, 1024);
            s_texts.push_back(Text(caption) + L": " + text);
            PostMessageW(window, WM_COMMAND, IDOK, 0);
        }
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }

    static inline std::vector<Text> s_texts;
    HHOOK m_hook;
};

/// A desktop of its own: message boxes of several processes would take the focus from each other.
void MakeDesktop()
{
    wchar_t name[32];
    swprintf(name, 32, L"client%lu", GetCurrentProcessId());
    if (const HDESK desktop = CreateDesktopW(name, nullptr, nullptr, 0, GENERIC_ALL, nullptr))
        SetThreadDesktop(desktop);
}

HRESULT CreateByProgId(const wchar_t* progId, lumevor::Ref<IUnknown>& object)
{
    CLSID clsid{};
    const HRESULT hr = CLSIDFromProgID(progId, &clsid);
    return FAILED(hr) ? hr : CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, object.PutVoid());
}

/// Every class by both of its names.
void Classes()
{
    for (const wchar_t* name : {L"prpProperty", L"prpPropertyCollection", L"prpHelpInfo", L"prpVisibilityInfo",
                                L"prpCollectionViewerCtrl", L"prpInfoViewer", L"prpGDTViewer", L"prpLinearTolViewer",
                                L"prpPositionViewer", L"strStream", L"setSettings"}) {
        for (const wchar_t* version : {L"", L".1"}) {
            const Text progId = Text(L"Tolvarin.") + name + version;
            lumevor::Ref<IUnknown> object;
            std::printf("%s: %08X\n", ToUtf8(progId).c_str(),
                        static_cast<unsigned>(CreateByProgId(progId.c_str(), object)));
        }
    }
}

/// A tree, its events, its saved text.
void Slice()
{
    const Collection collection = Collection::Create();
    const lumevor::Subscription subscription(collection, [](const lumevor::EventRange& events) {
        for (const lumevor::Event& event : events)
            std::printf("event: %d %d\n", static_cast<int>(event.Type()), static_cast<int>(event.PropertyId()));
    });
    const Transaction transaction(collection);
    collection.Add({.id = 10, .type = E_PROP_DT_CATEGORY, .name = L"Probing"});
    collection.Add({.id = 20, .parent = 10, .type = E_PROP_DT_LINEAR, .name = L"Depth"}).SetDouble(12.5);
    for (const Property& property : collection.Descendants())
        Print("property", property.Name() + L" = " + property.Value());
    Print("saved", collection.Save());
}

/// What the process speaks: the message boxes at the start, an internal error and a usage error.
void Language()
{
    {
        const MessageBoxes boxes;
        for (int i = 0; i < 3; ++i)
            (void)Collection::Create();
    }
    MessageBoxes::PrintAll();

    const Collection collection = Collection::Create();
    for (int i = 0; i < 2; ++i) {
        try {
            const Transaction transaction(collection);
            collection.Add({.id = 10, .type = E_PROP_DT_LONG});
        } catch (const lumevor::Error& error) {
            SetLastError(0);
            Print("internal", error.Description());
        }
    }
    try {
        (void)collection.At(10);
    } catch (const lumevor::Error& error) {
        Print("usage", error.Description());
    }

    lumevor::Ref<IqorSettings> settings;
    CoCreateInstance(__uuidof(setSettings), nullptr, CLSCTX_INPROC_SERVER, __uuidof(IqorSettings), settings.PutVoid());
    String library;
    if (settings && SUCCEEDED(settings->GetResourceDllName(library.Put())))
        Print("library", library.ToText());
}

/// Registers and unregisters into a key of its own, and shows what that leaves of the thread's locale and language.
void Registration()
{
    const Collection collection = Collection::Create();
    const std::wstring name = L"Software\\component_client" + std::to_wstring(GetCurrentProcessId());
    HKEY scratch = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, name.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &scratch, nullptr);
    RegOverridePredefKey(HKEY_CLASSES_ROOT, scratch);
    constexpr LCID kGerman = 0x0407;
    SetThreadLocale(kGerman);
    for (const char* entry : {"DllRegisterServer", "DllUnregisterServer"}) {
        const auto function = GetProcAddress(GetModuleHandleW(kServer), entry);
        const HRESULT hr = reinterpret_cast<HRESULT (*)()>(reinterpret_cast<void*>(function))();
        CLSID found{};
        std::printf("%s: %08X\n", entry, static_cast<unsigned>(hr));
        std::printf("locale: %04X\n", static_cast<unsigned>(GetThreadLocale()));
        std::printf("name: %08X\n", static_cast<unsigned>(CLSIDFromProgID(L"Tolvarin.prpProperty", &found)));
        try {
            (void)collection.At(10);
        } catch (const lumevor::Error& error) {
            Print("usage", error.Description());
        }
    }
    RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
    RegCloseKey(scratch);
    RegDeleteTreeW(HKEY_CURRENT_USER, name.c_str());
}

bool IsLoaded()
{
    return GetModuleHandleW(kServer) != nullptr;
}

bool CanUnload()
{
    const auto entry = GetProcAddress(GetModuleHandleW(kServer), "DllCanUnloadNow");
    return reinterpret_cast<HRESULT (*)()>(reinterpret_cast<void*>(entry))() == S_OK;
}

/// Whether the server goes when its last object has gone.
void Unload()
{
    std::printf("before: %d\n", IsLoaded());
    {
        const Collection collection = Collection::Create();
        std::printf("object: %d\n", CanUnload());
        {
            const Transaction transaction(collection);
            collection.Add({.id = 10, .type = E_PROP_DT_LONG}).SetLong(5);
        }
        CoFreeUnusedLibrariesEx(0, 0);
        std::printf("in use: %d\n", IsLoaded());
    }
    std::printf("no object: %d\n", CanUnload());
    CoFreeUnusedLibrariesEx(0, 0);
    CoFreeUnusedLibrariesEx(0, 0);
    std::printf("after: %d\n", IsLoaded());
    // The window of the events has gone with its library: nothing is left that could be called.
    for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);)
        DispatchMessageW(&message);
    const Collection again = Collection::Create();
    std::printf("again: %d\n", IsLoaded());
}

/// Whether the server waits for the thread on which the events of collections are delivered.
void UnloadBesideThread()
{
    const HANDLE made = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    const HANDLE finish = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HANDLE context = nullptr;
    GetCurrentActCtx(&context);
    std::thread worker([&] {
        ULONG_PTR cookie = 0;
        ActivateActCtx(context, &cookie);
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        (void)Collection::Create();
        SetEvent(made);
        WaitForSingleObject(finish, INFINITE); // looks at no message meanwhile
        CoUninitialize();
    });
    WaitForSingleObject(made, INFINITE);
    (void)Collection::Create();
    std::printf("can unload beside it: %d\n", CanUnload());
    CoFreeUnusedLibrariesEx(0, 0);
    std::printf("beside it: %d\n", IsLoaded());
    SetEvent(finish);
    worker.join();
    std::printf("can unload after it: %d\n", CanUnload());
    CoFreeUnusedLibrariesEx(0, 0);
    CoFreeUnusedLibrariesEx(0, 0);
    std::printf("after it: %d\n", IsLoaded());
}

/// Ends the process while another thread still has a helper.
void ExitBesideThread()
{
    const HANDLE made = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HANDLE context = nullptr;
    GetCurrentActCtx(&context);
    std::thread([=] {
        ULONG_PTR cookie = 0;
        ActivateActCtx(context, &cookie);
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        const Collection living = Collection::Create();
        SetEvent(made);
        Sleep(INFINITE);
    }).detach();
    WaitForSingleObject(made, INFINITE);
    std::printf("leaving\n");
}

/// Where the platform finds the type library by its number alone.
void TypeLibrary()
{
    BSTR path = nullptr;
    const HRESULT hr = QueryPathOfRegTypeLib(LIBID_LV_prpPropCollectionLib, 1, 0, LOCALE_NEUTRAL, &path);
    std::printf("path: %08X\n", static_cast<unsigned>(hr));
    if (path)
        Print("path", Text(path, SysStringLen(path)));
    SysFreeString(path);
    lumevor::Ref<ITypeLib> library;
    lumevor::Check(LoadRegTypeLib(LIBID_LV_prpPropCollectionLib, 1, 0, LOCALE_NEUTRAL, library.Put()));
    std::printf("types: %u\n", library->GetTypeInfoCount());
}

/// Loads a value that no property takes, which is worth an entry in the support log.
void Keep()
{
    const Collection collection = Collection::Create();
    const Transaction transaction(collection);
    for (const Text& problem : collection.Load(L"~402k0|35").problems)
        Print("problem", problem);
}

/// The grid by its name in the platform's own container, showing one collection.
void Grid()
{
    OleInitialize(nullptr);
    {
        const HMODULE atl = LoadLibraryW(L"atl.dll");
        const auto entry = [atl](const char* name) { return reinterpret_cast<void*>(GetProcAddress(atl, name)); };
        const auto initialise = reinterpret_cast<BOOL(WINAPI*)()>(entry("AtlAxWinInit"));
        const auto getControl = reinterpret_cast<HRESULT(WINAPI*)(HWND, IUnknown**)>(entry("AtlAxGetControl"));
        std::printf("container: %d\n", initialise());
        const HWND frame =
            CreateWindowW(L"Static", L"", WS_POPUP | WS_VISIBLE, 0, 0, 320, 240, nullptr, nullptr, nullptr, nullptr);
        const HWND holder = CreateWindowW(L"AtlAxWin", L"Tolvarin.prpCollectionViewerCtrl", WS_CHILD | WS_VISIBLE, 0, 0,
                                          300, 200, frame, nullptr, nullptr, nullptr);
        lumevor::Ref<IUnknown> control;
        lumevor::Check(getControl(holder, control.Put()));
        lumevor::Ref<IprpCollectionViewerCtrl> viewer;
        lumevor::Check(control->QueryInterface(IID_IprpCollectionViewerCtrl, viewer.PutVoid()));
        control = {};

        const Collection collection = Collection::Create();
        {
            const Transaction transaction(collection);
            collection.Add({.id = 10, .type = E_PROP_DT_CATEGORY, .name = L"Probing"});
            collection.Add({.id = 20, .parent = 10, .type = E_PROP_DT_LINEAR, .name = L"Depth"}).SetDouble(12.5);
        }
        IqorPropertyCollection* shown[] = {collection.Get()};
        lumevor::Check(viewer->ShowProperties(shown, 1));
        lumevor::Check(viewer->SetSelectedProperty(20));
        LONG_PTR list = 0;
        lumevor::Check(viewer->get_HWND(&list));
        std::printf("rows: %d\n", static_cast<int>(SendMessageW(reinterpret_cast<HWND>(list), LB_GETCOUNT, 0, 0)));
        RECT size{};
        GetWindowRect(reinterpret_cast<HWND>(list), &size);
        std::printf("size: %d x %d\n", static_cast<int>(size.right - size.left),
                    static_cast<int>(size.bottom - size.top));
        String text;
        lumevor::Check(viewer->GetNetSelectedPropertyString(text.Put()));
        Print("selected", text.ToText());
        DestroyWindow(frame);
    }
    std::printf("can unload: %d\n", CanUnload());
    OleUninitialize();
}

struct Command {
    const char* name;
    void (*run)();
};

constexpr Command kCommands[] = {
    {"classes", &Classes},
    {"slice", &Slice},
    {"language", &Language},
    {"unload", &Unload},
    {"registration", &Registration},
    {"typelib", &TypeLibrary},
    {"keep", &Keep},
    {"unload-beside-thread", &UnloadBesideThread},
    {"exit-beside-thread", &ExitBesideThread},
    {"grid", &Grid},
};

void Activate(const char* manifest)
{
    ACTCTXA context{};
    context.cbSize = sizeof context;
    context.lpSource = manifest;
    ULONG_PTR cookie = 0;
    const HANDLE handle = CreateActCtxA(&context);
    if (handle == INVALID_HANDLE_VALUE || !ActivateActCtx(handle, &cookie))
        throw std::runtime_error("no activation context: error " + std::to_string(GetLastError()));
}

} // namespace

int main(int argc, char** argv)
{
    MakeDesktop();
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    try {
        int next = 1;
        if (next + 1 < argc && std::strcmp(argv[next], "--manifest") == 0) {
            Activate(argv[next + 1]);
            next += 2;
        }
        for (const Command& command : kCommands) {
            if (next < argc && std::strcmp(argv[next], command.name) == 0) {
                command.run();
                return 0;
            }
        }
        std::fputs("no such command\n", stderr);
        return 2;
    } catch (const std::exception& error) {
        std::printf("failed: %s\n", error.what());
        return 1;
    }
}
