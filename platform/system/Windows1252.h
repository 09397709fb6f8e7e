// The Western European code page, one byte to a character, the same in both worlds.
#pragma once

#include "platform/com/Ole.h"

#include <string>
#include <string_view>

/// Characters that the code page lacks become "?"; a surrogate pair becomes one.
std::string Windows1252From(TextView text);

/// Every byte has a character: the five that the code page leaves free become the control characters of that number.
Text TextFromWindows1252(std::string_view bytes);
