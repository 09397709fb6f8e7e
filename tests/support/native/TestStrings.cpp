#include "tests/support/TestStrings.h"

#include "platform/system/native/ModuleStrings.h"

namespace {

constexpr LONG_PTR kWithStrings = 0x7E57;
constexpr LONG_PTR kWithoutStrings = 0x7E58;

struct Entry {
    UINT id;
    const OLECHAR* text;
};

constexpr Entry kEntries[] = {
#define TEST_STRING(id, text) {id, OLESTR(text)},
#include "tests/support/TestStrings.inc"
#undef TEST_STRING
};

bool Look(UINT id, Text& out)
{
    for (const Entry& entry : kEntries) {
        if (entry.id == id) {
            out = entry.text;
            return true;
        }
    }
    return false;
}

} // namespace

LONG_PTR ModuleWithStrings()
{
    static const bool s_registered = (RegisterModuleStrings(kWithStrings, &Look), true);
    return s_registered ? kWithStrings : 0;
}

LONG_PTR ModuleWithoutStrings()
{
    return kWithoutStrings;
}
