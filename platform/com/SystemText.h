// The system's own text for an error code.
#pragma once

#include "platform/com/Ole.h"

/// As the system gives it, in the user's language and with its line end; at most 1023 characters. Empty for code 0,
/// "Error Formatting Last Error" for a code that the system has no text for.
/// @param code  an HRESULT or a last error.
Text SystemText(HRESULT code);
