#include "frame/LanguageStrings.h"

#include "platform/system/ModuleStrings.h"

#include <atomic>

namespace {

std::atomic<LONG_PTR> g_hLanguageModule{0};

} // namespace

LONG_PTR SetLanguageModule(LONG_PTR module) noexcept
{
    return g_hLanguageModule.exchange(module);
}

LONG_PTR LanguageModule() noexcept
{
    const LONG_PTR module = g_hLanguageModule.load();
    return module ? module : OwnModuleHandle();
}

bool LoadLanguageString(UINT id, Text& out)
{
    const LONG_PTR module = g_hLanguageModule.load();
    return (module && LoadModuleString(module, id, out)) || LoadModuleString(OwnModuleHandle(), id, out);
}
