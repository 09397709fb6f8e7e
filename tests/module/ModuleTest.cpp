// The server DLL as a file: what it exports, what it says about itself, what is in it.
#include "frame/StringTable.h"
#include "platform/atl/ComPtr.h"
#include "platform/com/Ole.h"
#include "platform/system/ModuleStrings.h"

#include "LV_prpPropCollection.h"

#include <gmock/gmock.h>

#include <cstring>
#include <set>
#include <string>
#include <vector>

namespace {

using ::testing::ElementsAre;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAreArray;

class ServerFile : public testing::Test {
protected:
    void SetUp() override
    {
        m_module = LoadLibraryW(L"LV_prpPropCollection.dll");
        ASSERT_NE(m_module, nullptr);
    }
    void TearDown() override { FreeLibrary(m_module); }

    template <class T>
    const T* At(DWORD offset) const
    {
        return reinterpret_cast<const T*>(reinterpret_cast<const char*>(m_module) + offset);
    }
    const IMAGE_DATA_DIRECTORY& Directory(int index) const
    {
        const auto* headers = At<IMAGE_NT_HEADERS64>(static_cast<DWORD>(At<IMAGE_DOS_HEADER>(0)->e_lfanew));
        return headers->OptionalHeader.DataDirectory[index];
    }
    template <class Function>
    Function Export(const char* name) const
    {
        return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(m_module, name)));
    }

    HMODULE m_module = nullptr;
};

TEST_F(ServerFile, ExportsFourFunctionsAndNothingElse)
{
    const auto* exports = At<IMAGE_EXPORT_DIRECTORY>(Directory(IMAGE_DIRECTORY_ENTRY_EXPORT).VirtualAddress);
    std::vector<std::string> names;
    for (DWORD i = 0; i < exports->NumberOfNames; ++i)
        names.emplace_back(At<char>(At<DWORD>(exports->AddressOfNames)[i]));
    EXPECT_THAT(names, ElementsAre("DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer", "DllUnregisterServer"));
    EXPECT_EQ(exports->NumberOfFunctions, 4u);
}

TEST_F(ServerFile, DependsOnLibrariesOfTheSystemOnly)
{
    const std::vector<std::string> system = {
        "ADVAPI32.dll", "COMCTL32.dll", "COMDLG32.dll", "GDI32.dll",   "IMM32.dll",   "KERNEL32.dll", "msvcrt.dll",
        "ole32.dll",    "OLEAUT32.dll", "RPCRT4.dll",   "SHELL32.dll", "SHLWAPI.dll", "USER32.dll"};
    const auto* entry = At<IMAGE_IMPORT_DESCRIPTOR>(Directory(IMAGE_DIRECTORY_ENTRY_IMPORT).VirtualAddress);
    ASSERT_NE(entry->Name, 0u);
    for (; entry->Name; ++entry)
        EXPECT_THAT(system, testing::Contains(std::string(At<char>(entry->Name))));
}

TEST_F(ServerFile, TellsItsVersionInNumbersAndInWords)
{
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(m_module, path, MAX_PATH);
    std::vector<char> block(GetFileVersionInfoSizeW(path, nullptr));
    ASSERT_TRUE(GetFileVersionInfoW(path, 0, static_cast<DWORD>(block.size()), block.data()));
    void* data = nullptr;
    UINT size = 0;
    ASSERT_TRUE(VerQueryValueW(block.data(), L"\\", &data, &size));
    const auto* fixed = static_cast<const VS_FIXEDFILEINFO*>(data);
    EXPECT_EQ(fixed->dwFileVersionMS, 0x00010055u); // 1.85
    EXPECT_EQ(fixed->dwFileVersionLS, 0x00000015u); // 0.21
    ASSERT_TRUE(VerQueryValueW(block.data(), L"\\StringFileInfo\\000004b0\\FileVersion", &data, &size));
    EXPECT_STREQ(static_cast<const wchar_t*>(data), L"1.85.0.021");
}

