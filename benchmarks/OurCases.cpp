// The workloads through the public interfaces of the component.
#include "benchmarks/EventReader.h"
#include "benchmarks/Fixtures.h"

#include <string>

namespace {

template <class Data>
Prepared Build(int64_t size)
{
    auto data = Shared<Data>(size);
    const double before = HeapBytes();
    CComPtr<IqorPropertyCollection> measured = FilledCollection(*data);
    const double perItem = (HeapBytes() - before) / static_cast<double>(size);
    return {[data] {
                CComPtr<IqorPropertyCollection> collection = NewCollection();
                return Timed([&] { Fill(*collection, *data); });
            },
            static_cast<double>(size),
            {{"bytes_per_item", perItem}}};
}

Prepared Release(int64_t size)
{
    auto data = Shared<PlainA>(size);
    return {[data] {
                CComPtr<IqorPropertyCollection> collection = FilledCollection(*data);
                return Timed([&] { collection.Release(); });
            },
            static_cast<double>(size)};
}

template <class Data>
Prepared SaveAll(int64_t size)
{
    auto tree = Shared<TreeOf<Data>>(size);
    CComPtr<IqorStream> stream = NewStream();
    return {[tree, stream] {
                OpenTransaction transaction(*tree->collection);
                return Timed([&] {
                    MustSucceed(stream->ClearStream(), "ClearStream");
                    Save(*tree->collection, *stream);
                });
            },
            static_cast<double>(size)};
}

/// A stream with the saved text of such data.
template <class Data>
CComPtr<IqorStream> SavedText(int64_t size)
{
    CComPtr<IqorPropertyCollection> collection = FilledCollection(*Shared<Data>(size));
    CComPtr<IqorStream> stream = NewStream();
    OpenTransaction transaction(*collection);
    Save(*collection, *stream);
    return stream;
}

/// Loads the texts of two data sets in turn, so that the values do change.
template <class Data, class Other>
Prepared LoadAll(int64_t size)
{
    auto tree = Shared<TreeOf<Data>>(size);
    MustSucceed(tree->collection->put_LoadVersion(1), "put_LoadVersion");
    CComPtr<IqorStream> first = SavedText<Data>(size);
    CComPtr<IqorStream> second = SavedText<Other>(size);
    return {[tree, first, second, turn = 0]() mutable {
                IqorStream& stream = ++turn % 2 ? *second : *first;
                OpenTransaction transaction(*tree->collection);
                return Timed([&] { Load(*tree->collection, stream); });
            },
            static_cast<double>(size)};
}

/// One transaction that changes a batch of reals through pointers that the host holds, and one sink.
struct ChangeWork {
    ChangeWork(std::shared_ptr<TreeOf<PlainA>> shared, OldTexts how)
        : tree(std::move(shared)), sink(new EventReader(how)), subscription(*tree->collection, *sink)
    {
        OpenTransaction transaction(*tree->collection);
        for (const auto& places : MakeBatches(tree->data->Data())) {
            auto& batch = batches.emplace_back();
            for (uint32_t place : places)
                batch.push_back(PropertyOf(*tree->collection, tree->data->Data().settings[place].id));
        }
    }

    double Run()
    {
        const auto& batch = batches[turn++ % batches.size()];
        const double start = NextStartValue();
        const uint64_t readBefore = sink->Records();
        const double seconds = Timed([&] {
            MustSucceed(tree->collection->StartTransaction(-1), "StartTransaction");
            EprpPropError error = E_PROP_ERROR_NONE;
            double value = start;
            for (const auto& property : batch) {
                MustSucceed(property->SetPropertyDouble(value, &error), "SetPropertyDouble");
                value += 1;
            }
            MustSucceed(tree->collection->EndTransaction(VARIANT_TRUE), "EndTransaction");
        });
        // A value that is drawn twice in a row changes nothing the second time; nearly all do change.
        MustSucceed(sink->Records() - readBefore > kBatchSize * 9 / 10 ? S_OK : E_FAIL, "publishing the changes");
        Keep(sink->Checksum());
        return seconds;
    }

