// Loading an arbitrary text in the version that the target is built for: never a crash, and what was loaded can be
// saved and loaded again.
#include "fuzz/FuzzCollection.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 1)
        return 0;
    const Text text = TextOf(data[0] & 1, data + 1, size - 1);
    FuzzCollection fuzz;
    Require(fuzz.collection->put_LoadVersion(LV_LOAD_VERSION) == S_OK);
    if (FAILED(fuzz.Load(text)))
        return 0; // a raise ends the load where it stands
    CComBSTR saved;
    if (!fuzz.Save(saved))
        return 0;
    Require(fuzz.collection->put_LoadVersion(1) == S_OK);
    (void)fuzz.Load(saved.View());
    return 0;
}
