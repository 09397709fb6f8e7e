// Any text as a scan path of a property, in both unit modes: the points that it holds come back from their own text.
#include "fuzz/FuzzCollection.h"

#include <algorithm>

namespace {

/// Sets the points by a text and gives their own text.
Text PointsOf(IqorProperty* property, TextView text)
{
    Require(property->InitialiseScanPathFromString(CComBSTR(text)) == S_OK);
    CComBSTR points;
    Require(property->GetScanPathString(&points) == S_OK && points.m_str);
    return Text(points.View());
}

LONG CountOf(IqorProperty* property)
{
    LONG count = -1;
    Require(property->GetScanPathListCount(&count) == S_OK);
    return count;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzCollection fuzz;
    const auto property = fuzz.Property(E_PROP_DT_SCAN_PATH_LIST);
    const InputText input(data, size);
    for (const EprpUnitMode mode : {E_METRIC, E_IMPERIAL}) {
        Require(fuzz.collection->SetUnitMode(mode) == S_OK);
        const Text points = PointsOf(property, input.View());
        const LONG count = CountOf(property);
        Require(count == (points.empty() ? 0 : 1 + std::count(points.begin(), points.end(), OLECHAR{'\n'})));
        Require(PointsOf(property, points) == points && CountOf(property) == count);
    }
    return 0;
}
