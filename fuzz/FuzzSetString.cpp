// An arbitrary text given to a property of an arbitrary type: the text that is shown afterwards is accepted in its turn
// and shown again.
#include "fuzz/FuzzCollection.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2)
        return 0;
    const LONG type = data[0] % kDataTypeCount;
    const Text text = TextOf(data[1] & 1, data + 2, size - 2);
    FuzzCollection fuzz;
    const auto property = fuzz.Property(type);
    if (FAILED(property->SetPropertyString(CComBSTR(text))))
        return 0;
    CComBSTR shown;
    Require(property->GetPropertyString(&shown) == S_OK);
    Require(property->SetPropertyString(shown) == S_OK);
    CComBSTR again;
    Require(property->GetPropertyString(&again) == S_OK);
    Require(type == E_PROP_DT_SCAN_PATH_LIST || again.View() == shown.View());
    return 0;
}
