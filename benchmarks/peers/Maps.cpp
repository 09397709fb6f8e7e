// Hash maps from id to pointer: robin-map and abseil (W5 and W5s).
#include "benchmarks/Fixtures.h"
#include "benchmarks/PeerCases.h"

#include <absl/container/flat_hash_map.h>
#include <tsl/robin_map.h>

namespace {

template <class Map, class Data>
struct FilledMap {
    explicit FilledMap(int64_t size) : probes(MakeProbes(Shared<Data>(size)->Data()))
    {
        for (const Setting& setting : Shared<Data>(size)->Data().settings)
            map[setting.id] = &setting;
    }
    Map map;
    std::vector<int32_t> probes;
};

template <class Map, class Data>
Prepared Find(int64_t size)
{
    auto filled = Shared<FilledMap<Map, Data>>(size);
    return {[filled, data = Shared<Data>(size)] {
                return Timed([&] {
                    std::uintptr_t mixed = 0;
                    for (int32_t id : filled->probes) {
                        const auto hit = filled->map.find(id);
                        mixed ^= hit == filled->map.end() ? 0 : reinterpret_cast<std::uintptr_t>(hit->second);
                    }
                    Keep(mixed);
                });
            },
            static_cast<double>(filled->probes.size())};
}

using RobinMap = tsl::robin_map<int32_t, const Setting*>;
using FlatMap = absl::flat_hash_map<int32_t, const Setting*>;

} // namespace

void AddMapCases(std::vector<Case>& cases)
{
    cases.push_back({"W5", "robin_map", Find<RobinMap, PlainA>});
    cases.push_back({"W5", "absl", Find<FlatMap, PlainA>});
    cases.push_back({"W5s", "robin_map", Find<RobinMap, ScatteredA>});
    cases.push_back({"W5s", "absl", Find<FlatMap, ScatteredA>});
}