    std::shared_ptr<TreeOf<PlainA>> tree;
    CComPtr<EventReader> sink;
    Subscription subscription;
    std::vector<std::vector<CComPtr<IqorProperty>>> batches;
    std::size_t turn = 0;
};

Prepared Change(int64_t size, OldTexts how)
{
    auto work = std::make_shared<ChangeWork>(Shared<TreeOf<PlainA>>(size), how);
    return {[work] { return work->Run(); }, kBatchSize};
}

template <class Data>
Prepared FindByInterface(int64_t size)
{
    auto tree = Shared<TreeOf<Data>>(size);
    auto probes = std::make_shared<std::vector<int32_t>>(MakeProbes(tree->data->Data()));
    return {[tree, probes] {
                OpenTransaction transaction(*tree->collection);
                return Timed([&] {
                    for (int32_t id : *probes) {
                        EprpPropError error = E_PROP_ERROR_NONE;
                        IqorProperty* property = nullptr;
                        tree->collection->GetProperty(id, &error, &property);
                        property->Release();
                    }
                });
            },
            static_cast<double>(probes->size())};
}

Prepared EmptyTransactions(int64_t)
{
    constexpr int kPairs = 1000;
    auto tree = Shared<TreeOf<PlainA>>(1000);
    return {[tree] {
                return Timed([&] {
                    for (int i = 0; i < kPairs; ++i) {
                        tree->collection->StartTransaction(1000);
                        tree->collection->EndTransaction(VARIANT_TRUE);
                    }
                });
            },
            kPairs};
}

template <class Data>
Prepared WalkByInterface(int64_t size)
{
    auto tree = Shared<TreeOf<Data>>(size);
    return {[tree] {
                OpenTransaction transaction(*tree->collection);
                std::size_t seen = 0;
                const double seconds = Timed([&] {
                    LONG id = E_PROP_ID_INVALID;
                    while (id != E_PROP_ID_LAST) {
                        EprpPropError error = E_PROP_ERROR_NONE;
                        IqorProperty* property = nullptr;
                        tree->collection->GetNextPropertyAll(&id, &error, &property);
                        property->Release();
                        ++seen;
                    }
                });
                MustSucceed(seen == tree->data->Data().settings.size() ? S_OK : E_FAIL, "walking");
                return seconds;
            },
            static_cast<double>(size)};
}

template <class Data>
Prepared CloneAll(int64_t size)
{
    auto tree = Shared<TreeOf<Data>>(size);
    return {[tree] {
                OpenTransaction transaction(*tree->collection);
                CComPtr<IqorPropertyCollection> clone;
                return Timed([&] { clone = CloneOf(*tree->collection); });
            },
            static_cast<double>(size)};
}

} // namespace

void AddOurCases(std::vector<Case>& cases)
{
    cases.insert(cases.end(), {{"W1", "ours", Build<PlainA>},
                               {"W1", "ours_deep", Build<DeepA>},
                               {"W1d", "ours", Release},
                               {"W2", "ours", SaveAll<PlainA>},
                               {"W2", "ours_deep", SaveAll<DeepA>},
                               {"W3", "ours", LoadAll<PlainA, PlainB>},
                               {"W3", "ours_deep", LoadAll<DeepA, DeepB>},
                               {"W4", "ours", [](int64_t size) { return Change(size, OldTexts::Copied); }},
                               {"W4", "ours_inplace", [](int64_t size) { return Change(size, OldTexts::InPlace); }},
                               {"W4", "ours_skip", [](int64_t size) { return Change(size, OldTexts::Skipped); }},
                               {"W5", "ours_iface", FindByInterface<PlainA>},
                               {"W5s", "ours_iface", FindByInterface<ScatteredA>},
                               {"W6", "ours", EmptyTransactions, true},
                               {"W7", "ours_iface", WalkByInterface<PlainA>},
                               {"W7", "ours_iface_deep", WalkByInterface<DeepA>},
                               {"W8", "ours", CloneAll<PlainA>},
                               {"W8", "ours_deep", CloneAll<DeepA>}});
}
