// What a thread needs at the entry of an interface method. Natively nothing: the last error is a plain
// variable that no part of the C++ runtime resets.
#pragma once

inline void PrepareThreadForThrow() noexcept {}
