// The program that measures the model, linked into it.
#include "benchmarks/InternalCases.h"
#include "benchmarks/Program.h"
#include "platform/com/Ole.h"

std::vector<Case> StartProgram()
{
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    std::vector<Case> cases;
    AddOurCases(cases);
    AddInternalCases(cases);
    return cases;
}
