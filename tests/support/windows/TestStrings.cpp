#include "tests/support/TestStrings.h"

LONG_PTR ModuleWithStrings()
{
    return reinterpret_cast<LONG_PTR>(GetModuleHandleW(nullptr)); // the test program: its resource script
}

LONG_PTR ModuleWithoutStrings()
{
    return reinterpret_cast<LONG_PTR>(GetModuleHandleW(L"ntdll.dll"));
}
