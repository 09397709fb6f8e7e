// The stream's own DLL, served by its side-by-side manifest without a registry entry.
#include "idl/SuiteClasses.h"
#include "tests/suite/stream/StreamUser.h"

#include <filesystem>
#include <set>
#include <string>
#include <thread>

namespace {

std::filesystem::path OwnFolder()
{
    std::wstring path(32768, 0);
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return std::filesystem::path(path).parent_path();
}

/// Lets the class be found in the DLL beside this program, on the thread that makes it.
class ServedByManifest {
public:
    ServedByManifest()
    {
        const std::wstring manifest = OwnFolder() / "Lumevor.Stream.manifest";
        ACTCTXW context{};
        context.cbSize = sizeof context;
        context.lpSource = manifest.c_str();
        m_context = CreateActCtxW(&context);
        EXPECT_NE(m_context, INVALID_HANDLE_VALUE);
        EXPECT_TRUE(ActivateActCtx(m_context, &m_cookie));
    }
    ServedByManifest(const ServedByManifest&) = delete;
    ServedByManifest& operator=(const ServedByManifest&) = delete;
    ~ServedByManifest()
    {
        DeactivateActCtx(0, m_cookie);
        ReleaseActCtx(m_context);
    }

private:
    HANDLE m_context = nullptr;
    ULONG_PTR m_cookie = 0;
};

class ComThread {
public:
    explicit ComThread(DWORD apartment) { EXPECT_TRUE(SUCCEEDED(CoInitializeEx(nullptr, apartment))); }
    ComThread(const ComThread&) = delete;
    ComThread& operator=(const ComThread&) = delete;
    ~ComThread() { CoUninitialize(); }
};

void CreateAndUseStream()
{
    const ServedByManifest served;
    CComPtr<IqorStream> stream;
    ASSERT_EQ(stream.CoCreateInstance(CLSID_qorStream), S_OK);
    StreamUser user(stream);
    user.Write({1, 2});
    user.WriteString(OLESTR("from the DLL"));
    EXPECT_EQ(user.Read(2), (Bytes{1, 2}));
    EXPECT_EQ(user.ReadString(), Line(OLESTR("from the DLL")));
    ExpectRefusal(stream->Write(nullptr, 1),
                  OLESTR("Invalid pointer passed to the function 'CqorStream::Write'. Parameter 'pData' is NULL."));
    CComPtr<IqorStreamDirect> direct;
    EXPECT_EQ(stream.QueryInterface(&direct), S_OK);
}

TEST(StreamDll, ServesTheClassToASingleThreadedApartment)
{
    const ComThread com(COINIT_APARTMENTTHREADED);
    CreateAndUseStream();
}

TEST(StreamDll, ServesTheClassToAThreadOfAnyKindWithoutAProxy)
{
    std::thread worker([] {
        const ComThread com(COINIT_MULTITHREADED);
        CreateAndUseStream();
    });
    worker.join();
}

TEST(StreamDll, ExportsTheFourFunctionsOfAComponentAndNothingElse)
{
    HMODULE const dll = LoadLibraryW((OwnFolder() / "LV_strStream.dll").c_str());
    ASSERT_NE(dll, nullptr);
    const auto* const base = reinterpret_cast<const unsigned char*>(dll);
    const auto* const header =
        reinterpret_cast<const IMAGE_NT_HEADERS*>(base + reinterpret_cast<const IMAGE_DOS_HEADER*>(base)->e_lfanew);
    const auto& directory = header->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    const auto* const exports = reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(base + directory.VirtualAddress);
    const auto* const names = reinterpret_cast<const DWORD*>(base + exports->AddressOfNames);
    std::set<std::string> found;
    for (DWORD i = 0; i < exports->NumberOfNames; ++i)
        found.insert(reinterpret_cast<const char*>(base + names[i]));
    EXPECT_EQ(exports->NumberOfFunctions, 4u);
    EXPECT_EQ(found, (std::set<std::string>{"DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer",
                                            "DllUnregisterServer"}));
    FreeLibrary(dll);
}

TEST(StreamDll, MayGoWhenItsLastStreamAndClassObjectAreGone)
{
    const ComThread com(COINIT_APARTMENTTHREADED);
    HMODULE const dll = LoadLibraryW((OwnFolder() / "LV_strStream.dll").c_str());
    ASSERT_NE(dll, nullptr);
    using CanUnload = HRESULT(STDAPICALLTYPE*)();
    using GetClass = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    const auto canUnload = reinterpret_cast<CanUnload>(reinterpret_cast<void*>(GetProcAddress(dll, "DllCanUnloadNow")));
    const auto getClass = reinterpret_cast<GetClass>(reinterpret_cast<void*>(GetProcAddress(dll, "DllGetClassObject")));
    EXPECT_EQ(canUnload(), S_OK);

    CComPtr<IClassFactory> factory;
    ASSERT_EQ(getClass(CLSID_qorStream, IID_IClassFactory, reinterpret_cast<void**>(&factory)), S_OK);
    EXPECT_EQ(canUnload(), S_FALSE);
    CComPtr<IqorStream> stream;
    ASSERT_EQ(factory->CreateInstance(nullptr, IID_IqorStream, reinterpret_cast<void**>(&stream)), S_OK);
    factory.Release();
    EXPECT_EQ(canUnload(), S_FALSE);
    stream.Release();
    EXPECT_EQ(canUnload(), S_OK);

    CComPtr<IClassFactory> other;
    EXPECT_EQ(getClass(IID_IqorStream, IID_IClassFactory, reinterpret_cast<void**>(&other)), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(getClass(CLSID_qorStream, IID_IClassFactory, nullptr), E_POINTER);
}

TEST(StreamDll, HoldsItsTypeLibraryAndVersion)
{
    const std::wstring path = OwnFolder() / "LV_strStream.dll";
    CComPtr<ITypeLib> library;
    ASSERT_EQ(LoadTypeLibEx(path.c_str(), REGKIND_NONE, &library), S_OK);
    for (const IID& iid : {IID_IqorTextRenderer, IID_IqorTextOwner, IID_IqorStreamDirect}) {
        CComPtr<ITypeInfo> info;
        EXPECT_EQ(library->GetTypeInfoOfGuid(iid, &info), S_OK);
    }

    HMODULE const dll = LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    HRSRC const version = FindResourceW(dll, MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(16)); // the version resource
    ASSERT_NE(version, nullptr);
    const std::wstring content(static_cast<const wchar_t*>(LockResource(LoadResource(dll, version))),
                               SizeofResource(dll, version) / sizeof(wchar_t));
    EXPECT_NE(content.find(L"1.85.0.021"), std::wstring::npos);
    FreeLibrary(dll);
}

} // namespace
