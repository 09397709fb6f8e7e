// Turns the bytes of a fuzzer into 16-bit text: two bytes a unit, so that every unit can occur; a single byte is cut.
#pragma once

#include "platform/com/Ole.h"

#include <cstdint>
#include <cstring>

inline Text FuzzText(const std::uint8_t* data, std::size_t size)
{
    Text text(size / sizeof(OLECHAR), OLECHAR{0});
    std::memcpy(text.data(), data, text.size() * sizeof(OLECHAR));
    return text;
}

/// One unit a byte: reaches the syntax of saved texts sooner.
inline Text FuzzLatinText(const std::uint8_t* data, std::size_t size)
{
    return Text(data, data + size);
}
