// String resources by module handle and id. On Windows a handle is an HMODULE; natively it is any number for which
// a table was registered, and the own module has a fixed non-zero one.
#pragma once

#include "platform/com/Ole.h"

/// Handle of the module that this code is linked into; never 0.
LONG_PTR OwnModuleHandle() noexcept;

/// Reads a string of a module's string table. False, with `out` untouched, when the module does not hold it.
bool LoadModuleString(LONG_PTR module, UINT id, Text& out);
