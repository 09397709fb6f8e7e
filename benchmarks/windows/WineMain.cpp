// Runs the cases on the real DLLs, which lie beside the program.
//   bench_dll.exe OUT.json [SIZE...]
#include "benchmarks/Cases.h"
#include "benchmarks/Host.h"
#include "benchmarks/windows/Samples.h"
#include "idl/SuiteClasses.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

/// Makes the class of a DLL known to this process, without registration.
void Serve(const wchar_t* file, REFCLSID clsid)
{
    using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    const HMODULE module = LoadLibraryW(file);
    const auto getClassObject =
        module ? reinterpret_cast<GetClassObject>(reinterpret_cast<void*>(GetProcAddress(module, "DllGetClassObject")))
               : nullptr;
    MustSucceed(getClassObject ? S_OK : E_FAIL, "loading a DLL");
    CComPtr<IUnknown> factory;
    MustSucceed(getClassObject(clsid, IID_IClassFactory, reinterpret_cast<void**>(&factory)), "DllGetClassObject");
    DWORD cookie = 0;
    MustSucceed(CoRegisterClassObject(clsid, factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie),
                "CoRegisterClassObject");
}

} // namespace

double HeapBytes()
{
    return 0;
}

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: bench_dll OUT.json [SIZE...]\n");
        return 2;
    }
    std::vector<int64_t> sizes;
    for (int i = 2; i < argc; ++i)
        sizes.push_back(std::atoll(argv[i]));
    if (sizes.empty())
        sizes = {1000, 10000, 100000};

    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    Serve(L"LV_strStream.dll", CLSID_qorStream);
    Serve(L"LV_prpPropCollection.dll", CLSID_prpPropertyCollection);
    std::vector<Case> cases;
    AddOurCases(cases);
    SampleFile(argv[1]).RunAll(cases, sizes);
    // The trees are gone with the process; classes and modules need not be taken down one by one.
    std::fflush(stderr);
    std::_Exit(0);
}
