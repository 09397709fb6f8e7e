// Any text as a scan path of a property, in both unit modes: the points that it holds come back from their own text.
#include "LV_prpPropCollection.h"
#include "fuzz/FuzzInput.h"
#include "platform/atl/ComPtr.h"

#include <algorithm>

namespace {

/// One collection with one property, for the life of the process.
struct Model {
    CComPtr<IqorPropertyCollection> collection;
    CComPtr<IqorProperty> property;

    Model()
    {
        Require(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
        Require(collection.CoCreateInstance(CLSID_prpPropertyCollection) == S_OK);
        EprpPropError error = E_PROP_ERROR_NONE;
        Require(collection->StartTransaction(-1) == S_OK);
        Require(collection->AddProperty(1, E_PROP_ID_TOP_LEVEL, 0, 0, 0, 0, E_PROP_DT_SCAN_PATH_LIST, VARIANT_TRUE,
                                        VARIANT_FALSE, VARIANT_TRUE, &error) == S_OK);
        Require(collection->GetProperty(1, &error, &property) == S_OK);
        Require(collection->EndTransaction(VARIANT_FALSE) == S_OK);
    }
};

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
    static const Model model;
    const InputText input(data, size);
    for (const EprpUnitMode mode : {E_METRIC, E_IMPERIAL}) {
        Require(model.collection->SetUnitMode(mode) == S_OK);
        Require(model.collection->StartTransaction(-1) == S_OK);
        const Text points = PointsOf(model.property, input.View());
        const LONG count = CountOf(model.property);
        Require(count == (points.empty() ? 0 : 1 + std::count(points.begin(), points.end(), OLECHAR{'\n'})));
        Require(PointsOf(model.property, points) == points && CountOf(model.property) == count);
        Require(model.collection->EndTransaction(VARIANT_FALSE) == S_OK); // throws the events of this input away
    }
    return 0;
}
