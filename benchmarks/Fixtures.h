// Data and trees that cases of one size share.
#pragma once

#include "benchmarks/Cases.h"
#include "benchmarks/Host.h"

#include <utility>

/// The data sets by name; each is made from its own seed.
struct PlainA : HostData {
    explicit PlainA(int64_t size) : HostData(MakePlainData(size, 1)) {}
};
struct PlainB : HostData {
    explicit PlainB(int64_t size) : HostData(MakePlainData(size, 2)) {}
};
struct DeepA : HostData {
    explicit DeepA(int64_t size) : HostData(MakeDeepData(size, 1)) {}
};
struct DeepB : HostData {
    explicit DeepB(int64_t size) : HostData(MakeDeepData(size, 2)) {}
};
struct ScatteredA : HostData {
    explicit ScatteredA(int64_t size) : HostData(Scattered(size)) {}
    static SettingsData Scattered(int64_t size)
    {
        SettingsData data = MakePlainData(size, 1);
        ScatterIds(data);
        return data;
    }
};

template <class Data>
struct TreeOf {
    explicit TreeOf(int64_t size) : data(Shared<Data>(size)), collection(FilledCollection(*data)) {}
    std::shared_ptr<Data> data;
    CComPtr<IqorPropertyCollection> collection;
};
