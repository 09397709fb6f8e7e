// What the program holds on its heaps.
#pragma once

#include <cstddef>

/// Bytes that operator new has given out and not got back.
std::size_t LivingBytes();
/// Bytes in use on all heaps of the process, those of the system's libraries included.
std::size_t HeapBytes();
