// Counts instructions: run it under callgrind with instrumentation off at the start. Each case runs once to warm up
// and once between the marks; its count is dumped under its name and the number of its items.
//   valgrind --tool=callgrind --instr-atstart=no count_model
#include "benchmarks/Cases.h"
#include "benchmarks/Program.h"

#include <valgrind/callgrind.h>

#include <cstdio>

int main()
{
    constexpr int64_t kSize = 10000;
    for (const Case& c : StartProgram()) {
        TimedSpan() = {};
        Prepared prepared = c.prepare(kSize);
        prepared.run();
        TimedSpan() = {[] { CALLGRIND_START_INSTRUMENTATION; }, [] { CALLGRIND_STOP_INSTRUMENTATION; }};
        CALLGRIND_ZERO_STATS;
        prepared.run();
        const std::string name = NameOf(c, kSize) + "/items=" + std::to_string(static_cast<int64_t>(prepared.items));
        CALLGRIND_DUMP_STATS_AT(name.c_str());
        std::fprintf(stderr, "%s\n", name.c_str());
    }
    return 0;
}
