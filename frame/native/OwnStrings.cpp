// The own string table natively: what the resource script of the DLL holds, under the fixed handle of the module.
#include "frame/StringTable.h"
#include "platform/system/native/ModuleStrings.h"

#include <algorithm>

namespace {

bool FindOwnString(UINT id, Text& out)
{
    const StringRow* const end = kOwnStrings + kOwnStringCount;
    const StringRow* const row =
        std::lower_bound(kOwnStrings, end, id, [](const StringRow& left, UINT wanted) { return left.id < wanted; });
    if (row == end || row->id != id)
        return false;
    out = row->text;
    return true;
}

struct OwnStrings {
    OwnStrings() { RegisterModuleStrings(kOwnModuleHandle, FindOwnString); }
};

} // namespace

// Known to the linker by its name: nothing in the program refers to this file.
extern "C" const char lv_ownStrings = 0;

static const OwnStrings s_registered;
