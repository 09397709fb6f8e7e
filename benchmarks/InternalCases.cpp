// The two steps that everything else is made of, without interfaces around them: find by id, and walk.
#include "benchmarks/InternalCases.h"
#include "benchmarks/Fixtures.h"
#include "core/prpPropertyCollection.h"

namespace {

const CprpPropertyCollection& ModelOf(IqorPropertyCollection& collection)
{
    return static_cast<const CprpPropertyCollection&>(collection);
}

template <class Data>
Prepared FindInIndex(int64_t size)
{
    auto tree = Shared<TreeOf<Data>>(size);
    auto probes = std::make_shared<std::vector<int32_t>>(MakeProbes(tree->data->Data()));
    return {[tree, probes] {
                const CprpPropertyCollection& model = ModelOf(*tree->collection);
                return Timed([&] {
                    std::uintptr_t mixed = 0;
                    for (int32_t id : *probes)
                        mixed ^= reinterpret_cast<std::uintptr_t>(model.Find(id));
                    Keep(mixed);
                });
            },
            static_cast<double>(probes->size())};
}

template <class Data>
Prepared WalkInside(int64_t size)
{
    auto tree = Shared<TreeOf<Data>>(size);
    return {[tree] {
                const CprpPropertyCollection& model = ModelOf(*tree->collection);
                std::size_t seen = 0;
                const double seconds = Timed([&] {
                    uint64_t types = 0;
                    for (CprpProperty* node = model.TopLevel().First(); node;
                         node = CprpPropertyCollection::NextInWalk(*node)) {
                        types += static_cast<uint64_t>(node->DataType());
                        ++seen;
                    }
                    Keep(types);
                });
                MustSucceed(seen == tree->data->Data().settings.size() ? S_OK : E_FAIL, "walking");
                return seconds;
            },
            static_cast<double>(size)};
}

} // namespace

void AddInternalCases(std::vector<Case>& cases)
{
    cases.insert(cases.end(), {{"W5", "ours", FindInIndex<PlainA>},
                               {"W5s", "ours", FindInIndex<ScatteredA>},
                               {"W7", "ours", WalkInside<PlainA>},
                               {"W7", "ours_deep", WalkInside<DeepA>}});
}
