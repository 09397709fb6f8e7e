// Boost.Signals2: a plain store, and one signal with one slot for each change; with and without its lock (W4).
#include "benchmarks/Fixtures.h"
#include "benchmarks/PeerCases.h"

#include <boost/signals2.hpp>

namespace {

namespace signals = boost::signals2;
using Locked = signals::signal<void(int, double, double)>;
using Unlocked =
    signals::signal_type<void(int, double, double), signals::keywords::mutex_type<signals::dummy_mutex>>::type;

template <class Signal>
struct Model {
    struct Slot {
        int id;
        double value;
    };

    explicit Model(const SettingsData& data) : batches(MakeBatches(data))
    {
        for (const Setting& setting : data.settings)
            slots.push_back({setting.id, setting.x});
        changed.connect([this](int id, double, double) { heard += static_cast<uint64_t>(id); });
    }

    double Run()
    {
        const auto& batch = batches[turn++ % batches.size()];
        const double start = NextStartValue();
        const double seconds = Timed([&] {
            double value = start;
            for (uint32_t place : batch) {
                Slot& slot = slots[place];
                const double old = slot.value;
                value += 1;
                if (old != value) {
                    slot.value = value;
                    changed(slot.id, old, value);
                }
            }
        });
        Keep(heard);
        return seconds;
    }

    std::vector<Slot> slots;
    std::vector<std::vector<uint32_t>> batches;
    Signal changed;
    uint64_t heard = 0;
    std::size_t turn = 0;
};

template <class Signal>
Prepared Change(int64_t size)
{
    auto model = std::make_shared<Model<Signal>>(Shared<PlainA>(size)->Data());
    return {[model] { return model->Run(); }, kBatchSize};
}

} // namespace

void AddSignalCases(std::vector<Case>& cases)
{
    cases.push_back({"W4", "boost_signals2", Change<Locked>});
    cases.push_back({"W4", "boost_signals2_nolock", Change<Unlocked>});
}
