// Narrow text as files hold it when no encoding is told: the ANSI code page of a Windows system, and Windows-1252
// natively.
#pragma once

#include "platform/com/Ole.h"

#include <string>
#include <string_view>

/// Characters that the code page lacks become a substitute, mostly "?".
std::string AnsiFrom(TextView text);

Text TextFromAnsi(std::string_view bytes);
