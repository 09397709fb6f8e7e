// What a benchmark case is, apart from who runs it: Google Benchmark natively, a plain loop under Wine, and a counter
// of instructions. A case is prepared once for a size; each run tells the seconds of its timed part alone.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

/// A case made ready for one size.
struct Prepared {
    std::function<double()> run; ///< does the work once; seconds of the timed part
    double items = 0;            ///< what the time is divided by
    std::map<std::string, double> counters{};
};

struct Case {
    std::string work; ///< W1, W2, ...
    std::string who;  ///< "ours" and its variants, or the library
    std::function<Prepared(int64_t size)> prepare;
    bool oneSize = false; ///< runs at one size only, whatever sizes are asked for
};

inline std::string NameOf(const Case& c, int64_t size)
{
    return c.work + '/' + c.who + '/' + std::to_string(size);
}

/// Called around the timed part of each run, for a runner that measures something else than time.
struct Span {
    std::function<void()> begin;
    std::function<void()> end;
};
Span& TimedSpan();

/// Seconds that the body takes.
template <class Body>
double Timed(Body&& body)
{
    Span& span = TimedSpan();
    if (span.begin)
        span.begin();
    const auto start = std::chrono::steady_clock::now();
    body();
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    if (span.end)
        span.end();
    return taken.count();
}

/// The last one made of each type is kept, so that cases of one size share their data and trees.
template <class Fixture>
std::shared_ptr<Fixture> Shared(int64_t size)
{
    static int64_t s_size = -1;
    static std::shared_ptr<Fixture> s_kept;
    if (s_size != size) {
        s_kept.reset();
        s_kept = std::make_shared<Fixture>(size);
        s_size = size;
    }
    return s_kept;
}

/// Keeps a result alive for the optimiser.
void Keep(uint64_t value);

/// Bytes in use on the heap, the allocator's own share included; 0 where nobody knows.
double HeapBytes();

void AddOurCases(std::vector<Case>& cases);
