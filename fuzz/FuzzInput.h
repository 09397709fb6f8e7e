// What the fuzz targets share: a test that works in every build, and input read as text.
#pragma once

#include "platform/com/Ole.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

/// A broken promise ends the run.
inline void Require(bool kept)
{
    if (!kept)
        std::abort();
}

/// Two bytes a unit, so that every unit can occur; a single byte is cut. The units stand in a block of their own exact
/// size, so that a read beyond the end is seen.
class InputText {
public:
    InputText(const std::uint8_t* data, std::size_t size) : m_units(size / sizeof(OLECHAR))
    {
        if (!m_units.empty())
            std::memcpy(m_units.data(), data, m_units.size() * sizeof(OLECHAR));
    }

    TextView View() const { return {m_units.data(), m_units.size()}; }

private:
    std::vector<OLECHAR> m_units;
};

/// One unit a byte: reaches the syntax of saved texts sooner.
inline Text LatinText(const std::uint8_t* data, std::size_t size)
{
    return Text(data, data + size);
}

/// Either of the two, as a flag of the input chooses.
inline Text TextOf(bool wide, const std::uint8_t* data, std::size_t size)
{
    return wide ? Text(InputText(data, size).View()) : LatinText(data, size);
}
