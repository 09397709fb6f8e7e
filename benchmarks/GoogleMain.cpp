// Runs the cases of this program under Google Benchmark.
//   --sizes=1000,10000   sizes to run at; all other options are Google Benchmark's
#include "benchmarks/Cases.h"
#include "benchmarks/Program.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <sstream>

namespace {

std::vector<int64_t> TakeSizes(int& argc, char** argv)
{
    constexpr const char* kOption = "--sizes=";
    std::vector<int64_t> sizes;
    int kept = 1;
    for (int i = 1; i < argc; ++i) {
        if (std::strncmp(argv[i], kOption, std::strlen(kOption)) != 0) {
            argv[kept++] = argv[i];
            continue;
        }
        std::istringstream list(argv[i] + std::strlen(kOption));
        for (std::string size; std::getline(list, size, ',');)
            sizes.push_back(std::atoll(size.c_str()));
    }
    argc = kept;
    return sizes.empty() ? std::vector<int64_t>{1000, 10000, 100000, 1000000} : sizes;
}

void Register(const Case& c, int64_t size)
{
    benchmark::RegisterBenchmark(NameOf(c, size).c_str(),
                                 [c, size](benchmark::State& state) {
                                     Prepared prepared = c.prepare(size);
                                     prepared.run();
                                     for (auto _ : state)
                                         state.SetIterationTime(prepared.run());
                                     state.counters["items"] = prepared.items;
                                     for (const auto& [name, value] : prepared.counters)
                                         state.counters[name] = value;
                                 })
        ->UseManualTime()
        ->MinTime(0.1);
}

} // namespace

int main(int argc, char** argv)
{
    const std::vector<int64_t> sizes = TakeSizes(argc, argv);
    const std::vector<Case> cases = StartProgram();
    // Sizes outermost: cases of one size share their trees.
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        for (const Case& c : cases) {
            if (!c.oneSize || i == 0)
                Register(c, c.oneSize ? 1 : sizes[i]);
        }
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
