// The version that this build calls itself, in the form that files and logs show.
#pragma once

#include "platform/com/Ole.h"

inline constexpr const OLECHAR* kVersionText = OLESTR("1.85.0.021");
