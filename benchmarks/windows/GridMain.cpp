// Runs the cases of the grid, with the model inside of the program.
//   bench_grid.exe OUT.json [SIZE...]
#include "benchmarks/windows/GridCases.h"
#include "benchmarks/windows/Samples.h"

#include "benchmarks/Host.h"
#include "core/prpPropertyCollection.h"
#include "idl/SuiteClasses.h"
#include "suite/stream/qorStream.h"

#include <cstdio>
#include <cstdlib>

namespace {

template <class Class>
void Register(REFCLSID clsid)
{
    CComPtr<IClassFactory> factory;
    MustSucceed(ClassFactory<Class>::Get(IID_IClassFactory, reinterpret_cast<void**>(&factory)), "the class factory");
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
        std::fprintf(stderr, "usage: bench_grid OUT.json [SIZE...]\n");
        return 2;
    }
    std::vector<int64_t> sizes;
    for (int i = 2; i < argc; ++i)
        sizes.push_back(std::atoll(argv[i]));
    if (sizes.empty())
        sizes = {1000, 10000};

    OleInitialize(nullptr);
    Register<CprpPropertyCollection>(CLSID_prpPropertyCollection);
    Register<CqorStream>(CLSID_qorStream);
    std::vector<Case> cases;
    AddGridCases(cases);
    SampleFile(argv[1]).RunAll(cases, sizes);
    std::fflush(stderr);
    std::_Exit(0);
}
