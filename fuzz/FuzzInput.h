// What the fuzz targets share: an assertion that works in every build, and input read as text.
#pragma once

#include "platform/com/Ole.h"

#include <cstdlib>
#include <cstring>
#include <vector>

inline void Require(bool holds)
{
    if (!holds)
        std::abort();
}

/// Input as 16-bit units, in a block of its own exact size, so that a read beyond the end is seen.
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
