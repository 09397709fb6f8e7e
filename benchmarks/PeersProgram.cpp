// The program that measures the model and the libraries it is compared with, in one process.
#include "benchmarks/InternalCases.h"
#include "benchmarks/PeerCases.h"
#include "benchmarks/Program.h"
#include "platform/com/Ole.h"

#include <chrono>
#include <thread>

std::vector<Case> StartProgram()
{
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    // With one thread alone the C library takes short cuts in its locks, which no real host enjoys.
    std::thread([] { std::this_thread::sleep_for(std::chrono::hours(24)); }).detach();
    std::vector<Case> cases;
    AddOurCases(cases);
    AddInternalCases(cases);
    AddGlibCases(cases);
    AddRapidJsonCases(cases);
    AddSimdjsonCases(cases);
    AddSignalCases(cases);
    AddMapCases(cases);
    AddLockCases(cases);
    return cases;
}
