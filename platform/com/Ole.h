// The one door to the SDK: COM, OLE Automation and their types, the same names in both worlds.
// OLECHAR is a 16-bit unit everywhere: wchar_t on Windows, char16_t natively. Interface integers are LONG (32 bits).
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <ole2.h>
#include <olectl.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

using Text = std::basic_string<OLECHAR>;
using TextView = std::basic_string_view<OLECHAR>;

static_assert(sizeof(OLECHAR) == 2 && sizeof(LONG) == 4 && sizeof(HRESULT) == 4 && sizeof(LONG_PTR) == 8);
