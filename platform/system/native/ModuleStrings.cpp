#include "platform/system/native/ModuleStrings.h"

#include "platform/system/ModuleStrings.h"

#include <map>
#include <mutex>

namespace {

struct Tables {
    std::mutex mutex;
    std::map<LONG_PTR, StringLookup> byHandle;
};

Tables& AllTables()
{
    static Tables s_tables;
    return s_tables;
}

} // namespace

LONG_PTR OwnModuleHandle() noexcept
{
    return kOwnModuleHandle;
}

void RegisterModuleStrings(LONG_PTR module, StringLookup lookup)
{
    Tables& tables = AllTables();
    const std::lock_guard guard(tables.mutex);
    if (lookup)
        tables.byHandle[module] = std::move(lookup);
    else
        tables.byHandle.erase(module);
}

bool LoadModuleString(LONG_PTR module, UINT id, Text& out)
{
    Tables& tables = AllTables();
    const std::lock_guard guard(tables.mutex);
    const auto found = tables.byHandle.find(module);
    return found != tables.byHandle.end() && found->second(id, out);
}
