// Between UTF-8, which file names and the environment have natively, and the 16-bit text of the interfaces.
#pragma once

#include "platform/com/Ole.h"

#include <string>
#include <string_view>

/// A lone half of a surrogate pair becomes U+FFFD.
std::string Utf8From(TextView text);

/// Each malformed byte becomes U+FFFD; overlong forms, surrogates and numbers above U+10FFFF are malformed.
Text TextFromUtf8(std::string_view bytes);
