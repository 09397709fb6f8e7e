// Runs the cases on the real DLLs, which lie beside the program, and writes the result in the form of Google
// Benchmark, which this tool chain does not have.
//   bench_dll.exe OUT.json [SIZE...]
#include "benchmarks/Cases.h"
#include "benchmarks/Host.h"
#include "idl/SuiteClasses.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

constexpr double kEnough = 0.3; // seconds of timed parts for one case
constexpr int kMostSamples = 40;
constexpr int kFewestSamples = 5;

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

void Run(std::FILE* out, const Case& c, int64_t size, bool& isFirst)
{
    const Prepared prepared = c.prepare(size);
    prepared.run();
    double total = 0;
    for (int i = 0; i < kMostSamples && (i < kFewestSamples || total < kEnough); ++i) {
        const double seconds = prepared.run();
        total += seconds;
        std::fprintf(out,
                     "%s\n {\"name\":\"%s\",\"run_name\":\"%s\",\"run_type\":\"iteration\",\"iterations\":1,"
                     "\"real_time\":%.1f,\"cpu_time\":%.1f,\"time_unit\":\"ns\",\"items\":%.0f}",
                     isFirst ? "" : ",", NameOf(c, size).c_str(), NameOf(c, size).c_str(), seconds * 1e9, seconds * 1e9,
                     prepared.items);
        isFirst = false;
    }
    std::fprintf(stderr, "%s\n", NameOf(c, size).c_str());
}

} // namespace

double HeapBytes()
{
    return 0;
}

int main(int argc, char** argv)
{
    std::FILE* out = argc > 1 ? std::fopen(argv[1], "w") : nullptr;
    if (!out) {
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
    std::fprintf(out, "{\"context\":{},\"benchmarks\":[");
    bool isFirst = true;
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        for (const Case& c : cases) {
            if (!c.oneSize || i == 0)
                Run(out, c, c.oneSize ? 1 : sizes[i], isFirst);
        }
    }
    std::fprintf(out, "\n]}\n");
    std::fclose(out);
    // The trees are gone with the process; classes and modules need not be taken down one by one.
    std::fflush(stderr);
    std::_Exit(0);
}
