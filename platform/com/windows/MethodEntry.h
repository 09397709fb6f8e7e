// What a thread needs at the entry of an interface method. On Windows the first throw of a thread allocates
// its exception state and so resets the last error; making that state here keeps the last error readable in a
// handler.
#pragma once

#include <exception>

inline void PrepareThreadForThrow() noexcept
{
    (void)std::uncaught_exceptions();
}
