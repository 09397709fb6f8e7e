// Type descriptions from the type library that the module carries as a resource; no registration is needed.
#include "platform/atl/ComPtr.h"
#include "platform/atl/Dispatch.h"
#include "platform/system/ModuleStrings.h"

#include <mutex>

namespace {

/// Never released: an object of a module that is being unloaded could be asked for nothing any more.
ITypeLib* OwnTypeLibrary()
{
    static std::mutex s_mutex;
    static ITypeLib* s_library = nullptr;
    const std::lock_guard guard(s_mutex);
    if (!s_library) {
        OLECHAR path[MAX_PATH] = {};
        if (GetModuleFileNameW(reinterpret_cast<HMODULE>(OwnModuleHandle()), path, MAX_PATH) == 0)
            return nullptr;
        LoadTypeLibEx(path, REGKIND_NONE, &s_library);
    }
    return s_library;
}

} // namespace

HRESULT TypeInfoOf(REFIID iid, ITypeInfo** out)
{
    *out = nullptr;
    ITypeLib* library = OwnTypeLibrary();
    return library ? library->GetTypeInfoOfGuid(iid, out) : TYPE_E_CANTLOADLIBRARY;
}
