#include "platform/system/ModuleStrings.h"

extern "C" IMAGE_DOS_HEADER __ImageBase; // made by the linker: the address that the own module is loaded at

LONG_PTR OwnModuleHandle() noexcept
{
    return reinterpret_cast<LONG_PTR>(&__ImageBase);
}

bool LoadModuleString(LONG_PTR module, UINT id, Text& out)
{
    // With a size of 0 the call gives a pointer into the resource itself, so no length is cut.
    const OLECHAR* text = nullptr;
    const int length = LoadStringW(reinterpret_cast<HINSTANCE>(module), id, reinterpret_cast<LPWSTR>(&text), 0);
    if (length <= 0 || !text)
        return false;
    out.assign(text, static_cast<std::size_t>(length));
    return true;
}
