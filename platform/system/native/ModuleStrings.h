// Native side of the string resources: tables registered by handle, and the fixed handle of the own module.
#pragma once

#include "platform/com/Ole.h"

#include <functional>

/// Handle under which the own string table is found natively.
inline constexpr LONG_PTR kOwnModuleHandle = 0x4C56;

/// Looks one string up; false when the table does not hold the id.
using StringLookup = std::function<bool(UINT id, Text& out)>;

/// Makes a handle's strings known, replacing earlier ones; an empty function forgets the handle. Any thread.
void RegisterModuleStrings(LONG_PTR module, StringLookup lookup);