TEST_F(ServerFile, HoldsItsOwnTableOfTextsAndLeavesTheFramesMessagesToTheLanguageLibrary)
{
    const auto handle = reinterpret_cast<LONG_PTR>(m_module);
    Text text;
    for (std::size_t i = 0; i < kOwnStringCount; ++i) {
        ASSERT_TRUE(LoadModuleString(handle, kOwnStrings[i].id, text)) << kOwnStrings[i].id;
        EXPECT_EQ(text, kOwnStrings[i].text);
    }
    for (const UINT id : {7006u, 7007u, 7008u, 7011u})
        EXPECT_FALSE(LoadModuleString(handle, id, text)) << id;
}

TEST_F(ServerFile, HoldsTenRegistrationScriptsAndTheTypeLibrary)
{
    for (int id = 101; id <= 110; ++id)
        EXPECT_NE(FindResourceW(m_module, MAKEINTRESOURCEW(id), L"REGISTRY"), nullptr) << id;

    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(m_module, path, MAX_PATH);
    CComPtr<ITypeLib> library;
    ASSERT_EQ(LoadTypeLibEx(path, REGKIND_NONE, &library), S_OK);
    CComBSTR description;
    ASSERT_EQ(library->GetDocumentation(-1, nullptr, &description, nullptr, nullptr), S_OK);
    EXPECT_EQ(description.View(), L"Lumevor Property Collection Type Library");
}

TEST_F(ServerFile, HoldsAToolboxBitmapOfSixteenPixelsForEachControl)
{
    std::set<std::string> pictures;
    for (int id = 111; id <= 115; ++id) {
        const auto bitmap =
            static_cast<HBITMAP>(LoadImageW(m_module, MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
        DIBSECTION section{};
        ASSERT_EQ(GetObjectW(bitmap, sizeof section, &section), static_cast<int>(sizeof section)) << id;
        EXPECT_EQ(section.dsBm.bmWidth, 16) << id;
        EXPECT_EQ(section.dsBm.bmHeight, 16) << id;
        EXPECT_EQ(section.dsBmih.biBitCount, 4) << id;
        const auto bytes = static_cast<std::size_t>(section.dsBm.bmWidthBytes) * 16;
        pictures.emplace(static_cast<const char*>(section.dsBm.bmBits), bytes);
        DeleteObject(bitmap);
    }
    EXPECT_THAT(pictures, SizeIs(5)) << "each has a picture of its own";
}

TEST_F(ServerFile, RefusesUnknownClassesAndNullPointers)
{
    const auto getClassObject = Export<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>("DllGetClassObject");
    CComPtr<IClassFactory> factory;
    EXPECT_EQ(getClassObject(IID_IUnknown, IID_IClassFactory, reinterpret_cast<void**>(&factory)),
              CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(factory.p, nullptr);
    EXPECT_EQ(getClassObject(CLSID_prpHelpInfo, IID_IClassFactory, nullptr), E_POINTER);
    EXPECT_EQ(getClassObject(CLSID_prpHelpInfo, IID_IDispatch, reinterpret_cast<void**>(&factory)), E_NOINTERFACE);
}

TEST_F(ServerFile, StaysLoadedForAClassObjectALockAndAnObject)
{
    const auto canUnload = Export<HRESULT(STDAPICALLTYPE*)()>("DllCanUnloadNow");
    const auto getClassObject = Export<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>("DllGetClassObject");
    ASSERT_EQ(canUnload(), S_OK);

    CComPtr<IClassFactory> factory;
    ASSERT_EQ(getClassObject(CLSID_prpHelpInfo, IID_IClassFactory, reinterpret_cast<void**>(&factory)), S_OK);
    EXPECT_EQ(canUnload(), S_FALSE);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    CComPtr<IprpHelpInfo> help;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IprpHelpInfo, reinterpret_cast<void**>(&help)), S_OK);
    CComPtr<IClassFactory> second = factory;
    factory.Release();
    second->LockServer(FALSE);
    second.Release();
    EXPECT_EQ(canUnload(), S_FALSE) << "the object";
    help.Release();
    EXPECT_EQ(canUnload(), S_OK);
}

TEST_F(ServerFile, RefusesAggregation)
{
    const auto getClassObject = Export<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>("DllGetClassObject");
    CComPtr<IClassFactory> factory;
    ASSERT_EQ(getClassObject(CLSID_prpHelpInfo, IID_IClassFactory, reinterpret_cast<void**>(&factory)), S_OK);
    void* object = &object;
    EXPECT_EQ(factory->CreateInstance(factory, IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);
}

} // namespace
